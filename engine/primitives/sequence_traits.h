// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// What can be told of a code point from its first bytes in UTF-8, without decoding it: the quick way through texts
/// outside ASCII. For the primitives that walk or map texts; each has a complete way beside it.
namespace lexivore::sequence_traits {

inline constexpr std::uint8_t standsAlone = 1U << 0; ///< BreakClass::other: joins nothing but a Prepend before it.

/// Traits of each code point of two bytes; those that all code points share that begin with the same two of three
/// bytes, or with F0 and the same second of four.
struct Table {
    std::uint8_t two[2048] = {};
    std::uint8_t three[1024] = {};
    std::uint8_t four[64] = {};
};
[[nodiscard]] const Table &table();

/// A well-formed sequence; without traits, and of no length, when the complete way must look at it.
struct Sequence {
    std::uint32_t length = 0;
    std::uint8_t traits = 0;
    std::uint32_t bytes = 0; ///< The four bytes from its beginning, the first in the lowest eight bits.
};

/// How many bytes `at` reads.
inline constexpr std::ptrdiff_t bytesRead = 4;

/// The index of a code point of two bytes in tables of them, given its bytes.
[[nodiscard]] constexpr std::size_t indexOfTwo(std::uint32_t bytes) {
    return (bytes & 0x1FU) << 6 | (bytes >> 8 & 0x3FU);
}

/// The sequence that begins at `position`, where four bytes can be read and no ASCII stands.
[[nodiscard]] inline Sequence at(const Table &table, const char *position) {
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, position, sizeof bytes);
    if constexpr (std::endian::native == std::endian::big) {
        bytes = __builtin_bswap32(bytes);
    }
    if ((bytes & 0xC0E0U) == 0x80C0U) {
        return {2, table.two[indexOfTwo(bytes)], bytes};
    }
    if ((bytes & 0xC0C0F0U) == 0x8080E0U) {
        return {3, table.three[(bytes & 0x0FU) << 6 | (bytes >> 8 & 0x3FU)], bytes};
    }
    if ((bytes & 0xC0C0C0FFU) == 0x808080F0U) {
        return {4, table.four[bytes >> 8 & 0x3FU], bytes};
    }
    return {0, 0, bytes};
}

} // namespace lexivore::sequence_traits
