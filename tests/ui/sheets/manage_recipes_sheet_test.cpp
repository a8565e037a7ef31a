// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/manage_recipes_sheet.h"

#include "manager/transformation_manager.h"
#include "tests/support/assistive_technology.h"
#include "tests/ui/sheets/sheet_fixture.h"
#include "ui/controls/focus_ring_frame.h"
#include "ui/controls/symbol.h"
#include "ui/controls/tool_button.h"
#include "ui/sheets/recipe_row.h"
#include "ui/theme/theme.h"

#include <QCursor>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace lexivore {
namespace {

class ManageRecipesSheetTest : public SheetTest {
protected:
    ManageRecipesSheetTest() {
        manager.ensureTemplates();
        manager.setCurrentText(Text(std::string_view("text")));
    }

    void add(const std::string &name, int operations = 1) {
        manager.clearOperations();
        for (int count = 0; count < operations; ++count) {
            manager.applyTransformation(*manager.findTransformation("uppercase"), {});
        }
        manager.saveRecipe(name);
    }

    QStringList names() const {
        QStringList found;
        for (const Recipe &recipe : manager.recipes()) {
            if (!recipe.isTemplate()) {
                found << QString::fromStdString(recipe.name);
            }
        }
        return found;
    }

    /// The rows from top to bottom.
    QList<RecipeRow *> rows() const {
        QList<RecipeRow *> found;
        for (auto *row : window.findChildren<RecipeRow *>()) {
            if (row->isVisible()) {
                found << row;
            }
        }
        return found;
    }

    RecipeRow *row(int index) const { return rows().at(index); }
    Field *field() const { return find<Field>("editedName"); }

    ManageRecipesSheet *open() { return show(new ManageRecipesSheet(manager)); }

    /// The second half of a double click, whose first half put this widget under the pointer.
    static void finishDoubleClick(QWidget *widget) {
        for (const QEvent::Type type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
            const QPointF place = widget->rect().center();
            QMouseEvent event(type, place, widget->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(widget, &event);
        }
        settle();
    }

    test::MemoryPreferences preferences;
    TransformationManager manager{preferences};
};

TEST_F(ManageRecipesSheetTest, SaysSoWhenThereAreNoUserRecipes) {
    const ManageRecipesSheet *sheet = open();
    EXPECT_EQ(sheet->width(), 400);
    const QStringList texts = labelsIn(*sheet);
    EXPECT_TRUE(texts.contains("Manage Recipes"));
    EXPECT_TRUE(texts.contains("No user recipes"));
    EXPECT_TRUE(texts.contains("Create recipes by saving your current operations"));
    EXPECT_TRUE(rows().isEmpty());
    const auto *symbol = sheet->findChild<Symbol *>();
    ASSERT_NE(symbol, nullptr);
    EXPECT_EQ(symbol->size(), QSize(48, 48));
}

TEST_F(ManageRecipesSheetTest, ListsTheUsersRecipesInOrderWithTheirSizes) {
    add("one", 1);
    add("none", 2);
    add("five", 5);
    open();
    EXPECT_EQ(labelsIn(*row(0)), (QStringList{"one", "1 operation"}));
    EXPECT_EQ(labelsIn(*row(1)), (QStringList{"none", "2 operations"}));
    EXPECT_EQ(labelsIn(*row(2)), (QStringList{"five", "5 operations"}));
    EXPECT_EQ(rows().size(), 3);
}

TEST_F(ManageRecipesSheetTest, ARecipeWithoutOperationsHas0Operations) {
    Recipe empty;
    empty.name = "empty";
    const RecipeRow row(empty);
    EXPECT_EQ(row.accessibleDescription(), "0 operations");
}

TEST_F(ManageRecipesSheetTest, RenamesByThePencilAndTheTick) {
    add("first");
    add("second");
    open();
    click(row(1)->findChild<ToolButton *>("rename"));
    ASSERT_NE(field(), nullptr);
    EXPECT_EQ(field()->text(), "second");
    EXPECT_EQ(field()->selectedText(), "second");
    EXPECT_EQ(field()->placeholderText(), "Recipe name");
    EXPECT_TRUE(field()->hasFocus());
    type("changed");
    click(find("confirmRename"));
    EXPECT_EQ(names(), (QStringList{"first", "changed"}));
    EXPECT_FALSE(row(1)->isEditing());
    EXPECT_EQ(labelsIn(*row(1)).first(), "changed");
    EXPECT_TRUE(row(1)->hasFocus());
}

TEST_F(ManageRecipesSheetTest, RenamesByF2AndReturnAndStaysOpen) {
    add("first");
    open();
    ASSERT_TRUE(row(0)->hasFocus());
    press(Qt::Key_F2);
    type("new");
    press(Qt::Key_Return);
    EXPECT_EQ(names(), QStringList{"new"});
    EXPECT_TRUE(isOpen());
    press(Qt::Key_F2);
    press(Qt::Key_Return);
    EXPECT_EQ(names(), QStringList{"new"}) << "the same name again";
    EXPECT_FALSE(row(0)->isEditing());
}

TEST_F(ManageRecipesSheetTest, CancelAndEscapeLeaveRenamingWithoutChange) {
    add("first");
    open();
    press(Qt::Key_F2);
    type("other");
    click(find("cancelRename"));
    EXPECT_EQ(names(), QStringList{"first"});
    EXPECT_FALSE(row(0)->isEditing());
    press(Qt::Key_F2);
    EXPECT_EQ(field()->text(), "first");
    type("other");
    press(Qt::Key_Escape);
    EXPECT_EQ(names(), QStringList{"first"});
    EXPECT_TRUE(isOpen());
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_F(ManageRecipesSheetTest, RenamesOneRecipeAtATime) {
    add("first");
    add("second");
    open();
    click(row(0)->findChild<ToolButton *>("rename"));
    type("half");
    click(row(1)->findChild<ToolButton *>("rename"));
    EXPECT_FALSE(row(0)->isEditing());
    EXPECT_TRUE(row(1)->isEditing());
    EXPECT_EQ(field()->text(), "second");
    EXPECT_EQ(names(), (QStringList{"first", "second"}));
}

TEST_F(ManageRecipesSheetTest, DoesNotRenameToNothing) {
    add("first");
    open();
    press(Qt::Key_F2);
    press(Qt::Key_Backspace);
    EXPECT_FALSE(find("confirmRename")->isEnabled());
    press(Qt::Key_Return);
    EXPECT_TRUE(row(0)->isEditing());
    EXPECT_EQ(names(), QStringList{"first"});
}

TEST_F(ManageRecipesSheetTest, DeletesByTheTrashAndByTheKeyAndKeepsTheFocus) {
    add("a");
    add("b");
    add("c");
    open();
    click(row(1)->findChild<ToolButton *>("delete"));
    EXPECT_EQ(names(), (QStringList{"a", "c"}));
    ASSERT_EQ(rows().size(), 2);
    EXPECT_TRUE(row(1)->hasFocus());
    press(Qt::Key_Delete);
    EXPECT_EQ(names(), QStringList{"a"});
    EXPECT_TRUE(row(0)->hasFocus());
    press(Qt::Key_Delete);
    EXPECT_TRUE(names().isEmpty());
    EXPECT_TRUE(labelsIn(window).contains("No user recipes"));
    EXPECT_EQ(focusName(), "done");
}

TEST_F(ManageRecipesSheetTest, ADoubleClickOnTheTrashDeletesOneRecipe) {
    add("a");
    add("b");
    add("c");
    open();
    click(row(0)->findChild<ToolButton *>("delete"));
    ASSERT_EQ(names(), (QStringList{"b", "c"}));
    auto *next = row(0)->findChild<ToolButton *>("delete");
    finishDoubleClick(next);
    EXPECT_EQ(names(), (QStringList{"b", "c"}));
    click(next);
    EXPECT_EQ(names(), QStringList{"c"});
}

TEST_F(ManageRecipesSheetTest, ADoubleClickOnThePencilBeginsToRenameAndOneOnCancelEndsIt) {
    add("a");
    open();
    click(row(0)->findChild<ToolButton *>("rename"));
    finishDoubleClick(find("cancelRename"));
    ASSERT_NE(field(), nullptr);
    click(find("cancelRename"));
    finishDoubleClick(row(0)->findChild<ToolButton *>("rename"));
    EXPECT_EQ(field(), nullptr);
}

TEST_F(ManageRecipesSheetTest, DeletingAndRenamingByMouseShowNoRing) {
    add("a");
    add("b");
    add("c");
    open();
    press(Qt::Key_Down);
    const auto *ring = find<FocusRingFrame>("focusRing");
    ASSERT_NE(ring, nullptr);
    EXPECT_EQ(ring->followed(), row(1));
    click(row(1)->findChild<ToolButton *>("delete"));
    EXPECT_TRUE(row(1)->hasFocus());
    EXPECT_EQ(ring->followed(), nullptr);
    click(row(1)->findChild<ToolButton *>("rename"));
    click(find("cancelRename"));
    EXPECT_TRUE(row(1)->hasFocus());
    EXPECT_EQ(ring->followed(), nullptr);
    press(Qt::Key_Delete);
    EXPECT_EQ(ring->followed(), row(0)) << "by the keyboard it does";
}

TEST_F(ManageRecipesSheetTest, TheArrowsMoveThroughTheListAndTabThroughOneRow) {
    add("a");
    add("b");
    add("c");
    open();
    press(Qt::Key_Down);
    EXPECT_TRUE(row(1)->hasFocus());
    press(Qt::Key_End);
    EXPECT_TRUE(row(2)->hasFocus());
    press(Qt::Key_Down);
    EXPECT_TRUE(row(2)->hasFocus());
    press(Qt::Key_Home);
    EXPECT_TRUE(row(0)->hasFocus());
    press(Qt::Key_Tab);
    EXPECT_EQ(focusName(), "rename");
    press(Qt::Key_Tab);
    EXPECT_EQ(focusName(), "delete");
    EXPECT_TRUE(row(0)->isAncestorOf(QApplication::focusWidget()));
    for (const char *name : {"import", "export", "done"}) {
        press(Qt::Key_Tab);
        EXPECT_EQ(focusName(), name);
    }
    press(Qt::Key_Tab);
    EXPECT_TRUE(row(0)->hasFocus());
}

TEST_F(ManageRecipesSheetTest, TheArrowsLeadFromTheButtonsOfARowToTheRowsAround) {
    add("a");
    add("b");
    add("c");
    open();
    for (const int tabs : {1, 2}) {
        press(Qt::Key_Home);
        press(Qt::Key_Down);
        for (int tab = 0; tab < tabs; ++tab) {
            press(Qt::Key_Tab);
        }
        press(Qt::Key_Down);
        EXPECT_TRUE(row(2)->hasFocus()) << focusName().toStdString();
        press(Qt::Key_Up);
        for (int tab = 0; tab < tabs; ++tab) {
            press(Qt::Key_Tab);
        }
        press(Qt::Key_Up);
        EXPECT_TRUE(row(0)->hasFocus()) << focusName().toStdString();
    }
}

TEST_F(ManageRecipesSheetTest, ClosesByDoneAndReturn) {
    add("a");
    open();
    click(find("done"));
    EXPECT_FALSE(isOpen());
    open();
    press(Qt::Key_Return);
    EXPECT_FALSE(isOpen());
}

TEST_F(ManageRecipesSheetTest, FollowsTheManager) {
    open();
    add("a");
    settle();
    EXPECT_EQ(rows().size(), 1);
    manager.deleteRecipe(manager.recipes().back());
    settle();
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(ManageRecipesSheetTest, TheRowsOfTheOtherRecipesStayWhenOneChanges) {
    for (const char *name : {"a", "b", "c", "d"}) {
        add(name);
    }
    open();
    const QList<RecipeRow *> before = rows();
    click(row(1)->findChild<ToolButton *>("rename"));
    type("new");
    press(Qt::Key_Return);
    settle();
    EXPECT_EQ(labelsIn(*row(1)).first(), "new");
    EXPECT_LT(row(0)->y(), row(1)->y());
    EXPECT_LT(row(1)->y(), row(2)->y());
    EXPECT_TRUE(row(1)->hasFocus());
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(find<QWidget>("recipes"));
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), "new");

    click(row(2)->findChild<ToolButton *>("delete"));
    settle();
    manager.importRecipes({Recipe{.name = "e"}});
    settle();
    ASSERT_EQ(rows().size(), 4);
    EXPECT_EQ(row(0), before[0]);
    EXPECT_EQ(row(2), before[3]);
    EXPECT_EQ(labelsIn(*row(3)).first(), "e");
    press(Qt::Key_Home);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_TRUE(row(2)->hasFocus());
    press(Qt::Key_Delete);
    EXPECT_EQ(names(), (QStringList{"a", "new", "e"}));
}

TEST_F(ManageRecipesSheetTest, ARowKnowsTheNewNameThoughItLooksLikeTheOld) {
    add(" ");
    open();
    manager.renameRecipe(manager.recipes().back(), "   ");
    settle();
    press(Qt::Key_F2);
    EXPECT_EQ(field()->text(), "   ");
}

TEST_F(ManageRecipesSheetTest, NamesOfAnyKindKeepTheirRows) {
    const std::vector<std::string> wild = {std::string(10'000, 'x'), "line\nbreak\r\nmore", "\u05E9\u05DC\u05D5\u05DD",
                                           "\U0001F469\u200D\U0001F467 <b>bold</b> & more", " "};
    for (const std::string &name : wild) {
        add(name);
    }
    const ManageRecipesSheet *sheet = open();
    EXPECT_EQ(sheet->width(), 400);
    ASSERT_EQ(rows().size(), 5);
    for (RecipeRow *each : rows()) {
        EXPECT_EQ(each->height(), 56);
        const QWidget *trash = each->findChild<ToolButton *>("delete");
        EXPECT_TRUE(each->rect().contains(trash->geometry()));
        EXPECT_FALSE(each->visibleRegion().isEmpty());
        for (const auto *label : each->findChildren<QLabel *>()) {
            EXPECT_LE(label->geometry().right(), trash->geometry().left());
        }
    }
    EXPECT_LT(row(0)->findChild<QLabel *>()->toolTip().size(), 1000);
    EXPECT_TRUE(row(0)->findChild<QLabel *>()->toolTip().contains(">xxx"));
}

TEST_F(ManageRecipesSheetTest, ARecipeWithoutANameIsCalledUntitledAsInTheMenus) {
    for (const char *name : {"", " \n"}) {
        add(name);
    }
    open();
    for (int index = 0; index < 2; ++index) {
        EXPECT_EQ(row(index)->findChild<QLabel *>()->text(), "Untitled");
        EXPECT_EQ(row(index)->accessibleName(), "Untitled");
    }
    press(Qt::Key_F2);
    EXPECT_EQ(field()->text(), "") << "that is no name to go on from";
}

TEST_F(ManageRecipesSheetTest, TheRowUnderThePointerStandsOut) {
    add("one");
    add("two");
    open();
    const auto fill = [this](int index) { return row(index)->grab().toImage().pixelColor(row(index)->width() / 2, 3); };
    QTest::mouseMove(row(0));
    settle();
    EXPECT_NE(fill(0), theme().pane);
    EXPECT_EQ(fill(1), theme().pane);
    QTest::mouseMove(row(1));
    settle();
    EXPECT_EQ(fill(0), theme().pane);
    EXPECT_NE(fill(1), theme().pane);
}

TEST_F(ManageRecipesSheetTest, WhatScrollsBeneathARestingPointerIsHovered) {
    for (int count = 0; count < 20; ++count) {
        add("Recipe " + std::to_string(count));
    }
    open();
    QCursor::setPos(row(0)->mapToGlobal(QPoint(20, 20)));
    settle();
    ASSERT_TRUE(row(0)->underMouse());
    auto *area = window.findChild<Sheet *>()->findChild<QScrollArea *>();
    area->verticalScrollBar()->setValue(row(1)->y() - row(0)->y());
    EXPECT_FALSE(row(0)->underMouse());
    EXPECT_TRUE(row(1)->underMouse());
    QCursor::setPos(window.mapToGlobal(QPoint(5, 5)));
    settle();
    EXPECT_FALSE(row(1)->underMouse());
}

TEST_F(ManageRecipesSheetTest, ALongListScrollsToTheFocusedRow) {
    for (int count = 0; count < 40; ++count) {
        add("recipe " + std::to_string(count));
    }
    const ManageRecipesSheet *sheet = open();
    EXPECT_EQ(sheet->height(), 480);
    press(Qt::Key_End);
    EXPECT_TRUE(row(39)->hasFocus());
    EXPECT_EQ(row(39)->visibleRegion().boundingRect(), row(39)->rect());
    press(Qt::Key_Home);
    EXPECT_EQ(row(0)->visibleRegion().boundingRect(), row(0)->rect());
}

TEST_F(ManageRecipesSheetTest, APageTakesTheFocusAlong) {
    for (int count = 0; count < 40; ++count) {
        add("recipe " + std::to_string(count));
    }
    open();
    int current = 0;
    const auto focused = [&] {
        for (int index = 0; index < 40; ++index) {
            if (row(index)->hasFocus()) {
                return index;
            }
        }
        return -1;
    };
    press(Qt::Key_PageDown);
    current = focused();
    EXPECT_GT(current, 2);
    EXPECT_EQ(row(current)->visibleRegion().boundingRect(), row(current)->rect());
    press(Qt::Key_PageDown);
    EXPECT_EQ(focused(), 2 * current);
    press(Qt::Key_PageUp);
    press(Qt::Key_PageUp);
    EXPECT_EQ(focused(), 0);
}

TEST_F(ManageRecipesSheetTest, AssistiveTechnologyThatOpensTheMenuOfExportIsNotKeptWaiting) {
    add("a");
    open();
    QAccessibleActionInterface *actions = QAccessible::queryAccessibleInterface(find("export"))->actionInterface();
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(find("export")->hasFocus());
    test::expectMenuOpensWithoutKeepingTheAskerWaiting(*find("export"), *find<QMenu>("exportMenu"));
}

TEST_F(ManageRecipesSheetTest, IsAListForAssistiveTechnology) {
    add("a", 2);
    add("b");
    open();
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(find<QWidget>("recipes"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    ASSERT_EQ(list->childCount(), 2);
    QAccessibleInterface *first = list->child(0);
    EXPECT_EQ(first->role(), QAccessible::ListItem);
    EXPECT_EQ(first->text(QAccessible::Name), "a");
    EXPECT_EQ(first->text(QAccessible::Description), "2 operations");
    EXPECT_TRUE(first->state().selected);
    EXPECT_TRUE(first->state().focused);
    EXPECT_FALSE(list->child(1)->state().selected);
    press(Qt::Key_Down);
    EXPECT_TRUE(list->child(1)->state().selected);
    EXPECT_FALSE(list->child(0)->state().selected);
    EXPECT_EQ(row(0)->findChild<ToolButton *>("rename")->accessibleName(), "Rename a");
    EXPECT_EQ(row(0)->findChild<ToolButton *>("delete")->accessibleName(), "Delete a");
}

} // namespace
} // namespace lexivore
