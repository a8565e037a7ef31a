// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/sorting_transformations.h"

#include "engine/primitives/line_lengths.h"
#include "engine/primitives/line_mapping.h"
#include "engine/primitives/piece_set.h"
#include "engine/primitives/string_order.h"
#include "engine/primitives/words.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <random>
#include <utility>

namespace lexivore {

namespace {

/// All pieces are parts of `text`.
TextBuffer join(const std::vector<std::string_view> &pieces, char separator, std::string_view text) {
    constexpr std::size_t ahead = 32; // pieces in a new order come from anywhere in the text
    Joiner joiner(separator, text, text.size());
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i + ahead < pieces.size()) {
            __builtin_prefetch(pieces[i + ahead].data());
        }
        joiner.add(pieces[i]);
    }
    return joiner.take();
}

/// The parts of `text` in order with a separator between them.
TextBuffer join(StringSorter &sorter, char separator, std::string_view text) {
    Joiner joiner(separator, text, text.size());
    sorter.forEachInOrder([&joiner](std::string_view part) { joiner.add(part); });
    return joiner.take();
}

TextBuffer sortLines(std::string_view text, SortDirection direction) {
    StringSorter sorter(text, direction, lineCount(text));
    forEachLine(text, [&sorter](std::string_view line) { sorter.add(line); });
    return join(sorter, '\n', text);
}

/// `strings` in ascending order of the number that belongs to each; equal ones keep their order.
std::vector<std::string_view> sortedByNumber(const std::vector<std::string_view> &strings,
                                             const std::vector<std::size_t> &numbers) {
    std::vector<std::string_view> sorted(strings.size());
    const std::size_t largest = numbers.empty() ? 0 : *std::max_element(numbers.begin(), numbers.end());
    if (largest < 2 * numbers.size() + 1024) { // few enough different numbers to count each
        std::vector<std::size_t> places(largest + 2);
        for (const std::size_t number : numbers) {
            ++places[number + 1];
        }
        std::partial_sum(places.begin(), places.end(), places.begin());
        for (std::size_t i = 0; i < strings.size(); ++i) {
            sorted[places[numbers[i]]++] = strings[i];
        }
        return sorted;
    }
    std::vector<std::size_t> order(strings.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&numbers](std::size_t left, std::size_t right) { return numbers[left] < numbers[right]; });
    std::transform(order.begin(), order.end(), sorted.begin(),
                   [&strings](std::size_t index) { return strings[index]; });
    return sorted;
}

/// The different words and how often each occurs: a text of a language has few, and only they need sorting. Nothing
/// when most of the words are different, or when different ones could be equal in the order and must keep their places.
std::optional<PieceSet> countedWords(std::string_view text) {
    constexpr std::size_t fewWords = 4096;
    PieceSet words(PieceSet::Counting::yes);
    std::size_t wordCount = 0;
    bool isWorthIt = true;
    forEachPiece(text, whitespaceAndNewlines, [&](std::string_view word) {
        if (isWorthIt) {
            isWorthIt = !words.insert(word) || (isOrderedByBytes(word) && words.size() < fewWords + wordCount / 2);
            ++wordCount;
        }
    });
    return isWorthIt ? std::optional(std::move(words)) : std::nullopt;
}

/// The words in order, each as often as it was counted, with a space between them.
TextBuffer joinCounted(const PieceSet &counted, std::string_view text) {
    StringSorter sorter(text, SortDirection::ascending, counted.size());
    for (const std::string_view word : counted.pieces()) {
        sorter.add(word);
    }
    TextBuffer result = TextBuffer::withCapacity(text.size());
    sorter.forEachInOrder([&](std::string_view word) {
        for (std::size_t left = counted.countOf(word); left > 0; --left) {
            result.append(word);
            result.append(' ');
        }
    });
    result.truncate(result.empty() ? 0 : result.size() - 1);
    result.shrink();
    return result;
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
    return join(sortedByNumber(splitLines(text), lineLengths(text)), '\n', text);
}

TextBuffer ShuffleLinesTransformation::apply(std::string_view text, const ParameterMap &) const {
    std::vector<std::string_view> lines = splitLines(text);
    std::shuffle(lines.begin(), lines.end(), makeRandomGenerator());
    return join(lines, '\n', text);
}

TextBuffer SortWordsAlphabeticallyTransformation::apply(std::string_view text, const ParameterMap &) const {
    if (const std::optional<PieceSet> counted = countedWords(text)) {
        return joinCounted(*counted, text);
    }
    StringSorter sorter(text, SortDirection::ascending);
    forEachPiece(text, whitespaceAndNewlines, [&sorter](std::string_view word) { sorter.add(word); });
    return join(sorter, ' ', text);
}

TextBuffer ReverseWordsInLineTransformation::apply(std::string_view text, const ParameterMap &) const {
    TextBuffer result = TextBuffer::withCapacity(text.size());
    std::vector<std::string_view> words; // of the line
    const auto addWord = [&words](const char *begin, const char *end) {
        if (begin != end) {
            words.emplace_back(begin, static_cast<std::size_t>(end - begin));
        }
    };
    const auto appendReversed = [&]() {
        for (std::size_t left = words.size(); left > 0; --left) {
            result.append(words[left - 1]);
            if (left > 1) {
                result.append(' ');
            }
        }
        words.clear();
    };
    const char *const end = text.data() + text.size();
    const char *wordBegin = text.data();
    forEachMember(MembershipScan(text, whitespaceAndNewlines, MembershipScan::Mark::firstByte),
                  [&](const char *separator) {
                      const DecodedCodePoint decoded = decode(separator, end);
                      addWord(wordBegin, separator);
                      wordBegin = separator + decoded.length;
                      if (isIn(newlines, decoded.value)) {
                          appendReversed();
                          result.append('\n');
                      }
                  });
    addWord(wordBegin, end);
    appendReversed();
    result.shrink();
    return result;
}

} // namespace lexivore
