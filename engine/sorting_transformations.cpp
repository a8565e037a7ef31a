// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/sorting_transformations.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/line_mapping.h"
#include "engine/primitives/string_order.h"
#include "engine/primitives/words.h"

#include <algorithm>
#include <random>

namespace lexivore {

namespace {

TextBuffer join(const std::vector<std::string_view> &pieces, std::string_view separator, std::size_t expectedBytes) {
    Joiner joiner(separator, expectedBytes);
    for (const std::string_view piece : pieces) {
        joiner.add(piece);
    }
    return joiner.take();
}

TextBuffer sortLines(std::string_view text, SortDirection direction) {
    std::vector<std::string_view> lines = splitLines(text);
    sortByStringOrder(lines, direction);
    return join(lines, "\n", text.size());
}

/// Numbers from the system's random source, so that no state outlives a call.
std::mt19937_64 makeRandomGenerator() {
    std::random_device source;
    std::seed_seq seed{source(), source(), source(), source(), source(), source(), source(), source()};
    return std::mt19937_64(seed);
}

} // namespace

TextBuffer SortLinesTransformation::apply(std::string_view text, const ParameterMap &) const {
    return sortLines(text, SortDirection::ascending);
}

TextBuffer SortLinesReverseTransformation::apply(std::string_view text, const ParameterMap &) const {
    return sortLines(text, SortDirection::descending);
}

TextBuffer SortLinesByLengthTransformation::apply(std::string_view text, const ParameterMap &) const {
    struct MeasuredLine {
        std::size_t length;
        std::string_view line;
    };
    std::vector<MeasuredLine> lines;
    forEachLine(text, [&](std::string_view line) { lines.push_back({characterCount(line), line}); });
    std::stable_sort(lines.begin(), lines.end(),
                     [](const MeasuredLine &left, const MeasuredLine &right) { return left.length < right.length; });
    Joiner joiner("\n", text.size());
    for (const MeasuredLine &measured : lines) {
        joiner.add(measured.line);
    }
    return joiner.take();
}

TextBuffer ShuffleLinesTransformation::apply(std::string_view text, const ParameterMap &) const {
    std::vector<std::string_view> lines = splitLines(text);
    std::shuffle(lines.begin(), lines.end(), makeRandomGenerator());
    return join(lines, "\n", text.size());
}

TextBuffer SortWordsAlphabeticallyTransformation::apply(std::string_view text, const ParameterMap &) const {
    std::vector<std::string_view> words = splitPieces(text, whitespaceAndNewlines);
    sortByStringOrder(words, SortDirection::ascending);
    return join(words, " ", text.size());
}

TextBuffer ReverseWordsInLineTransformation::apply(std::string_view text, const ParameterMap &) const {
    TextBuffer result = TextBuffer::withCapacity(text.size());
    bool isFirstLine = true;
    std::vector<std::string_view> words;
    forEachLine(text, [&](std::string_view line) {
        if (!isFirstLine) {
            result.append('\n');
        }
        isFirstLine = false;
        words.clear();
        forEachPiece(line, whitespace, [&](std::string_view word) { words.push_back(word); });
        for (auto word = words.rbegin(); word != words.rend(); ++word) {
            if (word != words.rbegin()) {
                result.append(' ');
            }
            result.append(*word);
        }
    });
    result.shrink();
    return result;
}

} // namespace lexivore
