// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/lines.h"
#include "engine/text.h"
#include "ui/editor/text_change.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace lexivore {

/// The bytes of a range as one run: lent from the text when it keeps them so, else copied to `scratch`.
[[nodiscard]] std::string_view readText(const Text &text, std::size_t offset, std::size_t length, std::string &scratch);

/// `length`, or less: a code point that would be cut there is left out. At most all of `bytes`.
[[nodiscard]] std::size_t wholeCodePointsIn(std::string_view bytes, std::size_t length);

/// The end of the line break that `newline`, found in `bytes`, is or begins: CR LF is one. The end of `bytes` when none
/// was found.
[[nodiscard]] inline std::size_t endOfBreak(std::string_view bytes, const NewlineMatch &newline) {
    const auto end = static_cast<std::size_t>(newline.position - bytes.data()) + newline.length;
    const bool isPair = newline.length == 1 && *newline.position == '\r' && end < bytes.size() && bytes[end] == '\n';
    return isPair ? end + 1 : end;
}

/// The end of line break number `number`, counted from 1; the end of `bytes` when there are fewer. 0 for number 0.
[[nodiscard]] std::size_t endOfBreakNumber(std::string_view bytes, std::size_t number);

/// The last place in [begin, position] at which characters are certain to be cut whatever stands in front of it;
/// `begin`, which must be a boundary, when there is none. `position` lies between code points of `bytes`.
[[nodiscard]] std::size_t certainBoundaryBefore(std::string_view bytes, std::size_t begin, std::size_t position);

/// The end of the character that begins at `offset`, which is a boundary before the end of the text.
[[nodiscard]] std::size_t characterEndIn(const Text &text, std::size_t offset);

/// The last boundary at or before `offset`. `known` is a boundary at or before it; near is better, but costs nothing
/// when a certain boundary is nearer.
[[nodiscard]] std::size_t boundaryAtOrBefore(const Text &text, std::size_t known, std::size_t offset);

/// The change that makes `after` of `before`, between code points. Costs a comparison of the bytes they do not share.
[[nodiscard]] TextChange differenceOf(const Text &before, const Text &after);

} // namespace lexivore
