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

/// Finds the places of a text where characters of given ASCII sets stand side by side, one of each set in the order of
/// the sets. From any place on, forwards only; at a few instructions for each set and 64 bytes.
class AdjacentSetsFinder {
public:
    /// One set at the least, and at most 64.
    AdjacentSetsFinder(std::string_view text, std::span<const kernels::AsciiSet> sets);

    /// The first place at or behind `position`, which never goes back, where the characters begin, or the end.
    [[nodiscard]] const char *from(const char *position);

private:
    /// False when the text has no further stretch.
    bool refill();

    const char *m_end;
    std::vector<MembershipScan> m_scans; ///< For each set, all of them in the same stretch.
    std::vector<std::uint64_t> m_before; ///< For each set but the last, its members in the block before the next one.
    Stretch m_stretch;
    std::size_t m_block = 0;
    std::array<std::uint64_t, Stretch::mostBlocks> m_lasts; ///< Where the last of the characters stand.
};

} // namespace lexivore
