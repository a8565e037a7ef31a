// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/characters.h"

#include "engine/primitives/character_breaks.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/utf8.h"

#include <algorithm>
#include <cstring>

namespace lexivore {

using character_breaks::State;
using character_breaks::Step;
using character_breaks::Transition;

namespace {

/// How many of the pairs (byte, next byte) that begin in the range are a CR LF.
std::size_t crLfPairs(const char *position, const char *lastBegin) {
    std::size_t pairs = 0;
    while (position != lastBegin) {
        // A sum in bytes over a short stretch is what the compiler turns into vector code.
        const auto stretch = std::min<std::ptrdiff_t>(lastBegin - position, 255);
        std::uint8_t sum = 0;
        for (std::ptrdiff_t i = 0; i < stretch; ++i) {
            sum = static_cast<std::uint8_t>(sum + ((position[i] == '\r') & (position[i + 1] == '\n')));
        }
        pairs += sum;
        position += stretch;
    }
    return pairs;
}

/// Counts the characters that begin in [position, end), given the state before, and moves the state.
std::size_t countCharacters(const char *position, const char *end, State &state) {
    std::size_t count = 0;
    while (position != end) {
        if (isAscii(*position)) {
            // In ASCII every code point is a character, a CR LF excepted; what came before matters to the first alone.
            const char *const runEnd = asciiRunEnd(position, end);
            const Transition first = character_breaks::transition(state, static_cast<unsigned char>(*position));
            count += static_cast<std::size_t>(runEnd - position) - (first.isBoundary ? 0U : 1U);
            count -= crLfPairs(position, runEnd - 1);
            state = character_breaks::stateAfterAscii(runEnd[-1]);
            position = runEnd;
        } else {
            const Step step = character_breaks::pass(state, position, end);
            count += step.isBoundary ? 1U : 0U;
            position += step.length;
        }
    }
    return count;
}

/// Filters stretches of ASCII, in which every byte is judged by itself.
class AsciiFilter {
public:
    /// What may be overwritten behind the bytes that are kept.
    static constexpr std::size_t scratchBytes = kernels::blockSize;

    explicit AsciiFilter(CharacterFilter filter)
        : m_byteClass(byteClassOf(filter.set)), m_flip(filter.keepsMembers ? 0 : ~std::uint64_t{0}) {}

    [[nodiscard]] bool keeps(char byte) const { return m_byteClass.ascii.contains(byte) == (m_flip == 0); }

    /// Copies what is kept of [position, end) to `to` and returns the place behind it.
    char *copyKept(const char *position, const char *end, char *to) const {
        constexpr std::size_t blocksAtOnce = 64;
        std::uint64_t keep[blocksAtOnce];
        std::uint64_t candidates[blocksAtOnce];
        while (static_cast<std::size_t>(end - position) >= kernels::blockSize) {
            const auto blocks = std::min(static_cast<std::size_t>(end - position) / kernels::blockSize, blocksAtOnce);
            kernels::best().classify(position, blocks, m_byteClass, keep, candidates);
            for (std::size_t block = 0; block < blocks; ++block) {
                keep[block] ^= m_flip;
            }
            to += kernels::best().compress(position, blocks, keep, to);
            position += blocks * kernels::blockSize;
        }
        for (; position != end; ++position) {
            *to = *position;
            to += keeps(*position) ? 1 : 0;
        }
        return to;
    }

private:
    kernels::ByteClass m_byteClass;
    std::uint64_t m_flip;
};

} // namespace

std::size_t characterCount(std::string_view text) {
    State state = State::begin;
    return countCharacters(text.data(), text.data() + text.size(), state);
}

bool joinsSpaceBefore(std::string_view text) {
    State state = State::other;
    return !character_breaks::pass(state, text.data(), text.data() + text.size()).isBoundary;
}

std::size_t characterEnd(std::string_view text, std::size_t position) {
    const char *const end = text.data() + text.size();
    const DecodedCodePoint first = decode(text.data() + position, end);
    State state = character_breaks::transition(State::begin, first.value).next;
    const char *next = text.data() + position + first.length;
    while (next != end) {
        const DecodedCodePoint decoded = decode(next, end);
        const Transition step = character_breaks::transition(state, decoded.value);
        if (step.isBoundary) {
            break;
        }
        state = step.next;
        next += decoded.length;
    }
    return static_cast<std::size_t>(next - text.data());
}

CharacterWalk::CharacterWalk(std::string_view text) : m_position(text.data()), m_end(text.data() + text.size()) {
    if (m_position != m_end) {
        State state = State::begin;
        m_passed = character_breaks::pass(state, m_position, m_end).length;
        m_state = static_cast<std::uint8_t>(state);
    }
}

bool CharacterWalk::next(std::string_view &character) {
    if (m_position == m_end) {
        return false;
    }
    const char *const begin = m_position;
    m_position += m_passed;
    for (auto state = static_cast<State>(m_state); m_position != m_end; m_position += m_passed) {
        const Step step = character_breaks::pass(state, m_position, m_end);
        m_passed = step.length;
        if (step.isBoundary) {
            m_state = static_cast<std::uint8_t>(state);
            break;
        }
    }
    character = {begin, static_cast<std::size_t>(m_position - begin)};
    return true;
}

void CharacterCounter::append(std::string_view piece) {
    auto state = static_cast<State>(m_state);
    m_count += countCharacters(piece.data(), piece.data() + piece.size(), state);
    m_state = static_cast<std::uint8_t>(state);
}

void CharacterCounter::appendPlain(std::size_t size) {
    if (size > 0) {
        const bool isBoundary = static_cast<State>(m_state) != State::prepend; // which joins whatever follows
        m_count += size - (isBoundary ? 0U : 1U);
        m_state = static_cast<std::uint8_t>(State::other);
    }
}

void CharacterCounter::appendCounted(const CharacterCounter &text) {
    m_count += text.m_count;
    m_state = text.m_state;
}

TextBuffer filterCharacters(std::string_view text, CharacterFilter filter) {
    const AsciiFilter asciiFilter(filter);
    const auto keeps = [filter](char32_t codePoint) { return isIn(filter.set, codePoint) == filter.keepsMembers; };
    TextBuffer result;
    char *to = result.room(text.size() + AsciiFilter::scratchBytes);
    State state = State::begin;
    bool isKept = false;
    const char *position = text.data();
    const char *const end = position + text.size();
    while (position != end) {
        if (isAscii(*position)) {
            const char *const runEnd = asciiRunEnd(position, end);
            if (!character_breaks::transition(state, static_cast<unsigned char>(*position)).isBoundary) {
                *to = *position++;
                to += isKept ? 1 : 0;
            }
            // From here on every byte may be judged by itself: the halves of a CR LF have the same properties.
            if (position != runEnd) {
                isKept = asciiFilter.keeps(runEnd[-1]);
            }
            to = asciiFilter.copyKept(position, runEnd, to);
            position = runEnd;
            state = character_breaks::stateAfterAscii(runEnd[-1]);
        } else {
            const Step step = character_breaks::pass(state, position, end);
            if (step.isBoundary) {
                isKept = keeps(decode(position, end).value);
            }
            std::memcpy(to, position, step.length);
            to += isKept ? step.length : 0;
            position += step.length;
        }
    }
    result.commit(to);
    result.shrink();
    return result;
}

TextBuffer reverseCharacters(std::string_view text) {
    TextBuffer result;
    char *to = result.room(text.size()) + text.size();
    result.commit(to);
    const char *characterBegin = text.data();
    const char *position = characterBegin;
    const char *const end = position + text.size();
    const auto writeCharacter = [&](const char *characterLimit) {
        const auto length = static_cast<std::size_t>(characterLimit - characterBegin);
        to -= length;
        std::copy_n(characterBegin, length, to);
        characterBegin = characterLimit;
    };
    State state = State::begin;
    while (position != end) {
        const Step step = character_breaks::pass(state, position, end);
        if (step.isBoundary && position != characterBegin) {
            writeCharacter(position);
        }
        position += step.length;
        if (state == State::other && step.length == 1) {
            // Behind a plain ASCII character: all but the last of a run of them stand for themselves.
            const char *const runEnd = asciiRunEnd(position, end);
            const auto run = static_cast<std::size_t>(runEnd - position);
            const void *const cr = run == 0 ? nullptr : std::memchr(position, '\r', run);
            const char *const runWithoutCr = cr == nullptr ? runEnd : static_cast<const char *>(cr);
            if (runWithoutCr - position > 1) {
                writeCharacter(position);
                const auto length = static_cast<std::size_t>(runWithoutCr - 1 - position);
                to -= length;
                kernels::best().reverse(position, length, to);
                position = runWithoutCr - 1;
                characterBegin = position;
                state = State::begin;
            }
        }
    }
    writeCharacter(end);
    return result;
}

} // namespace lexivore
