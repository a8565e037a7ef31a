// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/operations_fixture.h"
#include "ui/controls/symbol.h"
#include "ui/editor/text_editor.h"
#include "ui/theme/theme.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolTip>

namespace lexivore {
namespace {

using Operations = OperationsTest;

TEST_F(Operations, EachHasARowInStackOrder) {
    EXPECT_EQ(row(0)->text(), "UPPERCASE");
    EXPECT_EQ(row(1)->text(), "Reverse Text");
    EXPECT_EQ(row(2)->text(), "Sort Words Alphabetically");
    EXPECT_FALSE(isShown("operationsEmptyState"));
}

TEST_F(Operations, TheRemoveButtonRemovesAndTheLastOneShowsTheEmptyState) {
    for (int left = 3; left > 0; --left) {
        QWidget *remove = row(0)->findChild<QWidget *>("remove");
        clickAt(remove, remove->rect().center());
        EXPECT_EQ(static_cast<int>(manager().appliedOperations().size()), left - 1);
    }
    EXPECT_TRUE(isShown("operationsEmptyState"));
    EXPECT_EQ(text(), "b a");
}

TEST_F(Operations, SpaceAndReturnToggleDeleteRemovesAndAltArrowsMove) {
    row(1)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Return);
    EXPECT_EQ(stack(), "uppercase reverse- sort-words ");
    press(Qt::Key_Enter);
    EXPECT_EQ(stack(), "uppercase reverse sort-words ");
    press(Qt::Key_Space);
    EXPECT_EQ(stack(), "uppercase reverse- sort-words ");
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(stack(), "reverse- uppercase sort-words ");
    EXPECT_TRUE(row(0)->hasFocus());
    press(Qt::Key_Down, Qt::AltModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(stack(), "uppercase sort-words reverse- ");
    EXPECT_TRUE(row(2)->hasFocus());
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(stack(), "uppercase sort-words reverse- ") << "not with another key";
    press(Qt::Key_Delete);
    EXPECT_EQ(stack(), "uppercase sort-words ");
    EXPECT_TRUE(row(1)->hasFocus());
}

TEST_F(Operations, ARemovedRowPassesTheKeyboardToTheOneThatTakesItsPlace) {
    row(0)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Delete);
    ASSERT_EQ(stack(), "reverse sort-words ");
    EXPECT_TRUE(row(0)->hasFocus());
}

TEST_F(Operations, RowsThatGoLeaveTheKeyboardInThePanel) {
    row(2)->setFocus(Qt::TabFocusReason);
    center().post(notification::undoTransformation);
    ASSERT_EQ(stack(), "uppercase reverse ");
    EXPECT_TRUE(row(1)->hasFocus());
    press(Qt::Key_Delete);
    press(Qt::Key_Delete);
    ASSERT_EQ(stack(), "");
    EXPECT_TRUE(find("pause")->hasFocus());
    center().post(notification::undoTransformation);
    center().post(notification::undoTransformation);
    row(1)->setFocus(Qt::TabFocusReason);
    manager().clearOperations();
    EXPECT_TRUE(find("pause")->hasFocus());
}

TEST_F(Operations, HidingThePanelPutsItsKeyboardInTheEditor) {
    for (const char *name : {"operation.1", "pause"}) {
        find(name)->setFocus(Qt::TabFocusReason);
        choose("ToggleOperations");
        EXPECT_TRUE(find("editor")->hasFocus()) << name;
        choose("ToggleOperations");
    }
    find("search")->setFocus(Qt::TabFocusReason);
    choose("ToggleOperations");
    EXPECT_TRUE(find("search")->hasFocus());
}

TEST_F(Operations, TheContextMenuTogglesAndRemoves) {
    const auto openMenu = [this] {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {10, 10}, row(0)->mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(row(0), &event);
        return row(0)->findChild<QMenu *>("operationMenu");
    };
    QMenu *menu = openMenu();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions()[0]->text(), "Disable");
    EXPECT_EQ(menu->actions()[1]->text(), "Remove");
    menu->actions()[0]->trigger();
    delete menu;
    EXPECT_EQ(stack(), "uppercase- reverse sort-words ");
    menu = openMenu();
    EXPECT_EQ(menu->actions()[0]->text(), "Enable");
    menu->actions()[1]->trigger();
    delete menu;
    EXPECT_EQ(stack(), "reverse sort-words ");
}

TEST_F(Operations, TheContextMenuOpensWhereTheMouseIsAndByKeyInTheMiddleOfTheRow) {
    for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
        const QPoint place(50, 4);
        QContextMenuEvent event(reason, place, row(0)->mapToGlobal(place));
        QApplication::sendEvent(row(0), &event);
        auto *menu = row(0)->findChild<QMenu *>("operationMenu");
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(row(0)->mapFromGlobal(menu->pos()).y(),
                  reason == QContextMenuEvent::Mouse ? place.y() : row(0)->height() / 2);
        delete menu;
    }
}

TEST_F(Operations, AClickOnTheNumberDisablesAndEnablesAndOneBesideItDoesNot) {
    const QPoint number(38, row(0)->height() / 2);
    QHelpEvent help(QEvent::ToolTip, number, row(0)->mapToGlobal(number));
    QApplication::sendEvent(row(0), &help);
    EXPECT_TRUE(QToolTip::text().contains("Click to disable"));
    QToolTip::hideText();
    clickAt(row(0), {90, number.y()});
    clickAt(row(0), {12, number.y()});
    QTest::mouseClick(row(0), Qt::RightButton, {}, number);
    EXPECT_EQ(stack(), "uppercase reverse sort-words ");
    clickAt(row(0), number);
    EXPECT_EQ(stack(), "uppercase- reverse sort-words ");
    QTest::mouseDClick(row(0), Qt::LeftButton, {}, number);
    EXPECT_EQ(stack(), "uppercase- reverse sort-words ") << "on and off again";
    EXPECT_FALSE(isShown("parameterSheet"));
    clickAt(row(0), number);
    EXPECT_EQ(stack(), "uppercase reverse sort-words ");
    QTest::mousePress(row(0), Qt::LeftButton, {}, number);
    const QPoint beside = number + QPoint(QApplication::startDragDistance() - 1, 0);
    QMouseEvent trembling(QEvent::MouseMove, beside, row(0)->mapToGlobal(beside), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(row(0), &trembling);
    QTest::mouseRelease(row(0), Qt::LeftButton, {}, number);
    EXPECT_EQ(stack(), "uppercase- reverse sort-words ") << "no drag yet";
    clickAt(row(0), number);
    QTest::mousePress(row(0), Qt::LeftButton, {}, number);
    QTest::mouseRelease(row(0), Qt::LeftButton, {}, {90, number.y()});
    EXPECT_EQ(stack(), "uppercase reverse sort-words ") << "the user thought better of it";
    QTest::mousePress(row(0), Qt::LeftButton, {}, {90, number.y()});
    QTest::mouseRelease(row(0), Qt::LeftButton, {}, number);
    EXPECT_EQ(stack(), "uppercase reverse sort-words ") << "it began elsewhere";
}

TEST_F(Operations, AssistiveTechnologyTogglesByPressing) {
    QAccessibleActionInterface *actions = QAccessible::queryAccessibleInterface(row(1))->actionInterface();
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(stack(), "uppercase reverse- sort-words ");
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(stack(), "uppercase reverse sort-words ");
}

TEST_F(Operations, TheContextMenuMovesARowAndShowsTheKeys) {
    const auto choose = [this](int index, const QString &text, bool isPossible) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {10, 10}, row(index)->mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(row(index), &event);
        auto *menu = row(index)->findChild<QMenu *>("operationMenu");
        QStringList keys;
        for (QAction *action : menu->actions()) {
            keys << action->shortcut().toString();
            if (action->text() == text) {
                EXPECT_EQ(action->isEnabled(), isPossible) << qPrintable(text) << " " << index;
                action->trigger();
            }
        }
        EXPECT_EQ(keys, (QStringList{"Space", "Del", "", "Alt+Up", "Alt+Down"}));
        delete menu;
    };
    choose(0, "Move Up", false);
    choose(2, "Move Down", false);
    EXPECT_EQ(stack(), "uppercase reverse sort-words ");
    choose(0, "Move Down", true);
    EXPECT_EQ(stack(), "reverse uppercase sort-words ");
    choose(2, "Move Up", true);
    EXPECT_EQ(stack(), "reverse sort-words uppercase ");
}

TEST_F(Operations, PausingShowsTheBaseTextAndResumingRunsTheStackAgain) {
    const std::string result = text();
    click("pause");
    EXPECT_EQ(text(), "b a");
    EXPECT_EQ(find("pause")->toolTip(), "Operations paused (click to resume)");
    EXPECT_EQ(manager().appliedOperations().size(), 3U);
    click("pause");
    EXPECT_EQ(text(), result);
    EXPECT_EQ(find("pause")->toolTip(), "Operations active (click to pause)");
}

TEST_F(Operations, ChangesWhilePausedKeepTheBaseText) {
    click("pause");
    row(0)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    EXPECT_EQ(text(), "b a");
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(text(), "b a");
    press(Qt::Key_Delete);
    EXPECT_EQ(text(), "b a");
    click("pause");
    EXPECT_NE(text(), "b a");
}

TEST_F(Operations, ChangesWhilePausedAreTakenBackOneByOneFromTheEditorToo) {
    focusEditor();
    click("pause");
    clickAt(row(1), {38, 20});
    dragOver(0, 1);
    ASSERT_TRUE(drop(0, 1));
    clickAt(row(2)->findChild<QWidget *>("remove"), {5, 5});
    for (const char *before :
         {"reverse- uppercase sort-words ", "uppercase reverse- sort-words ", "uppercase reverse sort-words "}) {
        press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(stack(), before);
        EXPECT_EQ(text(), "b a");
    }
    for (const char *after :
         {"uppercase reverse- sort-words ", "reverse- uppercase sort-words ", "reverse- uppercase "}) {
        press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(stack(), after);
        EXPECT_EQ(text(), "b a");
    }
}

TEST_F(Operations, ChangesWhilePausedLeaveTheCaretWhereItIs) {
    focusEditor();
    click("pause");
    find<TextEditor>("editor")->document().select(1, 3);
    clickAt(row(1), {38, 20});
    EXPECT_EQ(find<TextEditor>("editor")->document().selectionStart(), 1U);
    EXPECT_EQ(find<TextEditor>("editor")->document().caret(), 3U);
}

TEST_F(Operations, WhatIsTypedWhilePausedOutlivesAMoveThatLeadsNowhere) {
    click("pause");
    setText("typed");
    row(2)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(text(), "typed");
    row(0)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(text(), "typed");
}

TEST_F(Operations, WhatIsTypedWhilePausedOutlivesParametersThatStayTheSame) {
    manager().clearAll();
    setText("a");
    center().post(notification::applyTransformation, QString("add-prefix"));
    click("apply");
    click("pause");
    setText("typed");
    row(0)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_F2);
    click("apply");
    EXPECT_EQ(text(), "typed");
}

TEST_F(Operations, PausingWithoutOperationsKeepsTheTypedText) {
    manager().clearAll();
    setText("typed");
    click("pause");
    EXPECT_EQ(text(), "typed");
    click("pause");
    EXPECT_EQ(text(), "typed");
}

TEST_F(Operations, ParametersAreEditedInPlace) {
    manager().clearAll();
    setText("a\nb");
    center().post(notification::applyTransformation, QString("add-prefix"));
    click("apply");
    ASSERT_EQ(text(), "> a\n> b");
    const QUuid id = manager().appliedOperations()[0].id;
    row(0)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_F2);
    auto *prefix = find<QLineEdit>("parameter.prefix");
    ASSERT_NE(prefix, nullptr);
    EXPECT_EQ(prefix->text(), "> ");
    prefix->setText("# ");
    click("apply");
    EXPECT_EQ(text(), "# a\n# b");
    EXPECT_EQ(manager().appliedOperations()[0].id, id);
    choose("UndoTransformation");
    EXPECT_EQ(text(), "> a\n> b");
}

TEST_F(Operations, ARowTellsWhyItsOperationFailed) {
    manager().clearAll();
    setText("aGk=");
    center().post(notification::applyTransformation, QString("base64-decode"));
    center().post(notification::applyTransformation, QString("reverse"));
    manager().moveOperation(1, 0);
    EXPECT_EQ(toolTipOf(row(1)), "Invalid input: Invalid Base64 string");
    EXPECT_TRUE(row(1)->accessibleDescription().contains("Invalid Base64 string"));
}

TEST_F(Operations, TheSwitchNamesTheMode) {
    const auto shows = [this](const char *symbol) {
        Symbol expected(symbol, find("modeIcon")->width(), &Theme::text2);
        return pictureOf(find("modeIcon")) == pictureOf(&expected);
    };
    EXPECT_TRUE(shows("square.stack"));
    EXPECT_EQ(find<QLabel>("modeName")->text(), "Multiple");
    EXPECT_EQ(find("modeSwitch")->toolTip(), "combine multiple transformations, as a stack");
    click("modeSwitch");
    EXPECT_TRUE(shows("1.square"));
    EXPECT_EQ(find<QLabel>("modeName")->text(), "Single");
    EXPECT_EQ(find("modeSwitch")->toolTip(), "only one transformation at a time");
}

TEST_F(Operations, EachPartOfTheModeTellsWhatItMeans) {
    for (const char *help : {"combine multiple transformations, as a stack", "only one transformation at a time"}) {
        QCoreApplication::processEvents(); // until the word has the place that it takes
        for (const char *part : {"modeIcon", "modeName", "modeSwitch"}) {
            EXPECT_EQ(find(part)->toolTip(), help) << part;
        }
        click("modeSwitch");
    }
}

TEST_F(Operations, ClearingAsksAndDoesNothingWithAnEmptyStack) {
    click("clearOperations");
    ASSERT_TRUE(isShown("cancel"));
    click("cancel");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("cancel"); }));
    EXPECT_EQ(manager().appliedOperations().size(), 3U);
    click("clearOperations");
    click("confirm");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("confirm"); }));
    EXPECT_TRUE(manager().appliedOperations().empty());
    EXPECT_EQ(text(), "b a");
    click("clearOperations");
    EXPECT_FALSE(isShown("confirm"));
}

} // namespace
} // namespace lexivore
