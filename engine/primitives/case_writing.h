// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/unicode_tables.h"

#include <cstddef>

// Full case mappings of single code points. For the primitives that map texts; everybody else calls those.
namespace lexivore {

/// The longest full mapping in bytes: three code points of at most four.
inline constexpr std::size_t longestMapping = 12;

/// The only code point whose lowercase form depends on what stands around it.
inline constexpr char32_t capitalSigma = 0x3A3;

/// Writes the full mapping of `codePoint` where `longestMapping` bytes fit, and returns the place behind it.
char *writeMapped(const unicode_tables::CaseTables &tables, char32_t codePoint, char *to);

/// What decides whether a capital sigma is a final one: the text between `begin` and `end`, or the word in it alone.
struct SigmaContext {
    enum class Extent { wholeText, word, wordJoinedOverApostrophes };

    const char *begin = nullptr;
    const char *end = nullptr;
    Extent extent = Extent::wholeText;
};

/// Condition Final_Sigma of SpecialCasing.txt for the capital sigma at `position`.
[[nodiscard]] bool isFinalSigma(const char *position, const SigmaContext &context);
/// Writes a final small sigma, which takes two bytes as the capital one does.
char *writeFinalSigma(char *to);

/// Writes the lowercase of `codePoint`, which stands at `position` in the context.
char *writeLowercase(char32_t codePoint, const char *position, const SigmaContext &context, char *to);

/// True when there is a letter, mark or number at `position`.
[[nodiscard]] bool startsWithAlphanumeric(const char *position, const char *end);

} // namespace lexivore
