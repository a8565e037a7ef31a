// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/characters.h"

#include "engine/primitives/utf8.h"
#include "tests/engine/mixed_texts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lexivore {

namespace {

using namespace std::string_literals;
using Characters = std::vector<std::string>;

Characters charactersOf(std::string_view text) {
    Characters characters;
    forEachCharacter(text, [&characters](std::string_view character) { characters.emplace_back(character); });
    return characters;
}

std::string joined(const Characters &characters) {
    std::string text;
    for (const std::string &character : characters) {
        text += character;
    }
    return text;
}

struct Row {
    const char *rule;
    Characters characters;
};

const Row rows[] = {
    {"nothing", {}},
    {"letters", {"a", "b", "é", "漢", "😀"}},
    {"CR LF is one, every other pair of line breaks two", {"\r\n", "\n", "\r", "\r\n", "\r", "\u2028", "\n"}},
    {"marks join what precedes them", {"e\u0301\u0323", "x", "a\u20DD"}},
    {"a mark that begins the text stands alone", {"\u0301", "a"}},
    {"nothing joins a line break or another control character", {"\n", "\u0301", "\0"s, "\u0301", "\t", "\u200D"}},
    {"a mark joins a space", {" \u0301", "\u00A0\u0301"}},
    {"a family of emoji", {"a", "👨\u200D👩\u200D👧\u200D👦", "b"}},
    {"a joiner joins only emoji to emoji", {"a\u200D", "b", "👨\u200D", "b"}},
    {"skin tones and variation selectors", {"👍🏽", "❤\uFE0F", "1\uFE0F\u20E3"}},
    {"flags are pairs", {"🇩🇪", "🇫🇷", "🇮"}},
    {"a flag made of tags", {"🏴\U000E0067\U000E0062\U000E0073\U000E0063\U000E0074\U000E007F", "a"}},
    {"Hangul syllables", {"\u1112\u1161\u11AB", "\u1100\u1173", "한", "가\u11A8"}},
    {"Hangul letters that form no syllable", {"\u1161", "\u1112\u1112\u1161", "x", "\u11AB\u11AB"}},
    {"consonants joined by a virama", {"क्ष", "त्रि", "क्\u200Dष", "न"}},
    {"a virama joins nothing else", {"क्", "a", "a\u094D", "क"}},
    {"spacing vowel signs", {"नि", "ना", "ก\u0E33"}},
    {"a sign that is written before its number", {"\u0600\u0661", "a"}},
    {"a soft hyphen and a byte-order mark stand alone", {"\uFEFF", "a", "\u00AD", "b"}},
};

TEST(Characters, AreExtendedGraphemeClusters) {
    for (const Row &row : rows) {
        SCOPED_TRACE(row.rule);
        const std::string text = joined(row.characters);
        EXPECT_EQ(charactersOf(text), row.characters);
        EXPECT_EQ(characterCount(text), row.characters.size());
    }
}

TEST(Characters, AreTheSameWhereverTheyStand) {
    for (const Row &row : rows) {
        const std::string text = joined(row.characters);
        for (std::size_t before = 0; before < 140; ++before) {
            // Nothing joins a line feed, so what stands before it does not matter.
            const std::string whole = std::string(before, 'a') + "\n" + text + "\n";
            ASSERT_EQ(characterCount(whole), before + row.characters.size() + 2) << row.rule << " behind " << before;
            ASSERT_EQ(charactersOf(std::string_view(whole).substr(before + 1, text.size())), row.characters);
        }
    }
}

TEST(Characters, AreTheSameFarBehindOthersThatJoin) {
    for (const Row &row : rows) {
        const std::string text = joined(row.characters);
        std::string letters;
        for (std::size_t count = 0; count < 1040; ++count) { // more than are looked at together
            letters += "\u044F";
            if (count >= 980) {
                const std::string whole = std::string(text).append(letters).append(text);
                std::size_t expected = 0;
                forEachCharacter(whole, [&expected](std::string_view) { ++expected; });
                ASSERT_EQ(characterCount(whole), expected) << row.rule << " behind " << count;
            }
        }
    }
}

TEST(Characters, EndWhereTheNextOneBegins) {
    const std::string text = "ae\u0301\r\n";
    EXPECT_EQ(characterEnd(text, 0), 1U);
    EXPECT_EQ(characterEnd(text, 1), 4U);
    EXPECT_EQ(characterEnd(text, 4), 6U);
}

TEST(Characters, AreReversedWhole) {
    for (const Row &row : rows) {
        const std::string text = joined(row.characters);
        const std::string reversed = joined({row.characters.rbegin(), row.characters.rend()});
        for (std::size_t before = 0; before < 140; ++before) {
            const std::string whole = std::string(before, 'a') + "\n" + text;
            ASSERT_EQ(reverseCharacters(whole), reversed + "\n" + std::string(before, 'a'))
                << row.rule << " behind " << before;
        }
    }
}

TEST(Characters, AreFilteredByTheirFirstCodePoint) {
    constexpr CharacterFilter letters{property::letter};
    constexpr CharacterFilter otherThanLetters{property::letter, false};
    const std::string text = "a1e\u0301\u0301 !\u0301👨\u200D👩b\r\nक्षि\u0301";
    EXPECT_EQ(filterCharacters(text, letters), "ae\u0301\u0301bक्षि\u0301");
    EXPECT_EQ(filterCharacters(text, otherThanLetters), "1 !\u0301👨\u200D👩\r\n");
    EXPECT_EQ(filterCharacters("\u0301a", letters), "a");
    EXPECT_EQ(filterCharacters("", letters), "");
}

TEST(Characters, AreKeptOrDroppedWhereverTheyStand) {
    constexpr CharacterFilter letters{property::letter};
    for (const std::string_view character : {"b", "é", "e\u0301", "क्ष", "漢", "\u1112\u1161\u11AB"}) {
        for (const std::string_view other : {"-", "1", "😀", "-\u0301", "👨\u200D👩\u200D👧", "\r\n", "\u2028"}) {
            for (std::size_t before = 0; before < 140; ++before) {
                const std::string text =
                    std::string(before, 'a') + std::string(other) + std::string(character) + std::string(other);
                ASSERT_EQ(filterCharacters(text, letters), std::string(before, 'a') + std::string(character))
                    << testing::PrintToString(text);
            }
        }
    }
}

TEST(Characters, OfBlocksAreThoseOfTheWalk) {
    constexpr CharacterFilter filters[] = {{property::letter},         {alphanumerics | property::whiteSpace},
                                           {property::number, false},  {property::punctuation, false},
                                           {property::newline, false}, {property::horizontalSpace}};
    onMixedTexts([&](const std::string &text) {
        const Characters characters = charactersOf(text);
        ASSERT_EQ(characterCount(text), characters.size()) << testing::PrintToString(text);
        ASSERT_EQ(reverseCharacters(text), joined({characters.rbegin(), characters.rend()}))
            << testing::PrintToString(text);
        for (const CharacterFilter filter : filters) {
            std::string expected;
            for (const std::string &character : characters) {
                const char32_t first = decode(character.data(), character.data() + character.size()).value;
                expected += isIn(filter.set, first) == filter.keepsMembers ? character : std::string();
            }
            ASSERT_EQ(filterCharacters(text, filter), expected) << testing::PrintToString(text);
        }
    });
}

TEST(Characters, AreReversedHoweverLongTheyAre) {
    std::string marks;
    for (std::size_t count = 0; count < 150; ++count) {
        ASSERT_EQ(reverseCharacters("aé" + marks + "漢b"), "b漢é" + marks + "a");
        marks += "\u0301";
    }
}

} // namespace

} // namespace lexivore
