// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/kernels_texts.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace lexivore::kernels {
namespace {

using Counts = std::array<std::uint64_t, 128>;

void addPlainly(Counts &counts, std::string_view text) {
    for (const char byte : text) {
        ++counts.at(static_cast<unsigned char>(byte));
    }
}

/// ASCII of which most belongs to a few rows of 16 characters, other ones from time to time.
std::string textOfRows(std::mt19937 &random, std::size_t size) {
    std::string text;
    while (text.size() < size) {
        const auto row = random() % 8;
        const std::size_t othersOnceIn = 1 + random() % 40;
        for (std::size_t left = 1 + random() % 30'000; left > 0; --left) {
            const bool isOther = random() % othersOnceIn == 0;
            text += static_cast<char>(isOther ? random() % 128 : row * 16 + random() % 16);
        }
    }
    text.resize(size);
    return text;
}

TEST(Kernels, CountAsciiCountsEachCharacterWhateverTheTextIsLike) {
    std::mt19937 random(seed);
    for (std::size_t round = 0; round < 60; ++round) {
        const ExactCopy text(textOfRows(random, random() % 150'000), round % blockSize);
        onAllKernels([&](const Kernels &kernels) {
            AsciiCounts counts; // which go on from one piece of a text to the next
            Counts expected{};
            std::string_view left = text.view();
            while (!left.empty()) {
                const std::string_view piece = left.substr(0, 1 + random() % 40'000);
                const std::size_t counted = kernels.countAscii(piece.data(), piece.size(), counts);
                ASSERT_LE(counted, piece.size());
                addPlainly(expected, piece.substr(0, counted));
                ASSERT_EQ(std::to_array(counts.counts), expected);
                left.remove_prefix(counted > 0 ? counted : piece.size());
            }
        });
    }
}

TEST(Kernels, CountAsciiEndsBeforeAnythingElse) {
    std::mt19937 random(seed);
    for (std::size_t round = 0; round < 200; ++round) {
        std::string bytes = textOfRows(random, 1 + random() % 30'000);
        const std::size_t place = random() % bytes.size();
        bytes[place] = static_cast<char>(0x80 + random() % 0x80);
        const ExactCopy text(bytes, round % blockSize);
        onAllKernels([&](const Kernels &kernels) {
            AsciiCounts counts;
            const std::size_t counted = kernels.countAscii(text.data(), text.view().size(), counts);
            ASSERT_LE(counted, place);
            Counts expected{};
            addPlainly(expected, text.view().substr(0, counted));
            ASSERT_EQ(std::to_array(counts.counts), expected);
        });
    }
}

} // namespace
} // namespace lexivore::kernels
