// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace lexivore {

/// A Unicode scalar value and how many bytes it takes.
struct DecodedCodePoint {
    char32_t value = 0;
    std::size_t length = 0;
};

/// What a byte that belongs to no well-formed sequence is read as. It has no properties that anything looks for.
inline constexpr char32_t replacementCharacter = 0xFFFD;

[[nodiscard]] constexpr bool isAscii(char byte) { return (static_cast<unsigned char>(byte) & 0x80U) == 0; }
[[nodiscard]] constexpr bool isContinuationByte(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

namespace detail {

[[nodiscard]] inline DecodedCodePoint decodeMultibyte(const char *position, const char *end) {
    constexpr DecodedCodePoint illFormed{replacementCharacter, 1};
    const auto byteAt = [position](std::ptrdiff_t index) { return static_cast<unsigned char>(position[index]); };
    const auto bitsAt = [&](std::ptrdiff_t index) { return static_cast<char32_t>(byteAt(index) & 0x3FU); };
    const std::ptrdiff_t available = end - position;
    const unsigned lead = byteAt(0);
    if (lead < 0xC2 || available < 2 || !isContinuationByte(position[1])) {
        return illFormed;
    }
    if (lead < 0xE0) {
        return {((lead & 0x1FU) << 6) | bitsAt(1), 2};
    }
    if (available < 3 || !isContinuationByte(position[2])) {
        return illFormed;
    }
    if (lead < 0xF0) {
        const char32_t value = ((lead & 0x0FU) << 12) | (bitsAt(1) << 6) | bitsAt(2);
        const bool isSurrogate = (value & 0xFFFFF800U) == 0xD800U;
        return value < 0x800 || isSurrogate ? illFormed : DecodedCodePoint{value, 3};
    }
    if (lead > 0xF4 || available < 4 || !isContinuationByte(position[3])) {
        return illFormed;
    }
    const char32_t value = ((lead & 0x07U) << 18) | (bitsAt(1) << 12) | (bitsAt(2) << 6) | bitsAt(3);
    return value < 0x10000 || value > 0x10FFFF ? illFormed : DecodedCodePoint{value, 4};
}

/// Of a text of at least as many bytes as a number has: whether its first and its last ones are ASCII.
template<typename Number> [[nodiscard]] inline bool areEndsAscii(std::string_view text) {
    constexpr auto highBits = static_cast<Number>(0x8080808080808080U);
    Number first = 0;
    Number last = 0;
    std::memcpy(&first, text.data(), sizeof first);
    std::memcpy(&last, text.data() + text.size() - sizeof last, sizeof last);
    return ((first | last) & highBits) == 0;
}

} // namespace detail

/// The code point at `position`, which lies before `end`. A byte that begins no well-formed sequence (RFC 3629) counts
/// as one replacement character of one byte.
[[nodiscard]] inline DecodedCodePoint decode(const char *position, const char *end) {
    if (isAscii(*position)) {
        return {static_cast<unsigned char>(*position), 1};
    }
    return detail::decodeMultibyte(position, end);
}

/// The code point that ends at `position`, which lies behind `begin`.
[[nodiscard]] DecodedCodePoint decodeBefore(const char *begin, const char *position);

/// Writes `codePoint` at `to`, where four bytes fit, and returns the place behind it.
inline char *encode(char32_t codePoint, char *to) {
    const auto byte = [](char32_t bits) { return static_cast<char>(static_cast<unsigned char>(bits)); };
    if (codePoint < 0x80) {
        *to++ = byte(codePoint);
    } else if (codePoint < 0x800) {
        *to++ = byte(0xC0 | (codePoint >> 6));
        *to++ = byte(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        *to++ = byte(0xE0 | (codePoint >> 12));
        *to++ = byte(0x80 | ((codePoint >> 6) & 0x3F));
        *to++ = byte(0x80 | (codePoint & 0x3F));
    } else {
        *to++ = byte(0xF0 | (codePoint >> 18));
        *to++ = byte(0x80 | ((codePoint >> 12) & 0x3F));
        *to++ = byte(0x80 | ((codePoint >> 6) & 0x3F));
        *to++ = byte(0x80 | (codePoint & 0x3F));
    }
    return to;
}

/// How many of the next eight bytes are ASCII before one is not.
[[nodiscard]] inline std::ptrdiff_t asciiBytesAt(const char *position) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, position, sizeof bytes);
    if constexpr (std::endian::native == std::endian::big) {
        bytes = __builtin_bswap64(bytes);
    }
    return std::countr_zero(bytes & 0x8080808080808080U) / 8;
}

/// The end of the run of ASCII bytes that begins at `position`.
[[nodiscard]] const char *asciiRunEnd(const char *position, const char *end);

/// True when all of `text` is ASCII. Of a word it asks without a loop, whose end could not be guessed.
[[nodiscard]] inline bool isAllAscii(std::string_view text) {
    if (text.size() > 2 * sizeof(std::uint64_t)) {
        const char *const end = text.data() + text.size();
        return asciiRunEnd(text.data(), end) == end;
    }
    if (text.size() >= sizeof(std::uint64_t)) {
        return detail::areEndsAscii<std::uint64_t>(text);
    }
    if (text.size() >= sizeof(std::uint32_t)) {
        return detail::areEndsAscii<std::uint32_t>(text);
    }
    return text.empty() || (isAscii(text.front()) && isAscii(text[text.size() / 2]) && isAscii(text.back()));
}

/// RFC 3629: no overlong forms, no surrogates, nothing above U+10FFFF, nothing cut off.
[[nodiscard]] bool isValidUtf8(std::string_view text);

} // namespace lexivore
