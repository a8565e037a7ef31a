// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/code_points.h"
#include "engine/primitives/utf8.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace lexivore {

/// The first code point at or behind `position` that is in `set`, or `end`.
[[nodiscard]] const char *findMember(const char *position, const char *end, CodePointSet set);
/// The first code point at or behind `position` that is not in `set`, or `end`.
[[nodiscard]] const char *findNonMember(const char *position, const char *end, CodePointSet set);

/// Calls `visit(std::string_view)` with every longest run of code points outside `separators`: the pieces of a text cut
/// at every separator, empty pieces dropped.
template<typename Visit> void forEachPiece(std::string_view text, CodePointSet separators, Visit &&visit) {
    const char *const end = text.data() + text.size();
    const char *position = findNonMember(text.data(), end, separators);
    while (position != end) {
        const char *const pieceEnd = findMember(position, end, separators);
        visit(std::string_view(position, static_cast<std::size_t>(pieceEnd - position)));
        position = findNonMember(pieceEnd, end, separators);
    }
}

/// The number of pieces that `forEachPiece` visits.
[[nodiscard]] std::size_t pieceCount(std::string_view text, CodePointSet separators);

/// The pieces as a list, lent from `text`.
[[nodiscard]] std::vector<std::string_view> splitPieces(std::string_view text, CodePointSet separators);

/// Calls `visit(std::string_view)` with what stands between the sentence terminators ".", "!" and "?": every piece,
/// empty ones included, not trimmed.
template<typename Visit> void forEachSentencePiece(std::string_view text, Visit &&visit) {
    std::size_t begin = 0;
    while (true) {
        const std::size_t end = text.find_first_of(".!?", begin);
        visit(text.substr(begin, end - begin));
        if (end == std::string_view::npos) {
            return;
        }
        begin = end + 1;
    }
}

} // namespace lexivore
