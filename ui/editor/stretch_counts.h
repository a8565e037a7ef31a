// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace lexivore {

/// What a text, or a stretch of one, holds. The counts of stretches add up to those of the whole as long as each
/// stretch begins between characters, words excepted: a word cut in two is counted in both.
struct StretchCounts {
    std::size_t bytes = 0;
    std::size_t units = 0; ///< UTF-16 code units.
    std::size_t characters = 0;
    std::size_t words = 0;    ///< Pieces between whitespace and newlines.
    std::size_t newlines = 0; ///< Code points of the newline set.
    std::size_t breaks = 0;   ///< Line breaks on the screen: CR LF is one.
    std::size_t lineFeeds = 0;
    std::size_t carriageReturns = 0;
    std::size_t pairs = 0; ///< CR LF, counted neither as a line feed nor as a carriage return.

    StretchCounts &operator+=(const StretchCounts &other);
    StretchCounts &operator-=(const StretchCounts &other);
    friend bool operator==(const StretchCounts &, const StretchCounts &) = default;
};

/// Counts everything; plain ASCII at several gigabytes a second. `stretch` begins between characters.
[[nodiscard]] StretchCounts countsOf(std::string_view stretch);

/// True when the first (last) code point of `stretch` belongs to a word. False for nothing.
[[nodiscard]] bool beginsInWord(std::string_view stretch);
[[nodiscard]] bool endsInWord(std::string_view stretch);

} // namespace lexivore
