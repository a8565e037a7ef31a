// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

// The kernels that write text. See kernels_body.h.

#include "engine/kernels/kernels_vectors.h"

namespace lexivore::kernels {

namespace {

std::size_t compress(const char *from, std::size_t blocks, const std::uint64_t *keep, char *to) {
    char *const begin = to;
    for (std::size_t block = 0; block < blocks; ++block) {
        to = compressBlock(from + block * blockSize, keep[block], to);
    }
    return static_cast<std::size_t>(to - begin);
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

/// The bytes of a block in reverse order.
inline Bytes reversed(Bytes bytes) {
#if defined(__AVX512VBMI__)
    return __builtin_shuffle(bytes, Bytes{63, 62, 61, 60, 59, 58, 57, 56, 55, 54, 53, 52, 51, 50, 49, 48,
                                          47, 46, 45, 44, 43, 42, 41, 40, 39, 38, 37, 36, 35, 34, 33, 32,
                                          31, 30, 29, 28, 27, 26, 25, 24, 23, 22, 21, 20, 19, 18, 17, 16,
                                          15, 14, 13, 12, 11, 10, 9,  8,  7,  6,  5,  4,  3,  2,  1,  0});
#else
    std::uint64_t words[8];
    __builtin_memcpy(words, &bytes, sizeof words);
    const std::uint64_t turned[8] = {__builtin_bswap64(words[7]), __builtin_bswap64(words[6]),
                                     __builtin_bswap64(words[5]), __builtin_bswap64(words[4]),
                                     __builtin_bswap64(words[3]), __builtin_bswap64(words[2]),
                                     __builtin_bswap64(words[1]), __builtin_bswap64(words[0])};
    Bytes result;
    __builtin_memcpy(&result, turned, sizeof result);
    return result;
#endif
}

void reverse(const char *from, std::size_t size, char *to) {
    std::size_t left = size;
    for (; left >= blockSize; left -= blockSize) {
        store(reversed(load(from + left - blockSize)), to);
        to += blockSize;
    }
    while (left > 0) {
        *to++ = from[--left];
    }
}

} // namespace

} // namespace lexivore::kernels
