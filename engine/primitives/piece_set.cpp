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

bool PieceSet::insert(std::string_view piece) {
    if (piece.data() == nullptr) {
        static constexpr char somewhere = '\0';
        piece = {&somewhere, 0}; // null marks a free slot
    }
    const std::uint64_t hash = hashOf(piece);
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t index = hash & mask;; index = (index + 1) & mask) {
        Slot &slot = m_slots[index];
        if (slot.data == nullptr) {
            slot = {piece.data(), piece.size(), hash};
            ++m_size;
            if (m_size * 2 > m_slots.size()) {
                grow();
            }
            return true;
        }
        if (slot.hash == hash && std::string_view(slot.data, slot.size) == piece) {
            return false;
        }
    }
}

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
