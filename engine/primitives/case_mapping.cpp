// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/case_mapping.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/case_writing.h"
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/unicode_tables.h"
#include "engine/primitives/utf8.h"

#include <algorithm>
#include <cstring>

namespace lexivore {

using character_breaks::State;
using character_breaks::Transition;
using unicode_tables::CaseTables;

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

/// Maps [position, end) in stretches, each with room for the longest result: an ASCII run with `mapAscii`, every other
/// code point with `write(codePoint, position, to)`, which returns the place behind what it wrote.
template<typename MapAscii, typename Write>
void appendMapped(TextBuffer &result, const char *position, const char *end, MapAscii mapAscii, Write write) {
    constexpr std::ptrdiff_t stretch = 4096;
    const auto size = static_cast<std::size_t>(end - position);
    static_cast<void>(result.room(size + std::min<std::size_t>(size, stretch) * longestMapping));
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
            if (position != stretchEnd) {
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

} // namespace

void appendUppercase(TextBuffer &to, std::string_view text) {
    appendMapped(to, text.data(), text.data() + text.size(), asciiUpper,
                 [](char32_t codePoint, const char *, char *place) {
                     return writeMapped(unicode_tables::uppercase, codePoint, place);
                 });
}

void appendLowercase(TextBuffer &to, std::string_view text, std::string_view context) {
    const char *const contextEnd = context.data() + context.size();
    appendMapped(to, text.data(), text.data() + text.size(), asciiLower,
                 [&](char32_t codePoint, const char *position, char *place) {
                     return writeLowercase(codePoint, position, SigmaContext{context.data(), contextEnd}, place);
                 });
}

TextBuffer invertCase(std::string_view text) {
    using unicode_tables::lowercase;
    using unicode_tables::uppercase;
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
        if (changesUp == changesDown) { // neither upper nor lower case, or both as in "ǅ"
            result.append(std::string_view(first, static_cast<std::size_t>(position - first)));
            continue;
        }
        const CaseTables &tables = changesUp ? uppercase : lowercase;
        while (first != position) {
            const DecodedCodePoint decoded = decode(first, position);
            if (decoded.length == 1 && !isAscii(*first)) {
                result.append(*first);
            } else {
                result.commit(writeMapped(tables, decoded.value, result.room(longestMapping)));
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
            const Transition step = character_breaks::transition(state, decoded.value);
            state = step.next;
            if (step.isBoundary) {
                tables = nullptr;
                if (isIn(property::letter, decoded.value)) {
                    tables = isUppersTurn ? &unicode_tables::uppercase : &unicode_tables::lowercase;
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
