// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/lines.h"

#include "tests/engine/split_texts.h"

#include <gtest/gtest.h>

#include <string>

namespace lexivore {

namespace {

using namespace std::string_literals;
using Pieces = std::vector<std::string_view>;

constexpr std::string_view newlineCharacters[] = {"\n", "\v", "\f", "\r", "\u0085", "\u2028", "\u2029"};
/// Neighbours of newline characters, and characters that share bytes with them.
constexpr std::string_view lookalikes[] = {"\t",     "\016",   "\034",   "\037",   " ",      "\u0084",
                                           "\u0086", "\u00A0", "\u0385", "\u2027", "\u202A", "\u2030",
                                           "\u20A8", "\u2A28", "\u8028", "\u200B"};

TEST(Lines, FindNewlineNumberCountsFromZero) {
    const std::string text =
        "a\nb\r\nc\xC2\x85" + std::string(100, 'x') + "\xE2\x80\xA8\n" + std::string(70, '\n') + "end";
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const NewlineMatch match = findNewline(text.data() + i, text.data() + text.size());
        if (match.length != 0 && match.position == text.data() + i) {
            places.push_back(i);
        }
    }
    ASSERT_EQ(places.size(), 76U);
    for (std::size_t index = 0; index < places.size(); ++index) {
        EXPECT_EQ(findNewlineNumber(text, index), text.data() + places[index]) << index;
    }
    EXPECT_EQ(findNewlineNumber(text, places.size()), text.data() + text.size());
    EXPECT_EQ(findNewlineNumber(text, UINT64_MAX), text.data() + text.size());
    EXPECT_EQ(findNewlineNumber({}, 0), nullptr);
    for (std::size_t index = 0; index < places.size(); ++index) {
        EXPECT_EQ(findNewlineNumberFromEnd(text, index), text.data() + places[places.size() - 1 - index]) << index;
    }
    EXPECT_EQ(findNewlineNumberFromEnd(text, places.size()), nullptr);
    EXPECT_EQ(findNewlineNumberFromEnd(text, UINT64_MAX), nullptr);
    EXPECT_EQ(findNewlineNumberFromEnd({}, 0), nullptr);
}

TEST(Lines, FindNewlineNumberFromEndFindsThoseOfManyBytesAnywhere) {
    // Around the borders of what is looked at together.
    for (const std::string_view newline : newlineCharacters) {
        for (std::size_t behind = 4080; behind < 4110; ++behind) {
            for (const std::string_view filler : {"a", "\x80"}) {
                std::string text = "ab";
                text += newline;
                for (std::size_t i = 0; i < behind; ++i) {
                    text += filler;
                }
                ASSERT_EQ(findNewlineNumberFromEnd(text, 0), text.data() + 2) << behind;
                ASSERT_EQ(findNewlineNumberFromEnd(text, 1), nullptr) << behind;
            }
        }
    }
}

TEST(Lines, AreCutAtEveryNewlineCharacter) {
    for (const std::string_view newline : newlineCharacters) {
        const std::string text = "a" + std::string(newline) + "b";
        EXPECT_EQ(splitLines(text), (Pieces{"a", "b"})) << testing::PrintToString(newline);
    }
}

TEST(Lines, AreCutNowhereElse) {
    for (const std::string_view other : lookalikes) {
        const std::string text = "a" + std::string(other) + "b";
        EXPECT_EQ(splitLines(text), Pieces{text}) << testing::PrintToString(other);
    }
}

TEST(Lines, OfTheEmptyTextAreOneEmptyLine) {
    EXPECT_EQ(splitLines(""), Pieces{""});
    EXPECT_EQ(splitLines({}), Pieces{""});
    EXPECT_EQ(lineCount(""), 1U);
}

TEST(Lines, EndWithAnEmptyOneBehindAFinalLineBreak) { EXPECT_EQ(splitLines("a\n"), (Pieces{"a", ""})); }

TEST(Lines, HaveAnEmptyOneWithinCrLf) { EXPECT_EQ(splitLines("a\r\nb"), (Pieces{"a", "", "b"})); }

TEST(Lines, MayHoldNul) {
    const std::string text = "a\0b\n\0"s;
    EXPECT_EQ(splitLines(text), (Pieces{"a\0b"s, "\0"s}));
}

TEST(Lines, AreLentFromTheText) {
    const std::string text = "ab\ncd";
    const Pieces lines = splitLines(text);
    EXPECT_EQ(lines[0].data(), text.data());
    EXPECT_EQ(lines[1].data(), text.data() + 3);
}

TEST(Lines, AreFoundWhereverTheLineBreakStands) {
    for (std::size_t before = 0; before < 140; ++before) {
        for (const std::string_view newline : newlineCharacters) {
            for (const std::string_view filler : {"a", "é", "漢"}) {
                std::string line;
                for (std::size_t i = 0; i < before; ++i) {
                    line += filler;
                }
                const std::string text = line + std::string(newline) + std::string(newline) + line;
                ASSERT_EQ(splitLines(text), (Pieces{line, "", line}))
                    << before << " times " << filler << " before " << testing::PrintToString(newline);
                ASSERT_EQ(lineCount(text), 3U);
            }
        }
    }
}

TEST(Lines, AreCountedAsTheyAreSplit) {
    std::string text;
    for (std::size_t i = 0; i < 3000; ++i) {
        text += newlineCharacters[i * i % std::size(newlineCharacters)];
        text += lookalikes[i * 5 % std::size(lookalikes)];
        text.append(i % 37, 'x');
    }
    EXPECT_EQ(splitLines(text).size(), 3001U);
    EXPECT_EQ(lineCount(text), 3001U);
}

TEST(FindNewline, GivesThePlaceAndTheLength) {
    for (const std::string_view newline : newlineCharacters) {
        for (std::size_t before = 0; before < 140; ++before) {
            const std::string text = std::string(before, 'a') + std::string(newline) + "b\n";
            const NewlineMatch match = findNewline(text.data(), text.data() + text.size());
            ASSERT_EQ(match.position, text.data() + before);
            ASSERT_EQ(match.length, newline.size());
        }
    }
}

TEST(FindNewline, GivesTheEndWhenThereIsNone) {
    for (const std::string_view other : lookalikes) {
        const std::string text = std::string(100, 'a') + std::string(other);
        const NewlineMatch match = findNewline(text.data(), text.data() + text.size());
        EXPECT_EQ(match.position, text.data() + text.size());
        EXPECT_EQ(match.length, 0U);
    }
}

TEST(Trimmed, DropsSpacesAndTabsAtBothEnds) {
    EXPECT_EQ(trimmed(" \t a b\t "), "a b");
    EXPECT_EQ(trimmed("\u00A0\u1680\u2000\u200A\u202F\u205F\u3000a\u3000\u00A0"), "a");
    EXPECT_EQ(trimmed("é 漢 😀 "), "é 漢 😀");
}

TEST(Trimmed, LeavesEverythingElse) {
    for (const std::string_view text : {"\na\n", "\r\na\r\n", "\u2028a\u2028", "\u0085a\u0085", "\va\f",
                                        "\u200Ba\uFEFF", "\u180Ea", "\037a\037", "a", ""}) {
        EXPECT_EQ(trimmed(text), text) << testing::PrintToString(text);
    }
    EXPECT_EQ(trimmed(" \0 "s), "\0"s);
}

TEST(Lines, BeginBehindEveryNewlineCharacterAndAtTheText) {
    for (const std::string_view newline : newlineCharacters) {
        const std::string text = "a" + std::string(newline) + "bcd";
        const char *const begin = text.data() + 1 + newline.size();
        EXPECT_TRUE(isLineBegin(text.data(), text.data()));
        EXPECT_TRUE(isLineBegin(text.data(), begin));
        EXPECT_FALSE(isLineBegin(text.data(), begin + 1));
        EXPECT_EQ(lineBeginAt(text.data(), begin), begin);
        EXPECT_EQ(lineBeginAt(text.data(), begin + 2), begin);
        EXPECT_EQ(lineBeginAt(text.data(), text.data() + 1), text.data());
    }
    for (const std::string_view lookalike : lookalikes) {
        const std::string text = std::string(lookalike) + "a";
        EXPECT_EQ(lineBeginAt(text.data(), text.data() + lookalike.size()), text.data());
    }
}

TEST(Trimmed, LeavesNothingOfSpacesAlone) {
    EXPECT_EQ(trimmed(" \t\u3000"), "");
    EXPECT_EQ(trimmed({}), "");
}

TEST(IsBlank, HoldsForSpacesAndTabsAndForNothing) {
    for (const std::string_view text : {"", " ", "\t", " \t\u00A0\u3000 "}) {
        EXPECT_TRUE(isBlank(text)) << testing::PrintToString(text);
    }
    for (const std::string_view text : {"a", " a ", "\n", "\r", "\u2028", "\u200B", " \u0301"}) {
        EXPECT_FALSE(isBlank(text)) << testing::PrintToString(text);
    }
    EXPECT_FALSE(isBlank("\0"s));
}

} // namespace

} // namespace lexivore
