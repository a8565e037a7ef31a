// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/line_groups.h"

#include "tests/engine/split_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace lexivore {

namespace {

using Lines = std::vector<std::string_view>;

/// Checks everything that the groups promise, on a text that ends where its memory does.
void expectGroups(const std::string &text) {
    const std::vector<char> memory(text.begin(), text.end());
    const std::string_view exact(memory.data(), memory.size());
    const LineGroups groups(exact);
    const char *const allEnd = groups.all().data() + groups.all().size();
    Lines grouped;
    std::string_view largestBefore; // in the groups before
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const LineGroups::Group group = groups[i];
        const Lines lines = splitLines(group.text);
        ASSERT_EQ(lines.size(), group.lineCount);
        ASSERT_LE(group.text.data() + group.text.size(), allEnd);
        for (const std::string_view line : lines) {
            ASSERT_GE(line.size(), group.commonBytes);
            ASSERT_EQ(line.substr(0, group.commonBytes), lines[0].substr(0, group.commonBytes));
            ASSERT_TRUE(i == 0 || largestBefore < line);
        }
        largestBefore = *std::max_element(lines.begin(), lines.end());
        grouped.insert(grouped.end(), lines.begin(), lines.end());
    }
    const auto isBefore = [](std::string_view left, std::string_view right) {
        return left.substr(0, 2) < right.substr(0, 2);
    };
    Lines expected = splitLines(exact);
    std::stable_sort(expected.begin(), expected.end(), isBefore);
    std::stable_sort(grouped.begin(), grouped.end(), isBefore); // lines that begin alike kept their order
    ASSERT_EQ(grouped, expected);
}

TEST(LineGroups, OfFewLinesIsOne) {
    for (const std::string text : {"", "\n", "b\na", "b\r\n\u2028a\n"}) {
        expectGroups(text);
        EXPECT_EQ(LineGroups(text).size(), 1U);
    }
}

TEST(LineGroups, HoldAllLinesByWhatTheyBeginWith) {
    std::mt19937 random(1);
    const std::string bytes = std::string("ab\0\x7F", 4) + "\xC3\xA9\xFF";
    for (const std::size_t size : {1000U, 300'000U}) {
        for (const std::size_t longest : {3U, 20U, 400U}) {
            std::string text;
            while (text.size() < size) {
                for (std::size_t left = random() % (longest + 1); left > 0; --left) {
                    text += bytes[random() % bytes.size()];
                }
                text += '\n';
            }
            expectGroups(text);
            EXPECT_EQ(LineGroups(text).size() > 1, size > 1000);
        }
    }
}

TEST(LineGroups, KnowWhatLinesThatBeginAlikeHaveInCommon) {
    std::string text = "a\n";
    for (int i = 0; i < 20'000; ++i) {
        text += "abc\nac\n" + std::string("a\0\n", 3);
    }
    const LineGroups groups(text);
    ASSERT_EQ(groups.size(), 3U);
    EXPECT_EQ(groups[0].commonBytes, 0U); // a line of one byte goes with those that a NUL follows
    EXPECT_EQ(groups[1].commonBytes, 2U);
    EXPECT_EQ(groups[2].commonBytes, 2U);
    expectGroups(text);
}

} // namespace

} // namespace lexivore
