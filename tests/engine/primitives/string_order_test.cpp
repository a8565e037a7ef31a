// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/string_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>

namespace lexivore {

namespace {

using Strings = std::vector<std::string_view>;

Strings sorted(Strings strings, SortDirection direction = SortDirection::ascending) {
    sortByStringOrder(strings, direction);
    return strings;
}

TEST(StringOrder, IsThatOfCodePoints) {
    const Strings ordered = {"", std::string_view("\0", 1), "A", "AB", "Z", "a", "z", "é", "ж", "漢", "\uFF5E", "😀"};
    Strings shuffled = {"漢", "a", "😀", "", "Z", "\uFF5E", "z", "AB", "ж", "A", "é", std::string_view("\0", 1)};
    EXPECT_EQ(sorted(shuffled), ordered);
    EXPECT_EQ(sorted(shuffled, SortDirection::descending), Strings(ordered.rbegin(), ordered.rend()));
}

TEST(StringOrder, OfNothingOrOneStringIsItself) {
    EXPECT_EQ(sorted({}), Strings{});
    EXPECT_EQ(sorted({"a"}, SortDirection::descending), Strings{"a"});
}

TEST(StringOrder, ComparesTheComposedForms) {
    EXPECT_EQ(sorted({"z", "e\u0301", "f"}), (Strings{"f", "z", "e\u0301"}));
    EXPECT_EQ(sorted({"\u1100\u1161\u11A8", "가", "각a"}), (Strings{"가", "\u1100\u1161\u11A8", "각a"}));
}

TEST(StringOrder, LeavesEquivalentStringsInTheirOrder) {
    const Strings forms = {"\u212B", "A\u030A", "\u00C5"};
    for (const SortDirection direction : {SortDirection::ascending, SortDirection::descending}) {
        EXPECT_EQ(sorted(forms, direction), forms);
        EXPECT_EQ(sorted({forms[2], forms[0], forms[1]}, direction), (Strings{forms[2], forms[0], forms[1]}));
    }
}

TEST(StringOrder, LeavesEqualStringsInTheirOrder) {
    // The same letters at different places, so that a place tells which string is which.
    const std::string letters = "abababab";
    Strings strings;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        strings.push_back(std::string_view(letters).substr(i, 1));
    }
    for (const SortDirection direction : {SortDirection::ascending, SortDirection::descending}) {
        const Strings result = sorted(strings, direction);
        for (std::size_t i = 1; i < result.size(); ++i) {
            EXPECT_TRUE(result[i] != result[i - 1] || result[i].data() > result[i - 1].data());
        }
    }
}

TEST(StringOrder, EqualsAStableSortOfTheBytes) {
    constexpr unsigned seed = 1;
    std::mt19937 random(seed);
    for (const std::size_t count : {2U, 10U, 100U, 1000U, 20'000U}) {
        for (const unsigned letters : {1U, 2U, 26U}) {
            for (const unsigned longest : {3U, 9U, 40U}) {
                std::vector<std::string> texts(count);
                for (std::string &text : texts) {
                    text.assign(random() % longest, 'a');
                    for (char &c : text) {
                        c = static_cast<char>((letters == 2 ? '\0' : 'a') + static_cast<char>(random() % letters));
                    }
                    if (random() % 4 == 0) {
                        text.insert(0, "a common beginning ");
                    }
                }
                const Strings strings(texts.begin(), texts.end());
                Strings expected = strings;
                std::stable_sort(expected.begin(), expected.end());
                const auto places = [](const Strings &of) {
                    std::vector<const char *> result;
                    for (const std::string_view string : of) {
                        result.push_back(string.data());
                    }
                    return result;
                };
                ASSERT_EQ(places(sorted(strings)), places(expected)) << "seed " << seed << ", " << count << " strings";
                Strings descending = strings;
                std::stable_sort(descending.begin(), descending.end(), std::greater<>());
                ASSERT_EQ(places(sorted(strings, SortDirection::descending)), places(descending))
                    << "seed " << seed << ", " << count << " strings";
            }
        }
    }
}

TEST(StringOrder, SortsLongStringsByTheirEnds) {
    const std::string common(1000, 'x');
    const std::string a = common + "a";
    const std::string b = common + "b";
    const std::string longer = a + "a";
    EXPECT_EQ(sorted({b, longer, common, a}), (Strings{common, a, longer, b}));
}

} // namespace

} // namespace lexivore
