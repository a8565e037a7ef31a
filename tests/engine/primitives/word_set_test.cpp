// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/word_set.h"

#include "tests/engine/split_texts.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace lexivore {

namespace {

using namespace std::string_literals;
using Counts = std::map<std::string, std::uint32_t>;

Counts countsOf(const WordSet &words) {
    Counts counts;
    words.forEach([&counts](std::string_view word, std::uint32_t count) {
        EXPECT_EQ(counts.count(std::string(word)), 0U) << word;
        counts[std::string(word)] = count;
    });
    return counts;
}

/// Adds the words of the text, whose memory ends where it does, and compares all with a standard map.
void expectAllWords(const std::string &text) {
    const std::vector<char> memory(text.begin(), text.end());
    const std::string_view exact(memory.data(), memory.size());
    Counts expected;
    std::vector<std::string_view> expectedNew;
    std::size_t expectedCount = 0;
    for (const std::string_view word : splitPieces(exact, whitespaceAndNewlines)) {
        ++expectedCount;
        if (++expected[std::string(word)] == 1) {
            expectedNew.push_back(word);
        }
    }
    WordSet words(exact, WordSet::Counting::on);
    std::vector<std::string_view> newWords;
    words.addWords([&newWords](std::string_view word) {
        newWords.push_back(word);
        return true;
    });
    ASSERT_EQ(countsOf(words), expected);
    EXPECT_EQ(words.size(), expected.size());
    EXPECT_EQ(words.addedCount(), expectedCount);
    ASSERT_EQ(newWords.size(), expectedNew.size());
    for (std::size_t i = 0; i < newWords.size(); ++i) {
        ASSERT_EQ(newWords[i].data(), expectedNew[i].data()) << "not at its first place: " << newWords[i];
        ASSERT_EQ(newWords[i], expectedNew[i]);
    }
}

TEST(WordSet, CountsTheDifferentWords) {
    expectAllWords("");
    expectAllWords(" \n\t");
    expectAllWords("a");
    expectAllWords("b a\nb\u3000a\u2028 ab a");
}

TEST(WordSet, TellsWordsThatEndInNulApart) {
    std::string text;
    for (std::size_t size = 1; size < 40; ++size) {
        text += std::string(size, '\0') + " " + "a" + std::string(size, '\0') + "\n";
    }
    expectAllWords(text + text);
}

TEST(WordSet, TellsWordsThatBeginAlikeApart) {
    std::string text;
    for (const std::size_t common : {6U, 7U, 8U, 9U, 14U, 15U, 16U, 17U, 40U}) {
        for (const char *end : {"", "a", "b", "aa", "ab", "b\n"}) {
            text += std::string(common, 'x') + end + " ";
        }
    }
    expectAllWords(text + text);
    expectAllWords("at the end " + text + "xa b"); // and where fewer bytes than are read at once follow
}

TEST(WordSet, EqualsAStandardMapOnRandomWords) {
    constexpr unsigned seed = 1;
    std::mt19937 random(seed);
    for (const unsigned differentWords : {10U, 3000U, 60'000U}) {
        std::string text;
        for (int i = 0; i < 60'000; ++i) {
            text += std::to_string(random() % differentWords) + std::string(random() % 3, 'x');
            text += random() % 9 == 0 ? "\u00E9 and a long end of it"s.substr(0, random() % 20) : "";
            text += random() % 7 == 0 ? "\r\n" : " ";
        }
        SCOPED_TRACE("seed " + std::to_string(seed));
        expectAllWords(text);
    }
}

TEST(WordSet, AddsNoMoreWordsWhenItIsTold) {
    std::string text;
    for (int i = 0; i < 1000; ++i) {
        text += std::to_string(i) + " ";
    }
    WordSet words(text, WordSet::Counting::on);
    std::size_t visited = 0;
    words.addWords([&visited](std::string_view) { return ++visited < 100; });
    EXPECT_EQ(visited, 100U);
    EXPECT_EQ(words.size(), 100U);
    EXPECT_EQ(words.addedCount(), 100U);
}

} // namespace

} // namespace lexivore
