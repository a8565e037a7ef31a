// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/scratch.h"
#include "engine/primitives/string_keys.h"

#include <cassert>
#include <cstddef>
#include <functional>
#include <span>
#include <string_view>
#include <utility>

namespace lexivore {

/// True when `text` is its own composed form: strings of which this is true are ordered by their bytes. So are all
/// parts of it then.
[[nodiscard]] bool isOrderedByBytes(std::string_view text);

/// Sorts parts of a text by the code points of the canonically composed form (NFC), not by locale and with letter case
/// distinct. Stable in both directions: different parts with the same composed form keep the order they were added in.
class StringSorter {
public:
    /// All parts will be of `text`, which must outlive the sorter, and be no more than `mostParts`. The text says
    /// whether it is ordered by bytes, and only then may parts be known to begin with `commonBytes` bytes that are the
    /// same in all of them. Throws TextTooLarge from 4 GB on.
    StringSorter(std::string_view text, SortDirection direction, std::size_t mostParts, bool areOrderedByBytes,
                 std::size_t commonBytes = 0);

    void add(std::string_view part) {
        assert(m_size < m_mostParts);
        m_entries[m_size++] =
            m_areOrderedByBytes || isOrderedByBytes(part) ? m_keys.entryOf(part, m_commonBytes) : composedEntryOf(part);
    }

    /// Calls `visit(std::string_view)` with all parts in order. Once, when all have been added.
    template<typename Visit> void forEachInOrder(Visit &&visit) {
        sort([&](std::span<const Entry> sorted) { visitEach(sorted, visit); });
    }
    /// The same with `visit(To &, std::string_view)`, which is given `to`, or for some parts at a time a copy of it
    /// that stays in registers.
    template<typename To, typename Visit> void forEachInOrder(To &to, Visit &&visit) {
        sort([&](std::span<const Entry> sorted) {
            To own = to;
            visitEach(sorted, [&](std::string_view part) { visit(own, part); });
            to = own;
        });
    }

private:
    using Entry = StringKeys::Entry;

    template<typename Visit> void visitEach(std::span<const Entry> sorted, Visit &&visit) const {
        constexpr std::size_t ahead = 16; // neighbours come from anywhere in the text
        for (std::size_t i = 0; i < sorted.size(); ++i) {
            if (i + ahead < sorted.size()) {
                m_keys.prefetch(sorted[i + ahead], 0);
                m_keys.prefetch(sorted[i + ahead], sorted[i + ahead].size);
            }
            visit(m_keys.partOf(sorted[i]));
        }
    }

    [[nodiscard]] Entry composedEntryOf(std::string_view part);
    /// Calls `visit` with some entries at a time, while what they stand for is in the cache.
    void sort(const std::function<void(std::span<const Entry>)> &visit);

    StringKeys m_keys;
    Scratch<Entry> m_entries; ///< And as much room behind them, which sorting needs.
    std::size_t m_mostParts;
    std::size_t m_size = 0;
    std::size_t m_commonBytes; ///< At the beginning of each part, the same in all.
    bool m_areOrderedByBytes;  ///< All parts, because the text is.
};

} // namespace lexivore
