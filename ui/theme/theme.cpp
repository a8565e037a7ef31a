// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/theme/theme.h"

#include <QGuiApplication>

namespace lexivore {

namespace {

constexpr QColor rgb(QRgb value) { return QColor((value >> 16) & 0xff, (value >> 8) & 0xff, value & 0xff); }
QColor rgb(QRgb value, double opacity) { return faded(rgb(value), opacity); }

// clang-format off
Theme makeLight() {
    return {
        .isDark = false,
        .chrome = rgb(0xF3F3F6), .sidebar = rgb(0xEDEDF1), .pane = rgb(0xF8F8FA), .view = rgb(0xFFFFFF),
        .raised = rgb(0xFFFFFF), .field = rgb(0xFFFFFF),
        .button = rgb(0xFFFFFF), .buttonHover = rgb(0xF1F1F5), .buttonPress = rgb(0xE6E6EC),
        .border = rgb(0xDEDEE5), .borderStrong = rgb(0xC3C3CE), .buttonBorder = rgb(0xCFCFD9),
        .sheetBorder = rgb(0xDEDEE5),
        .text = rgb(0x1B1B22), .text2 = rgb(0x565664), .text3 = rgb(0x676775), .textOff = rgb(0xA0A0AD),
        .accent = rgb(0x4F55CC), .accentHover = rgb(0x454BBD), .accentPress = rgb(0x3B41A8),
        .accentText = rgb(0x444AB8), .onAccent = rgb(0xFFFFFF), .onDanger = rgb(0xFFFFFF), .focus = rgb(0x4F55CC),
        .danger = rgb(0xC4262E), .dangerHover = rgb(0xB01F27), .dangerPress = rgb(0x9A1A21),
        .selection = rgb(0xD5D6F3),
        .badgeOff = rgb(0x72727F), .switchOff = rgb(0x8E8E9C), .track = rgb(0xD5D5DE),
        .star = rgb(0xF0AE00), .starEdge = rgb(0x946200),
        .toast = rgb(0x2A2A33), .onToast = rgb(0xFFFFFF), .toastIcon = rgb(0x6FDC9C),
        .blue = rgb(0x1F6FD1), .green = rgb(0x23803F), .orange = rgb(0xB85C00),
        .purple = rgb(0x8A3FC7), .indigo = rgb(0x4F55CC), .teal = rgb(0x0B7C86),
        .barStart = rgb(0x6B35B5), .barEnd = rgb(0xA873E8), .scrim = rgb(0x14141C, 0.38),
        .rowHover = rgb(0x4F55CC, 0.10), .rowPress = rgb(0x4F55CC, 0.20), .operationRowHover = rgb(0x808080, 0.10),
        .toolHover = rgb(0x1B1B22, 0.08), .toolPress = rgb(0x1B1B22, 0.14), .accentWash = rgb(0x4F55CC, 0.13),
        .scrollThumb = rgb(0x1B1B22, 0.22),
    };
}

Theme makeDark() {
    return {
        .isDark = true,
        .chrome = rgb(0x2A2A31), .sidebar = rgb(0x26262C), .pane = rgb(0x212126), .view = rgb(0x1A1A1E),
        .raised = rgb(0x2B2B32), .field = rgb(0x1E1E23),
        .button = rgb(0x3A3A43), .buttonHover = rgb(0x44444F), .buttonPress = rgb(0x33333B),
        .border = rgb(0x3A3A43), .borderStrong = rgb(0x51515D), .buttonBorder = rgb(0x4A4A55),
        .sheetBorder = rgb(0x44444F),
        .text = rgb(0xF0F0F4), .text2 = rgb(0xB4B4C1), .text3 = rgb(0xA0A0AE), .textOff = rgb(0x6C6C79),
        .accent = rgb(0x5B61D9), .accentHover = rgb(0x6167DE), .accentPress = rgb(0x5056C8),
        .accentText = rgb(0xA5A9F8), .onAccent = rgb(0xFFFFFF), .onDanger = rgb(0xFFFFFF), .focus = rgb(0x8A8FF5),
        .danger = rgb(0xCC3940), .dangerHover = rgb(0xD03D44), .dangerPress = rgb(0xB82F36),
        .selection = rgb(0x30325E),
        .badgeOff = rgb(0x62626F), .switchOff = rgb(0x6E6E7C), .track = rgb(0x44444F),
        .star = rgb(0xF4C544), .starEdge = rgb(0xF4C544),
        .toast = rgb(0xECECF1), .onToast = rgb(0x1B1B22), .toastIcon = rgb(0x1F8A4C),
        .blue = rgb(0x6FB1FF), .green = rgb(0x69CF8A), .orange = rgb(0xF5A55B),
        .purple = rgb(0xC79BF7), .indigo = rgb(0xA5A9F8), .teal = rgb(0x5CCAD3),
        .barStart = rgb(0x8B52DB), .barEnd = rgb(0xB98CF2), .scrim = rgb(0x000000, 0.55),
        .rowHover = rgb(0x5B61D9, 0.10), .rowPress = rgb(0x5B61D9, 0.20), .operationRowHover = rgb(0x808080, 0.10),
        .toolHover = rgb(0xF0F0F4, 0.08), .toolPress = rgb(0xF0F0F4, 0.14), .accentWash = rgb(0x5B61D9, 0.26),
        .scrollThumb = rgb(0xF0F0F4, 0.22),
    };
}
// clang-format on

} // namespace

const Theme &lightTheme() {
    static const Theme light = makeLight();
    return light;
}

const Theme &darkTheme() {
    static const Theme dark = makeDark();
    return dark;
}

const Theme &themeFor(const QPalette &palette) {
    const int text = qGray(palette.color(QPalette::Active, QPalette::WindowText).rgb());
    const int window = qGray(palette.color(QPalette::Active, QPalette::Window).rgb());
    return text > window ? darkTheme() : lightTheme();
}

const Theme &theme() { return themeFor(QGuiApplication::palette()); }

QColor faded(QColor colour, double factor) {
    colour.setAlphaF(static_cast<float>(factor) * colour.alphaF());
    return colour;
}

QPalette paletteOf(const Theme &theme) {
    QPalette palette;
    palette.setColor(QPalette::Window, theme.pane);
    palette.setColor(QPalette::WindowText, theme.text);
    palette.setColor(QPalette::Base, theme.field);
    palette.setColor(QPalette::AlternateBase, theme.pane);
    palette.setColor(QPalette::Text, theme.text);
    palette.setColor(QPalette::PlaceholderText, theme.text3);
    palette.setColor(QPalette::Button, theme.button);
    palette.setColor(QPalette::ButtonText, theme.text);
    palette.setColor(QPalette::BrightText, theme.onAccent);
    palette.setColor(QPalette::ToolTipBase, theme.raised);
    palette.setColor(QPalette::ToolTipText, theme.text);
    palette.setColor(QPalette::Highlight, theme.selection);
    palette.setColor(QPalette::HighlightedText, theme.text);
    palette.setColor(QPalette::Link, theme.accentText);
    palette.setColor(QPalette::LinkVisited, theme.accentText);
    palette.setColor(QPalette::Light, theme.raised);
    palette.setColor(QPalette::Midlight, theme.border);
    palette.setColor(QPalette::Mid, theme.borderStrong);
    palette.setColor(QPalette::Dark, theme.text3);
    palette.setColor(QPalette::Shadow, theme.borderStrong);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText}) {
        palette.setColor(QPalette::Disabled, role, theme.textOff);
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, theme.pane);
    return palette;
}

} // namespace lexivore
