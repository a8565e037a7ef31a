// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/huge_page_allocator.h"
#include "engine/primitives/string_keys.h"

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
    /// All parts will be of `text`, which must outlive the sorter. Throws TextTooLarge from 4 GB on.
    StringSorter(std::string_view text, SortDirection direction, std::size_t expectedParts = 0);

    void add(std::string_view part) {
        if (m_areOrderedByBytes || isOrderedByBytes(part)) {
            m_entries.push_back(m_keys.entryOf(part));
        } else {
            addComposed(part);
        }
    }

    /// Calls `visit(std::string_view)` with all parts in order. Once, when all have been added.
    template<typename Visit> void forEachInOrder(Visit &&visit) {
        sort([&](std::span<const Entry> sorted) {
            constexpr std::size_t ahead = 16; // neighbours come from anywhere in the text
            for (std::size_t i = 0; i < sorted.size(); ++i) {
                if (i + ahead < sorted.size()) {
                    m_keys.prefetch(sorted[i + ahead], 0);
                }
                visit(m_keys.partOf(sorted[i]));
            }
        });
    }

private:
    using Entry = StringKeys::Entry;

    void addComposed(std::string_view part);
    /// Calls `visit` with some entries at a time, while what they stand for is in the cache.
    void sort(const std::function<void(std::span<const Entry>)> &visit);

    StringKeys m_keys;
    HugeVector<Entry> m_entries;
    bool m_areOrderedByBytes; ///< All parts, because the text is.
};

} // namespace lexivore
