// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/lines.h"

#include "engine/primitives/bit_tally.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/words.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace lexivore {

namespace {

/// The newline character that begins exactly at `position`; length 0 when there is none.
NewlineMatch newlineAt(const char *position, const char *end) {
    const auto byte = static_cast<unsigned char>(*position);
    if (byte >= 0x0A && byte <= 0x0D) {
        return {position, 1};
    }
    if (byte == 0xC2 && end - position >= 2 && static_cast<unsigned char>(position[1]) == 0x85) {
        return {position, 2};
    }
    if (byte == 0xE2 && end - position >= 3 && static_cast<unsigned char>(position[1]) == 0x80 &&
        (static_cast<unsigned char>(position[2]) & 0xFEU) == 0xA8) {
        return {position, 3};
    }
    return {position, 0};
}

/// How many bytes before `position` the code point begins that goes on there, if one does.
std::ptrdiff_t bytesOfCodePointBefore(const char *begin, const char *position) {
    for (std::ptrdiff_t bytes = 0; bytes <= std::min<std::ptrdiff_t>(3, position - begin); ++bytes) {
        if (!isContinuationByte(position[-bytes])) {
            return bytes;
        }
    }
    return 0; // there is none that is so long
}

#ifdef __SSE2__
constexpr std::ptrdiff_t blockSize = 16;

/// One bit for each byte of the block that a newline character can begin with.
unsigned candidates(const char *block) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(block));
    const __m128i fromLineFeed = _mm_sub_epi8(bytes, _mm_set1_epi8(0x0A));
    const __m128i isControl = _mm_cmpeq_epi8(_mm_min_epu8(fromLineFeed, _mm_set1_epi8(3)), fromLineFeed);
    const __m128i isLeadOf2 = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(static_cast<char>(0xC2)));
    const __m128i isLeadOf3 = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(static_cast<char>(0xE2)));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(isControl, _mm_or_si128(isLeadOf2, isLeadOf3))));
}
#endif

} // namespace

NewlineMatch findNewline(const char *position, const char *end) {
#ifdef __SSE2__
    for (; end - position >= blockSize; position += blockSize) {
        for (unsigned mask = candidates(position); mask != 0; mask &= mask - 1) {
            const NewlineMatch match = newlineAt(position + std::countr_zero(mask), end);
            if (match.length != 0) {
                return match;
            }
        }
    }
#endif
    for (; position != end; ++position) {
        const NewlineMatch match = newlineAt(position, end);
        if (match.length != 0) {
            return match;
        }
    }
    return {end, 0};
}

bool isLineBegin(const char *textBegin, const char *position) {
    if (position == textBegin) {
        return true;
    }
    const auto last = static_cast<unsigned char>(position[-1]);
    if (last < 0x80) {
        return last >= 0x0A && last <= 0x0D;
    }
    const auto length = static_cast<std::size_t>(position - textBegin);
    return (length >= 2 && newlineAt(position - 2, position).length == 2) ||
           (length >= 3 && newlineAt(position - 3, position).length == 3);
}

const char *lineBeginAt(const char *textBegin, const char *position) {
    while (!isLineBegin(textBegin, position)) {
        --position;
    }
    return position;
}

std::size_t lineCount(std::string_view text) { return memberCount(text, newlines) + 1; }

const char *findNewlineNumber(std::string_view text, std::uint64_t index) {
    MembershipScan scan(text, newlines, MembershipScan::Mark::firstByte);
    for (MembershipScan::Block block; scan.next(block);) {
        const auto count = bitCount(block.members);
        if (index < count) {
            for (; index > 0; --index) {
                block.members &= block.members - 1;
            }
            return block.begin + std::countr_zero(block.members);
        }
        index -= count;
    }
    return text.data() + text.size();
}

const char *findNewlineNumberFromEnd(std::string_view text, std::uint64_t index) {
    constexpr std::size_t bytesAtOnce = 4096;
    const char *const begin = text.data();
    for (const char *end = begin + text.size(); end != begin;) {
        const char *from = end - std::min(bytesAtOnce, static_cast<std::size_t>(end - begin));
        from -= bytesOfCodePointBefore(begin, from);
        const std::string_view part(from, static_cast<std::size_t>(end - from));
        const std::size_t count = memberCount(part, newlines);
        if (index < count) {
            return findNewlineNumber(part, count - 1 - index);
        }
        index -= count;
        end = from;
    }
    return nullptr;
}

std::string_view trimmedSlowly(std::string_view text) {
    const char *end = text.data() + text.size();
    const char *const begin = findNonMember(text.data(), end, whitespace);
    while (end != begin) {
        const DecodedCodePoint last = decodeBefore(begin, end);
        if (!isIn(whitespace, last.value)) {
            break;
        }
        end -= last.length;
    }
    return {begin, static_cast<std::size_t>(end - begin)};
}

bool isBlankSlowly(std::string_view text) {
    const char *const end = text.data() + text.size();
    return findNonMember(text.data(), end, whitespace) == end;
}

} // namespace lexivore
