// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/characters.h"

#include "engine/primitives/bit_tally.h"
#include "engine/primitives/character_blocks.h"
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/utf8.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>
#include <utility>

namespace lexivore {

using character_breaks::State;
using character_breaks::Step;
using character_breaks::Transition;

namespace {

/// How much of a run of ASCII is looked at before it is worked on: it is still in the cache then.
constexpr std::ptrdiff_t stretch = 16'384;

std::size_t crLfCount(std::string_view text) {
    std::size_t count = 0;
    std::size_t position = text.find('\r');
    while (position != std::string_view::npos) {
        ++position;
        count += position < text.size() && text[position] == '\n' ? 1U : 0U;
        position = text.find('\r', position);
    }
    return count;
}

/// What stands in [begin, end).
std::string_view textBetween(const char *begin, const char *end) {
    return {begin, static_cast<std::size_t>(end - begin)};
}

CharacterCount countInBlocks(std::string_view text) {
    std::size_t count = 0;
    BitTally boundaries;
    CharacterBlocks blocks(text);
    const char *const end = text.data() + text.size();
    while (!blocks.isAtEnd()) {
        if (const char *const position = blocks.position(); isAscii(*position)) {
            // In ASCII every code point is a character, a CR LF excepted; what came before matters to the first alone.
            const char *const runEnd = asciiRunEnd(position, end);
            const Transition first =
                character_breaks::transition(blocks.state(), static_cast<unsigned char>(*position));
            count += static_cast<std::size_t>(runEnd - position) - (first.isBoundary ? 0U : 1U);
            count -= crLfCount(textBetween(position, runEnd));
            blocks.passAscii(runEnd);
        }
        for (CharacterBlock block; blocks.next(block);) {
            boundaries.add(block.boundaries);
        }
    }
    return {count + boundaries.count(), blocks.hasReadSlowly()};
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

/// Copies the bytes whose bits are set, of a block of a text that ends at `end`, and returns the place behind them. Up
/// to 64 bytes behind them are overwritten.
char *copyBytesOf(const char *begin, std::uint64_t bytes, const char *end, char *to) {
    if (end - begin >= static_cast<std::ptrdiff_t>(kernels::blockSize)) {
        return to + kernels::best().compress(begin, 1, &bytes, to);
    }
    for (; bytes != 0; bytes &= bytes - 1) {
        *to++ = begin[std::countr_zero(bytes)];
    }
    return to;
}

} // namespace

CharacterCount countCharacters(std::string_view text) {
    if (asciiRunEnd(text.data(), text.data() + text.size()) == text.data() + text.size()) {
        return {text.size() - crLfCount(text), false};
    }
    return countInBlocks(text);
}

std::size_t characterCount(std::string_view text) { return countCharacters(text).characters; }

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

TextBuffer filterCharacters(std::string_view text, CharacterFilter filter) {
    const AsciiFilter asciiFilter(filter);
    TextBuffer result;
    char *to = result.room(text.size() + AsciiFilter::scratchBytes);
    bool isKept = false; // the character that a block begins within
    CharacterBlocks blocks(text, filter.set);
    const char *const end = text.data() + text.size();
    while (!blocks.isAtEnd()) {
        if (const char *position = blocks.position(); isAscii(*position)) {
            const char *const runEnd = asciiRunEnd(position, position + std::min(stretch, end - position));
            if (!character_breaks::transition(blocks.state(), static_cast<unsigned char>(*position)).isBoundary) {
                *to = *position++;
                to += isKept ? 1 : 0;
            }
            // From here on every byte may be judged by itself: the halves of a CR LF have the same properties.
            if (position != runEnd) {
                isKept = asciiFilter.keeps(runEnd[-1]);
            }
            to = asciiFilter.copyKept(position, runEnd, to);
            blocks.passAscii(runEnd);
        }
        for (CharacterBlock block; blocks.next(block);) {
            const std::uint64_t kept = block.boundaries & (filter.keepsMembers ? block.members : ~block.members);
            const std::uint64_t bytes = wholeCharacters(kept, block, isKept);
            isKept = (bytes >> (block.size - 1) & 1U) != 0;
            to = copyBytesOf(block.begin, bytes, end, to);
        }
    }
    result.commit(to);
    result.shrink();
    return result;
}

namespace {

/// Writes characters in reverse order, from the end of the room for all of them on.
class ReverseWriter {
public:
    ReverseWriter(std::string_view text, char *to)
        : m_begin(to - text.size()), m_to(to), m_characterBegin(text.data()), m_textEnd(text.data() + text.size()) {}

    /// Writes what was not written yet of the text before `characterEnd`: one character.
    void endCharacter(const char *characterEnd) {
        const auto length = static_cast<std::size_t>(characterEnd - m_characterBegin);
        m_to -= length;
        copyBytes(m_characterBegin, length, m_to);
        m_characterBegin = characterEnd;
    }

    /// Writes the characters of the ASCII that stands before `limit` but the last, to which marks may be joined, and
    /// returns the end of it. A character begins at `position`, which is ASCII.
    const char *writeAscii(const char *position, const char *limit) {
        endCharacter(position);
        bool hasCarriageReturn = false;
        const char *const runEnd =
            position +
            kernels::best().reverseAscii(position, static_cast<std::size_t>(limit - position), m_to, hasCarriageReturn);
        const char *last = runEnd - 1;
        last -= last != position && last[-1] == '\r' && *last == '\n' ? 1 : 0;
        char *const runTo = m_to;
        m_to -= last - position; // what was written of the last one is overwritten
        if (hasCarriageReturn) {
            turnCrLfsBack(m_to, runTo);
        }
        m_characterBegin = last;
        return runEnd;
    }

    /// Writes the characters that end in the block.
    void write(const CharacterBlock &block) {
        if (block.boundaries == 0) {
            return;
        }
        const auto first = static_cast<std::size_t>(std::countr_zero(block.boundaries));
        const auto last = static_cast<std::size_t>(std::bit_width(block.boundaries)) - 1;
        const char *const begin = block.begin + first;
        endCharacter(begin);
        if (const std::size_t size = last - first; size > 0) {
            const std::uint64_t begins = block.boundaries >> first;
            const auto left = static_cast<std::size_t>(m_textEnd - begin);
            const auto room = static_cast<std::size_t>(m_to - m_begin);
            if (room >= kernels::blockSize) {
                kernels::best().reverseParts(begin, left, begins, size, m_to);
            } else {
                char reversed[kernels::blockSize];
                kernels::best().reverseParts(begin, left, begins, size, std::end(reversed));
                copyBytes(std::end(reversed) - size, size, m_to - size);
            }
            m_to -= size;
        }
        m_characterBegin = block.begin + last;
    }

private:
    /// A CR LF is one character.
    static void turnCrLfsBack(char *position, const char *end) {
        while (position != end) {
            auto *const found =
                static_cast<char *>(std::memchr(position, '\r', static_cast<std::size_t>(end - position)));
            if (found == nullptr) {
                return;
            }
            if (found != position && found[-1] == '\n') {
                std::swap(found[-1], *found);
            }
            position = found + 1;
        }
    }

    char *m_begin;                ///< Of the room.
    char *m_to;                   ///< The beginning of what was written.
    const char *m_characterBegin; ///< The end of what was written of the text.
    const char *m_textEnd;
};

} // namespace

TextBuffer reverseCharacters(std::string_view text) {
    TextBuffer result;
    char *const resultEnd = result.room(text.size()) + text.size();
    result.commit(resultEnd);
    ReverseWriter writer(text, resultEnd);
    CharacterBlocks blocks(text);
    const char *const end = text.data() + text.size();
    while (!blocks.isAtEnd()) {
        if (const char *position = blocks.position(); isAscii(*position)) {
            const char *const limit = position + std::min(stretch, end - position);
            if (!character_breaks::transition(blocks.state(), static_cast<unsigned char>(*position)).isBoundary) {
                ++position;
            }
            const bool hasMore = position != limit && isAscii(*position);
            blocks.passAscii(hasMore ? writer.writeAscii(position, limit) : position);
        }
        for (CharacterBlock block; blocks.next(block);) {
            writer.write(block);
        }
    }
    writer.endCharacter(end);
    return result;
}

} // namespace lexivore
