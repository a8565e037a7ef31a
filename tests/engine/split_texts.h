// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/lines.h"
#include "engine/primitives/words.h"

#include <string_view>
#include <vector>

namespace lexivore {

/// All lines, lent from `text`.
inline std::vector<std::string_view> splitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    forEachLine(text, [&lines](std::string_view line) { lines.push_back(line); });
    return lines;
}

/// All pieces, lent from `text`.
inline std::vector<std::string_view> splitPieces(std::string_view text, CodePointSet separators) {
    std::vector<std::string_view> pieces;
    forEachPiece(text, separators, [&pieces](std::string_view piece) { pieces.push_back(piece); });
    return pieces;
}

/// What stands between the sentence terminators ".", "!" and "?", not trimmed, empty ones included.
inline std::vector<std::string_view> splitSentences(std::string_view text) {
    std::vector<std::string_view> sentences;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = text.find_first_of(".!?", begin)) != std::string_view::npos; begin = end + 1) {
        sentences.push_back(text.substr(begin, end - begin));
    }
    sentences.push_back(text.substr(begin));
    return sentences;
}

} // namespace lexivore
