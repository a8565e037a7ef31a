// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/scratch.h"
#include "engine/primitives/words.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lexivore {

/// The different words of a text, compared by their bytes, and how often each occurs. A flat table of keys, which hold
/// a word of up to fifteen bytes wholly, and few words have more; the hash is seeded anew in each run of the program,
/// so that no text can be made to collide.
class WordSet {
public:
    enum class Counting { off, on };

    /// `text` must outlive the set. Throws TextTooLarge from 4 GB on.
    WordSet(std::string_view text, Counting counting);

    /// Adds the words of the text, cut at whitespace and newlines, and calls `visitNew(std::string_view)` with each of
    /// the different ones at its first place, in order. When that returns false no further different ones are added.
    template<typename VisitNew> void addWords(VisitNew &&visitNew) {
        bool goesOn = true;
        const auto addOne = [&](std::string_view word) {
            if (goesOn) {
                goesOn = !insert(keyOf(word), word) || visitNew(word);
            }
        };
        const auto addSome = [&](const char *from, const std::uint16_t *bounds, std::size_t count) {
            Batch batch; // NOLINT(cppcoreguidelines-pro-type-member-init): written first
            lookUp(from, bounds, count, batch);
            for (std::size_t i = 0; i < batch.missingCount && goesOn; ++i) {
                const std::size_t index = batch.missing[i];
                const std::string_view word = pieceAt(from, bounds, index);
                goesOn = !insert(batch.keys[index], word) || visitNew(word);
            }
        };
        const auto addGroup = [&](const char *from, const std::uint16_t *bounds, std::size_t count) {
            while (count > 0 && goesOn) {
                const std::size_t some = std::min(count, mostAtOnce);
                if (canBeReadAtOnce(from + bounds[2 * some - 2])) {
                    addSome(from, bounds, some);
                } else {
                    for (std::size_t i = 0; i < some; ++i) {
                        addOne(pieceAt(from, bounds, i));
                    }
                }
                bounds += 2 * some;
                count -= some;
            }
        };
        forEachPieceGroup(m_text, whitespaceAndNewlines, addOne, addGroup);
    }

    /// The number of different words.
    [[nodiscard]] std::size_t size() const { return m_size; }

    /// How many words have been added, equal ones too.
    [[nodiscard]] std::size_t addedCount() const { return m_addedCount; }

    /// As many bytes can be read of any word that `forEach` visits.
    static constexpr std::size_t leastReadable = sizeof(kernels::WordKey);

    /// Calls `visit(std::string_view, std::uint32_t)` with each of the words, for as long as the set stays as it is,
    /// and how often it was added, in no order that means anything. Only when they are counted.
    template<typename Visit> void forEach(Visit &&visit) const {
        const Scratch<std::uint32_t> slots(m_size + 1); // listed without a branch, for no one can be guessed
        std::size_t count = 0;
        for (std::size_t slot = 0; slot < m_slotCount; ++slot) {
            slots[count] = static_cast<std::uint32_t>(slot);
            count += isFree(m_keys[slot]) ? 0 : 1;
        }
        for (std::size_t i = 0; i < count; ++i) {
            visit(wordAt(slots[i]), m_counts[slots[i]]);
        }
    }

private:
    using Key = kernels::WordKey; ///< Of a longer word a hash, its size, and a mark in the last byte.

    /// How many words are looked up together: so many that what is asked of the memory for the first ones has come when
    /// the last ones are asked for, and few enough that all of it fits the first cache.
    static constexpr std::size_t mostAtOnce = 256;
    static constexpr std::size_t mostForKernel = 64;
    static constexpr std::uint8_t longMark = 0xFF;

    /// The words that are looked up together.
    struct Batch {
        std::array<Key, mostAtOnce> keys;
        std::array<std::uint32_t, mostAtOnce> slots;
        std::array<std::uint16_t, mostAtOnce + kernels::blockSize> missing; ///< Their indices, ascending.
        std::size_t missingCount;
    };

    [[nodiscard]] static bool isFree(const Key &key) { return key.second == 0; } // no word has no size
    [[nodiscard]] static bool isLong(const Key &key) { return lastByte(key) == longMark; }
    [[nodiscard]] static std::uint8_t lastByte(const Key &key) {
        return reinterpret_cast<const std::uint8_t *>(&key)[sizeof key - 1];
    }
    [[nodiscard]] static bool isSame(const Key &left, const Key &right) {
        return left.first == right.first && left.second == right.second;
    }
    [[nodiscard]] Key keyOf(std::string_view word) const;
    [[nodiscard]] Key keyOfLong(std::string_view word) const;

    /// The word in a slot.
    [[nodiscard]] std::string_view wordAt(std::size_t slot) const {
        const Key &key = m_keys[slot];
        return isLong(key) ? longWordAt(slot) : std::string_view(reinterpret_cast<const char *>(&key), lastByte(key));
    }
    [[nodiscard]] std::string_view longWordAt(std::size_t slot) const;

    /// Whether the text has as many bytes as a key from there on.
    [[nodiscard]] bool canBeReadAtOnce(const char *word) const {
        return static_cast<std::size_t>(m_text.data() + m_text.size() - word) >= sizeof(Key);
    }
    /// Counts the words that are in the pair of slots where they are looked for first, and lists the others. At most
    /// `mostAtOnce`, each of which can be read at once.
    void lookUp(const char *from, const std::uint16_t *bounds, std::size_t count, Batch &batch);
    /// Writes the keys and slots of words that are no more than a kernel takes, and asks for the memory of their slots.
    /// Returns a bit for each that is too long for a key.
    std::uint64_t writeKeys(const char *from, const std::uint16_t *bounds, std::size_t count, Key *keys,
                            std::uint32_t *slots) const;
    /// Counts those of these words that are in their pair of slots. Returns a bit for each of the others.
    std::uint64_t countFound(const char *from, const std::uint16_t *bounds, std::size_t count, std::uint64_t tooLong,
                             const Key *keys, std::uint32_t *slots);

    /// Where the word is looked for first, in a pair of slots that lie in one line of the caches: two different words
    /// meet there as seldom as chance has it.
    [[nodiscard]] std::size_t slotOf(const Key &key) const {
        return (key.first * m_hash.factors[0] + key.second * m_hash.factors[1]) >> m_hash.shift & ~std::size_t{1};
    }
    [[nodiscard]] std::size_t slotBehind(std::size_t slot) const { return (slot + 1) & (m_slotCount - 1); }

    /// Counts the word. True when it was not in the set before.
    bool insert(const Key &key, std::string_view word);
    void grow();
    [[nodiscard]] static Scratch<Key> freeSlots(std::size_t count);

    std::string_view m_text;
    bool m_isCounting;
    std::size_t m_slotCount;
    kernels::WordHash m_hash; ///< Leaves as many bits as tell the slots.
    Scratch<Key> m_keys;
    Scratch<std::uint32_t> m_offsets; ///< Of the long words' first places in the text.
    Scratch<std::uint32_t> m_counts;  ///< Of no size when they are not wanted.
    std::size_t m_size = 0;
    std::size_t m_addedCount = 0;
};

} // namespace lexivore
