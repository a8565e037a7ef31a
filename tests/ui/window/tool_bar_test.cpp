// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/window_fixture.h"
#include "ui/window/toolbar_size_configurator.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace lexivore {
namespace {

class ToolBar : public WindowTest {
protected:
    /// The object names of what the toolbar shows, from left to right.
    [[nodiscard]] QStringList shown() {
        std::vector<QWidget *> buttons;
        for (QWidget *button : find("toolBar")->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            if (button->isVisible() && qobject_cast<QAbstractButton *>(button) != nullptr) {
                buttons.push_back(button);
            }
        }
        std::sort(buttons.begin(), buttons.end(), [](const auto *a, const auto *b) { return a->x() < b->x(); });
        QStringList names;
        for (const QWidget *button : buttons) {
            names << button->objectName();
        }
        return names;
    }
    [[nodiscard]] QString alertTitle() {
        return find("alert") != nullptr ? find("alert")->accessibleName() : QString();
    }
};

TEST_F(ToolBar, HasItsTwoGroupsInOrder) {
    EXPECT_EQ(shown(), (QStringList{"paste", "copy", "clearText", "recipes", "saveRecipe", "clearOperations",
                                    "toggleOperations"}));
    click("toggleOperations");
    EXPECT_TRUE(QTest::qWaitFor([this] {
        return shown() == QStringList{"paste",   "copy",       "clearText",       "showOperations",
                                      "recipes", "saveRecipe", "clearOperations", "toggleOperations"};
    }));
}

TEST_F(ToolBar, NoContextMenuTakesItAway) {
    const QList<QWidget *> places = {window().menuBar(), find("toolBar"), find("sidebar"), find("statusBar")};
    for (QWidget *place : places) {
        ASSERT_NE(place, nullptr);
        const QPoint middle = place->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, middle, place->mapToGlobal(middle));
        QApplication::sendEvent(place, &event);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << place->objectName().toStdString();
    }
}

TEST_F(ToolBar, EveryButtonTellsWhatItDoes) {
    const std::pair<const char *, const char *> helps[] = {
        {"paste", "Paste text from clipboard"},
        {"copy", "Copy text to clipboard"},
        {"clearText", "Clear all text"},
        {"showOperations", "Show operations panel"},
        {"recipes", "Load a saved recipe"},
        {"saveRecipe", "Save current operations as recipe"},
        {"clearOperations", "Clear all operations"},
        {"toggleOperations", "Toggle operations panel"},
    };
    for (const auto &[name, help] : helps) {
        EXPECT_EQ(find(name)->toolTip(), help);
    }
    EXPECT_EQ(find<QAbstractButton>("showOperations")->text(), "Operations");
}

TEST_F(ToolBar, ShowsIconsAloneIn32Pixels) {
    for (const char *name : {"paste", "copy", "clearText", "recipes", "saveRecipe", "clearOperations"}) {
        const auto *button = find<QToolButton>(name);
        EXPECT_EQ(button->toolButtonStyle(), Qt::ToolButtonIconOnly) << name;
        EXPECT_EQ(button->height(), 32) << name;
    }
    EXPECT_EQ(find("paste")->width(), 32);
    EXPECT_EQ(find("recipes")->width(), 44);
    EXPECT_EQ(find("copy")->x() - find("paste")->geometry().right() - 1, 4);
    EXPECT_EQ(find("paste")->x(), 10);
    EXPECT_EQ(window().width() - find("toggleOperations")->geometry().right() - 1, 10);
    EXPECT_FALSE(find<QToolBar>("toolBar")->isMovable());
}

TEST_F(ToolBar, TheConfiguratorSetsTheSizeOnTheNextTurn) {
    ToolbarSizeConfigurator configurator(ToolbarSizeMode::small, &window());
    EXPECT_EQ(configurator.size(), QSize(0, 0));
    EXPECT_EQ(find("paste")->height(), 32);
    QCoreApplication::processEvents();
    EXPECT_EQ(find<QToolButton>("paste")->maximumHeight(), 28);
    EXPECT_EQ(find<QToolBar>("toolBar")->toolButtonStyle(), Qt::ToolButtonIconOnly);
}

TEST_F(ToolBar, TheToggleIsCheckedWhileThePanelShows) {
    EXPECT_TRUE(find<QAbstractButton>("toggleOperations")->isChecked());
    click("toggleOperations");
    EXPECT_FALSE(find<QAbstractButton>("toggleOperations")->isChecked());
    choose("ToggleOperations");
    EXPECT_TRUE(find<QAbstractButton>("toggleOperations")->isChecked());
}

TEST_F(ToolBar, TheButtonThatGoesLeavesTheKeyboardOnTheOneThatBringsItBack) {
    choose("ToggleOperations");
    ASSERT_TRUE(QTest::qWaitFor([this] { return isShown("showOperations"); }));
    find("showOperations")->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(find("showOperations")->hasFocus());
    press(Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isShown("showOperations"); }));
    EXPECT_TRUE(find("toggleOperations")->hasFocus());
    press(Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isShown("showOperations"); }));
    EXPECT_TRUE(find("toggleOperations")->hasFocus());
}

TEST_F(ToolBar, ARecipeOfTheMenuIsApplied) {
    setText("a\nb");
    const auto *menu = find<QMenu>("recipesToolMenu");
    const auto actions = menu->actions();
    const auto bullets = std::find_if(actions.begin(), actions.end(),
                                      [](const QAction *action) { return action->text() == "Create Bullet List"; });
    ASSERT_NE(bullets, actions.end());
    (*bullets)->trigger();
    EXPECT_EQ(text(), "\xE2\x80\xA2 a\n\xE2\x80\xA2 b");
}

TEST_F(ToolBar, AButtonWhoseMenuIsClosedElsewhereIsNoLongerPointedAt) {
    QWidget *button = find("recipes");
    auto *menu = find<QMenu>("recipesToolMenu");
    const auto openAndCloseAt = [&](QPoint pointer) {
        button->setAttribute(Qt::WA_UnderMouse);
        menu->popup(button->mapToGlobal(QPoint(0, button->height())));
        QCursor::setPos(pointer);
        menu->close();
    };
    openAndCloseAt(button->mapToGlobal(QPoint(10, 10)));
    EXPECT_TRUE(button->underMouse());
    openAndCloseAt(button->mapToGlobal(QPoint(10, 100)));
    EXPECT_FALSE(button->underMouse());
}

TEST_F(ToolBar, SavingARecipeAndManagingThemOpenTheirSheets) {
    click("saveRecipe");
    EXPECT_TRUE(isShown("recipeSaveSheet"));
    press(Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("recipeSaveSheet"); }));
    center().post(notification::showRecipeSheet);
    EXPECT_TRUE(isShown("recipeSaveSheet"));
    press(Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("recipeSaveSheet"); }));
    center().post(notification::showManageRecipes);
    EXPECT_TRUE(isShown("manageRecipesSheet"));
}

TEST_F(ToolBar, BothQuestionsHaveTheirWordsAndCancelKeepsEverything) {
    setText("kept");
    click("transformation.uppercase");
    const std::tuple<const char *, const char *, const char *> questions[] = {
        {"clearText", "Clear Text", "Are you sure you want to clear all text?"},
        {"clearOperations", "Clear Operations", "Are you sure you want to clear all operations?"},
    };
    for (const auto &[button, title, message] : questions) {
        click(button);
        EXPECT_EQ(alertTitle(), title);
        EXPECT_EQ(find("alert")->findChild<QLabel *>("message")->text(), message);
        click("cancel");
        ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("alert"); }));
        EXPECT_EQ(text(), "KEPT");
        EXPECT_EQ(manager().appliedOperations().size(), 1U);
    }
}

TEST_F(ToolBar, AToolThatIsNotKnownIsIgnored) {
    setText("x");
    center().post(notification::runTool);
    center().post(notification::runTool, 3);
    center().post(notification::runTool, QString("no-such-tool"));
    EXPECT_FALSE(state().currentToolWrapper.has_value());
    center().post(notification::runTool, QString("reading-time"));
    EXPECT_TRUE(state().currentToolWrapper.has_value());
    EXPECT_TRUE(isShown("toolResult.reading-time"));
}

TEST_F(ToolBar, AToolIsTheCurrentOneUntilItsResultIsClosed) {
    setText("x");
    for (const char *id : {"statistics", "character-frequency", "reading-time", "readability"}) {
        for (const bool byKey : {true, false}) {
            center().post(notification::runTool, QString(id));
            ASSERT_TRUE(state().currentToolWrapper.has_value());
            EXPECT_EQ(state().currentToolWrapper->id, id);
            byKey ? press(Qt::Key_Escape) : click("done");
            EXPECT_FALSE(state().currentToolWrapper.has_value()) << id;
        }
    }
}

} // namespace
} // namespace lexivore
