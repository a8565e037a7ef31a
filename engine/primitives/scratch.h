// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>

namespace lexivore {

/// Room for a fixed number of values, which are not set before they are written. Its memory comes from and goes to
/// where that of texts does: a large one takes up what the last one left.
template<typename T> class Scratch {
public:
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

    explicit Scratch(std::size_t count) {
        if (count > (SIZE_MAX / 2 - alignment) / sizeof(T)) {
            throw std::bad_array_new_length();
        }
        char *const memory = m_memory.room(count * sizeof(T) + alignment);
        const std::size_t behind = reinterpret_cast<std::uintptr_t>(memory) % alignment;
        m_values = reinterpret_cast<T *>(memory + (alignment - behind) % alignment);
    }

    [[nodiscard]] T *data() const { return m_values; }
    T &operator[](std::size_t index) const { return m_values[index]; }

private:
    static constexpr std::size_t alignment = 64; ///< That of what a cache holds at once.

    TextBuffer m_memory;
    T *m_values = nullptr;
};

} // namespace lexivore
