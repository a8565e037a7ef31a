// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/regular_expression.h"

#include <gtest/gtest.h>

#include <string>

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
    EXPECT_EQ(replaced(text, "a*b", ""), "error: U_REGEX_TIME_OUT");
}

TEST(RegularExpression, HasTimeForALargeTextAndAHarmlessPattern) {
    std::string text;
    std::string expected;
    for (int i = 0; i < 100'000; ++i) {
        text += "key=value; ";
        expected += "value=key; ";
    }
    EXPECT_EQ(replaced(text, "(\\w+)=(\\w+)", "$2=$1"), expected);
}

TEST(RegularExpression, CompilesTheSamePatternAnewEachTime) {
    EXPECT_EQ(replaced("aab", "(a)|b", "<$1>"), "<a><a><>");
    EXPECT_EQ(replaced("aab", "(a)|b", "<$1>"), "<a><a><>");
}

} // namespace

} // namespace lexivore
