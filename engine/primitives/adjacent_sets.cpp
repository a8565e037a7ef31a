// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/adjacent_sets.h"

#include <algorithm>
#include <bit>

namespace lexivore {

AdjacentSetsFinder::AdjacentSetsFinder(std::string_view text, std::span<const kernels::AsciiSet> sets)
    : m_end(text.data() + text.size()), m_before(sets.size() - 1) {
    for (const kernels::AsciiSet &set : sets) {
        m_scans.emplace_back(text, set);
    }
    m_stretch.begin = text.data();
    m_stretch.end = text.data();
}

const char *AdjacentSetsFinder::from(const char *position) {
    const std::ptrdiff_t toLast = std::ssize(m_before);
    if (m_end - position <= toLast) {
        return m_end;
    }
    const char *const last = position + toLast;
    for (;;) {
        for (; m_block < m_stretch.blocks; ++m_block) {
            const char *const begin = m_stretch.begin + m_block * kernels::blockSize;
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
    m_block = 0;
    if (!m_scans.back().next(m_stretch)) {
        m_stretch.blocks = 0;
        return false;
    }
    std::copy_n(m_stretch.members, m_stretch.blocks, m_lasts.begin());
    for (std::size_t set = 0; set + 1 < m_scans.size(); ++set) {
        const std::size_t distance = m_scans.size() - 1 - set; // to the last one, in bytes
        Stretch stretch;
        (void)m_scans[set].next(stretch); // has as many blocks as the last one's
        std::uint64_t before = m_before[set];
        for (std::size_t i = 0; i < stretch.blocks; ++i) {
            m_lasts[i] &= stretch.members[i] << distance | before >> (kernels::blockSize - distance);
            before = stretch.members[i];
        }
        m_before[set] = before;
    }
    return true;
}

} // namespace lexivore
