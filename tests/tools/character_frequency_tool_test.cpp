// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/utf8.h"
#include "tests/reference/tools_reference.h"
#include "tests/tools/printing.h"
#include "tests/tools/sample_texts.h"
#include "tools/character_frequency_tool.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>

namespace lexivore {
namespace {

using Frequencies = std::vector<CharacterFrequency>;

Frequencies plainFrequencies(std::string_view text) {
    Frequencies result;
    for (const auto &[character, count] : reference::frequencies(text)) {
        result.push_back({character, count});
    }
    return result;
}

TEST(CharacterFrequencies, AreSortedByCountAndKeepLetterCase) {
    EXPECT_EQ(characterFrequencies("aA a"), (Frequencies{{"a", 2}, {"A", 1}, {"", 1}}));
}

TEST(CharacterFrequencies, OfNothingAreNone) { EXPECT_EQ(characterFrequencies(""), Frequencies{}); }

TEST(CharacterFrequencies, ReKeyThePlainSpaceOnly) {
    EXPECT_EQ(characterFrequencies(" \t\n\xC2\xA0"), (Frequencies{{"", 1}, {"\t", 1}, {"\n", 1}, {"\xC2\xA0", 1}}));
    // A space with a mark is another character.
    EXPECT_EQ(characterFrequencies("  \xCC\x81 "), (Frequencies{{"", 2}, {" \xCC\x81", 1}}));
}

TEST(CharacterFrequencies, CountCrLfAsOneCharacter) {
    EXPECT_EQ(characterFrequencies("a\r\nb\r\n\r\r\n\n\n"),
              (Frequencies{{"\r\n", 3}, {"\n", 2}, {"a", 1}, {"b", 1}, {"\r", 1}}));
}

TEST(CharacterFrequencies, NeitherComposeNorFold) {
    EXPECT_EQ(characterFrequencies("\xC3\xA9"
                                   "e\xCC\x81"
                                   "e"),
              (Frequencies{{"\xC3\xA9", 1}, {"e\xCC\x81", 1}, {"e", 1}}));
}

TEST(CharacterFrequencies, KeepEqualCountsInTheOrderOfAppearance) {
    EXPECT_EQ(characterFrequencies("zyaé一zb"),
              (Frequencies{{"z", 2}, {"y", 1}, {"a", 1}, {"é", 1}, {"一", 1}, {"b", 1}}));
}

TEST(CharacterFrequencies, EqualThePlainOnesOnRandomText) {
    std::mt19937 random(sampleSeed);
    for (int round = 0; round < 4000; ++round) {
        const std::string text = randomText(random, 120);
        ASSERT_EQ(characterFrequencies(text), plainFrequencies(text)) << "round " << round << ": " << text;
    }
}

TEST(CharacterFrequencies, EqualThePlainOnesOnLongText) {
    std::mt19937 random(sampleSeed);
    for (int round = 0; round < 60; ++round) {
        const std::string text = randomText(random, 9000);
        ASSERT_EQ(characterFrequencies(text), plainFrequencies(text)) << "round " << round;
    }
}

TEST(CharacterFrequencies, EqualThePlainOnesOnLinesOfAscii) {
    std::mt19937 random(sampleSeed);
    for (int round = 0; round < 60; ++round) {
        // Runs of any length round those that are counted in pairs, and longer than those that are looked at at once.
        const std::string lineEnd = round % 3 == 0 ? "\n" : round % 3 == 1 ? "\r\n" : "";
        const unsigned mostCharacters = round % 2 == 0 ? 150 : 40'000;
        std::string text;
        while (text.size() < 50'000) {
            for (auto left = random() % mostCharacters; left > 0; --left) {
                text += static_cast<char>(random() % 128);
            }
            text += lineEnd;
        }
        text += round % 5 == 0 ? "e\xCC\x81" : "";
        ASSERT_EQ(characterFrequencies(text), plainFrequencies(text)) << "round " << round;
    }
}

TEST(CharacterFrequencies, KnowHalvesOfCrLfByThemselvesInLongText) {
    // At every place of the pieces that are counted together, which end at powers of two.
    for (std::size_t shift = 0; shift < 4; ++shift) {
        std::string text(shift, 'a');
        while (text.size() < 140'000) {
            text += "ab\r\n";
        }
        text += "\n\r";
        ASSERT_EQ(characterFrequencies(text), plainFrequencies(text)) << shift;
        text += "\r\n\xCC\x81" + text + "\xCC\x81";
        ASSERT_EQ(characterFrequencies(text), plainFrequencies(text)) << shift;
    }
}

TEST(CharacterFrequencies, KeepManyCodePointsInTheOrderOfAppearance) {
    std::mt19937 random(sampleSeed);
    std::string text;
    for (int i = 0; i < 30'000; ++i) {
        char bytes[4];
        const auto codePoint =
            static_cast<char32_t>(random() % 5 == 0 ? 0x300 + random() % 0x50 : 0x3400 + random() % 0x6000);
        text.append(bytes, encode(codePoint, bytes));
        text += random() % 50 == 0 ? "\U0001F600" : random() % 50 == 0 ? "\uFFFD" : "";
    }
    EXPECT_EQ(characterFrequencies(text), plainFrequencies(text));
}

TEST(CharacterFrequencies, TellApartWhatBeginsOrEndsAlike) {
    // Letters with one to six marks, more of them than a table of the latest holds.
    std::mt19937 random(sampleSeed);
    const std::string marks[] = {"\xCC\x81", "\xCC\x88", "\xCD\x82"};
    std::string text;
    for (int i = 0; i < 20'000; ++i) {
        text += static_cast<char>('a' + random() % 26);
        for (auto left = 1 + random() % 6; left > 0; --left) {
            text += marks[random() % 3];
        }
    }
    EXPECT_EQ(characterFrequencies(text), plainFrequencies(text));
}

TEST(CharacterFrequencies, AddUpToTheWholeTextOnAnyBytes) {
    std::mt19937 random(sampleSeed);
    std::vector<std::string> texts = hostileTexts();
    for (int round = 0; round < 2000; ++round) {
        texts.push_back(randomBytes(random, random() % 300));
    }
    for (const std::string &text : texts) {
        const Frequencies frequencies = characterFrequencies(text);
        std::int64_t characters = 0;
        std::size_t bytes = 0;
        for (const CharacterFrequency &entry : frequencies) {
            ASSERT_GE(entry.count, 1);
            characters += entry.count;
            bytes += static_cast<std::size_t>(entry.count) * std::max<std::size_t>(entry.character.size(), 1);
        }
        ASSERT_EQ(bytes, text.size()) << testing::PrintToString(text);
        ASSERT_EQ(characters, reference::statistics(repaired(text)).characters) << testing::PrintToString(text);
        ASSERT_TRUE(std::is_sorted(frequencies.begin(), frequencies.end(),
                                   [](const auto &left, const auto &right) { return left.count > right.count; }));
    }
}

TEST(CharacterFrequencies, CountAHundredMegabytesOfOneCharacter) {
    EXPECT_EQ(characterFrequencies(hundredMegabytesOf('a')), (Frequencies{{"a", 100'000'000}}));
}

TEST(CharacterFrequencies, CountAHundredMegabytesOfNewlines) {
    EXPECT_EQ(characterFrequencies(hundredMegabytesOf('\n')), (Frequencies{{"\n", 100'000'000}}));
}

TEST(CharacterFrequencies, CountCharactersOfAnyLength) {
    std::string character = "a";
    for (int i = 0; i < 100'000; ++i) {
        character += "\xCC\x81";
    }
    EXPECT_EQ(characterFrequencies(character + "b" + character), (Frequencies{{character, 2}, {"b", 1}}));
}

TEST(DisplayedCharacter, IsAWordForTheSpaceAlone) {
    EXPECT_EQ(displayedCharacter({"", 12}), "Space");
    EXPECT_EQ(displayedCharacter({"\t", 1}), "\t");
    EXPECT_EQ(displayedCharacter({"é", 1}), "é");
}

TEST(CharacterFrequencyReport, OfNothingIsTheHeadingAlone) {
    EXPECT_EQ(characterFrequencyReport({}), "Character Frequency Analysis\n\n");
}

TEST(CharacterFrequencyReport, ListsCharacterAndCount) {
    EXPECT_EQ(characterFrequencyReport(characterFrequencies("aa aé")),
              "Character Frequency Analysis\n\na: 3\nSpace: 1\né: 1");
    EXPECT_EQ(characterFrequencyReport({{"", 12}}), "Character Frequency Analysis\n\nSpace: 12");
}

TEST(CharacterFrequencyReport, EndsAfterTwentyCharacters) {
    std::string alphabet(26, 'a');
    std::iota(alphabet.begin(), alphabet.end(), 'a');
    const std::string heading = "Character Frequency Analysis\n\n";
    const auto linesOf = [&](std::size_t letters) {
        const std::string report = characterFrequencyReport(characterFrequencies(alphabet.substr(0, letters)));
        return 1 + std::count(report.begin() + static_cast<std::ptrdiff_t>(heading.size()), report.end(), '\n');
    };
    EXPECT_EQ(linesOf(19), 19);
    EXPECT_EQ(linesOf(20), 20);
    EXPECT_EQ(linesOf(21), 20);
    EXPECT_EQ(linesOf(26), 20);
    EXPECT_TRUE(characterFrequencyReport(characterFrequencies(alphabet)).ends_with("\nt: 1"));
}

TEST(CharacterFrequencyReport, EqualsThePlainOneOnRandomText) {
    std::mt19937 random(sampleSeed);
    for (int round = 0; round < 300; ++round) {
        const std::string text = randomText(random, 60);
        ASSERT_EQ(characterFrequencyReport(characterFrequencies(text)),
                  reference::frequencyReport(reference::frequencies(text)));
    }
}

} // namespace
} // namespace lexivore
