// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/kernels_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <numeric>
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

TEST(Kernels, RankFewCountsSmallerKeysAndTellsTies) {
    std::mt19937_64 random(seed);
    for (std::size_t count = 0; count <= mostRanked; ++count) {
        for (const std::uint64_t differentKeys : {1U, 2U, 5U, 1000U}) {
            LongKeys keys{};
            std::vector<std::uint64_t> indices(mostRanked); // in any order
            std::iota(indices.begin(), indices.end(), std::uint64_t{0});
            std::shuffle(indices.begin(), indices.end(), random);
            for (std::size_t i = 0; i < mostRanked; ++i) {
                // The smallest and the largest, and those on both sides of the middle, where signs would change.
                keys.firsts[i] = (random() % differentKeys) * (~std::uint64_t{0} / 3);
                keys.seconds[i] =
                    ((random() % differentKeys) * (~std::uint64_t{0} / 3) & ~LongKeys::indexBits) | indices[i];
            }
            const auto isSmaller = [&keys](std::size_t left, std::size_t right) {
                return std::tie(keys.firsts[left], keys.seconds[left]) <
                       std::tie(keys.firsts[right], keys.seconds[right]);
            };
            std::vector<std::uint64_t> expected(count);
            std::uint32_t expectedTies = 0;
            for (std::size_t i = 0; i < count; ++i) {
                for (std::size_t k = 0; k < count; ++k) {
                    expected[i] += isSmaller(k, i) ? 1 : 0;
                    const bool areTied = keys.firsts[k] == keys.firsts[i] &&
                                         keys.seconds[k] / mostRanked == keys.seconds[i] / mostRanked;
                    expectedTies |= std::uint32_t{areTied && isSmaller(k, i)} << i;
                }
            }
            onAllKernels([&](const Kernels &kernels) {
                std::vector<std::uint64_t> smaller(mostRanked);
                ASSERT_EQ(kernels.rankFew(keys, count, smaller.data()), expectedTies) << count;
                smaller.resize(count);
                ASSERT_EQ(smaller, expected) << count;
            });
        }
    }
}

TEST(Kernels, DistributeIsAStableSortBySomeBits) {
    std::mt19937_64 random(seed);
    for (const std::size_t count : {0U, 1U, 2U, 33U, 500U}) {
        for (int bitCount = 1; bitCount <= mostDigitBits; ++bitCount) {
            std::uint64_t bits = 0;
            while (std::popcount(bits) < bitCount) {
                bits |= std::uint64_t{1} << random() % 64;
            }
            std::vector<KeyedPart> parts;
            for (std::size_t i = 0; i < count; ++i) {
                parts.push_back({random(), static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(random())});
            }
            std::vector<KeyedPart> expected = parts;
            std::stable_sort(expected.begin(), expected.end(), [bits](const KeyedPart &left, const KeyedPart &right) {
                return (left.key & bits) < (right.key & bits);
            });
            onAllKernels([&](const Kernels &kernels) {
                std::vector<KeyedPart> sorted(count);
                std::vector<std::uint32_t> ends(std::size_t{1} << mostDigitBits);
                const std::size_t values = kernels.distribute(parts.data(), count, bits, sorted.data(), ends.data());
                ASSERT_EQ(values, std::size_t{1} << bitCount);
                ASSERT_EQ(fieldsOf(sorted), fieldsOf(expected));
                ASSERT_EQ(ends[values - 1], count);
                std::size_t begin = 0;
                for (std::size_t value = 0; value < values; ++value) {
                    for (std::size_t i = begin + 1; i < ends[value]; ++i) {
                        ASSERT_EQ(sorted[i].key & bits, sorted[begin].key & bits);
                    }
                    if (begin != 0 && begin != ends[value]) {
                        ASSERT_LT(sorted[begin - 1].key & bits, sorted[begin].key & bits);
                    }
                    begin = ends[value];
                }
            });
        }
    }
}

} // namespace
} // namespace lexivore::kernels
