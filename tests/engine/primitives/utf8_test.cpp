// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/utf8.h"

#include "tests/support/placed_bytes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lexivore {

namespace {

using test::PlacedBytes;

struct IllFormed {
    const char *rule;
    std::string bytes;
};

const IllFormed illFormed[] = {
    {"a lone continuation byte", "\x80"},
    {"the last continuation byte", "\xBF"},
    {"a lead byte that is never used", "\xC0"},
    {"an overlong form of two bytes", "\xC1\xBF"},
    {"an overlong form of three bytes", "\xE0\x9F\xBF"},
    {"an overlong form of four bytes", "\xF0\x8F\xBF\xBF"},
    {"the first surrogate", "\xED\xA0\x80"},
    {"the last surrogate", "\xED\xBF\xBF"},
    {"the first number beyond Unicode", "\xF4\x90\x80\x80"},
    {"a lead byte beyond Unicode", "\xF5\x80\x80\x80"},
    {"a byte that begins nothing", "\xFF"},
    {"two bytes cut off", "\xC3"},
    {"three bytes cut off behind one", "\xE2"},
    {"three bytes cut off behind two", "\xE2\x82"},
    {"four bytes cut off behind three", "\xF0\x9F\x98"},
    {"two bytes broken by a letter", "\xC3"
                                     "a"},
    {"three bytes broken by a letter", "\xE2\x82"
                                       "a"},
    {"four bytes broken by a letter", "\xF0\x9F\x98"
                                      "a"},
    {"a lead byte behind a lead byte", "\xC3\xC3\xA9"},
};

std::string encoded(char32_t codePoint) {
    char bytes[4];
    return {bytes, encode(codePoint, bytes)};
}

TEST(Utf8, AsciiIsAsciiThroughout) {
    constexpr std::size_t longest = 200;
    for (std::size_t size = 0; size <= longest; ++size) {
        const PlacedBytes text(std::string(size, '\x7F'));
        EXPECT_TRUE(isAllAscii(text.view())) << size;
        for (std::size_t place = 0; place < size; ++place) {
            std::string bytes(size, 'a');
            bytes[place] = '\x80';
            EXPECT_FALSE(isAllAscii(bytes)) << size << ", " << place;
        }
    }
}

TEST(Utf8, EveryScalarValueSurvivesEncodingAndDecoding) {
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint == 0xD800) {
            codePoint = 0xE000;
        }
        const std::string bytes = encoded(codePoint);
        const DecodedCodePoint decoded = decode(bytes.data(), bytes.data() + bytes.size());
        ASSERT_EQ(decoded.value, codePoint);
        ASSERT_EQ(decoded.length, bytes.size());
        const DecodedCodePoint before = decodeBefore(bytes.data(), bytes.data() + bytes.size());
        ASSERT_EQ(before.value, codePoint);
        ASSERT_EQ(before.length, bytes.size());
        ASSERT_TRUE(isValidUtf8(bytes));
    }
}

TEST(Utf8, EncodesAsStringLiteralsDo) {
    EXPECT_EQ(encoded(0x7F), "\u007F");
    EXPECT_EQ(encoded(0x80), "\u0080");
    EXPECT_EQ(encoded(0x7FF), "\u07FF");
    EXPECT_EQ(encoded(0x800), "\u0800");
    EXPECT_EQ(encoded(0xFFFF), "\uFFFF");
    EXPECT_EQ(encoded(0x10000), "\U00010000");
    EXPECT_EQ(encoded(0x10FFFF), "\U0010FFFF");
}

TEST(Utf8, WhatIsIllFormedDecodesAsOneReplacementCharacterOfOneByte) {
    for (const IllFormed &row : illFormed) {
        SCOPED_TRACE(row.rule);
        const PlacedBytes bytes(row.bytes);
        const DecodedCodePoint decoded = decode(bytes.view().data(), bytes.view().data() + bytes.view().size());
        EXPECT_EQ(decoded.value, replacementCharacter);
        EXPECT_EQ(decoded.length, 1U);
    }
}

TEST(Utf8, DecodingBackwardsStopsAtTheBegin) {
    const PlacedBytes bytes("\x9F\x98\x80"); // the end of an emoji
    const char *const begin = bytes.view().data();
    const DecodedCodePoint before = decodeBefore(begin, begin + 3);
    EXPECT_EQ(before.value, replacementCharacter);
    EXPECT_EQ(before.length, 1U);
}

TEST(Utf8, DecodingBackwardsMeetsTheSameCodePoints) {
    const std::string text = "aé漢😀\u0301\u2028z";
    std::vector<char32_t> forwards;
    for (const char *position = text.data(), *end = position + text.size(); position != end;) {
        const DecodedCodePoint decoded = decode(position, end);
        forwards.push_back(decoded.value);
        position += decoded.length;
    }
    std::vector<char32_t> backwards;
    for (const char *begin = text.data(), *position = begin + text.size(); position != begin;) {
        const DecodedCodePoint decoded = decodeBefore(begin, position);
        backwards.insert(backwards.begin(), decoded.value);
        position -= decoded.length;
    }
    EXPECT_EQ(backwards, forwards);
    EXPECT_EQ(forwards.size(), 7U);
}

TEST(Utf8, IllFormedBytesAreFoundAnywhere) {
    for (const IllFormed &row : illFormed) {
        SCOPED_TRACE(row.rule);
        for (std::size_t before = 0; before < 140; ++before) {
            for (const std::size_t behind : {0U, 1U, 3U, 64U, 80U}) {
                const std::string text = std::string(before, 'a') + row.bytes + std::string(behind, 'a');
                ASSERT_FALSE(isValidUtf8(PlacedBytes(text).view()))
                    << before << " bytes before, " << behind << " behind";
            }
        }
    }
}

TEST(Utf8, WellFormedTextIsValidWhereverItStands) {
    for (const std::string_view sample : {"", "é", "漢", "😀", "\u0800\uFFFF\U00010000\U0010FFFF", "é漢😀é漢😀é漢😀"}) {
        for (std::size_t before = 0; before < 140; ++before) {
            const std::string text = std::string(before, 'a') + std::string(sample) + "a";
            ASSERT_TRUE(isValidUtf8(PlacedBytes(text).view())) << before << " bytes before " << sample;
        }
    }
    EXPECT_TRUE(isValidUtf8(std::string_view("\0", 1)));
    EXPECT_TRUE(isValidUtf8({}));
}

TEST(Utf8, AsciiRunsEndAtTheFirstOtherByte) {
    for (std::size_t length = 0; length < 200; ++length) {
        const PlacedBytes plain(std::string(length, 'a'));
        const char *const end = plain.view().data() + length;
        ASSERT_EQ(asciiRunEnd(plain.view().data(), end), end);
        for (const std::string_view other : {"\x80", "é", "\xFF"}) {
            const PlacedBytes mixed(std::string(length, '\0') + std::string(other) + std::string(70, 'a'));
            const std::string_view text = mixed.view();
            ASSERT_EQ(asciiRunEnd(text.data(), text.data() + text.size()) - text.data(),
                      static_cast<std::ptrdiff_t>(length));
        }
    }
}

} // namespace

} // namespace lexivore
