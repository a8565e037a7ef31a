// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/words.h"

#include "tests/engine/split_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace lexivore {

namespace {

using namespace std::string_literals;
using Pieces = std::vector<std::string_view>;

TEST(Pieces, StandBetweenSeparatorsAndAreNeverEmpty) {
    EXPECT_EQ(splitPieces("  a b \t\n c", whitespaceAndNewlines), (Pieces{"a", "b", "c"}));
    EXPECT_EQ(splitPieces("a b\nc", whitespace), (Pieces{"a", "b\nc"}));
    EXPECT_EQ(splitPieces("a b\nc", newlines), (Pieces{"a b", "c"}));
    EXPECT_EQ(splitPieces("a\u3000b\u2028c\u0085d", whitespaceAndNewlines), (Pieces{"a", "b", "c", "d"}));
    EXPECT_EQ(splitPieces("a1é-b2", alphanumerics), Pieces{"-"});
}

TEST(Pieces, OfNothingAreNone) {
    for (const std::string_view text : {"", " ", " \r\n\t\u2029\u3000"}) {
        EXPECT_EQ(splitPieces(text, whitespaceAndNewlines), Pieces{});
        EXPECT_EQ(pieceCount(text, whitespaceAndNewlines), 0U);
    }
    EXPECT_EQ(splitPieces({}, whitespace), Pieces{});
}

TEST(Pieces, AreFoundWhereverTheyStand) {
    for (std::size_t before = 0; before < 140; ++before) {
        for (const std::string_view separator : {" ", "\u00A0", "\u3000", "\r\n", " \u2028 "}) {
            for (const std::string_view word : {"a", "é", "漢字", "😀\u200D😀", "\u200B"}) {
                std::string text = std::string(before, 'x') + std::string(separator) + std::string(word) +
                                   std::string(separator) + std::string(before, 'y');
                Pieces pieces = {word};
                if (before > 0) {
                    pieces = {std::string_view(text).substr(0, before), word,
                              std::string_view(text).substr(text.size() - before)};
                }
                ASSERT_EQ(splitPieces(text, whitespaceAndNewlines), pieces)
                    << before << " before " << testing::PrintToString(separator) << " and " << word;
                ASSERT_EQ(pieceCount(text, whitespaceAndNewlines), pieces.size());
            }
        }
    }
}

TEST(Pieces, EqualThoseFoundByteByByte) {
    std::mt19937 random(1);
    for (const unsigned longest : {2U, 12U, 300U, 10'000U}) { // shorter and longer than what is looked at at once
        for (std::size_t size = 0; size < 30'000; size = size * 3 + 1 + random() % 100) {
            std::string text;
            while (text.size() < size) {
                text += std::string(random() % longest, 'a') + std::string(random() % 3, ' ');
            }
            text.resize(size);
            Pieces expected;
            for (std::size_t begin = 0; (begin = text.find('a', begin)) != std::string::npos;) {
                const std::size_t end = std::min(text.find(' ', begin), text.size());
                expected.push_back(std::string_view(text).substr(begin, end - begin));
                begin = end;
            }
            ASSERT_EQ(splitPieces(text, whitespaceAndNewlines), expected);
        }
    }
}

TEST(Pieces, AreJoinedWithOneCharacter) {
    EXPECT_EQ(joinPieces("  a \t b\u3000c ", whitespace, ' '), "a b c");
    EXPECT_EQ(joinPieces("a\u00A0\nb", whitespace, ' '), "a \nb");
    EXPECT_EQ(joinPieces("a \nb", whitespaceAndNewlines, '\n'), "a\nb");
    EXPECT_EQ(joinPieces(" \t", whitespace, ' '), "");
}

TEST(FindMember, GivesTheFirstMemberOrTheEnd) {
    const std::string text = "ab é\u3000漢";
    const char *const begin = text.data();
    const char *const end = begin + text.size();
    EXPECT_EQ(findMember(begin, end, whitespace) - begin, 2);
    EXPECT_EQ(findMember(begin + 3, end, whitespace) - begin, 5);
    EXPECT_EQ(findMember(begin, end, property::number), end);
    EXPECT_EQ(findMember(end, end, whitespace), end);
}

TEST(FindNonMember, GivesTheFirstOtherOrTheEnd) {
    const std::string text = "\t \u3000é1";
    const char *const begin = text.data();
    const char *const end = begin + text.size();
    EXPECT_EQ(findNonMember(begin, end, whitespace) - begin, 5);
    EXPECT_EQ(findNonMember(begin, end, whitespace | alphanumerics), end);
}

} // namespace

} // namespace lexivore
