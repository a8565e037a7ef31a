// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/membership_scan.h"

#include "engine/primitives/utf8.h"

#include <algorithm>
#include <cstring>

namespace lexivore {

kernels::ByteClass byteClassOf(CodePointSet set) {
    kernels::ByteClass result;
    for (char32_t codePoint = 0; codePoint < 0x80; ++codePoint) {
        if (isIn(set, codePoint)) {
            result.ascii.add(static_cast<char>(codePoint));
        }
    }
    // All spaces and newlines outside ASCII begin with one of four bytes; members of other sets with any.
    constexpr CodePointSet spaces = property::whiteSpace | property::horizontalSpace | property::newline;
    if ((set & ~spaces) != 0) {
        result.takesEveryNonAsciiByte = true;
    } else {
        constexpr std::uint8_t spaceLeads[] = {0xC2, 0xE2, 0xE1, 0xE3};
        const bool hasNewlinesOnly = (set & ~property::newline) == 0; // which begin with the first two of them
        std::memcpy(result.leads, spaceLeads, hasNewlinesOnly ? 2 : 4);
    }
    return result;
}

MembershipScan::MembershipScan(std::string_view text, CodePointSet set, Mark mark)
    : m_byteClass(byteClassOf(set)), m_set(set), m_mark(mark), m_stretch(text.data()),
      m_end(text.data() + text.size()) {}

MembershipScan::MembershipScan(std::string_view text, const kernels::AsciiSet &set)
    : m_byteClass{set}, m_set(0), m_mark(Mark::firstByte), m_stretch(text.data()), m_end(text.data() + text.size()) {}

bool MembershipScan::refill() {
    m_stretch += m_blockCount * kernels::blockSize;
    m_block = 0;
    m_blockCount = 0;
    if (m_stretch >= m_end) {
        m_stretch = m_end;
        return false;
    }
    const auto left = static_cast<std::size_t>(m_end - m_stretch);
    const std::size_t whole = left / kernels::blockSize;
    m_blockCount = whole < Stretch::mostBlocks ? whole : Stretch::mostBlocks;
    if (m_blockCount > 0) {
        m_hasCandidates = kernels::best().classify(m_stretch, m_blockCount, m_byteClass, m_members, m_candidates);
    } else {
        char last[kernels::blockSize] = {};
        std::memcpy(last, m_stretch, left);
        m_hasCandidates = kernels::best().classify(last, 1, m_byteClass, m_members, m_candidates);
        const std::uint64_t inText = (std::uint64_t{1} << left) - 1; // zeros may be members of the set
        m_members[0] &= inText;
        m_candidates[0] &= inText;
        m_blockCount = 1;
    }
    return true;
}

bool MembershipScan::next(Stretch &stretch) {
    if (!refill()) {
        return false;
    }
    const auto left = static_cast<std::size_t>(m_end - m_stretch);
    stretch = {m_stretch, m_stretch + std::min(left, m_blockCount * kernels::blockSize), m_blockCount, m_members};
    if (!m_hasCandidates && m_carried == 0) {
        return true;
    }
    for (std::size_t i = 0; i < m_blockCount; ++i) {
        if (m_candidates[i] == 0 && m_carried == 0) {
            continue;
        }
        Block block{m_stretch + i * kernels::blockSize, 0, m_members[i]};
        resolve(block, m_candidates[i]);
        m_members[i] = block.members;
    }
    return true;
}

void MembershipScan::resolve(Block &block, std::uint64_t candidates) {
    block.members |= m_carried;
    m_carried = 0;
    while (candidates != 0) {
        const auto bit = static_cast<unsigned>(std::countr_zero(candidates));
        candidates &= candidates - 1;
        const char *const position = block.begin + bit;
        if (position < m_resolvedEnd) {
            continue;
        }
        const DecodedCodePoint decoded = decode(position, m_end);
        m_resolvedEnd = position + decoded.length;
        if (!isIn(m_set, decoded.value)) {
            continue;
        }
        const std::uint64_t bits = m_mark == Mark::firstByte ? 1U : (std::uint64_t{1} << decoded.length) - 1;
        block.members |= bits << bit;
        m_carried = bit == 0 ? 0 : bits >> (kernels::blockSize - bit);
    }
}

void MemberFinder::findFrom(const char *position) {
    const auto left = static_cast<std::size_t>(m_end - position);
    const std::size_t blocks = std::min(left / kernels::blockSize, blocksAtOnce);
    m_foundBegin = position;
    if (blocks > 0) {
        std::uint64_t candidates[blocksAtOnce];
        kernels::best().classify(position, blocks, m_byteClass, m_found, candidates);
        m_foundEnd = position + blocks * kernels::blockSize;
        return;
    }
    m_found[0] = 0;
    for (std::size_t i = 0; i < left; ++i) {
        m_found[0] |= std::uint64_t{m_byteClass.ascii.contains(position[i])} << i;
    }
    m_foundEnd = m_end;
}

std::size_t memberCount(std::string_view text, CodePointSet set) {
    std::size_t count = 0;
    MembershipScan scan(text, set, MembershipScan::Mark::firstByte);
    for (Stretch stretch; scan.next(stretch);) {
        count += kernels::best().countBits(stretch.members, stretch.blocks);
    }
    return count;
}

} // namespace lexivore
