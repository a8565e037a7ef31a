// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/code_points.h"

#include <gtest/gtest.h>

#include <unicode/uchar.h>
#include <unicode/unorm2.h>

#include <ios>

namespace lexivore {

namespace {

/// What ICU says of a code point, in the words of the engine.
CodePointSet expectedProperties(char32_t codePoint) {
    const auto c = static_cast<UChar32>(codePoint);
    const std::uint32_t category = U_MASK(u_charType(c));
    CodePointSet properties = 0;
    const auto add = [&properties](CodePointSet property, bool holds) {
        properties = static_cast<CodePointSet>(properties | (holds ? property : 0));
    };
    add(property::letter, (category & U_GC_L_MASK) != 0);
    add(property::mark, (category & U_GC_M_MASK) != 0);
    add(property::number, (category & U_GC_N_MASK) != 0);
    add(property::punctuation, (category & U_GC_P_MASK) != 0);
    add(property::whiteSpace, u_hasBinaryProperty(c, UCHAR_WHITE_SPACE) != 0);
    add(property::newline, (c >= 0x0A && c <= 0x0D) || c == 0x85 || c == 0x2028 || c == 0x2029);
    add(property::horizontalSpace, (category & U_GC_ZS_MASK) != 0 || c == 0x09);
    return properties;
}

TEST(CodePoints, HaveThePropertiesThatUnicodeGivesThem) {
    constexpr CodePointSet all = property::letter | property::mark | property::number | property::punctuation |
                                 property::whiteSpace | property::newline | property::horizontalSpace;
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        ASSERT_EQ(codePointProperties(codePoint) & all, expectedProperties(codePoint))
            << "U+" << std::hex << static_cast<std::uint32_t>(codePoint);
        ASSERT_EQ(isNewline(codePoint), isIn(newlines, codePoint));
    }
}

TEST(CodePoints, MayChangeInComposingUnlessTheyNeverDo) {
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        const auto c = static_cast<UChar32>(codePoint);
        const bool isCertain =
            u_getCombiningClass(c) == 0 && u_getIntPropertyValue(c, UCHAR_NFC_QUICK_CHECK) == UNORM_YES;
        ASSERT_TRUE(isCertain || isIn(property::mayChangeInComposing, codePoint))
            << "U+" << std::hex << static_cast<std::uint32_t>(codePoint);
    }
    EXPECT_FALSE(isIn(property::mayChangeInComposing, U'a'));
    EXPECT_FALSE(isIn(property::mayChangeInComposing, U'é'));
    EXPECT_FALSE(isIn(property::mayChangeInComposing, U'漢'));
}

TEST(CodePoints, SetsAreUnions) {
    EXPECT_TRUE(isIn(alphanumerics, U'a') && isIn(alphanumerics, U'\u0301') && isIn(alphanumerics, U'½'));
    EXPECT_FALSE(isIn(alphanumerics, U'-') || isIn(alphanumerics, U' ') || isIn(alphanumerics, U'ⓐ'));
    EXPECT_TRUE(isIn(whitespace, U'\t') && isIn(whitespace, U'\u00A0'));
    EXPECT_FALSE(isIn(whitespace, U'\n') || isIn(whitespace, U'\u200B'));
    EXPECT_TRUE(isIn(whitespaceAndNewlines, U'\n') && isIn(whitespaceAndNewlines, U'\u3000'));
    EXPECT_FALSE(isIn(newlines, U' ') || isIn(newlines, U'\u001C'));
}

} // namespace

} // namespace lexivore
