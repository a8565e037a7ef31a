// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/membership_scan.h"
#include "engine/primitives/utf8.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lexivore {

/// A newline character of some encoding length found in a text.
struct NewlineMatch {
    const char *position = nullptr; ///< The end of the searched range when there is none.
    std::size_t length = 0;         ///< 1 for U+000A to U+000D, 2 for U+0085, 3 for U+2028 and U+2029, 0 for none.
};

/// The first character of the newline set at or behind `position`.
[[nodiscard]] NewlineMatch findNewline(const char *position, const char *end);

/// True at the beginning of the text and where a newline character ends: a line begins at `position`.
[[nodiscard]] bool isLineBegin(const char *textBegin, const char *position);

/// Where the line that `position` lies in begins. Costs the length of what stands before it in its line.
[[nodiscard]] const char *lineBeginAt(const char *textBegin, const char *position);

/// The length in bytes of the newline character that begins at `position`.
[[nodiscard]] constexpr std::size_t newlineLength(const char *position) {
    return isAscii(*position) ? 1 : static_cast<unsigned char>(*position) == 0xC2 ? 2 : 3;
}

/// Calls `visit(std::string_view)` with every line: the pieces between newline characters, without them. Never none:
/// the empty text is one empty line. CR LF gives an empty line between its two halves. Inlined for the same reason as
/// `forEachMember`.
template<typename Visit> [[gnu::always_inline]] inline void forEachLine(std::string_view text, Visit &&visit) {
    const char *lineBegin = text.data();
    forEachMember(
        MembershipScan(text, newlines, MembershipScan::Mark::firstByte), [&](const char *lineEnd) __attribute__((
                                                                             always_inline)) {
            visit(std::string_view(lineBegin, static_cast<std::size_t>(lineEnd - lineBegin)));
            lineBegin = lineEnd + newlineLength(lineEnd);
        });
    visit(std::string_view(lineBegin, static_cast<std::size_t>(text.data() + text.size() - lineBegin)));
}

/// The number of lines: one more than there are newline characters.
[[nodiscard]] std::size_t lineCount(std::string_view text);

/// The place of the newline character with that index, or the end of `text` when it has no more than `index`.
[[nodiscard]] const char *findNewlineNumber(std::string_view text, std::uint64_t index);

/// The same counted from the end, the last one having the index 0; null when `text` has no more than `index`. Costs the
/// length of what stands behind the place.
[[nodiscard]] const char *findNewlineNumberFromEnd(std::string_view text, std::uint64_t index);

/// The two below for any text.
[[nodiscard]] std::string_view trimmedSlowly(std::string_view text);
[[nodiscard]] bool isBlankSlowly(std::string_view text);

/// What most lines begin and end with: no space, and one look tells.
[[nodiscard]] constexpr bool isVisibleAscii(char byte) { return static_cast<signed char>(byte) > ' '; }

/// `text` without the spaces and tabs (the whitespace set, never line breaks) at both ends.
[[nodiscard]] inline std::string_view trimmed(std::string_view text) {
    // One space before is as common: it stands behind every sentence.
    const std::size_t begin = text.size() > 1 && text[0] == ' ' ? 1 : 0;
    return !text.empty() && isVisibleAscii(text[begin]) && isVisibleAscii(text.back()) ? text.substr(begin)
                                                                                       : trimmedSlowly(text);
}

/// True when `text` holds nothing but spaces and tabs, or nothing at all.
[[nodiscard]] inline bool isBlank(std::string_view text) {
    return text.empty() || (!isVisibleAscii(text.front()) && isBlankSlowly(text));
}

} // namespace lexivore
