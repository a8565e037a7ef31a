// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/kernels/kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
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

/// A copy of a text that begins `offset` bytes behind the alignment of a vector and ends where its memory does, so that
/// AddressSanitizer sees every read and write behind it.
class ExactCopy {
public:
    ExactCopy(std::string_view text, std::size_t offset)
        : m_memory(new (std::align_val_t{blockSize}) char[offset + text.size()]), m_offset(offset),
          m_size(text.size()) {
        std::copy(text.begin(), text.end(), data());
    }
    [[nodiscard]] char *data() const { return m_memory.get() + m_offset; }
    [[nodiscard]] std::string_view view() const { return {data(), m_size}; }

private:
    struct Free {
        void operator()(char *memory) const { ::operator delete[](memory, std::align_val_t{blockSize}); }
    };
    std::unique_ptr<char[], Free> m_memory;
    std::size_t m_offset;
    std::size_t m_size;
};

/// Runs `check(kernels)` for every set of kernels.
template<typename Check> void onAllKernels(Check check) {
    for (std::size_t index = 0; index < availableCount(); ++index) {
        SCOPED_TRACE(available(index).name);
        check(available(index));
    }
}

/// Runs `check(kernels, bytes)` for every set of kernels on texts of many sizes, at every alignment of a vector.
template<typename Check> void onRandomBytes(Check check) {
    std::mt19937 random(seed);
    for (const unsigned nonAscii : {0U, 2U, 30U, 500U}) {
        for (std::size_t size = 0; size < 700; size += size < 140 ? 1 : 37) {
            const ExactCopy bytes(randomBytes(random, size, nonAscii), size % blockSize);
            SCOPED_TRACE(std::to_string(size) + " bytes");
            onAllKernels([&](const Kernels &kernels) { check(kernels, bytes.view()); });
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

TEST(Kernels, FindCountedMarksEachByteThatCounts) {
    onRandomBytes([](const Kernels &kernels, std::string_view text) {
        const std::size_t blocks = text.size() / blockSize;
        std::vector<CountedBytes> found(blocks);
        kernels.findCounted(text.data(), blocks, found.data());
        for (std::size_t i = 0; i < blocks * blockSize; ++i) {
            const auto byte = static_cast<unsigned char>(text[i]);
            const CountedBytes &block = found[i / blockSize];
            const auto isMarked = [i](std::uint64_t bits) { return (bits >> i % blockSize & 1U) != 0; };
            EXPECT_EQ(isMarked(block.blanks), byte == ' ' || byte == '\t');
            EXPECT_EQ(isMarked(block.newlines), byte >= 0x0A && byte <= 0x0D);
            EXPECT_EQ(isMarked(block.lineFeeds), byte == '\n');
            EXPECT_EQ(isMarked(block.carriageReturns), byte == '\r');
            EXPECT_EQ(isMarked(block.sentenceEnds), byte == '.' || byte == '!' || byte == '?');
            EXPECT_EQ(isMarked(block.nonAscii), byte >= 0x80);
            EXPECT_EQ(isMarked(block.spaceLeads), byte == 0xC2 || (byte >= 0xE1 && byte <= 0xE3));
        }
    });
}

TEST(Kernels, FindCountedTellsEveryByteApart) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    onAllKernels([&](const Kernels &kernels) {
        CountedBytes found[4];
        kernels.findCounted(bytes.data(), 4, found);
        EXPECT_EQ(found[0].blanks, std::uint64_t{1} << ' ' | std::uint64_t{1} << '\t');
        EXPECT_EQ(found[0].newlines, std::uint64_t{0xF} << '\n');
        EXPECT_EQ(found[0].sentenceEnds, std::uint64_t{1} << '.' | std::uint64_t{1} << '!' | std::uint64_t{1} << '?');
        EXPECT_EQ(found[3].spaceLeads, std::uint64_t{1} << (0xC2 - 0xC0) | std::uint64_t{7} << (0xE1 - 0xC0));
        for (const std::size_t other : {1U, 2U, 3U}) {
            EXPECT_EQ(found[other].blanks | found[other].newlines | found[other].sentenceEnds, 0U);
        }
        EXPECT_EQ(found[1].nonAscii, 0U);
        EXPECT_EQ(found[2].nonAscii, ~std::uint64_t{0});
    });
}

TEST(Kernels, CountBitsCountsAllOfThem) {
    std::mt19937_64 random(seed);
    std::vector<std::uint64_t> masks;
    std::size_t expected = 0;
    for (std::size_t size = 0; size < 200; ++size) {
        onAllKernels(
            [&](const Kernels &kernels) { EXPECT_EQ(kernels.countBits(masks.data(), masks.size()), expected); });
        masks.push_back(size % 5 == 0 ? ~std::uint64_t{0} : random());
        for (std::uint64_t left = masks.back(); left != 0; left >>= 1) {
            expected += left & 1U;
        }
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

TEST(Kernels, CompressReplacingPutsTheReplacementInPlace) {
    std::mt19937_64 random(seed);
    onRandomBytes([&](const Kernels &kernels, std::string_view text) {
        const std::size_t blocks = text.size() / blockSize;
        std::vector<std::uint64_t> keep(blocks);
        std::vector<std::uint64_t> replaced(blocks);
        std::string expected;
        for (std::size_t block = 0; block < blocks; ++block) {
            keep[block] = random() % 4 == 0 ? ~std::uint64_t{0} : random();
            replaced[block] = random() % 4 == 0 ? 0 : random() & random();
            for (std::size_t i = 0; i < blockSize; ++i) {
                if ((keep[block] >> i & 1U) != 0) {
                    expected += (replaced[block] >> i & 1U) != 0 ? '\n' : text[block * blockSize + i];
                }
            }
        }
        std::string result(text.size() + blockSize, '#');
        result.resize(
            kernels.compressReplacing(text.data(), blocks, keep.data(), replaced.data(), '\n', result.data()));
        EXPECT_EQ(result, expected);
    });
}

/// Checks that `find` either finds the first place or gives up no later than there, having missed none before.
void expectFirstPlace(const Kernels &kernels, std::string_view text, std::string_view pattern) {
    bool gaveUp = true;
    const std::size_t place = kernels.find(text.data(), text.size(), pattern.data(), pattern.size(), gaveUp);
    const std::size_t expected = std::min(text.find(pattern), text.size());
    if (gaveUp) {
        EXPECT_LE(place, expected);
    } else {
        EXPECT_EQ(place, expected);
    }
}

TEST(Kernels, FindReturnsTheFirstPlace) {
    std::mt19937 random(seed);
    onRandomBytes([&](const Kernels &kernels, std::string_view text) {
        for (const std::size_t length : {1U, 2U, 3U, 7U, 31U, 64U, 65U, 130U}) {
            if (length <= text.size()) { // the text may hold it earlier, too
                const ExactCopy part(text.substr(random() % (text.size() - length + 1), length), random() % blockSize);
                expectFirstPlace(kernels, text, part.view());
            }
            expectFirstPlace(kernels, text, randomBytes(random, length, 0));
        }
        expectFirstPlace(kernels, text, "a#");
    });
}

TEST(Kernels, FindGivesUpWhenTooManyPlacesLookRight) {
    const std::string text(1U << 20, 'a');
    const std::string hopeless = std::string(500, 'a') + 'b' + std::string(500, 'a');
    const std::string last = hopeless + text.substr(0, 100);
    onAllKernels([&](const Kernels &kernels) {
        bool gaveUp = false;
        const std::size_t place = kernels.find(text.data(), text.size(), hopeless.data(), hopeless.size(), gaveUp);
        EXPECT_TRUE(gaveUp);
        EXPECT_LT(place, text.size());
        expectFirstPlace(kernels, text + last + text, hopeless);
        // A text with few such places is searched to its end.
        const std::string harmless = std::string(5000, 'a') + std::string(1U << 20, 'c');
        EXPECT_EQ(kernels.find(harmless.data(), harmless.size(), "aab", 3, gaveUp), harmless.size());
        EXPECT_FALSE(gaveUp);
    });
}

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

TEST(Kernels, Utf8ValidityOfEverySequenceOfUpToThreeBytes) {
    std::string bytes("a");
    for (unsigned byte = 0x80; byte < 0x100; ++byte) {
        bytes += static_cast<char>(byte);
    }
    expectSameValidityOfAll(std::string("\0\x01\x7f", 3) + bytes, 1);
    expectSameValidityOfAll(std::string("\0\x01\x7f", 3) + bytes, 2);
    expectSameValidityOfAll(bytes, 3);
}

TEST(Kernels, Utf8ValidityOfSequencesOfFourBytesAtTheLimits) {
    expectSameValidityOfAll("a\x80\x8f\x90\x9f\xa0\xbf\xc1\xc2\xdf\xe0\xe1\xed\xef\xf0\xf1\xf3\xf4\xf5\xff", 4);
}

TEST(Kernels, Utf8ValidityOfMutatedTexts) {
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

TEST(Kernels, HexadecimalDigitsOfEveryByte) {
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

TEST(Kernels, HexadecimalDecodingFindsEveryOtherByte) {
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

TEST(Kernels, ReverseTurnsEveryByte) {
    onRandomBytes([](const Kernels &kernels, std::string_view text) {
        const ExactCopy result(std::string(text.size(), '#'), (text.size() + 5) % blockSize);
        kernels.reverse(text.data(), text.size(), result.data());
        EXPECT_EQ(result.view(), std::string(text.rbegin(), text.rend()));
    });
}

TEST(Kernels, TakeTheEmptyText) {
    onAllKernels([](const Kernels &kernels) {
        bool gaveUp = true;
        EXPECT_EQ(kernels.asciiPrefix(nullptr, 0), 0U);
        EXPECT_EQ(kernels.find(nullptr, 0, "a", 1, gaveUp), 0U);
        EXPECT_FALSE(gaveUp);
        EXPECT_TRUE(kernels.isValidUtf8(nullptr, 0));
        kernels.encodeHexadecimal(nullptr, 0, nullptr);
        EXPECT_TRUE(kernels.decodeHexadecimal(nullptr, 0, nullptr));
    });
}

} // namespace
} // namespace lexivore::kernels
