// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/replacement.h"

#include "engine/primitives/byte_search.h"
#include "engine/primitives/membership_scan.h"

#include <cstdint>

namespace lexivore {

TextBuffer replaceAll(std::string_view text, std::string_view find, std::string_view replacement) {
    if (find.empty()) {
        return TextBuffer(text);
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
    char *to = result.room(text.size() + kernels::blockSize);
    MembershipScan scan(text, set);
    for (MembershipScan::Block block; scan.next(block);) {
        if (block.size == kernels::blockSize) {
            const std::uint64_t keep = ~block.members;
            to += kernels::best().compress(block.begin, 1, &keep, to);
        } else {
            for (std::size_t i = 0; i < block.size; ++i) {
                *to = block.begin[i];
                to += ~block.members >> i & 1U;
            }
        }
    }
    result.commit(to);
    result.shrink();
    return result;
}

TextBuffer escapeCharacters(std::string_view text, const EscapeTable &table) {
    TextBuffer result = TextBuffer::withCapacity(text.size() + text.size() / 8);
    const char *plainBegin = text.data();
    const auto appendPlain = [&](const char *plainEnd) {
        result.append(std::string_view(plainBegin, static_cast<std::size_t>(plainEnd - plainBegin)));
    };
    forEachMember(MembershipScan(text, table.characters()), [&](const char *escaped) {
        appendPlain(escaped);
        result.append(table[*escaped]);
        plainBegin = escaped + 1;
    });
    appendPlain(text.data() + text.size());
    result.shrink();
    return result;
}

} // namespace lexivore
