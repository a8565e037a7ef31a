// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/word_set.h"

#include "engine/text_buffer.h"

#include <cstring>
#include <limits>
#include <random>
#include <utility>

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace lexivore {

namespace {

constexpr int firstBits = 12;
constexpr int bitsInHash = 64;
constexpr std::size_t worthPrefetching = std::size_t{1} << 17; ///< Slots, which the near caches do not hold.

/// Numbers that no text can know.
struct Seeds {
    std::uint64_t first; ///< These two are odd.
    std::uint64_t second;
    std::uint64_t longWords;
};

const Seeds &seeds() {
    static const Seeds made = [] {
        std::random_device source;
        const auto next = [&source] { return std::uint64_t{source()} << 32 | source(); };
        return Seeds{next() | 1U, next() | 1U, next()};
    }();
    return made;
}

} // namespace

WordSet::WordSet(std::string_view text, Counting counting)
    : m_text(text), m_readAhead(text),
      m_isCounting(counting == Counting::on), m_hash{{seeds().first, seeds().second}, bitsInHash - firstBits},
      m_slotCount(std::size_t{1} << firstBits), m_keys(freeSlots(m_slotCount)), m_offsets(m_slotCount),
      m_counts(m_isCounting ? m_slotCount : 0) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
        throw TextTooLarge();
    }
}

WordSet::Key WordSet::keyOf(std::string_view word) const {
    if (word.size() > kernels::longestKeyedWord) {
        return keyOfLong(word);
    }
    char bytes[sizeof(Key)] = {};
    std::memcpy(bytes, word.data(), word.size());
    bytes[sizeof bytes - 1] = static_cast<char>(word.size());
    return std::bit_cast<Key>(bytes);
}

WordSet::Key WordSet::keyOfLong(std::string_view word) const {
    struct Parts {
        std::uint64_t hash;
        std::uint32_t size;
        std::uint8_t unused[3] = {};
        std::uint8_t mark = longMark;
    };
    return std::bit_cast<Key>(Parts{XXH3_64bits_withSeed(word.data(), word.size(), seeds().longWords),
                                    static_cast<std::uint32_t>(word.size())});
}

std::string_view WordSet::longWordAt(std::size_t slot) const {
    std::uint32_t size = 0;
    std::memcpy(&size, &m_keys[slot].second, sizeof size);
    return {m_text.data() + m_offsets[slot], size};
}

std::uint64_t WordSet::countFound(const char *from, const std::uint16_t *bounds, std::size_t count, Key *keys) {
    std::array<std::uint32_t, mostAtOnce> slots; // NOLINT(cppcoreguidelines-pro-type-member-init): written below
    const std::uint64_t tooLong = kernels::best().keyWords(from, bounds, count, m_hash, keys, slots.data());
    for (std::uint64_t left = tooLong; left != 0; left &= left - 1) {
        const auto index = static_cast<std::size_t>(std::countr_zero(left));
        keys[index] = keyOfLong(pieceAt(from, bounds, index));
        slots[index] = static_cast<std::uint32_t>(slotOf(keys[index]));
    }
    if (m_slotCount >= worthPrefetching) {
        for (std::size_t i = 0; i < count; ++i) {
            __builtin_prefetch(m_keys.data() + slots[i]);
        }
    }
    std::uint64_t found = kernels::best().matchKeys(keys, slots.data(), count, m_keys.data());
    for (std::uint64_t left = tooLong & found; left != 0; left &= left - 1) {
        const auto index = static_cast<std::size_t>(std::countr_zero(left));
        if (longWordAt(slots[index]) != pieceAt(from, bounds, index)) {
            found ^= left & -left;
        }
    }
    if (m_isCounting) {
        for (std::size_t i = 0; i < count; ++i) {
            m_counts[slots[i]] += static_cast<std::uint32_t>(found >> i & 1U);
        }
    }
    m_addedCount += static_cast<std::size_t>(std::popcount(found));
    const std::uint64_t all = count == mostAtOnce ? ~std::uint64_t{0} : (std::uint64_t{1} << count) - 1;
    return all & ~found;
}

bool WordSet::insert(const Key &key, std::string_view word) {
    ++m_addedCount;
    std::size_t slot = slotOf(key);
    for (; !isFree(m_keys[slot]); slot = slotBehind(slot)) {
        if (isSame(m_keys[slot], key) && (!isLong(key) || longWordAt(slot) == word)) {
            if (m_isCounting) {
                ++m_counts[slot];
            }
            return false;
        }
    }
    m_keys[slot] = key;
    m_offsets[slot] = static_cast<std::uint32_t>(word.data() - m_text.data());
    if (m_isCounting) {
        m_counts[slot] = 1;
    }
    if (++m_size * 2 > m_slotCount) {
        grow();
    }
    return true;
}

Scratch<WordSet::Key> WordSet::freeSlots(std::size_t count) {
    const std::size_t readable = count + 1; // for the kernel, which looks at two slots
    Scratch<Key> slots(readable);
    std::memset(static_cast<void *>(slots.data()), 0, readable * sizeof(Key));
    return slots;
}

void WordSet::grow() {
    const std::size_t count = std::exchange(m_slotCount, 4 * m_slotCount);
    const Scratch<Key> keys = std::exchange(m_keys, freeSlots(m_slotCount));
    const Scratch<std::uint32_t> offsets = std::exchange(m_offsets, Scratch<std::uint32_t>(m_slotCount));
    const Scratch<std::uint32_t> counts =
        std::exchange(m_counts, Scratch<std::uint32_t>(m_isCounting ? m_slotCount : 0));
    m_hash.shift -= 2;
    for (std::size_t i = 0; i < count; ++i) {
        if (isFree(keys[i])) {
            continue;
        }
        std::size_t slot = slotOf(keys[i]);
        while (!isFree(m_keys[slot])) {
            slot = slotBehind(slot);
        }
        m_keys[slot] = keys[i];
        m_offsets[slot] = offsets[i];
        if (m_isCounting) {
            m_counts[slot] = counts[i];
        }
    }
}

} // namespace lexivore
