// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/text_buffer.h"

#include "engine/primitives/huge_pages.h"

#include <algorithm>
#include <array>
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

/// Blocks of memory that wait to be used again, two of them: a transformation may need as much for itself as for what
/// it writes. None under AddressSanitizer, which would not see mistakes in them.
class SpareBlocks {
public:
    SpareBlocks() = default;
    SpareBlocks(const SpareBlocks &) = delete;
    SpareBlocks &operator=(const SpareBlocks &) = delete;
    ~SpareBlocks() { release(); }

    /// Takes the block over, in place of a smaller one, or frees it.
    void offer(char *bytes, std::size_t capacity) {
        const std::size_t smaller = m_blocks[0].capacity <= m_blocks[1].capacity ? 0 : 1;
        Block offered;
        offered.bytes = bytes;
        offered.capacity = capacity;
        if (isWorthKeeping(capacity) && capacity > m_blocks[smaller].capacity) {
            std::swap(offered, m_blocks[smaller]);
            if (m_blocks[0].capacity + m_blocks[1].capacity > mostBytes) {
                free(m_blocks[m_blocks[0].capacity <= m_blocks[1].capacity ? 0 : 1]);
            }
        }
        free(offered);
    }

    /// One that is about as large as `bytes`; one that is smaller is enlarged, which moves its pages and leaves only
    /// the rest to be fresh. `capacity` becomes its size.
    char *take(std::size_t bytes, std::size_t &capacity) {
        Block *best = nullptr;
        for (Block &block : m_blocks) {
            const bool fits = block.bytes != nullptr && block.capacity / 2 <= bytes && block.capacity >= bytes / 2;
            if (fits && (best == nullptr || distance(block.capacity, bytes) < distance(best->capacity, bytes))) {
                best = &block;
            }
        }
        if (best == nullptr) {
            return nullptr;
        }
        if (best->capacity < bytes) {
            char *const larger = resized(best->bytes, bytes);
            if (larger == nullptr) {
                return nullptr;
            }
            *best = {larger, bytes};
        }
        capacity = best->capacity;
        return std::exchange(*best, {}).bytes;
    }

    void release() {
        for (Block &block : m_blocks) {
            free(block);
        }
    }

private:
    static constexpr std::size_t mostBytes = std::size_t{1} << 26; ///< What the program may hold without need.

    struct Block {
        char *bytes = nullptr;
        std::size_t capacity = 0;
    };

    static void free(Block &block) {
        std::free(block.bytes);
        block = {};
    }
    static constexpr bool isWorthKeeping(std::size_t capacity) {
#ifdef __SANITIZE_ADDRESS__
        return capacity == 0;
#else
        constexpr std::size_t smallest = std::size_t{1} << 20;
        return capacity >= smallest && capacity <= mostBytes;
#endif
    }
    static constexpr std::size_t distance(std::size_t left, std::size_t right) {
        return left < right ? right - left : left - right;
    }

    std::array<Block, 2> m_blocks;
};

thread_local SpareBlocks spareBlocks;

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
        spareBlocks.offer(m_bytes, m_capacity);
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

void TextBuffer::releaseSpareMemory() { spareBlocks.release(); }

void TextBuffer::grow(std::size_t bytes) {
    if (m_size > largestText || bytes > SIZE_MAX / 2) {
        throw TextTooLarge();
    }
    const std::size_t needed = m_size + bytes;
    reallocate(std::max({needed, m_capacity + m_capacity / 2, smallestCapacity}));
}

void TextBuffer::reallocate(std::size_t capacity) {
    if (m_bytes == nullptr) {
        m_bytes = spareBlocks.take(capacity, m_capacity);
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
