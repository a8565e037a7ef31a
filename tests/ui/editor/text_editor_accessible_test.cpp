// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_editor.h"

#include <QAccessible>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include <string>

namespace lexivore {
namespace {

class TextEditorAccessibleTest : public testing::Test {
protected:
    TextEditorAccessibleTest() {
        editor.resize(400, 300);
        editor.show();
        editor.setText(Text(std::string_view("👍 one two\r\nthree\n")));
        accessible = QAccessible::queryAccessibleInterface(&editor);
        text = accessible->textInterface();
    }

    [[nodiscard]] QString at(int offset, QAccessible::TextBoundaryType type) {
        return text->textAtOffset(offset, type, &start, &end);
    }

    TextEditor editor;
    QAccessibleInterface *accessible = nullptr;
    QAccessibleTextInterface *text = nullptr;
    int start = 0;
    int end = 0;
};

TEST_F(TextEditorAccessibleTest, IsAnEditableTextOfSeveralLines) {
    EXPECT_EQ(accessible->role(), QAccessible::EditableText);
    EXPECT_TRUE(accessible->state().multiLine);
    EXPECT_TRUE(accessible->state().editable);
    EXPECT_TRUE(accessible->state().selectableText);
    EXPECT_EQ(accessible->text(QAccessible::Value), QStringLiteral("👍 one two\r\nthree\n"));
    EXPECT_EQ(accessible->text(QAccessible::Description), QString());
    ASSERT_NE(text, nullptr);
    ASSERT_NE(accessible->editableTextInterface(), nullptr);
}

TEST_F(TextEditorAccessibleTest, CountsInUtf16) {
    EXPECT_EQ(text->characterCount(), 18);
    EXPECT_EQ(text->text(3, 6), QStringLiteral("one"));
    text->setCursorPosition(3);
    EXPECT_EQ(editor.document().caret(), 5U);
    EXPECT_EQ(text->cursorPosition(), 3);
}

TEST_F(TextEditorAccessibleTest, GivesCharactersWordsAndLines) {
    EXPECT_EQ(at(0, QAccessible::CharBoundary), QStringLiteral("👍"));
    EXPECT_EQ(end, 2);
    EXPECT_EQ(at(4, QAccessible::WordBoundary), QStringLiteral("one"));
    EXPECT_EQ(at(4, QAccessible::LineBoundary), QStringLiteral("👍 one two\r\n"));
    EXPECT_EQ(at(13, QAccessible::ParagraphBoundary), QStringLiteral("three\n"));
    EXPECT_EQ(text->textAfterOffset(4, QAccessible::LineBoundary, &start, &end), QStringLiteral("three\n"));
    EXPECT_EQ(text->textBeforeOffset(13, QAccessible::LineBoundary, &start, &end), QStringLiteral("👍 one two\r\n"));
    EXPECT_EQ(text->textBeforeOffset(4, QAccessible::CharBoundary, &start, &end), QStringLiteral("o"));
}

TEST_F(TextEditorAccessibleTest, SelectsAndEdits) {
    text->setSelection(0, 3, 6);
    EXPECT_EQ(text->selectionCount(), 1);
    text->selection(0, &start, &end);
    EXPECT_EQ(start, 3);
    EXPECT_EQ(end, 6);
    accessible->editableTextInterface()->replaceText(3, 6, QStringLiteral("1"));
    accessible->editableTextInterface()->insertText(0, QStringLiteral("x"));
    accessible->editableTextInterface()->deleteText(1, 3);
    EXPECT_EQ(std::string(Text(editor.text()).view()), "x 1 two\r\nthree\n");
}

TEST_F(TextEditorAccessibleTest, ShowsWhatItIsSentTo) {
    std::string lines;
    for (int line = 0; line < 200; ++line) {
        lines += "line\n";
    }
    editor.setText(Text(std::string_view(lines)));
    const QScrollBar *bar = editor.verticalScrollBar();
    text->setCursorPosition(900);
    EXPECT_GT(bar->value(), 0);
    EXPECT_TRUE(text->characterRect(0).isEmpty()) << "out of sight";
    text->setCursorPosition(0);
    EXPECT_EQ(bar->value(), 0);
    text->setSelection(0, 900, 904);
    EXPECT_GT(bar->value(), 0);
    text->removeSelection(0);
    EXPECT_EQ(text->selectionCount(), 0);
    text->scrollToSubstring(0, 4);
    EXPECT_FALSE(text->characterRect(0).isEmpty());
    text->addSelection(900, 904);
    EXPECT_EQ(text->selectionCount(), 1);
    EXPECT_GT(bar->value(), 0);
    text->setCursorPosition(0);
    editor.document().setCaret(900);
    editor.verticalScrollBar()->setValue(0);
    accessible->editableTextInterface()->insertText(900, QStringLiteral("x"));
    EXPECT_GT(bar->value(), 0);
}

TEST_F(TextEditorAccessibleTest, KnowsWhereCharactersAre) {
    const QRect rect = text->characterRect(4);
    EXPECT_FALSE(rect.isEmpty());
    EXPECT_EQ(text->offsetAtPoint(rect.center() - QPoint(rect.width() / 2 - 1, 0)), 4);
}

TEST_F(TextEditorAccessibleTest, GivesSentencesAndStretchesOfAnEndlessParagraph) {
    editor.setText(Text(std::string_view("One. Two words? Three\nnext line")));
    EXPECT_EQ(at(8, QAccessible::SentenceBoundary), QStringLiteral("Two words? "));
    EXPECT_EQ(text->textAfterOffset(8, QAccessible::SentenceBoundary, &start, &end), QStringLiteral("Three"));
    editor.setText(Text(std::string_view(std::string(3000000, 'x'))));
    int reached = 0;
    int stretches = 0;
    while (reached < 3000000) {
        EXPECT_LT(at(reached, QAccessible::ParagraphBoundary).size(), 1100000);
        ASSERT_EQ(start, reached);
        ASSERT_GT(end, reached);
        reached = end;
        ++stretches;
    }
    EXPECT_EQ(stretches, 3);
}

} // namespace
} // namespace lexivore
