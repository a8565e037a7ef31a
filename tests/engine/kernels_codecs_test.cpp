// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/kernels_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore::kernels {
namespace {

/// RFC 3629, as its table of well-formed sequences says it.
bool isPlainlyValidUtf8(std::string_view text) {
    struct Row {
        unsigned firstLead, lastLead, firstSecond, lastSecond;
        std::size_t length;
    };
    constexpr Row rows[] = {
        {0x00, 0x7F, 0, 0, 1},       {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
        {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
        {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
    };
    const auto isBetween = [](char byte, unsigned first, unsigned last) {
        return static_cast<unsigned char>(byte) >= first && static_cast<unsigned char>(byte) <= last;
    };
    const auto isBegin = [&](const Row &row) {
        if (!isBetween(text[0], row.firstLead, row.lastLead) || text.size() < row.length) {
            return false;
        }
        for (std::size_t i = 1; i < row.length; ++i) {
            const bool isSecond = i == 1;
            if (!isBetween(text[i], isSecond ? row.firstSecond : 0x80, isSecond ? row.lastSecond : 0xBF)) {
                return false;
            }
        }
        return true;
    };
    while (!text.empty()) {
        const Row *const row = std::find_if(std::begin(rows), std::end(rows), isBegin);
        if (row == std::end(rows)) {
            return false;
        }
        text.remove_prefix(row->length);
    }
    return true;
}

/// Compares the kernels with the plain checker on `sequence` within ASCII, at every place round the borders of blocks
/// of 32 and 64 bytes, and as the end of the text there.
void expectSameValidity(std::string_view sequence) {
    constexpr std::size_t size = 72;
    static const ExactCopy surroundings(std::string(size, 'a'), 0);
    const bool isValid = isPlainlyValidUtf8(sequence);
    for (const std::size_t border : {32U, 64U}) {
        for (std::size_t place = border - sequence.size(); place <= border; ++place) {
            char *const text = surroundings.data();
            std::memcpy(text + place, sequence.data(), sequence.size());
            for (std::size_t index = 0; index < availableCount(); ++index) {
                const auto isValidUtf8 = available(index).isValidUtf8;
                if (isValidUtf8(text, size) != isValid || isValidUtf8(text, place + sequence.size()) != isValid) {
                    ADD_FAILURE() << available(index).name << " at " << place << ": "
                                  << testing::PrintToString(std::string(sequence));
                }
            }
            std::memset(text + place, 'a', sequence.size());
        }
    }
}

/// Every sequence of `length` bytes out of `bytes`.
void expectSameValidityOfAll(const std::string &bytes, std::size_t length) {
    std::vector<std::size_t> digits(length, 0);
    std::string sequence(length, bytes[0]);
    for (bool isDone = false; !isDone;) {
        expectSameValidity(sequence);
        isDone = true;
        for (std::size_t i = 0; i < length && isDone; ++i) {
            isDone = ++digits[i] == bytes.size();
            digits[i] = isDone ? 0 : digits[i];
            sequence[i] = bytes[digits[i]];
        }
    }
}

TEST(CodecKernels, Utf8ValidityOfEverySequenceOfUpToThreeBytes) {
    std::string bytes("a");
    for (unsigned byte = 0x80; byte < 0x100; ++byte) {
        bytes += static_cast<char>(byte);
    }
    expectSameValidityOfAll(std::string("\0\x01\x7f", 3) + bytes, 1);
    expectSameValidityOfAll(std::string("\0\x01\x7f", 3) + bytes, 2);
    expectSameValidityOfAll(bytes, 3);
}

TEST(CodecKernels, Utf8ValidityOfSequencesOfFourBytesAtTheLimits) {
    expectSameValidityOfAll("a\x80\x8f\x90\x9f\xa0\xbf\xc1\xc2\xdf\xe0\xe1\xed\xef\xf0\xf1\xf3\xf4\xf5\xff", 4);
}

TEST(CodecKernels, Utf8ValidityOfMutatedTexts) {
    const std::string samples[] = {
        "plain ASCII text, ",
        "déjà vu, ",
        "Привет, мир, ",
        "नमस्ते दुनिया, ",
        "統一碼，",
        "שלום ",
        "👩‍👩‍👧‍👦 🇩🇪 ",
        "\n",
    };
    std::mt19937 random(seed);
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        const std::size_t size = random() % 300;
        while (text.size() < size) {
            text += samples[random() % std::size(samples)];
        }
        for (auto mutations = random() % 4; mutations > 0 && !text.empty(); --mutations) {
            const std::size_t place = random() % text.size();
            switch (random() % 3) {
            case 0:
                text[place] = static_cast<char>(random());
                break;
            case 1:
                text.erase(place, 1 + random() % 3);
                break;
            default:
                text.insert(place, 1, static_cast<char>(random()));
            }
        }
        const ExactCopy copy(text, random() % blockSize);
        onAllKernels([&](const Kernels &kernels) {
            EXPECT_EQ(kernels.isValidUtf8(copy.data(), text.size()), isPlainlyValidUtf8(text));
        });
    }
}

char upper(char byte) { return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte; }
char lower(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte; }

TEST(CodecKernels, HexadecimalDigitsOfEveryByte) {
    onRandomBytes([](const Kernels &kernels, std::string_view text) {
        std::string expected;
        for (const char byte : text) {
            expected += "0123456789abcdef"[static_cast<unsigned char>(byte) >> 4];
            expected += "0123456789abcdef"[static_cast<unsigned char>(byte) & 0x0FU];
        }
        const ExactCopy digits(std::string(2 * text.size(), '#'), text.size() % blockSize);
        kernels.encodeHexadecimal(text.data(), text.size(), digits.data());
        EXPECT_EQ(digits.view(), expected);

        const ExactCopy bytes(std::string(text.size(), '#'), (text.size() + 7) % blockSize);
        EXPECT_TRUE(kernels.decodeHexadecimal(digits.data(), text.size(), bytes.data()));
        EXPECT_EQ(bytes.view(), text);
        std::transform(expected.begin(), expected.end(), digits.data(), upper);
        EXPECT_TRUE(kernels.decodeHexadecimal(digits.data(), text.size(), digits.data())); // onto itself
        EXPECT_EQ(digits.view().substr(0, text.size()), text);
    });
}

TEST(CodecKernels, HexadecimalDecodingFindsEveryOtherByte) {
    std::mt19937 random(seed);
    for (unsigned value = 0; value < 0x100; ++value) {
        const char byte = static_cast<char>(value);
        const bool isDigit = (byte >= '0' && byte <= '9') || (lower(byte) >= 'a' && lower(byte) <= 'f');
        for (const std::size_t pairs : {1U, 8U, 31U, 32U, 33U, 64U, 100U}) {
            std::string digits(2 * pairs, 'c');
            digits[random() % digits.size()] = byte;
            const ExactCopy copy(digits, random() % blockSize);
            onAllKernels([&](const Kernels &kernels) {
                std::string bytes(pairs, '#');
                EXPECT_EQ(kernels.decodeHexadecimal(copy.data(), pairs, bytes.data()), isDigit) << value;
            });
        }
    }
}

constexpr std::string_view base64Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// What percent coding says, one byte after the other; nothing when a "%" has no two digits behind it.
std::optional<std::string> plainPercentDecoded(std::string_view text) {
    const auto valueOf = [](char digit) { return std::string_view("0123456789abcdef").find(digit | 0x20); };
    const auto isDigit = [](char digit) { return std::isxdigit(static_cast<unsigned char>(digit)) != 0; };
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            result += text[i];
        } else if (text.size() - i < 3 || !isDigit(text[i + 1]) || !isDigit(text[i + 2])) {
            return std::nullopt;
        } else {
            result += static_cast<char>(static_cast<unsigned char>(valueOf(text[i + 1]) << 4 | valueOf(text[i + 2])));
            i += 2;
        }
    }
    return result;
}

TEST(CodecKernels, PercentEncodingEqualsThePlainLoop) {
    const AsciiSet kept("abcxyzABC0159~-");
    onRandomBytes([&](const Kernels &kernels, std::string_view text) {
        std::string result(4 * text.size(), '#');
        char *to = result.data();
        const std::size_t read = kernels.encodePercent(text.data(), text.size(), kept, to);
        ASSERT_LE(read, text.size());
        result.resize(static_cast<std::size_t>(to - result.data()));
        std::string expected;
        for (const char byte : text.substr(0, read)) {
            if (kept.contains(byte)) {
                expected += byte;
            } else {
                const auto value = static_cast<unsigned char>(byte);
                expected += {'%', "0123456789ABCDEF"[value >> 4], "0123456789ABCDEF"[value & 0x0F]};
            }
        }
        EXPECT_EQ(result, expected);
    });
}

TEST(CodecKernels, PercentDecodingEqualsThePlainLoop) {
    std::mt19937 random(seed);
    const std::string digits = "0123456789abcdefABCDEF";
    const std::string others = "gG/:@`%\x19 \x80\xFFz";
    for (std::size_t round = 0; round < 4000; ++round) {
        std::string text;
        const unsigned densePercents = random() % 2 == 0 ? 2 : 20;
        for (std::size_t left = random() % 150; left > 0; --left) {
            if (random() % densePercents == 0) {
                text += {'%', digits[random() % digits.size()], digits[random() % digits.size()]};
            } else {
                text += static_cast<char>(random() % 256);
                text.back() = text.back() == '%' ? 'a' : text.back();
            }
        }
        if (round % 2 == 0 && !text.empty()) { // break something, perhaps
            text[random() % text.size()] = others[random() % others.size()];
            text.resize(text.size() - random() % 2);
        }
        const ExactCopy copy(text, round % blockSize);
        const std::optional<std::string> expected = plainPercentDecoded(text);
        onAllKernels([&](const Kernels &kernels) {
            std::string result(text.size() + blockSize, '#');
            bool isValid = false;
            result.resize(kernels.decodePercent(copy.data(), text.size(), result.data(), isValid));
            ASSERT_EQ(isValid, expected.has_value()) << testing::PrintToString(text);
            if (isValid) {
                ASSERT_EQ(result, *expected) << testing::PrintToString(text);
            }
        });
    }
}

TEST(CodecKernels, Base64DigitsOfWholeGroups) {
    std::mt19937 random(seed);
    onRandomBytes([&](const Kernels &kernels, std::string_view text) {
        std::string expected;
        for (std::size_t i = 0; i + 3 <= text.size(); i += 3) {
            const auto byteAt = [&](std::size_t index) { return unsigned{static_cast<unsigned char>(text[index])}; };
            const unsigned bits = byteAt(i) << 16 | byteAt(i + 1) << 8 | byteAt(i + 2);
            for (const unsigned shift : {18U, 12U, 6U, 0U}) {
                expected += base64Alphabet[bits >> shift & 0x3FU];
            }
        }
        const ExactCopy digits(std::string(expected.size(), '='), random() % blockSize);
        const std::size_t read = kernels.encodeBase64(text.data(), text.size(), digits.data());
        EXPECT_EQ(read % 3, 0U);
        EXPECT_EQ(digits.view().substr(0, read / 3 * 4), expected.substr(0, read / 3 * 4));

        const ExactCopy encoded(expected, random() % blockSize);
        std::string bytes(expected.size() / 4 * 3 + 16, '#');
        const std::size_t decoded = kernels.decodeBase64(encoded.data(), expected.size(), bytes.data());
        EXPECT_EQ(decoded % 4, 0U);
        EXPECT_EQ(bytes.substr(0, decoded / 4 * 3), text.substr(0, decoded / 4 * 3));
    });
}

TEST(CodecKernels, Base64DecodingStopsBeforeEveryOtherByte) {
    std::mt19937 random(seed);
    for (unsigned value = 0; value < 0x100; ++value) {
        const char byte = static_cast<char>(value);
        for (int round = 0; round < 10; ++round) {
            std::string digits;
            for (int i = 0; i < 200; ++i) {
                digits += base64Alphabet[random() % 64];
            }
            const std::size_t place = random() % digits.size();
            digits[place] = byte;
            onAllKernels([&](const Kernels &kernels) {
                std::string bytes(digits.size(), '#');
                const std::size_t read = kernels.decodeBase64(digits.data(), digits.size(), bytes.data());
                if (base64Alphabet.find(byte) == std::string_view::npos) {
                    EXPECT_LE(read, place) << value;
                }
            });
        }
    }
}

} // namespace
} // namespace lexivore::kernels
