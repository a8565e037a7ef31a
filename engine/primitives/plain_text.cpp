// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/plain_text.h"

#include "engine/primitives/bit_tally.h"

#include <algorithm>
#include <bit>

namespace lexivore {

using kernels::blockSize;

namespace {

/// Lines up to this width are looked for in 64 bytes at once: there are several of them in these.
constexpr std::size_t widestNarrow = 12;

std::size_t firstBit(std::uint64_t bits) { return static_cast<std::size_t>(std::countr_zero(bits)); }
std::size_t lastBit(std::uint64_t bits) { return static_cast<std::size_t>(std::bit_width(bits) - 1); }

} // namespace

std::size_t PlainText::copy(std::string_view text, char *to) {
    const kernels::PlainPrefix prefix =
        kernels::best().copyPlain(text.data(), std::min(text.size(), mostBytes), &m_spaces[1], m_crLfs.data(), to);
    m_copy = to;
    m_size = prefix.size;
    m_hasCrLfs = prefix.hasCrLfs;
    m_gapsBegin = none;
    m_spaces[1 + (m_size + blockSize - 1) / blockSize] = 0;
    return m_size;
}

std::size_t PlainText::endLines(std::size_t begin, std::size_t room, std::size_t width) {
    return width <= widestNarrow && !m_hasCrLfs ? endLinesThatAre<true>(begin, room, width)
                                                : endLinesThatAre<false>(begin, room, width);
}

template<bool narrow> std::size_t PlainText::endLinesThatAre(std::size_t begin, std::size_t room, std::size_t width) {
    for (std::size_t next = endLine(begin, room); next != none; next = endLine(begin, width)) {
        begin = leaveOutSpaces(next);
        if constexpr (narrow) {
            begin = endNarrowLines(begin, width);
        }
    }
    return begin;
}

std::size_t PlainText::leaveOutSpaces(std::size_t begin) { return isSpace(begin) ? makeGap(begin) : begin; }

/// The same for narrow lines of a text without CR LF, as long as the next one ends in the next 64 bytes. No space
/// stands at `begin`.
std::size_t PlainText::endNarrowLines(std::size_t begin, std::size_t width) {
    const std::uint64_t reach = (std::uint64_t{2} << width) - 1;
    while (begin + blockSize <= m_size) {
        const std::size_t block = begin / blockSize;
        const std::size_t shift = begin % blockSize;
        char *const line = m_copy + begin;
        std::uint64_t spaces = m_spaces[1 + block] >> shift | m_spaces[1 + block + 1] << 1 << (blockSize - 1 - shift);
        std::uint64_t leftOut = 0;
        std::size_t place = 0; // the bits from there on have moved down
        while (place + width < blockSize && spaces != 0) {
            const std::uint64_t inReach = spaces & reach;
            const std::size_t end = inReach != 0 ? lastBit(inReach) : firstBit(spaces);
            line[place + end] = '\n';
            place += end + 1;
            spaces = spaces >> end >> 1;
            const auto count = static_cast<std::size_t>(std::countr_one(spaces));
            leftOut |= ((std::uint64_t{1} << count) - 1) << place % blockSize;
            place += count;
            spaces >>= count;
        }
        if (place == 0) {
            break;
        }
        if (leftOut != 0) {
            haveGapsFrom(block);
            m_kept[block] &= ~(leftOut << shift);
            m_kept[block + 1] &= ~(leftOut >> 1 >> (blockSize - 1 - shift));
        }
        begin = leaveOutSpaces(begin + place);
    }
    return begin;
}

/// Ends the line that has room for so many characters from `begin` on, at the last space that leaves it no longer, else
/// at the first one behind that, and returns the place behind. None where the text is too short to tell.
inline std::size_t PlainText::endLine(std::size_t begin, std::size_t width) {
    const std::size_t limit = m_hasCrLfs ? placeBehind(begin, width) : begin + width;
    if (limit >= m_size) {
        return none;
    }
    std::size_t end = lastSpace(begin, limit);
    if (end == none) {
        end = nextSpace(limit);
        if (end == none) {
            return none;
        }
    }
    m_copy[end] = '\n';
    return end + 1;
}

std::size_t PlainText::lastSpaceFrom(std::size_t begin) const {
    return begin < m_size ? lastSpace(begin, m_size - 1) : none;
}

std::size_t PlainText::characterCount(std::size_t begin, std::size_t end) const {
    return end - begin - (m_hasCrLfs ? crLfCount(begin, end) : 0U);
}

char *PlainText::closeGaps(std::size_t size) {
    const std::size_t blocks = (size + blockSize - 1) / blockSize;
    if (m_gapsBegin >= blocks) {
        return m_copy + size;
    }
    if (size % blockSize != 0) {
        m_kept[blocks - 1] &= ~(~std::uint64_t{0} << size % blockSize);
    }
    char *const place = m_copy + m_gapsBegin * blockSize;
    return place + kernels::best().compress(place, blocks - m_gapsBegin, &m_kept[m_gapsBegin], place);
}

/// Leaves out the spaces from `begin` on, where one stands, and returns where they end. Like all that most texts do not
/// need it is kept out of the loop over the lines, which so has enough registers.
[[gnu::noinline]] std::size_t PlainText::makeGap(std::size_t begin) {
    std::size_t block = begin / blockSize;
    haveGapsFrom(block);
    std::uint64_t from = ~std::uint64_t{0} << begin % blockSize;
    while (true) {
        if (const std::uint64_t others = ~m_spaces[1 + block] & from; others != 0) {
            m_kept[block] &= ~from | ~std::uint64_t{0} << firstBit(others);
            return block * blockSize + firstBit(others);
        }
        m_kept[block] &= ~from;
        from = ~std::uint64_t{0};
        ++block;
    }
}

inline void PlainText::haveGapsFrom(std::size_t block) {
    if (m_gapsBegin == none) {
        m_gapsBegin = block;
        m_kept.fill(~std::uint64_t{0});
    }
}

inline bool PlainText::isSpace(std::size_t place) const {
    return (m_spaces[1 + place / blockSize] >> place % blockSize & 1U) != 0;
}

/// Where the character stands that is `width` characters behind the one at `begin`.
[[gnu::noinline]] std::size_t PlainText::placeBehind(std::size_t begin, std::size_t width) const {
    std::size_t counted = begin + 1;
    std::size_t place = begin + width;
    while (counted <= place && place < m_size) {
        const std::size_t crLfs = crLfCount(counted, place + 1);
        counted = place + 1;
        place += crLfs;
    }
    return place;
}

/// The number of line feeds behind carriage returns among the bytes from `begin` to `end`.
inline std::size_t PlainText::crLfCount(std::size_t begin, std::size_t end) const {
    std::size_t count = 0;
    for (std::size_t block = begin / blockSize; block * blockSize < end; ++block) {
        const std::size_t blockBegin = block * blockSize;
        const std::size_t before = std::max(begin, blockBegin) - blockBegin;
        const std::size_t behind = blockSize - std::min(end - blockBegin, blockSize);
        const std::uint64_t inRange = ~std::uint64_t{0} << before & ~std::uint64_t{0} >> behind;
        if (const std::uint64_t crLfs = m_crLfs[block] & inRange; crLfs != 0) {
            count += bitCount(crLfs);
        }
    }
    return count;
}

inline std::size_t PlainText::lastSpace(std::size_t first, std::size_t last) const {
    while (true) {
        const std::size_t block = last / blockSize;
        const std::size_t place = last % blockSize;
        // The highest bit is that of `last`.
        const std::uint64_t spaces = m_spaces[1 + block] << (blockSize - 1 - place) | m_spaces[block] >> 1 >> place;
        if (spaces != 0) {
            const std::size_t found = last - static_cast<std::size_t>(std::countl_zero(spaces));
            return found >= first ? found : none;
        }
        if (last < first + blockSize) {
            return none;
        }
        last -= blockSize;
    }
}

inline std::size_t PlainText::nextSpace(std::size_t first) const {
    std::size_t block = first / blockSize;
    std::uint64_t spaces = m_spaces[1 + block] & ~std::uint64_t{0} << first % blockSize;
    while (spaces == 0) {
        ++block;
        if (block * blockSize >= m_size) {
            return none;
        }
        spaces = m_spaces[1 + block];
    }
    return block * blockSize + firstBit(spaces);
}

} // namespace lexivore
