// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/sequence_traits.h"
#include "engine/primitives/unicode_tables.h"
#include "engine/primitives/utf8.h"

#include <array>
#include <cstddef>
#include <cstdint>

// The boundaries between characters as a state machine over code points, read from left to right. For the primitives
// that walk characters; everybody else calls those.
namespace lexivore::character_breaks {

using unicode_tables::BreakClass;

/// What the code points since the last boundary allow to follow.
enum class State : std::uint8_t {
    begin,               ///< Nothing has been read, or only what always ends: a control or a line feed.
    afterCarriageReturn, ///< Only a line feed joins.
    other,               ///< Only what joins everything.
    prepend,             ///< Everything but a control joins.
    hangulL,
    hangulV,
    hangulT,
    regionalIndicator, ///< One that still waits for its second.
    pictographic,      ///< Extended_Pictographic Extend*
    pictographicJoiner,
    consonant,       ///< A consonant of a script with conjuncts; no virama yet.
    linkedConsonant, ///< The same with a virama.
};
inline constexpr std::size_t stateCount = 12;

struct Transition {
    State next = State::begin;
    bool isBoundary = true; ///< A character ends before this code point.
};

namespace detail {

/// The state behind a character that consists of one code point of this class.
constexpr State stateOfFirst(BreakClass first) {
    switch (first) {
    case BreakClass::carriageReturn:
        return State::afterCarriageReturn;
    case BreakClass::lineFeed:
    case BreakClass::control:
        return State::begin;
    case BreakClass::prepend:
        return State::prepend;
    case BreakClass::regionalIndicator:
        return State::regionalIndicator;
    case BreakClass::hangulL:
        return State::hangulL;
    case BreakClass::hangulV:
    case BreakClass::hangulLV:
        return State::hangulV;
    case BreakClass::hangulT:
    case BreakClass::hangulLVT:
        return State::hangulT;
    case BreakClass::extendedPictographic:
        return State::pictographic;
    case BreakClass::linkingConsonant:
        return State::consonant;
    default:
        return State::other;
    }
}

/// The state behind an Extend, a zero width joiner or a spacing mark that joins (rules GB9, GB9a).
constexpr State stateAfterJoining(State state, BreakClass next) {
    const bool isExtend = next == BreakClass::extend || next == BreakClass::extendStarter || next == BreakClass::virama;
    const bool isJoiner = next == BreakClass::zeroWidthJoiner;
    switch (state) {
    case State::pictographic: // GB11
        return isExtend ? State::pictographic : isJoiner ? State::pictographicJoiner : State::other;
    case State::consonant: // GB9c
        if (next == BreakClass::virama) {
            return State::linkedConsonant;
        }
        return next == BreakClass::extend || isJoiner ? State::consonant : State::other;
    case State::linkedConsonant:
        return next == BreakClass::extend || next == BreakClass::virama || isJoiner ? State::linkedConsonant
                                                                                    : State::other;
    default:
        return State::other;
    }
}

constexpr Transition transitionOf(State state, BreakClass next) {
    const Transition apart{stateOfFirst(next), true};
    const Transition together{stateOfFirst(next), false};
    if (state == State::begin) {
        return apart;
    }
    if (state == State::afterCarriageReturn) { // GB3, GB4
        return next == BreakClass::lineFeed ? together : apart;
    }
    switch (next) {
    case BreakClass::carriageReturn:
    case BreakClass::lineFeed:
    case BreakClass::control: // GB5
        return apart;
    case BreakClass::extend:
    case BreakClass::extendStarter:
    case BreakClass::virama:
    case BreakClass::zeroWidthJoiner:
    case BreakClass::spacingMark:
        return {stateAfterJoining(state, next), false};
    default:
        break;
    }
    switch (state) {
    case State::prepend: // GB9b
        return together;
    case State::hangulL: { // GB6
        const bool joins = next == BreakClass::hangulL || next == BreakClass::hangulV || next == BreakClass::hangulLV ||
                           next == BreakClass::hangulLVT;
        return joins ? together : apart;
    }
    case State::hangulV: // GB7
        return next == BreakClass::hangulV || next == BreakClass::hangulT ? together : apart;
    case State::hangulT: // GB8
        return next == BreakClass::hangulT ? together : apart;
    case State::regionalIndicator: // GB12, GB13
        return next == BreakClass::regionalIndicator ? Transition{State::other, false} : apart;
    case State::pictographicJoiner: // GB11
        return next == BreakClass::extendedPictographic ? together : apart;
    case State::linkedConsonant: // GB9c
        return next == BreakClass::linkingConsonant ? together : apart;
    default:
        return apart;
    }
}

constexpr auto makeTransitions() {
    std::array<std::array<Transition, unicode_tables::breakClassCount>, stateCount> table{};
    for (std::size_t state = 0; state < stateCount; ++state) {
        for (std::size_t next = 0; next < unicode_tables::breakClassCount; ++next) {
            table[state][next] = transitionOf(static_cast<State>(state), static_cast<BreakClass>(next));
        }
    }
    return table;
}

inline constexpr auto transitions = makeTransitions();

} // namespace detail

[[nodiscard]] inline BreakClass breakClass(char32_t codePoint) {
    using namespace unicode_tables;
    return static_cast<BreakClass>(lookUp(traitBlocks, traits, codePoint) & breakClassMask);
}

[[nodiscard]] inline Transition transition(State state, char32_t codePoint) {
    return detail::transitions[static_cast<std::size_t>(state)][static_cast<std::size_t>(breakClass(codePoint))];
}

/// A code point that was passed, and whether a character ended before it.
struct Step {
    std::size_t length = 0;
    bool isBoundary = true;
};

/// Passes the code point at `position`, which lies before `end`.
[[nodiscard]] inline Step pass(State &state, const char *position, const char *end) {
    static const sequence_traits::Table &traits = sequence_traits::table();
    if (end - position >= sequence_traits::bytesRead && !isAscii(*position)) {
        const sequence_traits::Sequence sequence = sequence_traits::at(traits, position);
        if ((sequence.traits & sequence_traits::standsAlone) != 0) {
            const bool isBoundary = state != State::prepend;
            state = State::other;
            return {sequence.length, isBoundary};
        }
    }
    const DecodedCodePoint decoded = decode(position, end);
    const Transition moved = transition(state, decoded.value);
    state = moved.next;
    return {decoded.length, moved.isBoundary};
}

/// The state behind a run of ASCII that ends with `last`.
[[nodiscard]] inline State stateAfterAscii(char last) {
    if (last == '\r') {
        return State::afterCarriageReturn;
    }
    const bool isControl = static_cast<unsigned char>(last) < 0x20 || last == 0x7F;
    return isControl ? State::begin : State::other;
}

} // namespace lexivore::character_breaks
