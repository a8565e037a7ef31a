// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/tools_reference.h"

#include "tests/reference/plain_text.h"

#include <algorithm>
#include <cstdio>

namespace lexivore::reference {

namespace {

template<typename Container> std::int64_t sizeOf(const Container &container) {
    return static_cast<std::int64_t>(container.size());
}

Pieces wordsOf(std::u32string_view text) { return withoutEmpty(split(text, isWhitespaceOrNewline)); }

std::int64_t notBlankCount(const Pieces &pieces) {
    return std::count_if(pieces.begin(), pieces.end(),
                         [](const std::u32string &piece) { return !trimmed(piece).empty(); });
}

Pieces paragraphs(std::u32string_view text) {
    Pieces result;
    while (true) {
        const std::size_t end = text.find(U"\n\n");
        result.emplace_back(text.substr(0, end));
        if (end == std::u32string_view::npos) {
            return result;
        }
        text.remove_prefix(end + 2);
    }
}

std::string oneDecimal(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

std::string average(std::int64_t numerator, std::int64_t denominator) {
    return denominator > 0 ? oneDecimal(static_cast<double>(numerator) / static_cast<double>(denominator)) : "0";
}

Duration duration(std::int64_t words, std::int64_t wordsPerMinute) {
    const std::int64_t total = words * 60 / wordsPerMinute;
    return {total / 60, total % 60};
}

struct Band {
    double from;
    const char *level;
    const char *gradeLevel;
};

Band bandOf(double score) {
    for (const Band &band : {Band{90, "Very Easy", "5th grade"}, Band{80, "Easy", "6th grade"},
                             Band{70, "Fairly Easy", "7th grade"}, Band{60, "Standard", "8th-9th grade"},
                             Band{50, "Fairly Difficult", "10th-12th grade"}, Band{30, "Difficult", "College"}}) {
        if (score >= band.from) {
            return band;
        }
    }
    return {0, "Very Difficult", "College Graduate"};
}

} // namespace

Statistics statistics(std::string_view text) {
    const std::u32string all = codePoints(text);
    const Pieces allCharacters = characters(all);
    Statistics result;
    result.characters = sizeOf(allCharacters);
    result.charactersNoSpaces =
        std::count_if(allCharacters.begin(), allCharacters.end(),
                      [](const std::u32string &character) { return !isWhitespaceCharacter(character.front()); });
    result.words = sizeOf(wordsOf(all));
    result.lines = sizeOf(lines(all));
    result.nonEmptyLines = notBlankCount(lines(all));
    result.sentences = notBlankCount(split(all, isSentenceEnd));
    result.paragraphs = notBlankCount(paragraphs(all));
    return result;
}

std::string statisticsReport(const Statistics &statistics) {
    return "Text Statistics\n\nCharacters: " + std::to_string(statistics.characters) +
           "\nCharacters (no spaces): " + std::to_string(statistics.charactersNoSpaces) +
           "\nWords: " + std::to_string(statistics.words) + "\nLines: " + std::to_string(statistics.lines) +
           "\nNon-empty lines: " + std::to_string(statistics.nonEmptyLines) +
           "\nSentences: " + std::to_string(statistics.sentences) +
           "\nParagraphs: " + std::to_string(statistics.paragraphs) +
           "\n\nAverages:\nCharacters per word: " + average(statistics.charactersNoSpaces, statistics.words) +
           "\nWords per line: " + average(statistics.words, statistics.nonEmptyLines) +
           "\nWords per sentence: " + average(statistics.words, statistics.sentences);
}

std::vector<Frequency> frequencies(std::string_view text) {
    std::vector<Frequency> result;
    for (const std::u32string &character : characters(codePoints(text))) {
        const std::string key = character == U" " ? "" : utf8(character);
        const auto entry =
            std::find_if(result.begin(), result.end(), [&](const Frequency &known) { return known.first == key; });
        if (entry == result.end()) {
            result.emplace_back(key, 1);
        } else {
            ++entry->second;
        }
    }
    std::stable_sort(result.begin(), result.end(),
                     [](const Frequency &left, const Frequency &right) { return left.second > right.second; });
    return result;
}

std::string frequencyReport(const std::vector<Frequency> &frequencies) {
    std::string report = "Character Frequency Analysis\n\n";
    for (std::size_t index = 0; index < std::min<std::size_t>(20, frequencies.size()); ++index) {
        const auto &[character, count] = frequencies[index];
        report += (index > 0 ? "\n" : "") + (character.empty() ? "Space" : character) + ": " + std::to_string(count);
    }
    return report;
}

ReadingTime readingTime(std::string_view text) {
    const std::int64_t words = sizeOf(wordsOf(codePoints(text)));
    return {words, duration(words, 200), duration(words, 150)};
}

std::string formatted(Duration duration) {
    const std::string seconds = std::to_string(duration.seconds) + "s";
    return duration.minutes < 1 ? seconds : std::to_string(duration.minutes) + "m " + seconds;
}

std::string readingTimeReport(const ReadingTime &readingTime) {
    return "Reading Time Estimate\n\nWord Count: " + std::to_string(readingTime.wordCount) +
           "\nReading Time: " + formatted(readingTime.readingTime) +
           " (~200 wpm)\nSpeaking Time: " + formatted(readingTime.speakingTime) + " (~150 wpm)";
}

std::int64_t syllableCount(std::string_view word) {
    constexpr std::u32string_view vowels = U"aeiouyAEIOUY";
    const std::u32string letters = codePoints(word);
    std::int64_t count = 0;
    bool followsVowel = false;
    for (const std::u32string &character : characters(letters)) {
        const bool isVowel = character.size() == 1 && vowels.find(character.front()) != std::u32string_view::npos;
        if (isVowel && !followsVowel) {
            ++count;
        }
        followsVowel = isVowel;
    }
    if (count >= 2 && lower(letters).ends_with(U'e')) {
        --count;
    }
    return std::max<std::int64_t>(count, 1);
}

Readability readability(std::string_view text) {
    const std::u32string all = codePoints(text);
    const Pieces words = wordsOf(all);
    Readability result;
    result.words = sizeOf(words);
    result.sentences = std::max<std::int64_t>(notBlankCount(split(all, isSentenceEnd)), 1);
    for (const std::u32string &word : words) {
        result.syllables += syllableCount(utf8(word));
    }
    if (result.words < 1) {
        return result;
    }
    const double wordsPerSentence = static_cast<double>(result.words) / static_cast<double>(result.sentences);
    const double syllablesPerWord = static_cast<double>(result.syllables) / static_cast<double>(result.words);
    result.score = std::max(std::min(206.835 - 1.015 * wordsPerSentence - 84.6 * syllablesPerWord, 100.0), 0.0);
    const Band band = bandOf(result.score);
    result.level = band.level;
    result.gradeLevel = band.gradeLevel;
    return result;
}

std::string readabilityReport(const Readability &readability) {
    return "Readability Analysis\n\nFlesch Reading Ease Score: " + oneDecimal(readability.score) +
           "\nLevel: " + readability.level + "\nGrade Level: " + readability.gradeLevel +
           "\n\nStatistics:\nWords: " + std::to_string(readability.words) +
           "\nSentences: " + std::to_string(readability.sentences) +
           "\nSyllables: " + std::to_string(readability.syllables);
}

} // namespace lexivore::reference
