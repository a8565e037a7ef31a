// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/piece_set.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <string>

namespace lexivore {

namespace {

TEST(PieceSet, SaysWhetherAPieceIsNew) {
    PieceSet pieces;
    EXPECT_TRUE(pieces.insert("a"));
    EXPECT_FALSE(pieces.insert("a"));
    EXPECT_TRUE(pieces.insert("b"));
    EXPECT_TRUE(pieces.insert("ab"));
    EXPECT_FALSE(pieces.insert("b"));
    EXPECT_EQ(pieces.size(), 3U);
}

TEST(PieceSet, ComparesBytesAndNotPlaces) {
    const std::string text = "ab ab";
    PieceSet pieces;
    EXPECT_TRUE(pieces.insert(std::string_view(text).substr(0, 2)));
    EXPECT_FALSE(pieces.insert(std::string_view(text).substr(3, 2)));
}

TEST(PieceSet, HoldsTheEmptyPieceOnce) {
    PieceSet pieces;
    EXPECT_TRUE(pieces.insert(""));
    EXPECT_FALSE(pieces.insert(""));
    EXPECT_EQ(pieces.size(), 1U);
}

TEST(PieceSet, CountsWhatWasInserted) {
    PieceSet pieces(PieceSet::Counting::yes);
    for (const char *piece : {"a", "b", "a", "", "a", "b"}) {
        pieces.insert(piece);
    }
    EXPECT_EQ(pieces.countOf("a"), 3U);
    EXPECT_EQ(pieces.countOf("b"), 2U);
    EXPECT_EQ(pieces.countOf(""), 1U);
    EXPECT_EQ(pieces.countOf("c"), 0U);
    const std::vector<std::string_view> all = pieces.pieces();
    EXPECT_EQ(std::set<std::string_view>(all.begin(), all.end()), (std::set<std::string_view>{"", "a", "b"}));
    EXPECT_EQ(all.size(), 3U);
}

TEST(PieceSet, TellsPiecesThatEndInNulApart) {
    PieceSet pieces;
    for (std::size_t length = 0; length < 100; ++length) {
        const static std::string zeros(100, '\0');
        EXPECT_TRUE(pieces.insert(std::string_view(zeros).substr(0, length))) << length;
    }
}

TEST(PieceSet, EqualsAStandardSet) {
    constexpr unsigned seed = 1;
    std::mt19937 random(seed);
    std::string all;
    std::vector<std::size_t> ends;
    for (int i = 0; i < 50'000; ++i) {
        all += std::to_string(random() % 20'000) + std::string(random() % 3, 'x') +
               (random() % 9 == 0 ? "a long end of it" : "");
        ends.push_back(all.size());
        all += ' ';
    }
    for (const std::size_t expectedPieces : {0U, 10U, 100'000U}) {
        PieceSet pieces(PieceSet::Counting::yes, expectedPieces);
        DistinctJoiner joiner(',', all, expectedPieces);
        std::map<std::string, std::size_t> expected;
        std::string joined;
        std::size_t begin = 0;
        for (const std::size_t end : ends) {
            const std::string_view piece = std::string_view(all).substr(begin, end - begin);
            begin = end + 1;
            const std::string text(piece);
            const bool isNew = ++expected[text] == 1;
            ASSERT_EQ(pieces.insert(piece), isNew) << text << ", seed " << seed;
            joiner.add(piece);
            joined += isNew ? (joined.empty() ? "" : ",") + text : "";
        }
        EXPECT_EQ(joiner.take(), joined);
        EXPECT_EQ(pieces.size(), expected.size());
        for (const auto &[text, count] : expected) {
            ASSERT_EQ(pieces.countOf(text), count) << text << ", seed " << seed;
        }
    }
}

} // namespace

} // namespace lexivore
