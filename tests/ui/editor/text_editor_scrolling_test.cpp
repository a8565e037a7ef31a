// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/editor/text_editor_fixture.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>

namespace lexivore {
namespace {

using TextEditorScrollingTest = TextEditorTest;

TEST_F(TextEditorScrollingTest, ScrollsToTheVeryEndAndBack) {
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
    keys("Ctrl+End");
    keys("Ctrl+Home");
    EXPECT_EQ(bar->value(), 0);
    EXPECT_EQ(editor.inputMethodQuery(Qt::ImCursorRectangle).toRect().top(), 12);
}

TEST_F(TextEditorScrollingTest, TheThumbFollowsTheHandWhileItIsDragged) {
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

TEST_F(TextEditorScrollingTest, WhatIsShownStaysWhenTheHeightsAboveAreCorrected) {
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

TEST_F(TextEditorScrollingTest, SmallerLettersLeaveNothingBlankBelowTheEnd) {
    std::string lines;
    for (int i = 0; i < 300; ++i) {
        lines += "line " + std::to_string(i) + " that is wrapped where the letters are large\n";
    }
    show(lines);
    const QFont small = editor.font();
    QFont large = small;
    large.setPointSizeF(3 * small.pointSizeF());
    editor.setFont(large);
    keys("Ctrl+End");
    editor.setFont(small);
    const QRect caret = editor.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    EXPECT_EQ(caret.bottom() + 1, editor.viewport()->height() - 12);
    EXPECT_EQ(editor.verticalScrollBar()->value(), editor.verticalScrollBar()->maximum());
}

TEST_F(TextEditorScrollingTest, TheFirstRowStaysInViewWhileTheWidthChanges) {
    std::string line;
    for (int i = 0; i < 30000; ++i) {
        line += std::to_string(i);
    }
    show(line);
    editor.verticalScrollBar()->setValue(editor.verticalScrollBar()->maximum() / 2);
    const auto first = [this] {
        QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, QPoint(1, 5));
        return document().caret();
    };
    const std::size_t before = first();
    const QSize size = editor.size();
    for (int narrower = 0; narrower < 200; ++narrower) {
        editor.resize(size.width() - narrower, size.height());
        const std::size_t now = first();
        ASSERT_LE(now, before);
        ASSERT_LE(before - now, 100) << narrower << " pixels narrower";
    }
    editor.resize(size);
    EXPECT_EQ(first(), before);
}

TEST_F(TextEditorScrollingTest, TypingInTheFirstRowAfterAChangeOfWidthLeavesItInView) {
    std::string text;
    for (int i = 0; i < 60; ++i) {
        text += "word ";
    }
    show(text + std::string(100, '\n'));
    const QSize size = editor.size();
    editor.resize(size.width() / 2, size.height());
    editor.verticalScrollBar()->setValue(12 + QFontMetrics(editor.font()).lineSpacing());
    editor.resize(size);
    document().setCaret(5);
    keys("Return");
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, QPoint(1, 5));
    EXPECT_EQ(document().caret(), 0U);
}

TEST_F(TextEditorScrollingTest, WhatIsShownStaysWhenTheTextInFrontChanges) {
    std::string lines;
    for (int i = 0; i < 3000; ++i) {
        lines += "line " + std::to_string(i) + "\n";
    }
    show(lines);
    editor.verticalScrollBar()->setValue(editor.verticalScrollBar()->maximum() / 2);
    const QImage before = editor.viewport()->grab().toImage();
    show("one line more\n" + lines);
    EXPECT_EQ(editor.viewport()->grab().toImage(), before);
    show(lines.substr(lines.find("line 9\n")));
    EXPECT_EQ(editor.viewport()->grab().toImage(), before);
}

class TextEditorWheelTest : public TextEditorTest {
protected:
    TextEditorWheelTest() {
        std::string lines;
        for (int i = 0; i < 300; ++i) {
            lines += "line " + std::to_string(i) + "\n";
        }
        show(lines);
    }
    int turn(QPoint pixels, QPoint angle, Qt::KeyboardModifiers modifiers = {}) {
        const int before = editor.verticalScrollBar()->value();
        const QPointF point(50, 50);
        QWheelEvent event(point, editor.viewport()->mapToGlobal(point), pixels, angle, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(editor.viewport(), &event);
        return editor.verticalScrollBar()->value() - before;
    }
};

TEST_F(TextEditorWheelTest, ATouchpadScrollsByThePixelsItSays) {
    EXPECT_EQ(turn(QPoint(0, -7), QPoint(0, -15)), 7);
    EXPECT_EQ(turn(QPoint(0, -1), QPoint(0, -2)), 1);
    EXPECT_EQ(turn(QPoint(0, 3), QPoint(0, 6)), -3);
    EXPECT_EQ(turn(QPoint(5, 0), QPoint(10, 0)), 0);
}

TEST_F(TextEditorWheelTest, PartsOfANotchAddUpToTheRowsOfAWholeOne) {
    const int notch = turn(QPoint(), QPoint(0, -120));
    EXPECT_GT(notch, 0);
    int parts = 0;
    for (int i = 0; i < 16; ++i) {
        const int part = turn(QPoint(), QPoint(0, -15));
        EXPECT_LE(part, notch / 4);
        parts += part;
    }
    EXPECT_EQ(parts, 2 * notch);
}

TEST_F(TextEditorWheelTest, ControlAndTheWheelAskForAnotherSize) {
    QSignalSpy zoom(&editor, &TextEditor::zoomRequested);
    EXPECT_EQ(turn(QPoint(), QPoint(0, 120), Qt::ControlModifier), 0);
    EXPECT_EQ(turn(QPoint(), QPoint(0, -240), Qt::ControlModifier), 0);
    ASSERT_EQ(zoom.size(), 2);
    EXPECT_EQ(zoom[0][0].toInt(), 1);
    EXPECT_EQ(zoom[1][0].toInt(), -2);
}

} // namespace
} // namespace lexivore
