// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/utf8.h"

#include "engine/kernels/kernels.h"

namespace lexivore {

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
    constexpr std::ptrdiff_t wordSize = 8;
    constexpr std::ptrdiff_t shortRun = 4 * wordSize;
    const char *const shortEnd = end - position < shortRun ? end : position + shortRun;
    for (; end - position >= wordSize; position += wordSize) {
        if (position >= shortEnd && end - position >= static_cast<std::ptrdiff_t>(kernels::blockSize)) {
            return position + kernels::best().asciiPrefix(position, static_cast<std::size_t>(end - position));
        }
        if (const std::ptrdiff_t length = asciiBytesAt(position); length != wordSize) {
            return position + length;
        }
    }
    while (position != end && isAscii(*position)) {
        ++position;
    }
    return position;
}

bool isValidUtf8(std::string_view text) { return kernels::best().isValidUtf8(text.data(), text.size()); }

} // namespace lexivore
