// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/unicode_tables.h"
#include "engine/primitives/utf8.h"
#include "tests/engine/kernels_texts.h"
#include "tests/engine/mixed_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore::kernels {
namespace {

using unicode_tables::BreakClass;

constexpr std::uint8_t bitOf(Kind kind) { return static_cast<std::uint8_t>(1U << static_cast<unsigned>(kind)); }

/// What a block would hold of one code point that stands at the bit.
void addTo(CodePointBlock &block, char32_t codePoint, std::uint64_t bit, bool isBehindReturn) {
    block.starts |= bit;
    block.first |= isIn(property::letter | property::mark, codePoint) ? bit : 0;
    block.second |= isIn(property::whiteSpace | property::number | property::punctuation, codePoint) ? bit : 0;
    block.third |= isApostrophe(codePoint) || isIn(property::mark, codePoint) ? bit : 0;
    block.crLfs |= isBehindReturn && codePoint == '\n' ? bit : 0;
    switch (character_breaks::breakClass(codePoint)) {
    case BreakClass::carriageReturn:
    case BreakClass::lineFeed:
    case BreakClass::control:
        block.controls |= bit;
        return;
    case BreakClass::other:
        return;
    default:
        block.hasRoles = true;
        break;
    }
    switch (character_breaks::breakClass(codePoint)) {
    case BreakClass::hangulLV:
    case BreakClass::hangulLVT:
        block.syllables |= bit;
        break;
    case BreakClass::regionalIndicator:
        block.regionalIndicators |= bit;
        break;
    case BreakClass::linkingConsonant:
        block.consonants |= bit;
        break;
    case BreakClass::extendedPictographic:
        block.pictographics |= bit;
        break;
    case BreakClass::extend:
        block.extends |= bit;
        break;
    case BreakClass::extendStarter:
        block.extendStarters |= bit;
        break;
    case BreakClass::virama:
        block.viramas |= bit;
        break;
    case BreakClass::zeroWidthJoiner:
        block.zeroWidthJoiners |= bit;
        break;
    case BreakClass::spacingMark:
        block.spacingMarks |= bit;
        break;
    default:
        block.isComplex = true;
        break;
    }
}

bool isIllFormed(const DecodedCodePoint &decoded, char first) { return decoded.length == 1 && !isAscii(first); }

/// The block that begins at `position`, one code point after the other.
CodePointBlock plainBlock(const char *position, const char *end) {
    CodePointBlock block{};
    char before = 0;
    while (position != end) {
        const DecodedCodePoint decoded = decode(position, end);
        if (isIllFormed(decoded, *position) || block.size + decoded.length > blockSize) {
            break;
        }
        addTo(block, decoded.value, std::uint64_t{1} << block.size, before == '\r');
        before = *position;
        block.size += static_cast<std::uint32_t>(decoded.length);
        position += decoded.length;
    }
    return block;
}

void expectEqualKinds(const CodePointBlock &block, const CodePointBlock &expected) {
    EXPECT_EQ(block.size, expected.size);
    EXPECT_EQ(block.starts, expected.starts);
    EXPECT_EQ(block.first, expected.first);
    EXPECT_EQ(block.second, expected.second);
    EXPECT_EQ(block.third, expected.third);
}

void expectEqualRoles(const CodePointBlock &block, const CodePointBlock &expected) {
    EXPECT_EQ(block.controls, expected.controls);
    EXPECT_EQ(block.crLfs, expected.crLfs);
    EXPECT_EQ(block.hasRoles, expected.hasRoles);
    if (!expected.hasRoles) {
        return;
    }
    EXPECT_EQ(block.syllables, expected.syllables);
    EXPECT_EQ(block.regionalIndicators, expected.regionalIndicators);
    EXPECT_EQ(block.consonants, expected.consonants);
    EXPECT_EQ(block.pictographics, expected.pictographics);
    EXPECT_EQ(block.extends, expected.extends);
    EXPECT_EQ(block.extendStarters, expected.extendStarters);
    EXPECT_EQ(block.viramas, expected.viramas);
    EXPECT_EQ(block.zeroWidthJoiners, expected.zeroWidthJoiners);
    EXPECT_EQ(block.spacingMarks, expected.spacingMarks);
    EXPECT_EQ(block.isComplex, expected.isComplex);
}

/// Returns the place behind those of `text`.
const std::uint16_t *expectUnits(const std::uint16_t *unit, std::string_view text) {
    const char *const end = text.data() + text.size();
    for (const char *position = text.data(); position != end; ++unit) {
        const DecodedCodePoint decoded = decode(position, end);
        EXPECT_EQ(*unit, decoded.length == 4 ? wideUnit : decoded.value);
        position += decoded.length;
    }
    return unit;
}

bool isAsciiOnly(std::string_view text) { return std::all_of(text.begin(), text.end(), isAscii); }

void expectPlainBlocks(const Kernels &kernels, std::string_view text) {
    constexpr std::uint8_t first = bitOf(Kind::letter) | bitOf(Kind::mark);
    constexpr std::uint8_t second = bitOf(Kind::horizontalSpace) | bitOf(Kind::newline) | bitOf(Kind::number) |
                                    bitOf(Kind::punctuation) | bitOf(Kind::apostrophe);
    constexpr std::uint8_t third = bitOf(Kind::apostrophe) | bitOf(Kind::mark);
    const std::size_t limit = text.size() % 2 == 0 ? mostBlocksFound : 7; // 7: more than some look up together
    const char *const end = text.data() + text.size();
    for (const char *position = text.data(); position != end;) {
        CodePointBlock blocks[mostBlocksFound];
        std::uint16_t units[roomForUnits];
        const auto left = static_cast<std::size_t>(end - position);
        const std::size_t count = kernels.findCodePoints(position, left, unicode_tables::characterTables,
                                                         {first, second, third}, blocks, limit, units);
        ASSERT_LE(count, limit);
        CodePointBlock kindsOnly[mostBlocksFound];
        ASSERT_EQ(count, kernels.findCodePoints(position, left, unicode_tables::characterTables,
                                                {first, second, third, false}, kindsOnly, limit, nullptr));
        CodePointBlock rolesOnly[mostBlocksFound];
        std::uint16_t unitsOfRoles[roomForUnits];
        std::uint16_t *const wanted = text.size() % 3 == 0 ? nullptr : unitsOfRoles;
        ASSERT_EQ(count, kernels.findCodePoints(position, left, unicode_tables::characterTables, {}, rolesOnly, limit,
                                                wanted));
        const std::uint16_t *unit = units;
        const std::uint16_t *unitOfRoles = wanted;
        for (std::size_t i = 0; i < count; ++i) {
            const CodePointBlock expected = plainBlock(position, end);
            unit = expectUnits(unit, {position, expected.size});
            expectEqualKinds(blocks[i], expected);
            expectEqualKinds(kindsOnly[i], expected);
            expectEqualRoles(blocks[i], expected);
            if (wanted != nullptr) {
                unitOfRoles = expectUnits(unitOfRoles, {position, expected.size});
            }
            EXPECT_EQ(rolesOnly[i].size, expected.size);
            EXPECT_EQ(rolesOnly[i].starts, expected.starts);
            EXPECT_EQ(rolesOnly[i].first | rolesOnly[i].second | rolesOnly[i].third, 0U);
            expectEqualRoles(rolesOnly[i], expected);
            position += blocks[i].size;
        }
        if (count < limit && position != end) {
            const std::string_view next(position, static_cast<std::size_t>(end - position));
            const DecodedCodePoint decoded = decode(position, end);
            EXPECT_TRUE(isAsciiOnly(next.substr(0, blockSize)) || isIllFormed(decoded, *position));
            position += decoded.length;
        }
        if (testing::Test::HasFailure()) {
            FAIL() << testing::PrintToString(text);
        }
    }
}

TEST(Kernels, FindCodePointsEqualsThePlainLoop) {
    onMixedTexts([offset = std::size_t{0}](const std::string &text) mutable {
        const ExactCopy copy(text, offset++ % blockSize);
        onAllKernels([&](const Kernels &kernels) { expectPlainBlocks(kernels, copy.view()); });
    });
}

TEST(Kernels, SelectSinglesTakesTheCharactersOfOneCodePoint) {
    std::mt19937_64 random(seed);
    for (std::size_t round = 0; round < 20'000; ++round) {
        const std::uint64_t starts = randomBits(random, 1U << random() % 3) | 1U;
        const std::uint64_t boundaries = starts & (round % 3 == 0 ? ~std::uint64_t{0} : ~randomBits(random, 8));
        const bool isFollowed = random() % 2 == 0;
        std::uint16_t units[blockSize];
        for (std::uint16_t &unit : units) {
            unit = random() % 8 == 0 ? wideUnit : static_cast<std::uint16_t>(random() % 0x10000);
        }
        std::uint64_t places = 0;
        std::vector<std::uint16_t> expected;
        std::size_t index = 0;
        for (std::size_t place = 0; place < blockSize; ++place) {
            if ((starts >> place & 1U) == 0) {
                continue;
            }
            std::size_t next = place + 1;
            while (next < blockSize && (starts >> next & 1U) == 0) {
                ++next;
            }
            const bool isEnd = next < blockSize ? (boundaries >> next & 1U) != 0 : isFollowed;
            if ((boundaries >> place & 1U) != 0 && isEnd && units[index] != wideUnit) {
                places |= std::uint64_t{1} << place;
                expected.push_back(units[index]);
            }
            ++index;
        }
        onAllKernels([&](const Kernels &kernels) {
            std::vector<std::uint16_t> singles(2 * blockSize);
            const SingleUnits found = kernels.selectSingles(starts, boundaries, isFollowed, units, singles.data());
            singles.resize(found.count);
            EXPECT_EQ(found.places, places);
            EXPECT_EQ(singles, expected);
        });
    }
}

TEST(Kernels, FindCodePointsStopsAtAnyBytesThatAreNoUtf8) {
    onRandomBytes([](const Kernels &kernels, std::string_view text) { expectPlainBlocks(kernels, text); });
}

TEST(Kernels, FindCodePointsKnowsEveryCodePoint) {
    std::string text;
    for (char32_t codePoint = 0x80; codePoint <= 0x10FFFF; ++codePoint) {
        text += codePoint >= 0xD800 && codePoint < 0xE000 ? std::string() : encoded(codePoint);
    }
    onAllKernels([&](const Kernels &kernels) { expectPlainBlocks(kernels, text); });
}

TEST(Kernels, FindCodePointsSeesEveryRoleAmongLettersWithoutAny) {
    std::string letters;
    for (std::size_t i = 0; i < blockSize / 2; ++i) {
        letters += i % 2 == 0 ? "\u044F" : "\u4E2D";
    }
    std::string text;
    for (char32_t codePoint = 0; codePoint < 0x10000; ++codePoint) {
        const bool isOther = character_breaks::breakClass(codePoint) == BreakClass::other;
        const bool isSurrogate = codePoint >= 0xD800 && codePoint < 0xE000;
        text += isOther || isSurrogate ? std::string() : encoded(codePoint) + letters;
    }
    onAllKernels([&](const Kernels &kernels) { expectPlainBlocks(kernels, text); });
}

/// What the filters find as they are defined, byte by byte; what is cut off may be found or not.
std::size_t findOneByOne(std::string_view text, const CodePointFilters &filters) {
    const auto indexAt = [text](std::size_t place) { return static_cast<unsigned char>(text[place]) & 0x3FU; };
    for (std::size_t place = 0; place < text.size(); ++place) {
        const auto lead = static_cast<unsigned char>(text[place]);
        if (lead < 0xC0) {
            continue;
        }
        const bool isFound =
            std::any_of(std::begin(filters.filters), std::end(filters.filters), [&](const CodePointFilter &filter) {
                return place + 2 >= text.size() || (filter.firsts[indexAt(place)] & filter.seconds[indexAt(place + 1)] &
                                                    filter.thirds[indexAt(place + 2)]) != 0;
            });
        if (lead >= 0xF0 || isFound) {
            return place;
        }
    }
    return text.size();
}

TEST(Kernels, FindFilteredFindsTheFirstThatHasABitInAllItsBytes) {
    std::mt19937 random(seed);
    for (const unsigned rarity : {1U, 3U, 40U}) {
        CodePointFilters filters{};
        for (CodePointFilter &filter : filters.filters) {
            for (auto *const page : {&filter.firsts, &filter.seconds, &filter.thirds}) {
                for (auto &entry : *page) {
                    entry = static_cast<std::uint8_t>(random() % rarity == 0 ? 1U << random() % 8 : 0);
                }
            }
        }
        onRandomBytes([&](const Kernels &kernels, std::string_view text) {
            const std::size_t found = kernels.findFiltered(text.data(), text.size(), filters);
            const std::size_t expected = findOneByOne(text, filters);
            if (expected + 2 < text.size() || expected == text.size()) {
                EXPECT_EQ(found, expected);
            } else { // cut off
                EXPECT_GE(found, expected);
            }
        });
    }
}

TEST(Kernels, FindFilteredFindsEveryCodePointThatMayChangeInComposing) {
    std::size_t foundCount = 0;
    for (char32_t codePoint = 0x80; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint >= 0xD800 && codePoint <= 0xDFFF) {
            continue;
        }
        char bytes[] = "abcd    ";
        const char *const end = encode(codePoint, bytes + 1);
        onAllKernels([&](const Kernels &kernels) {
            const std::size_t place =
                kernels.findFiltered(bytes, static_cast<std::size_t>(end - bytes), unicode_tables::changeableFilters);
            foundCount += place == 1 && codePoint < 0x10000 ? 1 : 0;
            if (isIn(property::mayChangeInComposing, codePoint) || codePoint >= 0x10000) {
                ASSERT_EQ(place, 1U) << static_cast<std::uint32_t>(codePoint);
            }
        });
    }
    EXPECT_LT(foundCount, 8000 * availableCount()) << "few others are found";
}

TEST(Kernels, FindFilteredPassesLettersThatStayInComposing) {
    const std::string_view letters = "éßœžАбйёЯ Ελλάδα 漢字，仮名 العربية हिनदी मैं 한국어 \u201CfiNe\u201D\u2026";
    onAllKernels([&](const Kernels &kernels) {
        EXPECT_EQ(kernels.findFiltered(letters.data(), letters.size(), unicode_tables::changeableFilters),
                  letters.size());
    });
}

} // namespace
} // namespace lexivore::kernels
