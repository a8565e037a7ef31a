// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/stretch_counts.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/utf8.h"
#include "engine/primitives/words.h"

#include <algorithm>
#include <cstdint>

namespace lexivore {

namespace {

/// UTF-16 code units: one for each code point, two for those of four bytes.
std::size_t unitsOf(std::string_view stretch) {
    const char *position = stretch.data();
    const char *const end = position + stretch.size();
    if (asciiRunEnd(position, end) == end) {
        return stretch.size();
    }
    std::size_t units = 0;
    while (position != end) {
        // A sum in bytes over a short stretch is what the compiler turns into vector code.
        const char *const limit = position + std::min<std::ptrdiff_t>(end - position, 127);
        std::uint8_t sum = 0;
        for (; position != limit; ++position) {
            const auto byte = static_cast<unsigned char>(*position);
            sum = static_cast<std::uint8_t>(sum + ((byte & 0xC0U) != 0x80U) + (byte >= 0xF0U));
        }
        units += sum;
    }
    return units;
}

void countNewlines(std::string_view stretch, StretchCounts &counts) {
    const char *position = stretch.data();
    const char *const end = position + stretch.size();
    const char *behindReturn = nullptr;
    while (true) {
        const NewlineMatch newline = findNewline(position, end);
        if (newline.length == 0) {
            break;
        }
        ++counts.newlines;
        position = newline.position + newline.length;
        if (*newline.position == '\r') {
            ++counts.carriageReturns;
            behindReturn = position;
        } else if (*newline.position == '\n') {
            (newline.position == behindReturn ? counts.pairs : counts.lineFeeds) += 1;
        }
    }
    counts.carriageReturns -= counts.pairs;
    counts.breaks = counts.newlines - counts.pairs;
}

bool isInWord(char32_t codePoint) { return !isIn(whitespaceAndNewlines, codePoint); }

} // namespace

StretchCounts &StretchCounts::operator+=(const StretchCounts &other) {
    bytes += other.bytes;
    units += other.units;
    characters += other.characters;
    words += other.words;
    newlines += other.newlines;
    breaks += other.breaks;
    lineFeeds += other.lineFeeds;
    carriageReturns += other.carriageReturns;
    pairs += other.pairs;
    return *this;
}

StretchCounts &StretchCounts::operator-=(const StretchCounts &other) {
    bytes -= other.bytes;
    units -= other.units;
    characters -= other.characters;
    words -= other.words;
    newlines -= other.newlines;
    breaks -= other.breaks;
    lineFeeds -= other.lineFeeds;
    carriageReturns -= other.carriageReturns;
    pairs -= other.pairs;
    return *this;
}

StretchCounts countsOf(std::string_view stretch) {
    StretchCounts counts;
    counts.bytes = stretch.size();
    counts.units = unitsOf(stretch);
    counts.characters = characterCount(stretch);
    counts.words = pieceCount(stretch, whitespaceAndNewlines);
    countNewlines(stretch, counts);
    return counts;
}

bool beginsInWord(std::string_view stretch) {
    return !stretch.empty() && isInWord(decode(stretch.data(), stretch.data() + stretch.size()).value);
}

bool endsInWord(std::string_view stretch) {
    return !stretch.empty() && isInWord(decodeBefore(stretch.data(), stretch.data() + stretch.size()).value);
}

} // namespace lexivore
