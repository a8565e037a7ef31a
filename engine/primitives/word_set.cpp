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
    : m_text(text), m_seeds(seeds()), m_slotCount(std::size_t{1} << firstBits), m_slots(freeSlots(m_slotCount)),
      m_shift(bitsInHash - firstBits) {
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

Scratch<WordSet::Word> WordSet::freeSlots(std::size_t count) {
    Scratch<Word> slots(count);
    std::memset(static_cast<void *>(slots.data()), 0, count * sizeof(Word));
    return slots;
}

void WordSet::grow() {
    const Scratch<Word> words = std::exchange(m_slots, freeSlots(4 * m_slotCount));
    const std::size_t count = std::exchange(m_slotCount, 4 * m_slotCount);
    m_shift -= 2;
    for (std::size_t i = 0; i < count; ++i) {
        if (words[i].size != 0) {
            m_slots[find(words[i])] = words[i];
        }
    }
}

} // namespace lexivore
