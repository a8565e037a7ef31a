// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/scratch.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>

namespace lexivore {

namespace {

TEST(Scratch, HasRoomForAllItsValues) {
    for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{100}, std::size_t{1} << 20}) {
        Scratch<std::uint64_t> first(count);
        const Scratch<std::uint64_t> second(count);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(first.data()) % 64, 0U);
        for (std::size_t i = 0; i < count; ++i) {
            first[i] = i;
            second[i] = ~i;
        }
        const Scratch<std::uint64_t> moved = std::move(first);
        for (std::size_t i = 0; i < count; ++i) {
            ASSERT_EQ(moved[i], i);
            ASSERT_EQ(second[i], ~i);
        }
    }
}

TEST(Scratch, RefusesWhatNoMemoryHolds) {
    EXPECT_THROW({ const Scratch<std::uint64_t> refused(SIZE_MAX); }, std::bad_alloc);
    EXPECT_THROW({ const Scratch<std::uint64_t> refused(SIZE_MAX / 16); }, std::bad_alloc);
}

} // namespace

} // namespace lexivore
