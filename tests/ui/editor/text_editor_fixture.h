// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/editor/text_editor.h"

#include <QFontDatabase>
#include <QTest>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace lexivore {

/// An editor with the keyboard, and what somebody knows who only hears of its edits.
class TextEditorTest : public testing::Test {
protected:
    TextEditorTest() {
        editor.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        editor.resize(500, 400);
        editor.show();
        editor.activateWindow();
        editor.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&editor));
        QObject::connect(&editor, &TextEditor::edited, &editor,
                         [this](std::size_t offset, std::size_t removed, std::string_view inserted) {
                             followed.replace(offset, removed, inserted);
                         });
    }

    void show(std::string_view text) {
        editor.setText(Text(text));
        followed = text;
    }
    /// As undo in the window does.
    void goBackTo(const Text &earlier) {
        editor.setText(earlier);
        followed = text();
    }
    [[nodiscard]] std::string text() const { return std::string(Text(editor.text()).view()); }
    void keys(const char *sequence) { QTest::keySequence(&editor, QKeySequence(QString::fromLatin1(sequence))); }
    void type(const char *typed) { QTest::keyClicks(&editor, QString::fromLatin1(typed)); }
    [[nodiscard]] TextDocument &document() { return editor.document(); }
    [[nodiscard]] QPoint pointOf(std::size_t offset) {
        const std::size_t anchor = document().anchor();
        const std::size_t caret = document().caret();
        document().setCaret(offset);
        const QRect rect = editor.inputMethodQuery(Qt::ImCursorRectangle).toRect();
        document().select(anchor, caret);
        return {rect.left(), rect.center().y()};
    }

    TextEditor editor;
    std::string followed; ///< What somebody knows who is told of the edits alone.
};

} // namespace lexivore
