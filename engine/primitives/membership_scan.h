// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/primitives/code_points.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lexivore {

/// What the kernels have to look for to find the members of `set`.
[[nodiscard]] kernels::ByteClass byteClassOf(CodePointSet set);

/// Some blocks of 64 bytes side by side, the last of which may be shorter.
struct Stretch {
    static constexpr std::size_t mostBlocks = 64;

    const char *begin = nullptr;
    const char *end = nullptr;
    std::size_t blocks = 0;
    /// One bit a byte of each block, the first in the lowest bit; none behind the end. Until the scan is asked again.
    const std::uint64_t *members = nullptr;
};

/// Walks a text in blocks of 64 bytes and tells which of them belong to code points of a set: what words, lines and
/// filters of whole texts stand on. ASCII costs a few instructions a block; other code points are looked up only where
/// the set can have members.
class MembershipScan {
public:
    /// Which bytes of a member that takes several have their bit set.
    enum class Mark { everyByte, firstByte };

    struct Block {
        const char *begin = nullptr;
        std::size_t size = 0;      ///< 64, or less at the end of the text.
        std::uint64_t members = 0; ///< One bit a byte, the first in the lowest bit; none behind `size`.
    };

    MembershipScan(std::string_view text, CodePointSet set, Mark mark);
    /// Looks for ASCII characters alone.
    MembershipScan(std::string_view text, const kernels::AsciiSet &set);

    /// From now on the ASCII character is no member. To be said before the first block.
    void ignore(char character) { m_byteClass.ascii.remove(character); }

    /// False when the text has no further block.
    [[nodiscard]] bool next(Block &block) {
        if (m_block == m_blockCount && !refill()) {
            return false;
        }
        const char *const begin = m_stretch + m_block * kernels::blockSize;
        const auto left = static_cast<std::size_t>(m_end - begin);
        block = {begin, left < kernels::blockSize ? left : kernels::blockSize, m_members[m_block]};
        const std::uint64_t candidates = m_candidates[m_block];
        if (candidates != 0 || m_carried != 0) {
            resolve(block, candidates);
        }
        ++m_block;
        return true;
    }

    /// The same for as many blocks as are looked at together. Not to be mixed with the above.
    [[nodiscard]] bool next(Stretch &stretch);

private:
    bool refill();
    /// Adds the members that the candidates turn out to be.
    void resolve(Block &block, std::uint64_t candidates);

    kernels::ByteClass m_byteClass;
    CodePointSet m_set;
    Mark m_mark;
    const char *m_stretch;
    const char *m_end;
    const char *m_resolvedEnd = nullptr; ///< Bytes before it belong to a code point that was looked up already.
    std::uint64_t m_carried = 0;         ///< Bits of the next block that a member of this one has.
    std::size_t m_block = 0;
    std::size_t m_blockCount = 0;
    bool m_hasCandidates = false; ///< Some block that was refilled has.
    std::uint64_t m_members[Stretch::mostBlocks];
    std::uint64_t m_candidates[Stretch::mostBlocks];
};

/// Where the bits of a stretch are.
using Places = std::array<std::uint16_t, (Stretch::mostBlocks + 1) * kernels::blockSize>;

/// Calls `visit(const char *)` with the place of every member that `scan` finds, in order, and `passed(const char *)`
/// from time to time with a place before which there are no more. Always inlined, so that what the visits work with
/// stays in registers: in memory any byte that is written might be part of it, and it would be read anew each time.
template<typename Scan, typename Visit, typename Passed>
[[gnu::always_inline]] inline void forEachMember(Scan scan, Visit &&visit, Passed &&passed) {
    Places places; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
    for (Stretch stretch; scan.next(stretch);) {
        const std::size_t count = kernels::best().listBits(stretch.members, stretch.blocks, places.data());
        for (std::size_t i = 0; i < count; ++i) {
            visit(stretch.begin + places[i]);
        }
        passed(stretch.end);
    }
}
template<typename Scan, typename Visit> [[gnu::always_inline]] inline void forEachMember(Scan scan, Visit &&visit) {
    forEachMember(scan, visit, [](const char *) {});
}

/// Finds the members of an ASCII set from places on that never go back. Looks at some blocks at once, for members are
/// near each other, and at nothing that is passed over.
class MemberFinder {
public:
    MemberFinder(std::string_view text, const kernels::AsciiSet &set)
        : m_byteClass{set}, m_end(text.data() + text.size()), m_foundBegin(text.data()), m_foundEnd(text.data()) {}

    /// The first member at or behind `position`, or the end.
    [[nodiscard]] const char *from(const char *position) {
        while (position != m_end) {
            if (position >= m_foundEnd) {
                findFrom(position);
            }
            const auto offset = static_cast<std::size_t>(position - m_foundBegin);
            const std::uint64_t found = m_found[offset / kernels::blockSize] >> offset % kernels::blockSize;
            if (found != 0) {
                return position + std::countr_zero(found);
            }
            position = std::min(m_foundEnd, position + (kernels::blockSize - offset % kernels::blockSize));
        }
        return m_end;
    }

private:
    static constexpr std::size_t blocksAtOnce = 16;

    void findFrom(const char *position);

    kernels::ByteClass m_byteClass;
    const char *m_end;
    const char *m_foundBegin; ///< Between these it is known where they are.
    const char *m_foundEnd;
    std::uint64_t m_found[blocksAtOnce] = {}; ///< One bit a byte, the first in the lowest bit.
};

/// The number of code points of `set`.
[[nodiscard]] std::size_t memberCount(std::string_view text, CodePointSet set);

} // namespace lexivore
