// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/replacement.h"

#include "tests/support/memory_ceiling.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace lexivore {

namespace {

TEST(ReplaceAll, ReplacesFromTheStartWithoutOverlaps) {
    EXPECT_EQ(replaceAll("aaaaa", "aa", "b").view(), "bba");
    EXPECT_EQ(replaceAll("abcabc", "abc", "").view(), "");
    EXPECT_EQ(replaceAll("abc", "x", "y").view(), "abc");
    EXPECT_EQ(replaceAll("abc", "abcd", "y").view(), "abc");
}

TEST(ReplaceAll, FindsNothingEmpty) {
    EXPECT_EQ(replaceAll("abc", "", "x").view(), "abc");
    EXPECT_EQ(replaceAll("", "", "x").view(), "");
    EXPECT_EQ(replaceAll({}, "a", "x").view(), "");
}

TEST(ReplaceAll, MayGiveALongerAShorterOrAnEquallyLongText) {
    for (std::size_t count = 0; count < 140; ++count) {
        for (const std::string_view find : {"b", "é", "bcd"}) {
            for (const std::string_view replacement : {"", "x", "漢", "longer than that"}) {
                std::string text;
                std::string expected;
                for (std::size_t i = 0; i < count; ++i) {
                    text.append(i % 5, 'a').append(find);
                    expected.append(i % 5, 'a').append(replacement);
                }
                ASSERT_EQ(replaceAll(text, find, replacement).view(), expected);
            }
        }
    }
}

TEST(ReplaceAll, EqualsAPlainReplacement) {
    std::mt19937 random(5);
    for (int round = 0; round < 3'000; ++round) {
        std::string text(random() % (round % 10 == 0 ? 20'000 : 400), 'a');
        for (char &letter : text) {
            letter = static_cast<char>('a' + random() % (round % 3 == 0 ? 20 + round % 100 : 2 + round % 9));
        }
        const std::string find = std::string("abc").substr(random() % 3) + (round % 7 == 0 ? std::string(17, 'a') : "");
        const std::string replacement(random() % 40, 'X');
        std::string expected;
        std::size_t position = 0;
        for (std::size_t found = 0; (found = text.find(find, position)) != std::string::npos;) {
            expected.append(text, position, found - position).append(replacement);
            position = found + find.size();
        }
        expected.append(text, position);
        ASSERT_EQ(replaceAll(text, find, replacement).view(), expected) << "round " << round;
    }
}

TEST(ReplaceAll, ReplacesWhatStandsAboutAsFarApartAsABlockIsLong) {
    std::mt19937 random(6);
    for (const std::string_view find : {"b", "the", "bcdefghijklmnopq", "abab", "éé"}) {
        for (const std::string_view replacement :
             {"", "x", "THAT", "as long as it may", "no longer a block", "0123456789abcdef"}) {
            for (const std::size_t mostBetween : {20U, 60U, 130U, 300U}) {
                std::string text;
                std::string expected;
                while (text.size() < 9'000) {
                    const std::string between(random() % mostBetween, '-');
                    text.append(between).append(find);
                    expected.append(between).append(replacement);
                }
                ASSERT_EQ(replaceAll(text, find, replacement).view(), expected) << find << " " << replacement;
            }
        }
    }
}

TEST(ReplaceAll, ReplacesPartsOfEverySizeByThoseOfEverySize) {
    std::mt19937 random(7);
    const std::string longest = "nopqrstuvwxyzNOP"; // no byte stands twice in it
    for (std::size_t partSize = 1; partSize <= longest.size(); ++partSize) {
        const std::string find = longest.substr(longest.size() - partSize);
        for (std::size_t size = 0; size <= partSize + 4; ++size) {
            const std::string replacement = std::string("0123456789ABCDEFGHIJ").substr(0, size);
            for (const std::size_t mostBetween : {1U, 4U, 40U, 5'000U}) {
                std::string text;
                std::string expected;
                while (text.size() < 9'000) {
                    const std::string between(random() % mostBetween, '-');
                    const std::string beginning = find.substr(0, random() % partSize); // of one that does not go on
                    text.append(beginning).append(between).append(find);
                    expected.append(beginning).append(between).append(replacement);
                }
                ASSERT_EQ(replaceAll(text, find, replacement).view(), expected) << find << " " << mostBetween;
            }
        }
    }
}

TEST(ReplaceAll, RefusesWhatWouldBeTooLargeBeforeItWritesIt) {
    std::string text(std::size_t{1} << 20U, 'a');
    const std::string replacement(4096, 'b');
    {
        const test::MemoryCeiling ceiling(std::size_t{1} << 28U);
        EXPECT_THROW((void)replaceAll(text, "a", replacement), TextTooLarge);
    }
    // As much text, but with little in it to replace.
    text.replace(1000, 2, "xx");
    EXPECT_EQ(replaceAll(text, "x", replacement).view(),
              std::string(1000, 'a') + replacement + replacement + std::string(text.size() - 1002, 'a'));
}

constexpr kernels::AsciiSet spaceAndDigit(" 1");

TEST(RemoveCharacters, DropsTheMembersAlone) {
    EXPECT_EQ(removeCharacters(" a1 b\u00A0é2 ", spaceAndDigit).view(), "ab\u00A0é2");
    EXPECT_EQ(removeCharacters("", spaceAndDigit).view(), "");
    EXPECT_EQ(removeCharacters(" 1 1", spaceAndDigit).view(), "");
}

TEST(RemoveCharacters, DropsThemWhereverTheyStand) {
    for (std::size_t before = 0; before < 140; ++before) {
        const std::string text(before, 'a');
        ASSERT_EQ(removeCharacters(text + " 1é1" + text, spaceAndDigit).view(), text + "é" + text);
    }
}

constexpr EscapeTable escapes{{'&', "&amp;"}, {'\n', "\\n"}, {'"', "'"}};

TEST(EscapeCharacters, WritesWhatTheTableSays) {
    EXPECT_EQ(escapeCharacters("a&\n\"é&amp;", escapes).view(), "a&amp;\\n'é&amp;amp;");
    EXPECT_EQ(escapeCharacters("", escapes).view(), "");
}

TEST(EscapeCharacters, FindsThemWhereverTheyStand) {
    for (std::size_t before = 0; before < 140; ++before) {
        const std::string text(before, 'a');
        ASSERT_EQ(escapeCharacters(text + "&\né" + text + "\"", escapes).view(), text + "&amp;\\né" + text + "'");
    }
}

} // namespace

} // namespace lexivore
