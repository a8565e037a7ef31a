// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/editor/text_editor_fixture.h"

#include <QScrollBar>

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

} // namespace
} // namespace lexivore
