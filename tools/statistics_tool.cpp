// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tools/statistics_tool.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/words.h"
#include "tools/number_text.h"
#include "tools/tool_view_factory.h"

#include <algorithm>

namespace lexivore {

namespace {

std::int64_t paragraphCount(std::string_view text) {
    constexpr std::string_view separator = "\n\n";
    std::int64_t count = 0;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(separator, begin), text.size());
        count += isBlank(text.substr(begin, end - begin)) ? 0 : 1;
        begin = end + separator.size();
    }
    return count;
}

std::string average(std::int64_t numerator, std::int64_t denominator) {
    if (denominator <= 0) {
        return "0";
    }
    return oneDecimalText(static_cast<double>(numerator) / static_cast<double>(denominator));
}

} // namespace

TextStatistics textStatistics(std::string_view text) {
    TextStatistics statistics;
    statistics.characters = static_cast<std::int64_t>(characterCount(text));
    forEachCharacter(text, [&](std::string_view character) {
        const char32_t first = decode(character.data(), character.data() + character.size()).value;
        statistics.charactersNoSpaces += isIn(property::whiteSpace, first) ? 0 : 1;
    });
    statistics.words = static_cast<std::int64_t>(pieceCount(text, whitespaceAndNewlines));
    forEachLine(text, [&](std::string_view line) {
        ++statistics.lines;
        statistics.nonEmptyLines += isBlank(line) ? 0 : 1;
    });
    forEachSentencePiece(text, [&](std::string_view piece) { statistics.sentences += isBlank(piece) ? 0 : 1; });
    statistics.paragraphs = paragraphCount(text);
    return statistics;
}

std::string charactersPerWord(const TextStatistics &statistics) {
    return average(statistics.charactersNoSpaces, statistics.words);
}

std::string wordsPerLine(const TextStatistics &statistics) {
    return average(statistics.words, statistics.nonEmptyLines);
}

std::string wordsPerSentence(const TextStatistics &statistics) {
    return average(statistics.words, statistics.sentences);
}

std::string statisticsReport(const TextStatistics &statistics) {
    return "Text Statistics\n\nCharacters: " + decimalText(statistics.characters) +
           "\nCharacters (no spaces): " + decimalText(statistics.charactersNoSpaces) +
           "\nWords: " + decimalText(statistics.words) + "\nLines: " + decimalText(statistics.lines) +
           "\nNon-empty lines: " + decimalText(statistics.nonEmptyLines) +
           "\nSentences: " + decimalText(statistics.sentences) + "\nParagraphs: " + decimalText(statistics.paragraphs) +
           "\n\nAverages:\nCharacters per word: " + charactersPerWord(statistics) +
           "\nWords per line: " + wordsPerLine(statistics) + "\nWords per sentence: " + wordsPerSentence(statistics);
}

ToolView *StatisticsTool::makeView(const Text &text, ToolViewFactory &factory) const {
    return factory.makeStatisticsView(*this, text, textStatistics(text.view()));
}

} // namespace lexivore
