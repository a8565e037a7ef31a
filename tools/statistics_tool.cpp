// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tools/statistics_tool.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/text_counts.h"
#include "tools/number_text.h"
#include "tools/tool_view_factory.h"

namespace lexivore {

namespace {

std::string average(std::int64_t numerator, std::int64_t denominator) {
    if (denominator <= 0) {
        return "0";
    }
    return oneDecimalText(static_cast<double>(numerator) / static_cast<double>(denominator));
}

} // namespace

TextStatistics textStatistics(std::string_view text) {
    const auto [characters, mayTakeInSpaces] = countCharacters(text);
    const TextCounts counts = countText(text, mayTakeInSpaces ? Spaces::mayBeTakenIn : Spaces::standAlone);
    return {
        .characters = static_cast<std::int64_t>(characters),
        .charactersNoSpaces = static_cast<std::int64_t>(characters - counts.whitespaceCharacters),
        .words = static_cast<std::int64_t>(counts.words),
        .lines = static_cast<std::int64_t>(counts.lines),
        .nonEmptyLines = static_cast<std::int64_t>(counts.nonBlankLines),
        .sentences = static_cast<std::int64_t>(counts.nonBlankSentences),
        .paragraphs = static_cast<std::int64_t>(counts.nonBlankParagraphs),
    };
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
