// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/visible_text.h"

#include <array>

namespace lexivore {

namespace {

bool isControl(char16_t unit) { return (unit < 0x20 && unit != u'\t') || (unit >= 0x7F && unit < 0xA0); }

/// U+2400 and on are the pictures of the ASCII controls.
QChar pictureOf(char16_t control) {
    constexpr char16_t pictureOfDelete = 0x2421;
    constexpr char16_t pictureOfAnyOther = 0x2426;
    if (control < 0x20) {
        return QChar(static_cast<char16_t>(0x2400 + control));
    }
    return QChar(control == 0x7F ? pictureOfDelete : pictureOfAnyOther);
}

bool isWideSpace(char16_t unit) {
    return unit == 0x00A0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) || unit == 0x202F || unit == 0x205F ||
           unit == 0x3000;
}

/// The joiners U+200C and U+200D are left alone: they are at work within words and emoji. U+FFFC stands for an object
/// that was not copied with the text; the toolkit keeps no room for it.
bool hasNoWidth(char16_t unit) {
    return unit == 0x00AD || unit == 0x061C || unit == 0x180E || unit == 0x200B || unit == 0x200E || unit == 0x200F ||
           (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2060 && unit <= 0x206F) || unit == 0xFEFF || unit == 0xFFFC;
}

} // namespace

QString visibleText(const QString &line, std::vector<QuietUnit> &marks) {
    QString visible = line;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const char16_t unit = line.at(i).unicode();
        if (unit >= 0x20 && unit < 0x7F) {
            continue;
        }
        if (isControl(unit)) {
            visible[i] = pictureOf(unit);
            marks.push_back({i, QuietMark::picture});
        } else if (isWideSpace(unit)) {
            marks.push_back({i, QuietMark::wideSpace});
        } else if (hasNoWidth(unit)) {
            marks.push_back({i, QuietMark::noWidth});
        }
    }
    return visible;
}

QString visibleTerminator(std::string_view terminator) {
    struct Row {
        std::string_view terminator;
        char16_t picture;
    };
    constexpr std::array<Row, 6> pictures{{{"\r", 0x240D},
                                           {"\v", 0x240B},
                                           {"\f", 0x240C},
                                           {"\xC2\x85", 0x2424},
                                           {"\xE2\x80\xA8", 0x21B5},
                                           {"\xE2\x80\xA9", 0x00B6}}};
    for (const Row &row : pictures) {
        if (row.terminator == terminator) {
            return QChar(row.picture);
        }
    }
    return {};
}

} // namespace lexivore
