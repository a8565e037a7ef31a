// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/regular_expression.h"

#include "engine/primitives/simple_pattern.h"
#include "tests/support/memory_ceiling.h"

#include <gtest/gtest.h>

#include <ctime>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace lexivore {

namespace {

std::string replaced(std::string_view text, std::string_view pattern, std::string_view replacement) {
    try {
        return std::string(replaceMatches(text, pattern, replacement).view());
    } catch (const RegularExpressionError &error) {
        return std::string("error: ") + error.what();
    }
}

TEST(RegularExpression, ReplacesEveryMatch) {
    EXPECT_EQ(replaced("a1b22", "\\d+", "<$0>"), "a<1>b<22>");
    EXPECT_EQ(replaced("", "x", "y"), "");
    EXPECT_EQ(replaced({}, "^$", "y"), "y");
}

TEST(RegularExpression, KeepsItsPlaceInTextsOfEveryWidth) {
    for (const std::string_view unit : {"a", "é", "漢", "😀", "a😀é漢", "e\u0301\r\n"}) {
        std::string text;
        std::string expected;
        for (int i = 0; i < 500; ++i) {
            text.append(unit).append("-").append(unit).append("=");
            expected.append(unit).append("[-").append(unit).append("]=");
        }
        EXPECT_EQ(replaced(text, "-([^=]+)", "[-$1]"), expected);
    }
}

TEST(RegularExpression, SimplePatternsMatchAsIcuDoes) {
    constexpr unsigned seed = 5;
    std::mt19937 random(seed);
    const auto oneOf = [&random](const auto &choices) { return choices[random() % std::size(choices)]; };
    const std::string_view pieces[] = {
        "a", "b", "ab", "0", "7",      "z",   "A",      " ",    "\n",   "\r\n",     "-",
        "]", "é", "漢", "😀", "\u0301", "ÃƒÂ", "\uFFFD", "\x80", "\xC3", "\xE6\xBC", std::string_view("\0", 1)};
    const std::string_view sets[] = {"[a-z]", "[0-9]", "[a]", "[ab7]", "[A-Za-z0-9]", "[7-7]", "a", "b", "0"};
    const std::string_view replacements[] = {"", "x", "<$0>", "$1", "\\$0", "é$0$0"};
    for (int round = 0; round < 4'000; ++round) {
        std::string text;
        for (auto left = random() % 200; left > 0; --left) {
            text += oneOf(pieces);
        }
        std::string pattern;
        if (random() % 2 == 0) {
            pattern = std::string(oneOf(sets)) + (random() % 2 == 0 ? "+" : "");
        } else {
            for (auto left = 1 + random() % 3; left > 0; --left) {
                pattern += oneOf(pieces);
            }
        }
        const std::string_view replacement = oneOf(replacements);
        // In a group of its own it is no simple pattern any more.
        EXPECT_EQ(replaced(text, pattern, replacement), replaced(text, "(?:" + pattern + ")", replacement))
            << testing::PrintToString(pattern) << " in " << testing::PrintToString(text);
    }
}

TEST(RegularExpression, SimplePatternsAreTheseAlone) {
    for (const char *simple : {"a", "the", "é", "a b", "[a-z]", "[a-zA-Z]+", "x+", "[0-9]+"}) {
        EXPECT_TRUE(simplePattern(simple).has_value()) << simple;
    }
    for (const char *other :
         {"",      "a.",    "a*",     "a?",    "a|b", "(a)", "a{2}", "]", "[]",  "[]+", "[^a]",   "[a-]", "[z-a]",
          "[a-Z]", "[[a]]", "[a&&b]", "[\\d]", "é+",  "ab+", "a++",  "+", "\\d", "^a",  "\uFFFD", "\x80"}) {
        EXPECT_FALSE(simplePattern(other).has_value()) << other;
    }
}

TEST(RegularExpression, NamesTheErrorAndThePlace) {
    EXPECT_EQ(replaced("a", "(", ""), "error: U_REGEX_MISMATCHED_PAREN (line 1, offset 1)");
    EXPECT_EQ(replaced("a", "a\nb\n[", ""), "error: U_REGEX_MISSING_CLOSE_BRACKET (line 3, offset 1)");
}

TEST(RegularExpression, CountsTheTimeOfAllAttemptsTogether) {
    // Each attempt takes a moment and fails; it is the number of places to begin at that takes for ever.
    std::string text;
    for (int i = 0; i < 300; ++i) {
        text += std::string(9000, 'a') + "\n";
    }
    EXPECT_EQ(replaced(text, "(?:a|c)*[bd]", ""), "error: U_REGEX_TIME_OUT");
}

TEST(RegularExpression, CountsTheTimeOfAttemptsThatNeverGoBack) {
    // Each reads to the end of the text; ICU asks about the time only while it backtracks, which these hardly do.
    const std::string text = "z" + std::string(2'000'000, 'a');
    for (const char *pattern : {"(?>[a-y]*)z", "(?=(?>[a-y]*))"}) {
        const std::clock_t begin = std::clock();
        EXPECT_EQ(replaced(text, pattern, ""), "error: U_REGEX_TIME_OUT") << pattern;
        // Of the processor, less than a second and a half; more is left for a busy machine.
        EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, 4) << pattern;
    }
}

TEST(RegularExpression, GivesUtf8WhereAMatchEndsWithinACodePoint) {
    EXPECT_EQ(replaced("a😀b", "a\\uD83D", "<$0>"), "<a\uFFFD>b");
    EXPECT_EQ(replaced("a😀b", "(a\\uD83D)(.)", "<$1|$2>"), "<a\uFFFD|\uFFFD>b");
    EXPECT_EQ(replaced("a😀b", "(a\\uD83D)\\uDE00", "<$0|$1>"), "<a😀|a\uFFFD>b");
}

TEST(RegularExpression, HasTimeForALargeTextAndAHarmlessPattern) {
    std::string text;
    std::string expected;
    for (int i = 0; i < 100'000; ++i) {
        text += "key=value; ";
        expected += "value=key; ";
    }
    // As a sequence and by ICU.
    for (const char *pattern : {"(\\w+)=(\\w+)", "\\b(\\w+)=(\\w+)"}) {
        EXPECT_EQ(replaced(text, pattern, "$2=$1"), expected) << pattern;
    }
}

TEST(RegularExpression, GivesTheSameWithAPatternThatWasKept) {
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(replaced("aab", "(a)|b", "<$1>"), "<a><a><>");
        EXPECT_EQ(replaced("a", "(", ""), "error: U_REGEX_MISMATCHED_PAREN (line 1, offset 1)");
        for (int other = 0; other < 20; ++other) {
            EXPECT_EQ(replaced("7", "\\d|x{" + std::to_string(other) + "}y", "<$0>"), "<7>");
        }
    }
}

TEST(RegularExpression, HasTheStackForAGroupRepeatedOverALongLine) {
    EXPECT_EQ(replaced(std::string(400'000, 'a') + "c", "(a|b)*", ""), "c");
}

TEST(RegularExpression, RefusesWhatWouldBeTooLargeBeforeItWritesIt) {
    std::string text(std::size_t{1} << 20U, 'a');
    const std::string literal(4096, 'b');
    // Looked for as bytes and as a sequence.
    for (const char *pattern : {"a", "(a)"}) {
        for (const std::string_view group : {"", "$0", "$1"}) {
            const std::string replacement = literal + std::string(group);
            const test::MemoryCeiling ceiling(std::size_t{1} << 28U);
            EXPECT_THROW((void)replaceMatches(text, pattern, replacement), TextTooLarge) << pattern << group;
        }
    }
    // As much text, but with little in it to replace.
    constexpr std::size_t matches = 1000;
    text.replace(matches, matches, std::string(matches, 'x'));
    for (const char *pattern : {"x", "(x)"}) {
        const bool isLiteral = pattern[0] == 'x';
        std::string expected(matches, 'a');
        for (std::size_t i = 0; i < matches; ++i) {
            expected += literal + (isLiteral ? "" : "x");
        }
        expected.append(text.size() - 2 * matches, 'a');
        EXPECT_EQ(replaced(text, pattern, literal + (isLiteral ? "" : "$1")), expected) << pattern;
    }
}

} // namespace

} // namespace lexivore
