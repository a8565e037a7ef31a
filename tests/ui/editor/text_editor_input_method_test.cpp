// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/editor/text_editor_fixture.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QSignalSpy>

namespace lexivore {
namespace {

using TextEditorInputMethodTest = TextEditorTest;

TEST_F(TextEditorInputMethodTest, ShowsThePreeditWithoutTouchingTheText) {
    show("ab");
    keys("Right");
    const int caretX = pointOf(1).x();
    QInputMethodEvent composing(QStringLiteral("にほ"), {{QInputMethodEvent::Cursor, 2, 1, {}}});
    QApplication::sendEvent(&editor, &composing);
    EXPECT_EQ(text(), "ab");
    EXPECT_GT(editor.inputMethodQuery(Qt::ImCursorRectangle).toRect().left(), caretX);
    QInputMethodEvent committing;
    committing.setCommitString(QStringLiteral("日本"));
    QApplication::sendEvent(&editor, &committing);
    EXPECT_EQ(text(), "a日本b");
    QInputMethodEvent replacing;
    replacing.setCommitString(QStringLiteral("x"), -2, 2);
    QApplication::sendEvent(&editor, &replacing);
    EXPECT_EQ(text(), "axb");
    EXPECT_EQ(followed, text());
    EXPECT_EQ(editor.inputMethodQuery(Qt::ImSurroundingText).toString(), QStringLiteral("axb"));
    EXPECT_EQ(editor.inputMethodQuery(Qt::ImCursorPosition).toInt(), 2);
}

TEST_F(TextEditorInputMethodTest, WhatIsCommittedReplacesTheSelectionAsOneEdit) {
    show("one two");
    document().select(4, 7);
    const QSignalSpy edits(&editor, &TextEditor::edited);
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("é"));
    QApplication::sendEvent(&editor, &commit);
    EXPECT_EQ(text(), "one é");
    EXPECT_EQ(followed, text());
    EXPECT_EQ(edits.size(), 1);
}

TEST_F(TextEditorInputMethodTest, ComposingTakesTheSelectionAwayFirst) {
    show("one two");
    document().select(0, 4);
    QInputMethodEvent compose(QStringLiteral("に"), {});
    QApplication::sendEvent(&editor, &compose);
    EXPECT_EQ(text(), "two");
    QInputMethodEvent cancel;
    QApplication::sendEvent(&editor, &cancel);
    EXPECT_EQ(text(), "two");
    EXPECT_EQ(followed, text());
}

TEST_F(TextEditorInputMethodTest, TellsOnlyTheTextAroundTheCaretHoweverLongTheLine) {
    show(std::string(300000, 'a') + "é" + std::string(300000, 'b'));
    document().setCaret(300002);
    const QString around = editor.inputMethodQuery(Qt::ImSurroundingText).toString();
    const int caret = editor.inputMethodQuery(Qt::ImCursorPosition).toInt();
    EXPECT_LT(around.size(), 5000);
    EXPECT_EQ(around.mid(caret - 2, 4), QStringLiteral("aébb"));
    EXPECT_EQ(editor.inputMethodQuery(Qt::ImTextBeforeCursor).toString() +
                  editor.inputMethodQuery(Qt::ImTextAfterCursor).toString(),
              around);
    EXPECT_EQ(editor.inputMethodQuery(Qt::ImAbsolutePosition).toInt(), 300001);
}

TEST_F(TextEditorInputMethodTest, CanTakeBackAPartOfACharacter) {
    show("ae\u0301\u0323b");
    document().setCaret(6);
    QInputMethodEvent replacing;
    replacing.setCommitString(QStringLiteral("\u0302"), -1, 1);
    QApplication::sendEvent(&editor, &replacing);
    EXPECT_EQ(text(), "ae\u0301\u0302b");
    QInputMethodEvent inFront;
    inFront.setCommitString(QStringLiteral("o"), -3, 1);
    QApplication::sendEvent(&editor, &inFront);
    EXPECT_EQ(text(), "ao\u0301\u0302b");
    EXPECT_EQ(followed, text());
}

TEST_F(TextEditorInputMethodTest, TakesBackNoMoreThanStandsInFrontOfTheCaret) {
    show("abc");
    document().setCaret(1);
    QInputMethodEvent replacing;
    replacing.setCommitString(QStringLiteral("x"), -3, 3);
    QApplication::sendEvent(&editor, &replacing);
    EXPECT_EQ(text(), "xbc");
}

TEST_F(TextEditorInputMethodTest, SelectsInTheTextThatItWasTold) {
    show(std::string(5000, 'a') + "one two");
    keys("Ctrl+End");
    const int caret = editor.inputMethodQuery(Qt::ImCursorPosition).toInt();
    QInputMethodEvent select({}, {{QInputMethodEvent::Selection, caret - 3, 3, {}}});
    QApplication::sendEvent(&editor, &select);
    EXPECT_EQ(std::string(Text(document().selectedText()).view()), "two");
}

TEST_F(TextEditorInputMethodTest, TheCandidateWindowCanFollowTheCaretWithinThePreedit) {
    show("ab\ncd");
    const auto left = [this] { return editor.inputMethodQuery(Qt::ImCursorRectangle).toRect().left(); };
    int previous = left();
    for (int cursor = 1; cursor <= 3; ++cursor) {
        QInputMethodEvent compose(QStringLiteral("日本語"), {{QInputMethodEvent::Cursor, cursor, 1, {}}});
        QApplication::sendEvent(&editor, &compose);
        EXPECT_GT(left(), previous);
        previous = left();
    }
    EXPECT_EQ(text(), "ab\ncd");
}

TEST_F(TextEditorInputMethodTest, AnEditFromElsewhereEndsTheComposition) {
    show("ab");
    keys("End");
    QInputMethodEvent compose(QStringLiteral("日本"), {});
    QApplication::sendEvent(&editor, &compose);
    document().replace(0, 2, "");
    editor.viewport()->repaint();
    EXPECT_EQ(text(), "");
    show("something else\nand more");
    editor.viewport()->repaint();
    EXPECT_EQ(editor.inputMethodQuery(Qt::ImCursorPosition).toInt(), 0);
}

} // namespace
} // namespace lexivore
