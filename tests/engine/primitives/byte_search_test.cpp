// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/byte_search.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace lexivore {

namespace {

TEST(FindBytes, GivesTheFirstPlaceOrNone) {
    EXPECT_EQ(findBytes("abcabc", "bc"), 1U);
    EXPECT_EQ(findBytes("abcabc", "abcabc"), 0U);
    EXPECT_EQ(findBytes("abc", "x"), std::string_view::npos);
    EXPECT_EQ(findBytes("abc", "abcd"), std::string_view::npos);
    EXPECT_EQ(findBytes("", "a"), std::string_view::npos);
    EXPECT_EQ(findBytes({}, "a"), std::string_view::npos);
    EXPECT_EQ(findBytes(std::string_view("a\0b", 3), std::string_view("\0b", 2)), 1U);
}

TEST(FindBytes, EqualsAPlainSearch) {
    constexpr unsigned seed = 1;
    std::mt19937 random(seed);
    for (int round = 0; round < 20'000; ++round) {
        // Two letters, so that texts are full of beginnings of the pattern.
        const auto randomText = [&random](std::size_t longest) {
            std::string text(random() % longest, 'a');
            for (char &c : text) {
                c = random() % 2 == 0 ? 'a' : 'b';
            }
            return text;
        };
        const std::string text = randomText(200);
        const std::string pattern = "a" + randomText(round % 2 == 0 ? 4 : 40);
        ASSERT_EQ(findBytes(text, pattern), text.find(pattern)) << "seed " << seed << ", round " << round;
    }
}

} // namespace

} // namespace lexivore
