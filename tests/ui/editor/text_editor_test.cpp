// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/editor/text_editor_fixture.h"

#include "engine/primitives/characters.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QSignalSpy>

#include <cstdlib>
#include <random>
#include <set>
#include <vector>

namespace lexivore {
namespace {

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

TEST_F(TextEditorTest, ControlWithUpAndDownGoesFromLineToLine) {
    show("one\ntwo\nthree");
    document().setCaret(6);
    for (const std::size_t place : {4U, 0U, 0U}) {
        keys("Ctrl+Up");
        EXPECT_EQ(document().caret(), place);
    }
    for (const std::size_t place : {4U, 8U}) {
        keys("Ctrl+Down");
        EXPECT_EQ(document().caret(), place);
        EXPECT_FALSE(document().hasSelection());
    }
    keys("Ctrl+Shift+Up");
    EXPECT_EQ(document().selectionStart(), 4U);
    EXPECT_EQ(document().selectionEnd(), 8U);
    keys("Ctrl+Shift+Down");
    EXPECT_FALSE(document().hasSelection());
}

TEST_F(TextEditorTest, KeepsTheWantedColumnWhenMovingOverAShortLine) {
    show("a long line\nb\nanother long line");
    keys("End");
    keys("Down");
    EXPECT_EQ(document().caretPlace(), (TextDocument::LineAndColumn{2, 2}));
    keys("Down");
    EXPECT_EQ(document().caretPlace(), (TextDocument::LineAndColumn{3, 12}));
}

TEST_F(TextEditorTest, UpInTheFirstRowAndDownInTheLastGoToTheEndsOfTheText) {
    show("one two\nthree");
    document().setCaret(3);
    keys("Up");
    EXPECT_EQ(document().caret(), 0U);
    document().setCaret(10);
    keys("Shift+Down");
    EXPECT_EQ(document().anchor(), 10U);
    EXPECT_EQ(document().caret(), 13U);
}

TEST_F(TextEditorTest, MovesFromRowToRowWhereverARowBegins) {
    std::string rightToLeft;
    std::string mixed;
    std::string families;
    for (int i = 0; i < 60; ++i) {
        rightToLeft += "שלום עולם ";
        mixed += i % 7 == 0 ? "שלום עולם " : "abc 12 ";
        families += i % 4 == 0 ? "x🇩🇪" : "👩‍👩‍👧🇩🇪";
    }
    const auto y = [this] { return editor.inputMethodQuery(Qt::ImCursorRectangle).toRect().top(); };
    for (const std::string &line : {rightToLeft, mixed, families}) {
        for (const char *sideways : {"Home", "End"}) {
            show(line);
            document().setCaret(0);
            keys(sideways);
            for (int row = 1; row < 5; ++row) {
                const int above = y();
                keys("Down");
                ASSERT_GT(y(), above) << sideways << ", row " << row << " of " << line;
                const int here = y();
                keys(sideways);
                ASSERT_EQ(y(), here) << sideways << ", row " << row << " of " << line;
            }
        }
    }
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
    EXPECT_EQ(followed, text());
}

TEST_F(TextEditorTest, LeavesTheKeysOfUndoAndRedoToTheWindow) {
    show("abc");
    type("x");
    for (const Qt::KeyboardModifier shift : {Qt::NoModifier, Qt::ShiftModifier}) {
        for (const QEvent::Type kind : {QEvent::ShortcutOverride, QEvent::KeyPress}) {
            QKeyEvent event(kind, Qt::Key_Z, Qt::ControlModifier | shift, QStringLiteral("\x1A"));
            event.setAccepted(kind == QEvent::KeyPress);
            QApplication::sendEvent(&editor, &event);
            EXPECT_FALSE(event.isAccepted());
        }
    }
    EXPECT_EQ(text(), "xabc");
}

TEST_F(TextEditorTest, KeysOfCommandsTypeNothing) {
    show("abc");
    for (const Qt::KeyboardModifier shift : {Qt::NoModifier, Qt::ShiftModifier}) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_1, Qt::ControlModifier | shift, QStringLiteral("1"));
        QApplication::sendEvent(&editor, &event);
    }
    EXPECT_EQ(text(), "abc");
}

TEST_F(TextEditorTest, SaysWhereTheCaretIs) {
    QSignalSpy moved(&editor, &TextEditor::caretMoved);
    show("a\r\nbc");
    keys("Ctrl+End");
    ASSERT_FALSE(moved.isEmpty());
    EXPECT_EQ(moved.last().at(0).toULongLong(), 2U);
    EXPECT_EQ(moved.last().at(1).toULongLong(), 3U);
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

TEST_F(TextEditorTest, FindsAPartOfACharacterSelectsAllOfItAndGoesOn) {
    const std::string conjunct = "\u0915\u094D\u0937\u093F";
    show("e\u0301 " + conjunct + " caf\u0065\u0301 " + conjunct);
    const auto selection = [this] { return std::string(Text(document().selectedText()).view()); };
    EXPECT_TRUE(editor.findNext("e"));
    EXPECT_EQ(selection(), "e\u0301");
    EXPECT_TRUE(editor.findNext("e"));
    EXPECT_EQ(document().selectionStart(), 20U);
    EXPECT_EQ(selection(), "e\u0301");
    EXPECT_TRUE(editor.findPrevious("e"));
    EXPECT_EQ(document().selectionStart(), 0U);
    EXPECT_TRUE(editor.findNext("cafe"));
    EXPECT_EQ(selection(), "cafe\u0301");
    EXPECT_TRUE(editor.findPrevious("\u0937"));
    EXPECT_EQ(document().selectionStart(), 4U);
    EXPECT_EQ(selection(), conjunct);
    EXPECT_TRUE(editor.findNext("\u0937"));
    EXPECT_EQ(document().selectionEnd(), text().size());
}

TEST_F(TextEditorTest, FollowsAPlainStringThroughRandomKeysAndClicks) {
    const char *const sequences[] = {"Left",
                                     "Right",
                                     "Up",
                                     "Down",
                                     "Home",
                                     "End",
                                     "PgUp",
                                     "PgDown",
                                     "Ctrl+Left",
                                     "Ctrl+Right",
                                     "Shift+Left",
                                     "Shift+Right",
                                     "Shift+Up",
                                     "Shift+Down",
                                     "Shift+End",
                                     "Delete",
                                     "Backspace",
                                     "Ctrl+Backspace",
                                     "Ctrl+Delete",
                                     "Ctrl+C",
                                     "Ctrl+V",
                                     "Ctrl+X",
                                     "Ctrl+Home",
                                     "Ctrl+End",
                                     "Return",
                                     "Tab",
                                     "Shift+PgDown",
                                     "Ins",
                                     "Ctrl+A",
                                     "Ctrl+Up",
                                     "Ctrl+Down",
                                     "Ctrl+Shift+Delete",
                                     "Ctrl+Shift+Backspace"};
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
    std::vector<Text> earlier{editor.text()};
    const char *const asked = std::getenv("LEXIVORE_EDITOR_EVENTS");
    const int events = asked != nullptr ? std::atoi(asked) : 1500;
    for (int i = 0; i < events; ++i) {
        switch (below(6)) {
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
        case 2: {
            QInputMethodEvent compose(QString::fromUtf8(typed[below(std::size(typed))]), {});
            QApplication::sendEvent(&editor, &compose);
            break;
        }
        default:
            keys(sequences[below(std::size(sequences))]);
            break;
        }
        if (below(40) == 0) {
            earlier.push_back(editor.text());
        } else if (below(40) == 0) {
            goBackTo(earlier[below(earlier.size())]);
        }
        if (text().size() > 100000 || (text().size() < 500 && below(50) == 0)) {
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

TEST_F(TextEditorTest, LeftAndRightFollowTheEyeThroughMixedDirections) {
    for (const char *line : {"abc שלום def", "שלום abc עולם", "(מרحبا) 123 x", "a אב12גד b"}) {
        show(line);
        const auto boundaries = characterCount(line) + 1;
        const auto x = [this] { return editor.inputMethodQuery(Qt::ImCursorRectangle).toRect().left(); };
        for (const char *key : {"Right", "Left"}) {
            const bool isRight = key[0] == 'R';
            // From the edge of the line where this direction begins.
            document().setCaret(0);
            for (std::size_t i = 0; i < 2 * boundaries; ++i) {
                keys(isRight ? "Left" : "Right");
            }
            std::set<std::size_t> visited{document().caret()};
            int previous = x();
            for (std::size_t i = 1; i < boundaries; ++i) {
                keys(key);
                visited.insert(document().caret());
                EXPECT_TRUE(isRight ? x() >= previous : x() <= previous) << line << ", " << key << ", step " << i;
                previous = x();
            }
            EXPECT_GE(visited.size() + 1, boundaries) << line << ", " << key;
        }
    }
}

TEST_F(TextEditorTest, LeftAndRightLeaveALineOfMixedDirectionsAtItsEnds) {
    for (const char *line : {"abc שלום def", "שלום abc עולם"}) {
        const bool isRightToLeft = line[0] != 'a';
        const std::size_t begin = 4;
        const std::size_t end = begin + std::string_view(line).size();
        show("one\n" + std::string(line) + "\ntwo");
        document().setCaret(begin);
        keys(isRightToLeft ? "Right" : "Left");
        EXPECT_EQ(document().caret(), begin - 1) << line;
        document().setCaret(end);
        keys(isRightToLeft ? "Left" : "Right");
        EXPECT_EQ(document().caret(), end + 1) << line;
    }
}

TEST_F(TextEditorTest, PagesMoveTheCaretAndTheViewTogether) {
    std::string lines;
    for (int i = 0; i < 200; ++i) {
        lines += "line " + std::to_string(1000 + i) + "\n";
    }
    show(lines);
    keys("Right");
    keys("Right");
    const auto caretY = [this] { return editor.inputMethodQuery(Qt::ImCursorRectangle).toRect().top(); };
    keys("PgDown");
    const std::size_t line = document().caretPlace().line;
    EXPECT_GT(line, 10U);
    EXPECT_EQ(document().caretPlace().column, 3U);
    const int y = caretY();
    keys("PgDown");
    EXPECT_EQ(document().caretPlace().line, 2 * line - 1);
    EXPECT_NEAR(caretY(), y, 12);
    keys("Shift+PgUp");
    EXPECT_EQ(document().caretPlace().line, line);
    EXPECT_EQ(document().placeOf(document().anchor()).line, 2 * line - 1);
    keys("PgUp");
    keys("PgUp");
    EXPECT_EQ(document().caret(), 0U);
    for (int i = 0; i < 30; ++i) {
        keys("PgDown");
    }
    EXPECT_EQ(document().caret(), text().size());
}

TEST_F(TextEditorTest, ReturnInsertsTheLineEndingOfTheText) {
    for (const std::string ending : {"\r", "\r\n", "\n"}) {
        show("a" + ending + "b");
        QTest::keyClick(&editor, Qt::Key_Return);
        QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClick(&editor, Qt::Key_Enter, Qt::KeypadModifier);
        EXPECT_EQ(text(), ending + ending + ending + "a" + ending + "b");
    }
}

TEST_F(TextEditorTest, RefusesATextThatIsTooLargeAndKeepsTheOld) {
    Text half{std::string_view("0123456789abcdef")};
    while (half.size() < std::size_t{1} << 30) {
        half = half.replaced(half.size(), 0, half); // Every half shares the bytes of the other.
    }
    const Text large = half.replaced(half.size(), 0, half);
    ASSERT_EQ(large.size(), std::size_t{1} << 31);
    show("old");
    QSignalSpy refused(&editor, &TextEditor::refused);
    EXPECT_FALSE(editor.setText(large));
    ASSERT_EQ(refused.size(), 1);
    EXPECT_TRUE(refused[0][0].toString().contains(QStringLiteral("2 GB")));
    EXPECT_EQ(text(), "old");
    EXPECT_EQ(document().characterCount(), 3U);
}

} // namespace
} // namespace lexivore
