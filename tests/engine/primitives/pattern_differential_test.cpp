// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Patterns made by a grammar, on texts made of what they speak of: the short cuts must find what ICU finds.
#include "engine/primitives/pattern_syntax.h"
#include "engine/primitives/regular_expression.h"
#include "engine/primitives/sequence_pattern.h"

#include <gtest/gtest.h>
#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <iterator>
#include <optional>
#include <random>
#include <string>
#include <string_view>

namespace lexivore {
namespace {

/// Every match and its groups in brackets, by ICU alone; "invalid" for a pattern that does not compile, and nothing
/// when it takes too long.
std::optional<std::string> markedByIcu(const std::string &text, const std::string &pattern) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString input = icu::UnicodeString::fromUTF8(text);
    icu::RegexMatcher matcher(icu::UnicodeString::fromUTF8(pattern), input, 0, status);
    if (U_FAILURE(status)) {
        return "invalid";
    }
    constexpr std::int32_t shortTime = 20; // about milliseconds
    matcher.setTimeLimit(shortTime, status);
    icu::UnicodeString result;
    std::int32_t copied = 0;
    while (matcher.find(status) != 0) {
        result.append(input.tempSubStringBetween(copied, matcher.start(status)));
        result.append(u'<').append(matcher.group(status));
        for (std::int32_t group = 1; group <= 3; ++group) {
            result.append(u'|');
            if (group <= matcher.groupCount()) {
                result.append(matcher.group(group, status));
            }
        }
        result.append(u'>');
        copied = matcher.end(status);
    }
    result.append(input.tempSubString(copied));
    std::string bytes;
    return U_SUCCESS(status) ? std::optional(result.toUTF8String(bytes)) : std::nullopt;
}

std::string marked(const std::string &text, const std::string &pattern) {
    try {
        return std::string(replaceMatches(text, pattern, "<$0|$1|$2|$3>").view());
    } catch (const RegularExpressionError &) {
        return "invalid";
    }
}

class PatternMaker {
public:
    explicit PatternMaker(unsigned seed) : m_random(seed) {}

    std::string pattern() {
        std::string made = sequence(3);
        while (below(8) == 0) {
            made += "|" + sequence(2);
        }
        return made;
    }
    std::string text() {
        static const char *const pieces[] = {"a", "b",      "c",      "ab",     "aab", "1",    "22", "_",
                                             " ", "  ",     ",",      "-",      "\n",  "\r\n", "\t", "A",
                                             "é", "\u0301", "\u0663", "\u2028", "漢",  "😀"};
        const std::size_t kinds = below(3) == 0 ? std::size(pieces) : std::size(pieces) - 6; // mostly ASCII alone
        std::string made;
        for (std::size_t left = below(60); left > 0; --left) {
            made += pieces[below(kinds)];
        }
        return made;
    }

private:
    std::size_t below(std::size_t limit) { return m_random() % limit; }

    std::string sequence(int depth) {
        std::string made;
        for (std::size_t left = 1 + below(4); left > 0; --left) {
            made += element(depth);
        }
        return made;
    }
    std::string element(int depth) {
        if (depth > 0 && below(5) == 0) {
            static const char *const begins[] = {"(", "(", "(", "(?:", "(?=", "(?!", "(?>", "(?i:"};
            std::string inner = sequence(depth - 1);
            if (below(6) == 0) {
                inner += "|" + sequence(depth - 1);
            }
            return begins[below(below(4) == 0 ? std::size(begins) : 4)] + inner + ")" +
                   (below(4) == 0 ? quantifier() : "");
        }
        if (below(12) == 0) {
            static const char *const assertions[] = {"^", "$", "\\b", "\\B", "\\A", "\\z", "\\Z"};
            return assertions[below(std::size(assertions))];
        }
        return atom() + (below(3) == 0 ? quantifier() : "");
    }
    std::string atom() {
        static const char *const plain[] = {"a",       "b",     "c",    "1",    " ",     ",",     "-",
                                            "_",       "ab",    "\\.",  "\\-",  "[a-z]", "[0-9]", "[ab]",
                                            "[a-c1_]", "[A-Z]", "[ ,]", "[-a]", "[a-]",  "[\\-,]"};
        static const char *const wide[] = {"\\d",      "\\w",  "\\s",     "\\D",     "\\W",    "\\S",
                                           ".",        "[^a]", "[^a-z ]", "[\\w-]",  "[\\s,]", "[^\\d]",
                                           "é",        "漢",   "\\x61",   "\\u0061", "\\p{L}", "[[a-z]&&[^b]]",
                                           "[a-z--b]", "\\1",  "\\h",     "\\R",     "\\X",    "\\Qa+\\E",
                                           "[]a]",     "]",    "}",       "{",       "#"};
        return below(4) > 0 ? plain[below(std::size(plain))] : wide[below(std::size(wide))];
    }
    std::string quantifier() {
        static const char *const quantifiers[] = {"+", "+", "+", "*", "?", "{2}", "{1,2}", "{2,}", "{0,1}", "{0}"};
        static const char *const manners[] = {"", "", "", "", "", "", "?", "+"};
        return std::string(quantifiers[below(std::size(quantifiers))]) + manners[below(std::size(manners))];
    }

    std::mt19937 m_random;
};

TEST(PatternDifferential, EveryPatternMatchesAsIcuDoes) {
    int sequences = 0;
    int withRequired = 0;
    for (unsigned seed = 1; seed <= 25'000 && !testing::Test::HasFailure(); ++seed) {
        PatternMaker maker(seed);
        const std::string pattern = maker.pattern();
        if (const auto tokens = readPattern(pattern)) {
            sequences += SequencePattern::make(*tokens).has_value() ? 1 : 0;
            withRequired += requiredLiteral(*tokens).empty() ? 0 : 1;
        }
        for (int texts = 0; texts < 4; ++texts) {
            const std::string text = maker.text();
            const std::optional<std::string> expected = markedByIcu(text, pattern);
            if (!expected.has_value()) {
                break;
            }
            EXPECT_EQ(marked(text, pattern), *expected)
                << "seed " << seed << ": " << pattern << " in " << testing::PrintToString(text);
        }
    }
    EXPECT_GT(sequences, 5'000);
    EXPECT_GT(withRequired, 7'000);
}

bool isSequence(std::string_view pattern) {
    const auto tokens = readPattern(pattern);
    return tokens.has_value() && SequencePattern::make(*tokens).has_value();
}

TEST(PatternDifferential, SequencesAreTheseAlone) {
    for (const char *sequence : {"([a-z]+), ([0-9]{1,3})", "a*b", "(\\w+) (\\d+)", "x", "(?:a+)(b?)c", "[^,]+,",
                                 "a{2,}b", "((a)b+)", "\\.[a-z]+"}) {
        EXPECT_TRUE(isSequence(sequence)) << sequence;
    }
    for (const char *other : {"", "a*", "a+a", "a?[ab]", "(a)+b", "a|b", "a+?b", "a++b", "^a", "\\bx", "é", "(?i)a",
                              "(?=a)b", "\\w+\\d", "a*(b?)", "[a[b]]"}) {
        EXPECT_FALSE(isSequence(other)) << other;
    }
}

TEST(PatternDifferential, SequencesSearchTheTextsThatTheyKnowAllAbout) {
    const auto canSearch = [](std::string_view pattern, std::string_view text) {
        const auto tokens = readPattern(pattern);
        return tokens.has_value() && SequencePattern::make(*tokens).value().canSearch(text);
    };
    for (const char *ascii : {"[a-z]+,", "ab+", "(x)\\.[0-9]"}) {
        EXPECT_TRUE(canSearch(ascii, "a, b")) << ascii;
        EXPECT_TRUE(canSearch(ascii, "é, b")) << ascii;
    }
    for (const char *wide : {"\\d+,", "[^,]+,", ".,", "[\\w-]+,"}) { // these match some of what is not ASCII
        EXPECT_TRUE(canSearch(wide, "a, b")) << wide;
        EXPECT_TRUE(canSearch(wide, "é, b")) << wide;
        EXPECT_FALSE(canSearch(wide, "a, \xC3")) << wide; // ICU reads a replacement character there
    }
}

TEST(PatternDifferential, OnlyWhatStandsOnceIsLookedForAsTheBeginning) {
    const std::string text = "aabbc abc aac abbbc xab xb aab";
    for (const char *pattern : {"a+b+c", "(a+)(b+)c", "a{1,2}b{1,3}c", "a*b+c", "a{2}b", "ab+c", "xa?b", "x?ab"}) {
        EXPECT_TRUE(isSequence(pattern)) << pattern;
        EXPECT_EQ(marked(text, pattern), markedByIcu(text, pattern)) << pattern;
    }
}

TEST(PatternDifferential, SequencesHaveAtMostSixtyFourItems) {
    const std::string sixtyFour(64, 'a');
    EXPECT_TRUE(isSequence(sixtyFour));
    EXPECT_FALSE(isSequence(sixtyFour + "b"));
    EXPECT_EQ(marked(sixtyFour + sixtyFour + "b", sixtyFour + "b"),
              markedByIcu(sixtyFour + sixtyFour + "b", sixtyFour + "b"));
}

TEST(PatternDifferential, RequiredLiteralsAreInEveryMatch) {
    const auto required = [](std::string_view pattern) {
        const auto tokens = readPattern(pattern);
        return tokens.has_value() ? requiredLiteral(*tokens) : "not read";
    };
    EXPECT_EQ(required("\\w+ing, x"), "ing, x");
    EXPECT_EQ(required("abc?d"), "ab");
    EXPECT_EQ(required("abc+de"), "abc");
    EXPECT_EQ(required("(abc)d"), "d");
    EXPECT_EQ(required("a|b"), "");
    EXPECT_EQ(required("(a|b)c"), "c");
    EXPECT_EQ(required("a{0}"), "");
    EXPECT_EQ(required("漢字.*"), "漢字");
    EXPECT_EQ(required("(?i)abc"), "not read");
    EXPECT_EQ(required("\\x41bc"), "not read");
}

TEST(PatternDifferential, SequencesMatchAsIcuDoesInLongTexts) {
    static const char *const patterns[] = {"([a-z]+) ([0-9]+)",
                                           "([a-z]{2,3}) ([0-9])",
                                           "[a-z]{3}[a-c]1",
                                           "(\\w+) (\\w+)",
                                           "(\\w+)\\s+(\\w+)",
                                           "\\w{2} \\w",
                                           "[^,]+,",
                                           ".{3},",
                                           "(\\d+)(\\D)",
                                           "(\\S)(\\s+)\\S",
                                           "[\\w-]+, .",
                                           "(.)-(.)",
                                           "\\W{2,}[a-z]",
                                           "[^a ]+ [^b]",
                                           "a+[^a]{2}b",
                                           "(\\w{1,2})-+([^-])",
                                           "-?\\w,"};
    static const char *const pieces[] = {"a", "b",  "c", "ab", "1", "22",     " ",      " ",      ",",
                                         "-", "\n", "é", "漢", "😀", "\u0301", "\u0663", "\u2028", "\u00A0"};
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        const std::size_t kinds = i % 2 == 0 ? std::size(pieces) : 11; // ASCII alone
        std::string text;
        for (std::size_t left = random() % 3'000; left > 0; --left) { // several stretches of blocks
            text += pieces[random() % kinds];
        }
        for (const char *pattern : patterns) {
            EXPECT_TRUE(isSequence(pattern)) << pattern;
            ASSERT_EQ(std::optional(marked(text, pattern)), markedByIcu(text, pattern)) << pattern << " in text " << i;
        }
    }
}

TEST(PatternDifferential, WhatTwoSetsTakeOutsideAsciiIsLeftToIcu) {
    const auto tokens = readPattern("[^a]+[^b-z]"); // these two share ASCII
    EXPECT_FALSE(tokens.has_value() && SequencePattern::make(*tokens).has_value());
    for (const char *pattern : {"(\\w+)[^a-zA-Z0-9_]", "([\\w-]+)(\\W)", "(\\d+)(\\D)"}) {
        for (const char *text : {"été 1", "٣٣, 漢a", "a漢 -é"}) {
            EXPECT_EQ(std::optional(marked(text, pattern)), markedByIcu(text, pattern)) << pattern << " in " << text;
        }
    }
    const auto rivals = readPattern("(\\w+)[^a-zA-Z0-9_]");
    ASSERT_TRUE(rivals.has_value());
    const auto ignore = [](const SequencePattern::Groups &) {};
    EXPECT_TRUE(SequencePattern::make(*rivals)->forEachMatch("ab,cd", ignore));
    EXPECT_FALSE(SequencePattern::make(*rivals)->forEachMatch("aé,cd", ignore)); // "é" could be either
}

TEST(PatternDifferential, GivesUpWhereASequenceWouldTakeForEver) {
    // Every "x" begins an attempt that reads to the end of the text.
    std::string text;
    for (int i = 0; i < 200'000; ++i) {
        text += "xa";
    }
    const auto tokens = readPattern("x[a-z]*1");
    ASSERT_TRUE(tokens.has_value());
    EXPECT_FALSE(SequencePattern::make(*tokens)->forEachMatch(text, [](const SequencePattern::Groups &) {}));
}

TEST(PatternDifferential, AFailedRunIsNotReadFromEachOfItsPlaces) {
    const std::string text(2'000'000, 'a');
    const auto tokens = readPattern("[a-z]+1");
    ASSERT_TRUE(tokens.has_value());
    EXPECT_TRUE(SequencePattern::make(*tokens)->forEachMatch(text, [](const SequencePattern::Groups &) {}));
}

} // namespace
} // namespace lexivore
