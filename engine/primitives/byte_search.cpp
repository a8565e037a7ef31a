// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/byte_search.h"

#include <algorithm>
#include <cstring>

namespace lexivore {

std::size_t findBytes(std::string_view text, std::string_view pattern) {
    bool gaveUp = false;
    const std::size_t place = kernels::best().find(text.data(), text.size(), pattern.data(), pattern.size(), gaveUp);
    if (!gaveUp) {
        return place == text.size() ? std::string_view::npos : place;
    }
    // memmem is the two-way algorithm in every C library that has it: slower, but linear whatever the text.
    const void *const found = memmem(text.data() + place, text.size() - place, pattern.data(), pattern.size());
    if (found == nullptr) {
        return std::string_view::npos;
    }
    return static_cast<std::size_t>(static_cast<const char *>(found) - text.data());
}

OccurrenceScan::OccurrenceScan(std::string_view text, std::string_view pattern)
    : m_pattern(pattern), m_position(text.data()), m_end(text.data() + text.size()) {
} // NOLINT(cppcoreguidelines-pro-type-member-init): only places that were found are read

bool OccurrenceScan::next(Stretch &stretch) {
    if (m_position == m_end) {
        return false;
    }
    const auto left = static_cast<std::size_t>(m_end - m_position);
    const std::size_t overlap = m_pattern.size() - 1;
    const auto mark = [&](const char *from, std::size_t blocks) {
        kernels::best().markOccurrences(from, blocks, m_pattern.data(), m_pattern.size(), m_places);
        stretch = {m_position, m_position + std::min(left, blocks * kernels::blockSize), blocks, m_places};
    };
    if (left >= kernels::blockSize + overlap) {
        mark(m_position, std::min((left - overlap) / kernels::blockSize, Stretch::mostBlocks));
    } else {
        char last[kernels::blockSize + longestPattern] = {};
        std::memcpy(last, m_position, left);
        mark(last, 1);
        const std::size_t placesLeft = left - std::min(left, overlap);
        if (placesLeft < kernels::blockSize) { // the zeros behind the text may look like the pattern
            m_places[0] &= (std::uint64_t{1} << placesLeft) - 1;
        }
    }
    m_position = stretch.end;
    return true;
}

} // namespace lexivore
