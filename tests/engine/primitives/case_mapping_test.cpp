// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/case_mapping.h"

#include "engine/primitives/utf8.h"
#include "engine/primitives/word_case.h"

#include <gtest/gtest.h>

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/locid.h>
#include <unicode/uchar.h>

#include <functional>
#include <string>

namespace lexivore {

namespace {

std::string upper(std::string_view text) {
    TextBuffer result;
    appendUppercase(result, text);
    return std::string(result.view());
}

std::string lower(std::string_view text) {
    TextBuffer result;
    appendLowercase(result, text);
    return std::string(result.view());
}

std::string repeated(std::string_view unit, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i) {
        text += unit;
    }
    return text;
}

/// Calls `check(codePoint, utf8)` with every scalar value.
void forEachScalarValue(const std::function<void(char32_t, const std::string &)> &check) {
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF && !testing::Test::HasFatalFailure(); ++codePoint) {
        if (codePoint == 0xD800) {
            codePoint = 0xE000;
        }
        char bytes[4];
        check(codePoint, {bytes, encode(codePoint, bytes)});
    }
}

TEST(CaseMapping, UppercaseIsIcusForEveryCodePoint) {
    forEachScalarValue([](char32_t, const std::string &text) {
        UErrorCode status = U_ZERO_ERROR;
        std::string expected;
        icu::StringByteSink<std::string> sink(&expected);
        icu::CaseMap::utf8ToUpper("", 0, text, sink, nullptr, status);
        ASSERT_EQ(upper(text), expected) << "of " << text;
    });
}

TEST(CaseMapping, LowercaseIsIcusForEveryCodePoint) {
    forEachScalarValue([](char32_t, const std::string &text) {
        UErrorCode status = U_ZERO_ERROR;
        std::string expected;
        icu::StringByteSink<std::string> sink(&expected);
        icu::CaseMap::utf8ToLower("", 0, text, sink, nullptr, status);
        ASSERT_EQ(lower(text), expected) << "of " << text;
    });
}

TEST(CaseMapping, TitlecaseIsIcusForEveryLetterAndNothingForTheRest) {
    forEachScalarValue([](char32_t codePoint, const std::string &text) {
        std::string expected = text;
        if (u_isalpha(static_cast<UChar32>(codePoint)) != 0 &&
            (U_MASK(u_charType(static_cast<UChar32>(codePoint))) & U_GC_L_MASK) != 0) {
            UErrorCode status = U_ZERO_ERROR;
            expected.clear();
            icu::StringByteSink<std::string> sink(&expected);
            icu::CaseMap::utf8ToTitle("", U_TITLECASE_WHOLE_STRING | U_TITLECASE_NO_BREAK_ADJUSTMENT, nullptr, text,
                                      sink, nullptr, status);
        }
        ASSERT_EQ(capitalizeWords(text).view(), expected) << "of " << text;
    });
}

TEST(CaseMapping, DoesNotDependOnTheLocaleOfTheUser) {
    const icu::Locale before = icu::Locale::getDefault();
    for (const char *const locale : {"tr_TR", "lt_LT", "el_GR", "nl_NL"}) {
        UErrorCode status = U_ZERO_ERROR;
        icu::Locale::setDefault(icu::Locale(locale), status);
        EXPECT_EQ(upper("iı ijσάΐ"), "II IJΣΆΙ\u0308\u0301") << locale;
        EXPECT_EQ(lower("IİÌ"), "ii\u0307ì") << locale;
        EXPECT_EQ(capitalizeWords("ijs istanbul").view(), "Ijs Istanbul") << locale;
        EXPECT_EQ(invertCase("iI").view(), "Ii") << locale;
    }
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault(before, status);
}

TEST(CaseMapping, AppendsToWhatIsThere) {
    TextBuffer text("ä-");
    appendUppercase(text, "ä");
    appendLowercase(text, "Ä");
    EXPECT_EQ(text.view(), "ä-Ää");
}

TEST(CaseMapping, IsTheSameWhereverALetterStands) {
    for (std::size_t before = 0; before < 140; ++before) {
        const std::string small(before, 'a');
        const std::string capital(before, 'A');
        for (const auto &[letter, mapped] : {std::pair("ß", "SS"), {"é", "É"}, {"ΐ", "Ι\u0308\u0301"}, {"𐐨", "𐐀"}}) {
            ASSERT_EQ(upper(small + letter + small), capital + mapped + capital) << before;
        }
        for (const auto &[letter, mapped] : {std::pair("İ", "i\u0307"), {"É", "é"}, {"ẞ", "ß"}, {"𐐀", "𐐨"}}) {
            ASSERT_EQ(lower(capital + letter + capital), small + mapped + small) << before;
        }
    }
}

TEST(CaseMapping, GrowsWithTheText) {
    EXPECT_EQ(upper(repeated("ΐ", 10'000)), repeated("Ι\u0308\u0301", 10'000));
    EXPECT_EQ(upper(repeated("ﬃ", 10'000)), repeated("FFI", 10'000));
    EXPECT_EQ(lower(repeated("Ⱥ", 10'000)), repeated("ⱥ", 10'000)); // two bytes become three
}

TEST(FinalSigma, IsFoundThroughAnyNumberOfMarks) {
    for (const std::size_t count : {0U, 1U, 31U, 64U, 2047U, 2048U, 5000U}) {
        const std::string marks = repeated("\u0301", count);
        EXPECT_EQ(lower("Α" + marks + "Σ" + marks), "α" + marks + "ς" + marks) << count;
        EXPECT_EQ(lower("Α" + marks + "Σ" + marks + "Α"), "α" + marks + "σ" + marks + "α") << count;
        EXPECT_EQ(lower("-" + marks + "Σ" + marks), "-" + marks + "σ" + marks) << count;
    }
}

TEST(FinalSigma, IsFoundWhereverItStands) {
    for (std::size_t before = 1; before < 140; ++before) {
        const std::string word = repeated("α", before);
        ASSERT_EQ(lower(word + "Σ " + word + "Σα"), word + "ς " + word + "σα");
    }
}

TEST(FinalSigma, DependsOnTheContextThatIsGiven) {
    const std::string_view context = "ΑΣΑ";
    TextBuffer within;
    appendLowercase(within, context.substr(0, 4), context);
    EXPECT_EQ(within.view(), "ασ");
    TextBuffer behind;
    appendLowercase(behind, context.substr(2, 2), context.substr(0, 4));
    EXPECT_EQ(behind.view(), "ς");
    TextBuffer alone;
    appendLowercase(alone, context.substr(2, 2));
    EXPECT_EQ(alone.view(), "σ");
}

TEST(CapitalizeWords, IsTheSameWhereverAWordStands) {
    for (std::size_t before = 0; before < 140; ++before) {
        const std::string gap(before, ' ');
        for (const auto &[word, mapped] : {std::pair("don'T", "Don't"),
                                           {"éCOLE", "École"},
                                           {"3RD", "3Rd"},
                                           {"ßA", "Ssa"},
                                           {"'a'B'", "'A'b'"},
                                           {"ΟΔΟΣ", "Οδος"},
                                           {"\u0301ab", "\u0301Ab"}}) {
            ASSERT_EQ(capitalizeWords(gap + word + gap).view(), gap + mapped + gap) << before;
            const std::string letters(before, 'X');
            if (before > 1) {
                ASSERT_EQ(capitalizeWords(letters + " " + word).view(),
                          "X" + std::string(before - 1, 'x') + " " + mapped);
            }
        }
    }
}

TEST(IdentifierWords, AreWrittenInTheStyle) {
    constexpr std::string_view text = "  One TWO-3three!";
    EXPECT_EQ(joinIdentifierWords(text, {}).view(), "onetwo3three");
    EXPECT_EQ(joinIdentifierWords(text, {true, false, '_'}).view(), "one_two_3three");
    EXPECT_EQ(joinIdentifierWords(text, {true, true, '\0'}).view(), "oneTwo3Three");
    EXPECT_EQ(joinIdentifierWords(text, {false, true, '.'}).view(), "One.Two.3Three");
    EXPECT_EQ(joinIdentifierWords("-- !", {}).view(), "");
}

TEST(IdentifierWords, AreFoundWhereverTheyStand) {
    constexpr IdentifierStyle snake{true, false, '_'};
    for (std::size_t before = 1; before < 140; ++before) {
        for (const auto &[word, mapped] :
             {std::pair("B", "b"), {"É", "é"}, {"ΟΔΟΣ", "οδος"}, {"E\u0301", "e\u0301"}, {"漢字", "漢字"}}) {
            const std::string text = std::string(before, 'A') + "-" + word + "😀" + std::string(before, 'C');
            ASSERT_EQ(joinIdentifierWords(text, snake).view(),
                      std::string(before, 'a') + "_" + mapped + "_" + std::string(before, 'c'));
        }
    }
}

TEST(InvertCase, IsTheSameWhereverACharacterStands) {
    for (std::size_t before = 0; before < 140; ++before) {
        const std::string text = repeated("aB", before);
        const std::string inverted = repeated("Ab", before);
        for (const auto &[character, mapped] : {std::pair("e\u0301", "E\u0301"),
                                                {"É", "é"},
                                                {"ß", "SS"},
                                                {"ǅ", "ǅ"},
                                                {"Α\u0345", "Α\u0345"},
                                                {"\r\n", "\r\n"}}) {
            ASSERT_EQ(invertCase(text + character + text).view(), inverted + mapped + inverted) << before;
        }
    }
}

TEST(AlternateCase, TakesTurnsWhereverACharacterStands) {
    for (std::size_t before = 0; before < 140; ++before) {
        const std::string text = repeated("aa", before);
        const std::string alternated = repeated("Aa", before);
        for (const auto &[characters, mapped] : {std::pair("e\u0301x", "E\u0301x"),
                                                 {"ßÉ", "SSé"},
                                                 {"漢X", "漢x"},
                                                 {"क्षÉ", "क्षé"},
                                                 {"1😀é\r\nX", "1😀É\r\nx"},
                                                 {"ǅǅ", "Ǆǆ"}}) {
            ASSERT_EQ(alternateCase(text + characters + text).view(), alternated + mapped + alternated) << before;
            const std::string digits(before, '1');
            ASSERT_EQ(alternateCase(digits + characters + text).view(), digits + mapped + alternated) << before;
        }
    }
}

TEST(AlternateCase, MapsALetterWithTheOneItTakesIn) {
    // U+0D4E takes in the letter behind it, wherever a block of the text ends between the two.
    for (std::size_t before = 0; before < 140; ++before) {
        const std::string digits(before, '1');
        ASSERT_EQ(alternateCase("é" + digits + "\u0D4EBcd").view(), "É" + digits + "\u0D4EbCd") << before;
        ASSERT_EQ(alternateCase("½" + digits + "\u0D4Ebcd").view(), "½" + digits + "\u0D4EBcD") << before;
        ASSERT_EQ(alternateCase("½" + digits + "\u0D4Eb\u0345cd").view(), "½" + digits + "\u0D4EBΙcD") << before;
    }
}

} // namespace

} // namespace lexivore
