// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/editor/text_editor_fixture.h"

#include <QApplication>
#include <QInputMethodEvent>

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

} // namespace
} // namespace lexivore
