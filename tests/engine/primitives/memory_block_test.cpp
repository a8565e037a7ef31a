// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/memory_block.h"

#include "tests/support/allocation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

namespace lexivore {

namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20;
constexpr std::size_t sizes[] = {1,
                                 1'000,
                                 megabyte,
                                 megabyte + 1,
                                 2 * megabyte - 1,
                                 2 * megabyte,
                                 3 * megabyte + 5,
                                 8 * megabyte,
                                 11 * megabyte + 1};

/// Bytes that differ from those of every other page around.
void fill(char *bytes, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
        bytes[i] = static_cast<char>(i % 251 + i / 4096 % 5);
    }
}

TEST(MemoryBlock, HasNothingAtFirst) {
    const MemoryBlock block;
    EXPECT_EQ(block.bytes(), nullptr);
    EXPECT_EQ(block.capacity(), 0U);
}

TEST(MemoryBlock, HasTheRoomThatIsAskedForAndLessThanTwiceAsMuch) {
    for (const std::size_t size : sizes) {
        MemoryBlock block;
        ASSERT_TRUE(block.resize(size));
        EXPECT_GE(block.capacity(), size);
        EXPECT_LT(block.capacity(), 2 * size + 1);
        std::fill_n(block.bytes(), block.capacity(), 'x');
    }
}

TEST(MemoryBlock, KeepsItsBytesFromEverySizeToEveryOther) {
    const std::size_t most = *std::max_element(std::begin(sizes), std::end(sizes));
    const auto expected = std::make_unique<char[]>(most);
    fill(expected.get(), most);
    for (const std::size_t before : sizes) {
        for (const std::size_t after : sizes) {
            MemoryBlock block;
            ASSERT_TRUE(block.resize(before));
            MemoryBlock neighbour; // which may be in the way
            ASSERT_TRUE(neighbour.resize(before));
            fill(block.bytes(), before);
            ASSERT_TRUE(block.resize(after));
            ASSERT_GE(block.capacity(), after);
            const std::size_t kept = std::min(before, after);
            ASSERT_TRUE(std::string_view(block.bytes(), kept) == std::string_view(expected.get(), kept))
                << before << " to " << after;
            std::fill_n(block.bytes(), block.capacity(), 'x');
        }
    }
}

TEST(MemoryBlock, StaysOnTheBoundariesOfHugePages) {
    MemoryBlock block;
    for (const std::size_t size : {4 * megabyte, 40 * megabyte, 7 * megabyte, 70 * megabyte}) {
        ASSERT_TRUE(block.resize(size));
        MemoryBlock neighbour;
        ASSERT_TRUE(neighbour.resize(size));
#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block.bytes()) % (2 * megabyte), 0U);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(neighbour.bytes()) % (2 * megabyte), 0U);
#endif
    }
}

#ifndef __SANITIZE_ADDRESS__ // which ends the program instead
TEST(MemoryBlock, IsAsItWasWhenTheMemoryCannotBeHad) {
    for (const std::size_t size : {std::size_t{1'000}, 8 * megabyte}) {
        MemoryBlock block;
        ASSERT_TRUE(block.resize(size));
        fill(block.bytes(), size);
        const std::string before(block.bytes(), size);
        const std::size_t capacity = block.capacity();
        for (const std::size_t refused : {SIZE_MAX, SIZE_MAX / 2 + 1, SIZE_MAX / 2, std::size_t{1} << 50}) {
            EXPECT_FALSE(block.resize(refused)) << refused;
        }
        EXPECT_EQ(block.capacity(), capacity);
        EXPECT_TRUE(std::string_view(block.bytes(), size) == before);
        MemoryBlock nothing;
        EXPECT_FALSE(nothing.resize(SIZE_MAX / 2));
        EXPECT_EQ(nothing.bytes(), nullptr);
    }
}
#endif

TEST(MemoryBlock, GivesBackAllThatItHas) {
    constexpr std::size_t little = 10'000; // what malloc itself keeps
    const std::size_t before = test::allocatedBytes();
    {
        MemoryBlock block;
        for (const std::size_t size : sizes) {
            ASSERT_TRUE(block.resize(size));
            EXPECT_GE(test::allocatedBytes() + little, before + size);
            EXPECT_LT(test::allocatedBytes(), before + 2 * size + little);
        }
        ASSERT_TRUE(block.resize(3 * megabyte));
        EXPECT_LT(test::allocatedBytes(), before + 4 * megabyte + little);
        MemoryBlock other = std::move(block);
        EXPECT_EQ(block.bytes(), nullptr); // NOLINT(bugprone-use-after-move): a moved block has nothing
        ASSERT_TRUE(other.resize(10));
        EXPECT_LT(test::allocatedBytes(), before + little);
        ASSERT_TRUE(other.resize(5 * megabyte));
        other.free();
        EXPECT_EQ(other.bytes(), nullptr);
        EXPECT_EQ(other.capacity(), 0U);
    }
    EXPECT_LT(test::allocatedBytes(), before + little);
}

} // namespace

} // namespace lexivore
