// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/primitives/bit_tally.h"
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/code_points.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lexivore {

/// The kinds that the properties in `set` belong to, one bit for each, as kernels look for them.
[[nodiscard]] std::uint8_t kindsOf(CodePointSet set);

/// A few code points of a text, with one bit for each of their bytes, the first byte in the lowest bit.
struct CharacterBlock {
    const char *begin = nullptr;
    std::size_t size = 0;         ///< In bytes: at least 1 and at most 64.
    std::uint64_t boundaries = 0; ///< The first bytes of characters.
    std::uint64_t starts = 0;     ///< The first bytes of code points.
    std::uint64_t members = 0;    ///< The first bytes of code points of the set.
    /// The code points, `kernels::wideUnit` for those of four bytes, and more that may be read. Null when they are not
    /// wanted, and where there is no UTF-8. They are there up to the next block but one.
    const std::uint16_t *units = nullptr;
};

/// Walks the characters of a text in blocks of up to 64 bytes: what counts, filters and reverses texts outside ASCII.
/// Long runs of ASCII are left to the caller, who has faster ways for them.
class CharacterBlocks {
public:
    using State = character_breaks::State;

    enum class Units : bool { unwanted, wanted };

    /// `set` holds no property of composing.
    explicit CharacterBlocks(std::string_view text, CodePointSet set = 0, Units units = Units::unwanted);

    /// False at the end of the text, and where nothing but ASCII follows for 64 bytes or up to the end.
    [[nodiscard]] bool next(CharacterBlock &block) {
        if (m_next == m_count && !refill()) {
            return false;
        }
        if (m_count == 0) { // no UTF-8
            readSlowly(block);
            return true;
        }
        const kernels::CodePointBlock &found = m_found[m_next];
        block = {m_position, found.size, m_boundaries[m_next], found.starts, found.first, m_nextUnit};
        ++m_next;
        m_position += found.size;
        m_nextUnit += m_wantsUnits ? bitCount(found.starts) : 0;
        return true;
    }

    /// Where the next block begins.
    [[nodiscard]] const char *position() const { return m_position; }
    [[nodiscard]] bool isAtEnd() const { return m_position == m_end; }
    /// At the position, when there was no next block.
    [[nodiscard]] State state() const { return m_state; }
    /// True when there was anything whose boundaries are not found for a whole block at once: what takes in the code
    /// point behind it (UAX #29, Prepend), parts of Hangul syllables, bytes that are no UTF-8.
    [[nodiscard]] bool hasReadSlowly() const { return m_hasReadSlowly; }
    /// Goes on at `runEnd`. Everything from the position up to it, at least one byte, is ASCII.
    void passAscii(const char *runEnd);

private:
    static constexpr std::size_t blocksAtOnce = kernels::mostBlocksFound;

    bool refill();
    /// Finds the boundaries in all blocks that were found, and moves the state behind them.
    void findBoundaries();
    /// Returns the boundaries in the block at `begin`, before which the state is, and moves that behind it.
    std::uint64_t boundariesIn(const kernels::CodePointBlock &found, const char *begin);
    /// The code points of a block with roles, none of them complex, that the one before them takes in. Moves the state.
    std::uint64_t joinedIn(const kernels::CodePointBlock &found, const char *begin);
    /// The boundaries in a block with any roles, one code point at a time. Moves the state.
    std::uint64_t boundariesOneByOne(const kernels::CodePointBlock &found, const char *begin);
    void moveState(const kernels::CodePointBlock &found, const char *begin, std::uint64_t joining,
                   std::uint64_t secondIndicators);
    /// Reads a block of any bytes, one code point at a time.
    void readSlowly(CharacterBlock &block);

    const char *m_position;
    const char *m_end;
    CodePointSet m_set;
    kernels::KindSets m_kinds;
    State m_state = State::begin;
    std::size_t m_next = 0;
    std::size_t m_count = 0;
    std::array<kernels::CodePointBlock, blocksAtOnce> m_found; ///< Ahead, those from `m_next` on.
    std::array<std::uint64_t, blocksAtOnce> m_boundaries;      ///< Theirs.
    bool m_hasReadSlowly = false;
    bool m_wantsUnits;
    bool m_isSecondUnits = false;
    const std::uint16_t *m_nextUnit = nullptr; ///< Those of the next block begin there.
    /// Filled in turn, for the block before may be in use.
    std::array<std::array<std::uint16_t, kernels::roomForUnits>, 2> m_units;
};

/// The bits of all bytes of the characters whose first bytes are in `firsts`, a part of the boundaries of `block`, and
/// of those before its first boundary if `takesRest`.
[[nodiscard]] constexpr std::uint64_t wholeCharacters(std::uint64_t firsts, const CharacterBlock &block,
                                                      bool takesRest) {
    const std::uint64_t later = ~block.boundaries;
    const std::uint64_t begins = firsts << 1 | (takesRest ? 1U : 0U);
    // A bit added to the lowest of some bytes that follow a first one is carried through them and clears them.
    const std::uint64_t bytes = firsts | (later & ~(later + (begins & later)));
    return bytes & ~std::uint64_t{0} >> (kernels::blockSize - block.size);
}

/// The bits of all bytes of the code points whose first bytes are in `firsts`, a part of `starts`.
[[nodiscard]] constexpr std::uint64_t wholeCodePoints(std::uint64_t firsts, std::uint64_t starts) {
    // Added to the bytes that follow a first byte, its neighbour's bit is carried through all of them and clears them.
    return firsts | (~starts & ~(~starts + (firsts << 1 & ~starts)));
}

} // namespace lexivore
