// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/kernels/kernels.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace lexivore::kernels {
namespace {

constexpr unsigned seed = 20240613;

/// Bytes of the kinds that the kernels tell apart, with ever fewer outside ASCII.
std::string randomBytes(std::mt19937 &random, std::size_t size, unsigned nonAsciiPerThousand) {
    const std::string common = "abcxyzABCXYZ0159'' .,;!?\t\n\r-_/@[`{\x7f";
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) {
        const bool isAscii = random() % 1000 >= nonAsciiPerThousand;
        bytes += isAscii ? common[random() % common.size()] : static_cast<char>(0x80 + random() % 0x80);
    }
    return bytes;
}

/// Runs `check(kernels, bytes)` for every set of kernels on texts of many sizes, at every alignment of a vector.
template<typename Check> void onRandomBytes(Check check) {
    std::mt19937 random(seed);
    for (const unsigned nonAscii : {0U, 2U, 30U, 500U}) {
        for (std::size_t size = 0; size < 700; size += size < 140 ? 1 : 37) {
            const std::string bytes = randomBytes(random, size + 64, nonAscii);
            const std::string_view view = std::string_view(bytes).substr(size % 64, size);
            for (std::size_t index = 0; index < availableCount(); ++index) {
                SCOPED_TRACE(std::string(available(index).name) + ", " + std::to_string(size) + " bytes");
                check(available(index), view);
            }
        }
    }
}

TEST(Kernels, PlainOnesAreFirstAndTheBestOnesLast) {
    ASSERT_GE(availableCount(), 1U);
    EXPECT_STREQ(available(0).name, "plain");
    EXPECT_EQ(&best(), &available(availableCount() - 1));
}

TEST(Kernels, AsciiSetHoldsItsMembersOnly) {
    constexpr AsciiSet set(" \t.~\x7f");
    for (int byte = 0; byte < 256; ++byte) {
        const char character = static_cast<char>(byte);
        EXPECT_EQ(set.contains(character),
                  byte < 0x80 && std::string_view(" \t.~\x7f").find(character) != std::string_view::npos);
    }
}

TEST(Kernels, AsciiPrefixEndsAtTheFirstOtherByte) {
    onRandomBytes([](const Kernels &kernels, std::string_view text) {
        std::size_t expected = 0;
        while (expected < text.size() && static_cast<unsigned char>(text[expected]) < 0x80) {
            ++expected;
        }
        EXPECT_EQ(kernels.asciiPrefix(text.data(), text.size()), expected);
    });
}

TEST(Kernels, ClassifyMarksMembersAndCandidates) {
    ByteClass some;
    some.ascii = AsciiSet(" \t\n'z");
    some.leads[0] = 0xC2;
    some.leads[1] = 0xE2;
    ByteClass every;
    every.ascii = AsciiSet("aZ09");
    every.takesEveryNonAsciiByte = true;
    for (const ByteClass &byteClass : {some, every}) {
        onRandomBytes([&](const Kernels &kernels, std::string_view text) {
            const std::size_t blocks = text.size() / blockSize;
            std::vector<std::uint64_t> members(blocks);
            std::vector<std::uint64_t> candidates(blocks);
            kernels.classify(text.data(), blocks, byteClass, members.data(), candidates.data());
            for (std::size_t i = 0; i < blocks * blockSize; ++i) {
                const auto byte = static_cast<unsigned char>(text[i]);
                const bool isLead = byte == 0xC2 || byte == 0xE2 || byte == 0xFF;
                EXPECT_EQ(members[i / blockSize] >> i % blockSize & 1U, byteClass.ascii.contains(text[i]) ? 1U : 0U);
                EXPECT_EQ(candidates[i / blockSize] >> i % blockSize & 1U,
                          byte >= 0x80 && (byteClass.takesEveryNonAsciiByte || isLead) ? 1U : 0U);
            }
        });
    }
}

TEST(Kernels, CompressKeepsTheBytesOfSetBits) {
    std::mt19937_64 random(seed);
    onRandomBytes([&](const Kernels &kernels, std::string_view text) {
        const std::size_t blocks = text.size() / blockSize;
        std::vector<std::uint64_t> keep(blocks);
        std::string expected;
        for (std::size_t block = 0; block < blocks; ++block) {
            const auto kind = random() % 4;
            keep[block] = kind == 0   ? 0
                          : kind == 1 ? ~std::uint64_t{0}
                          : kind == 2 ? random()
                                      : random() & random() & random();
            for (std::size_t i = 0; i < blockSize; ++i) {
                if ((keep[block] >> i & 1U) != 0) {
                    expected += text[block * blockSize + i];
                }
            }
        }
        std::string result(text.size() + blockSize, '#');
        result.resize(kernels.compress(text.data(), blocks, keep.data(), result.data()));
        EXPECT_EQ(result, expected);
    });
}

bool isLetter(char byte) { return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'); }
bool isAlphanumeric(char byte) { return isLetter(byte) || (byte >= '0' && byte <= '9'); }
char upper(char byte) { return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte; }
char lower(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte; }

/// What caseWords writes for the first `size` bytes, one byte after the other.
std::string plainCaseWords(std::string_view text, std::size_t size, const WordCaseRules &rules, WordCaseState &state) {
    std::string result;
    for (std::size_t i = 0; i < size; ++i) {
        const char byte = text[i];
        const bool joins =
            rules.joinsOverApostrophe && byte == '\'' && state.isBehindAlphanumeric && isAlphanumeric(text[i + 1]);
        if (isAlphanumeric(byte) || joins) {
            const bool hasLetter = state.isInWord && state.isBehindLetter;
            result += rules.capitalizes && !hasLetter ? upper(byte) : lower(byte);
            state.isBehindLetter = hasLetter || isLetter(byte);
        } else if (!rules.dropsSeparators) {
            result += byte;
        } else if (state.isInWord && rules.joiner != '\0') {
            result += rules.joiner;
        }
        state.isInWord = isAlphanumeric(byte) || joins;
        state.isBehindAlphanumeric = isAlphanumeric(byte);
    }
    return result;
}

TEST(Kernels, CaseWordsEqualsThePlainLoop) {
    const WordCaseRules allRules[] = {
        {.joinsOverApostrophe = true, .capitalizes = true},
        {.capitalizes = true, .dropsSeparators = true},
        {.dropsSeparators = true, .joiner = '_'},
        {.dropsSeparators = true, .joiner = '-'},
    };
    std::mt19937 random(seed);
    for (const WordCaseRules &rules : allRules) {
        onRandomBytes([&](const Kernels &kernels, std::string_view text) {
            WordCaseState state;
            state.isInWord = random() % 2 == 0;
            state.isBehindAlphanumeric = state.isInWord && random() % 4 != 0;
            state.isBehindLetter = state.isInWord && random() % 2 == 0;
            WordCaseState expectedState = state;
            std::string result(text.size() + blockSize, '#');
            char *to = result.data();
            const std::size_t read = kernels.caseWords(text.data(), text.size(), rules, state, to);
            EXPECT_EQ(read % blockSize, 0U);
            EXPECT_TRUE(read == 0 || read < text.size());
            EXPECT_EQ(std::string_view(result.data(), static_cast<std::size_t>(to - result.data())),
                      plainCaseWords(text, read, rules, expectedState));
            EXPECT_EQ(state.isInWord, expectedState.isInWord);
            EXPECT_EQ(state.isBehindAlphanumeric, expectedState.isBehindAlphanumeric);
            if (rules.capitalizes && state.isInWord) {
                EXPECT_EQ(state.isBehindLetter, expectedState.isBehindLetter);
            }
        });
    }
}

TEST(Kernels, AlternateCaseEqualsThePlainLoop) {
    onRandomBytes([](const Kernels &kernels, std::string_view text) {
        for (const bool begins : {true, false}) {
            bool isUppersTurn = begins;
            std::string result(text.size(), '#');
            const std::size_t read = kernels.alternateCase(text.data(), text.size(), isUppersTurn, result.data());
            bool expectedTurn = begins;
            for (std::size_t i = 0; i < read; ++i) {
                EXPECT_EQ(result[i], expectedTurn ? upper(text[i]) : lower(text[i]));
                expectedTurn = expectedTurn != isLetter(text[i]);
            }
            EXPECT_EQ(isUppersTurn, expectedTurn);
        }
    });
}

} // namespace
} // namespace lexivore::kernels
