// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/codecs.h"

#include <gtest/gtest.h>

#include <string>

namespace lexivore {

namespace {

std::string everyByte() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(static_cast<unsigned char>(byte));
    }
    return bytes;
}

/// What was decoded, or a text that no codec gives.
std::string decoded(const std::optional<TextBuffer> &result) {
    return result ? std::string(result->view()) : "nothing was decoded";
}

std::string encoded(void (&append)(TextBuffer &, std::string_view), std::string_view bytes) {
    TextBuffer result;
    append(result, bytes);
    return std::string(result.view());
}
std::string encodeBase64(std::string_view bytes) { return encoded(appendBase64, bytes); }
std::string encodeHexadecimal(std::string_view bytes) { return encoded(appendHexadecimal, bytes); }
std::string encodePercent(std::string_view bytes) { return encoded(appendPercent, bytes); }

TEST(Codecs, GiveBackWhatTheyWereGivenAtAnyLength) {
    const std::string bytes = everyByte() + everyByte();
    for (std::size_t length = 0; length <= bytes.size(); ++length) {
        const std::string_view some = std::string_view(bytes).substr(bytes.size() - length);
        ASSERT_EQ(decoded(decodeBase64(encodeBase64(some))), some) << length;
        ASSERT_EQ(decoded(decodeHexadecimal(encodeHexadecimal(some))), some) << length;
        ASSERT_EQ(decoded(decodePercent(encodePercent(some))), some) << length;
    }
}

TEST(Base64, WritesFourDigitsForEveryThreeBytesAndPads) {
    for (std::size_t length = 0; length < 300; ++length) {
        const std::string text = encodeBase64(std::string(length, '\xFF'));
        const std::size_t padding = (3 - length % 3) % 3;
        ASSERT_EQ(text.size(), (length + 2) / 3 * 4);
        ASSERT_EQ(text.find_first_of("=\r\n"), padding == 0 ? std::string::npos : text.size() - padding);
    }
}

TEST(Base64, IsNothingForABadByteAnywhere) {
    for (std::size_t quanta = 1; quanta < 50; ++quanta) {
        const std::string good(quanta * 4, 'A');
        ASSERT_EQ(decoded(decodeBase64(good)), std::string(quanta * 3, '\0'));
        for (std::size_t position = 0; position < good.size(); ++position) {
            for (const char bad :
                 {' ', '\n', '-', '_', '\0', '\x80', '\xC1', '\xFF', '@', '[', '`', '{', ':', '.', '~'}) {
                std::string text = good;
                text[position] = bad;
                ASSERT_FALSE(decodeBase64(text))
                    << "byte " << position << " of " << text.size() << " is " << testing::PrintToString(bad);
            }
            if (position + 1 < good.size()) {
                std::string text = good;
                text[position] = '=';
                ASSERT_FALSE(decodeBase64(text)) << "padding at " << position << " of " << text.size();
            }
        }
    }
}

TEST(Base64, IsNothingForHalfAQuantum) {
    const std::string digits(203, 'A'); // the rest of the last quantum stands behind the text
    for (std::size_t length = 0; length < 200; ++length) {
        const std::string_view text = std::string_view(digits).substr(0, length);
        EXPECT_EQ(decodeBase64(text).has_value(), length % 4 == 0) << length;
    }
}

TEST(Hexadecimal, PassesOverSpacesAnywhere) {
    for (std::size_t before = 0; before < 140; ++before) {
        const std::string digits = std::string(before, '4');
        const std::string bytes(before / 2, 'D');
        if (before % 2 == 0) {
            ASSERT_EQ(decoded(decodeHexadecimal(digits + " 4 4  " + digits)), bytes + "D" + bytes) << before;
        } else {
            ASSERT_EQ(decoded(decodeHexadecimal(digits + " 4  " + digits + "4")), bytes + "DD" + bytes) << before;
        }
        ASSERT_EQ(decoded(decodeHexadecimal(std::string(before, ' ') + "4a")), "J") << before;
    }
}

TEST(Hexadecimal, IsNothingForABadByteAnywhere) {
    for (std::size_t pairs = 1; pairs < 80; ++pairs) {
        const std::string good(pairs * 2, 'a');
        ASSERT_EQ(decoded(decodeHexadecimal(good)), std::string(pairs, '\xAA'));
        ASSERT_FALSE(decodeHexadecimal(good + "a"));
        for (std::size_t position = 0; position < good.size(); ++position) {
            for (const char bad : {'g', 'G', '/', ':', '@', '`', '\0', '\n', '\t', '\x80', '\xFF', '\xE1', '-', '+'}) {
                std::string text = good;
                text[position] = bad;
                ASSERT_FALSE(decodeHexadecimal(text))
                    << "byte " << position << " of " << text.size() << " is " << testing::PrintToString(bad);
            }
        }
    }
}

TEST(Hexadecimal, TakesEveryDigitInEitherCase) {
    EXPECT_EQ(decoded(decodeHexadecimal("0123456789abcdefABCDEF")), "\x01\x23\x45\x67\x89\xAB\xCD\xEF\xAB\xCD\xEF");
    EXPECT_EQ(encodeHexadecimal("\x01\x23\x45\x67\x89\xAB\xCD\xEF"), "0123456789abcdef");
}

TEST(Percent, KeepsWhatMayStandInAQueryAndNothingElse) {
    constexpr std::string_view allowed =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~!$&'()*+,;=:@/?";
    for (const char byte : everyByte()) {
        const std::string text = encodePercent({&byte, 1});
        if (allowed.find(byte) != std::string_view::npos) {
            EXPECT_EQ(text, std::string(1, byte));
        } else {
            ASSERT_EQ(text.size(), 3U);
            EXPECT_EQ(text[0], '%');
            EXPECT_EQ(text.find_first_not_of("0123456789ABCDEF", 1), std::string_view::npos);
        }
    }
}

TEST(Percent, EncodesAndDecodesWhereverAByteStands) {
    for (std::size_t before = 0; before < 140; ++before) {
        const std::string plain(before, 'a');
        ASSERT_EQ(encodePercent(plain + "é " + plain), plain + "%C3%A9%20" + plain);
        ASSERT_EQ(decoded(decodePercent(plain + "%C3%a9+%20" + plain)), plain + "é+ " + plain);
        for (const std::string_view bad : {"%", "%4", "%4g", "%g4", "%%41", "% 41"}) {
            ASSERT_FALSE(decodePercent(plain + std::string(bad))) << before << " before " << bad;
        }
    }
}

} // namespace

} // namespace lexivore
