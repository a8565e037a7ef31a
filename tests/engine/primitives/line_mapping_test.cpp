// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/line_mapping.h"

#include "tests/engine/random_lines.h"
#include "tests/support/memory_ceiling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

namespace {

TEST(JoinLines, EqualsAPlainJoin) {
    std::mt19937 random(11);
    for (int round = 0; round < 3'000; ++round) {
        const std::string text = randomLines(random, random() % (round % 10 == 0 ? 400 : 12));
        const std::string separator(random() % 40, '|');
        const std::string before(random() % 4, '<');
        ASSERT_EQ(joinLines(text, separator, before, ">").view(),
                  before + plainlyJoined(plainLines(text), separator) + ">")
            << "round " << round;
    }
}

TEST(JoinLines, RefusesWhatWouldBeTooLargeBeforeItWritesIt) {
    constexpr std::size_t megabyte = std::size_t{1} << 20U;
    const std::string separator(4096, '|');
    const std::string lines(megabyte, '\n');
    {
        const test::MemoryCeiling ceiling(256 * megabyte);
        EXPECT_THROW((void)joinLines(lines, separator), TextTooLarge);
    }
    // As much text, but in few lines.
    const std::string line(megabyte, 'a');
    EXPECT_EQ(joinLines(line + "\n" + line, separator).view(), line + separator + line);
}

TEST(ReverseLines, EqualsAPlainReversal) {
    std::mt19937 random(12);
    for (int round = 0; round < 1'000; ++round) {
        const std::string text = randomLines(random, random() % (round % 10 == 0 ? 400 : 12));
        std::vector<std::string_view> lines = plainLines(text);
        std::reverse(lines.begin(), lines.end());
        ASSERT_EQ(reverseLines(text).view(), plainlyJoined(lines, "\n")) << "round " << round;
    }
}

} // namespace

} // namespace lexivore
