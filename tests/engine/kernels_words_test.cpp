// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/kernels_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace lexivore::kernels {
namespace {

constexpr std::size_t mostWords = 64;

/// A key as its definition has it.
std::string keyBytes(std::string_view word) {
    std::string bytes(word);
    bytes.resize(longestKeyedWord, '\0');
    return bytes + static_cast<char>(word.size());
}

std::string bytesOf(const WordKey &key) { return {reinterpret_cast<const char *>(&key), sizeof key}; }

struct Words {
    std::string text;
    std::vector<std::uint16_t> bounds;
};

/// Words of all sizes and any bytes, with up to three bytes between them.
Words randomWords(std::mt19937 &random, std::size_t count, std::size_t longest) {
    Words words;
    for (std::size_t i = 0; i < count; ++i) {
        words.text += std::string(random() % 4, ' ');
        words.bounds.push_back(static_cast<std::uint16_t>(words.text.size()));
        for (std::size_t left = 1 + random() % longest; left > 0; --left) {
            words.text += static_cast<char>(random());
        }
        words.bounds.push_back(static_cast<std::uint16_t>(words.text.size()));
    }
    const std::size_t needed = count == 0 ? 0 : words.bounds[2 * count - 2] + sizeof(WordKey);
    words.text.resize(std::max(words.text.size(), needed), '~');
    return words;
}

TEST(Kernels, KeyWordsReadsShortWordsAndTellsLongOnes) {
    std::mt19937 random(seed);
    const std::vector<WordKey> slotsToAskFor(std::size_t{1} << 17);
    for (std::size_t count = 0; count <= mostWords; ++count) {
        for (const std::size_t longest : {3U, 15U, 17U, 300U}) {
            const Words words = randomWords(random, count, longest);
            const ExactCopy text(words.text, random() % blockSize);
            const WordHash hash{{std::uint64_t{random()} << 32 | random() | 1U, std::uint64_t{random()} << 32 | 1U},
                                64 - 17};
            const WordKey *const table = random() % 2 == 0 ? nullptr : slotsToAskFor.data();
            onAllKernels([&](const Kernels &kernels) {
                std::vector<WordKey> keys(count);
                std::vector<std::uint32_t> slots(count);
                const std::uint64_t tooLong =
                    kernels.keyWords(text.data(), words.bounds.data(), count, hash, keys.data(), slots.data(), table);
                for (std::size_t i = 0; i < count; ++i) {
                    const std::size_t size = std::size_t{words.bounds[2 * i + 1]} - words.bounds[2 * i];
                    ASSERT_EQ(tooLong >> i & 1U, size > longestKeyedWord ? 1U : 0U) << i << " of " << count;
                    if (size <= longestKeyedWord) {
                        ASSERT_EQ(bytesOf(keys[i]), keyBytes(text.view().substr(words.bounds[2 * i], size))) << i;
                        const std::uint64_t sum = keys[i].first * hash.factors[0] + keys[i].second * hash.factors[1];
                        ASSERT_EQ(slots[i], (sum >> hash.shift) / 2 * 2) << i;
                    }
                }
                ASSERT_EQ(count == mostWords ? 0 : tooLong >> count, 0U);
            });
        }
    }
}

TEST(Kernels, MatchKeysFindsThoseThatAreTheSameInBothHalvesInTheirPairOfSlots) {
    std::mt19937_64 random(seed);
    const auto randomKey = [&random] { return WordKey{random() % 2, (random() % 3) << 62}; };
    const auto isSame = [](const WordKey &left, const WordKey &right) {
        return left.first == right.first && left.second == right.second;
    };
    for (std::size_t count = 0; count <= mostWords; ++count) {
        std::vector<WordKey> table{randomKey()};
        while (table.size() < 102) { // no two that are the same side by side
            const WordKey key = randomKey();
            if (!isSame(key, table.back())) {
                table.push_back(key);
            }
        }
        std::vector<WordKey> keys(count);
        std::vector<std::uint32_t> slots(count);
        std::vector<std::uint32_t> expectedSlots(count);
        std::uint64_t expected = 0;
        for (std::size_t i = 0; i < count; ++i) {
            keys[i] = randomKey();
            slots[i] = static_cast<std::uint32_t>(random() % (table.size() / 2) * 2);
            const bool isInSecond = isSame(keys[i], table[slots[i] + 1]);
            expected |= std::uint64_t{isInSecond || isSame(keys[i], table[slots[i]])} << i;
            expectedSlots[i] = slots[i] + (isInSecond ? 1 : 0);
        }
        onAllKernels([&](const Kernels &kernels) {
            std::vector<std::uint32_t> changed = slots;
            ASSERT_EQ(kernels.matchKeys(keys.data(), changed.data(), count, table.data()), expected) << count;
            ASSERT_EQ(changed, expectedSlots) << count;
        });
    }
}

} // namespace
} // namespace lexivore::kernels
