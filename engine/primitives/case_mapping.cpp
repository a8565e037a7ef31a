// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/case_mapping.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/case_writing.h"
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/sequence_traits.h"
#include "engine/primitives/unicode_tables.h"
#include "engine/primitives/utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace lexivore {

using character_breaks::State;
using character_breaks::Transition;
using unicode_tables::CaseTables;
using unicode_tables::lowercase;
using unicode_tables::uppercase;

namespace {

constexpr bool isAsciiUpper(char byte) { return static_cast<unsigned char>(byte - 'A') < 26; }
constexpr bool isAsciiLower(char byte) { return static_cast<unsigned char>(byte - 'a') < 26; }
constexpr bool isAsciiLetter(char byte) { return isAsciiLower(static_cast<char>(byte | 0x20)); }
constexpr char asciiUpper(char byte) { return static_cast<char>(byte - (isAsciiLower(byte) ? 0x20 : 0)); }
constexpr char asciiLower(char byte) { return static_cast<char>(byte + (isAsciiUpper(byte) ? 0x20 : 0)); }
constexpr char asciiInverted(char byte) { return static_cast<char>(byte ^ (isAsciiLetter(byte) ? 0x20 : 0)); }

bool changes(const CaseTables &tables, char32_t codePoint) {
    return unicode_tables::lookUp(tables.blocks, tables.deltaIndices, codePoint) != 0;
}

/// Mappings of code points of two bytes to others of two bytes, as their bytes in UTF-8, the first in the lower eight
/// bits; 0 for those that are mapped to anything else.
class TwoByteMappings {
public:
    /// `write(codePoint, to)` returns the place behind what it wrote.
    template<typename Write> explicit TwoByteMappings(Write write) {
        for (char32_t codePoint = 0x80; codePoint < 0x800; ++codePoint) {
            char mapped[longestMapping];
            if (write(codePoint, mapped) - mapped == 2 && !isAscii(mapped[0])) {
                const auto byteAt = [&mapped](std::size_t i) {
                    return unsigned{static_cast<unsigned char>(mapped[i])};
                };
                m_bytes[codePoint] = static_cast<std::uint16_t>(byteAt(0) | byteAt(1) << 8);
            }
        }
    }
    [[nodiscard]] std::uint16_t operator[](std::size_t codePoint) const { return m_bytes[codePoint]; }

private:
    std::array<std::uint16_t, 0x800> m_bytes{};
};

/// What is mapped by its bytes alone.
struct QuickMapping {
    TwoByteMappings twoBytes;
    std::uint8_t keeps; ///< All of these traits: the code point is not changed.
    const sequence_traits::Table &traits = sequence_traits::table();

    /// Maps `sequence`, which stands at `from`, and returns the place behind it, or null when it does not know it.
    char *map(const sequence_traits::Sequence &sequence, const char *from, char *to) const {
        if (sequence.length == 2) {
            const std::uint16_t mapped = twoBytes[sequence_traits::indexOfTwo(sequence.bytes)];
            to[0] = static_cast<char>(static_cast<unsigned char>(mapped));
            to[1] = static_cast<char>(static_cast<unsigned char>(mapped >> 8));
            return mapped == 0 ? nullptr : to + 2;
        }
        std::memcpy(to, from, sequence_traits::bytesRead);
        return (sequence.traits & keeps) == keeps ? to + sequence.length : nullptr;
    }
};

constexpr std::ptrdiff_t shortRun = 8;

/// Writes sequences outside ASCII from `position` on, and a few ASCII bytes between them, as far as the quick mapping
/// goes. Moves both places.
template<typename MapAscii>
void mapQuickly(const QuickMapping &mapping, const char *&position, const char *end, char *&to, MapAscii mapAscii) {
    const char *from = position;
    char *place = to;
    while (end - from >= shortRun) {
        if (isAscii(*from)) {
            const std::ptrdiff_t length = asciiBytesAt(from);
            if (length == shortRun) {
                break; // a longer run
            }
            for (std::ptrdiff_t i = 0; i < shortRun; ++i) { // at once, whether they are ASCII or not
                place[i] = mapAscii(from[i]);
            }
            from += length;
            place += length;
            if (end - from < sequence_traits::bytesRead) {
                break;
            }
        }
        const sequence_traits::Sequence sequence = sequence_traits::at(mapping.traits, from);
        char *const behind = mapping.map(sequence, from, place);
        if (behind == nullptr) {
            break;
        }
        place = behind;
        from += sequence.length;
    }
    position = from;
    to = place;
}

/// Maps [position, end) in stretches, each with room for the longest result: an ASCII run with `mapAscii`, what
/// `mapping` knows by it, and every other code point with `write(codePoint, position, to)`, which returns the place
/// behind what it wrote.
template<typename MapAscii, typename Write>
void appendMapped(TextBuffer &result, std::string_view text, const QuickMapping &mapping, MapAscii mapAscii,
                  Write write) {
    constexpr std::ptrdiff_t stretch = 4096;
    const char *position = text.data();
    const char *const end = position + text.size();
    static_cast<void>(result.room(text.size() + std::min<std::size_t>(text.size(), stretch) * longestMapping));
    while (position != end) {
        const char *const stretchEnd = position + std::min(stretch, end - position);
        char *to = result.room(static_cast<std::size_t>(stretchEnd - position) * longestMapping);
        while (position < stretchEnd) {
            const char *const runEnd = asciiRunEnd(position, stretchEnd);
            const std::ptrdiff_t length = runEnd - position;
            for (std::ptrdiff_t i = 0; i < length; ++i) {
                to[i] = mapAscii(position[i]);
            }
            to += length;
            position = runEnd;
            mapQuickly(mapping, position, stretchEnd, to, mapAscii);
            if (position < stretchEnd && !isAscii(*position)) {
                const DecodedCodePoint decoded = decode(position, end);
                if (decoded.length == 1) {
                    *to++ = *position; // belongs to no well-formed sequence: kept as it is
                } else {
                    to = write(decoded.value, position, to);
                }
                position += decoded.length;
            }
        }
        result.commit(to);
    }
}

const QuickMapping &quickUppercase() {
    static const QuickMapping mapping{
        TwoByteMappings([](char32_t codePoint, char *to) { return writeMapped(uppercase, codePoint, to); }),
        sequence_traits::keepsUppercase};
    return mapping;
}

const QuickMapping &quickLowercase() {
    static const QuickMapping mapping{TwoByteMappings([](char32_t codePoint, char *to) {
                                          const bool dependsOnContext = codePoint == capitalSigma;
                                          return dependsOnContext ? to : writeMapped(lowercase, codePoint, to);
                                      }),
                                      sequence_traits::keepsLowercase};
    return mapping;
}

/// The tables by which a character is inverted that has such code points; null when it is kept.
const CaseTables *inversion(bool changesUp, bool changesDown) {
    if (changesUp == changesDown) { // neither upper nor lower case, or both as in "ǅ"
        return nullptr;
    }
    return changesUp ? &uppercase : &lowercase;
}

/// For characters of one code point.
const QuickMapping &quickInversion() {
    static const QuickMapping mapping{
        TwoByteMappings([](char32_t codePoint, char *to) {
            const CaseTables *const tables = inversion(changes(uppercase, codePoint), changes(lowercase, codePoint));
            return tables == nullptr ? encode(codePoint, to) : writeMapped(*tables, codePoint, to);
        }),
        sequence_traits::keepsUppercase | sequence_traits::keepsLowercase | sequence_traits::standsAlone};
    return mapping;
}

/// Inverts the characters from `position` on, where one begins, as far as they are seen to be single code points that
/// are inverted by their bytes. Moves both places.
void invertQuickly(const char *&position, const char *end, char *&to) {
    const QuickMapping &mapping = quickInversion();
    const auto isAlone = [](const sequence_traits::Sequence &sequence) {
        return (sequence.traits & sequence_traits::standsAlone) != 0;
    };
    const auto beginsCharacter = [&](const char *next) {
        return isAscii(*next) || isAlone(sequence_traits::at(mapping.traits, next));
    };
    while (end - position >= 2 * shortRun) {
        if (isAscii(*position)) {
            const std::ptrdiff_t length = asciiBytesAt(position);
            if (length == shortRun || !beginsCharacter(position + length)) {
                break;
            }
            for (std::ptrdiff_t i = 0; i < shortRun; ++i) {
                to[i] = asciiInverted(position[i]);
            }
            position += length;
            to += length;
        }
        const sequence_traits::Sequence sequence = sequence_traits::at(mapping.traits, position);
        if (!isAlone(sequence) || !beginsCharacter(position + sequence.length)) {
            break;
        }
        char *const behind = mapping.map(sequence, position, to);
        if (behind == nullptr) {
            break;
        }
        position += sequence.length;
        to = behind;
    }
}

} // namespace

void appendUppercase(TextBuffer &to, std::string_view text) {
    appendMapped(to, text, quickUppercase(), asciiUpper, [](char32_t codePoint, const char *, char *place) {
        return writeMapped(uppercase, codePoint, place);
    });
}

void appendLowercase(TextBuffer &to, std::string_view text, std::string_view context) {
    const char *const contextEnd = context.data() + context.size();
    appendMapped(to, text, quickLowercase(), asciiLower, [&](char32_t codePoint, const char *position, char *place) {
        return writeLowercase(codePoint, position, SigmaContext{context.data(), contextEnd}, place);
    });
}

TextBuffer invertCase(std::string_view text) {
    TextBuffer result = TextBuffer::withCapacity(text.size() + longestMapping);
    const char *position = text.data();
    const char *const end = position + text.size();
    while (position != end) {
        // The last of an ASCII run may carry marks; the others are characters of their own, or halves of a CR LF.
        const char *runEnd = asciiRunEnd(position, end);
        runEnd -= runEnd != position && runEnd != end ? 1 : 0;
        const std::ptrdiff_t length = runEnd - position;
        char *to = result.room(static_cast<std::size_t>(length));
        for (std::ptrdiff_t i = 0; i < length; ++i) {
            to[i] = asciiInverted(position[i]);
        }
        result.commit(to + length);
        position = runEnd;
        constexpr std::ptrdiff_t stretch = 4096;
        to = result.room(stretch);
        invertQuickly(position, position + std::min(stretch, end - position), to);
        result.commit(to);
        if (position == end) {
            break;
        }

        const char *first = position;
        bool changesUp = false;
        bool changesDown = false;
        State state = State::begin;
        while (position != end) {
            const DecodedCodePoint decoded = decode(position, end);
            const Transition step = character_breaks::transition(state, decoded.value);
            if (step.isBoundary && position != first) {
                break;
            }
            changesUp = changesUp || changes(uppercase, decoded.value);
            changesDown = changesDown || changes(lowercase, decoded.value);
            state = step.next;
            position += decoded.length;
        }
        const CaseTables *const tables = inversion(changesUp, changesDown);
        if (tables == nullptr) {
            result.append(std::string_view(first, static_cast<std::size_t>(position - first)));
            continue;
        }
        while (first != position) {
            const DecodedCodePoint decoded = decode(first, position);
            if (decoded.length == 1 && !isAscii(*first)) {
                result.append(*first);
            } else {
                result.commit(writeMapped(*tables, decoded.value, result.room(longestMapping)));
            }
            first += decoded.length;
        }
    }
    return result;
}

TextBuffer alternateCase(std::string_view text) {
    TextBuffer result;
    bool isUppersTurn = true;
    State state = State::begin;
    const CaseTables *tables = nullptr; // of the character that is being written; null keeps it
    constexpr std::ptrdiff_t stretch = 4096;
    static_cast<void>(result.room(text.size() + stretch * longestMapping));
    const char *position = text.data();
    const char *const end = position + text.size();
    while (position != end) {
        const char *const stretchEnd = position + std::min(stretch, end - position);
        char *to = result.room(static_cast<std::size_t>(stretch) * longestMapping);
        while (position < stretchEnd) {
            const DecodedCodePoint decoded = decode(position, end);
            if (character_breaks::pass(state, position, end).isBoundary) {
                tables = nullptr;
                if (isIn(property::letter, decoded.value)) {
                    tables = isUppersTurn ? &uppercase : &lowercase;
                    isUppersTurn = !isUppersTurn;
                }
            }
            if (tables == nullptr || (decoded.length == 1 && !isAscii(*position))) {
                std::memcpy(to, position, decoded.length);
                to += decoded.length;
            } else {
                to = writeMapped(*tables, decoded.value, to);
            }
            position += decoded.length;
            if (state == State::other && decoded.length == 1) {
                // Behind a plain ASCII character, and up to the last one, which may carry marks, nothing joins.
                const char *runEnd = asciiRunEnd(position, stretchEnd);
                runEnd -= runEnd != position ? 1 : 0;
                const std::size_t written = kernels::best().alternateCase(
                    position, static_cast<std::size_t>(runEnd - position), isUppersTurn, to);
                position += written;
                to += written;
                for (; position != runEnd; ++position) {
                    const bool isLetter = isAsciiLetter(*position);
                    const int lowerBit = isUppersTurn ? 0 : 0x20;
                    *to++ = isLetter ? static_cast<char>((*position & ~0x20) | lowerBit) : *position;
                    isUppersTurn = isUppersTurn != isLetter;
                }
            }
        }
        result.commit(to);
    }
    result.shrink();
    return result;
}

} // namespace lexivore
