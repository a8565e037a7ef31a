// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_search.h"

#include "engine/primitives/utf8.h"
#include "manager/text_conversion.h"
#include "tests/support/property.h"

#include <gtest/gtest.h>

#include <QChar>
#include <QList>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {
namespace {

TEST(TextSearch, FindsForwardBackwardAndCounts) {
    Text text(std::string_view("Abc abc ÀBC àbc aaaa"));
    EXPECT_EQ(findForward(text, "abc", 0), (TextMatch{0, 3}));
    EXPECT_EQ(findForward(text, "abc", 1), (TextMatch{4, 3}));
    EXPECT_EQ(findForward(text, "àbc", 0), (TextMatch{8, 4}));
    EXPECT_EQ(findBackward(text, "ABC", text.size()), (TextMatch{4, 3}));
    EXPECT_EQ(findBackward(text, "aa", text.size()), (TextMatch{20, 2}));
    EXPECT_EQ(countMatches(text, "aa"), 2U);
    EXPECT_EQ(countMatches(text, ""), 0U);
    EXPECT_EQ(findForward(text, "none", 0), std::nullopt);
}

std::string encoded(char32_t codePoint) {
    std::array<char, 4> bytes{};
    return {bytes.data(), encode(codePoint, bytes.data())};
}

TEST(TextSearch, FindsEveryCodePointByWhateverFoldsToTheSame) {
    for (char32_t codePoint = 0; codePoint <= QChar::LastValidCodePoint; ++codePoint) {
        const char32_t folded = QChar::toCaseFolded(codePoint);
        if (folded != codePoint) {
            const std::string one = encoded(codePoint);
            const std::string other = encoded(folded);
            ASSERT_EQ(findForward(Text("\u4E2D" + one + "."), other, 0), (TextMatch{3, one.size()})) << one;
            ASSERT_EQ(findForward(Text("\u4E2D" + other + "."), one, 0), (TextMatch{3, other.size()})) << one;
        }
    }
}

/// Looks for short texts of these letters in longer ones, and compares each at every place.
void compareSearches(const std::vector<std::string> &letters, std::size_t longestNeedle) {
    test::Dice dice(test::seedOfRunningTest());
    const auto randomText = [&](std::size_t length) {
        std::string text;
        while (length-- > 0) {
            text += dice.pick(letters);
        }
        return text;
    };
    const auto folded = [](const std::string &text) {
        QList<uint> codePoints = toQString(text).toUcs4();
        std::transform(codePoints.begin(), codePoints.end(), codePoints.begin(),
                       [](uint codePoint) { return QChar::toCaseFolded(codePoint); });
        return codePoints;
    };
    for (int round = 0; round < 2000; ++round) {
        const std::string text = randomText(60);
        const std::string needle = randomText(dice.between(1, longestNeedle));
        const QList<uint> foldedText = folded(text);
        const QList<uint> foldedNeedle = folded(needle);
        const auto begin = foldedText.begin();
        const auto end = foldedText.end();
        const auto search = [&](auto from) { return std::search(from, end, foldedNeedle.begin(), foldedNeedle.end()); };
        std::size_t count = 0;
        for (auto found = search(begin); found != end; found = search(found + foldedNeedle.size())) {
            ++count;
        }
        const auto placeOf = [&](const std::optional<TextMatch> &match) {
            return match ? begin + folded(text.substr(0, match->offset)).size() : end;
        };
        ASSERT_EQ(countMatches(Text(text), needle), count) << text << " / " << needle;
        ASSERT_EQ(placeOf(findForward(Text(text), needle, 0)), search(begin)) << text << " / " << needle;
        ASSERT_EQ(placeOf(findBackward(Text(text), needle, text.size())),
                  std::find_end(begin, end, foldedNeedle.begin(), foldedNeedle.end()))
            << text << " / " << needle;
    }
}

TEST(TextSearch, FindsWhatAComparisonAtEveryPlaceFinds) {
    compareSearches({"a", "A",  "k", "K", "\u212A", "s", "\u017F", "ч", "Ч", "ф",  "é",  "É",
                     "😀", "\n", "ẞ", "ß", "σ",      "ς", "Σ",      "𐐀", "𐐨", "中", "丘", " "},
                    2);
}

TEST(TextSearch, FindsWhatResemblesItselfLikeAnythingElse) { compareSearches({"a", "A", "\u212A", "k"}, 6); }

TEST(TextSearch, LooksAtEachLetterOnceHoweverMuchTheNeedleResemblesItself) {
    // Compared anew at every place, this would be most of a million million letters.
    const std::string letters(100000, 'a');
    const Text text(std::string_view(std::string(8000000, 'a')));
    EXPECT_EQ(findForward(text, letters + "b", 0), std::nullopt);
    EXPECT_EQ(findBackward(text, letters + "b", text.size()), std::nullopt);
    EXPECT_EQ(countMatches(text, letters), 80U);
}

TEST(TextSearch, FindsAcrossTheSeamsOfALargeEditedText) {
    Text text(std::string_view(std::string(600000, 'x')));
    std::size_t expected = 0;
    for (std::size_t offset = 262144 - 40; offset < 262144 + 40; offset += 7) {
        text = text.replaced(offset, 5, "Néedl");
        ++expected;
    }
    EXPECT_EQ(countMatches(text, "nÉeDL"), expected);
}

} // namespace
} // namespace lexivore
