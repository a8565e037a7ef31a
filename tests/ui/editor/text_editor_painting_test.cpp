// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// The editor paints only what changed. Whatever happens, the screen shows what painting everything would show.
#include "tests/ui/editor/text_editor_fixture.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>

#include <random>

namespace lexivore {
namespace {

class TextEditorPaintingTest : public TextEditorTest {
public:
    TextEditorPaintingTest() : flashTime(QApplication::cursorFlashTime()) {
        QApplication::setCursorFlashTime(0);
        paintWhatIsAskedFor();
    }
    ~TextEditorPaintingTest() override { QApplication::setCursorFlashTime(flashTime); }

protected:
    void paintWhatIsAskedFor() {
        QApplication::sendPostedEvents();
        QEvent request(QEvent::UpdateRequest);
        QApplication::sendEvent(&editor, &request);
    }
    [[nodiscard]] QImage screen() {
        return editor.screen()->grabWindow(editor.winId()).toImage().convertToFormat(QImage::Format_RGB32);
    }
    void expectSameAsPaintingAll(const std::string &when) {
        paintWhatIsAskedFor();
        const QImage partly = screen();
        ASSERT_GT(partly.width(), 100);
        editor.viewport()->update();
        paintWhatIsAskedFor();
        ASSERT_EQ(partly, screen()) << when;
    }
    /// Painted pixels of the next paint, as a part of all.
    [[nodiscard]] double paintedPart() {
        struct Listener : QObject {
            std::int64_t pixels = 0;
            bool eventFilter(QObject *, QEvent *event) override {
                if (event->type() == QEvent::Paint) {
                    for (const QRect &rect : static_cast<QPaintEvent *>(event)->region()) {
                        pixels += std::int64_t{rect.width()} * rect.height();
                    }
                }
                return false;
            }
        } listener;
        editor.viewport()->installEventFilter(&listener);
        paintWhatIsAskedFor();
        const double all = static_cast<double>(editor.viewport()->width()) * editor.viewport()->height();
        return static_cast<double>(listener.pixels) / all;
    }

    int flashTime;
};

std::string manyLines() {
    std::string lines;
    for (int i = 0; i < 400; ++i) {
        lines += "line " + std::to_string(i) + std::string(static_cast<std::size_t>(i * 37 % 130), 'y') + "\n";
    }
    return lines;
}

TEST_F(TextEditorPaintingTest, AKeystrokePaintsItsLineAndTheCaretAlone) {
    show(manyLines());
    keys("Down");
    paintWhatIsAskedFor();
    type("x");
    const double part = paintedPart();
    EXPECT_GT(part, 0.0);
    EXPECT_LT(part, 0.25);
    keys("Right");
    EXPECT_LT(paintedPart(), 0.02);
}

TEST_F(TextEditorPaintingTest, ScrollingPaintsOnlyWhatComesIntoView) {
    show(manyLines());
    paintWhatIsAskedFor();
    editor.verticalScrollBar()->setValue(editor.verticalScrollBar()->maximum() / 2);
    paintWhatIsAskedFor();
    editor.verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_LT(paintedPart(), 0.3);
    expectSameAsPaintingAll("after a step");
}

TEST_F(TextEditorPaintingTest, TheScreenShowsWhatPaintingAllWouldShow) {
    const char *const sequences[] = {"Left",       "Right",  "Up",     "Down",      "Home",        "End",
                                     "PgUp",       "PgDown", "Delete", "Backspace", "Shift+Right", "Shift+Down",
                                     "Shift+PgUp", "Return", "Ctrl+A", "Ctrl+Home", "Ctrl+End",    "Ctrl+Delete",
                                     "Shift+Left", "Ins",    "Tab",    "Ctrl+Right"};
    const char *const typed[] = {"a",      " ",      "क्षि",  "שלום", "👍🏽", "\u0301\u0302\u0303",
                                 "\u2028", "\u00A0", "word "};
    std::string start = manyLines() + std::string(6000, 'z') + "\n" + manyLines();
    for (int i = 0; i < 40; ++i) {
        start +=
            "हिन्दी שלום مرحبا e\u0301\u0323 中文 👩‍👩‍👧 \u200B\u3000\t\x01 end\r\n";
    }
    std::mt19937 dice(5);
    const auto below = [&dice](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(dice);
    };
    show(start);
    std::vector<Text> earlier{editor.text()};
    for (int i = 0; i < 600; ++i) {
        const std::size_t what = below(11);
        std::string event = "event " + std::to_string(i) + ", of kind " + std::to_string(what);
        if (what < 5) {
            const char *const sequence = sequences[below(std::size(sequences))];
            event += sequence;
            keys(sequence);
        } else if (what < 7) {
            QInputMethodEvent commit;
            commit.setCommitString(QString::fromUtf8(typed[below(std::size(typed))]));
            QApplication::sendEvent(&editor, &commit);
        } else if (what == 7) {
            QInputMethodEvent compose(QString::fromUtf8(typed[below(std::size(typed))]), {});
            QApplication::sendEvent(&editor, &compose);
        } else if (what == 8) {
            const QPoint point(static_cast<int>(below(480)), static_cast<int>(below(400)));
            QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, point);
        } else if (what == 9) {
            earlier.push_back(editor.text());
            goBackTo(earlier[below(earlier.size())]);
        } else {
            QScrollBar *const bar = editor.verticalScrollBar();
            const int pixels = static_cast<int>(below(300)) - 150;
            bar->setValue(below(5) == 0 ? static_cast<int>(below(static_cast<std::size_t>(bar->maximum()) + 1))
                                        : bar->value() + pixels);
        }
        if (below(2) == 0) {
            expectSameAsPaintingAll(event);
            if (HasFatalFailure()) {
                return;
            }
        }
    }
}

TEST_F(TextEditorPaintingTest, LaysTheTextOutOnceAlthoughTheScrollBarComes) {
    show("short");
    const int width = editor.viewport()->width();
    EXPECT_FALSE(editor.verticalScrollBar()->isVisible());
    show(manyLines());
    EXPECT_TRUE(editor.verticalScrollBar()->isVisible());
    EXPECT_LT(editor.viewport()->width(), width);
    show("short again");
    EXPECT_FALSE(editor.verticalScrollBar()->isVisible());
    EXPECT_EQ(editor.viewport()->width(), width);
    editor.hide();
    show(manyLines());
    editor.show();
    EXPECT_TRUE(editor.verticalScrollBar()->isVisible());
    EXPECT_LT(editor.viewport()->width(), width);
}

TEST_F(TextEditorPaintingTest, TheCaretBlinksAtTheSpeedOfTheSystem) {
    show("text");
    paintWhatIsAskedFor();
    const QImage shown = screen();
    QApplication::setCursorFlashTime(80);
    EXPECT_TRUE(QTest::qWaitFor([&] { return screen() != shown; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return screen() == shown; }));
    QApplication::setCursorFlashTime(0);
    paintWhatIsAskedFor();
    EXPECT_EQ(screen(), shown);
}

TEST_F(TextEditorPaintingTest, WhatIsComposedIsUnderlined) {
    show("abc");
    keys("Ctrl+End");
    paintWhatIsAskedFor();
    const QImage typed = screen();
    show("a");
    keys("Ctrl+End");
    QInputMethodEvent composing(QStringLiteral("bc"), {});
    QApplication::sendEvent(&editor, &composing);
    paintWhatIsAskedFor();
    EXPECT_NE(screen(), typed);
    QInputMethodEvent settled;
    settled.setCommitString(QStringLiteral("bc"));
    QApplication::sendEvent(&editor, &settled);
    paintWhatIsAskedFor();
    EXPECT_EQ(screen(), typed);
}

TEST_F(TextEditorPaintingTest, ASelectedLineBreakIsSeenWhereTheLineEnds) {
    const auto colourBeside = [this](const char *line, std::size_t offset, int distance) {
        show(line);
        const QPoint point = pointOf(offset);
        editor.selectAll();
        paintWhatIsAskedFor();
        return screen().pixelColor(editor.viewport()->mapTo(&editor, point + QPoint(distance, 0)));
    };
    const QColor selected = editor.palette().color(QPalette::Highlight);
    EXPECT_EQ(colourBeside("abc\n", 3, 3), selected);
    EXPECT_EQ(colourBeside("שלום\n", 8, -3), selected);
    EXPECT_NE(colourBeside("abc", 3, 3), selected);
}

TEST_F(TextEditorPaintingTest, ControlsUnusualSpacesAndLineBreaksCanBeSeen) {
    editor.setFocus();
    const auto pictureOf = [this](const char *line) {
        show(line);
        document().setCaret(0);
        paintWhatIsAskedFor();
        return screen();
    };
    EXPECT_NE(pictureOf("a\u00A0b"), pictureOf("a b"));
    EXPECT_NE(pictureOf("a\u200Bb"), pictureOf("ab"));
    EXPECT_NE(pictureOf("a\x01"
                        "b"),
              pictureOf("ab"));
    EXPECT_NE(pictureOf("a\rb"), pictureOf("a\nb"));
    EXPECT_NE(pictureOf("a\u2028b"), pictureOf("a\nb"));
    EXPECT_EQ(pictureOf("a\r\nb"), pictureOf("a\nb"));
}

} // namespace
} // namespace lexivore
