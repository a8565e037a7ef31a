// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/window_fixture.h"
#include "ui/editor/text_editor.h"
#include "ui/window/status_item.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace lexivore {
namespace {

class Undoing : public WindowTest {
protected:
    void undo() { press(Qt::Key_Z, Qt::ControlModifier); }
    void redo() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    [[nodiscard]] TextEditor &editor() { return *find<TextEditor>("editor"); }
    [[nodiscard]] std::size_t caret() { return editor().document().caret(); }
    void commit(const QString &committed) {
        QInputMethodEvent event;
        event.setCommitString(committed);
        QApplication::sendEvent(&editor(), &event);
    }
    void chooseFromEditorMenu(const QString &title) {
        QContextMenuEvent open(QContextMenuEvent::Keyboard, QPoint(10, 10), editor().mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(editor().viewport(), &open);
        auto *const menu = editor().findChild<QMenu *>("editorContextMenu");
        ASSERT_NE(menu, nullptr);
        for (QAction *action : menu->actions()) {
            if (action->text().remove(u'&') == title) {
                action->trigger();
            }
        }
        delete menu;
    }
};

TEST_F(Undoing, TheMenuTakesBackATransformation) {
    setText("hello");
    click("transformation.uppercase");
    choose("UndoTransformation");
    EXPECT_EQ(text(), "hello");
    choose("RedoTransformation");
    EXPECT_EQ(text(), "HELLO");
}

TEST_F(Undoing, WithNothingToUndoNothingHappens) {
    choose("UndoTransformation");
    choose("RedoTransformation");
    EXPECT_EQ(text(), "");
}

TEST_F(Undoing, InTheEditorTypingIsTakenBackBeforeTheTransformation) {
    setText("hello");
    click("transformation.uppercase");
    focusEditor();
    type("ab");
    EXPECT_EQ(text(), "abHELLO");
    undo();
    EXPECT_EQ(text(), "HELLO");
    undo();
    EXPECT_EQ(text(), "hello");
    EXPECT_TRUE(manager().appliedOperations().empty());
    redo();
    redo();
    EXPECT_EQ(text(), "abHELLO");
    EXPECT_EQ(manager().appliedOperations().size(), 1U);
}

TEST_F(Undoing, OpenedPastedAndClearedTextsComeBack) {
    setText("first");
    QGuiApplication::clipboard()->setText("second");
    click("paste");
    EXPECT_EQ(text(), "second");
    click("clearText");
    click("confirm");
    ASSERT_TRUE(QTest::qWaitFor([this] { return text().empty(); }));
    choose("UndoTransformation");
    EXPECT_EQ(text(), "second");
    choose("UndoTransformation");
    EXPECT_EQ(text(), "first");
}

TEST_F(Undoing, BehindAClearedTextNoUndoIsSpentOnStepsThatLeftTheTextAsItWas) {
    setText("CAPITALS");
    click("transformation.uppercase");
    ASSERT_EQ(manager().history().undoStack().size(), 1U);
    click("clearText");
    click("confirm");
    ASSERT_TRUE(QTest::qWaitFor([this] { return text().empty(); }));
    choose("UndoTransformation");
    EXPECT_EQ(text(), "CAPITALS");
    choose("UndoTransformation");
    EXPECT_EQ(text(), "");
    choose("RedoTransformation");
    EXPECT_EQ(text(), "CAPITALS");
    choose("RedoTransformation");
    EXPECT_EQ(text(), "");
}

TEST_F(Undoing, HandEditsThatSingleModeDropsComeBack) {
    setText("base");
    click("transformation.uppercase");
    focusEditor();
    type("x");
    ASSERT_EQ(text(), "xBASE");
    center().post(notification::applyTransformation, QString("reverse"));
    ASSERT_EQ(text(), "esab");
    focusEditor();
    undo();
    EXPECT_EQ(text(), "base");
    undo();
    EXPECT_EQ(text(), "xBASE");
}

TEST_F(Undoing, AFailedTransformationTakesOneUndoAndChangesNothing) {
    setText("not base64!");
    center().post(notification::applyTransformation, QString("base64-decode"));
    ASSERT_TRUE(isShown("confirm"));
    click("confirm");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("confirm"); }));
    focusEditor();
    type("x");
    undo();
    EXPECT_EQ(text(), "not base64!");
    undo();
    EXPECT_EQ(text(), "not base64!");
    undo();
    EXPECT_EQ(text(), "");
}

TEST_F(Undoing, ARecipeIsTakenBackStepByStep) {
    setText(" b \n\n a ");
    const Recipe recipe = *std::find_if(manager().recipes().begin(), manager().recipes().end(),
                                        [](const Recipe &r) { return r.name == "Extract Unique Lines"; });
    center().post(notification::applyRecipe, recipe.id.toString(QUuid::WithoutBraces).toUpper());
    ASSERT_EQ(text(), "a\nb");
    focusEditor();
    undo();
    EXPECT_EQ(text(), "b\na");
    undo();
    undo();
    EXPECT_EQ(text(), "b\n\na");
    undo();
    EXPECT_EQ(text(), " b \n\n a ");
    for (int i = 0; i < 4; ++i) {
        redo();
    }
    EXPECT_EQ(text(), "a\nb");
}

/// There are more texts between than the manager holds.
TEST_F(Undoing, ARecipeOnALargeTextIsTakenBackStepByStepToo) {
    constexpr std::size_t lines = 240'000;
    std::string base;
    for (std::size_t line = 0; line < lines; ++line) {
        base +=
            "The quick brown fox jumps over the lazy dog. The five boxing wizards jump quickly. Sphinx of quartz.\n";
    }
    Recipe recipe;
    while (recipe.operations.size() * base.size() < TextHistory::usualBudget + 3 * base.size()) {
        recipe.operations.emplace_back().transformation = recipe.operations.size() % 2 == 0 ? "uppercase" : "lowercase";
    }
    manager().importRecipes({recipe});
    setText(base);
    center().post(notification::applyRecipe,
                  manager().userRecipes().front().id.toString(QUuid::WithoutBraces).toUpper());
    const std::size_t steps = recipe.operations.size();
    ASSERT_EQ(manager().appliedOperations().size(), steps);
    ASSERT_TRUE(std::ranges::any_of(manager().history().undoStack(),
                                    [](const HistoryEntry &entry) { return entry.state.isTextForgotten; }));
    focusEditor();
    std::vector<Text> shown{manager().currentText()};
    for (std::size_t left = steps; left > 0; --left) {
        undo();
        ASSERT_EQ(manager().appliedOperations().size(), left - 1);
        shown.push_back(manager().currentText());
    }
    EXPECT_TRUE(text() == base);
    for (std::size_t done = 1; done <= steps; ++done) {
        redo();
        ASSERT_EQ(manager().appliedOperations().size(), done);
        ASSERT_TRUE(manager().currentText() == shown[steps - done]);
    }
}

TEST_F(Undoing, ATextThatTheManagerCannotRestoreStaysReachable) {
    setText("t0");
    click("transformation.uppercase");
    choose("UndoTransformation");
    setText("t1");
    click("transformation.uppercase");
    ASSERT_EQ(text(), "T1");
    focusEditor();
    undo();
    EXPECT_EQ(text(), "t1");
    undo();
    EXPECT_EQ(text(), "t0");
}

TEST_F(Undoing, WhatCameAfterAStepThatIsTakenBackToAnotherTextComesBackToo) {
    useStackMode();
    setText("a");
    click("transformation.uppercase");
    manager().removeOperation(0);
    focusEditor();
    type("b");
    ASSERT_EQ(text(), "ba");
    click("transformation.uppercase");
    focusEditor();
    type("c");
    const std::string last = text();
    std::vector<std::string> seen;
    for (int i = 0; i < 10; ++i) {
        undo();
        seen.push_back(text());
    }
    EXPECT_EQ(seen[0], "BA");
    EXPECT_EQ(seen[1], "ba");
    EXPECT_EQ(seen[2], "a");
    EXPECT_EQ(seen[3], "A");
    EXPECT_EQ(seen[4], "ba") << "the base text by now";
    EXPECT_EQ(seen[5], "a") << "what stood there";
    EXPECT_EQ(seen[6], "");
    for (int i = 0; i < 10; ++i) {
        redo();
    }
    EXPECT_EQ(text(), last);
    EXPECT_EQ(manager().appliedOperations().size(), 1U);
}

TEST_F(Undoing, RedoBringsBackWhatUndoTookBackWhereverTheKeyboardIs) {
    setText("hello");
    focusEditor();
    type("ab");
    click("transformation.uppercase");
    ASSERT_EQ(text(), "ABHELLO");
    find("search")->setFocus();
    choose("UndoTransformation");
    EXPECT_EQ(text(), "abhello");
    choose("UndoTransformation"); // no step is left, so it is the typing
    EXPECT_EQ(text(), "hello");
    choose("RedoTransformation");
    EXPECT_EQ(text(), "abhello");
    choose("RedoTransformation");
    EXPECT_EQ(text(), "ABHELLO");
}

TEST_F(Undoing, RedoLeavesOutNoEditBetweenTwoStepsWhereverTheKeyboardIs) {
    useStackMode();
    setText("a");
    click("transformation.uppercase");
    focusEditor();
    type("b");
    ASSERT_EQ(text(), "bA");
    click("transformation.lowercase");
    focusEditor();
    undo();
    undo();
    ASSERT_EQ(text(), "A");
    find("operation.0")->setFocus();
    choose("UndoTransformation");
    ASSERT_EQ(text(), "a");
    for (const char *later : {"A", "bA", "ba", "ba"}) {
        choose("RedoTransformation");
        EXPECT_EQ(text(), later);
    }
}

TEST_F(Undoing, OneUndoTooManyChangesNothingForRedo) {
    setText("hello");
    click("transformation.uppercase");
    find("search")->setFocus();
    for (const char *earlier : {"hello", "", ""}) {
        choose("UndoTransformation");
        EXPECT_EQ(text(), earlier);
    }
    for (const char *later : {"hello", "HELLO"}) {
        choose("RedoTransformation");
        EXPECT_EQ(text(), later);
    }
}

TEST_F(Undoing, TheCaretGoesWhereTheEditWas) {
    setText("one\ntwo\nthree");
    focusEditor();
    press(Qt::Key_End, Qt::ControlModifier);
    type("x");
    press(Qt::Key_Home, Qt::ControlModifier);
    undo();
    EXPECT_EQ(find<StatusItem>("cursorPosition")->text(), "Ln 3, Col 6");
    press(Qt::Key_Home, Qt::ControlModifier);
    redo();
    EXPECT_EQ(find<StatusItem>("cursorPosition")->text(), "Ln 3, Col 7");
}

TEST_F(Undoing, AFieldKeepsTheKeysOnlyAsLongAsItHasTypingToTakeBack) {
    setText("hello");
    choose("SearchTransformations");
    type("uppercase");
    press(Qt::Key_Return);
    ASSERT_EQ(text(), "HELLO");
    undo();
    EXPECT_EQ(find<QLineEdit>("search")->text(), "");
    EXPECT_EQ(text(), "HELLO");
    undo();
    EXPECT_EQ(text(), "hello");
    redo();
    EXPECT_EQ(find<QLineEdit>("search")->text(), "uppercase");
    redo();
    EXPECT_EQ(text(), "HELLO");
}

TEST_F(Undoing, ARunOfTypingOrDeletingIsTakenBackAtOnceAndTheCaretGoesThere) {
    focusEditor();
    type("one two three");
    press(Qt::Key_Backspace);
    press(Qt::Key_Backspace);
    press(Qt::Key_Home);
    press(Qt::Key_Delete);
    press(Qt::Key_Delete);
    ASSERT_EQ(text(), "e two thr");
    const std::pair<std::string, std::size_t> earlier[] = {{"one two thr", 2}, {"one two three", 13}, {"", 0}, {"", 0}};
    for (const auto &[expected, place] : earlier) {
        undo();
        EXPECT_EQ(text(), expected);
        EXPECT_EQ(caret(), place) << expected;
    }
    const std::pair<std::string, std::size_t> later[] = {
        {"one two three", 13}, {"one two thr", 11}, {"e two thr", 0}, {"e two thr", 0}};
    for (const auto &[expected, place] : later) {
        redo();
        EXPECT_EQ(text(), expected);
        EXPECT_EQ(caret(), place) << expected;
    }
    EXPECT_EQ(editor().text(), manager().currentText());
}

TEST_F(Undoing, TypingElsewhereOrAfterAnUndoOrRedoBeginsAnew) {
    focusEditor();
    type("ab");
    press(Qt::Key_Home);
    type("c");
    undo();
    EXPECT_EQ(text(), "ab");
    type("d");
    ASSERT_EQ(text(), "dab");
    redo(); // typing forgot it
    EXPECT_EQ(text(), "dab");
    undo();
    EXPECT_EQ(text(), "ab");
    undo();
    EXPECT_EQ(text(), "");
    redo();
    type("e");
    ASSERT_EQ(text(), "abe");
    undo();
    EXPECT_EQ(text(), "ab");
}

TEST_F(Undoing, WhatIsCutPastedOverwrittenOrCommittedIsTakenBackOnItsOwn) {
    setText("one two");
    focusEditor();
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    ASSERT_EQ(text(), "two");
    type("x");
    QGuiApplication::clipboard()->setText("pasted");
    press(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(text(), "xpastedtwo");
    press(Qt::Key_Insert);
    type("2");
    ASSERT_EQ(text(), "xpasted2wo");
    editor().document().select(1, 7);
    commit("pâté");
    ASSERT_EQ(text(), "xpâté2wo");
    press(Qt::Key_Backspace, Qt::ControlModifier);
    ASSERT_EQ(text(), "2wo");

    const std::string texts[] = {"xpâté2wo", "xpasted2wo", "xpastedtwo", "xtwo", "two", "one two"};
    for (const std::string &earlier : texts) {
        undo();
        EXPECT_EQ(text(), earlier);
    }
    for (int i = 0; i < 6; ++i) {
        redo();
    }
    EXPECT_EQ(text(), "2wo");
}

TEST_F(Undoing, WhatWasDeletedRightAfterItCameIsBroughtBack) {
    focusEditor();
    type("a");
    press(Qt::Key_Backspace);
    ASSERT_EQ(text(), "");
    undo();
    EXPECT_EQ(text(), "a");
    redo();
    EXPECT_EQ(text(), "");

    setText("pasted");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    ASSERT_EQ(text(), "");
    undo();
    EXPECT_EQ(text(), "pasted");
}

TEST_F(Undoing, TheEditorsOwnMenuTakesBackTypingAndTransformations) {
    setText("hello");
    click("transformation.uppercase");
    focusEditor();
    type("ab");
    chooseFromEditorMenu("Undo");
    EXPECT_EQ(text(), "HELLO");
    chooseFromEditorMenu("Undo");
    EXPECT_EQ(text(), "hello");
    chooseFromEditorMenu("Redo");
    chooseFromEditorMenu("Redo");
    EXPECT_EQ(text(), "abHELLO");
}

} // namespace
} // namespace lexivore
