// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace lexivore::test {

/// Bytes in a block of the heap of their own that ends where they end, so that AddressSanitizer sees a read behind
/// them.
class PlacedBytes {
public:
    /// The bytes begin `offset` bytes behind a place aligned for anything.
    explicit PlacedBytes(std::string_view bytes, std::size_t offset = 0)
        : m_block(new char[offset + bytes.size()]), m_offset(offset), m_size(bytes.size()) {
        if (!bytes.empty()) {
            std::memcpy(m_block.get() + offset, bytes.data(), bytes.size());
        }
    }
    [[nodiscard]] std::string_view view() const { return {m_block.get() + m_offset, m_size}; }

private:
    std::unique_ptr<char[]> m_block;
    std::size_t m_offset;
    std::size_t m_size;
};

} // namespace lexivore::test
