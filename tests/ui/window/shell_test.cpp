// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/memory_limit.h"
#include "tests/support/files.h"
#include "tests/ui/window/window_fixture.h"
#include "ui/shell/open_address.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryFile>
#include <QUrl>

#include <sys/resource.h>

namespace lexivore {
namespace {

class Shell : public WindowTest {
protected:
    [[nodiscard]] QMenu *menu(const QString &name) { return find<QMenu>("menu." + name); }
    [[nodiscard]] static QStringList titles(const QMenu *menu) {
        QStringList titles;
        for (const QAction *action : menu->actions()) {
            if (!action->isSeparator()) {
                titles << action->text();
            }
        }
        return titles;
    }
};

TEST_F(Shell, NotificationsArriveAtOnceInTheOrderOfSubscription) {
    QObject first;
    auto second = std::make_unique<QObject>();
    QStringList received;
    NotificationCenter notifications;
    notifications.subscribe("Name", &first, [&](const QVariant &object) { received << "first " + object.toString(); });
    notifications.subscribe("Name", second.get(), [&](const QVariant &) { received << "second"; });
    notifications.subscribe("Other", &first, [&](const QVariant &) { received << "other"; });
    notifications.post("Name", QString("x"));
    EXPECT_EQ(received, (QStringList{"first x", "second"}));
    second.reset();
    notifications.post("Name");
    EXPECT_EQ(received, (QStringList{"first x", "second", "first "}));
}

/// Stands in for the program that the desktop opens an address with.
class Opener : public QObject {
    Q_OBJECT

public:
    Opener() { QDesktopServices::setUrlHandler("x-test", this, "open"); }
    ~Opener() override { QDesktopServices::unsetUrlHandler("x-test"); }

    static rlim_t limitOfMemory() {
        rlimit now{};
        ::getrlimit(RLIMIT_DATA, &now);
        return now.rlim_cur;
    }

    QUrl opened;
    rlim_t limit = 0; ///< Of the memory of whatever is started by then.

public slots:
    void open(const QUrl &address) {
        opened = address;
        limit = limitOfMemory();
    }
};

#ifndef __SANITIZE_ADDRESS__ // with which there is no limit
TEST_F(Shell, WhatOpensAnAddressIsNotBoundByTheLimitOfMemory) {
    EXPECT_EQ(test::inChild([] {
                  Opener opener;
                  const rlim_t before = Opener::limitOfMemory();
                  limitMemory();
                  const rlim_t limited = Opener::limitOfMemory();
                  const QUrl address("x-test:something");
                  if (limited == before || !openAddress(address) || opener.opened != address) {
                      return 1;
                  }
                  return opener.limit != before ? 2 : Opener::limitOfMemory() != limited ? 3 : 0;
              }),
              0);
}
#endif

TEST_F(Shell, TheWindowOpensInSingleModeActiveWithBothPanels) {
    EXPECT_FALSE(state().stackOperationMode());
    EXPECT_TRUE(state().operationsEnabled());
    EXPECT_TRUE(isShown("sidebar"));
    EXPECT_TRUE(isShown("operationsPanel"));
    EXPECT_EQ(state().selectedCategory(), TransformationCategory::caseConversion);
}

TEST_F(Shell, TheMirrorsAgreeWithTheWindowWhoeverChangesTheFlag) {
    EXPECT_TRUE(app().showSidebar());
    EXPECT_TRUE(app().showOperations());
    choose("ToggleSidebar");
    EXPECT_FALSE(isShown("sidebar"));
    EXPECT_FALSE(app().showSidebar());
    click("toggleOperations");
    EXPECT_FALSE(isShown("operationsPanel"));
    EXPECT_FALSE(app().showOperations());
    ASSERT_TRUE(QTest::qWaitFor([this] { return isShown("showOperations"); }));
    click("showOperations");
    EXPECT_TRUE(isShown("operationsPanel"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isShown("showOperations"); }));
    EXPECT_TRUE(app().showOperations());
    click("modeSwitch");
    EXPECT_TRUE(app().stackOperationMode());
}

TEST_F(Shell, TheModeCommandShowsTheModeAndTwiceIsNothing) {
    const QAction *mode = command("ToggleStackOperationMode");
    EXPECT_EQ(mode->text(), "Multiple Operation Mode");
    choose("ToggleStackOperationMode");
    EXPECT_TRUE(state().stackOperationMode());
    EXPECT_EQ(mode->text(), QString::fromUtf8("✓ Multiple Operation Mode"));
    choose("ToggleStackOperationMode");
    EXPECT_FALSE(state().stackOperationMode());
    EXPECT_EQ(mode->text(), "Multiple Operation Mode");
}

TEST_F(Shell, CommandsHaveTheirShortcuts) {
    const std::pair<const char *, const char *> shortcuts[] = {
        {"OpenFile", "Ctrl+O"},
        {"SaveFile", "Ctrl+S"},
        {"UndoTransformation", "Ctrl+Z"},
        {"RedoTransformation", "Ctrl+Shift+Z"},
        {"ToggleSidebar", "Ctrl+Alt+S"},
        {"ToggleOperations", "Ctrl+Alt+O"},
        {"ShowRecipeSheet", "Ctrl+Shift+S"},
        {"ShowManageRecipes", "Ctrl+Shift+M"},
        {"ToggleStackOperationMode", "Ctrl+Alt+1"},
    };
    for (const auto &[name, shortcut] : shortcuts) {
        EXPECT_EQ(command(name)->shortcut(), QKeySequence(shortcut)) << name;
    }
}

TEST_F(Shell, TheApplicationMenuOffersUpdatesAfterTheAboutItem) {
    const QStringList items = titles(menu("application"));
    EXPECT_EQ(items.indexOf(QString::fromUtf8("Check for Updates…")), 1);
    EXPECT_TRUE(items.first().startsWith("About"));
    const QAction *check = command("CheckForUpdates");
    EXPECT_TRUE(check->isEnabled());
    choose("CheckForUpdates");
    EXPECT_TRUE(isShown("alert")) << "a build without a feed answers too";
    EXPECT_TRUE(check->isEnabled());
}

TEST_F(Shell, TransformationsAreListedByCategoryInCatalogOrder) {
    const QMenu *transformations = menu("transformations");
    EXPECT_EQ(titles(transformations).mid(0, 6),
              (QStringList{"Case Conversion", "Add && Remove", "Lines", "Sorting", "Find && Replace", "Encoding"}));
    EXPECT_EQ(titles(menu("Sorting")),
              (QStringList{"Sort Lines Alphabetically", "Sort Lines (Reverse)", "Sort Lines by Length", "Shuffle Lines",
                           "Sort Words Alphabetically", "Reverse Words in Line"}));
}

TEST_F(Shell, ToolsAreListedInTheirOrder) {
    EXPECT_EQ(titles(menu("tools")),
              (QStringList{"Text Statistics", "Character Frequency", "Reading Time Estimator", "Readability Score"}));
}

TEST_F(Shell, RecipesAreListedByGroup) {
    setText("x");
    click("transformation.uppercase");
    manager().saveRecipe("Mine & yours");
    const QStringList items = titles(menu("recipes"));
    EXPECT_EQ(items.first(), "Mine && yours");
    EXPECT_LT(items.indexOf("Clean Code Comments"), items.indexOf("Normalize Text"));
    EXPECT_LT(items.indexOf("Normalize Text"), items.indexOf("Create Bullet List"));
    EXPECT_LT(items.indexOf("Create Bullet List"), items.indexOf("Format SQL List"));
    EXPECT_LT(items.indexOf("CSV to JSON Array"), items.indexOf("Save Current as Recipe..."));
    EXPECT_LT(items.indexOf("Save Current as Recipe..."), items.indexOf("Manage Recipes..."));
}

TEST_F(Shell, WhatActsOnTheTextNeedsText) {
    const QStringList needing = {"SaveFile", "ApplyTransformation.uppercase", "RunTool.statistics"};
    const QStringList always = {"OpenFile", "UndoTransformation", "ToggleSidebar", "ShowRecipeSheet",
                                "ShowManageRecipes"};
    for (const bool hasText : {true, false}) {
        setText(hasText ? "x" : "");
        for (const QString &name : needing) {
            EXPECT_EQ(command(name)->isEnabled(), hasText) << qPrintable(name);
        }
        EXPECT_EQ(menu("recipes")->actions()[1]->isEnabled(), hasText);
        for (const QString &name : always) {
            EXPECT_TRUE(command(name)->isEnabled()) << qPrintable(name);
        }
    }
}

TEST_F(Shell, ThatThereIsNoTextIsStoredFromTheStart) {
    center().post(notification::textChanged, false);
    EXPECT_EQ(preferences.value(preference::hasText), QVariant(false));
}

TEST_F(Shell, TextChangedWithoutABooleanIsIgnored) {
    setText("x");
    center().post(notification::textChanged);
    center().post(notification::textChanged, 0);
    EXPECT_TRUE(app().hasText());
    center().post(notification::textChanged, false);
    EXPECT_FALSE(app().hasText());
    EXPECT_EQ(preferences.value(preference::hasText), QVariant(false));
}

TEST_F(Shell, TypingDoesNotWriteThePreferenceAgainAndAgain) {
    setText("x");
    const int writes = preferences.writeCount();
    focusEditor();
    type("abc");
    EXPECT_EQ(preferences.writeCount(), writes);
}

TEST_F(Shell, F10OpensTheMenuBarAndShiftF10TheContextMenu) {
    setText("x");
    focusEditor();
    press(Qt::Key_F10);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget(), window().menuBar()->actions().front()->menu());
    QApplication::activePopupWidget()->close();
    center().post(notification::applyTransformation, QString("uppercase"));
    find("operation.0")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget()->objectName(), "operationMenu");
    QApplication::activePopupWidget()->close();
}

TEST_F(Shell, ReturnPressesTheButtonThatHasTheKeyboard) {
    setText("x");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        const auto keyboardOn = [&](const char *name) {
            find(name)->setFocus(Qt::TabFocusReason);
            press(key, key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
        };
        const bool wasStack = state().stackOperationMode();
        keyboardOn("modeSwitch");
        EXPECT_NE(state().stackOperationMode(), wasStack);
        const bool wasEnabled = state().operationsEnabled();
        keyboardOn("pause");
        EXPECT_NE(state().operationsEnabled(), wasEnabled);
        keyboardOn("editorSettings");
        EXPECT_TRUE(isShown("editorSettingsSheet"));
        press(Qt::Key_Escape);
        keyboardOn("clearText");
        EXPECT_TRUE(isShown("alert"));
        press(Qt::Key_Escape);
        choose("Find");
        keyboardOn("closeFind");
        EXPECT_FALSE(isShown("findBar"));
    }
    EXPECT_EQ(text(), "x");
}

TEST_F(Shell, ClosingHidesTheWindowAndItComesBackWithItsText) {
    setText("kept");
    window().close();
    EXPECT_FALSE(window().isVisible());
    app().comeForward();
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(text(), "kept");
    EXPECT_TRUE(app().showSidebar());
    EXPECT_TRUE(isShown("sidebar"));
}

TEST_F(Shell, ComingForwardUndoesMinimizingAndOpensTheFile) {
    EXPECT_EQ(window().windowTitle(), "Lexivore");
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("opened");
    file.close();
    window().showMinimized();
    ASSERT_TRUE(window().isMinimized());
    app().comeForward({file.fileName()});
    EXPECT_FALSE(window().isMinimized());
    EXPECT_EQ(text(), "opened");
}

TEST_F(Shell, ComingForwardLeavesTheKeyboardInTheDialogThatIsOpen) {
    QDialog dialog(&window());
    dialog.open();
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.isActiveWindow(); }));
    app().comeForward();
    QCoreApplication::processEvents();
    EXPECT_TRUE(dialog.isActiveWindow());
}

} // namespace
} // namespace lexivore

#include "shell_test.moc"
