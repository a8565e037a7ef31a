// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/case_writing.h"
#include "engine/primitives/unicode_tables.h"
#include "tests/engine/kernels_texts.h"
#include "tests/engine/mixed_texts.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace lexivore::kernels {
namespace {

using unicode_tables::CaseTables;

constexpr const CaseTables *allTables[] = {&unicode_tables::uppercase, &unicode_tables::lowercase,
                                           &unicode_tables::titlecase};

std::string fullyMapped(char32_t codePoint, const CaseTables &tables) {
    char bytes[longestMapping];
    return {bytes, writeMapped(tables, codePoint, bytes)};
}

/// True for what kernels map themselves: no length changes, and of three bytes only the last one.
bool isMappedInPlace(std::string_view from, std::string_view to) {
    return from == to || (from.size() == to.size() &&
                          (from.size() <= 2 || (from.size() == 3 && from.substr(0, 2) == to.substr(0, 2))));
}

struct PlainMapped {
    std::string result;
    std::size_t wellFormedSize = 0; ///< Of what stands before the first byte that is no UTF-8.
};

/// The beginning of `text` up to the first code point that needs the full mapping, mapped. Bytes that are no UTF-8 are
/// kept.
PlainMapped plainMapped(std::string_view text, const CaseTables &tables) {
    PlainMapped plain;
    bool isWellFormed = true;
    const char *const end = text.data() + text.size();
    for (const char *position = text.data(); position != end;) {
        const DecodedCodePoint decoded = decode(position, end);
        const std::string_view bytes(position, decoded.length);
        const bool isNoUtf8 = decoded.length == 1 && !isAscii(*position);
        const std::string mapped = isNoUtf8 ? std::string(bytes) : fullyMapped(decoded.value, tables);
        if (!isMappedInPlace(bytes, mapped)) {
            break;
        }
        isWellFormed = isWellFormed && !isNoUtf8;
        plain.result += mapped;
        plain.wellFormedSize += isWellFormed ? mapped.size() : 0;
        position += decoded.length;
    }
    return plain;
}

/// The kernels may leave code points of four bytes to the full mapping when there are cased ones near them.
bool isNearCasedOnes(std::string_view text) { return static_cast<unsigned char>(text[0]) == 0xF0; }

void expectPlainMapping(const Kernels &kernels, std::string_view text) {
    for (const CaseTables *const tables : allTables) {
        std::string result(text.size() + blockSize, '#');
        const MappedCase mapped = kernels.mapCase(text.data(), text.size(), tables->pages, result.data());
        result.resize(mapped.size);
        const PlainMapped expected = plainMapped(text, *tables);
        ASSERT_TRUE(expected.result.starts_with(result)) << testing::PrintToString(text);
        if (mapped.size == text.size() || !isNearCasedOnes(text.substr(mapped.size))) {
            ASSERT_GE(result.size(), expected.wellFormedSize) << testing::PrintToString(text);
        }
        const bool hasCapitalSigma = text.substr(0, mapped.size).find("\u03A3") != std::string_view::npos;
        EXPECT_EQ(mapped.hasCapitalSigma, hasCapitalSigma);
    }
}

TEST(Kernels, MapCaseEqualsThePlainLoop) {
    onMixedTexts([offset = std::size_t{0}](const std::string &text) mutable {
        const ExactCopy copy(text, offset++ % blockSize);
        onAllKernels([&](const Kernels &kernels) { expectPlainMapping(kernels, copy.view()); });
    });
}

TEST(Kernels, MapCaseKeepsBytesThatAreNoUtf8OrStopsAtThem) { onRandomBytes(expectPlainMapping); }

TEST(Kernels, MapCaseKnowsEveryCodePoint) {
    for (char32_t codePoint = 0x80; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint < 0xD800 || codePoint >= 0xE000) {
            const std::string text = encoded(codePoint);
            onAllKernels([&](const Kernels &kernels) { expectPlainMapping(kernels, text); });
        }
    }
}

TEST(Kernels, MapCaseOfMapsWhatIsAskedFor) {
    std::mt19937_64 random(seed);
    onMixedTexts([&](const std::string &text) {
        const char *const end = text.data() + text.size();
        std::uint64_t upper = 0;
        std::uint64_t lower = 0;
        std::uint64_t sigmas = 0;
        std::string expected;
        std::uint64_t specials = 0;
        for (const char *position = text.data(); position != end;) {
            const DecodedCodePoint decoded = decode(position, end);
            if (expected.size() + decoded.length > blockSize) {
                break;
            }
            const std::uint64_t begin = std::uint64_t{1} << expected.size();
            const std::uint64_t bytes = ((std::uint64_t{1} << decoded.length) - 1) * begin;
            const auto choice = decoded.length == 1 && !isAscii(*position) ? 0 : random() % 3;
            std::string mapped(position, decoded.length);
            if (choice != 0) {
                (choice == 1 ? upper : lower) |= bytes;
                const std::string full =
                    fullyMapped(decoded.value, choice == 1 ? unicode_tables::uppercase : unicode_tables::lowercase);
                const bool isInPlace = isMappedInPlace(mapped, full);
                specials |= isInPlace ? 0 : begin;
                mapped = isInPlace ? full : mapped;
            }
            sigmas |= decoded.value == capitalSigma ? begin : 0;
            expected += mapped;
            position += decoded.length;
        }
        const ExactCopy copy(std::string_view(text).substr(0, expected.size()), random() % blockSize);
        onAllKernels([&](const Kernels &kernels) {
            char result[blockSize];
            const MappedBlock mapped =
                kernels.mapCaseOf(copy.data(), copy.view().size(), upper, unicode_tables::uppercase.pages, lower,
                                  unicode_tables::lowercase.pages, result);
            EXPECT_EQ(mapped.capitalSigmas, sigmas);
            EXPECT_EQ(mapped.specials & specials, specials);
            for (std::size_t i = 0; i < expected.size(); ++i) {
                const auto bit = std::uint64_t{1} << i;
                if ((mapped.specials & bit) != 0) {
                    EXPECT_TRUE((specials & bit) != 0 || isNearCasedOnes(copy.view().substr(i)));
                    i += decode(copy.data() + i, copy.data() + expected.size()).length - 1;
                } else {
                    ASSERT_EQ(result[i], expected[i]) << "byte " << i << " of " << testing::PrintToString(text);
                }
            }
        });
    });
}

} // namespace
} // namespace lexivore::kernels
