// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/primitives/membership_scan.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace lexivore {

/// Finds the places of a text where bytes of given sets stand side by side, one of each set in the order of the sets.
/// From any place on, forwards only; at a few instructions for each set and 64 bytes.
class AdjacentSetsFinder {
public:
    /// One set at the least, and at most 64. Bytes that may begin a member outside ASCII count as members.
    AdjacentSetsFinder(std::string_view text, std::span<const kernels::ByteClass> sets);

    /// The first place at or behind `position`, which never goes back, where the bytes begin, or the end.
    [[nodiscard]] const char *from(const char *position);

private:
    /// Looks at the next stretch of the text. False when there is none.
    bool refill();
    /// Leaves of the last ones those that have the others before them.
    void combine(const char *bytes);

    std::vector<kernels::ByteClass> m_sets;
    std::vector<std::uint64_t> m_before; ///< For each set but the last, its members in the block before the next one.
    const char *m_stretch;
    const char *m_end;
    std::size_t m_blockCount = 0;
    std::size_t m_block = 0;
    std::array<std::uint64_t, Stretch::mostBlocks> m_lasts; ///< Where the last of the bytes stand.
};

} // namespace lexivore
