// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/memory_block.h"

#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <string_view>

namespace lexivore {

/// Two copies of `part` bytes, from the front and from the end, which overlap in between. `size` is at least `part`.
template<std::size_t part> inline void copyEnds(const char *from, std::size_t size, char *to) {
    char first[part];
    char last[part];
    std::memcpy(first, from, part);
    std::memcpy(last, from + size - part, part);
    std::memcpy(to, first, part);
    std::memcpy(to + size - part, last, part);
}

/// memcpy that is as fast as it can be for the few bytes of a word or a short line: two copies of one fixed size that
/// overlap take no call and no loop.
inline void copyBytes(const char *from, std::size_t size, char *to) {
    if (size > 32) {
        std::memcpy(to, from, size);
    } else if (size >= 16) {
        copyEnds<16>(from, size, to);
    } else if (size >= 8) {
        copyEnds<8>(from, size, to);
    } else if (size >= 4) {
        copyEnds<4>(from, size, to);
    } else if (size > 0) {
        to[0] = from[0];
        to[size / 2] = from[size / 2];
        to[size - 1] = from[size - 1];
    }
}

/// How many bytes behind what it copies `copyInBlocks` may read and overwrite.
inline constexpr std::size_t copySlack = 64;

/// memcpy for pieces of all sizes from a larger text: it copies 64 bytes at a time, the last of which may be more than
/// asked for, so that not every size takes a way of its own.
inline void copyInBlocks(const char *from, std::size_t size, char *to) {
    constexpr std::size_t worthACall = std::size_t{1} << 14;
    if (size > worthACall) {
        std::memcpy(to, from, size);
        return;
    }
    std::size_t copied = 0;
    do {
        std::memcpy(to + copied, from + copied, copySlack);
        copied += copySlack;
    } while (copied < size);
}

/// The same for words, sixteen bytes at a time.
inline constexpr std::size_t shortCopySlack = 16;
inline void copyInShortBlocks(const char *from, std::size_t size, char *to) {
    std::size_t copied = 0;
    do {
        std::memcpy(to + copied, from + copied, shortCopySlack);
        copied += shortCopySlack;
    } while (copied < size);
}

/// The same for a part of a text that ends at `textEnd`, behind which nothing is read.
inline void copyShortPart(std::string_view part, const char *textEnd, char *to) {
    constexpr std::size_t worthACall = 1024;
    if (static_cast<std::size_t>(textEnd - part.data()) >= part.size() + shortCopySlack && part.size() < worthACall) {
        copyInShortBlocks(part.data(), part.size(), to);
    } else {
        copyBytes(part.data(), part.size(), to);
    }
}

/// The most bytes that a text may have. The views and what they stand on count in 32-bit numbers.
inline constexpr std::size_t largestText = 0x7FFFFFFF;

/// A text was about to become larger than that.
class TextTooLarge : public std::length_error {
public:
    TextTooLarge() : std::length_error("The text would be larger than 2 GB") {}
};

/// The text that a transformation builds: UTF-8 bytes that grow at the end.
/// Unlike std::string it never clears the room that is about to be written, and growing a large one moves pages
/// instead of copying bytes. Throws std::bad_alloc when the memory cannot be had, and TextTooLarge, at the latest when
/// it grows again, when it has more bytes than a text may have.
/// The memory of the last few large ones that were given up, 64 MB at the most, is kept for the next, for fresh pages
/// cost several times what writing them does.
class TextBuffer {
public:
    TextBuffer() = default;
    explicit TextBuffer(std::string_view text) { append(text); }
    TextBuffer(TextBuffer &&other) noexcept;
    TextBuffer &operator=(TextBuffer &&other) noexcept;
    TextBuffer(const TextBuffer &) = delete;
    TextBuffer &operator=(const TextBuffer &) = delete;
    ~TextBuffer();

    [[nodiscard]] static TextBuffer withCapacity(std::size_t bytes);

    [[nodiscard]] const char *data() const { return m_block.bytes(); }
    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] std::size_t capacity() const { return m_block.capacity(); }
    [[nodiscard]] bool empty() const { return m_size == 0; }
    [[nodiscard]] std::string_view view() const { return {m_block.bytes(), m_size}; }
    operator std::string_view() const { return view(); } // NOLINT(google-explicit-constructor): it is a text

    void append(std::string_view text) {
        if (text.empty()) {
            return; // data() of an empty view may be null, which copying does not allow
        }
        copyBytes(text.data(), text.size(), room(text.size()));
        m_size += text.size();
    }
    void append(char byte) {
        *room(1) = byte;
        ++m_size;
    }

    /// Room for `bytes` more after the end, not cleared. What was written there becomes part of the text by `commit`.
    [[nodiscard, gnu::returns_nonnull]] char *room(std::size_t bytes) {
        if (bytes > capacity() - m_size || data() == nullptr) {
            grow(bytes);
        }
        return m_block.bytes() + m_size;
    }
    /// The text now ends at `end`, which lies within the room asked for last.
    void commit(const char *end) { m_size = static_cast<std::size_t>(end - m_block.bytes()); }
    /// Drops everything behind the first `size` bytes.
    void truncate(std::size_t size) { m_size = size < m_size ? size : m_size; }

    /// Gives the memory that is kept for the next large ones back to the system.
    static void releaseSpareMemory();

    /// Gives back room that was reserved but not used, when it is worth it and can be done.
    void shrink();

private:
    void grow(std::size_t bytes);
    void resize(std::size_t bytes);
    /// False, and everything is as it was, when the memory cannot be had.
    [[nodiscard]] bool tryResize(std::size_t bytes);

    MemoryBlock m_block;
    std::size_t m_size = 0;
};

inline bool operator==(const TextBuffer &left, std::string_view right) { return left.view() == right; }

} // namespace lexivore
