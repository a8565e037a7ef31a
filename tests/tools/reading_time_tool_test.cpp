// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/tools_reference.h"
#include "tests/tools/printing.h"
#include "tests/tools/sample_texts.h"
#include "tools/reading_time_tool.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace lexivore {
namespace {

std::string words(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += i % 7 == 0 ? "word\n" : "word ";
    }
    return text;
}

TEST(ReadingTime, CutsToWholeSeconds) {
    EXPECT_EQ(readingTime(words(199)), (ReadingTime{199, {0, 59}, {1, 19}}));
    EXPECT_EQ(readingTime(words(200)), (ReadingTime{200, {1, 0}, {1, 20}}));
    EXPECT_EQ(readingTime(words(250)), (ReadingTime{250, {1, 15}, {1, 40}}));
    EXPECT_EQ(readingTime(words(1)), (ReadingTime{1, {0, 0}, {0, 0}}));
    EXPECT_EQ(readingTime(words(3)), (ReadingTime{3, {0, 0}, {0, 1}}));
    EXPECT_EQ(readingTime(words(4)), (ReadingTime{4, {0, 1}, {0, 1}}));
    EXPECT_EQ(readingTime(words(149)), (ReadingTime{149, {0, 44}, {0, 59}}));
    EXPECT_EQ(readingTime(words(150)), (ReadingTime{150, {0, 45}, {1, 0}}));
}

TEST(ReadingTime, OfNothingIsNothing) {
    EXPECT_EQ(readingTime(""), (ReadingTime{0, {0, 0}, {0, 0}}));
    EXPECT_EQ(readingTime(" \n\t"), (ReadingTime{0, {0, 0}, {0, 0}}));
}

TEST(ReadingTime, CountsWordsBetweenAllKindsOfSpace) {
    EXPECT_EQ(readingTime("a\xC2\xA0"
                          "b\xE3\x80\x80"
                          "c\xE2\x80\xA8"
                          "d\x0B"
                          "e\xE2\x80\x8B"
                          "f")
                  .wordCount,
              5);
}

TEST(ReadingTime, ReachesTheLargestWordCount) {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() / 60;
    EXPECT_EQ(readingTimeOfWords(most),
              (ReadingTime{most, {most / 200, most % 200 * 60 / 200}, {most / 150, most % 150 * 60 / 150}}));
}

TEST(ReadingTimeDeathTest, EndsTheProgramWhenTheSecondsDoNotFit) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH((void)readingTimeOfWords(std::numeric_limits<std::int64_t>::max() / 60 + 1), "");
}

TEST(ReadingTime, EqualsThePlainOneOnRandomText) {
    std::mt19937 random(sampleSeed);
    for (int round = 0; round < 3000; ++round) {
        const std::string text = randomText(random, 400);
        const reference::ReadingTime expected = reference::readingTime(text);
        ASSERT_EQ(readingTimeReport(readingTime(text)), reference::readingTimeReport(expected)) << text;
    }
}

TEST(ReadingTime, TakesAnyBytes) {
    std::mt19937 random(sampleSeed);
    std::vector<std::string> texts = hostileTexts();
    for (int round = 0; round < 2000; ++round) {
        texts.push_back(randomBytes(random, random() % 300));
    }
    for (const std::string &text : texts) {
        ASSERT_EQ(readingTime(text).wordCount, reference::readingTime(repaired(text)).wordCount)
            << testing::PrintToString(text);
    }
}

TEST(FormattedDuration, LeavesOutNoMinutesAndPadsNothing) {
    EXPECT_EQ(formattedDuration({0, 0}), "0s");
    EXPECT_EQ(formattedDuration({0, 45}), "45s");
    EXPECT_EQ(formattedDuration({1, 0}), "1m 0s");
    EXPECT_EQ(formattedDuration({2, 5}), "2m 5s");
    EXPECT_EQ(formattedDuration({1234, 59}), "1234m 59s");
}

TEST(ReadingTimeReport, HasFiveLines) {
    EXPECT_EQ(readingTimeReport(readingTimeOfWords(250)), "Reading Time Estimate\n"
                                                          "\n"
                                                          "Word Count: 250\n"
                                                          "Reading Time: 1m 15s (~200 wpm)\n"
                                                          "Speaking Time: 1m 40s (~150 wpm)");
    EXPECT_EQ(readingTimeReport(readingTime("")),
              "Reading Time Estimate\n\nWord Count: 0\nReading Time: 0s (~200 wpm)\n"
              "Speaking Time: 0s (~150 wpm)");
    EXPECT_EQ(readingTimeReport(readingTimeOfWords(199)),
              "Reading Time Estimate\n\nWord Count: 199\nReading Time: 59s (~200 wpm)\n"
              "Speaking Time: 1m 19s (~150 wpm)");
}

} // namespace
} // namespace lexivore
