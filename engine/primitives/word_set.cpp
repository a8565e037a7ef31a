// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/word_set.h"

#include "engine/primitives/bit_tally.h"
#include "engine/primitives/text_buffer.h"

#include <cstring>
#include <limits>
#include <random>
#include <utility>

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace lexivore {

namespace {

constexpr int bitsInHash = 64;
constexpr std::size_t fewWords = 4096; ///< So many, with their slots, are in the near caches without being asked for.

/// So many slots that a text of a language is likely to do with them, a power of two.
std::size_t firstSlotCount(std::string_view text) {
    constexpr std::size_t leastSlots = 64;
    constexpr std::size_t mostSlots = std::size_t{1} << 18; // 4 MB
    constexpr std::size_t bytesForSlot = 128;
    return std::clamp(std::bit_ceil(text.size() / bytesForSlot), leastSlots, mostSlots);
}

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
    : m_text(text), m_isCounting(counting == Counting::on),
      m_slotCount(firstSlotCount(text)), m_hash{{seeds().first, seeds().second},
                                                bitsInHash - std::countr_zero(m_slotCount)},
      m_keys(freeSlots(m_slotCount)), m_offsets(m_slotCount), m_counts(m_isCounting ? m_slotCount : 0) {
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

void WordSet::lookUp(const char *from, const std::uint16_t *bounds, std::size_t count, Batch &batch) {
    std::array<std::uint64_t, mostAtOnce / mostForKernel> tooLong{};
    std::array<std::uint64_t, mostAtOnce / mostForKernel> missing{};
    const auto forEachPart = [count](auto &&visit) {
        for (std::size_t part = 0; part * mostForKernel < count; ++part) {
            const std::size_t begin = part * mostForKernel;
            visit(part, begin, std::min(count - begin, mostForKernel));
        }
    };
    forEachPart([&](std::size_t part, std::size_t begin, std::size_t size) {
        tooLong[part] = writeKeys(from, bounds + 2 * begin, size, &batch.keys[begin], &batch.slots[begin]);
    });
    forEachPart([&](std::size_t part, std::size_t begin, std::size_t size) {
        missing[part] =
            countFound(from, bounds + 2 * begin, size, tooLong[part], &batch.keys[begin], &batch.slots[begin]);
    });
    batch.missingCount = kernels::best().listBits(missing.data(), missing.size(), batch.missing.data());
}

std::uint64_t WordSet::writeKeys(const char *from, const std::uint16_t *bounds, std::size_t count, Key *keys,
                                 std::uint32_t *slots) const {
    const Key *const table = m_size < fewWords ? nullptr : m_keys.data();
    const std::uint64_t tooLong = kernels::best().keyWords(from, bounds, count, m_hash, keys, slots, table);
    for (std::uint64_t left = tooLong; left != 0; left &= left - 1) {
        const auto index = static_cast<std::size_t>(std::countr_zero(left));
        keys[index] = keyOfLong(pieceAt(from, bounds, index));
        slots[index] = static_cast<std::uint32_t>(slotOf(keys[index]));
        __builtin_prefetch(m_keys.data() + slots[index]);
    }
    return tooLong;
}

std::uint64_t WordSet::countFound(const char *from, const std::uint16_t *bounds, std::size_t count,
                                  std::uint64_t tooLong, const Key *keys, std::uint32_t *slots) {
    std::uint64_t found = kernels::best().matchKeys(keys, slots, count, m_keys.data());
    for (std::uint64_t left = tooLong & found; left != 0; left &= left - 1) {
        const auto index = static_cast<std::size_t>(std::countr_zero(left));
        if (longWordAt(slots[index]) != pieceAt(from, bounds, index)) {
            found ^= left & -left;
        }
    }
    const std::uint64_t missing = ~found & ~std::uint64_t{0} >> (mostForKernel - count);
    if (m_isCounting) { // all, then less the few that are missing
        for (std::size_t i = 0; i < count; ++i) {
            ++m_counts[slots[i]];
        }
        for (std::uint64_t left = missing; left != 0; left &= left - 1) {
            --m_counts[slots[std::countr_zero(left)]];
        }
    }
    m_addedCount += bitCount(found);
    return missing;
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
    if (isLong(key)) {
        m_offsets[slot] = static_cast<std::uint32_t>(word.data() - m_text.data());
    }
    if (m_isCounting) {
        m_counts[slot] = 1;
    }
    if (++m_size * 2 > m_slotCount) {
        grow();
    }
    return true;
}

Scratch<WordSet::Key> WordSet::freeSlots(std::size_t count) {
    Scratch<Key> slots(count);
    std::memset(static_cast<void *>(slots.data()), 0, count * sizeof(Key));
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
        if (isLong(keys[i])) {
            m_offsets[slot] = offsets[i];
        }
        if (m_isCounting) {
            m_counts[slot] = counts[i];
        }
    }
}

} // namespace lexivore
