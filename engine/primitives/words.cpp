// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/words.h"

#include "engine/primitives/bit_tally.h"

namespace lexivore {

const char *findMember(const char *position, const char *end, CodePointSet set) {
    while (position != end) {
        const DecodedCodePoint decoded = decode(position, end);
        if (isIn(set, decoded.value)) {
            break;
        }
        position += decoded.length;
    }
    return position;
}

const char *findNonMember(const char *position, const char *end, CodePointSet set) {
    while (position != end) {
        const DecodedCodePoint decoded = decode(position, end);
        if (!isIn(set, decoded.value)) {
            break;
        }
        position += decoded.length;
    }
    return position;
}

TextBuffer joinPieces(std::string_view text, CodePointSet separators, char joiner) {
    TextBuffer result;
    char *to = result.room(text.size() + kernels::blockSize);
    std::uint64_t before = 1; // what stands before the text separates
    MembershipScan scan(text, separators, MembershipScan::Mark::everyByte);
    for (MembershipScan::Block block; scan.next(block);) {
        // Of each run of separators the first byte stays and becomes the joiner.
        const std::uint64_t keep = ~(block.members & (block.members << 1 | before));
        before = block.members >> (kernels::blockSize - 1);
        if (block.size == kernels::blockSize) {
            to += kernels::best().compressReplacing(block.begin, 1, &keep, &block.members, joiner, to);
        } else {
            for (std::size_t i = 0; i < block.size; ++i) {
                *to = (block.members >> i & 1U) != 0 ? joiner : block.begin[i];
                to += keep >> i & 1U;
            }
            before = block.members >> (block.size - 1) & 1U;
        }
    }
    result.commit(to);
    if (before != 0 && !result.empty()) {
        result.truncate(result.size() - 1); // the joiner of a piece that does not come
    }
    result.shrink();
    return result;
}

std::size_t pieceCount(std::string_view text, CodePointSet separators) {
    std::size_t count = 0;
    std::uint64_t before = 1; // what stands before the text separates
    MembershipScan scan(text, separators, MembershipScan::Mark::everyByte);
    for (MembershipScan::Block block; scan.next(block);) {
        const std::uint64_t begins = ~block.members & (block.members << 1 | before);
        const std::uint64_t inText = ~std::uint64_t{0} >> (kernels::blockSize - block.size);
        count += bitCount(begins & inText);
        before = block.members >> (kernels::blockSize - 1);
    }
    return count;
}

} // namespace lexivore
