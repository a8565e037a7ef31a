// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace lexivore {

/// How many bits are set: std::popcount is a call where not every processor has an instruction for it. Neighbouring
/// sums are added up, all at once (Warren, Hacker's Delight, 5-1).
[[nodiscard]] constexpr std::size_t bitCount(std::uint64_t bits) {
    bits -= bits >> 1 & 0x5555555555555555;
    bits = (bits & 0x3333333333333333) + (bits >> 2 & 0x3333333333333333);
    bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0F;
    return bits * 0x0101010101010101 >> 56;
}

/// Adds up how many bits are set in many masks.
class BitTally {
public:
    void add(std::uint64_t bits) {
        if (m_size == m_masks.size()) {
            flush();
        }
        m_masks[m_size++] = bits;
    }
    [[nodiscard]] std::size_t count() {
        flush();
        return m_count;
    }

private:
    void flush() {
        m_count += kernels::best().countBits(m_masks.data(), m_size);
        m_size = 0;
    }

    std::array<std::uint64_t, 64>
        m_masks; // NOLINT(cppcoreguidelines-pro-type-member-init): only what was added is read
    std::size_t m_size = 0;
    std::size_t m_count = 0;
};

} // namespace lexivore
