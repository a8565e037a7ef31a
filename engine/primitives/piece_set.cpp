// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/piece_set.h"

#include <random>
#include <utility>

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace lexivore {

namespace {

constexpr std::size_t firstCapacity = 1024;

std::uint64_t hashOf(std::string_view piece) {
    static const std::uint64_t seed = [] {
        std::random_device source;
        return std::uint64_t{source()} << 32 | source();
    }();
    return XXH3_64bits_withSeed(piece.data(), piece.size(), seed);
}

} // namespace

PieceSet::PieceSet() : m_slots(firstCapacity) {}

std::size_t PieceSet::slotOf(std::string_view piece, std::uint64_t hash) const {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t index = hash & mask;
    while (m_slots[index].data != nullptr &&
           !(m_slots[index].hash == hash && std::string_view(m_slots[index].data, m_slots[index].size) == piece)) {
        index = (index + 1) & mask;
    }
    return index;
}

bool PieceSet::insert(std::string_view piece) {
    if (piece.data() == nullptr) {
        static constexpr char somewhere = '\0';
        piece = {&somewhere, 0}; // null marks a free slot
    }
    const std::uint64_t hash = hashOf(piece);
    Slot &slot = m_slots[slotOf(piece, hash)];
    if (slot.data != nullptr) {
        ++slot.count;
        return false;
    }
    slot = {piece.data(), piece.size(), hash, 1};
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
            result.emplace_back(slot.data, slot.size);
        }
    }
    return result;
}

std::size_t PieceSet::countOf(std::string_view piece) const { return m_slots[slotOf(piece, hashOf(piece))].count; }

void PieceSet::grow() {
    std::vector<Slot> larger(m_slots.size() * 2);
    const std::size_t mask = larger.size() - 1;
    for (const Slot &slot : m_slots) {
        if (slot.data != nullptr) {
            std::size_t index = slot.hash & mask;
            while (larger[index].data != nullptr) {
                index = (index + 1) & mask;
            }
            larger[index] = slot;
        }
    }
    m_slots = std::move(larger);
}

} // namespace lexivore
