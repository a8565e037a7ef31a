// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// The kernels, written once in the compiler's own vectors of 64 bytes, which it divides into what the instruction set
// has. Included by one source file for each instruction set, which is compiled with its own flags and defines
// KERNELS_NAME. Nothing here may call an inline function of another header: the linker could pick a copy of it that
// older processors cannot run.

#include "engine/kernels/kernels.h"

#ifdef __AVX2__
#include <immintrin.h>
#endif

namespace lexivore::kernels {

namespace {

using Bytes = std::uint8_t __attribute__((vector_size(64)));

inline Bytes load(const char *from) {
    Bytes bytes;
    __builtin_memcpy(&bytes, from, sizeof bytes);
    return bytes;
}

inline void store(Bytes bytes, char *to) { __builtin_memcpy(to, &bytes, sizeof bytes); }

inline Bytes all(unsigned value) { return Bytes{} + static_cast<std::uint8_t>(value); }

/// One bit for each byte whose highest bit is set.
inline std::uint64_t highBits(Bytes bytes) {
#if defined(__AVX512BW__)
    __m512i vector;
    __builtin_memcpy(&vector, &bytes, sizeof vector);
    return _mm512_movepi8_mask(vector);
#elif defined(__AVX2__)
    __m256i halves[2];
    __builtin_memcpy(halves, &bytes, sizeof halves);
    const auto low = static_cast<std::uint32_t>(_mm256_movemask_epi8(halves[0]));
    const auto high = static_cast<std::uint32_t>(_mm256_movemask_epi8(halves[1]));
    return low | std::uint64_t{high} << 32;
#else
    std::uint64_t mask = 0;
    for (unsigned word = 0; word < 8; ++word) {
        std::uint64_t eight = 0;
        for (unsigned i = 0; i < 8; ++i) {
            eight |= std::uint64_t{bytes[word * 8 + i]} << (8 * i);
        }
        // Gathers the highest bits of eight bytes in the top byte.
        mask |= ((eight & 0x8080808080808080U) >> 7) * 0x0102040810204080U >> 56 << (8 * word);
    }
    return mask;
#endif
}

template<typename Comparison> inline std::uint64_t bitsOf(Comparison comparison) {
    Bytes bytes;
    __builtin_memcpy(&bytes, &comparison, sizeof bytes);
    return highBits(bytes);
}

inline std::size_t firstBit(std::uint64_t mask) { return static_cast<std::size_t>(__builtin_ctzll(mask)); }

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

/// One bit for each byte from `first` to `first + count - 1`.
inline std::uint64_t bitsInRange(Bytes bytes, unsigned first, unsigned count) {
    return bitsOf(bytes - static_cast<std::uint8_t>(first) < all(count));
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

#if !defined(__AVX512VBMI2__) && defined(__AVX2__)
/// For each mask of eight bits the places of its set bits: what to shuffle eight bytes with.
struct CompressTable {
    std::uint8_t places[256][8] = {};
    constexpr CompressTable() {
        for (unsigned mask = 0; mask < 256; ++mask) {
            unsigned count = 0;
            for (unsigned bit = 0; bit < 8; ++bit) {
                if ((mask >> bit & 1U) != 0) {
                    places[mask][count++] = static_cast<std::uint8_t>(bit);
                }
            }
        }
    }
};
constexpr CompressTable compressTable;
#endif

/// Writes the bytes of one block that are kept and returns the place behind them.
inline char *compressBlock(const char *from, std::uint64_t keep, char *to) {
    if (keep == ~std::uint64_t{0}) {
        store(load(from), to);
        return to + blockSize;
    }
#if defined(__AVX512VBMI2__)
    _mm512_storeu_si512(to, _mm512_maskz_compress_epi8(keep, _mm512_loadu_si512(from)));
    return to + __builtin_popcountll(keep);
#elif defined(__AVX2__)
    for (unsigned word = 0; word < 8; ++word) {
        const auto mask = static_cast<unsigned>(keep >> (8 * word) & 0xFFU);
        const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i *>(from + 8 * word));
        const __m128i places = _mm_loadl_epi64(reinterpret_cast<const __m128i *>(compressTable.places[mask]));
        _mm_storel_epi64(reinterpret_cast<__m128i *>(to), _mm_shuffle_epi8(bytes, places));
        to += __builtin_popcount(mask);
    }
    return to;
#else
    for (std::size_t i = 0; i < blockSize; ++i) {
        *to = from[i];
        to += keep >> i & 1U;
    }
    return to;
#endif
}

std::size_t compress(const char *from, std::size_t blocks, const std::uint64_t *keep, char *to) {
    char *const begin = to;
    for (std::size_t block = 0; block < blocks; ++block) {
        to = compressBlock(from + block * blockSize, keep[block], to);
    }
    return static_cast<std::size_t>(to - begin);
}

/// All bits of each byte whose bit in the mask is set.
inline Bytes spreadBytes(std::uint64_t mask) {
#if defined(__AVX512BW__)
    const __m512i spread = _mm512_movm_epi8(mask);
    Bytes result;
    __builtin_memcpy(&result, &spread, sizeof result);
    return result;
#elif defined(__AVX2__)
    // Each byte of the mask is copied to the eight bytes it stands for, where one of its bits is looked at.
    const __m256i copies = _mm256_setr_epi8(0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 2, 2, 2, 2, 2, 2, 2, 2, 3,
                                            3, 3, 3, 3, 3, 3, 3);
    const __m256i bits = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201U));
    __m256i halves[2];
    for (unsigned half = 0; half < 2; ++half) {
        const __m256i spread = _mm256_shuffle_epi8(
            _mm256_set1_epi32(static_cast<int>(static_cast<std::uint32_t>(mask >> (32 * half)))), copies);
        halves[half] = _mm256_cmpeq_epi8(_mm256_and_si256(spread, bits), bits);
    }
    Bytes result;
    __builtin_memcpy(&result, halves, sizeof result);
    return result;
#else
    Bytes result;
    for (unsigned i = 0; i < blockSize; ++i) {
        result[i] = static_cast<std::uint8_t>(0U - (mask >> i & 1U));
    }
    return result;
#endif
}

/// The bit in which upper and lower case of a letter differ, in each byte whose bit in the mask is set.
inline Bytes caseBitWhere(std::uint64_t mask) { return spreadBytes(mask) & 0x20; }

/// The bits of `within` that can be reached from those of `from`, a part of it, by going up without a gap.
inline std::uint64_t fillUpwards(std::uint64_t from, std::uint64_t within) {
    for (unsigned step = 1; step < 64; step *= 2) {
        from |= within & from << step;
        within &= within << step;
    }
    return from;
}

std::size_t caseWords(const char *from, std::size_t size, const WordCaseRules &rules, WordCaseState &state, char *&to) {
    std::size_t position = 0;
    for (; size - position > blockSize && static_cast<signed char>(from[position + blockSize]) >= 0;
         position += blockSize) {
        const Bytes bytes = load(from + position);
        if (highBits(bytes) != 0) {
            break;
        }
        const std::uint64_t letters = bitsInRange(bytes | 0x20, 'a', 26);
        const std::uint64_t capitals = letters & ~highBits(bytes << 2); // bit 5 is clear
        const std::uint64_t alphanumerics = letters | bitsInRange(bytes, '0', 10);
        std::uint64_t words = alphanumerics;
        if (rules.joinsOverApostrophe) {
            const std::uint64_t apostrophes = bitsOf(bytes == all('\''));
            if (apostrophes != 0) {
                const char next = from[position + blockSize];
                const bool isNextAlphanumeric =
                    static_cast<unsigned char>((next | 0x20) - 'a') < 26 || static_cast<unsigned char>(next - '0') < 10;
                words |= apostrophes & (alphanumerics << 1 | (state.isBehindAlphanumeric ? 1U : 0U)) &
                         (alphanumerics >> 1 | std::uint64_t{isNextAlphanumeric} << 63);
            }
        }
        std::uint64_t changed = capitals;
        if (rules.capitalizes) {
            const std::uint64_t carried = state.isBehindLetter && state.isInWord ? 1U : 0U;
            const std::uint64_t reached = fillUpwards(letters | (carried & words), words);
            const std::uint64_t isLater = (reached << 1 | carried) & words;
            changed = (letters & ~capitals & ~isLater) | (capitals & isLater);
            state.isBehindLetter = reached >> 63 != 0;
        }
        Bytes result = bytes ^ caseBitWhere(changed);
        if (rules.dropsSeparators) {
            std::uint64_t keep = words;
            if (rules.joiner != '\0') {
                const std::uint64_t firstSeparators = ~words & (words << 1 | (state.isInWord ? 1U : 0U));
                keep |= firstSeparators;
                // A separator is no letter, so that whatever it is becomes the joiner.
                const auto isSeparator = spreadBytes(~words);
                result = (result & ~isSeparator) | (isSeparator & static_cast<std::uint8_t>(rules.joiner));
            }
            char block[blockSize];
            store(result, block);
            to = compressBlock(block, keep, to);
        } else {
            store(result, to);
            to += blockSize;
        }
        state.isInWord = words >> 63 != 0;
        state.isBehindAlphanumeric = alphanumerics >> 63 != 0;
    }
    return position;
}

std::size_t alternateCase(const char *from, std::size_t size, bool &isUppersTurn, char *to) {
    std::size_t position = 0;
    for (; size - position >= blockSize; position += blockSize) {
        const Bytes bytes = load(from + position);
        if (highBits(bytes) != 0) {
            break;
        }
        const std::uint64_t letters = bitsInRange(bytes | 0x20, 'a', 26);
        const std::uint64_t capitals = letters & ~highBits(bytes << 2);
        // The parity of the number of letters up to each byte; before it, the parity without the byte itself.
        std::uint64_t parity = letters;
        for (unsigned step = 1; step < 64; step *= 2) {
            parity ^= parity << step;
        }
        const std::uint64_t isLowersTurn = parity ^ letters ^ (isUppersTurn ? 0 : ~std::uint64_t{0});
        store(bytes ^ caseBitWhere((letters & ~isLowersTurn & ~capitals) | (capitals & isLowersTurn)), to + position);
        isUppersTurn = isUppersTurn != (parity >> 63 != 0);
    }
    return position;
}

std::size_t compressReplacing(const char *from, std::size_t blocks, const std::uint64_t *keep,
                              const std::uint64_t *replaced, char replacement, char *to) {
    char *const begin = to;
    const auto replacing = static_cast<std::uint8_t>(replacement);
    for (std::size_t block = 0; block < blocks; ++block) {
        const Bytes isReplaced = spreadBytes(replaced[block]);
        char bytes[blockSize];
        store((load(from + block * blockSize) & ~isReplaced) | (isReplaced & replacing), bytes);
        to = compressBlock(bytes, keep[block], to);
    }
    return static_cast<std::size_t>(to - begin);
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

#ifdef __AVX2__
// After John Keiser and Daniel Lemire, "Validating UTF-8 In Less Than One Instruction Per Byte" (2020): three table
// look-ups on the nibbles of each byte and the one before find every error that two bytes can show; that longer
// sequences have all their bytes is checked beside it.
class Utf8Checker {
public:
    void check(const char *from) {
        check(_mm256_loadu_si256(reinterpret_cast<const __m256i *>(from)));
        check(_mm256_loadu_si256(reinterpret_cast<const __m256i *>(from + 32)));
    }
    /// Behind the end, which counts as ASCII.
    [[nodiscard]] bool isValid() {
        check(_mm256_setzero_si256());
        return _mm256_testz_si256(m_error, m_error) != 0;
    }

private:
    template<int count> [[nodiscard]] __m256i shifted(__m256i bytes) const {
        return _mm256_alignr_epi8(bytes, _mm256_permute2x128_si256(m_before, bytes, 0x21), 16 - count);
    }

    void check(__m256i bytes) {
        constexpr char tooShort = 1 << 0;
        constexpr char tooLong = 1 << 1;
        constexpr char overlong3 = 1 << 2;
        constexpr char tooLarge = 1 << 3;
        constexpr char surrogate = 1 << 4;
        constexpr char overlong2 = 1 << 5;
        constexpr char tooLarge1000 = 1 << 6;
        constexpr char overlong4 = 1 << 6;
        constexpr char twoContinuations = static_cast<char>(1 << 7);
        constexpr char carry = static_cast<char>(tooShort | tooLong | twoContinuations);
        const auto twice = [](char a, char b, char c, char d, char e, char f, char g, char h, char i, char j, char k,
                              char l, char m, char n, char o, char p) {
            return _mm256_setr_epi8(a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, a, b, c, d, e, f, g, h, i, j, k, l,
                                    m, n, o, p);
        };
        const __m256i byHighNibbleBefore =
            twice(tooLong, tooLong, tooLong, tooLong, tooLong, tooLong, tooLong, tooLong, twoContinuations,
                  twoContinuations, twoContinuations, twoContinuations, tooShort | overlong2, tooShort,
                  tooShort | overlong3 | surrogate, static_cast<char>(tooShort | tooLarge | tooLarge1000 | overlong4));
        const __m256i byLowNibbleBefore = twice(
            static_cast<char>(carry | overlong3 | overlong2 | overlong4), static_cast<char>(carry | overlong2), carry,
            carry, static_cast<char>(carry | tooLarge), static_cast<char>(carry | tooLarge | tooLarge1000),
            static_cast<char>(carry | tooLarge | tooLarge1000), static_cast<char>(carry | tooLarge | tooLarge1000),
            static_cast<char>(carry | tooLarge | tooLarge1000), static_cast<char>(carry | tooLarge | tooLarge1000),
            static_cast<char>(carry | tooLarge | tooLarge1000), static_cast<char>(carry | tooLarge | tooLarge1000),
            static_cast<char>(carry | tooLarge | tooLarge1000),
            static_cast<char>(carry | tooLarge | tooLarge1000 | surrogate),
            static_cast<char>(carry | tooLarge | tooLarge1000), static_cast<char>(carry | tooLarge | tooLarge1000));
        constexpr char tooShortOnly = tooShort;
        const __m256i byHighNibble =
            twice(tooShortOnly, tooShortOnly, tooShortOnly, tooShortOnly, tooShortOnly, tooShortOnly, tooShortOnly,
                  tooShortOnly,
                  static_cast<char>(tooLong | overlong2 | twoContinuations | overlong3 | tooLarge1000 | overlong4),
                  static_cast<char>(tooLong | overlong2 | twoContinuations | overlong3 | tooLarge),
                  static_cast<char>(tooLong | overlong2 | twoContinuations | surrogate | tooLarge),
                  static_cast<char>(tooLong | overlong2 | twoContinuations | surrogate | tooLarge), tooShortOnly,
                  tooShortOnly, tooShortOnly, tooShortOnly);
        const __m256i nibble = _mm256_set1_epi8(0x0F);
        const auto highNibbles = [&](__m256i of) { return _mm256_and_si256(_mm256_srli_epi16(of, 4), nibble); };
        const __m256i before = shifted<1>(bytes);
        const __m256i special =
            _mm256_and_si256(_mm256_and_si256(_mm256_shuffle_epi8(byHighNibbleBefore, highNibbles(before)),
                                              _mm256_shuffle_epi8(byLowNibbleBefore, _mm256_and_si256(before, nibble))),
                             _mm256_shuffle_epi8(byHighNibble, highNibbles(bytes)));
        const __m256i isThird = _mm256_subs_epu8(shifted<2>(bytes), _mm256_set1_epi8(static_cast<char>(0xE0 - 0x80)));
        const __m256i isFourth = _mm256_subs_epu8(shifted<3>(bytes), _mm256_set1_epi8(static_cast<char>(0xF0 - 0x80)));
        const __m256i mustContinue =
            _mm256_and_si256(_mm256_or_si256(isThird, isFourth), _mm256_set1_epi8(static_cast<char>(0x80)));
        m_error = _mm256_or_si256(m_error, _mm256_xor_si256(mustContinue, special));
        m_before = bytes;
    }

    __m256i m_error = _mm256_setzero_si256();
    __m256i m_before = _mm256_setzero_si256();
};

bool isValidUtf8(const char *text, std::size_t size) {
    Utf8Checker checker;
    std::size_t position = 0;
    bool isBehindAscii = true;
    for (; size - position >= blockSize; position += blockSize) {
        const bool isBlockAscii = highBits(load(text + position)) == 0;
        if (!isBlockAscii || !isBehindAscii) {
            checker.check(text + position);
        }
        isBehindAscii = isBlockAscii;
    }
    if (position != size) {
        char last[blockSize] = {};
        __builtin_memcpy(last, text + position, size - position);
        checker.check(last);
    }
    return checker.isValid();
}
#else
bool isValidUtf8(const char *text, std::size_t size) {
    for (std::size_t position = 0; position < size;) {
        const auto byteAt = [&](std::size_t index) -> unsigned {
            return position + index < size ? static_cast<unsigned char>(text[position + index]) : 0U;
        };
        const auto continues = [&](std::size_t index) { return (byteAt(index) & 0xC0U) == 0x80U; };
        const unsigned lead = byteAt(0);
        const unsigned second = byteAt(1);
        if (lead < 0x80) {
            position += 1;
        } else if (lead >= 0xC2 && lead < 0xE0 && continues(1)) {
            position += 2;
        } else if (lead >= 0xE0 && lead < 0xF0 && continues(1) && continues(2) && (lead != 0xE0 || second >= 0xA0) &&
                   (lead != 0xED || second < 0xA0)) {
            position += 3;
        } else if (lead >= 0xF0 && lead < 0xF5 && continues(1) && continues(2) && continues(3) &&
                   (lead != 0xF0 || second >= 0x90) && (lead != 0xF4 || second < 0x90)) {
            position += 4;
        } else {
            return false;
        }
    }
    return true;
}
#endif

// Written so that the compiler turns the loop into vector code: no branches, one byte type.
void encodeHexadecimal(const char *from, std::size_t size, char *to) {
    const auto digit = [](unsigned value) {
        return static_cast<char>(value + '0' + (value > 9 ? unsigned{'a' - '0' - 10} : 0U));
    };
    for (std::size_t i = 0; i < size; ++i) {
        const auto byte = static_cast<std::uint8_t>(from[i]);
        to[2 * i] = digit(byte >> 4);
        to[2 * i + 1] = digit(byte & 0x0F);
    }
}

bool decodeHexadecimal(const char *from, std::size_t pairs, char *to) {
    std::uint8_t invalid = 0;
    const auto valueOf = [&invalid](char digit) -> std::uint8_t {
        const auto number = static_cast<std::uint8_t>(digit - '0');
        const auto letter = static_cast<std::uint8_t>((digit | 0x20) - 'a');
        const bool isNumber = number < 10;
        const bool isLetter = letter < 6;
        invalid = static_cast<std::uint8_t>(invalid | (isNumber || isLetter ? 0 : 1));
        return static_cast<std::uint8_t>(isNumber ? number : letter + 10);
    };
    for (std::size_t i = 0; i < pairs; ++i) {
        const std::uint8_t high = valueOf(from[2 * i]);
        const std::uint8_t low = valueOf(from[2 * i + 1]);
        to[i] = static_cast<char>(static_cast<std::uint8_t>(high << 4 | low));
    }
    return invalid == 0;
}

} // namespace

} // namespace lexivore::kernels
