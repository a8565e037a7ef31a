// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/primitives/membership_scan.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lexivore {

/// Where `pattern`, which is not empty, first occurs in `text`, or npos. Linear in the worst case too, unlike
/// std::string_view::find, which a text like "aaa…" makes quadratic. In UTF-8 a match never begins inside a code point.
[[nodiscard]] std::size_t findBytes(std::string_view text, std::string_view pattern);

/// Walks a text and tells where a short pattern stands, occurrences that overlap included: for patterns that occur
/// often, which it finds without beginning anew behind each.
class OccurrenceScan {
public:
    static constexpr std::size_t longestPattern = kernels::longestMarked;

    /// `pattern` has 1 to `longestPattern` bytes and must outlive it.
    OccurrenceScan(std::string_view text, std::string_view pattern);

    /// False when the text has no further stretch.
    [[nodiscard]] bool next(Stretch &stretch);

private:
    std::string_view m_pattern;
    const char *m_position;
    const char *m_end;
    std::uint64_t m_places[Stretch::mostBlocks];
};

/// Finds the places of a pattern from any place on, forwards only.
class OccurrenceFinder {
public:
    /// `pattern` is not empty and must outlive it.
    OccurrenceFinder(std::string_view text, std::string_view pattern)
        : m_pattern(pattern), m_end(text.data() + text.size()),
          m_scan(text, pattern.substr(0, OccurrenceScan::longestPattern)) {
    } // NOLINT(cppcoreguidelines-pro-type-member-init): only places that were found are read

    /// The first place at or behind `position`, which never goes back, or the end.
    [[nodiscard]] const char *from(const char *position) {
        if (m_pattern.size() > OccurrenceScan::longestPattern) {
            const std::size_t found = findBytes({position, static_cast<std::size_t>(m_end - position)}, m_pattern);
            return found == std::string_view::npos ? m_end : position + found;
        }
        while (true) {
            for (; m_next < m_count; ++m_next) {
                if (const char *const place = m_stretch.begin + m_places[m_next]; place >= position) {
                    return place;
                }
            }
            if (!m_scan.next(m_stretch)) {
                return m_end;
            }
            m_next = 0;
            m_count = kernels::best().listBits(m_stretch.members, m_stretch.blocks, m_places.data());
        }
    }

private:
    std::string_view m_pattern;
    const char *m_end;
    OccurrenceScan m_scan;
    Stretch m_stretch;
    std::size_t m_next = 0;
    std::size_t m_count = 0;
    Places m_places; ///< In the stretch.
};

} // namespace lexivore
