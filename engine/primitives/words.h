// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/code_points.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/text_buffer.h"
#include "engine/primitives/utf8.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lexivore {

/// The first code point at or behind `position` that is in `set`, or `end`.
[[nodiscard]] const char *findMember(const char *position, const char *end, CodePointSet set);
/// The first code point at or behind `position` that is not in `set`, or `end`.
[[nodiscard]] const char *findNonMember(const char *position, const char *end, CodePointSet set);

/// Walks every longest run of code points outside `separators`: the pieces of a text cut at every separator, empty
/// pieces dropped. Most come in groups: `visitGroup(const char *from, const std::uint16_t *bounds, std::size_t count)`
/// is called with `count` of them, at least one, which lie between two `bounds` each, counted from `from` on. The
/// others go to `visit(std::string_view)`. All in order.
template<typename Visit, typename VisitGroup>
void forEachPieceGroup(std::string_view text, CodePointSet separators, Visit &&visit, VisitGroup &&visitGroup) {
    MembershipScan scan(text, separators, MembershipScan::Mark::everyByte);
    std::uint64_t before = 1; // what stands before the text separates
    std::array<std::uint64_t, Stretch::mostBlocks> changes;
    Places places; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
    const char *pieceBegin = nullptr;
    for (Stretch stretch; scan.next(stretch);) {
        for (std::size_t i = 0; i < stretch.blocks; ++i) {
            changes[i] = stretch.members[i] ^ (stretch.members[i] << 1 | before);
            before = stretch.members[i] >> (kernels::blockSize - 1);
        }
        if (const auto size = static_cast<std::size_t>(stretch.end - stretch.begin); size < kernels::blockSize) {
            changes[0] &= (std::uint64_t{1} << size) - 1;
        }
        const std::size_t count = kernels::best().listBits(changes.data(), stretch.blocks, places.data());
        std::size_t i = 0;
        if (pieceBegin != nullptr && count > 0) {
            const char *const end = stretch.begin + places[i++];
            visit(std::string_view(pieceBegin, static_cast<std::size_t>(end - pieceBegin)));
            pieceBegin = nullptr;
        }
        if (i + 1 < count) {
            visitGroup(stretch.begin, places.data() + i, (count - i) / 2);
        }
        if ((count - i) % 2 != 0) {
            pieceBegin = stretch.begin + places[count - 1];
        }
    }
    if (pieceBegin != nullptr) {
        visit(std::string_view(pieceBegin, static_cast<std::size_t>(text.data() + text.size() - pieceBegin)));
    }
}

/// The piece of a group with that index.
[[nodiscard]] inline std::string_view pieceAt(const char *from, const std::uint16_t *bounds, std::size_t index) {
    return {from + bounds[2 * index], std::size_t{bounds[2 * index + 1]} - bounds[2 * index]};
}

/// Calls `visit(std::string_view)` with every piece as above.
template<typename Visit> void forEachPiece(std::string_view text, CodePointSet separators, Visit &&visit) {
    forEachPieceGroup(text, separators, visit, [&](const char *from, const std::uint16_t *bounds, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            visit(pieceAt(from, bounds, i));
        }
    });
}

/// The pieces of `text`, empty ones dropped, with `joiner` between them.
[[nodiscard]] TextBuffer joinPieces(std::string_view text, CodePointSet separators, char joiner);

/// The number of pieces that `forEachPiece` visits.
[[nodiscard]] std::size_t pieceCount(std::string_view text, CodePointSet separators);

} // namespace lexivore
