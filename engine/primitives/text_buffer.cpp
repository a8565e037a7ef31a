// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/text_buffer.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

namespace lexivore {

namespace {

constexpr std::size_t smallestCapacity = 64;

/// Blocks of memory that wait to be used again: a transformation may need as much for itself as for what it writes.
/// None under AddressSanitizer, which would not see mistakes in them.
class SpareBlocks {
public:
    static constexpr std::size_t smallest = std::size_t{1} << 17; ///< From which on malloc maps fresh pages.

    /// Takes the block over, in place of those that have waited longest, or frees it.
    void offer(MemoryBlock block) {
        if (!isWorthKeeping(block.capacity())) {
            return;
        }
        std::size_t kept = 0;
        for (MemoryBlock &place : m_blocks) { // the latest comes first
            if (block.bytes() != nullptr) {
                std::swap(block, place);
            }
            kept += place.capacity();
            if (kept > mostBytes) {
                kept -= place.capacity();
                place.free();
            }
        }
    }

    /// The smallest that has room for `bytes`, unless it is over four times as large, or else the largest, made as
    /// large as that: what it has is warm, and only the rest is fresh. An empty block when there is none.
    MemoryBlock take(std::size_t bytes) {
        MemoryBlock *best = nullptr;
        for (MemoryBlock &block : m_blocks) {
            const bool fits = block.capacity() > 0 && block.capacity() / mostTimes <= bytes;
            if (fits && (best == nullptr || isBetter(block.capacity(), best->capacity(), bytes))) {
                best = &block;
            }
        }
        if (best == nullptr || (best->capacity() < bytes && !best->resize(bytes))) {
            return {};
        }
        return std::move(*best);
    }

    void release() { m_blocks = {}; }

private:
    static constexpr std::size_t mostTimes = 4; ///< For results grow: what is asked for first is less than they need.
    static constexpr std::size_t mostBytes = std::size_t{1} << 26; ///< What the program may hold without need.

    static constexpr bool isWorthKeeping(std::size_t capacity) {
#ifdef __SANITIZE_ADDRESS__
        return capacity == 0;
#else
        return capacity >= smallest && capacity <= mostBytes;
#endif
    }
    static constexpr bool isBetter(std::size_t capacity, std::size_t other, std::size_t bytes) {
        return capacity < bytes ? capacity > other : other < bytes || capacity < other;
    }

    std::array<MemoryBlock, 8> m_blocks;
};

thread_local SpareBlocks spareBlocks;

} // namespace

TextBuffer::TextBuffer(TextBuffer &&other) noexcept
    : m_block(std::move(other.m_block)), m_size(std::exchange(other.m_size, 0)) {}

TextBuffer &TextBuffer::operator=(TextBuffer &&other) noexcept {
    std::swap(m_block, other.m_block);
    std::swap(m_size, other.m_size);
    return *this;
}

TextBuffer::~TextBuffer() { spareBlocks.offer(std::move(m_block)); }

TextBuffer TextBuffer::withCapacity(std::size_t bytes) {
    TextBuffer buffer;
    if (bytes > 0) {
        buffer.resize(bytes);
    }
    return buffer;
}

void TextBuffer::shrink() {
    if (capacity() - m_size <= m_size / 8 + smallestCapacity) {
        return;
    }
    constexpr std::size_t quicklyCopied = std::size_t{1} << 20;
    if (m_size >= quicklyCopied) {
        (void)tryResize(m_size);
    } else if (TextBuffer smaller; m_size == 0 || smaller.tryResize(m_size)) { // all of the block waits for the next
        smaller.append(view());
        *this = std::move(smaller);
    }
}

void TextBuffer::releaseSpareMemory() { spareBlocks.release(); }

void TextBuffer::grow(std::size_t bytes) {
    if (m_size > largestText || bytes > SIZE_MAX / 2) {
        throw TextTooLarge();
    }
    const std::size_t needed = m_size + bytes;
    resize(std::max({needed, capacity() + capacity() / 2, smallestCapacity}));
}

void TextBuffer::resize(std::size_t bytes) {
    if (!tryResize(bytes)) {
        throw std::bad_alloc();
    }
}

bool TextBuffer::tryResize(std::size_t bytes) {
    if (bytes > capacity() && bytes >= SpareBlocks::smallest && !m_block.isMapped()) { // it is copied in any case
        if (MemoryBlock spare = spareBlocks.take(bytes); spare.bytes() != nullptr) {
            copyBytes(data(), size(), spare.bytes());
            m_block = std::move(spare);
            return true;
        }
    }
    return m_block.resize(bytes);
}

} // namespace lexivore
