// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_boundaries.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/utf8.h"

#include <algorithm>

namespace lexivore {

namespace {

/// Far more than nearly every character; longer ones are read in growing windows.
constexpr std::size_t window = 256;

/// True when the place between two neighbouring code points is a boundary in every context. What stands further left
/// matters only behind code points that can be inside of a character and still need their beginning to be judged.
bool isCertainBoundary(std::string_view bytes, std::size_t position) {
    constexpr char32_t zeroWidthJoiner = 0x200D;
    constexpr char32_t firstRegionalIndicator = 0x1F1E6;
    constexpr char32_t lastRegionalIndicator = 0x1F1FF;
    const char *const middle = bytes.data() + position;
    if (isAscii(middle[-1]) && isAscii(*middle)) {
        return middle[-1] != '\r' || *middle != '\n';
    }
    const DecodedCodePoint before = decodeBefore(bytes.data(), middle);
    if (before.value == zeroWidthJoiner || isIn(property::mark, before.value) ||
        (before.value >= firstRegionalIndicator && before.value <= lastRegionalIndicator)) {
        return false;
    }
    const DecodedCodePoint behind = decode(middle, bytes.data() + bytes.size());
    return characterCount(bytes.substr(position - before.length, before.length + behind.length)) == 2;
}

} // namespace

std::string_view readText(const Text &text, std::size_t offset, std::size_t length, std::string &scratch) {
    std::string_view run;
    bool isCopied = false;
    text.forEachRun(offset, length, [&](std::string_view next) {
        if (run.empty()) {
            run = next;
            return;
        }
        if (!isCopied) {
            scratch.assign(run);
            isCopied = true;
        }
        scratch.append(next);
    });
    return isCopied ? std::string_view(scratch) : run;
}

std::size_t wholeCodePointsIn(std::string_view bytes, std::size_t length) {
    length = std::min(length, bytes.size());
    while (length > 0 && length < bytes.size() && isContinuationByte(bytes[length])) {
        --length;
    }
    return length;
}

std::size_t endOfBreakNumber(std::string_view bytes, std::size_t number) {
    std::size_t position = 0;
    for (; number > 0 && position < bytes.size(); --number) {
        position = endOfBreak(bytes, findNewline(bytes.data() + position, bytes.data() + bytes.size()));
    }
    return position;
}

std::size_t certainBoundaryBefore(std::string_view bytes, std::size_t begin, std::size_t position) {
    while (position > begin && position < bytes.size() && !isCertainBoundary(bytes, position)) {
        position -= decodeBefore(bytes.data() + begin, bytes.data() + position).length;
    }
    return position;
}

std::size_t characterEndIn(const Text &text, std::size_t offset) {
    std::string scratch;
    for (std::size_t length = window;; length *= 4) {
        const std::size_t available = std::min(length, text.size() - offset);
        const std::string_view bytes = readText(text, offset, available, scratch);
        const std::size_t end = characterEnd(bytes, 0);
        // An end within three bytes of the window's may be that of a code point cut in two.
        if (end + 4 < available || offset + available == text.size()) {
            return offset + end;
        }
    }
}

std::size_t boundaryAtOrBefore(const Text &text, std::size_t known, std::size_t offset) {
    if (offset >= text.size()) {
        return text.size();
    }
    if (offset <= known) {
        return known;
    }
    std::string scratch;
    // The code point that holds the offset has to be whole, and the one in front of the window does not matter.
    const std::size_t from = std::max(known, offset - std::min(offset, window));
    const std::size_t to = std::min(offset + 4, text.size());
    const std::string_view bytes = readText(text, from, to - from, scratch);
    std::size_t position = offset - from;
    while (position > 0 && isContinuationByte(bytes[position])) {
        --position;
    }
    std::size_t first = 0;
    while (first < position && from != known && isContinuationByte(bytes[first])) {
        ++first;
    }
    const std::size_t certain = certainBoundaryBefore(bytes, first, position);
    std::size_t boundary = from + certain;
    if (certain == first && from != known) {
        boundary = known;
    }
    while (true) {
        const std::size_t end = characterEndIn(text, boundary);
        if (end > offset) {
            return boundary;
        }
        boundary = end;
        if (boundary == text.size()) {
            return boundary;
        }
    }
}

TextChange differenceOf(const Text &before, const Text &after) {
    constexpr std::size_t compared = 65536;
    const std::size_t shorter = std::min(before.size(), after.size());
    std::string scratchBefore;
    std::string scratchAfter;
    std::size_t prefix = 0;
    while (prefix < shorter) {
        const std::size_t length = std::min(compared, shorter - prefix);
        const std::string_view left = readText(before, prefix, length, scratchBefore);
        const std::string_view right = readText(after, prefix, length, scratchAfter);
        if (left.data() != right.data() && left != right) {
            prefix +=
                static_cast<std::size_t>(std::mismatch(left.begin(), left.end(), right.begin()).first - left.begin());
            break;
        }
        prefix += length;
    }
    std::size_t suffix = 0;
    while (suffix < shorter - prefix) {
        const std::size_t length = std::min(compared, shorter - prefix - suffix);
        const std::string_view left = readText(before, before.size() - suffix - length, length, scratchBefore);
        const std::string_view right = readText(after, after.size() - suffix - length, length, scratchAfter);
        if (left.data() != right.data() && left != right) {
            suffix += static_cast<std::size_t>(std::mismatch(left.rbegin(), left.rend(), right.rbegin()).first -
                                               left.rbegin());
            break;
        }
        suffix += length;
    }
    // Both ends are moved outwards to where a code point begins in both texts.
    const auto beginsInside = [&](const Text &text, std::size_t offset) {
        return offset < text.size() && isContinuationByte(readText(text, offset, 1, scratchBefore).front());
    };
    while (prefix > 0 && (beginsInside(before, prefix) || beginsInside(after, prefix))) {
        --prefix;
    }
    while (suffix > 0 && beginsInside(before, before.size() - suffix)) {
        --suffix;
    }
    return {prefix, before.size() - prefix - suffix, after.size() - prefix - suffix};
}

} // namespace lexivore
