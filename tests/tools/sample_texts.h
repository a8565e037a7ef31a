// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

/// Where the random tests begin, always the same.
inline constexpr unsigned sampleSeed = 20240613;

/// Texts that trouble something that counts: empty, blank, nothing but line breaks, marks alone, broken UTF-8.
[[nodiscard]] std::vector<std::string> hostileTexts();

/// A text of up to `pieces` pieces, drawn from what the counts tell apart: words, vowels, every kind of space and line
/// break, sentence ends, marks, joiners, conjuncts, emoji.
[[nodiscard]] std::string randomText(std::mt19937 &random, std::size_t pieces);

/// Bytes of any value, with a liking for the leads of multibyte spaces and line breaks.
[[nodiscard]] std::string randomBytes(std::mt19937 &random, std::size_t size);

/// A text of 100,000,000 equal bytes.
[[nodiscard]] std::string hundredMegabytesOf(char byte);

/// Every byte that belongs to no well-formed UTF-8 sequence replaced by U+FFFD.
[[nodiscard]] std::string repaired(std::string_view bytes);

} // namespace lexivore
