// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace lexivore {

/// What a code point is, as bits, so that a set of code points is a mask and membership is one test.
/// The data is that of the ICU the program was built with.
enum CodePointProperty : std::uint8_t {
    letter = 1U << 0,              ///< General category L*.
    mark = 1U << 1,                ///< General category M*.
    number = 1U << 2,              ///< General category N*: digits of every script, fractions, superscripts.
    punctuation = 1U << 3,         ///< General category P*. Symbols such as "$" are none.
    whiteSpace = 1U << 4,          ///< Property White_Space, line breaks included.
    newline = 1U << 5,             ///< U+000A to U+000D, U+0085, U+2028, U+2029.
    horizontalSpace = 1U << 6,     ///< General category Zs and U+0009; never a line break.
    mayChangeInComposing = 1U << 7 ///< Not certain to stay as it is, where it is, in Normalization Form C.
};

/// A set of code points: the union of the properties whose bits are set.
using CodePointSet = std::uint8_t;

inline constexpr CodePointSet alphanumerics = letter | mark | number;
inline constexpr CodePointSet newlines = newline;
/// The set that lines are trimmed with: spaces and tabs.
inline constexpr CodePointSet whitespace = horizontalSpace;
inline constexpr CodePointSet whitespaceAndNewlines = horizontalSpace | newline;

namespace unicode_tables {
// Two stages: blocks of 128 code points that look alike share their second stage.
inline constexpr unsigned blockBits = 7;
inline constexpr unsigned blockSize = 1U << blockBits;
extern const std::uint16_t propertyBlocks[];
extern const std::uint8_t properties[];
} // namespace unicode_tables

/// The properties of `codePoint`, which is at most U+10FFFF.
[[nodiscard]] inline CodePointSet codePointProperties(char32_t codePoint) {
    using namespace unicode_tables;
    return properties[(std::size_t{propertyBlocks[codePoint >> blockBits]} << blockBits) | (codePoint & (blockSize - 1))];
}

[[nodiscard]] inline bool isIn(CodePointSet set, char32_t codePoint) {
    return (codePointProperties(codePoint) & set) != 0;
}

} // namespace lexivore
