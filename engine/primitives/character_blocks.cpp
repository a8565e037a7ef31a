// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/character_blocks.h"

#include "engine/primitives/unicode_tables.h"
#include "engine/primitives/utf8.h"

#include <algorithm>
#include <bit>

// The boundaries of a whole block at once. Sums do what a state machine would: a bit added to the lowest byte of a run
// of ones is carried to the first byte behind the run.
namespace lexivore {

using character_breaks::State;
using character_breaks::Transition;
using kernels::CodePointBlock;
using kernels::Kind;

namespace {

/// For each bit of `from` the first one at or above it that is not in `through`.
constexpr std::uint64_t firstBeyond(std::uint64_t from, std::uint64_t through) {
    return ((through + (from & through)) | from) & ~through;
}

/// The first bytes of the code points that follow those in `firsts`.
constexpr std::uint64_t following(std::uint64_t firsts, std::uint64_t starts) {
    return firstBeyond(firsts << 1, ~starts);
}

constexpr std::uint64_t firstBitIf(bool condition) { return condition ? 1 : 0; }

/// The consonants that are joined to the one before them (rule GB9c): everything between the two is transparent, and
/// there is a virama in it.
std::uint64_t linkedConsonants(const CodePointBlock &block, State state) {
    const bool isBehindLinked = state == State::linkedConsonant;
    const std::uint64_t transparent =
        wholeCodePoints(block.extends | block.viramas | block.zeroWidthJoiners, block.starts);
    const std::uint64_t behindConsonants =
        following(block.consonants, block.starts) | firstBitIf(isBehindLinked || state == State::consonant);
    const std::uint64_t behindConsonantsOnly = transparent & ~(transparent + (behindConsonants & transparent));
    const std::uint64_t linking = block.viramas & behindConsonantsOnly;
    return block.consonants & firstBeyond(following(linking, block.starts) | firstBitIf(isBehindLinked), transparent);
}

/// The pictographs that are joined to the one before them (rule GB11): a zero width joiner between the two, and nothing
/// but Extend before it.
std::uint64_t joinedPictographics(const CodePointBlock &block, State state) {
    const std::uint64_t extends = wholeCodePoints(block.extends | block.extendStarters | block.viramas, block.starts);
    const std::uint64_t behindPictographics =
        following(block.pictographics, block.starts) | firstBitIf(state == State::pictographic);
    const std::uint64_t joiners = block.zeroWidthJoiners & firstBeyond(behindPictographics, extends);
    return block.pictographics & (following(joiners, block.starts) | firstBitIf(state == State::pictographicJoiner));
}

/// The regional indicators that are joined to the one before them (rules GB12 and GB13).
std::uint64_t secondIndicators(const CodePointBlock &block, State state) {
    constexpr unsigned bytesOfOne = 4;
    std::uint64_t seconds = 0;
    std::uint64_t due = firstBitIf(state == State::regionalIndicator); // where one would be the second
    for (std::uint64_t left = block.regionalIndicators; left != 0; left &= left - 1) {
        const std::uint64_t indicator = left & (0 - left);
        seconds |= indicator & due;
        due = indicator == due ? 0 : indicator << bytesOfOne;
    }
    return seconds;
}

/// True when what follows depends on more than the code points that join everything.
constexpr bool isParticular(State state) {
    return state == State::afterCarriageReturn || state == State::prepend || state == State::hangulL ||
           state == State::hangulV || state == State::hangulT;
}

/// The state behind a block that begins at `begin` and has no roles but controls.
State stateBehind(const CodePointBlock &block, const char *begin) {
    if ((block.controls & std::bit_floor(block.starts)) == 0) {
        return State::other;
    }
    return begin[block.size - 1] == '\r' ? State::afterCarriageReturn : State::begin;
}

} // namespace

std::uint8_t kindsOf(CodePointSet set) {
    unsigned kinds = 0;
    const auto add = [&](CodePointSet property, Kind kind) {
        kinds |= (set & property) != 0 ? 1U << static_cast<unsigned>(kind) : 0U;
    };
    add(property::letter, Kind::letter);
    add(property::mark, Kind::mark);
    add(property::number, Kind::number);
    add(property::punctuation, Kind::punctuation);
    add(property::punctuation, Kind::apostrophe);
    add(property::horizontalSpace | property::whiteSpace, Kind::horizontalSpace);
    add(property::newline | property::whiteSpace, Kind::newline);
    return static_cast<std::uint8_t>(kinds);
}

CharacterBlocks::CharacterBlocks(std::string_view text, CodePointSet set, Units units)
    : m_position(text.data()), m_end(text.data() + text.size()), m_set(set), m_kinds{kindsOf(set)},
      m_wantsUnits(units == Units::wanted) {
} // NOLINT(cppcoreguidelines-pro-type-member-init): only blocks that were found are read

bool CharacterBlocks::refill() {
    m_next = 0;
    std::uint16_t *units = nullptr;
    if (m_wantsUnits) {
        m_isSecondUnits = !m_isSecondUnits;
        units = m_units[m_isSecondUnits ? 1 : 0].data();
    }
    m_nextUnit = units;
    m_count =
        kernels::best().findCodePoints(m_position, static_cast<std::size_t>(m_end - m_position),
                                       unicode_tables::characterTables, m_kinds, m_found.data(), m_found.size(), units);
    if (m_count > 0) {
        findBoundaries();
    }
    return m_count > 0 || (m_position != m_end && !isAscii(*m_position));
}

void CharacterBlocks::findBoundaries() {
    // Where something joins is hard to guess. Those blocks are listed first, without a branch.
    std::array<std::uint8_t, blocksAtOnce + 1> listed; // NOLINT(cppcoreguidelines-pro-type-member-init)
    std::array<const char *, blocksAtOnce> begins;     // NOLINT(cppcoreguidelines-pro-type-member-init)
    listed[0] = 0;
    std::size_t listedCount = isParticular(m_state) ? 1 : 0;
    const char *begin = m_position;
    bool isBehindReturn = false;
    for (std::size_t i = 0; i < m_count; ++i) {
        const CodePointBlock &found = m_found[i];
        begins[i] = begin;
        m_boundaries[i] = found.starts & ~found.crLfs;
        listed[listedCount] = static_cast<std::uint8_t>(i);
        listedCount += static_cast<std::size_t>(found.hasRoles) | static_cast<std::size_t>(isBehindReturn);
        begin += found.size;
        isBehindReturn = begin[-1] == '\r';
    }
    std::size_t next = 0; // the state is the one before this block
    const auto passOthers = [&](std::size_t end) {
        if (next != end) {
            m_state = stateBehind(m_found[end - 1], begins[end - 1]);
            next = end;
        }
    };
    for (std::size_t i = 0; i < listedCount; ++i) {
        if (listed[i] < next) {
            continue;
        }
        passOthers(listed[i]);
        do {
            m_boundaries[next] = boundariesIn(m_found[next], begins[next]);
            ++next;
        } while (next < m_count && isParticular(m_state));
    }
    passOthers(m_count);
}

std::uint64_t CharacterBlocks::boundariesIn(const CodePointBlock &found, const char *begin) {
    const State before = m_state;
    std::uint64_t boundaries = found.starts & ~found.crLfs;
    if (!found.hasRoles) {
        m_state = stateBehind(found, begin);
    } else if (found.isComplex) {
        return boundariesOneByOne(found, begin);
    } else {
        boundaries &= ~joinedIn(found, begin);
    }
    if (isParticular(before)) {
        const bool isBoundary = character_breaks::transition(before, decode(begin, m_end).value).isBoundary;
        boundaries = (boundaries & ~std::uint64_t{1}) | firstBitIf(isBoundary);
    }
    return boundaries;
}

std::uint64_t CharacterBlocks::joinedIn(const CodePointBlock &found, const char *begin) {
    const std::uint64_t joining =
        found.extends | found.extendStarters | found.viramas | found.zeroWidthJoiners | found.spacingMarks;
    // What would join a control stands for itself.
    const std::uint64_t apart = following(found.controls, found.starts) | firstBitIf(m_state == State::begin);
    std::uint64_t joined = joining & ~apart;
    if (found.viramas != 0 || m_state == State::linkedConsonant) {
        joined |= linkedConsonants(found, m_state);
    }
    if (found.zeroWidthJoiners != 0 || m_state == State::pictographicJoiner) {
        joined |= joinedPictographics(found, m_state);
    }
    std::uint64_t seconds = 0;
    if (found.regionalIndicators != 0) {
        seconds = secondIndicators(found, m_state);
        joined |= seconds;
    }
    moveState(found, begin, joining, seconds);
    return joined;
}

std::uint64_t CharacterBlocks::boundariesOneByOne(const CodePointBlock &found, const char *begin) {
    m_hasReadSlowly = true;
    std::uint64_t boundaries = 0;
    for (std::uint64_t left = found.starts; left != 0; left &= left - 1) {
        const Transition step =
            character_breaks::transition(m_state, decode(begin + std::countr_zero(left), m_end).value);
        boundaries |= step.isBoundary ? left & (0 - left) : 0;
        m_state = step.next;
    }
    return boundaries;
}

void CharacterBlocks::moveState(const CodePointBlock &found, const char *begin, std::uint64_t joining,
                                std::uint64_t secondIndicators) {
    const std::uint64_t last = std::bit_floor(found.starts);
    if (((joining | found.controls | found.syllables | found.regionalIndicators) & last) == 0) {
        m_state = (found.consonants & last) != 0      ? State::consonant
                  : (found.pictographics & last) != 0 ? State::pictographic
                                                      : State::other;
        return;
    }
    // The state is that of the last code point that does not join, moved over those that do.
    const char *position = begin;
    if (const std::uint64_t settling = found.starts & ~joining; settling != 0) {
        position += std::bit_width(settling) - 1;
        m_state = (std::bit_floor(settling) & secondIndicators) != 0 ? State::regionalIndicator : State::begin;
    }
    for (const char *const end = begin + found.size; position != end;) {
        const DecodedCodePoint decoded = decode(position, end);
        m_state = character_breaks::transition(m_state, decoded.value).next;
        position += decoded.length;
    }
}

void CharacterBlocks::readSlowly(CharacterBlock &block) {
    m_hasReadSlowly = true;
    block = {m_position, 0, 0, 0, 0, nullptr};
    while (m_position != m_end) {
        const DecodedCodePoint decoded = decode(m_position, m_end);
        if (block.size + decoded.length > kernels::blockSize) {
            break;
        }
        const Transition step = character_breaks::transition(m_state, decoded.value);
        const std::uint64_t bit = std::uint64_t{1} << block.size;
        block.starts |= bit;
        block.boundaries |= step.isBoundary ? bit : 0;
        block.members |= isIn(m_set, decoded.value) ? bit : 0;
        block.size += decoded.length;
        m_position += decoded.length;
        m_state = step.next;
    }
}

void CharacterBlocks::passAscii(const char *runEnd) {
    m_position = runEnd;
    m_state = character_breaks::stateAfterAscii(runEnd[-1]);
    m_next = m_count = 0;
}

} // namespace lexivore
