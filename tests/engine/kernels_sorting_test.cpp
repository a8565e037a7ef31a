// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/kernels_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <tuple>
#include <vector>

namespace lexivore::kernels {
namespace {

using Fields = std::vector<std::tuple<std::uint64_t, std::uint32_t, std::uint32_t>>;

Fields fieldsOf(const std::vector<KeyedPart> &parts) {
    Fields fields;
    for (const KeyedPart &part : parts) {
        fields.emplace_back(part.key, part.offset, part.size);
    }
    return fields;
}

TEST(Kernels, SortFewIsAStableSortByTheKeys) {
    std::mt19937_64 random(seed);
    constexpr std::uint64_t lowest = 0x1F;
    for (std::size_t count = 0; count <= mostSortedAtOnce; ++count) {
        for (const std::uint64_t differentKeys : {1U, 2U, 5U, 1000U}) {
            std::vector<KeyedPart> parts;
            for (std::size_t i = 0; i < count; ++i) {
                // The smallest and the largest, and those on both sides of the middle, where signs would change.
                const std::uint64_t key = (random() % differentKeys) * (~lowest / 3 & ~lowest);
                parts.push_back({random() % 8 == 0 ? ~lowest : key, static_cast<std::uint32_t>(i),
                                 static_cast<std::uint32_t>(random())});
            }
            std::vector<KeyedPart> expected = parts;
            std::stable_sort(expected.begin(), expected.end(),
                             [](const KeyedPart &left, const KeyedPart &right) { return left.key < right.key; });
            onAllKernels([&](const Kernels &kernels) {
                std::vector<KeyedPart> elsewhere(count);
                kernels.sortFew(parts.data(), count, elsewhere.data());
                ASSERT_EQ(fieldsOf(elsewhere), fieldsOf(expected)) << count;
                std::vector<KeyedPart> inPlace = parts;
                kernels.sortFew(inPlace.data(), count, inPlace.data());
                ASSERT_EQ(fieldsOf(inPlace), fieldsOf(expected)) << count;
            });
        }
    }
}

} // namespace
} // namespace lexivore::kernels
