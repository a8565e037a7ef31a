// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/text_counts.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/words.h"
#include "tests/engine/split_texts.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <string>
#include <tuple>

namespace lexivore {

bool operator==(const TextCounts &left, const TextCounts &right) {
    const auto fields = [](const TextCounts &counts) {
        return std::tie(counts.whitespaceCharacters, counts.words, counts.lines, counts.nonBlankLines,
                        counts.nonBlankSentences, counts.nonBlankParagraphs);
    };
    return fields(left) == fields(right);
}

void PrintTo(const TextCounts &counts, std::ostream *out) {
    *out << counts.whitespaceCharacters << " white space, " << counts.words << " words, " << counts.lines << " lines, "
         << counts.nonBlankLines << " of them not blank, " << counts.nonBlankSentences << " sentences, "
         << counts.nonBlankParagraphs << " paragraphs";
}

namespace {

/// The same, each by its rule, from the primitives that walk characters, words and lines.
TextCounts plainCounts(std::string_view text) {
    TextCounts counts;
    forEachCharacter(text, [&](std::string_view character) {
        const char32_t first = decode(character.data(), character.data() + character.size()).value;
        counts.whitespaceCharacters += isIn(property::whiteSpace, first) ? 1U : 0U;
    });
    counts.words = splitPieces(text, whitespaceAndNewlines).size();
    forEachLine(text, [&](std::string_view line) {
        ++counts.lines;
        counts.nonBlankLines += isBlank(line) ? 0U : 1U;
    });
    for (const std::string_view sentence : splitSentences(text)) {
        counts.nonBlankSentences += isBlank(sentence) ? 0U : 1U;
    }
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find("\n\n", begin), text.size());
        counts.nonBlankParagraphs += isBlank(text.substr(begin, end - begin)) ? 0U : 1U;
        begin = end + 2;
    }
    return counts;
}

TEST(TextCounts, OfNothingAreOneLine) {
    EXPECT_EQ(countText(""), (TextCounts{0, 0, 1, 0, 0, 0}));
    EXPECT_EQ(countText({}), (TextCounts{0, 0, 1, 0, 0, 0}));
}

TEST(TextCounts, FollowTheRuleOfEachField) {
    EXPECT_EQ(countText(" One two.\n\nThree!\r\n \t\n"), (TextCounts{8, 3, 6, 2, 3, 2}));
}

TEST(TextCounts, AreTheSameAtEveryPlaceInABlock) {
    // Everything that reaches from one block into the next.
    const std::string_view texts[] = {
        "\r\n",         "\n\n",     "\n\n\n",    "\n\n\n\n\n", "\n \n",         " \n\n ",       ". .",
        "\u00A0",       "\u2028",   "a\u3000 b", "\u0600 ",    "\u0600\t",      "\u0600\u00A0", "\u0600\n",
        "\u1680\u1680", " \u2003 ", "\xC2",      "\xE2\x80",   "\xE2\x80 \xA8", "\xFF\xFF.",    "\x80\xA0",
    };
    for (const std::string_view text : texts) {
        for (const std::string_view filler : {"x", " ", "\n", ".", "\xCC\x81", "\r"}) {
            for (std::size_t before = 0; before < 135; ++before) {
                std::string whole;
                while (whole.size() < before) {
                    whole += filler;
                }
                whole += text;
                ASSERT_EQ(countText(whole), plainCounts(whole)) << testing::PrintToString(whole);
                whole += "y";
                ASSERT_EQ(countText(whole), plainCounts(whole)) << testing::PrintToString(whole);
            }
        }
    }
}

TEST(TextCounts, EqualThePlainOnesOnRandomPieces) {
    const std::string_view pieces[] = {
        "a",      "word",   " ",      " ",      "\t",       "\n",     "\n",     "\n\n",   "\r",
        "\r\n",   "\v",     "\f",     ".",      "!",        "?",      "\u0085", "\u00A0", "\u1680",
        "\u2003", "\u2028", "\u2029", "\u200B", "\u3000",   "\u3001", "\u0301", "\u0600", "\u0903",
        "é",      "漢",     "😀",      "\xC2",   "\xE2\x80", "\xE3",   "\x80",   "\xFF",   "\xF0\x9F",
    };
    constexpr unsigned seed = 20240613;
    std::mt19937 random(seed);
    for (int round = 0; round < 6000; ++round) {
        const std::size_t kinds = random() % 2 == 0 ? std::size(pieces) : 1 + random() % 5;
        const std::size_t first = random() % std::size(pieces);
        std::string text;
        for (std::size_t left = random() % (round % 100 == 0 ? 6000 : 150); left > 0; --left) {
            text += pieces[(first + random() % kinds) % std::size(pieces)];
        }
        ASSERT_EQ(countText(text), plainCounts(text)) << "seed " << seed << ": " << testing::PrintToString(text);
        if (!countCharacters(text).mayTakeInSpaces) {
            ASSERT_EQ(countText(text, Spaces::standAlone), plainCounts(text)) << testing::PrintToString(text);
        }
    }
}

TEST(TextCounts, KnowWhenEverySpaceStandsAlone) {
    for (const std::string text : {"", "abc def\r\n", "é ल 漢 😀 \u0301 🇩🇪 "}) {
        EXPECT_FALSE(countCharacters(text).mayTakeInSpaces) << text;
        EXPECT_EQ(countText(text, Spaces::standAlone), plainCounts(text)) << text;
    }
    EXPECT_TRUE(countCharacters(std::string(300, 'a') + "\u0600" + std::string(300, ' ')).mayTakeInSpaces);
}

} // namespace
} // namespace lexivore
