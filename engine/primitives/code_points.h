// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/unicode_tables.h"

#include <cstdint>

namespace lexivore {

/// A set of code points: the union of the properties whose bits are set. Membership is one test.
using CodePointSet = std::uint8_t;

/// What a code point is. The data is that of the ICU the program was built with.
namespace property {
inline constexpr CodePointSet letter = 1U << 0;          ///< General category L*.
inline constexpr CodePointSet mark = 1U << 1;            ///< General category M*.
inline constexpr CodePointSet number = 1U << 2;          ///< General category N*: digits of every script, "½", "²".
inline constexpr CodePointSet punctuation = 1U << 3;     ///< General category P*. Symbols such as "$" are none.
inline constexpr CodePointSet whiteSpace = 1U << 4;      ///< Property White_Space, line breaks included.
inline constexpr CodePointSet newline = 1U << 5;         ///< U+000A to U+000D, U+0085, U+2028, U+2029.
inline constexpr CodePointSet horizontalSpace = 1U << 6; ///< General category Zs and U+0009; never a line break.
/// Not certain to stay as it is, where it is, in Normalization Form C.
inline constexpr CodePointSet mayChangeInComposing = 1U << 7;
} // namespace property

inline constexpr CodePointSet alphanumerics = property::letter | property::mark | property::number;
inline constexpr CodePointSet newlines = property::newline;
/// The set that lines are trimmed with: spaces and tabs.
inline constexpr CodePointSet whitespace = property::horizontalSpace;
inline constexpr CodePointSet whitespaceAndNewlines = whitespace | newlines;

/// The properties of `codePoint`, which is at most U+10FFFF.
[[nodiscard]] inline CodePointSet codePointProperties(char32_t codePoint) {
    return unicode_tables::lookUp(unicode_tables::propertyBlocks, unicode_tables::properties, codePoint);
}

[[nodiscard]] inline bool isIn(CodePointSet set, char32_t codePoint) {
    return (codePointProperties(codePoint) & set) != 0;
}

/// `isIn(newlines, codePoint)`, for which ASCII needs no table.
[[nodiscard]] inline bool isNewline(char32_t codePoint) {
    return codePoint < 0x80 ? codePoint >= 0x0A && codePoint <= 0x0D : isIn(newlines, codePoint);
}

/// One that a word may have in it.
[[nodiscard]] constexpr bool isApostrophe(char32_t codePoint) { return codePoint == U'\'' || codePoint == 0x2019; }

} // namespace lexivore
