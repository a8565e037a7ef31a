// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/sorting_transformations.h"

#include "engine/primitives/line_lengths.h"
#include "engine/primitives/line_mapping.h"
#include "engine/primitives/string_order.h"
#include "engine/primitives/word_set.h"
#include "engine/primitives/words.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <random>
#include <string>

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

/// Counts the different words: a text of a language has few, and only they need sorting. False when most of the words
/// are different, or when different ones could be equal in the order and must keep their places.
bool countWords(WordSet &words, std::string_view text) {
    constexpr std::size_t fewWords = 4096;
    bool isWorthIt = isOrderedByBytes(text);
    if (isWorthIt) {
        words.addWords([&](std::string_view) {
            isWorthIt = words.size() < fewWords + words.addedCount() / 2;
            return isWorthIt;
        });
    }
    return isWorthIt;
}

/// Appends the word that many times, with a space behind each.
void appendTimes(TextBuffer &result, std::uint32_t times, std::string_view word) {
    std::array<char, 32> shortWord; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
    if (word.size() >= shortWord.size()) {
        for (; times > 0; --times) {
            result.append(word);
            result.append(' ');
        }
        return;
    }
    copyBytes(word.data(), word.size(), shortWord.data());
    shortWord[word.size()] = ' ';
    char *to = result.room(times * (word.size() + 1) + shortWord.size());
    for (; times > 0; --times) {
        std::memcpy(to, shortWord.data(), shortWord.size()); // too much, which the next one overwrites
        to += word.size() + 1;
    }
    result.commit(to);
}

/// The words in order, each as often as it was counted, with a space between them. `bytes` is the size of all that.
TextBuffer joinCounted(const WordSet &words, std::size_t bytes) {
    struct Record {
        std::uint32_t count;
        std::uint32_t size;
    };
    std::string records; // with the word behind each: what is needed together lies together
    words.forEach([&records](std::string_view word, std::uint32_t count) {
        const Record record{count, static_cast<std::uint32_t>(word.size())};
        records.append(reinterpret_cast<const char *>(&record), sizeof record);
        records += word;
    });
    const auto recordBefore = [](const char *word) {
        Record record{};
        std::memcpy(&record, word - sizeof record, sizeof record);
        return record;
    };
    StringSorter sorter(records, SortDirection::ascending, words.size());
    for (std::size_t place = sizeof(Record); place < records.size(); place += sizeof(Record)) {
        const std::size_t size = recordBefore(records.data() + place).size;
        sorter.add({records.data() + place, size});
        place += size;
    }
    TextBuffer result = TextBuffer::withCapacity(bytes + copySlack);
    sorter.forEachInOrder([&](std::string_view word) { appendTimes(result, recordBefore(word.data()).count, word); });
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
    if (WordSet words(text); countWords(words, text)) {
        return joinCounted(words, text.size());
    }
    StringSorter sorter(text, SortDirection::ascending, pieceCount(text, whitespaceAndNewlines));
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
