// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/code_points.h"
#include "engine/primitives/scratch.h"
#include "engine/primitives/words.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace lexivore {

/// The different words of a text, compared by their bytes, and how often each occurs. A flat table that holds the first
/// sixteen bytes of each word itself, and few words have more; the hash is seeded anew in each run of the program, so
/// that no text can be made to collide.
class WordSet {
public:
    /// `text` must outlive the set. Throws TextTooLarge from 4 GB on.
    explicit WordSet(std::string_view text);

    /// Adds the words of the text, cut at whitespace and newlines, and calls `visitNew(std::string_view)` with each of
    /// the different ones at its first place, in order. When that returns false no more words are added.
    template<typename VisitNew> void addWords(VisitNew &&visitNew) {
        std::array<Word, 64> waiting; // until their slots are in the cache
        std::size_t count = 0;
        bool goesOn = true;
        const auto lookUp = [&]() {
            std::size_t added = 0;
            while (added < count && goesOn) {
                const Word &word = waiting[added++];
                if (insert(word)) {
                    goesOn = visitNew(word.view());
                }
            }
            m_addedCount += added;
            count = 0;
        };
        forEachPiece(m_text, whitespaceAndNewlines, [&](std::string_view word) {
            if (goesOn) {
                waiting[count] = wordOf(word);
                __builtin_prefetch(&m_slots[slotOf(waiting[count])]);
                if (++count == waiting.size()) {
                    lookUp();
                }
            }
        });
        lookUp();
    }

    /// The number of different words.
    [[nodiscard]] std::size_t size() const { return m_size; }

    /// How many words have been added, equal ones too. While they are, some of the last may be missing.
    [[nodiscard]] std::size_t addedCount() const { return m_addedCount; }

    /// Calls `visit(std::string_view, std::uint32_t)` with each of the words, for as long as the set stays as it is,
    /// and how often it was added, in no order that means anything.
    template<typename Visit> void forEach(Visit &&visit) const {
        for (std::size_t i = 0; i < m_slotCount; ++i) {
            if (m_slots[i].size != 0) {
                visit(m_slots[i].heldView(), m_slots[i].count);
            }
        }
    }

private:
    static constexpr std::size_t bytesInWord = 16;

    /// For each size of a word that is held wholly, all bits of its bytes.
    struct Masks {
        std::uint64_t ofSize[bytesInWord + 1][2] = {};
        constexpr Masks() {
            for (std::size_t size = 1; size <= bytesInWord; ++size) {
                for (std::size_t byte = 0; byte < size; ++byte) {
                    constexpr bool isLittleEndian = std::endian::native == std::endian::little;
                    const std::size_t place = isLittleEndian ? byte % 8 : 7 - byte % 8;
                    ofSize[size][byte / 8] |= std::uint64_t{0xFF} << (8 * place);
                }
            }
        }
    };
    static const Masks masks;

    struct Word {
        std::uint64_t first; ///< The first eight bytes, zeros behind the end, or a hash of a word of more than sixteen.
        std::uint64_t second; ///< The next eight of them.
        const char *data;
        std::uint32_t size; ///< 0 for a free slot.
        std::uint32_t count;

        [[nodiscard]] std::string_view view() const { return {data, size}; }
        /// The same bytes, which need no look at the text when the word is held wholly.
        [[nodiscard]] std::string_view heldView() const {
            static_assert(offsetof(Word, first) == 0 && offsetof(Word, second) == sizeof first);
            return size > bytesInWord ? view() : std::string_view(reinterpret_cast<const char *>(this), size);
        }
    };

    /// Numbers that no text can know.
    struct Seeds {
        std::uint64_t first; ///< These two are odd.
        std::uint64_t second;
        std::uint64_t longWords;
    };
    static const Seeds &seeds();

    [[nodiscard]] Word wordOf(std::string_view word) const {
        const std::size_t size = word.size();
        const bool hasRoom = static_cast<std::size_t>(m_text.data() + m_text.size() - word.data()) >= bytesInWord;
        if (size > bytesInWord || !hasRoom) {
            return wordOfSlowly(word);
        }
        const std::uint64_t first = eightBytes(word.data()) & masks.ofSize[size][0];
        const std::uint64_t second = eightBytes(word.data() + 8) & masks.ofSize[size][1];
        return {first, second, word.data(), static_cast<std::uint32_t>(size), 1};
    }
    [[nodiscard]] static std::uint64_t eightBytes(const char *from) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, from, sizeof bytes);
        return bytes;
    }
    [[nodiscard]] Word wordOfSlowly(std::string_view word) const;

    /// Where the word is looked for first: two different words meet there as seldom as chance has it.
    [[nodiscard]] std::size_t slotOf(const Word &word) const {
        return (word.first * m_seeds.first + word.second * m_seeds.second) >> m_shift;
    }
    /// The slot that holds the word, or the free one where it belongs.
    [[nodiscard]] std::size_t find(const Word &word) const {
        const std::size_t mask = m_slotCount - 1;
        std::size_t index = slotOf(word);
        while (m_slots[index].size != 0 && !isSame(m_slots[index], word)) {
            index = (index + 1) & mask;
        }
        return index;
    }
    [[nodiscard]] static bool isSame(const Word &left, const Word &right) {
        return left.first == right.first && left.second == right.second && left.size == right.size &&
               (left.size <= bytesInWord || left.view() == right.view());
    }
    /// True when the word was not in the set before.
    bool insert(const Word &word) {
        Word &slot = m_slots[find(word)];
        if (slot.size != 0) {
            ++slot.count;
            return false;
        }
        slot = word;
        if (++m_size * 2 > m_slotCount) {
            grow();
        }
        return true;
    }
    void grow();
    [[nodiscard]] static Scratch<Word> freeSlots(std::size_t count);

    std::string_view m_text;
    Seeds m_seeds;
    std::size_t m_slotCount;
    Scratch<Word> m_slots;
    int m_shift; ///< Leaves as many bits of a hash as tell the slots.
    std::size_t m_size = 0;
    std::size_t m_addedCount = 0;
};

inline constexpr WordSet::Masks WordSet::masks;

} // namespace lexivore
