// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/tools_reference.h"
#include "tests/tools/printing.h"
#include "tests/tools/sample_texts.h"
#include "tools/statistics_tool.h"

#include <gtest/gtest.h>

#include <string>

namespace lexivore {
namespace {

TextStatistics inOurTerms(const reference::Statistics &statistics) {
    return {statistics.characters,    statistics.charactersNoSpaces, statistics.words,     statistics.lines,
            statistics.nonEmptyLines, statistics.sentences,          statistics.paragraphs};
}

struct Case {
    const char *rule;
    std::string text;
    TextStatistics expected; ///< characters, no spaces, words, lines, non-empty lines, sentences, paragraphs
};

const Case cases[] = {
    {"nothing has one line", "", {0, 0, 0, 1, 0, 0, 0}},
    {"two words", "Hello world", {11, 10, 2, 1, 1, 1, 1}},
    {"a run of spaces makes no word", "a  b", {4, 2, 2, 1, 1, 1, 1}},
    {"spaces around make no word", "  a ", {4, 1, 1, 1, 1, 1, 1}},
    {"an empty line counts", "line1\n\nline3", {12, 10, 2, 3, 2, 1, 2}},
    {"a last line break begins a line", "a\n", {2, 1, 1, 2, 1, 1, 1}},
    {"sentences end at three marks", "Hi! How are you? Fine.", {22, 18, 5, 1, 1, 3, 1}},
    {"a line break is a sentence", "Hi!\n", {4, 3, 1, 2, 1, 2, 1}},
    {"the same after a full stop", "Hello.\n", {7, 6, 1, 2, 1, 2, 1}},
    {"dots have no sentences between them", "Wait...", {7, 7, 1, 1, 1, 1, 1}},
    {"spaces between dots are no sentence", "a. . .\t.", {8, 5, 4, 1, 1, 1, 1}},
    {"spaces alone", "   ", {3, 0, 0, 1, 0, 0, 0}},
    {"spaces and tabs are an empty line", "a\n \t \nb", {7, 2, 2, 3, 2, 1, 1}},
    {"a line break alone", "\n", {1, 0, 0, 2, 0, 1, 1}},
    {"two line feeds part two empty paragraphs", "\n\n", {2, 0, 0, 3, 0, 1, 0}},
    {"three line feeds leave one to the next paragraph", "a\n\n\nb", {5, 2, 2, 4, 2, 1, 2}},
    {"which is a paragraph alone", "a\n\n\n", {4, 1, 1, 4, 1, 1, 2}},
    {"four line feeds part twice", "a\n\n\n\nb", {6, 2, 2, 5, 2, 1, 2}},
    {"blank paragraphs do not count", " \n\na\n\n \n\n", {9, 1, 1, 7, 1, 1, 1}},
    {"a space between line feeds parts nothing", "a\n \nb", {5, 2, 2, 3, 2, 1, 1}},
    {"CR LF is one character and two newlines", "a\r\nb", {3, 2, 2, 3, 2, 1, 1}},
    {"CR LF twice parts no paragraph", "a\r\n\r\nb", {4, 2, 2, 5, 2, 1, 1}},
    {"all newline characters",
     "a\nb\vc\fd\re\xC2\x85"
     "f\xE2\x80\xA8g\xE2\x80\xA9h",
     {15, 8, 8, 8, 8, 1, 1}},
    {"a no-break space parts words and is blank",
     "a\xC2\xA0"
     "b\n\xC2\xA0",
     {5, 2, 2, 2, 1, 1, 1}},
    {"so does an ideographic space", "\xE3\x80\x80", {1, 0, 0, 1, 0, 0, 0}},
    {"a zero width space does not",
     "a\xE2\x80\x8B"
     "b",
     {3, 3, 1, 1, 1, 1, 1}},
    {"a letter with its mark is one character", "cafe\xCC\x81", {4, 4, 1, 1, 1, 1, 1}},
    {"a space with a mark is white space",
     "a \xCC\x81"
     "b",
     {3, 2, 2, 1, 1, 1, 1}},
    {"a family is one character", "👨‍👩‍👧", {1, 1, 1, 1, 1, 1, 1}},
    {"a space that a sign takes in is none", "\xD8\x80 ", {1, 1, 1, 1, 1, 1, 1}},
    {"but a line break is never taken in", "\xD8\x80\n", {2, 1, 1, 2, 1, 1, 1}},
    {"a mark alone", "\xCC\x81", {1, 1, 1, 1, 1, 1, 1}},
    {"other marks end no sentence", "一。二。", {4, 4, 1, 1, 1, 1, 1}},
};

TEST(TextStatistics, CountsByTheRuleOfEachField) {
    for (const Case &one : cases) {
        SCOPED_TRACE(one.rule);
        EXPECT_EQ(textStatistics(one.text), one.expected);
        EXPECT_EQ(inOurTerms(reference::statistics(one.text)), one.expected);
    }
}

TEST(TextStatistics, CountTheSameWhereverTheTextStandsInABlock) {
    for (const Case &one : cases) {
        SCOPED_TRACE(one.rule);
        for (std::size_t before = 1; before < 140; ++before) {
            const std::string text = std::string(before, 'x') + "\n" + one.text;
            ASSERT_EQ(textStatistics(text), inOurTerms(reference::statistics(text))) << before << " bytes before";
        }
    }
}

TEST(TextStatistics, EqualThePlainCountOnRandomText) {
    std::mt19937 random(sampleSeed);
    for (int round = 0; round < 4000; ++round) {
        const std::string text = randomText(random, 120);
        ASSERT_EQ(textStatistics(text), inOurTerms(reference::statistics(text))) << "round " << round << ": " << text;
    }
}

TEST(TextStatistics, CountLongTextsAsThePlainCountDoes) {
    std::mt19937 random(sampleSeed);
    for (int round = 0; round < 60; ++round) {
        const std::string text = randomText(random, 9000);
        ASSERT_EQ(textStatistics(text), inOurTerms(reference::statistics(text))) << "round " << round;
    }
}

TEST(TextStatistics, TakeEveryBrokenByteForOneReplacementCharacter) {
    std::mt19937 random(sampleSeed);
    std::vector<std::string> texts = hostileTexts();
    for (int round = 0; round < 3000; ++round) {
        texts.push_back(randomBytes(random, random() % 300));
    }
    for (const std::string &text : texts) {
        ASSERT_EQ(textStatistics(text), inOurTerms(reference::statistics(repaired(text))))
            << testing::PrintToString(text);
    }
}

TEST(TextStatistics, CountsAHundredMegabytesOnOneLine) {
    const std::string line = hundredMegabytesOf('a');
    EXPECT_EQ(textStatistics(line), (TextStatistics{100'000'000, 100'000'000, 1, 1, 1, 1, 1}));
}

TEST(TextStatistics, CountsAHundredMegabytesOfNewlines) {
    const std::string newlines = hundredMegabytesOf('\n');
    EXPECT_EQ(textStatistics(newlines), (TextStatistics{100'000'000, 0, 0, 100'000'001, 0, 1, 0}));
}

TEST(StatisticsAverages, HaveOneDigitAfterThePoint) {
    const TextStatistics statistics{.charactersNoSpaces = 10, .words = 3, .nonEmptyLines = 2, .sentences = 4};
    EXPECT_EQ(charactersPerWord(statistics), "3.3");
    EXPECT_EQ(wordsPerLine(statistics), "1.5");
    EXPECT_EQ(wordsPerSentence(statistics), "0.8"); // 0.75 lies between two, the even one is taken
}

TEST(StatisticsAverages, AreAPlainZeroWithoutADenominator) {
    const TextStatistics statistics{.charactersNoSpaces = 10, .words = 0, .nonEmptyLines = 0, .sentences = 0};
    EXPECT_EQ(charactersPerWord(statistics), "0");
    EXPECT_EQ(wordsPerLine(statistics), "0");
    EXPECT_EQ(wordsPerSentence(statistics), "0");
    EXPECT_EQ(charactersPerWord({.charactersNoSpaces = 1, .words = -1}), "0");
}

TEST(StatisticsAverages, AreZeroPointZeroWithoutANumerator) {
    EXPECT_EQ(wordsPerSentence({.words = 0, .sentences = 2}), "0.0");
}

TEST(StatisticsReport, OfTwoWords) {
    EXPECT_EQ(statisticsReport(textStatistics("Hello world")), "Text Statistics\n"
                                                               "\n"
                                                               "Characters: 11\n"
                                                               "Characters (no spaces): 10\n"
                                                               "Words: 2\n"
                                                               "Lines: 1\n"
                                                               "Non-empty lines: 1\n"
                                                               "Sentences: 1\n"
                                                               "Paragraphs: 1\n"
                                                               "\n"
                                                               "Averages:\n"
                                                               "Characters per word: 5.0\n"
                                                               "Words per line: 2.0\n"
                                                               "Words per sentence: 2.0");
}

TEST(StatisticsReport, OfNothing) {
    EXPECT_EQ(statisticsReport(textStatistics("")),
              "Text Statistics\n\nCharacters: 0\nCharacters (no spaces): 0\nWords: 0\nLines: 1\nNon-empty lines: 0\n"
              "Sentences: 0\nParagraphs: 0\n\nAverages:\nCharacters per word: 0\nWords per line: 0\n"
              "Words per sentence: 0");
}

TEST(StatisticsReport, GroupsNoDigits) {
    EXPECT_EQ(statisticsReport({1234567, 1000000, 2000, 3000, 4000, 5000, 9223372036854775807}),
              "Text Statistics\n\nCharacters: 1234567\nCharacters (no spaces): 1000000\nWords: 2000\nLines: 3000\n"
              "Non-empty lines: 4000\nSentences: 5000\nParagraphs: 9223372036854775807\n\nAverages:\n"
              "Characters per word: 500.0\nWords per line: 0.5\nWords per sentence: 0.4");
}

TEST(StatisticsReport, EqualsThePlainOneOnRandomText) {
    std::mt19937 random(sampleSeed);
    for (int round = 0; round < 300; ++round) {
        const std::string text = randomText(random, 60);
        ASSERT_EQ(statisticsReport(textStatistics(text)), reference::statisticsReport(reference::statistics(text)));
    }
}

} // namespace
} // namespace lexivore
