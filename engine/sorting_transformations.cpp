// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/sorting_transformations.h"

#include "engine/primitives/line_groups.h"
#include "engine/primitives/line_lengths.h"
#include "engine/primitives/line_mapping.h"
#include "engine/primitives/line_order.h"
#include "engine/primitives/string_order.h"
#include "engine/primitives/utf8.h"
#include "engine/primitives/word_reversal.h"
#include "engine/primitives/word_set.h"
#include "engine/primitives/words.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

namespace lexivore {

namespace {

/// Writes the lines in order, with a line feed behind each.
void writeSorted(LineWriter &writer, const LineGroups::Group &lines, SortDirection direction, bool areOrderedByBytes) {
    StringSorter sorter(lines.text, direction, lines.lineCount, areOrderedByBytes, lines.commonBytes);
    forEachLine(lines.text, [&sorter](std::string_view line) { sorter.add(line); });
    sorter.forEachInOrder(writer, [](LineWriter &to, std::string_view line) {
        to.add(line);
        to.add('\n');
    });
}

/// Many short lines are brought together with those that begin alike first: all that is looked at to sort them is in
/// the caches then. To copy long lines once more would cost more than that.
bool isWorthGrouping(std::string_view text, std::size_t lineCount) {
    constexpr std::size_t large = std::size_t{1} << 20;
    constexpr std::size_t shortLine = 48;
    return text.size() >= large && text.size() / lineCount <= shortLine;
}

TextBuffer sortLines(std::string_view text, SortDirection direction) {
    const std::size_t count = lineCount(text);
    const bool areOrderedByBytes = isOrderedByBytes(text);
    TextBuffer result;
    if (!areOrderedByBytes || !isWorthGrouping(text, count)) {
        LineWriter writer(result, text, text.size() / count);
        writeSorted(writer, {text, count, 0}, direction, areOrderedByBytes);
        result.commit(writer.end() - 1);
    } else {
        const LineGroups groups(text);
        LineWriter writer(result, groups.all(), text.size() / count);
        for (std::size_t i = 0; i < groups.size(); ++i) {
            const std::size_t index = direction == SortDirection::ascending ? i : groups.size() - 1 - i;
            writeSorted(writer, groups[index], direction, areOrderedByBytes);
        }
        result.commit(writer.end() - 1);
    }
    result.shrink();
    return result;
}

/// Counts the different words: a text of a language has few, and only they need sorting. False when most of the words
/// are different, or when different ones could be equal in the order and must keep their places.
bool countWords(WordSet &words) {
    constexpr std::size_t fewWords = 4096;
    bool isWorthIt = true;
    words.addWords([&](std::string_view word) {
        isWorthIt = (isAllAscii(word) || isOrderedByBytes(word)) && words.size() < fewWords + words.addedCount() / 2;
        return isWorthIt;
    });
    return isWorthIt;
}

/// Appends the word and the space that stands behind it that many times. A block can be read from there.
void appendTimes(TextBuffer &result, std::uint32_t times, std::string_view word) {
    using Block = std::array<char, WordSet::leastReadable>;
    constexpr std::size_t atOnce = 4;
    constexpr std::uint32_t often = 16;
    const std::size_t size = word.size() + 1;
    if (size > sizeof(Block)) {
        for (; times > 0; --times) {
            result.append({word.data(), size});
        }
        return;
    }
    Block block; // NOLINT(cppcoreguidelines-pro-type-member-init): written next
    std::memcpy(&block, word.data(), sizeof block);
    char *to = result.room(times * size + copySlack);
    char *const end = to + times * size;
    // Every copy is too long, and the next one overwrites what is too much.
    if (times > often) {
        std::array<char, copySlack + sizeof block> line; // NOLINT(cppcoreguidelines-pro-type-member-init): as above
        const std::size_t filled = copySlack / size * size;
        for (std::size_t place = 0; place < filled; place += size) {
            std::memcpy(line.data() + place, &block, sizeof block);
        }
        for (; to < end; to += filled) {
            std::memcpy(to, line.data(), copySlack);
        }
    }
    for (; to < end; to += atOnce * size) {
        for (std::size_t i = 0; i < atOnce; ++i) {
            std::memcpy(to + i * size, &block, sizeof block);
        }
    }
    result.commit(end);
}

/// The words in order, each as often as it was counted, with a space between them. `bytes` is the size of all that.
TextBuffer joinCounted(const WordSet &words, std::size_t bytes) {
    struct Record {
        std::uint32_t count;
        std::uint32_t size;
    };
    constexpr std::size_t usualRecord = 24;
    // With the word and a space behind each: what is needed together lies together.
    TextBuffer records = TextBuffer::withCapacity(words.size() * usualRecord);
    words.forEach([&records](std::string_view word, std::uint32_t count) {
        const Record record{count, static_cast<std::uint32_t>(word.size())};
        char *to = records.room(sizeof record + word.size() + 1 + WordSet::leastReadable);
        std::memcpy(to, &record, sizeof record);
        to += sizeof record;
        std::memcpy(to, word.data(), WordSet::leastReadable);
        if (word.size() > WordSet::leastReadable) {
            std::memcpy(to, word.data(), word.size());
        }
        to += word.size();
        *to = ' ';
        records.commit(to + 1);
    });
    const auto recordBefore = [](const char *word) {
        Record record{};
        std::memcpy(&record, word - sizeof record, sizeof record);
        return record;
    };
    StringSorter sorter(records, SortDirection::ascending, words.size(), true);
    for (std::size_t place = sizeof(Record); place < records.size(); place += sizeof(Record)) {
        const std::size_t size = recordBefore(records.data() + place).size;
        sorter.add({records.data() + place, size});
        place += size + 1;
    }
    TextBuffer result = TextBuffer::withCapacity(bytes + 1 + copySlack); // with a space behind the last one
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
    LineOrder lines(text);
    if (isAllAscii(text)) {
        lines.sortByNumber([&lines](std::size_t index) { return std::size_t{lines[index].size}; });
    } else {
        const std::vector<std::size_t> lengths = lineLengths(text);
        lines.sortByNumber([&lengths](std::size_t index) { return lengths[index]; });
    }
    return lines.join();
}

TextBuffer ShuffleLinesTransformation::apply(std::string_view text, const ParameterMap &) const {
    LineOrder lines(text);
    std::shuffle(lines.begin(), lines.end(), makeRandomGenerator());
    return lines.join();
}

TextBuffer SortWordsAlphabeticallyTransformation::apply(std::string_view text, const ParameterMap &) const {
    if (WordSet words(text, WordSet::Counting::on); countWords(words)) {
        return joinCounted(words, text.size());
    }
    StringSorter sorter(text, SortDirection::ascending, pieceCount(text, whitespaceAndNewlines),
                        isOrderedByBytes(text));
    forEachPiece(text, whitespaceAndNewlines, [&sorter](std::string_view word) { sorter.add(word); });
    Joiner joiner(' ', text, text.size());
    sorter.forEachInOrder([&joiner](std::string_view word) { joiner.add(word); });
    return joiner.take();
}

TextBuffer ReverseWordsInLineTransformation::apply(std::string_view text, const ParameterMap &) const {
    return withWordsReversed(text);
}

} // namespace lexivore
