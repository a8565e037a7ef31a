// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/kernels_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore::kernels {
namespace {

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
            const bool hasCandidates =
                kernels.classify(text.data(), blocks, byteClass, members.data(), candidates.data());
            EXPECT_EQ(hasCandidates,
                      std::any_of(candidates.begin(), candidates.end(), [](auto mask) { return mask != 0; }));
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

TEST(Kernels, HasOtherNewlinesFindsOneAtEveryPlace) {
    const std::string_view looksAlike = "\n \x0e\t\xc2\xa0\xe2\x80\xa6\xe2\x81\xa9\xe1\x80\xa8\xc3\x85";
    for (std::size_t size = 0; size < 3 * blockSize; ++size) {
        std::string plain;
        while (plain.size() < size) {
            plain += looksAlike;
        }
        plain.resize(size);
        onAllKernels([&](const Kernels &kernels) {
            for (std::size_t offset = 0; offset < 2; ++offset) {
                const ExactCopy text(plain, offset);
                EXPECT_FALSE(kernels.hasOtherNewlines(text.data(), size)) << size;
            }
            for (const std::string_view newline : {"\x0b", "\x0c", "\r", "\xc2\x85", "\xe2\x80\xa8", "\xe2\x80\xa9"}) {
                for (std::size_t at = 0; at + newline.size() <= size; ++at) {
                    const ExactCopy text(std::string(plain).replace(at, newline.size(), newline), at % 2);
                    EXPECT_TRUE(kernels.hasOtherNewlines(text.data(), size)) << size << " bytes, at " << at;
                }
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

TEST(Kernels, HighestRankedEqualsThePlainLoop) {
    std::mt19937_64 random(seed);
    for (std::size_t round = 0; round < 20'000; ++round) {
        const std::uint64_t counted = round % 9 == 0 ? ~std::uint64_t{0} : randomBits(random, 1U << random() % 7);
        const std::uint64_t mask = randomBits(random, 1U << random() % 7) & (round % 2 == 0 ? counted : random());
        const std::size_t most = round % 50 == 0 ? SIZE_MAX - round % 2 : random() % (blockSize + 3);
        RankedBit expected = {0, 0};
        std::size_t rank = 0;
        for (std::size_t place = 0; place < blockSize && rank <= most; ++place) {
            const std::uint64_t bit = std::uint64_t{1} << place;
            if ((mask & bit) != 0) {
                expected = {bit, rank};
            }
            rank += (counted & bit) != 0 ? 1 : 0;
        }
        onAllKernels([&](const Kernels &kernels) {
            const RankedBit found = kernels.highestRanked(mask, counted, most);
            ASSERT_EQ(found.bit, expected.bit) << mask << " " << counted << " " << most;
            ASSERT_EQ(found.rank, expected.rank) << mask << " " << counted << " " << most;
        });
    }
}

TEST(Kernels, ListBitsGivesTheIndexOfEachInOrder) {
    std::mt19937_64 random(seed);
    for (std::size_t size = 0; size < 130; ++size) {
        std::vector<std::uint64_t> masks;
        std::vector<std::uint16_t> expected;
        for (std::size_t i = 0; i < size; ++i) {
            const bool isSparse = size % 3 == 0 && random() % 16 != 0;
            masks.push_back(isSparse            ? 0
                            : random() % 8 == 0 ? ~std::uint64_t{0}
                                                : randomBits(random, 1U << random() % 7));
            for (std::size_t bit = 0; bit < blockSize; ++bit) {
                if ((masks[i] >> bit & 1U) != 0) {
                    expected.push_back(static_cast<std::uint16_t>(i * blockSize + bit));
                }
            }
        }
        onAllKernels([&](const Kernels &kernels) {
            std::vector<std::uint16_t> indices(expected.size() + blockSize);
            indices.resize(kernels.listBits(masks.data(), masks.size(), indices.data()));
            EXPECT_EQ(indices, expected);
        });
    }
}

TEST(Kernels, MarkOccurrencesMarksEveryPlaceOfThePattern) {
    std::mt19937 random(seed);
    const auto randomLetters = [&random](std::size_t size) { // two of them, so that much looks like the pattern
        std::string text(size, 'a');
        for (char &letter : text) {
            letter = random() % 3 == 0 ? 'b' : 'a';
        }
        return text;
    };
    for (std::size_t patternSize = 1; patternSize <= longestMarked; ++patternSize) {
        for (std::size_t offset = 0; offset < blockSize; ++offset) {
            const std::size_t blocks = offset % 5;
            std::string letters = randomLetters(blocks * blockSize + patternSize - 1);
            const std::string pattern = randomLetters(patternSize);
            for (std::size_t at = offset; at + patternSize <= letters.size(); at += 3 * patternSize + offset) {
                letters.replace(at, patternSize, pattern);
            }
            const ExactCopy text(letters, offset);
            onAllKernels([&](const Kernels &kernels) {
                std::vector<std::uint64_t> places(blocks);
                kernels.markOccurrences(text.data(), blocks, pattern.data(), pattern.size(), places.data());
                for (std::size_t i = 0; i < blocks * blockSize; ++i) {
                    EXPECT_EQ(places[i / blockSize] >> i % blockSize & 1U,
                              text.view().substr(i).starts_with(pattern) ? 1U : 0U);
                }
            });
        }
    }
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

TEST(Kernels, TakeTheEmptyText) {
    onAllKernels([](const Kernels &kernels) {
        bool gaveUp = true;
        EXPECT_EQ(kernels.asciiPrefix(nullptr, 0), 0U);
        EXPECT_FALSE(kernels.hasOtherNewlines(nullptr, 0));
        EXPECT_EQ(kernels.find(nullptr, 0, "a", 1, gaveUp), 0U);
        EXPECT_FALSE(gaveUp);
        EXPECT_TRUE(kernels.isValidUtf8(nullptr, 0));
        kernels.encodeHexadecimal(nullptr, 0, nullptr);
        EXPECT_TRUE(kernels.decodeHexadecimal(nullptr, 0, nullptr));
    });
}

} // namespace
} // namespace lexivore::kernels
