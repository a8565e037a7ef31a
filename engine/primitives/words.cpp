// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/words.h"

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

std::size_t pieceCount(std::string_view text, CodePointSet separators) {
    std::size_t count = 0;
    forEachPiece(text, separators, [&count](std::string_view) { ++count; });
    return count;
}

std::vector<std::string_view> splitPieces(std::string_view text, CodePointSet separators) {
    std::vector<std::string_view> pieces;
    forEachPiece(text, separators, [&pieces](std::string_view piece) { pieces.push_back(piece); });
    return pieces;
}

} // namespace lexivore
