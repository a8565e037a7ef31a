// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_editor.h"

#include "engine/primitives/characters.h"
#include "ui/text_conversion.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace lexivore {
namespace {

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

TEST_F(TextEditorTest, TypesWhereTheCaretIs) {
    show("one three");
    keys("Ctrl+Right");
    type("two ");
    EXPECT_EQ(text(), "one two three");
    EXPECT_EQ(followed, text());
    EXPECT_EQ(document().caretPlace().column, 9U);
}

TEST_F(TextEditorTest, TypingInACrLfTextChangesOnlyWhatWasTyped) {
    show("a\r\nb\r\nc");
    keys("Down");
    keys("End");
    type("x");
    EXPECT_EQ(text(), "a\r\nbx\r\nc");
    QTest::keyClick(&editor, Qt::Key_Return);
    EXPECT_EQ(text(), "a\r\nbx\r\n\r\nc");
    keys("Backspace");
    EXPECT_EQ(text(), "a\r\nbx\r\nc");
    keys("Delete");
    EXPECT_EQ(text(), "a\r\nbxc");
    EXPECT_EQ(followed, text());
}

TEST_F(TextEditorTest, TabTypesATabAndControlTabIsLeftToTheWindow) {
    show("");
    QTest::keyClick(&editor, Qt::Key_Tab);
    EXPECT_EQ(text(), "\t");
    QKeyEvent leave(QEvent::KeyPress, Qt::Key_Tab, Qt::ControlModifier);
    leave.setAccepted(true);
    QApplication::sendEvent(&editor, &leave);
    EXPECT_FALSE(leave.isAccepted());
    EXPECT_EQ(text(), "\t");
}

TEST_F(TextEditorTest, MovesByCharactersThatAreWhole) {
    const std::string family = "👩‍👩‍👧";
    show(family + "e\u0301\r\nx");
    keys("Right");
    EXPECT_EQ(document().caret(), family.size());
    keys("Right");
    EXPECT_EQ(document().caret(), family.size() + 3);
    keys("Right");
    EXPECT_EQ(document().caret(), family.size() + 5);
    keys("Left");
    keys("Left");
    keys("Left");
    EXPECT_EQ(document().caret(), 0U);
}

TEST_F(TextEditorTest, LeftMovesOnInALineThatRunsFromRightToLeft) {
    show("שלום");
    keys("Left");
    EXPECT_EQ(document().caret(), 2U);
    keys("Right");
    EXPECT_EQ(document().caret(), 0U);
}

TEST_F(TextEditorTest, MovesAndSelectsByTheKeysOfThePlatform) {
    show("first line\nsecond line\nthird line");
    keys("Ctrl+End");
    EXPECT_EQ(document().caret(), text().size());
    keys("Ctrl+Home");
    keys("Shift+Down");
    EXPECT_EQ(document().selectionEnd(), 11U);
    keys("Shift+End");
    EXPECT_EQ(document().selectionEnd(), 22U);
    keys("Right");
    EXPECT_EQ(document().caret(), 22U);
    EXPECT_FALSE(document().hasSelection());
    keys("Home");
    EXPECT_EQ(document().caret(), 11U);
    keys("Ctrl+Shift+Right");
    EXPECT_EQ(std::string(Text(document().selectedText()).view()), "second ");
    keys("Ctrl+Down");
    EXPECT_EQ(document().caret(), 23U);
    keys("Ctrl+A");
    EXPECT_EQ(document().selectedText().size(), text().size());
}

TEST_F(TextEditorTest, KeepsTheWantedColumnWhenMovingOverAShortLine) {
    show("a long line\nb\nanother long line");
    keys("End");
    keys("Down");
    EXPECT_EQ(document().caretPlace(), (TextDocument::LineAndColumn{2, 2}));
    keys("Down");
    EXPECT_EQ(document().caretPlace(), (TextDocument::LineAndColumn{3, 12}));
}

TEST_F(TextEditorTest, EndStaysInTheRowOfAWrappedLine) {
    show(std::string(500, 'w'));
    keys("End");
    const std::size_t rowEnd = document().caret();
    EXPECT_GT(rowEnd, 20U);
    EXPECT_LT(rowEnd, 200U);
    keys("Home");
    EXPECT_EQ(document().caret(), 0U);
    keys("End");
    keys("End");
    EXPECT_EQ(document().caret(), rowEnd);
    keys("Down");
    EXPECT_EQ(document().caret(), 2 * rowEnd);
}

TEST_F(TextEditorTest, DeletesToTheEndsOfWordsAndLines) {
    show("one two three\nfour");
    keys("Ctrl+Delete");
    EXPECT_EQ(text(), "two three\nfour");
    keys("End");
    keys("Ctrl+Backspace");
    EXPECT_EQ(text(), "two \nfour");
    keys("Ctrl+Shift+Backspace");
    EXPECT_EQ(text(), "\nfour");
    keys("Ctrl+End");
    keys("Home");
    keys("Ctrl+Shift+Delete");
    EXPECT_EQ(text(), "\n");
    EXPECT_EQ(followed, text());
}

TEST_F(TextEditorTest, OverwritesCharactersButNotLineBreaks) {
    show("abc\nd");
    keys("Ins");
    EXPECT_TRUE(editor.isOverwriteMode());
    type("wxyz");
    EXPECT_EQ(text(), "wxyz\nd");
    keys("Ctrl+Z");
    EXPECT_EQ(text(), "abc\nd");
}

TEST_F(TextEditorTest, UndoIsLeftToTheWindowWhenThereIsNothingToUndo) {
    show("abc");
    QKeyEvent before(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
    before.ignore();
    QApplication::sendEvent(&editor, &before);
    EXPECT_FALSE(before.isAccepted());
    type("x");
    QKeyEvent after(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
    after.ignore();
    QApplication::sendEvent(&editor, &after);
    EXPECT_TRUE(after.isAccepted());
    keys("Ctrl+Z");
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(followed, text());
}

TEST_F(TextEditorTest, SelectsWithTheMouse) {
    show("one two three\nfour five\nsix");
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, pointOf(4));
    EXPECT_EQ(document().caret(), 4U);
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, Qt::ShiftModifier, pointOf(18));
    EXPECT_EQ(document().selectionStart(), 4U);
    EXPECT_EQ(document().selectionEnd(), 18U);

    QTest::mouseDClick(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
    EXPECT_EQ(std::string(Text(document().selectedText()).view()), "two");
    QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
    EXPECT_EQ(std::string(Text(document().selectedText()).view()), "one two three\n");
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
}

TEST_F(TextEditorTest, DragsASelectionAndScrollsOutsideTheView) {
    std::string lines;
    for (int i = 0; i < 300; ++i) {
        lines += "line " + std::to_string(i) + "\n";
    }
    show(lines);
    QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, pointOf(2));
    QTest::mouseMove(editor.viewport(), QPoint(40, 100));
    EXPECT_TRUE(document().hasSelection());
    QMouseEvent below(QEvent::MouseMove, QPointF(40, 600), editor.viewport()->mapToGlobal(QPointF(40, 600)),
                      Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCursor::setPos(editor.viewport()->mapToGlobal(QPoint(40, 600)));
    QApplication::sendEvent(editor.viewport(), &below);
    EXPECT_TRUE(QTest::qWaitFor([this] { return editor.verticalScrollBar()->value() > 200; }));
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, QPoint(40, 390));
    EXPECT_EQ(document().anchor(), 2U);
    EXPECT_GT(document().caret(), 400U);
}

TEST_F(TextEditorTest, CopiesCutsAndPastesExactly) {
    const std::string exact = "a\r\nb\u2028c\td";
    show(exact);
    keys("Ctrl+A");
    keys("Ctrl+C");
    EXPECT_EQ(toUtf8(QGuiApplication::clipboard()->text()), exact);
    keys("Ctrl+End");
    keys("Ctrl+V");
    EXPECT_EQ(text(), exact + exact);
    keys("Ctrl+A");
    keys("Ctrl+X");
    EXPECT_EQ(text(), "");
    EXPECT_EQ(toUtf8(QGuiApplication::clipboard()->text()), exact + exact);
    EXPECT_EQ(followed, text());
}

TEST_F(TextEditorTest, RepairsBrokenTextFromTheClipboard) {
    QString broken = QStringLiteral("a");
    broken += QChar(0xD800);
    broken += QLatin1Char('b');
    auto *const data = new QMimeData;
    data->setText(broken);
    QGuiApplication::clipboard()->setMimeData(data);
    show("");
    editor.paste();
    EXPECT_EQ(text(), "a\uFFFDb");
}

TEST_F(TextEditorTest, ShowsThePreeditWithoutTouchingTheText) {
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

TEST_F(TextEditorTest, SaysWhereTheCaretIs) {
    QSignalSpy moved(&editor, &TextEditor::caretMoved);
    show("a\r\nbc");
    keys("Ctrl+End");
    ASSERT_FALSE(moved.isEmpty());
    EXPECT_EQ(moved.last().at(0).toULongLong(), 2U);
    EXPECT_EQ(moved.last().at(1).toULongLong(), 3U);
}

TEST_F(TextEditorTest, ReadOnlyTextCanBeSelectedAndCopiedButNotChanged) {
    show("abc");
    editor.setReadOnly(true);
    type("x");
    keys("Delete");
    editor.paste();
    keys("Ctrl+A");
    keys("Ctrl+X");
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(document().selectedText().size(), 3U);
}

TEST_F(TextEditorTest, ScrollsToTheVeryEndAndBack) {
    std::string lines;
    for (int i = 0; i < 20000; ++i) {
        lines += std::string(static_cast<std::size_t>(i * 31 % 400), 'x') + "\n";
    }
    show(lines);
    QScrollBar *const bar = editor.verticalScrollBar();
    bar->setValue(bar->maximum());
    EXPECT_EQ(bar->value(), bar->maximum());
    keys("Ctrl+End");
    EXPECT_EQ(bar->value(), bar->maximum());
    const QRect caret = editor.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    EXPECT_EQ(caret.bottom() + 1, editor.viewport()->height() - 12);
    bar->setValue(0);
    EXPECT_EQ(pointOf(0).y() < 40, true);
}

TEST_F(TextEditorTest, TheThumbFollowsTheHandWhileItIsDragged) {
    std::string lines;
    for (int i = 0; i < 50000; ++i) {
        lines += std::string(static_cast<std::size_t>(i < 25000 ? 5 : 700), 'x') + "\n";
    }
    show(lines);
    QScrollBar *const bar = editor.verticalScrollBar();
    const int maximum = bar->maximum();
    bar->setSliderDown(true);
    for (int step = 1; step <= 50; ++step) {
        const int value = static_cast<int>(static_cast<double>(maximum) * step / 50);
        bar->setSliderPosition(value);
        ASSERT_EQ(bar->value(), value);
        ASSERT_EQ(bar->maximum(), maximum);
    }
    bar->setSliderDown(false);
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST_F(TextEditorTest, WhatIsShownStaysWhenTheHeightsAboveAreCorrected) {
    std::string lines;
    for (int i = 0; i < 30000; ++i) {
        lines += std::string(static_cast<std::size_t>(i * 7919 % 900), 'x') + " " + std::to_string(i) + "\n";
    }
    show(lines);
    QScrollBar *const bar = editor.verticalScrollBar();
    bar->setValue(bar->maximum() / 2);
    const QImage before = editor.viewport()->grab().toImage();
    for (int i = 0; i < 30; ++i) {
        bar->triggerAction(QAbstractSlider::SliderPageStepSub);
    }
    int previous = bar->value();
    for (int i = 0; i < 30; ++i) {
        bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
        EXPECT_GT(bar->value(), previous);
        previous = bar->value();
    }
    EXPECT_EQ(editor.viewport()->grab().toImage(), before);
}

TEST_F(TextEditorTest, OffersACompleteContextMenu) {
    show("abc");
    QContextMenuEvent open(QContextMenuEvent::Keyboard, QPoint(10, 10), editor.mapToGlobal(QPoint(10, 10)));
    QApplication::sendEvent(editor.viewport(), &open);
    auto *const menu = editor.findChild<QMenu *>(QStringLiteral("editorContextMenu"));
    ASSERT_NE(menu, nullptr);
    int entries = 0;
    for (const QAction *action : menu->actions()) {
        entries += action->isSeparator() ? 0 : 1;
    }
    EXPECT_EQ(entries, 7);
    menu->close();
}

TEST_F(TextEditorTest, FindsAroundTheEnd) {
    show("one two one");
    EXPECT_TRUE(editor.findNext("one"));
    EXPECT_EQ(document().selectionStart(), 0U);
    EXPECT_TRUE(editor.findNext("ONE"));
    EXPECT_EQ(document().selectionStart(), 8U);
    EXPECT_TRUE(editor.findNext("one"));
    EXPECT_EQ(document().selectionStart(), 0U);
    EXPECT_TRUE(editor.findPrevious("one"));
    EXPECT_EQ(document().selectionStart(), 8U);
    EXPECT_FALSE(editor.findNext("three"));
}

TEST_F(TextEditorTest, FollowsAPlainStringThroughRandomKeysAndClicks) {
    const char *const sequences[] = {
        "Left",        "Right",      "Up",           "Down",       "Home",        "End",
        "PgUp",        "PgDown",     "Ctrl+Left",    "Ctrl+Right", "Shift+Left",  "Shift+Right",
        "Shift+Up",    "Shift+Down", "Shift+End",    "Delete",     "Backspace",   "Ctrl+Backspace",
        "Ctrl+Delete", "Ctrl+Z",     "Ctrl+Shift+Z", "Ctrl+C",     "Ctrl+V",      "Ctrl+X",
        "Ctrl+Home",   "Ctrl+End",   "Return",       "Tab",        "Shift+PgDown"};
    const char *const typed[] = {"a", " ", ".", "\u0301", "שלום", "👍🏽", "🇩", "\r\n", "\u2028", "क्ष"};
    std::mt19937 dice(2024);
    const auto below = [&dice](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(dice);
    };
    std::string start;
    for (int i = 0; i < 3000; ++i) {
        start += below(12) == 0 ? typed[below(std::size(typed))] : "lorem ";
    }
    show(start);
    for (int i = 0; i < 1500; ++i) {
        switch (below(4)) {
        case 0: {
            QInputMethodEvent commit;
            commit.setCommitString(QString::fromUtf8(typed[below(std::size(typed))]));
            QApplication::sendEvent(&editor, &commit);
            break;
        }
        case 1: {
            const QPoint point(static_cast<int>(below(480)), static_cast<int>(below(400)));
            const Qt::KeyboardModifiers modifiers = below(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
            if (below(5) == 0) {
                QTest::mouseDClick(editor.viewport(), Qt::LeftButton, modifiers, point);
            } else {
                QTest::mouseClick(editor.viewport(), Qt::LeftButton, modifiers, point);
            }
            break;
        }
        default:
            keys(sequences[below(std::size(sequences))]);
            break;
        }
        if (text().size() > 100000) {
            show(start);
        }
        ASSERT_EQ(text(), followed) << "after event " << i;
        ASSERT_EQ(document().boundaryAt(document().caret()), document().caret());
        ASSERT_EQ(document().characterCount(), characterCount(followed));
        if (i % 20 == 0) {
            editor.viewport()->repaint();
        }
    }
}

} // namespace
} // namespace lexivore
