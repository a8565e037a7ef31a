// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/huge_page_allocator.h"
#include "engine/primitives/line_mapping.h"
#include "engine/text_buffer.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace lexivore {

/// A set of pieces of one text, compared by their bytes. Keeps views, so the text must outlive it.
/// A flat table that doubles when it is half full; the hash is seeded anew in each run of the program, so that no text
/// can be made to collide.
class PieceSet {
public:
    /// Whether it knows how often each piece was inserted.
    enum class Counting { no, yes };

    /// `expectedPieces`: for how many different ones there is room at once.
    explicit PieceSet(Counting counting = Counting::no, std::size_t expectedPieces = 0);

    /// True when the piece was not in the set before.
    bool insert(std::string_view piece) { return insert(piece, hashOf(piece)); }
    /// The number of different pieces.
    [[nodiscard]] std::size_t size() const { return m_size; }
    /// Each of them once, in no order that means anything.
    [[nodiscard]] std::vector<std::string_view> pieces() const;
    /// How often the piece was inserted, if that is counted.
    [[nodiscard]] std::size_t countOf(std::string_view piece) const;

    // For many pieces in turn the memory can be asked for ahead.
    [[nodiscard]] static std::uint64_t hashOf(std::string_view piece);
    bool insert(std::string_view piece, std::uint64_t hash);
    void prefetchSlot(std::uint64_t hash) const { __builtin_prefetch(&m_slots[hash & (m_slots.size() - 1)]); }
    void prefetchPiece(std::uint64_t hash) const {
        const Slot &slot = m_slots[hash & (m_slots.size() - 1)];
        if (slot.data != nullptr && slot.tag == tagOf(hash)) {
            __builtin_prefetch(slot.data);
        }
    }

private:
    struct Slot {
        const char *data = nullptr; ///< Null for a free slot.
        std::uint64_t size : 40 = 0;
        std::uint64_t tag : 24 = 0; ///< Of the hash.

        [[nodiscard]] std::string_view piece() const { return {data, size}; }
    };

    static std::uint64_t tagOf(std::uint64_t hash) { return hash >> 40; }
    /// The slot that holds the piece, or the free one where it belongs.
    [[nodiscard]] std::size_t slotOf(std::string_view piece, std::uint64_t hash) const;
    void grow();

    HugeVector<Slot> m_slots;
    HugeVector<std::size_t> m_counts; ///< As many as slots, or none.
    std::size_t m_size = 0;
};

/// Joins those of many pieces that were not there before, in order.
class DistinctJoiner {
public:
    /// All pieces are parts of `text`.
    DistinctJoiner(char separator, std::string_view text, std::size_t expectedPieces)
        : m_seen(PieceSet::Counting::no, expectedPieces), m_joiner(separator, text, text.size()) {}

    void add(std::string_view piece) {
        const std::uint64_t hash = PieceSet::hashOf(piece);
        m_seen.prefetchSlot(hash);
        m_waiting[m_waitingCount++] = {piece, hash};
        if (m_waitingCount == m_waiting.size()) {
            lookUp();
        }
    }
    [[nodiscard]] TextBuffer take() {
        lookUp();
        return m_joiner.take();
    }

private:
    struct Waiting {
        std::string_view piece;
        std::uint64_t hash = 0;
    };
    void lookUp();

    PieceSet m_seen;
    Joiner m_joiner;
    std::array<Waiting, 32> m_waiting; ///< Until their slots are in the cache.
    std::size_t m_waitingCount = 0;
};

} // namespace lexivore
