// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/text_buffer.h"

#include "engine/primitives/huge_page_allocator.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <utility>

namespace lexivore {

namespace {

constexpr std::size_t smallestCapacity = 64;

/// realloc; null when the memory cannot be had. Huge pages make fresh memory cheaper, and writing it.
char *resized(char *bytes, std::size_t capacity) {
    auto *const result = static_cast<char *>(std::realloc(bytes, capacity));
    if (result != nullptr && isWorthHugePages(capacity)) {
        wishForHugePages(result, capacity);
    }
    return result;
}

/// One block of memory that waits to be used again. None under AddressSanitizer, which would not see mistakes in it.
class SpareBlock {
public:
    SpareBlock() = default;
    SpareBlock(const SpareBlock &) = delete;
    SpareBlock &operator=(const SpareBlock &) = delete;
    ~SpareBlock() { std::free(m_bytes); }

    /// Takes the block over, in place of a smaller one, or frees it.
    void offer(char *bytes, std::size_t capacity) {
        if (isWorthKeeping(capacity) && capacity > m_capacity) {
            std::swap(bytes, m_bytes);
            m_capacity = capacity;
        }
        std::free(bytes);
    }

    /// The block, if it is about as large as `bytes`; one that is smaller is enlarged, which moves its pages and leaves
    /// only the rest to be fresh. `capacity` becomes its size.
    char *take(std::size_t bytes, std::size_t &capacity) {
        if (m_bytes == nullptr || m_capacity / 2 > bytes || m_capacity < bytes / 2) {
            return nullptr;
        }
        if (m_capacity < bytes) {
            char *const larger = resized(m_bytes, bytes);
            if (larger == nullptr) {
                return nullptr;
            }
            m_bytes = larger;
            m_capacity = bytes;
        }
        capacity = std::exchange(m_capacity, 0);
        return std::exchange(m_bytes, nullptr);
    }

    void release() {
        std::free(std::exchange(m_bytes, nullptr));
        m_capacity = 0;
    }

private:
    static constexpr bool isWorthKeeping(std::size_t capacity) {
#ifdef __SANITIZE_ADDRESS__
        return capacity == 0;
#else
        constexpr std::size_t smallest = std::size_t{1} << 20;
        constexpr std::size_t largest = std::size_t{1} << 26; // what the program may hold without need
        return capacity >= smallest && capacity <= largest;
#endif
    }

    char *m_bytes = nullptr;
    std::size_t m_capacity = 0;
};

thread_local SpareBlock spareBlock;

} // namespace

TextBuffer::TextBuffer(TextBuffer &&other) noexcept
    : m_bytes(std::exchange(other.m_bytes, nullptr)), m_size(std::exchange(other.m_size, 0)),
      m_capacity(std::exchange(other.m_capacity, 0)) {}

TextBuffer &TextBuffer::operator=(TextBuffer &&other) noexcept {
    std::swap(m_bytes, other.m_bytes);
    std::swap(m_size, other.m_size);
    std::swap(m_capacity, other.m_capacity);
    return *this;
}

TextBuffer::~TextBuffer() {
    if (m_bytes != nullptr) {
        spareBlock.offer(m_bytes, m_capacity);
    }
}

TextBuffer TextBuffer::withCapacity(std::size_t bytes) {
    TextBuffer buffer;
    if (bytes > 0) {
        buffer.reallocate(bytes);
    }
    return buffer;
}

void TextBuffer::shrink() {
    if (m_size == 0) {
        *this = TextBuffer();
    } else if (m_capacity - m_size > m_size / 8 + smallestCapacity) {
        reallocate(m_size);
    }
}

void TextBuffer::releaseSpareMemory() { spareBlock.release(); }

void TextBuffer::grow(std::size_t bytes) {
    if (m_size > largestText || bytes > SIZE_MAX / 2) {
        throw TextTooLarge();
    }
    const std::size_t needed = m_size + bytes;
    reallocate(std::max({needed, m_capacity + m_capacity / 2, smallestCapacity}));
}

void TextBuffer::reallocate(std::size_t capacity) {
    if (m_bytes == nullptr) {
        m_bytes = spareBlock.take(capacity, m_capacity);
        if (m_bytes != nullptr) {
            return;
        }
    }
    char *const bytes = resized(m_bytes, capacity);
    if (bytes == nullptr) {
        throw std::bad_alloc();
    }
    m_bytes = bytes;
    m_capacity = capacity;
}

} // namespace lexivore
