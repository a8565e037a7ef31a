// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/string_order.h"

#include <gtest/gtest.h>
#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace lexivore {

namespace {

using Strings = std::vector<std::string_view>;
using Places = std::vector<std::size_t>;

/// Where each of the strings, as parts of one text, comes from when they are in order. The text ends where its memory
/// does.
Places placesOf(const Strings &strings, SortDirection direction = SortDirection::ascending) {
    std::string joined;
    std::map<std::size_t, std::size_t> placeOfOffset;
    for (const std::string_view string : strings) {
        joined += '|';
        placeOfOffset[joined.size()] = placeOfOffset.size();
        joined += string;
    }
    const std::vector<char> memory(joined.begin(), joined.end());
    const std::string_view text(memory.data(), memory.size());
    StringSorter sorter(text, direction, strings.size(), isOrderedByBytes(text));
    for (const auto &[offset, place] : placeOfOffset) {
        sorter.add(text.substr(offset, strings[place].size()));
    }
    Places places;
    sorter.forEachInOrder([&](std::string_view part) {
        places.push_back(placeOfOffset.at(static_cast<std::size_t>(part.data() - text.data())));
        EXPECT_EQ(part, strings[places.back()]);
    });
    return places;
}

Strings sorted(const Strings &strings, SortDirection direction = SortDirection::ascending) {
    Strings result;
    for (const std::size_t place : placesOf(strings, direction)) {
        result.push_back(strings[place]);
    }
    return result;
}

/// What a standard sort of the composed forms gives.
Places expectedPlaces(const Strings &strings, SortDirection direction) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2 *const nfc = icu::Normalizer2::getNFCInstance(status);
    std::vector<std::string> composed;
    for (const std::string_view string : strings) {
        icu::StringByteSink<std::string> sink(&composed.emplace_back());
        nfc->normalizeUTF8(0, icu::StringPiece(string.data(), static_cast<std::int32_t>(string.size())), sink, nullptr,
                           status);
    }
    EXPECT_TRUE(U_SUCCESS(status));
    Places places(strings.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::stable_sort(places.begin(), places.end(), [&](std::size_t left, std::size_t right) {
        return direction == SortDirection::ascending ? composed[left] < composed[right]
                                                     : composed[right] < composed[left];
    });
    return places;
}

void expectSorted(const std::vector<std::string> &texts) {
    const Strings strings(texts.begin(), texts.end());
    for (const SortDirection direction : {SortDirection::ascending, SortDirection::descending}) {
        ASSERT_EQ(placesOf(strings, direction), expectedPlaces(strings, direction))
            << (direction == SortDirection::ascending ? "ascending" : "descending");
    }
}

TEST(StringOrder, IsThatOfCodePoints) {
    const Strings ordered = {"", std::string_view("\0", 1), "A", "AB", "Z", "a", "z", "é", "ж", "漢", "\uFF5E", "😀"};
    Strings shuffled = {"漢", "a", "😀", "", "Z", "\uFF5E", "z", "AB", "ж", "A", "é", std::string_view("\0", 1)};
    EXPECT_EQ(sorted(shuffled), ordered);
    EXPECT_EQ(sorted(shuffled, SortDirection::descending), Strings(ordered.rbegin(), ordered.rend()));
}

TEST(StringOrder, OfNothingOrOneStringIsItself) {
    EXPECT_EQ(sorted({}), Strings{});
    EXPECT_EQ(sorted({"a"}, SortDirection::descending), Strings{"a"});
}

TEST(StringOrder, ComparesTheComposedForms) {
    EXPECT_EQ(sorted({"z", "e\u0301", "f"}), (Strings{"f", "z", "e\u0301"}));
    EXPECT_EQ(sorted({"\u1100\u1161\u11A8", "가", "각a"}), (Strings{"가", "\u1100\u1161\u11A8", "각a"}));
}

TEST(StringOrder, IsThatOfTheBytesWhereNothingIsToBeComposed) {
    for (const char *text : {"", "abc", "é漢😀", "x́", "́", "नि", "क्", "\xCC", "각a", "가ᇃ"}) {
        EXPECT_TRUE(isOrderedByBytes(text)) << text;
    }
    for (const char *text : {"é", "abc é", "ééḍ̇", "Å", "각", "가", "ạ́", "क़", "̈́"}) {
        EXPECT_FALSE(isOrderedByBytes(text)) << text;
    }
}

/// Whether ICU would leave the text as it is.
bool isComposed(const std::string &text) {
    UErrorCode status = U_ZERO_ERROR;
    const bool is = icu::Normalizer2::getNFCInstance(status)->isNormalizedUTF8(text, status) != 0;
    EXPECT_TRUE(U_SUCCESS(status));
    return is;
}

TEST(StringOrder, OfALongTextIsThatOfTheBytesWhereNothingAnywhereIsToBeComposed) {
    constexpr unsigned seed = 1;
    std::mt19937 random(seed);
    const auto oneOf = [&random](const std::vector<std::string> &choices) {
        return choices[random() % choices.size()];
    };
    // Marks that stay where they are, far apart, close together and everywhere, and now and then something to compose.
    const std::vector<std::string> plain = {"a", "abc ", "ж", "漢", "😀", "가", "\n"};
    const std::vector<std::string> staying = {"क्", "x\u0301", "x\u0323", "\u0301\u0301", "\u05D0\u05B0", "가\u11C3"};
    const std::vector<std::string> composing = {"e\u0301",       "\u1100\u1161", "가\u11A8", "\u212B",
                                                "x\u0301\u0323", "\u0958",       "\u0344",   "\u05D0\u05B1\u05B0"};
    std::size_t composedCount = 0;
    constexpr int texts = 2000;
    for (int i = 0; i < texts; ++i) {
        std::string text;
        const std::size_t size = random() % (i % 10 == 0 ? 20'000 : 600);
        const std::size_t rarity = std::size_t{1} << random() % 10;
        const std::size_t composingRarity = 1 + random() % 2000;
        while (text.size() < size) {
            text += random() % composingRarity == 0 ? oneOf(composing)
                    : random() % rarity == 0        ? oneOf(staying)
                                                    : oneOf(plain);
        }
        const bool expected = isComposed(text);
        composedCount += expected ? 1 : 0;
        ASSERT_EQ(isOrderedByBytes(text), expected) << "seed " << seed << ", text " << i << ": " << text;
    }
    EXPECT_GT(composedCount, texts / 4U); // both are many
    EXPECT_LT(composedCount, texts - texts / 4U);
}

TEST(StringOrder, LeavesEquivalentStringsInTheirOrder) {
    const Strings forms = {"\u212B", "A\u030A", "\u00C5"};
    for (const SortDirection direction : {SortDirection::ascending, SortDirection::descending}) {
        EXPECT_EQ(sorted(forms, direction), forms);
        EXPECT_EQ(sorted({forms[2], forms[0], forms[1]}, direction), (Strings{forms[2], forms[0], forms[1]}));
    }
}

TEST(StringOrder, LeavesEqualStringsInTheirOrder) {
    const Strings strings = {"a", "b", "a", "b", "a", "b", "a", "b"};
    EXPECT_EQ(placesOf(strings), (Places{0, 2, 4, 6, 1, 3, 5, 7}));
    EXPECT_EQ(placesOf(strings, SortDirection::descending), (Places{1, 3, 5, 7, 0, 2, 4, 6}));
}

TEST(StringOrder, EqualsAStandardSortOfTheComposedForms) {
    constexpr unsigned seed = 1;
    std::mt19937 random(seed);
    using namespace std::string_literals;
    // Few letters give many ties, beginnings of one another and strings that end in NULs.
    const std::vector<std::string> alphabets[] = {
        {"a"},
        {"\0"s, "a"},
        {"\0"s, "\x01", "\x7f", "a", "b", "\xC3\xA9"},
        {"a", "e\u0301", "\u00E9", "\u0301", "\u212B", "A\u030A", "\u1100", "\u1161", "\uAC00", "\U0001F600"},
        {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m", "n", "o", "p", "q", "r", "s", "t", " "},
    };
    for (const std::vector<std::string> &alphabet : alphabets) {
        for (const unsigned longest : {3U, 9U, 40U}) {
            for (const std::size_t count : {2U, 10U, 31U, 33U, 100U, 1000U, 20'000U}) {
                std::vector<std::string> texts(count);
                for (std::string &text : texts) {
                    if (random() % 4 == 0) {
                        text = "a common beginning ";
                    }
                    for (std::size_t letters = random() % longest; letters > 0; --letters) {
                        text += alphabet[random() % alphabet.size()];
                    }
                }
                SCOPED_TRACE("seed " + std::to_string(seed) + ", " + std::to_string(count) + " strings");
                expectSorted(texts);
            }
        }
    }
}

TEST(StringOrder, IsThatOfTheComposedFormsWithThousandsOfMarksInAnyOrder) {
    // One that becomes two, two that look like no marks but become some, and letters that end the marks.
    static const char *const marks[] = {"\u0301", "\u0323", "\u0327", "\u0345", "\u0344", "\u0F71",
                                        "\u0F73", "\u20DD", "\u3099", "e",      "\u0430"};
    std::mt19937 random(1);
    for (const std::size_t kinds : {4U, 5U, 11U}) {
        std::vector<std::string> texts(12, "a");
        for (std::string &text : texts) {
            for (std::size_t left = 500 + random() % 1000; left > 0; --left) {
                text += marks[random() % kinds];
            }
        }
        // The same marks in an order of their own: a class has an order to keep, but two do not.
        std::string apart = "a";
        for (const char *mark : {"\u0327", "\u0323", "\u0301"}) {
            for (int left = 700; left > 0; --left) {
                apart += mark;
            }
        }
        std::string mixed = "a";
        for (int left = 700; left > 0; --left) {
            mixed += "\u0301\u0323\u0327";
        }
        texts.insert(texts.end(), {mixed, apart, mixed});
        expectSorted(texts);
    }
}

TEST(StringOrder, PutsAMillionMarksInOrder) {
    std::string text = "a";
    for (int left = 500'000; left > 0; --left) {
        text += "\u0301\u0323"; // to move each past all before it would take an hour
    }
    const Strings strings = {text, "a", text};
    EXPECT_EQ(placesOf(strings), (Places{1, 0, 2}));
}

TEST(StringOrder, SortsManyStringsWithALongCommonBeginning) {
    std::mt19937 random(1);
    std::vector<std::string> texts(10'000, std::string(100, 'x'));
    for (std::string &text : texts) {
        text += std::to_string(random() % 5000);
    }
    expectSorted(texts);
}

TEST(StringOrder, SortsManyEqualStrings) {
    for (const std::size_t size : {0U, 3U, 7U, 8U, 14U, 50U}) {
        std::vector<std::string> texts(10'000, std::string(size, 'x'));
        texts[7000] += '\0';
        texts[8000] += '!';
        expectSorted(texts);
    }
}

TEST(StringOrder, SortsBeginningsOfOneAnother) {
    std::vector<std::string> texts;
    for (std::size_t size = 6000; size > 0; --size) {
        texts.emplace_back(size % 300, size % 2 == 0 ? 'a' : '\0');
    }
    expectSorted(texts);
}

TEST(StringOrder, TakesTheWholeOfAByteForItsKey) {
    std::vector<std::string> texts;
    for (int byte = 0; byte < 0x80; ++byte) {
        for (const char *end : {"", "a", "abcdefg"}) {
            texts.insert(texts.begin(), std::string(1, static_cast<char>(byte)) + end);
        }
    }
    expectSorted(texts);
}

TEST(StringOrder, SortsLongStringsByTheirEnds) {
    const std::string common(1000, 'x');
    const std::string a = common + "a";
    const std::string b = common + "b";
    const std::string longer = a + "a";
    EXPECT_EQ(sorted({b, longer, common, a}), (Strings{common, a, longer, b}));
}

} // namespace

} // namespace lexivore
