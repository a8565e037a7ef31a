// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/window_fixture.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QSlider>
#include <QWheelEvent>

#include <tuple>
#include <utility>

namespace lexivore {
namespace {

using FontSize = WindowTest;

TEST_F(FontSize, TheFontSizeIsKept) {
    EXPECT_EQ(state().editorFontSize(), 13);
    click("editorSettings");
    find<QSlider>("fontSize")->setValue(18);
    click("done");
    EXPECT_EQ(state().editorFontSize(), 18);
    EXPECT_EQ(preferences.value(preference::editorFontSize).toDouble(), 18);
    restart();
    EXPECT_EQ(state().editorFontSize(), 18);
    preferences.setValue(preference::editorFontSize, 0);
    restart();
    EXPECT_EQ(state().editorFontSize(), 13);
    preferences.setValue(preference::editorFontSize, 72.0);
    restart();
    EXPECT_EQ(find("editor")->font().pointSizeF(), 72);
}

TEST_F(FontSize, AStoredFontSizeOfAnyKindLeavesAnEditorToReadIn) {
    const std::pair<QVariant, double> stored[] = {
        {QVariant::fromValue(nullptr), 13},
        {0.0, 13},
        {QString("large"), 13},
        {QVariantList{20}, 13},
        {true, 1},
        {-3.0, -3},
        {3.5, 3.5},
        {1e9, 1e9},
    };
    setText("some text");
    for (const auto &[value, size] : stored) {
        preferences.setValue(preference::editorFontSize, value);
        restart();
        EXPECT_EQ(state().editorFontSize(), size);
        setText("some text");
        const QImage picture = find("editor")->grab().toImage();
        EXPECT_FALSE(picture.isNull());
        click("editorSettings");
        EXPECT_GE(find<QSlider>("fontSize")->value(), 9);
        EXPECT_LE(find<QSlider>("fontSize")->value(), 24);
        EXPECT_TRUE(window().rect().contains(find("editorSettingsSheet")->geometry()));
        EXPECT_FALSE(find("editorSettingsSheet")->grab().isNull());
        click("done");
        EXPECT_EQ(preferences.value(preference::editorFontSize), value) << "kept until the slider moves";
    }
    preferences.remove(preference::editorFontSize);
    restart();
    EXPECT_EQ(state().editorFontSize(), 13);
}

TEST_F(FontSize, ZoomingStaysWithinTheSettingsRange) {
    choose("ZoomIn");
    EXPECT_EQ(state().editorFontSize(), 14);
    for (int i = 0; i < 30; ++i) {
        choose("ZoomOut");
    }
    EXPECT_EQ(state().editorFontSize(), 9);
    for (int i = 0; i < 30; ++i) {
        choose("ZoomIn");
    }
    EXPECT_EQ(state().editorFontSize(), 24);
    choose("ResetZoom");
    EXPECT_EQ(state().editorFontSize(), 13);
}

TEST_F(FontSize, ZoomingFromBeyondThatRangeNeverGoesTheOtherWay) {
    for (const auto &[size, in, out] : {std::tuple(72.0, 72.0, 71.0), std::tuple(4.0, 5.0, 4.0)}) {
        state().setEditorFontSize(size);
        choose("ZoomIn");
        EXPECT_EQ(state().editorFontSize(), in);
        state().setEditorFontSize(size);
        choose("ZoomOut");
        EXPECT_EQ(state().editorFontSize(), out);
    }
}

TEST_F(FontSize, TheWheelZoomsWithCtrl) {
    QWidget *viewport = find<QAbstractScrollArea>("editor")->viewport();
    for (const auto &[turned, size] : {std::pair(120, 14.0), std::pair(-240, 12.0)}) {
        QWheelEvent event({50, 50}, viewport->mapToGlobal(QPointF(50, 50)), {}, {0, turned}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(viewport, &event);
        EXPECT_EQ(state().editorFontSize(), size);
    }
}

} // namespace
} // namespace lexivore
