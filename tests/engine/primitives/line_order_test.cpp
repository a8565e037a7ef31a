// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/line_order.h"

#include "tests/engine/split_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace lexivore {

namespace {

std::string joined(const std::vector<std::string_view> &lines) {
    std::string result;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        result += (i == 0 ? "" : "\n") + std::string(lines[i]);
    }
    return result;
}

TEST(LineOrder, IsThatOfTheTextAtFirst) {
    for (const char *text : {"", "a", "a\nb\n", "\n\n"}) {
        EXPECT_EQ(LineOrder(text).join(), text);
    }
    EXPECT_EQ(LineOrder("a\r\nbc\u2028d").join(), "a\n\nbc\nd");
}

TEST(LineOrder, CanBeChangedByHand) {
    LineOrder lines("a\nbc\n\nd");
    ASSERT_EQ(lines.size(), 4U);
    std::reverse(lines.begin(), lines.end());
    EXPECT_EQ(lines.join(), "d\n\nbc\na");
    EXPECT_EQ(lines[2].size, 2U);
}

TEST(LineOrder, EqualsAStandardSortByNumbers) {
    constexpr unsigned seed = 1;
    std::mt19937 random(seed);
    for (const std::size_t count : {1U, 2U, 50U, 5000U}) {
        // Small numbers are counted, and among large ones there may be larger than any count.
        for (const std::size_t largest : {std::size_t{1}, std::size_t{30}, std::size_t{20'000}, SIZE_MAX / 2}) {
            std::string text;
            std::vector<std::size_t> numbers(count);
            for (std::size_t &number : numbers) {
                number = (std::uint64_t{random()} << 32 | random()) % largest;
                text += (text.empty() ? "x" : "\nx") + std::to_string(number);
                text.append(random() % (random() % 8 == 0 ? 400 : 90), '.');
            }
            const std::vector<std::string_view> lines = splitLines(text);
            std::vector<std::size_t> order(count);
            std::iota(order.begin(), order.end(), std::size_t{0});
            std::stable_sort(order.begin(), order.end(),
                             [&](std::size_t left, std::size_t right) { return numbers[left] < numbers[right]; });
            std::vector<std::string_view> expected;
            std::transform(order.begin(), order.end(), std::back_inserter(expected),
                           [&lines](std::size_t index) { return lines[index]; });
            LineOrder sorted(text);
            sorted.sortByNumber([&numbers](std::size_t index) { return numbers[index]; });
            ASSERT_EQ(sorted.join(), joined(expected)) << "seed " << seed;
        }
    }
}

} // namespace

} // namespace lexivore
