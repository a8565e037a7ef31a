// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/line_mapping.h"

#include "engine/primitives/membership_scan.h"
#include "engine/primitives/part_replacer.h"

#include <algorithm>
#include <cstring>

namespace lexivore {

namespace {

/// Throws TextTooLarge before gigabytes are written in vain. Counts the lines only when it could come to that.
void requireRoomForAll(std::string_view text, std::string_view separator) {
    if (separator.size() > 1 && text.size() > largestText / separator.size() &&
        lineCount(text) - 1 > largestText / separator.size()) {
        throw TextTooLarge();
    }
}

} // namespace

TextBuffer joinLines(std::string_view text, std::string_view separator, std::string_view before,
                     std::string_view behind) {
    requireRoomForAll(text, separator);
    PartReplacer replacer(text, text.size() + text.size() / 8, before);
    MembershipScan scan(text, newlines, MembershipScan::Mark::firstByte);
    if (separator.size() == 1) {
        scan.ignore(separator[0]); // it stands where it should already
    }
    replacer.replaceAll(scan, newlineLength, separator);
    return replacer.take(behind);
}

namespace {

/// As `copyInBlocks`, but from the end: up to `copySlack` bytes before both places are read and overwritten.
void copyInBlocksBefore(const char *fromEnd, std::size_t size, char *toEnd) {
    std::size_t copied = 0;
    do {
        copied += copySlack;
        std::memcpy(toEnd - copied, fromEnd - copied, copySlack);
    } while (copied < size);
}

} // namespace

TextBuffer reverseLines(std::string_view text) {
    // The lines are written from the end of the result to its beginning, and what is copied too much of one is
    // overwritten by the next.
    TextBuffer result;
    char *const resultBegin = result.room(text.size());
    char *const resultEnd = resultBegin + text.size();
    char *to = resultEnd;
    forEachLine(text, [&](std::string_view line) {
        constexpr std::size_t worthACall = 1024;
        const std::size_t size = line.size();
        const char *const lineEnd = line.data() + size;
        if (line.data() != text.data()) {
            *--to = '\n';
        }
        const auto roomBefore = static_cast<std::size_t>(std::min(to - resultBegin, lineEnd - text.data()));
        if (size < worthACall && roomBefore >= size + copySlack) {
            copyInBlocksBefore(lineEnd, size, to);
        } else if (size > 0) {
            std::memcpy(to - size, line.data(), size);
        }
        to -= size;
    });
    if (to != resultBegin) { // newline characters of several bytes became one each
        std::memmove(resultBegin, to, static_cast<std::size_t>(resultEnd - to));
    }
    result.commit(resultBegin + (resultEnd - to));
    result.shrink();
    return result;
}

} // namespace lexivore
