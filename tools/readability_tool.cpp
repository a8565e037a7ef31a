// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tools/readability_tool.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/text_counts.h"
#include "engine/primitives/words.h"
#include "tools/number_text.h"
#include "tools/tool_view_factory.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace lexivore {

namespace {

double readingEase(double words, double sentences, double syllables) {
    return 206.835 - 1.015 * (words / sentences) - 84.6 * (syllables / words);
}

/// 1 for each vowel, otherwise 0.
constexpr std::array<unsigned char, 256> isVowel = [] {
    std::array<unsigned char, 256> table{};
    for (const char vowel : std::string_view("aeiouyAEIOUY")) {
        table[static_cast<unsigned char>(vowel)] = 1;
    }
    return table;
}();

std::int64_t vowelRuns(std::string_view word) {
    std::int64_t count = 0;
    unsigned followsVowel = 0;
    const auto add = [&](unsigned isOne) {
        count += isOne & ~followsVowel;
        followsVowel = isOne;
    };
    unsigned allBytes = 0;
    for (const char character : word) {
        const auto byte = static_cast<unsigned char>(character);
        add(isVowel[byte]);
        allBytes |= byte;
    }
    // Of ASCII every byte is a character, but for CR LF, which is no vowel either way.
    if (allBytes < 0x80 || count == 0) {
        return count;
    }
    count = followsVowel = 0;
    forEachCharacter(word, [&](std::string_view character) {
        add(character.size() == 1 ? isVowel[static_cast<unsigned char>(character.front())] : 0U);
    });
    return count;
}

} // namespace

std::int64_t syllableCount(std::string_view word) {
    const std::int64_t count = vowelRuns(word);
    // Nothing but these two lowercases to something that ends with "e".
    const bool endsWithE = word.ends_with('e') || word.ends_with('E');
    return std::max<std::int64_t>(endsWithE && count >= 2 ? count - 1 : count, 1);
}

const ReadabilityBand &readabilityBand(double score) {
    return *std::find_if(readabilityBands.rbegin(), std::prev(readabilityBands.rend()),
                         [score](const ReadabilityBand &band) { return score >= band.lowestScore; });
}

Readability readability(std::string_view text) {
    Readability result;
    forEachPiece(text, whitespaceAndNewlines, [&](std::string_view word) {
        ++result.words;
        result.syllables += syllableCount(word); // in all at most the number of bytes
    });
    const auto sentences = static_cast<std::int64_t>(countText(text).nonBlankSentences);
    result.sentences = std::max<std::int64_t>(sentences, 1);
    if (result.words < 1) {
        return result;
    }
    const double score = readingEase(static_cast<double>(result.words), static_cast<double>(result.sentences),
                                     static_cast<double>(result.syllables));
    result.score = std::clamp(score, 0.0, 100.0);
    const ReadabilityBand &band = readabilityBand(result.score);
    result.level = band.level;
    result.gradeLevel = band.gradeLevel;
    return result;
}

std::string readabilityReport(const Readability &readability) {
    return "Readability Analysis\n\nFlesch Reading Ease Score: " + oneDecimalText(readability.score) +
           "\nLevel: " + readability.level + "\nGrade Level: " + readability.gradeLevel +
           "\n\nStatistics:\nWords: " + decimalText(readability.words) +
           "\nSentences: " + decimalText(readability.sentences) + "\nSyllables: " + decimalText(readability.syllables);
}

ToolView *ReadabilityTool::makeView(const Text &text, ToolViewFactory &factory) const {
    return factory.makeReadabilityView(*this, text);
}

} // namespace lexivore
