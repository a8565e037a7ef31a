// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/code_points.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/utf8.h"
#include "engine/text_buffer.h"

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
    MembershipScan scan(text, separators, MembershipScan::Mark::everyByte);
    const char *pieceBegin = nullptr;
    std::uint64_t before = 1; // what stands before the text separates
    for (MembershipScan::Block block; scan.next(block);) {
        std::uint64_t changes = block.members ^ (block.members << 1 | before);
        before = block.members >> (kernels::blockSize - 1);
        if (block.size < kernels::blockSize) {
            changes &= (std::uint64_t{1} << block.size) - 1;
        }
        for (; changes != 0; changes &= changes - 1) {
            const char *const place = block.begin + std::countr_zero(changes);
            if (pieceBegin == nullptr) {
                pieceBegin = place;
            } else {
                visit(std::string_view(pieceBegin, static_cast<std::size_t>(place - pieceBegin)));
                pieceBegin = nullptr;
            }
        }
    }
    if (pieceBegin != nullptr) {
        visit(std::string_view(pieceBegin, static_cast<std::size_t>(text.data() + text.size() - pieceBegin)));
    }
}

/// The pieces of `text`, empty ones dropped, with `joiner` between them.
[[nodiscard]] TextBuffer joinPieces(std::string_view text, CodePointSet separators, char joiner);

/// The number of pieces that `forEachPiece` visits.
[[nodiscard]] std::size_t pieceCount(std::string_view text, CodePointSet separators);

/// The pieces as a list, lent from `text`.
[[nodiscard]] std::vector<std::string_view> splitPieces(std::string_view text, CodePointSet separators);

/// Calls `visit(std::string_view)` with what stands between the sentence terminators ".", "!" and "?": every piece,
/// empty ones included, not trimmed.
template<typename Visit> void forEachSentencePiece(std::string_view text, Visit &&visit) {
    static constexpr kernels::AsciiSet terminators(".!?");
    const char *pieceBegin = text.data();
    forEachMember(MembershipScan(text, terminators), [&](const char *pieceEnd) {
        visit(std::string_view(pieceBegin, static_cast<std::size_t>(pieceEnd - pieceBegin)));
        pieceBegin = pieceEnd + 1;
    });
    visit(std::string_view(pieceBegin, static_cast<std::size_t>(text.data() + text.size() - pieceBegin)));
}

} // namespace lexivore
