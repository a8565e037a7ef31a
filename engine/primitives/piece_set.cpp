// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/piece_set.h"

#include <algorithm>
#include <bit>
#include <random>
#include <utility>

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace lexivore {

namespace {

constexpr std::size_t firstCapacity = 1024;

} // namespace

std::uint64_t PieceSet::hashOf(std::string_view piece) {
    static const std::uint64_t seed = [] {
        std::random_device source;
        return std::uint64_t{source()} << 32 | source();
    }();
    return XXH3_64bits_withSeed(piece.data(), piece.size(), seed);
}

PieceSet::PieceSet(Counting counting, std::size_t expectedPieces)
    : m_slots(std::bit_ceil(std::max(firstCapacity, 2 * expectedPieces))),
      m_counts(counting == Counting::yes ? m_slots.size() : 0) {}

std::size_t PieceSet::slotOf(std::string_view piece, std::uint64_t hash) const {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t index = hash & mask;
    while (m_slots[index].data != nullptr && !(m_slots[index].tag == tagOf(hash) && m_slots[index].piece() == piece)) {
        index = (index + 1) & mask;
    }
    return index;
}

bool PieceSet::insert(std::string_view piece, std::uint64_t hash) {
    if (piece.data() == nullptr) {
        piece = ""; // null marks a free slot
    }
    const std::size_t index = slotOf(piece, hash);
    if (!m_counts.empty()) {
        ++m_counts[index];
    }
    Slot &slot = m_slots[index];
    if (slot.data != nullptr) {
        return false;
    }
    slot.data = piece.data();
    slot.size = piece.size() & ((std::uint64_t{1} << 40) - 1);
    slot.tag = tagOf(hash) & 0xFF'FFFF;
    ++m_size;
    if (m_size * 2 > m_slots.size()) {
        grow();
    }
    return true;
}

std::vector<std::string_view> PieceSet::pieces() const {
    std::vector<std::string_view> result;
    result.reserve(m_size);
    for (const Slot &slot : m_slots) {
        if (slot.data != nullptr) {
            result.push_back(slot.piece());
        }
    }
    return result;
}

std::size_t PieceSet::countOf(std::string_view piece) const {
    return m_counts.empty() ? 0 : m_counts[slotOf(piece, hashOf(piece))];
}

void PieceSet::grow() {
    HugeVector<Slot> larger(m_slots.size() * 2);
    HugeVector<std::size_t> largerCounts(m_counts.size() * 2);
    const std::size_t mask = larger.size() - 1;
    for (std::size_t i = 0; i < m_slots.size(); ++i) {
        if (m_slots[i].data == nullptr) {
            continue;
        }
        std::size_t index = hashOf(m_slots[i].piece()) & mask;
        while (larger[index].data != nullptr) {
            index = (index + 1) & mask;
        }
        larger[index] = m_slots[i];
        if (!m_counts.empty()) {
            largerCounts[index] = m_counts[i];
        }
    }
    m_slots = std::move(larger);
    m_counts = std::move(largerCounts);
}

void DistinctJoiner::lookUp() {
    for (std::size_t i = 0; i < m_waitingCount; ++i) {
        m_seen.prefetchPiece(m_waiting[i].hash);
    }
    for (std::size_t i = 0; i < m_waitingCount; ++i) {
        if (m_seen.insert(m_waiting[i].piece, m_waiting[i].hash)) {
            m_joiner.add(m_waiting[i].piece);
        }
    }
    m_waitingCount = 0;
}

} // namespace lexivore
