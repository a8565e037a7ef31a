// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/adjacent_sets.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace lexivore {

AdjacentSetsFinder::AdjacentSetsFinder(std::string_view text, std::span<const kernels::ByteClass> sets)
    : m_sets(sets.begin(), sets.end()), m_before(sets.size() - 1), m_stretch(text.data()),
      m_end(text.data() + text.size()) {}

const char *AdjacentSetsFinder::from(const char *position) {
    const std::ptrdiff_t toLast = std::ssize(m_before);
    if (m_end - position <= toLast) {
        return m_end;
    }
    const char *const last = position + toLast;
    for (;;) {
        for (; m_block < m_blockCount; ++m_block) {
            const char *const begin = m_stretch + m_block * kernels::blockSize;
            std::uint64_t lasts = m_lasts[m_block];
            if (last > begin) {
                const std::ptrdiff_t behind = last - begin;
                lasts = behind < std::ptrdiff_t{kernels::blockSize} ? lasts & ~std::uint64_t{0} << behind : 0;
            }
            if (lasts != 0) {
                return begin + std::countr_zero(lasts) - toLast;
            }
        }
        if (!refill()) {
            return m_end;
        }
    }
}

bool AdjacentSetsFinder::refill() {
    const auto left = static_cast<std::size_t>(m_end - m_stretch);
    const std::size_t passed = std::min(left, m_blockCount * kernels::blockSize);
    m_stretch += passed;
    m_block = 0;
    m_blockCount = std::min((left - passed) / kernels::blockSize, Stretch::mostBlocks);
    if (m_blockCount > 0) {
        combine(m_stretch);
        return true;
    }
    char last[kernels::blockSize] = {};
    const std::size_t rest = left - passed;
    if (rest == 0) {
        return false;
    }
    std::memcpy(last, m_stretch, rest);
    m_blockCount = 1;
    combine(last);
    m_lasts[0] &= (std::uint64_t{1} << rest) - 1; // zeros may be members
    return true;
}

void AdjacentSetsFinder::combine(const char *bytes) {
    std::array<std::uint64_t, Stretch::mostBlocks> members;    // NOLINT(cppcoreguidelines-pro-type-member-init)
    std::array<std::uint64_t, Stretch::mostBlocks> candidates; // NOLINT(cppcoreguidelines-pro-type-member-init)
    std::fill_n(m_lasts.begin(), m_blockCount, ~std::uint64_t{0});
    for (std::size_t set = 0; set < m_sets.size(); ++set) {
        kernels::best().classify(bytes, m_blockCount, m_sets[set], members.data(), candidates.data());
        const std::size_t distance = m_sets.size() - 1 - set; // to the last one, in bytes
        std::uint64_t before = distance == 0 ? 0 : m_before[set];
        for (std::size_t i = 0; i < m_blockCount; ++i) {
            const std::uint64_t all = members[i] | candidates[i];
            m_lasts[i] &= distance == 0 ? all : all << distance | before >> (kernels::blockSize - distance);
            before = all;
        }
        if (distance > 0) {
            m_before[set] = before;
        }
    }
}

} // namespace lexivore
