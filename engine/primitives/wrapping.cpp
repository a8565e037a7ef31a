// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/wrapping.h"

#include "engine/primitives/bit_tally.h"
#include "engine/primitives/character_blocks.h"
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/plain_text.h"
#include "engine/primitives/utf8.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

namespace lexivore {

namespace {

/// How much of a run of ASCII is looked at before it is worked on: it is still in the cache then.
constexpr std::ptrdiff_t stretch = 16'384;

/// What stands between two members of the whitespace set.
struct Piece {
    std::string_view text;
    std::size_t characters = 0;    ///< Counted alone.
    bool joinsSpaceBefore = false; ///< Its first code point joins a space that stands before it.
    bool joinsSpaceBehind = false; ///< Its last one joins a space that stands behind it.
};

/// A piece whose end is not known yet.
struct OpenPiece {
    const char *begin = nullptr;
    std::size_t characters = 0; ///< So far.
    bool joinsSpaceBefore = false;
};

/// The line that is being filled, and the text before it.
class LineFiller {
public:
    LineFiller(std::string_view text, std::size_t width)
        : m_width(std::min(width, text.size() + 1)), m_textEnd(text.data() + text.size()),
          m_result(TextBuffer::withCapacity(text.size() + text.size() / 64)), m_filledEnd(text.data()) {}

    /// Pieces that begin before it are written already.
    [[nodiscard]] const char *filledEnd() const { return m_filledEnd; }

    void add(const Piece &piece) {
        if (piece.text.data() < m_filledEnd) {
            return;
        }
        put(piece);
        const char *const end = piece.text.data() + piece.text.size();
        if (!m_isLineEmpty && !m_joinsSpaceBehind && isPlainTextLikely(end)) {
            fillPlainText(end);
        }
    }

    /// Goes on with the piece in a block where every space is one of ASCII and joins nothing, and adds the pieces that
    /// end there, as many as the line has room for at once. `piece` is the one behind them then. Does nothing and
    /// returns false where the line is not followed by the piece as in the text.
    [[nodiscard]] bool add(const CharacterBlock &block, OpenPiece &piece) {
        const char *const lineEnd = m_pending.data() + m_pending.size();
        if (m_joinsSpaceBehind || (!m_isLineEmpty && (piece.begin != lineEnd + 1 || *lineEnd != ' '))) {
            return false;
        }
        std::uint64_t spaces = block.members;
        std::uint64_t boundaries = block.boundaries;
        const auto passUpTo = [&](std::uint64_t space) {
            piece = {block.begin + std::countr_zero(space) + 1};
            spaces &= ~(space | (space - 1));
            boundaries &= ~(space | (space - 1));
        };
        while (spaces != 0) {
            const std::uint64_t first = spaces & (0 - spaces);
            if (m_isLineEmpty && block.begin + std::countr_zero(first) == piece.begin) {
                passUpTo(first);
                continue;
            }
            const std::size_t before = piece.characters + (m_isLineEmpty ? 0 : m_length + 1);
            kernels::RankedBit last = {0, 0};
            if (before <= m_width) {
                last = kernels::best().highestRanked(spaces, boundaries, m_width - before);
            }
            if (last.bit == 0 && !m_isLineEmpty) {
                endLine();
                continue;
            }
            if (last.bit == 0) { // too long for any line
                last = {first, bitCount(boundaries & (first - 1))};
            }
            const char *const begin = m_isLineEmpty ? piece.begin : m_pending.data();
            const char *const end = block.begin + std::countr_zero(last.bit);
            m_pending = {begin, static_cast<std::size_t>(end - begin)};
            m_length = before + last.rank;
            m_isLineEmpty = false;
            passUpTo(last.bit);
            if (spaces != 0) { // the piece that ends at the next one finds no room
                endLine();
            }
        }
        piece.characters += bitCount(boundaries);
        return true;
    }

    [[nodiscard]] TextBuffer take() {
        m_result.append(m_pending);
        m_result.shrink();
        return std::move(m_result);
    }

private:
    void put(const Piece &piece) {
        if (m_isLineEmpty) {
            begin(piece);
            return;
        }
        if (m_length + piece.characters + 1 > m_width) {
            endLine();
            begin(piece);
            return;
        }
        m_length += (m_joinsSpaceBehind ? 0U : 1U) + piece.characters - (piece.joinsSpaceBefore ? 1U : 0U);
        m_joinsSpaceBehind = piece.joinsSpaceBehind;
        addBehindSpace(piece.text);
    }

    void endLine() {
        m_result.append(m_pending);
        m_result.append('\n');
        m_pending = {};
        m_length = 0;
        m_isLineEmpty = true;
        m_joinsSpaceBehind = false;
    }

    /// The piece is the first of a line.
    void begin(const Piece &piece) {
        m_pending = piece.text;
        m_isLineEmpty = piece.text.empty();
        m_length = piece.characters;
        m_joinsSpaceBehind = piece.joinsSpaceBehind;
    }

    /// Trying costs more than it gains where there are only a few bytes of ASCII.
    [[nodiscard]] bool isPlainTextLikely(const char *position) const {
        return m_textEnd - position >= 16 && asciiBytesAt(position) == 8 && asciiBytesAt(position + 8) == 8;
    }

    /// Fills the line, behind which a space stands at `position`, and more lines as far as the text is plain. In plain
    /// text a line ends at the last space that leaves it no wider than it may be, or else at the first one: the text is
    /// copied, and line feeds take the place of these spaces.
    void fillPlainText(const char *position) {
        m_result.append(m_pending);
        std::size_t size = 0;
        std::size_t used = 0;
        do {
            char *const to = m_result.room(PlainText::mostBytes + PlainText::scratchBytes);
            size = m_plain.copy({position, static_cast<std::size_t>(m_textEnd - position)}, to);
            std::size_t begin = m_isLineEmpty ? m_plain.leaveOutSpaces(0) : 0;
            const std::size_t room = m_width - std::min(m_width, m_length);
            if (const std::size_t next = m_plain.endLines(begin, room, m_width); next != begin) {
                begin = next;
                m_isLineEmpty = true;
                m_length = 0;
            }
            // The last line is not full, but what stands before its last space is in it.
            used = m_plain.lastSpaceFrom(begin);
            if (used != PlainText::none) {
                m_length += m_plain.characterCount(begin, used);
                m_isLineEmpty = false;
            } else {
                used = begin;
            }
            m_result.commit(m_plain.closeGaps(used));
            position += used;
        } while (used != 0 && size == PlainText::mostBytes);
        m_pending = std::string_view(position, position); // nothing, but what follows it stands at the position
        m_filledEnd = m_isLineEmpty ? position : position + 1;
    }

    void addBehindSpace(std::string_view piece) {
        const char *const pendingEnd = m_pending.data() + m_pending.size();
        if (piece.data() == pendingEnd + 1 && *pendingEnd == ' ') { // it stands like that in the text already
            m_pending = {m_pending.data(), m_pending.size() + 1 + piece.size()};
            return;
        }
        m_result.append(m_pending);
        m_result.append(' ');
        m_pending = piece;
    }

    std::size_t m_width; ///< No text is wider than it is long: sums with this do not overflow.
    const char *m_textEnd;
    TextBuffer m_result;
    const char *m_filledEnd;
    PlainText m_plain;
    std::string_view m_pending;      ///< The end of the line, not copied yet.
    std::size_t m_length = 0;        ///< Of the line in characters, counted on the whole of it.
    bool m_joinsSpaceBehind = false; ///< The last code point of the line does.
    bool m_isLineEmpty = true;
};

/// Cuts a text into pieces and counts their characters in the same pass: between two spaces they are those that they
/// would be alone, but for a piece that joins the space before it.
class PieceCutter {
public:
    PieceCutter(std::string_view text, LineFiller &filler)
        : m_filler(filler), m_textBegin(text.data()), m_textEnd(text.data() + text.size()),
          m_withoutTabs(text.data()), m_piece{text.data()} {}

    /// What stands at [begin, end) is ASCII; `isBoundary`: a character begins there.
    void addAscii(const char *begin, const char *end, bool isBoundary) {
        static constexpr kernels::AsciiSet spaces(" \t");
        MemberFinder finder({begin, static_cast<std::size_t>(end - begin)}, spaces);
        for (const char *place = begin; place != end;) {
            const char *const space = finder.from(place);
            if (place != space) {
                beginAt(place, isBoundary);
                m_piece.characters += charactersIn(place, space) - (isBoundary ? 0U : 1U);
                isBoundary = true;
            }
            place = space;
            if (space != end) {
                endAt(space, isBoundary);
                place = std::min(m_piece.begin, end);
                isBoundary = true;
            }
        }
    }

    void add(const CharacterBlock &block) {
        if (isSimple(block) && m_filler.add(block, m_piece)) {
            return;
        }
        const char *const end = block.begin + block.size;
        // The filler may have written more than the block.
        for (std::uint64_t spaces = block.members; m_piece.begin < end;) {
            const auto from = static_cast<std::size_t>(std::max(m_piece.begin, block.begin) - block.begin);
            spaces = spaces >> from << from;
            const std::size_t to = std::min(static_cast<std::size_t>(std::countr_zero(spaces)), block.size);
            if (from != to) {
                beginAt(block.begin + from, (block.boundaries >> from & 1U) != 0);
                const std::uint64_t behind = to == kernels::blockSize ? 0 : ~std::uint64_t{0} << to;
                m_piece.characters += bitCount((block.boundaries & ~behind) >> from);
            }
            if (to == block.size) {
                return;
            }
            endAt(block.begin + to, (block.boundaries >> to & 1U) != 0);
        }
    }

    /// The text ends at `end`.
    void finish(const char *end) { addPiece(end, false); }

private:
    /// All of [begin, end) is ASCII.
    static std::size_t charactersIn(const char *begin, const char *end) {
        auto count = static_cast<std::size_t>(end - begin);
        for (const char *place = begin + 1; place < end; ++place) {
            count -= ((place[-1] == '\r') & (*place == '\n')) ? 1U : 0U;
        }
        return count;
    }

    /// Whether every space in the block is one of ASCII and joins neither what stands before it nor what stands behind.
    bool isSimple(const CharacterBlock &block) {
        const std::uint64_t own = ~std::uint64_t{0} >> (kernels::blockSize - block.size);
        const bool joins = ((block.members | block.members << 1) & own & ~block.boundaries) != 0;
        const bool joinsSpaceBefore = m_piece.begin == block.begin && (block.boundaries & 1U) == 0;
        return !joins && !joinsSpaceBefore && !m_piece.joinsSpaceBefore && m_piece.begin <= block.begin &&
               !hasTab(block);
    }

    bool hasTab(const CharacterBlock &block) {
        const char *const end = block.begin + block.size;
        if (end > m_withoutTabs) {
            const auto size = static_cast<std::size_t>(std::min(stretch, m_textEnd - block.begin));
            const void *const tab = std::memchr(block.begin, '\t', size);
            m_withoutTabs = tab == nullptr ? block.begin + size : static_cast<const char *>(tab);
        }
        return end > m_withoutTabs;
    }

    /// There is more of the piece at `place`.
    void beginAt(const char *place, bool isBoundary) {
        if (place == m_piece.begin && !isBoundary) {
            m_piece.joinsSpaceBefore = true;
            ++m_piece.characters; // counted alone it has its first character
        }
    }

    void endAt(const char *space, bool isBoundary) {
        // A tab is apart from everything, but it becomes a space.
        const bool isTab = *space == '\t';
        const bool joinsBehind =
            isTab ? space != m_piece.begin && endsInPrepended({m_piece.begin, space}) : !isBoundary;
        addPiece(space, joinsBehind);
        m_piece.begin = space + (isAscii(*space) ? 1 : static_cast<unsigned char>(*space) == 0xC2 ? 2 : 3);
        m_piece.begin = std::max(m_piece.begin, m_filler.filledEnd()); // what is written need not be looked at
        m_piece.characters = 0;
        m_piece.joinsSpaceBefore = false;
    }

    void addPiece(const char *end, bool joinsBehind) {
        const std::string_view text(m_piece.begin, static_cast<std::size_t>(end - m_piece.begin));
        const bool isBehindTab = m_piece.begin != m_textBegin && m_piece.begin[-1] == '\t';
        const bool joinsBefore = isBehindTab && !text.empty() && !isAscii(text[0]) ? lexivore::joinsSpaceBefore(text)
                                                                                   : m_piece.joinsSpaceBefore;
        m_filler.add({text, m_piece.characters, joinsBefore, joinsBehind});
    }

    static bool endsInPrepended(std::string_view piece) {
        const DecodedCodePoint last = decodeBefore(piece.data(), piece.data() + piece.size());
        using character_breaks::State;
        return character_breaks::transition(State::begin, last.value).next == State::prepend;
    }

    LineFiller &m_filler;
    const char *m_textBegin;
    const char *m_textEnd;
    const char *m_withoutTabs; ///< None stands before it, from the block on that was looked at last.
    OpenPiece m_piece;
};

} // namespace

TextBuffer wrapText(std::string_view text, std::size_t width) {
    LineFiller filler(text, width);
    PieceCutter cutter(text, filler);
    CharacterBlocks blocks(text, whitespace);
    const char *const end = text.data() + text.size();
    while (!blocks.isAtEnd()) {
        const char *const position = blocks.position();
        if (filler.filledEnd() > position) {
            blocks.passAscii(filler.filledEnd());
        } else if (isAscii(*position)) {
            const char *const runEnd = asciiRunEnd(position, position + std::min(stretch, end - position));
            const auto first = static_cast<unsigned char>(*position);
            cutter.addAscii(position, runEnd, character_breaks::transition(blocks.state(), first).isBoundary);
            blocks.passAscii(std::max(runEnd, filler.filledEnd()));
        }
        for (CharacterBlock block; blocks.next(block);) {
            cutter.add(block);
        }
    }
    cutter.finish(end);
    return filler.take();
}

} // namespace lexivore
