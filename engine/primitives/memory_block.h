// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <utility>

namespace lexivore {

/// Memory for bytes, which are not cleared; none at first.
/// From 1 MB on it is mapped in huge pages, on their boundaries, where the system has them. Resizing such a block moves
/// its pages instead of its bytes and leaves them whole; malloc puts its blocks anywhere, and its realloc takes huge
/// pages apart that it moves elsewhere.
class MemoryBlock {
public:
    MemoryBlock() = default;
    MemoryBlock(MemoryBlock &&other) noexcept
        : m_bytes(std::exchange(other.m_bytes, nullptr)), m_capacity(std::exchange(other.m_capacity, 0)) {}
    MemoryBlock &operator=(MemoryBlock &&other) noexcept {
        std::swap(m_bytes, other.m_bytes);
        std::swap(m_capacity, other.m_capacity);
        return *this;
    }
    MemoryBlock(const MemoryBlock &) = delete;
    MemoryBlock &operator=(const MemoryBlock &) = delete;
    ~MemoryBlock() { free(); }

    [[nodiscard]] char *bytes() const { return m_bytes; }
    [[nodiscard]] std::size_t capacity() const { return m_capacity; }

    /// Whether it is so large that resizing it moves pages, where the system can do that.
    [[nodiscard]] bool isMapped() const;

    /// Makes room for at least `capacity` bytes, which is not 0, and for less than twice as many. As many of the bytes
    /// as fit stay what they are. False, and everything is as it was, when the memory cannot be had.
    [[nodiscard]] bool resize(std::size_t capacity);
    void free();

    /// How many bytes the blocks of this process have that malloc knows nothing of.
    [[nodiscard]] static std::size_t mappedBytes();

private:
    char *m_bytes = nullptr;
    std::size_t m_capacity = 0;
};

} // namespace lexivore
