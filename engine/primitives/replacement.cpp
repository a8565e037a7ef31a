// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/replacement.h"

#include "engine/primitives/byte_search.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/part_replacer.h"

#include <algorithm>
#include <cstdint>

namespace lexivore {

namespace {

/// Throws TextTooLarge before gigabytes are written in vain. Counts the occurrences only when it could come to that.
void requireRoomForAll(std::string_view text, std::string_view find, std::size_t replacementSize) {
    if (replacementSize <= find.size() || text.size() / find.size() < largestText / replacementSize) {
        return;
    }
    const std::size_t growth = replacementSize - find.size();
    const std::size_t room = largestText - std::min(largestText, text.size());
    for (std::size_t left = room / growth; true; --left) {
        const std::size_t found = findBytes(text, find);
        if (found == std::string_view::npos) {
            return;
        }
        if (left == 0) {
            throw TextTooLarge();
        }
        text.remove_prefix(found + find.size());
    }
}

/// Appends what a kernel takes of the text and returns how many bytes that is.
std::size_t appendPairs(TextBuffer &result, std::string_view text, const kernels::PairEscapes &escapes) {
    constexpr std::size_t stretch = 4096;
    for (std::size_t position = 0; true;) {
        const std::size_t size = std::min(text.size() - position, stretch);
        char *to = result.room(2 * size + kernels::blockSize);
        const std::size_t read = kernels::best().escapeInPairs(text.data() + position, size, escapes, to);
        result.commit(to);
        position += read;
        if (read == 0) {
            return position;
        }
    }
}

} // namespace

TextBuffer replaceAll(std::string_view text, std::string_view find, std::string_view replacement) {
    if (find.empty()) {
        return TextBuffer(text);
    }
    requireRoomForAll(text, find, replacement.size());
    if (find.size() <= OccurrenceScan::longestPattern) {
        PartReplacer replacer(text, text.size() + text.size() / 8);
        replacer.replaceAll(find, replacement);
        return replacer.take();
    }
    TextBuffer result = TextBuffer::withCapacity(text.size());
    while (true) {
        const std::size_t found = findBytes(text, find);
        if (found == std::string_view::npos) {
            break;
        }
        result.append(text.substr(0, found));
        result.append(replacement);
        text.remove_prefix(found + find.size());
    }
    result.append(text);
    result.shrink();
    return result;
}

TextBuffer removeCharacters(std::string_view text, const kernels::AsciiSet &set) {
    TextBuffer result;
    char *const to = result.room(text.size() + kernels::blockSize);
    result.commit(to + kernels::best().removeMembers(text.data(), text.size(), set, to));
    result.shrink();
    return result;
}

TextBuffer escapeCharacters(std::string_view text, const EscapeTable &table) {
    TextBuffer result;
    if (table.pairs() != nullptr) {
        result = TextBuffer::withCapacity(text.size() + text.size() / 8);
        text.remove_prefix(appendPairs(result, text, *table.pairs()));
    }
    PartReplacer replacer(text, text.size() + text.size() / 8);
    replacer.replaceAll(MembershipScan(text, table.characters()), table.parts());
    if (result.empty()) {
        return replacer.take();
    }
    result.append(replacer.take());
    result.shrink();
    return result;
}

} // namespace lexivore
