// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

// Vectors of 64 bytes, and what the kernels do with one of them. See kernels_body.h.

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

/// One bit for each byte from `first` to `first + count - 1`.
inline std::uint64_t bitsInRange(Bytes bytes, unsigned first, unsigned count) {
    return bitsOf(bytes - static_cast<std::uint8_t>(first) < all(count));
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

} // namespace

} // namespace lexivore::kernels
