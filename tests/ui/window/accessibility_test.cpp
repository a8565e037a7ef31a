// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/support/assistive_technology.h"
#include "tests/ui/window/window_fixture.h"
#include "ui/results/frequency_row.h"

#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QSet>

namespace lexivore {
namespace {

/// What assistive technology finds in the window.
class Accessibility : public WindowTest {
protected:
    [[nodiscard]] static QAccessibleInterface *seen(QWidget *widget) {
        return QAccessible::queryAccessibleInterface(widget);
    }

    /// Calls `visit` for everything below that is not hidden.
    template<typename Visit> static void forEach(QAccessibleInterface *node, const Visit &visit) {
        for (int index = 0; node != nullptr && index < node->childCount(); ++index) {
            QAccessibleInterface *child = node->child(index);
            if (child != nullptr && !child->state().invisible) {
                visit(*child);
                forEach(child, visit);
            }
        }
    }

    /// Those of the object names that are found below `top`, in the order in which it is read.
    static QStringList namedOf(const QStringList &names, QWidget &top) {
        QStringList found;
        forEach(seen(&top), [&](QAccessibleInterface &node) {
            if (node.object() != nullptr && names.contains(node.object()->objectName())) {
                found << node.object()->objectName();
            }
        });
        return found;
    }

    static std::string describe(QAccessibleInterface &node) {
        const QObject *object = node.object();
        return std::string(object != nullptr ? object->metaObject()->className() : "?") + " " +
               (object != nullptr ? object->objectName().toStdString() : "") + " role " + std::to_string(node.role());
    }

    void expectEverythingHasANameAndARole() {
        const QSet<int> needingAName = {QAccessible::Button,         QAccessible::CheckBox, QAccessible::EditableText,
                                        QAccessible::List,           QAccessible::ListItem, QAccessible::MenuItem,
                                        QAccessible::ButtonMenu,     QAccessible::Slider,   QAccessible::StaticText,
                                        QAccessible::ButtonDropDown, QAccessible::Dialog,   QAccessible::ToolBar};
        int count = 0;
        forEach(seen(&window()), [&](QAccessibleInterface &node) {
            ++count;
            const bool isOperable = node.state().focusable && qobject_cast<QWidget *>(node.object()) != nullptr;
            if (needingAName.contains(node.role()) || isOperable) {
                EXPECT_FALSE(node.text(QAccessible::Name).isEmpty()) << describe(node);
            }
            if (isOperable) {
                EXPECT_NE(node.role(), QAccessible::NoRole) << describe(node);
                EXPECT_NE(node.role(), QAccessible::Client) << describe(node);
            }
        });
        EXPECT_GT(count, 40);
    }
};

TEST_F(Accessibility, EveryControlHasANameAndARole) {
    setText("some text\r\n");
    useStackMode();
    click("transformation.uppercase");
    manager().applyTransformation(*manager().findTransformation("add-prefix"), {{"prefix", "> "}});
    choose("Find");
    QCoreApplication::processEvents();
    expectEverythingHasANameAndARole();
}

TEST_F(Accessibility, SoHaveThoseOfTheEmptyWindowAndOfASheet) {
    expectEverythingHasANameAndARole();
    click("editorSettings");
    expectEverythingHasANameAndARole();
}

TEST_F(Accessibility, TheColumnsAreListsWithTheirRowsInOrder) {
    setText("x");
    useStackMode();
    click("transformation.uppercase");
    click("transformation.lowercase");
    const std::tuple<const char *, const char *, QStringList> lists[] = {
        {"categories",
         "Categories",
         {"Favorites", "Case Conversion", "Add & Remove", "Lines", "Sorting", "Find & Replace", "Encoding"}},
        {"operations", "Operations", {"UPPERCASE", "lowercase"}},
    };
    for (const auto &[name, title, rows] : lists) {
        QAccessibleInterface *list = seen(find(name));
        EXPECT_EQ(list->role(), QAccessible::List);
        EXPECT_EQ(list->text(QAccessible::Name), title);
        QStringList names;
        for (int index = 0; index < list->childCount(); ++index) {
            EXPECT_EQ(list->child(index)->role(), QAccessible::ListItem);
            EXPECT_EQ(list->indexOfChild(list->child(index)), index);
            names << list->child(index)->text(QAccessible::Name);
        }
        EXPECT_EQ(names, rows);
    }
}

TEST_F(Accessibility, TheWindowIsReadInTheOrderInWhichItStands) {
    setText("x");
    click("transformation.uppercase");
    const QStringList order = {"categoriesHeader", "categories", "search",         "listHeader",
                               "transformations",  "editor",     "editorSettings", "modeName",
                               "modeSwitch",       "pause",      "operations"};
    EXPECT_EQ(namedOf(order, window()), order);
}

TEST_F(Accessibility, SheetsAreReadFromTopToBottom) {
    setText("x");
    center().post(notification::runTool, QString("character-frequency"));
    const QStringList ofTool = {"title", "details", "caption", "x", "copy", "done"};
    find("toolResult.character-frequency")->findChild<FrequencyRow *>()->setObjectName("x");
    EXPECT_EQ(namedOf(ofTool, *find("toolResult.character-frequency")), ofTool);
    click("done");
    center().post(notification::applyTransformation, QString("uppercase"));
    manager().saveRecipe("mine");
    choose("ShowManageRecipes");
    const QStringList ofRecipes = {"done", "recipes", "import", "export"};
    EXPECT_EQ(namedOf(ofRecipes, *find("manageRecipesSheet")), ofRecipes);
}

TEST_F(Accessibility, PressingARowIsAnAction) {
    setText("x");
    seen(find("category.Sorting"))->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(seen(find("category.Sorting"))->state().selected);
    EXPECT_FALSE(seen(find("category.Case Conversion"))->state().selected);
    EXPECT_TRUE(isShown("transformation.sort-lines"));
    center().post(notification::applyTransformation, QString("uppercase"));
    EXPECT_EQ(text(), "X");
}

TEST_F(Accessibility, TheHeaderTellsWhetherItIsUnfolded) {
    QAccessibleInterface *header = seen(find("categoriesHeader"));
    EXPECT_EQ(header->role(), QAccessible::Button);
    EXPECT_EQ(header->text(QAccessible::Name), "Categories");
    EXPECT_TRUE(header->state().expandable);
    EXPECT_TRUE(header->state().expanded);
    click("categoriesHeader");
    EXPECT_TRUE(QTest::qWaitFor([&] { return header->state().collapsed; }, 30'000));
    EXPECT_FALSE(header->state().expanded);
}

TEST_F(Accessibility, TheStarIsACheckBoxInItsRow) {
    auto *row = find("transformation.lowercase");
    row->setFocus(Qt::TabFocusReason);
    QAccessibleInterface *star = seen(row->findChild<QWidget *>("star"));
    EXPECT_EQ(star->text(QAccessible::Name), "Favorite");
    EXPECT_FALSE(star->state().checked);
    press(Qt::Key_Right);
    press(Qt::Key_Space);
    EXPECT_TRUE(star->state().checked);
}

TEST_F(Accessibility, TheModeSwitchAndThePauseButtonTellTheirStates) {
    QAccessibleInterface *mode = seen(find("modeSwitch"));
    EXPECT_EQ(mode->role(), QAccessible::CheckBox);
    EXPECT_FALSE(mode->state().checked);
    click("modeSwitch");
    EXPECT_TRUE(mode->state().checked);
    EXPECT_EQ(mode->text(QAccessible::Description), "combine multiple transformations, as a stack");
    QAccessibleInterface *pause = seen(find("pause"));
    EXPECT_FALSE(pause->state().checked);
    click("pause");
    EXPECT_TRUE(pause->state().checked);
    EXPECT_EQ(pause->text(QAccessible::Name), "Operations paused (click to resume)");
}

TEST_F(Accessibility, TogglingIsAnActionThatDoesWhatAClickDoes) {
    const auto toggle = [this](QWidget *control) {
        seen(control)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    };
    auto *row = find("transformation.lowercase");
    row->setFocus(Qt::TabFocusReason);
    for (const bool isOn : {true, false}) {
        toggle(find("modeSwitch"));
        EXPECT_EQ(state().stackOperationMode(), isOn);
        EXPECT_EQ(bool(seen(find("modeSwitch"))->state().checked), isOn);
        toggle(find("pause"));
        EXPECT_EQ(state().operationsEnabled(), !isOn);
        EXPECT_EQ(bool(seen(find("pause"))->state().checked), isOn);
        toggle(find("toggleOperations"));
        EXPECT_EQ(state().showOperations(), !isOn);
        EXPECT_EQ(bool(seen(find("toggleOperations"))->state().checked), !isOn);
        auto *star = row->findChild<QWidget *>("star");
        toggle(star);
        EXPECT_EQ(manager().favorites().contains("lowercase"), isOn);
        EXPECT_EQ(bool(seen(star)->state().checked), isOn);
    }
}

TEST_F(Accessibility, TheRecipesButtonOpensItsMenuAndTakesTheFocus) {
    auto *actions = seen(find("recipes"))->actionInterface();
    EXPECT_EQ(seen(find("recipes"))->text(QAccessible::Name), "Load a saved recipe");
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(find("recipes")->hasFocus());
    test::expectMenuOpensWithoutKeepingTheAskerWaiting(*find("recipes"), *find<QMenu>("recipesToolMenu"));
    choose("ShowRecipeSheet");
    EXPECT_EQ(actions->actionNames(), QStringList());
}

TEST_F(Accessibility, PressingTheMagnifierTakesTheKeyboardToTheSearch) {
    auto *search = find<QLineEdit>("search");
    search->setText("trim");
    focusEditor();
    ASSERT_FALSE(search->hasFocus());
    auto *magnifier = qobject_cast<QWidget *>(search->actions().constFirst()->associatedObjects().constLast());
    ASSERT_NE(magnifier, nullptr);
    EXPECT_EQ(seen(magnifier)->text(QAccessible::Name), "Search");
    seen(magnifier)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(search->hasFocus());
    EXPECT_EQ(search->selectedText(), "trim");
}

// As it shows, screen readers tell of a notification and of nothing else that is without the focus.
TEST_F(Accessibility, TheConfirmationOfACopyIsANotification) {
    setText("x");
    click("copy");
    EXPECT_EQ(seen(find("copyToast"))->role(), QAccessible::Notification);
    EXPECT_EQ(seen(find("copyToast"))->text(QAccessible::Name), "Copied to clipboard");
}

TEST_F(Accessibility, NoMenuIsEnabledBeneathASheet) {
    setText("x");
    const auto enabledMenus = [this] {
        QStringList names;
        forEach(seen(window().menuBar()), [&](QAccessibleInterface &node) {
            if (node.role() == QAccessible::MenuItem && !node.state().disabled) {
                names << node.text(QAccessible::Name);
            }
        });
        return names;
    };
    const QStringList all = enabledMenus();
    EXPECT_TRUE(all.contains("Recipes"));
    choose("ShowRecipeSheet");
    EXPECT_EQ(enabledMenus(), QStringList());
    press(Qt::Key_Escape);
    EXPECT_EQ(enabledMenus(), all);
}

} // namespace
} // namespace lexivore
