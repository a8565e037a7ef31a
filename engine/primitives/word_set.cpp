// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/word_set.h"

#include "engine/text_buffer.h"

#include <limits>
#include <random>
#include <utility>

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace lexivore {

namespace {

constexpr int firstBits = 12;
constexpr int bitsInHash = 64;

} // namespace

const WordSet::Seeds &WordSet::seeds() {
    static const Seeds made = [] {
        std::random_device source;
        const auto next = [&source] { return std::uint64_t{source()} << 32 | source(); };
        return Seeds{next() | 1U, next() | 1U, next()};
    }();
    return made;
}

WordSet::WordSet(std::string_view text)
    : m_text(text), m_seeds(seeds()), m_slots(std::size_t{1} << firstBits), m_shift(bitsInHash - firstBits) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
        throw TextTooLarge();
    }
}

WordSet::Word WordSet::wordOfSlowly(std::string_view word) const {
    std::uint64_t first = 0;
    std::uint64_t second = 0;
    if (word.size() > bytesInWord) {
        first = XXH3_64bits_withSeed(word.data(), word.size(), m_seeds.longWords);
    } else {
        char bytes[bytesInWord] = {};
        std::memcpy(bytes, word.data(), word.size());
        first = eightBytes(bytes);
        second = eightBytes(bytes + sizeof first);
    }
    return {first, second, word.data(), static_cast<std::uint32_t>(word.size()), 1};
}

void WordSet::grow() {
    HugeVector<Word> words(m_slots.size() * 4);
    std::swap(words, m_slots);
    m_shift -= 2;
    for (const Word &word : words) {
        if (word.size != 0) {
            m_slots[find(word)] = word;
        }
    }
}

} // namespace lexivore
