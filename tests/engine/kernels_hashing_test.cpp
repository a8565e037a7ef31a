// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/kernels_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore::kernels {
namespace {

LineHash randomHash(std::mt19937 &random) {
    const auto next = [&random] { return std::uint64_t{random()} << 32 | random() | 1U; };
    LineHash hash{{}, next(), next()};
    std::generate(std::begin(hash.addends), std::end(hash.addends), std::ref(random));
    return hash;
}

/// The hash as its definition has it.
std::uint32_t hashOf(std::string_view line, const LineHash &hash) {
    std::string bytes(line);
    bytes.resize(longestHashedLine, '\0');
    const auto numberAt = [&](std::size_t index) {
        std::uint32_t number = 0;
        std::memcpy(&number, bytes.data() + index * sizeof number, sizeof number);
        return number + hash.addends[index];
    };
    std::uint64_t sum = line.size() * hash.sizeFactor;
    for (std::size_t i = 0; i < longestHashedLine / sizeof(std::uint32_t); i += 2) {
        sum += std::uint64_t{numberAt(i)} * numberAt(i + 1);
    }
    return static_cast<std::uint32_t>(sum * hash.factor >> 32) | 1U;
}

/// Lines that lie anywhere.
struct Lines {
    std::vector<std::uint32_t> offsets;
    std::vector<std::uint32_t> sizes;

    void add(std::size_t offset, std::size_t size) {
        offsets.push_back(static_cast<std::uint32_t>(offset));
        sizes.push_back(static_cast<std::uint32_t>(size));
    }
    /// Their hashes, of so many lines at once.
    [[nodiscard]] std::vector<std::uint32_t> hashedBy(const Kernels &kernels, const char *text, const LineHash &hash,
                                                      std::size_t atOnce = LineBatch::mostLines) const {
        std::vector<std::uint32_t> hashes;
        for (std::size_t begin = 0; begin < offsets.size(); begin += atOnce) {
            const std::size_t count = std::min(offsets.size() - begin, atOnce);
            LineBatch batch{};
            std::copy_n(offsets.data() + begin, count, batch.offsets);
            std::copy_n(sizes.data() + begin, count, batch.sizes);
            EXPECT_EQ(kernels.hashLines(text, batch, count, hash), 0U);
            EXPECT_TRUE(std::equal(batch.offsets, batch.offsets + count, offsets.data() + begin));
            EXPECT_TRUE(std::equal(batch.sizes, batch.sizes + count, sizes.data() + begin));
            hashes.insert(hashes.end(), batch.hashes, batch.hashes + count);
        }
        return hashes;
    }
};

TEST(Kernels, HashLinesHashesLinesOfEachSizeAtEachAlignment) {
    std::mt19937 random(seed);
    for (std::size_t alignment = 0; alignment < blockSize; ++alignment) {
        const LineHash hash = randomHash(random);
        std::string bytes;
        Lines lines;
        for (std::uint32_t size = 0; size <= longestHashedLine; ++size) {
            lines.add(bytes.size(), size);
            for (std::uint32_t i = 0; i < size + random() % 3; ++i) {
                bytes += static_cast<char>(random());
            }
        }
        bytes.resize(lines.offsets.back() + longestHashedLine, '~');
        const ExactCopy text(bytes, alignment);
        onAllKernels([&](const Kernels &kernels) {
            const std::size_t atOnce = 1 + alignment % LineBatch::mostLines;
            const std::vector<std::uint32_t> hashes = lines.hashedBy(kernels, text.data(), hash, atOnce);
            for (std::size_t i = 0; i < hashes.size(); ++i) {
                ASSERT_EQ(hashes[i], hashOf(text.view().substr(lines.offsets[i], lines.sizes[i]), hash)) << i;
            }
        });
    }
}

TEST(Kernels, HashLinesTellsWhichAreTooLongAndLeavesThoseBehindAlone) {
    std::mt19937 random(seed);
    const LineHash hash = randomHash(random);
    const ExactCopy text(std::string(1000, 'x'), 0);
    onAllKernels([&](const Kernels &kernels) {
        for (std::size_t count = 4; count < LineBatch::mostLines; ++count) {
            LineBatch lines{};
            std::fill(std::begin(lines.sizes), std::end(lines.sizes), 7);
            lines.sizes[0] = 1000;
            lines.sizes[1] = 128;
            lines.sizes[count - 1] = 129;
            lines.sizes[count] = 500;
            lines.hashes[count] = 77;
            EXPECT_EQ(kernels.hashLines(text.data(), lines, count, hash), 1U | 1U << (count - 1));
            EXPECT_EQ(lines.hashes[1], hashOf(text.view().substr(0, 128), hash));
            EXPECT_EQ(lines.hashes[2], hashOf(text.view().substr(0, 7), hash));
            EXPECT_EQ(lines.hashes[count], 77U);
        }
    });
}

TEST(Kernels, HashLinesTellsApartWhatDiffersInOneBitOrInSize) {
    std::mt19937 random(seed);
    const LineHash hash = randomHash(random);
    std::string bytes(longestHashedLine, '\0');
    Lines lines;
    for (std::uint32_t size = 0; size <= longestHashedLine; ++size) {
        lines.add(0, size); // nothing but zeros
    }
    for (std::size_t bit = 0; bit < 8 * longestHashedLine; ++bit) {
        lines.add(bytes.size(), longestHashedLine);
        bytes.append(longestHashedLine, '\0');
        bytes[bytes.size() - longestHashedLine + bit / 8] = static_cast<char>(1U << bit % 8);
    }
    onAllKernels([&](const Kernels &kernels) {
        const std::vector<std::uint32_t> hashes = lines.hashedBy(kernels, bytes.data(), hash);
        EXPECT_EQ(std::set<std::uint32_t>(hashes.begin(), hashes.end()).size(), lines.sizes.size());
    });
}

/// Hashes of which many belong in the same few buckets, the last one among them.
std::vector<std::uint32_t> crowdedHashes(std::size_t count, std::mt19937 &random) {
    std::vector<std::uint32_t> hashes(count);
    for (std::uint32_t &hash : hashes) {
        const auto bucket = random() % 3 == 0 ? ~std::uint32_t{0} : static_cast<std::uint32_t>(random());
        hash = (bucket & 0xFFFF0000U) | (random() & 0xFFFFU) | 1U;
    }
    return hashes;
}

TEST(Kernels, EnterLinesFindsTheLinesThatCameFirst) {
    std::mt19937 random(seed);
    for (int bits = 1; bits <= 6; ++bits) {
        const std::size_t slots = LineBucket::slotCount << bits;
        const std::vector<std::uint32_t> hashes = crowdedHashes(slots - 1, random);
        onAllKernels([&](const Kernels &kernels) {
            std::vector<LineBucket> buckets(std::size_t{1} << bits);
            std::map<std::uint32_t, std::uint32_t> firsts;
            std::uint32_t offset = 0;
            while (firsts.size() < slots - 1 && offset < 1000 * slots) { // the last ones take their time
                const std::size_t most = std::min(LineBatch::mostLines, slots - 1 - firsts.size());
                const std::size_t count = 1 + random() % most;
                LineBatch lines{};
                for (std::size_t i = 0; i < count; ++i) {
                    lines.hashes[i] = hashes[random() % hashes.size()];
                    lines.offsets[i] = offset += 3;
                }
                const std::uint32_t known = kernels.enterLines(lines, count, {buckets.data(), bits});
                for (std::size_t i = 0; i < count; ++i) {
                    const auto [first, isNew] = firsts.emplace(lines.hashes[i], lines.offsets[i]);
                    ASSERT_EQ((known >> i & 1U) == 0, isNew) << bits << ' ' << lines.offsets[i];
                    if (!isNew) {
                        ASSERT_EQ(lines.firsts[i], first->second) << bits << ' ' << lines.offsets[i];
                    }
                }
                ASSERT_EQ(std::uint64_t{known} >> count, 0U);
            }
        });
    }
}

} // namespace
} // namespace lexivore::kernels
