// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/bit_tally.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>

namespace lexivore {

namespace {

TEST(BitCount, CountsBitsWhereverTheyAre) {
    std::mt19937_64 random(1);
    EXPECT_EQ(bitCount(0), 0U);
    EXPECT_EQ(bitCount(~std::uint64_t{0}), 64U);
    for (int place = 0; place < 64; ++place) {
        const std::uint64_t bit = std::uint64_t{1} << place;
        EXPECT_EQ(bitCount(bit), 1U);
        EXPECT_EQ(bitCount(~bit), 63U);
        EXPECT_EQ(bitCount(bit - 1), static_cast<std::size_t>(place));
    }
    for (int i = 0; i < 10'000; ++i) {
        const std::uint64_t bits = random() & (i % 2 == 0 ? random() : ~std::uint64_t{0});
        EXPECT_EQ(bitCount(bits), static_cast<std::size_t>(std::popcount(bits))) << bits;
    }
}

TEST(BitTally, AddsUpAsManyMasksAsItIsGiven) {
    std::mt19937_64 random(2);
    for (const int count : {0, 1, 63, 64, 65, 128, 1000}) {
        BitTally tally;
        std::size_t expected = 0;
        for (int i = 0; i < count; ++i) {
            const std::uint64_t bits = random();
            tally.add(bits);
            expected += bitCount(bits);
        }
        EXPECT_EQ(tally.count(), expected) << count;
        EXPECT_EQ(tally.count(), expected) << "asked again";
    }
}

} // namespace

} // namespace lexivore
