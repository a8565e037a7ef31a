// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/line_search.h"

#include "tests/engine/random_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

namespace {

template<typename Keep> std::string plainlyFiltered(std::string_view text, Keep keep) {
    std::vector<std::string_view> lines = plainLines(text);
    lines.erase(std::remove_if(lines.begin(), lines.end(), [&](std::string_view line) { return !keep(line); }),
                lines.end());
    return plainlyJoined(lines, "\n");
}

void expectEqualToPlainSearch(std::string_view text, std::string_view part) {
    const auto contains = [part](std::string_view line) { return line.find(part) != std::string_view::npos; };
    const auto starts = [part](std::string_view line) { return line.starts_with(part); };
    ASSERT_EQ(linesContaining(text, part).view(), plainlyFiltered(text, contains));
    ASSERT_EQ(linesNotContaining(text, part).view(), plainlyFiltered(text, std::not_fn(contains)));
    ASSERT_EQ(linesStartingWith(text, part).view(), plainlyFiltered(text, starts));
    ASSERT_EQ(linesNotStartingWith(text, part).view(), plainlyFiltered(text, std::not_fn(starts)));
}

TEST(LineSearch, EqualsAPlainOneInEveryLine) {
    std::mt19937 random(21);
    for (int round = 0; round < 3'000; ++round) {
        const std::string text = randomLines(random, random() % (round % 10 == 0 ? 300 : 6));
        static constexpr std::string_view parts[] = {"a", "b", "ab", "aab", "é", "aaaaaaaaaaaaaaaaaaab", "a\nb", "x"};
        const std::string_view part = parts[random() % std::size(parts)];
        SCOPED_TRACE("round " + std::to_string(round) + ", part '" + std::string(part) + "'");
        expectEqualToPlainSearch(text, part);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(LineSearch, EqualsAPlainOneInTextsThatNoCacheHolds) {
    std::mt19937 random(22);
    for (const std::string_view newline : newlineCharacters) { // one of each somewhere, and line feeds
        std::string text;
        while (text.size() < 400'000) {
            text += randomLines(random, 200) + std::string(newline);
            text += text.size() % 5 == 0 ? std::string(100'000, 'a') : ""; // a line that is long
        }
        for (const std::string_view part : {"b", "ba", "caa", "no such part"}) {
            SCOPED_TRACE("part '" + std::string(part) + "'");
            expectEqualToPlainSearch(text, part);
        }
    }
}

TEST(LineSearch, KeepsEmptyLinesWhereverTheyStand) {
    for (const char *text :
         {"", "\n", "\n\n", "a", "a\n", "\na", "a\na", "\na\n", "a\n\na", "b\na", "a\nb", "a\r\nb\n"}) {
        SCOPED_TRACE(text);
        expectEqualToPlainSearch(text, "a");
    }
}

} // namespace

} // namespace lexivore
