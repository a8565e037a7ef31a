// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/scratch.h"
#include "engine/primitives/text_buffer.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

namespace lexivore {

/// Where a line lies in its text, in bytes.
struct LinePlace {
    std::uint32_t offset;
    std::uint32_t size;
};

/// The lines of a text in some order. Throws TextTooLarge when their places cannot be counted in 32 bits.
class LineOrder {
public:
    explicit LineOrder(std::string_view text);

    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] LinePlace *begin() { return m_places.data(); }
    [[nodiscard]] LinePlace *end() { return m_places.data() + m_size; }
    [[nodiscard]] const LinePlace &operator[](std::size_t index) const { return m_places[index]; }

    /// Puts the lines in ascending order of `numberOf(index)`; equal ones keep their order.
    template<typename NumberOf> void sortByNumber(NumberOf numberOf) {
        std::size_t largest = 0;
        for (std::size_t i = 0; i < m_size; ++i) {
            largest = std::max(largest, numberOf(i));
        }
        Scratch<LinePlace> sorted(m_size);
        if (largest < 2 * m_size + 1024) { // few enough different numbers to count each
            std::vector<std::size_t> places(largest + 2);
            for (std::size_t i = 0; i < m_size; ++i) {
                ++places[numberOf(i) + 1];
            }
            std::partial_sum(places.begin(), places.end(), places.begin());
            for (std::size_t i = 0; i < m_size; ++i) {
                sorted[places[numberOf(i)]++] = m_places[i];
            }
        } else {
            std::vector<std::size_t> order(m_size);
            std::iota(order.begin(), order.end(), std::size_t{0});
            std::stable_sort(order.begin(), order.end(), [&numberOf](std::size_t left, std::size_t right) {
                return numberOf(left) < numberOf(right);
            });
            std::transform(order.begin(), order.end(), sorted.data(),
                           [this](std::size_t index) { return m_places[index]; });
        }
        m_places = std::move(sorted);
    }

    /// The lines joined with a line feed.
    [[nodiscard]] TextBuffer join() const;

private:
    [[nodiscard]] std::string_view lineAt(std::size_t index) const {
        return {m_text.data() + m_places[index].offset, m_places[index].size};
    }

    std::string_view m_text;
    std::size_t m_size;
    Scratch<LinePlace> m_places;
};

} // namespace lexivore
