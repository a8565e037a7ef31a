// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/tools_reference.h"
#include "tests/tools/printing.h"
#include "tests/tools/sample_texts.h"
#include "tools/readability_tool.h"

#include <gtest/gtest.h>

#include <string>

namespace lexivore {
namespace {

TEST(SyllableCount, CountsTheRunsOfVowels) {
    const struct {
        const char *word;
        std::int64_t syllables;
    } cases[] = {
        {"the", 1},    // one run; nothing to take off
        {"make", 1},   // two runs less the silent e
        {"MAKE", 1},   // the same in capitals
        {"be", 1},     // one run stays one
        {"rhythm", 1}, // "y" is a vowel
        {"queue", 1},  // one run
        {"Hello", 2},
        {"world", 1},
        {"hmm", 1}, // no vowel at all
        {"1234", 1},
        {"...", 1},
        {"", 1},
        {"time.", 2}, // punctuation keeps the e
        {"(time)", 2},
        {"yYy", 1},
        {"banana", 3},
        {"committee", 2},    // "ee" is the last of three runs
        {"naïve", 1},        // "a", "e": the accented letter is none; less the silent e
        {"cafe\xCC\x81", 1}, // "e" with a mark is another character
        {"cafe\xCC\x81"
         "e",
         1}, // it parts no run of its own: "a", "e" less the silent e
        {"ae\xCC\x81"
         "a",
         2}, // but it ends one
        {"a\xE2\x80\x8D"
         "a",
         1}, // a joiner makes another character of the first
        {"\xD8\x80"
         "aba",
         1}, // and a prepended sign of the second
        {"ba-be-bi", 3},
        {"a\xFF"
         "a",
         2}, // a broken byte is a character that is no vowel
    };
    for (const auto &one : cases) {
        EXPECT_EQ(syllableCount(one.word), one.syllables) << one.word;
        EXPECT_EQ(reference::syllableCount(repaired(one.word)), one.syllables) << one.word;
    }
}

TEST(SyllableCount, EqualsThePlainOneOnRandomWords) {
    std::mt19937 random(sampleSeed);
    for (int round = 0; round < 20000; ++round) {
        const std::string word = randomText(random, 12);
        ASSERT_EQ(syllableCount(word), reference::syllableCount(word)) << testing::PrintToString(word);
    }
}

TEST(Readability, OfTwoWords) {
    const Readability result = readability("Hello world");
    EXPECT_EQ(result.words, 2);
    EXPECT_EQ(result.sentences, 1);
    EXPECT_EQ(result.syllables, 3);
    EXPECT_NEAR(result.score, 77.905, 1e-9);
    EXPECT_EQ(result.level, "Fairly Easy");
    EXPECT_EQ(result.gradeLevel, "7th grade");
}

TEST(Readability, OfNoWordsIsEmpty) {
    const Readability nothing{.score = 0.0, .level = "", .gradeLevel = "", .words = 0, .sentences = 1, .syllables = 0};
    EXPECT_EQ(readability(""), nothing);
    EXPECT_EQ(readability(" \t"), nothing);
    EXPECT_EQ(readability("\n"), nothing);
}

TEST(Readability, CountsSentencesOfWordlessTexts) {
    EXPECT_EQ(readability("\n.\n").sentences, 2);
    EXPECT_EQ(readability("\n.\n").words, 1); // the dot
    EXPECT_EQ(readability("...").sentences, 1);
}

TEST(Readability, OfATextWithoutSentenceEndsHasOneSentence) { EXPECT_EQ(readability("one two three").sentences, 1); }

TEST(Readability, IsAtMostAHundred) {
    const Readability result = readability("I am. So it is. Go on.");
    EXPECT_EQ(result.score, 100.0);
    EXPECT_EQ(result.level, "Very Easy");
    EXPECT_EQ(result.gradeLevel, "5th grade");
}

TEST(Readability, IsAtLeastZero) {
    std::string text;
    for (int i = 0; i < 60; ++i) {
        text += "internationalization ";
    }
    const Readability result = readability(text + ".");
    EXPECT_EQ(result.score, 0.0);
    EXPECT_FALSE(std::signbit(result.score));
    EXPECT_EQ(result.level, "Very Difficult");
    EXPECT_EQ(result.gradeLevel, "College Graduate");
    EXPECT_NE(readabilityReport(result).find("Score: 0.0\nLevel: Very Difficult\nGrade Level: College Graduate\n"),
              std::string::npos);
}

TEST(Readability, HasABandForEveryScore) {
    const struct {
        double score;
        const char *level;
        const char *gradeLevel;
    } cases[] = {
        {100.0, "Very Easy", "5th grade"},
        {90.0, "Very Easy", "5th grade"},
        {89.999, "Easy", "6th grade"},
        {80.0, "Easy", "6th grade"},
        {79.999, "Fairly Easy", "7th grade"},
        {70.0, "Fairly Easy", "7th grade"},
        {69.999, "Standard", "8th-9th grade"},
        {60.0, "Standard", "8th-9th grade"},
        {59.999, "Fairly Difficult", "10th-12th grade"},
        {50.0, "Fairly Difficult", "10th-12th grade"},
        {49.999, "Difficult", "College"},
        {30.0, "Difficult", "College"},
        {29.999, "Very Difficult", "College Graduate"},
        {0.0, "Very Difficult", "College Graduate"},
    };
    for (const auto &one : cases) {
        EXPECT_STREQ(readabilityBand(one.score).level, one.level) << one.score;
        EXPECT_STREQ(readabilityBand(one.score).gradeLevel, one.gradeLevel) << one.score;
    }
}

TEST(Readability, EqualsThePlainOneOnRandomText) {
    std::mt19937 random(sampleSeed);
    for (int round = 0; round < 3000; ++round) {
        const std::string text = randomText(random, 200);
        const reference::Readability expected = reference::readability(text);
        const Readability result = readability(text);
        ASSERT_EQ(readabilityReport(result), reference::readabilityReport(expected)) << testing::PrintToString(text);
        ASSERT_DOUBLE_EQ(result.score, expected.score);
    }
}

TEST(Readability, TakesAnyBytes) {
    std::mt19937 random(sampleSeed);
    std::vector<std::string> texts = hostileTexts();
    for (int round = 0; round < 2000; ++round) {
        texts.push_back(randomBytes(random, random() % 300));
    }
    for (const std::string &text : texts) {
        ASSERT_EQ(readabilityReport(readability(text)),
                  reference::readabilityReport(reference::readability(repaired(text))))
            << testing::PrintToString(text);
    }
}

TEST(Readability, TakesAHundredMegabytesOnOneLine) {
    const Readability result = readability(hundredMegabytesOf('e'));
    EXPECT_EQ(result.words, 1);
    EXPECT_EQ(result.syllables, 1);
    EXPECT_EQ(result.sentences, 1);
}

TEST(ReadabilityReport, OfTwoWords) {
    EXPECT_EQ(readabilityReport(readability("Hello world")), "Readability Analysis\n"
                                                             "\n"
                                                             "Flesch Reading Ease Score: 77.9\n"
                                                             "Level: Fairly Easy\n"
                                                             "Grade Level: 7th grade\n"
                                                             "\n"
                                                             "Statistics:\n"
                                                             "Words: 2\n"
                                                             "Sentences: 1\n"
                                                             "Syllables: 3");
}

TEST(ReadabilityReport, OfNothingLeavesLevelAndGradeEmpty) {
    EXPECT_EQ(readabilityReport(readability("")), "Readability Analysis\n\nFlesch Reading Ease Score: 0.0\nLevel: \n"
                                                  "Grade Level: \n\nStatistics:\nWords: 0\nSentences: 1\nSyllables: 0");
}

} // namespace
} // namespace lexivore
