// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

// The kernels that check and convert encodings. See kernels_body.h.

#include "engine/kernels/kernels_vectors.h"

namespace lexivore::kernels {

namespace {

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

#ifdef __AVX2__
// After Wojciech Muła and Daniel Lemire, "Faster Base64 Encoding and Decoding Using AVX2 Instructions" (2018).

/// The same 16 bytes in both halves.
inline __m256i inBothHalves(const char *bytes) {
    __m128i half;
    __builtin_memcpy(&half, bytes, sizeof half);
    return _mm256_broadcastsi128_si256(half);
}

std::size_t encodeBase64(const char *from, std::size_t size, char *to) {
    constexpr std::size_t bytesRead = 28;
    constexpr std::size_t bytesAtOnce = 24;
    constexpr char spread[] = {1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10};
    // What is added to each kind of digit: small letters, ten digits, "+", "/", capitals.
    constexpr char offsets[] = {'a' - 26, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52,
                                '0' - 52, '0' - 52, '0' - 52, '+' - 62, '/' - 63, 'A',      0,        0};
    std::size_t position = 0;
    for (; size - position >= bytesRead; position += bytesAtOnce) {
        __m128i halves[2];
        __builtin_memcpy(&halves[0], from + position, sizeof halves[0]);
        __builtin_memcpy(&halves[1], from + position + bytesAtOnce / 2, sizeof halves[1]);
        const __m256i groups = _mm256_shuffle_epi8(_mm256_set_m128i(halves[1], halves[0]),
                                                   inBothHalves(spread)); // three bytes in each four
        const __m256i odd =
            _mm256_mulhi_epu16(_mm256_and_si256(groups, _mm256_set1_epi32(0x0FC0FC00)), _mm256_set1_epi32(0x04000040));
        const __m256i even =
            _mm256_mullo_epi16(_mm256_and_si256(groups, _mm256_set1_epi32(0x003F03F0)), _mm256_set1_epi32(0x01000010));
        const __m256i values = _mm256_or_si256(odd, even);
        const __m256i isCapital = _mm256_cmpgt_epi8(_mm256_set1_epi8(26), values);
        const __m256i kinds = _mm256_or_si256(_mm256_subs_epu8(values, _mm256_set1_epi8(51)),
                                              _mm256_and_si256(isCapital, _mm256_set1_epi8(13)));
        const __m256i digits = _mm256_add_epi8(_mm256_shuffle_epi8(inBothHalves(offsets), kinds), values);
        __builtin_memcpy(to + position / 3 * 4, &digits, sizeof digits);
    }
    return position;
}

std::size_t decodeBase64(const char *from, std::size_t size, char *to) {
    // A digit is invalid when the rows of its two nibbles share a bit.
    constexpr char byLowNibble[] = {0x15, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11,
                                    0x11, 0x11, 0x13, 0x1A, 0x1B, 0x1B, 0x1B, 0x1A};
    constexpr char byHighNibble[] = {0x10, 0x10, 0x01, 0x02, 0x04, 0x08, 0x04, 0x08,
                                     0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10};
    constexpr char offsets[] = {0, 16, 19, 4, -65, -65, -71, -71, 0, 0, 0, 0, 0, 0, 0, 0};
    constexpr char gathered[] = {2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1};
    std::size_t position = 0;
    for (; size - position >= sizeof(__m256i); position += sizeof(__m256i)) {
        __m256i digits;
        __builtin_memcpy(&digits, from + position, sizeof digits);
        const __m256i nibble = _mm256_set1_epi8(0x0F);
        const __m256i highNibbles = _mm256_and_si256(_mm256_srli_epi32(digits, 4), nibble);
        const __m256i high = _mm256_shuffle_epi8(inBothHalves(byHighNibble), highNibbles);
        const __m256i low = _mm256_shuffle_epi8(inBothHalves(byLowNibble), _mm256_and_si256(digits, nibble));
        if (_mm256_testz_si256(high, low) == 0) {
            break;
        }
        const __m256i isSlash = _mm256_cmpeq_epi8(digits, _mm256_set1_epi8('/'));
        const __m256i offset = _mm256_shuffle_epi8(inBothHalves(offsets), _mm256_add_epi8(isSlash, highNibbles));
        const __m256i values = _mm256_add_epi8(digits, offset);
        const __m256i pairs = _mm256_maddubs_epi16(values, _mm256_set1_epi32(0x01400140));
        const __m256i quanta = _mm256_madd_epi16(pairs, _mm256_set1_epi32(0x00011000));
        const __m256i bytes = _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(quanta, inBothHalves(gathered)),
                                                          _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 7, 7));
        __builtin_memcpy(to + position / 4 * 3, &bytes, sizeof bytes);
    }
    return position;
}
#else
std::size_t encodeBase64(const char *, std::size_t, char *) { return 0; }

std::size_t decodeBase64(const char *, std::size_t, char *) { return 0; }
#endif

} // namespace

} // namespace lexivore::kernels
