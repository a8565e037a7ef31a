// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/byte_search.h"

#include <gtest/gtest.h>

#include <algorithm>
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

TEST(OccurrenceFinder, FindsEveryPlaceFromAnyOtherOn) {
    std::mt19937 random(3);
    for (int round = 0; round < 3'000; ++round) {
        std::string text(random() % (round % 10 == 0 ? 9'000 : 300), '\0');
        const std::size_t letters = 2 + random() % 20;
        for (char &letter : text) {
            letter = static_cast<char>(random() % letters); // NUL is what stands behind the text while it is searched
        }
        const std::size_t patternSize = 1 + random() % 20;
        const std::string pattern = random() % 4 == 0 || text.size() < patternSize
                                        ? std::string(patternSize, '\0')
                                        : text.substr(random() % (text.size() - patternSize + 1), patternSize);
        OccurrenceFinder finder(text, pattern);
        for (std::size_t position = 0; position <= text.size();) {
            const std::size_t expected = std::min(text.find(pattern, position), text.size());
            ASSERT_EQ(finder.from(text.data() + position), text.data() + expected) << "round " << round;
            position = expected + 1 + random() % 3;
        }
    }
}

TEST(OccurrenceFinder, FindsNothingInNoText) {
    OccurrenceFinder finder({}, "a");
    EXPECT_EQ(finder.from(nullptr), nullptr);
}

TEST(FindBytes, StaysFastWhereEveryPlaceLooksLikeTheBeginning) {
    // The first and the last byte of the pattern fit everywhere, the byte in the middle only where it is put.
    std::string text(300'000, 'a');
    const std::string half(700, 'a');
    const std::string pattern = half + "b" + half;
    EXPECT_EQ(findBytes(text, pattern), std::string_view::npos);
    for (const std::size_t place : {text.size() - pattern.size(), std::size_t{200'000}, std::size_t{10}}) {
        text.replace(place, pattern.size(), pattern);
        EXPECT_EQ(findBytes(text, pattern), place);
    }
}

} // namespace

} // namespace lexivore
