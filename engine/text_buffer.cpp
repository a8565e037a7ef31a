// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/text_buffer.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <utility>

namespace lexivore {

namespace {

constexpr std::size_t smallestCapacity = 64;

} // namespace

TextBuffer::TextBuffer(TextBuffer &&other) noexcept
    : m_bytes(std::move(other.m_bytes)), m_size(std::exchange(other.m_size, 0)),
      m_capacity(std::exchange(other.m_capacity, 0)) {}

TextBuffer &TextBuffer::operator=(TextBuffer &&other) noexcept {
    m_bytes = std::move(other.m_bytes);
    m_size = std::exchange(other.m_size, 0);
    m_capacity = std::exchange(other.m_capacity, 0);
    return *this;
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

void TextBuffer::grow(std::size_t bytes) {
    if (bytes > SIZE_MAX / 2 - m_size) {
        throw std::bad_alloc();
    }
    const std::size_t needed = m_size + bytes;
    reallocate(std::max({needed, m_capacity + m_capacity / 2, smallestCapacity}));
}

void TextBuffer::reallocate(std::size_t capacity) {
    auto *bytes = static_cast<char *>(std::realloc(m_bytes.get(), capacity));
    if (bytes == nullptr) {
        throw std::bad_alloc();
    }
    static_cast<void>(m_bytes.release());
    m_bytes.reset(bytes);
    m_capacity = capacity;
}

} // namespace lexivore
