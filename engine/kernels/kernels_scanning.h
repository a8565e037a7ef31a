// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

// The kernels that look for bytes. See kernels_body.h.

#include "engine/kernels/kernels_vectors.h"

namespace lexivore::kernels {

namespace {

std::size_t asciiPrefix(const char *from, std::size_t size) {
    std::size_t position = 0;
    for (; size - position >= blockSize; position += blockSize) {
        const std::uint64_t nonAscii = highBits(load(from + position));
        if (nonAscii != 0) {
            return position + firstBit(nonAscii);
        }
    }
    while (position < size && static_cast<signed char>(from[position]) >= 0) {
        ++position;
    }
    return position;
}

/// All bits of a byte where the ASCII set has a member.
#ifdef __AVX2__
class SetMatcher {
public:
    explicit SetMatcher(const AsciiSet &set) {
        const __m128i rows = _mm_loadu_si128(reinterpret_cast<const __m128i *>(set.rows));
        m_rows = _mm256_broadcastsi128_si256(rows);
        // The bit of each high nibble; bytes outside ASCII have none.
        m_bits = _mm256_setr_epi8(1, 2, 4, 8, 16, 32, 64, -128, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 4, 8, 16, 32, 64, -128, 0,
                                  0, 0, 0, 0, 0, 0, 0);
    }
    [[nodiscard]] std::uint64_t match(const char *from) const {
        return half(from) | std::uint64_t{half(from + 32)} << 32;
    }

private:
    [[nodiscard]] std::uint32_t half(const char *from) const {
        const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i *>(from));
        const __m256i nibble = _mm256_set1_epi8(0x0F);
        const __m256i row = _mm256_shuffle_epi8(m_rows, _mm256_and_si256(bytes, nibble));
        const __m256i bit = _mm256_shuffle_epi8(m_bits, _mm256_and_si256(_mm256_srli_epi16(bytes, 4), nibble));
        const __m256i absent = _mm256_cmpeq_epi8(_mm256_and_si256(row, bit), _mm256_setzero_si256());
        return ~static_cast<std::uint32_t>(_mm256_movemask_epi8(absent));
    }
    __m256i m_rows;
    __m256i m_bits;
};
#else
class SetMatcher {
public:
    explicit SetMatcher(const AsciiSet &set) {
        for (unsigned byte = 0; byte < 128; ++byte) {
            m_isMember[byte] = static_cast<std::uint8_t>(set.rows[byte & 0x0FU] >> (byte >> 4) & 1U);
        }
    }
    [[nodiscard]] std::uint64_t match(const char *from) const {
        std::uint64_t mask = 0;
        for (std::size_t i = 0; i < blockSize; ++i) {
            mask |= std::uint64_t{m_isMember[static_cast<unsigned char>(from[i])]} << i;
        }
        return mask;
    }

private:
    std::uint8_t m_isMember[256] = {};
};
#endif

void classify(const char *from, std::size_t blocks, const ByteClass &byteClass, std::uint64_t *members,
              std::uint64_t *candidates) {
    const SetMatcher matcher(byteClass.ascii);
    for (std::size_t block = 0; block < blocks; ++block) {
        const char *const place = from + block * blockSize;
        members[block] = matcher.match(place);
        const Bytes bytes = load(place);
        std::uint64_t candidate = highBits(bytes);
        if (candidate != 0 && !byteClass.takesEveryNonAsciiByte) {
            candidate = bitsOf((bytes == all(byteClass.leads[0])) | (bytes == all(byteClass.leads[1])) |
                               (bytes == all(byteClass.leads[2])) | (bytes == all(byteClass.leads[3])));
        }
        candidates[block] = candidate;
    }
}

void findCounted(const char *from, std::size_t blocks, CountedBytes *found) {
    for (std::size_t block = 0; block < blocks; ++block) {
        const Bytes bytes = load(from + block * blockSize);
        const std::uint64_t nonAscii = highBits(bytes);
        found[block] = {
            .blanks = bitsOf((bytes == all(' ')) | (bytes == all('\t'))),
            .newlines = bitsInRange(bytes, '\n', 4),
            .lineFeeds = bitsOf(bytes == all('\n')),
            .carriageReturns = bitsOf(bytes == all('\r')),
            .sentenceEnds = bitsOf((bytes == all('.')) | (bytes == all('!')) | (bytes == all('?'))),
            .nonAscii = nonAscii,
            .spaceLeads = nonAscii == 0 ? 0 : bitsOf((bytes == all(0xC2)) | (bytes - 0xE1 < all(3))),
        };
    }
}

std::size_t countBits(const std::uint64_t *masks, std::size_t size) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < size; ++i) {
        count += static_cast<std::size_t>(__builtin_popcountll(masks[i]));
    }
    return count;
}

/// Looks for the first and the last byte of the pattern at once, which in real texts leaves few places to compare.
std::size_t find(const char *text, std::size_t size, const char *pattern, std::size_t patternSize, bool &gaveUp) {
    constexpr std::size_t bytesToCompare = 1U << 16;
    std::size_t compared = 0;
    gaveUp = false;
    if (size < patternSize) {
        return size;
    }
    const std::size_t lastOffset = patternSize - 1;
    const Bytes first = all(static_cast<unsigned char>(pattern[0]));
    const Bytes last = all(static_cast<unsigned char>(pattern[lastOffset]));
    const std::size_t places = size - lastOffset;
    std::size_t position = 0;
    for (; places - position >= blockSize; position += blockSize) {
        const char *const place = text + position;
        std::uint64_t candidates = bitsOf((load(place) == first) & (load(place + lastOffset) == last));
        for (; candidates != 0; candidates &= candidates - 1) {
            const std::size_t candidate = position + firstBit(candidates);
            if (__builtin_memcmp(text + candidate, pattern, patternSize) == 0) {
                return candidate;
            }
            compared += patternSize;
            if (compared > bytesToCompare + position) {
                gaveUp = true;
                return candidate;
            }
        }
    }
    for (; position < places; ++position) {
        if (text[position] == pattern[0] && __builtin_memcmp(text + position, pattern, patternSize) == 0) {
            return position;
        }
        compared += patternSize;
        if (compared > bytesToCompare + position + patternSize * blockSize) {
            gaveUp = true;
            return position;
        }
    }
    return size;
}

} // namespace

} // namespace lexivore::kernels
