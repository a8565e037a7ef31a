// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Plain ASCII is looked at in blocks of 64 bytes, one bit a byte. Where a block holds anything else, its code points
// are taken one by one; the characters of such a stretch are counted by the engine.
#include "ui/editor/text_counts.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/utf8.h"

#include <bit>
#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace lexivore {

namespace {

constexpr std::ptrdiff_t blockBytes = 64;

/// One bit for each byte of a block, the first byte lowest.
struct BlockBits {
    std::uint64_t beyondAscii = 0;
    std::uint64_t spaces = 0; ///< Newlines included.
    std::uint64_t newlines = 0;
    std::uint64_t lineFeeds = 0;
    std::uint64_t carriageReturns = 0;
};

#ifdef __SSE2__
BlockBits bitsOf(const char *block) {
    BlockBits bits;
    for (int part = 0; part < 4; ++part) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(block) + part);
        const auto mask = [part](__m128i matches) {
            return std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(matches))} << (16 * part);
        };
        const auto inRange = [&bytes](char from, char width) {
            const __m128i distance = _mm_sub_epi8(bytes, _mm_set1_epi8(from));
            return _mm_cmpeq_epi8(_mm_min_epu8(distance, _mm_set1_epi8(width)), distance);
        };
        const __m128i isNewline = inRange('\n', 3);
        const __m128i isSpace = _mm_or_si128(inRange('\t', 4), _mm_cmpeq_epi8(bytes, _mm_set1_epi8(' ')));
        bits.beyondAscii |= mask(bytes);
        bits.spaces |= mask(isSpace);
        bits.newlines |= mask(isNewline);
        bits.lineFeeds |= mask(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n')));
        bits.carriageReturns |= mask(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\r')));
    }
    return bits;
}
#else
BlockBits bitsOf(const char *block) {
    BlockBits bits;
    for (int i = 0; i < blockBytes; ++i) {
        const auto mask = [i](bool matches) { return std::uint64_t{matches ? 1U : 0U} << i; };
        const char byte = block[i];
        const bool isNewline = byte >= '\n' && byte <= '\r';
        bits.beyondAscii |= mask(!isAscii(byte));
        bits.newlines |= mask(isNewline);
        bits.spaces |= mask(isNewline || byte == '\t' || byte == ' ');
        bits.lineFeeds |= mask(byte == '\n');
        bits.carriageReturns |= mask(byte == '\r');
    }
    return bits;
}
#endif

std::size_t ones(std::uint64_t bits) { return static_cast<std::size_t>(std::popcount(bits)); }

/// Counts all but the characters, from left to right.
class Counter {
public:
    void addBlock(const BlockBits &bits) {
        const std::uint64_t inWord = ~bits.spaces;
        m_counts.words += ones(inWord & ~((inWord << 1) | (m_inWord ? 1U : 0U)));
        m_inWord = (inWord >> 63) != 0;
        if (bits.newlines != 0) {
            m_counts.newlines += ones(bits.newlines);
            m_counts.lineFeeds += ones(bits.lineFeeds);
            m_counts.carriageReturns += ones(bits.carriageReturns);
            m_counts.pairs += ones(bits.lineFeeds & ((bits.carriageReturns << 1) | (m_afterReturn ? 1U : 0U)));
        }
        m_afterReturn = (bits.carriageReturns >> 63) != 0;
        m_counts.units += blockBytes;
    }

    void addCodePoint(DecodedCodePoint decoded) {
        const CodePointSet properties = codePointProperties(decoded.value);
        const bool inWord = (properties & whitespaceAndNewlines) == 0;
        m_counts.words += inWord && !m_inWord ? 1U : 0U;
        m_inWord = inWord;
        m_counts.newlines += (properties & property::newline) != 0 ? 1U : 0U;
        m_counts.lineFeeds += decoded.value == U'\n' ? 1U : 0U;
        m_counts.pairs += decoded.value == U'\n' && m_afterReturn ? 1U : 0U;
        m_afterReturn = decoded.value == U'\r';
        m_counts.carriageReturns += m_afterReturn ? 1U : 0U;
        m_counts.units += decoded.value >= 0x10000 ? 2U : 1U;
        m_isAscii = m_isAscii && decoded.length == 1 && decoded.value < 0x80;
    }

    [[nodiscard]] TextCounts counts(std::string_view stretch) const {
        TextCounts counts = m_counts;
        counts.bytes = stretch.size();
        counts.breaks = counts.newlines - counts.pairs;
        counts.lineFeeds -= counts.pairs;
        counts.carriageReturns -= counts.pairs;
        counts.characters = m_isAscii ? counts.bytes - counts.pairs : characterCount(stretch);
        return counts;
    }

private:
    TextCounts m_counts;
    bool m_inWord = false;
    bool m_afterReturn = false;
    bool m_isAscii = true;
};

bool isInWord(char32_t codePoint) { return !isIn(whitespaceAndNewlines, codePoint); }

} // namespace

TextCounts &TextCounts::operator+=(const TextCounts &other) {
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

TextCounts &TextCounts::operator-=(const TextCounts &other) {
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

TextCounts countsOf(std::string_view stretch) {
    Counter counter;
    const char *position = stretch.data();
    const char *const end = position + stretch.size();
    while (position != end) {
        const char *limit = end;
        if (end - position >= blockBytes) {
            const BlockBits bits = bitsOf(position);
            if (bits.beyondAscii == 0) {
                counter.addBlock(bits);
                position += blockBytes;
                continue;
            }
            limit = position + blockBytes;
        }
        while (position < limit) {
            const DecodedCodePoint decoded = decode(position, end);
            counter.addCodePoint(decoded);
            position += decoded.length;
        }
    }
    return counter.counts(stretch);
}

bool beginsInWord(std::string_view stretch) {
    return !stretch.empty() && isInWord(decode(stretch.data(), stretch.data() + stretch.size()).value);
}

bool endsInWord(std::string_view stretch) {
    return !stretch.empty() && isInWord(decodeBefore(stretch.data(), stretch.data() + stretch.size()).value);
}

} // namespace lexivore
