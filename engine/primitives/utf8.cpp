// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/utf8.h"

#include "engine/kernels/kernels.h"

namespace lexivore {

namespace detail {

DecodedCodePoint decodeMultibyte(const char *position, const char *end) {
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

} // namespace detail

DecodedCodePoint decodeBefore(const char *begin, const char *position) {
    const char *start = position - 1;
    for (std::ptrdiff_t back = 1; back <= 4 && position - back >= begin; ++back) {
        start = position - back;
        if (!isContinuationByte(*start)) {
            break;
        }
    }
    const DecodedCodePoint decoded = decode(start, position);
    const bool endsHere = decoded.length == static_cast<std::size_t>(position - start);
    return endsHere ? decoded : DecodedCodePoint{replacementCharacter, 1};
}

const char *asciiRunEnd(const char *position, const char *end) {
    // Most runs in texts of other scripts are a single space: not worth a call.
    constexpr std::ptrdiff_t shortRun = 16;
    const char *const shortEnd = end - position < shortRun ? end : position + shortRun;
    while (position != shortEnd && isAscii(*position)) {
        ++position;
    }
    if (position != shortEnd || position == end) {
        return position;
    }
    return position + kernels::best().asciiPrefix(position, static_cast<std::size_t>(end - position));
}

bool isValidUtf8(std::string_view text) {
    const char *position = text.data();
    const char *const end = position + text.size();
    while ((position = asciiRunEnd(position, end)) != end) {
        const DecodedCodePoint decoded = decode(position, end);
        if (decoded.length == 1) {
            return false;
        }
        position += decoded.length;
    }
    return true;
}

} // namespace lexivore
