// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/catalog.h"
#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "tests/reference/plain_text.h"
#include "tests/support/engine_outcome.h"
#include "tests/support/escaped.h"
#include "tests/support/property.h"

#include <gtest/gtest.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

// Characters, properties and case mappings against Unicode's own test file and against ICU.
namespace lexivore::test {

namespace {

using CodePoints = std::u32string;

std::vector<std::string> engineCharacters(std::string_view text) {
    std::vector<std::string> result;
    forEachCharacter(text, [&](std::string_view character) { result.emplace_back(character); });
    return result;
}

std::vector<std::string> icuCharacters(const CodePoints &text) {
    std::vector<std::string> result;
    for (const CodePoints &character : reference::characters(text)) {
        result.push_back(reference::utf8(character));
    }
    return result;
}

std::string shown(const std::vector<std::string> &characters) {
    std::string result;
    for (const std::string &character : characters) {
        result += escaped(character) + " ";
    }
    return result;
}

/// Compares boundaries and count with what is expected of `text`; false after the first difference.
bool hasCharacters(const CodePoints &text, const std::vector<std::string> &expected) {
    const std::string bytes = reference::utf8(text);
    const PlacedBytes placed(bytes);
    const std::vector<std::string> actual = engineCharacters(placed.view());
    EXPECT_EQ(shown(actual), shown(expected));
    EXPECT_EQ(characterCount(placed.view()), expected.size()) << escaped(bytes);
    return !testing::Test::HasFailure();
}

bool isScalarValue(char32_t codePoint) { return codePoint < 0xD800 || codePoint > 0xDFFF; }

template<typename Visit> void forEachScalarValue(Visit &&visit) {
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (isScalarValue(codePoint)) {
            visit(codePoint);
        }
    }
}

/// Every scalar value of the planes that have assigned characters, and some of every stretch of the other ones.
template<typename Visit> void forEachScalarValueOfInterest(Visit &&visit) {
    forEachScalarValue([&](char32_t codePoint) {
        const char32_t plane = codePoint >> 16;
        if (plane <= 3 || plane == 14 || codePoint % 61 == 0 || (codePoint & 0xFFFF) >= 0xFFFD) {
            visit(codePoint);
        }
    });
}

TEST(GraphemeBreak, FollowsTheTestFileOfUnicode) {
    std::ifstream file(LEXIVORE_GRAPHEME_BREAK_TEST);
    ASSERT_TRUE(file) << LEXIVORE_GRAPHEME_BREAK_TEST;
    int tests = 0;
    for (std::string line; std::getline(file, line);) {
        std::istringstream tokens(line.substr(0, line.find('#')));
        CodePoints text;
        std::vector<std::string> expected;
        for (std::string token; tokens >> token;) {
            if (token == "÷") {
                expected.emplace_back();
            } else if (token != "×") {
                text += static_cast<char32_t>(std::stoul(token, nullptr, 16));
                expected.back() += reference::utf8(text.substr(text.size() - 1));
            }
        }
        if (!text.empty()) {
            expected.pop_back(); // every line ends with a boundary
            ASSERT_TRUE(hasCharacters(text, expected)) << line;
            ++tests;
        }
    }
    EXPECT_GT(tests, 500);
}

/// Code points of which any two that are alike here are alike to every rule of segmentation.
std::vector<char32_t> classRepresentatives() {
    std::map<std::tuple<int, bool, int, int, bool>, std::vector<char32_t>> classes;
    forEachScalarValue([&](char32_t value) {
        const auto codePoint = static_cast<UChar32>(value);
        UErrorCode status = U_ZERO_ERROR;
        const UScriptCode script = uscript_getScript(codePoint, &status);
        const int indic = u_getIntPropertyValue(codePoint, UCHAR_INDIC_SYLLABIC_CATEGORY);
        const bool isInConjunct = indic == U_INSC_CONSONANT || indic == U_INSC_VIRAMA;
        std::vector<char32_t> &members = classes[{u_getIntPropertyValue(codePoint, UCHAR_GRAPHEME_CLUSTER_BREAK),
                                                  u_hasBinaryProperty(codePoint, UCHAR_EXTENDED_PICTOGRAPHIC) != 0,
                                                  isInConjunct ? static_cast<int>(script) : -1,
                                                  isInConjunct ? indic : -1, u_getCombiningClass(codePoint) != 0}];
        if (members.empty()) {
            members.push_back(value);
        }
    });
    std::vector<char32_t> representatives;
    for (const auto &[key, members] : classes) {
        representatives.insert(representatives.end(), members.begin(), members.end());
    }
    return representatives;
}

/// Compares many short sequences at once: a line feed is a boundary on both its sides.
class SequenceBatch {
public:
    void add(const CodePoints &sequence) {
        m_text += sequence;
        m_text += U'\n';
        if (m_text.size() > 20'000) {
            check();
        }
    }
    void check() {
        const std::vector<std::string> expected = icuCharacters(m_text);
        const std::string bytes = reference::utf8(m_text);
        const std::vector<std::string> actual = engineCharacters(bytes);
        if (actual != expected) {
            const auto place = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
            ADD_FAILURE() << "expected a character " << escaped(*place.first) << " instead of "
                          << escaped(*place.second) << " behind "
                          << (place.first == expected.begin() ? "nothing" : escaped(*(place.first - 1)));
        }
        EXPECT_EQ(characterCount(bytes), expected.size());
        m_text.clear();
    }

private:
    CodePoints m_text;
};

TEST(GraphemeBreak, PairsAndTriplesOfAllClassesAreIcus) {
    const std::vector<char32_t> classes = classRepresentatives();
    ASSERT_GT(classes.size(), 20U);
    SequenceBatch batch;
    for (const char32_t first : classes) {
        for (const char32_t second : classes) {
            batch.add({first, second});
            for (const char32_t third : classes) {
                batch.add({first, second, third});
            }
        }
        if (HasFailure()) {
            return;
        }
    }
    batch.check();
}

TEST(GraphemeBreak, LongRunsOfAllClassesAreIcus) {
    const std::vector<char32_t> classes = classRepresentatives();
    Dice dice(seedOfRunningTest());
    for (int made = 0; made < 4'000 && !HasFailure(); ++made) {
        CodePoints text;
        for (std::size_t left = dice.between(1, 40); left > 0; --left) {
            const char32_t codePoint = dice.chance(20) ? U'a' : dice.pick(classes);
            text.append(dice.chance(5) ? dice.between(1, 70) : dice.between(1, 3), codePoint);
        }
        hasCharacters(text, icuCharacters(text));
    }
}

TEST(GraphemeBreak, EveryCodePointStandsAmongOthersAsInIcu) {
    // What can join on either side: a letter, marks, a spacing mark, Hangul, conjuncts, emoji, flags, prepended marks.
    constexpr char32_t before[] = {U'a', 0x0600, 0x1100, 0x1161, 0x11A8, 0xAC00, 0x1F1E6, 0x1F468};
    constexpr char32_t after[] = {U'a', 0x0301, 0x0903, 0x1161, 0x11A8, 0x200D, 0x1F1E6};
    SequenceBatch batch;
    forEachScalarValueOfInterest([&](char32_t codePoint) {
        CodePoints sequence;
        for (const char32_t neighbour : before) {
            sequence += {neighbour, codePoint, U'\n'};
        }
        for (const char32_t neighbour : after) {
            sequence += {codePoint, neighbour, U'\n'};
        }
        sequence +=
            {0x0915, 0x094D, codePoint, U'\n', codePoint, 0x094D, 0x0915, U'\n', 0x0915, codePoint, 0x0915, U'\n'};
        sequence += {0x0915, 0x094D, codePoint, 0x0915, U'\n', codePoint, 0x200D, codePoint, U'\n'};
        if (!HasFailure()) {
            batch.add(sequence);
        }
    });
    batch.check();
}

TEST(CodePointProperties, AreIcusForEveryCodePoint) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2 *const nfc = icu::Normalizer2::getNFCInstance(status);
    ASSERT_TRUE(U_SUCCESS(status));
    std::size_t differences = 0;
    forEachScalarValue([&](char32_t codePoint) {
        namespace icuSays = reference;
        const auto differs = [&](CodePointSet set, bool expected) { return isIn(set, codePoint) != expected; };
        const bool isWrong = differs(property::letter, icuSays::isLetter(codePoint)) ||
                             differs(property::mark, icuSays::isMark(codePoint)) ||
                             differs(property::number, icuSays::isNumber(codePoint)) ||
                             differs(property::punctuation, icuSays::isPunctuation(codePoint)) ||
                             differs(property::whiteSpace, icuSays::isWhitespaceCharacter(codePoint)) ||
                             differs(newlines, icuSays::isNewline(codePoint)) ||
                             differs(whitespace, icuSays::isWhitespace(codePoint)) ||
                             differs(whitespaceAndNewlines, icuSays::isWhitespaceOrNewline(codePoint)) ||
                             differs(alphanumerics, icuSays::isAlphanumeric(codePoint));
        const auto value = static_cast<UChar32>(codePoint);
        // The other way round it may be set needlessly, which only costs time.
        const bool mayChange =
            nfc->getCombiningClass(value) != 0 || u_getIntPropertyValue(value, UCHAR_NFC_QUICK_CHECK) != UNORM_YES;
        if (isWrong || (mayChange && !isIn(property::mayChangeInComposing, codePoint))) {
            ++differences;
            EXPECT_LT(differences, 10U) << std::hex << static_cast<std::uint32_t>(codePoint);
        }
    });
    EXPECT_EQ(differences, 0U);
    for (char32_t codePoint = 0; codePoint < 0x80; ++codePoint) {
        EXPECT_FALSE(isIn(property::mayChangeInComposing, codePoint))
            << "ASCII is composed, or sorting it would be slow";
    }
}

/// What each code point is mapped in: alone, and where it decides about a sigma.
CodePoints caseContext(char32_t codePoint) {
    return {codePoint, U'\n',     U'Α', codePoint, U'Σ',      U'\n', U'Α',  U'Σ', codePoint, U'\n', U'Α',
            U'Σ',      codePoint, U'Β', U'\n',     codePoint, U'Σ',  U'\n', U'a', codePoint, U'B',  U'\n'};
}

class CaseMappings : public testing::TestWithParam<const char *> {};

TEST_P(CaseMappings, AreIcusForEveryCodePoint) {
    const TransformationPointer transformation = findTransformation(makeCatalog(), GetParam());
    ASSERT_TRUE(transformation);
    CodePoints batch;
    const auto check = [&] {
        const std::string bytes = reference::utf8(batch);
        const std::string expected = reference::apply(GetParam(), bytes, {}).text;
        const std::string actual = engineOutcome(*transformation, bytes, {}).text;
        if (actual != expected && !HasFailure()) {
            const auto place = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
            const auto from =
                static_cast<std::size_t>(std::max<std::ptrdiff_t>(place.first - expected.begin() - 12, 0));
            ADD_FAILURE() << "expected " << escaped(expected.substr(from, 30)) << " instead of "
                          << escaped(actual.substr(from, 30));
        }
        batch.clear();
    };
    forEachScalarValueOfInterest([&](char32_t codePoint) {
        batch += caseContext(codePoint);
        if (batch.size() > 20'000) {
            check();
        }
    });
    check();
}

INSTANTIATE_TEST_SUITE_P(All, CaseMappings,
                         testing::Values("uppercase", "lowercase", "titlecase", "camelcase", "alternatingcase",
                                         "invertcase"),
                         [](const auto &row) { return std::string(row.param); });

} // namespace

} // namespace lexivore::test
