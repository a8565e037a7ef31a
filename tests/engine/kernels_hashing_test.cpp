// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/kernels_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
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
    return static_cast<std::uint32_t>(sum * hash.factor >> 32);
}

TEST(Kernels, HashLinesHashesLinesOfEachSizeAtEachAlignment) {
    std::mt19937 random(seed);
    for (std::size_t alignment = 0; alignment < blockSize; ++alignment) {
        const LineHash hash = randomHash(random);
        std::string bytes;
        std::vector<HashedLine> lines;
        for (std::uint32_t size = 0; size <= longestHashedLine; ++size) {
            lines.push_back({static_cast<std::uint32_t>(bytes.size()), size, 0});
            for (std::uint32_t i = 0; i < size + random() % 3; ++i) {
                bytes += static_cast<char>(random());
            }
        }
        bytes.resize(lines.back().offset + longestHashedLine, '~');
        const ExactCopy text(bytes, alignment);
        onAllKernels([&](const Kernels &kernels) {
            std::vector<HashedLine> hashed = lines;
            kernels.hashLines(text.data(), hashed.data(), hashed.size(), hash);
            for (std::size_t i = 0; i < lines.size(); ++i) {
                ASSERT_EQ(hashed[i].hash, hashOf(text.view().substr(lines[i].offset, lines[i].size), hash)) << i;
                ASSERT_EQ(hashed[i].offset, lines[i].offset);
                ASSERT_EQ(hashed[i].size, lines[i].size);
            }
        });
    }
}

TEST(Kernels, HashLinesLeavesLongLinesAndThoseBehindAlone) {
    std::mt19937 random(seed);
    const LineHash hash = randomHash(random);
    const ExactCopy text(std::string(1000, 'x'), 0);
    onAllKernels([&](const Kernels &kernels) {
        HashedLine lines[] = {{0, 1000, 0}, {100, 129, 0}, {5, 128, 0}, {7, 3, 77}};
        kernels.hashLines(text.data(), lines, 3, hash);
        EXPECT_EQ(lines[2].hash, hashOf(text.view().substr(0, 128), hash));
        EXPECT_EQ(lines[3].hash, 77U);
    });
}

TEST(Kernels, HashLinesTellsApartWhatDiffersInOneBitOrInSize) {
    std::mt19937 random(seed);
    const LineHash hash = randomHash(random);
    std::string bytes(longestHashedLine, '\0');
    std::vector<HashedLine> lines;
    for (std::uint32_t size = 0; size <= longestHashedLine; ++size) {
        lines.push_back({0, size, 0}); // nothing but zeros
    }
    for (std::size_t bit = 0; bit < 8 * longestHashedLine; ++bit) {
        lines.push_back({static_cast<std::uint32_t>(bytes.size()), longestHashedLine, 0});
        bytes.append(longestHashedLine, '\0');
        bytes[bytes.size() - longestHashedLine + bit / 8] = static_cast<char>(1U << bit % 8);
    }
    onAllKernels([&](const Kernels &kernels) {
        kernels.hashLines(bytes.data(), lines.data(), lines.size(), hash);
        std::set<std::uint32_t> hashes;
        for (const HashedLine &line : lines) {
            hashes.insert(line.hash);
        }
        EXPECT_EQ(hashes.size(), lines.size());
    });
}

} // namespace
} // namespace lexivore::kernels
