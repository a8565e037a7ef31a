// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/distinct_lines.h"

#include "engine/primitives/code_points.h"
#include "engine/primitives/line_mapping.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/scratch.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <random>
#include <utility>

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace lexivore {

namespace {

std::uint64_t hashSeed() {
    static const std::uint64_t seed = [] {
        std::random_device source;
        return std::uint64_t{source()} << 32 | source();
    }();
    return seed;
}

struct Line {
    std::uint32_t offset; ///< In the text, in bytes.
    std::uint32_t size;
    std::uint32_t hash; ///< Seeded anew in each run of the program, so that no text can be made to collide.
    std::uint32_t slot; ///< Where to look for it, if that is known yet.
};

/// A set of lines of a text: a flat table that is at most three quarters full. A slot knows all of the hash, so that
/// the table can grow without a look at the text.
class LineSet {
public:
    /// `text` must outlive the set. Throws TextTooLarge when the places in it cannot be counted in 32 bits.
    explicit LineSet(std::string_view text)
        : m_text(text), m_bits(std::max(fewestBits, static_cast<int>(std::bit_width(text.size() / usualLineSize)))),
          m_slots(freeSlots()) {
        if (text.size() >= UINT32_MAX) {
            throw TextTooLarge();
        }
    }

    [[nodiscard]] Line lineOf(std::string_view line) const {
        return {static_cast<std::uint32_t>(line.data() - m_text.data()), static_cast<std::uint32_t>(line.size()),
                static_cast<std::uint32_t>(XXH3_64bits_withSeed(line.data(), line.size(), m_seed)), 0};
    }
    [[nodiscard]] std::string_view viewOf(const Line &line) const { return {m_text.data() + line.offset, line.size}; }

    // Lines are looked for some at a time, in steps between which the memory comes into the cache: prefetchSlot of
    // each, makeRoom for all, findSlot of each, insert each.
    void prefetchSlot(const Line &line) const { __builtin_prefetch(m_slots.data() + firstSlot(line.hash)); }
    void makeRoom(std::size_t lines) {
        while (m_size + lines > slotCount() / 4 * 3) {
            grow();
        }
    }
    void findSlot(Line &line) const {
        std::size_t index = firstSlot(line.hash);
        while (m_slots[index].place != 0 && m_slots[index].hash != line.hash) {
            index = slotBehind(index);
        }
        line.slot = static_cast<std::uint32_t>(index);
        __builtin_prefetch(m_text.data() + m_slots[index].place);
    }
    /// True when the line was not in the set before. Lines are inserted in their order in the text.
    bool insert(const Line &line) {
        std::size_t index = line.slot;
        for (; m_slots[index].place != 0; index = slotBehind(index)) {
            if (m_slots[index].hash == line.hash && isSame(m_slots[index], line)) {
                return false;
            }
        }
        m_slots[index] = {line.hash, line.offset + 1};
        ++m_size;
        return true;
    }

private:
    struct Slot {
        std::uint32_t hash;
        std::uint32_t place; ///< Of the line, counted from 1; 0 for a free slot.
    };

    static constexpr int fewestBits = 10;
    static constexpr std::size_t usualLineSize = 64;

    [[nodiscard]] std::size_t slotCount() const { return std::size_t{1} << m_bits; }
    [[nodiscard]] Scratch<Slot> freeSlots() const {
        Scratch<Slot> slots(slotCount());
        std::memset(static_cast<void *>(slots.data()), 0, slotCount() * sizeof(Slot));
        return slots;
    }
    [[nodiscard]] std::size_t firstSlot(std::uint32_t hash) const { return hash >> (32 - m_bits); }
    [[nodiscard]] std::size_t slotBehind(std::size_t index) const { return (index + 1) & (slotCount() - 1); }

    [[nodiscard]] bool isSame(const Slot &slot, const Line &line) const {
        const char *const other = m_text.data() + slot.place - 1; // as long, at the least, as what it begins like
        return std::memcmp(other, m_text.data() + line.offset, line.size) == 0 && isLineEnd(other + line.size);
    }
    /// Whether a newline character stands there, before the end of the text.
    [[nodiscard]] bool isLineEnd(const char *place) const {
        const char *const end = m_text.data() + m_text.size();
        return place == end || isIn(newlines, decode(place, end).value);
    }

    void grow() {
        const std::size_t count = slotCount();
        ++m_bits;
        const Scratch<Slot> slots = std::exchange(m_slots, freeSlots());
        for (std::size_t i = 0; i < count; ++i) {
            if (slots[i].place == 0) {
                continue;
            }
            std::size_t index = firstSlot(slots[i].hash);
            while (m_slots[index].place != 0) {
                index = slotBehind(index);
            }
            m_slots[index] = slots[i];
        }
    }

    std::string_view m_text;
    std::uint64_t m_seed = hashSeed();
    int m_bits; ///< Of a hash that lead to its slot.
    Scratch<Slot> m_slots;
    std::size_t m_size = 0;
};

} // namespace

TextBuffer distinctLines(std::string_view text) {
    Joiner joiner('\n', text, text.size());
    LineSet seen(text);
    std::array<Line, 64> waiting; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
    std::size_t waitingCount = 0;
    const auto lookUp = [&]() {
        seen.makeRoom(waitingCount);
        for (std::size_t i = 0; i < waitingCount; ++i) {
            seen.findSlot(waiting[i]);
        }
        for (std::size_t i = 0; i < waitingCount; ++i) {
            if (seen.insert(waiting[i])) {
                joiner.add(seen.viewOf(waiting[i]));
            }
        }
        waitingCount = 0;
    };
    forEachLine(text, [&](std::string_view line) {
        waiting[waitingCount] = seen.lineOf(line);
        seen.prefetchSlot(waiting[waitingCount]);
        if (++waitingCount == waiting.size()) {
            lookUp();
        }
    });
    lookUp();
    return joiner.take();
}

} // namespace lexivore
