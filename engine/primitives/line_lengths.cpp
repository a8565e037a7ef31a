// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/line_lengths.h"

#include "engine/primitives/bit_tally.h"
#include "engine/primitives/character_blocks.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/utf8.h"

#include <cstdint>

namespace lexivore {

namespace {

/// Takes the characters of a text in order. A newline character is apart from everything on both sides, so that those
/// of a line are as many as if it stood alone.
class LineLengths {
public:
    void addCharacters(std::size_t count) { m_length += count; }
    void endLine() {
        m_lengths.push_back(m_length);
        m_length = 0;
    }

    /// What stands at [begin, end) is ASCII.
    void addAscii(const char *begin, const char *end, bool isBoundary) {
        static constexpr kernels::AsciiSet asciiNewlines("\n\v\f\r");
        const char *position = begin;
        const std::string_view run(begin, static_cast<std::size_t>(end - begin));
        if (!isBoundary) {
            --m_length; // the first byte belongs to the character before it; a newline never does
        }
        forEachMember(MembershipScan(run, asciiNewlines), [&](const char *newline) {
            addCharacters(static_cast<std::size_t>(newline - position));
            endLine();
            position = newline + 1;
        });
        addCharacters(static_cast<std::size_t>(end - position));
    }

    void addBlock(const CharacterBlock &block) {
        std::uint64_t left = block.boundaries;
        for (std::uint64_t ends = block.members; ends != 0; ends &= ends - 1) {
            const std::uint64_t before = (ends & (0 - ends)) - 1;
            addCharacters(bitCount(left & before));
            endLine();
            left &= ~(before << 1 | 1U);
        }
        addCharacters(bitCount(left));
    }

    [[nodiscard]] std::vector<std::size_t> take() {
        endLine();
        return std::move(m_lengths);
    }

private:
    std::vector<std::size_t> m_lengths;
    std::size_t m_length = 0;
};

} // namespace

std::vector<std::size_t> lineLengths(std::string_view text) {
    LineLengths lengths;
    CharacterBlocks blocks(text, newlines);
    const char *const end = text.data() + text.size();
    while (!blocks.isAtEnd()) {
        if (const char *const position = blocks.position(); isAscii(*position)) {
            const char *const runEnd = asciiRunEnd(position, end);
            const auto first = static_cast<unsigned char>(*position);
            const bool isNewline = first >= '\n' && first <= '\r';
            lengths.addAscii(position, runEnd,
                             isNewline || character_breaks::transition(blocks.state(), first).isBoundary);
            blocks.passAscii(runEnd);
        }
        for (CharacterBlock block; blocks.next(block);) {
            lengths.addBlock(block);
        }
    }
    return lengths.take();
}

} // namespace lexivore
