// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/wrapping.h"

#include "engine/primitives/character_blocks.h"
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

namespace lexivore {

namespace {

/// How much of a run of ASCII is looked at before it is worked on: it is still in the cache then.
constexpr std::ptrdiff_t stretch = 16'384;

/// Some plain text: printable ASCII, line feeds, carriage returns and tabs, where every byte is a character, but for
/// the two of each CR LF. Its tabs are spaces.
class PlainText {
public:
    static constexpr std::size_t mostBytes = 64 * kernels::blockSize;
    /// What `copy` may overwrite behind the text.
    static constexpr std::size_t scratchBytes = kernels::blockSize;
    static constexpr std::size_t none = SIZE_MAX;

    /// Copies as much of the beginning of `text` as is plain, up to `mostBytes`, and returns its size.
    std::size_t copy(std::string_view text, char *to) {
        const kernels::PlainPrefix prefix =
            kernels::best().copyPlain(text.data(), std::min(text.size(), mostBytes), &m_spaces[1], m_crLfs.data(), to);
        m_size = prefix.size;
        m_hasCrLfs = prefix.hasCrLfs;
        return m_size;
    }

    [[nodiscard]] bool isSpace(std::size_t place) const {
        return (m_spaces[place / kernels::blockSize + 1] >> place % kernels::blockSize & 1U) != 0;
    }
    /// The end of the spaces that begin at `place`.
    [[nodiscard]] std::size_t spacesEnd(std::size_t place) const {
        while (place < m_size && isSpace(place)) {
            ++place;
        }
        return place;
    }
    /// The space where the line ends that begins at `begin`, which is in the text: the last one up to `width`
    /// characters behind it, else the first one behind these. None where the text is too short to tell.
    [[nodiscard]] std::size_t lineEnd(std::size_t begin, std::size_t width) const {
        const std::size_t limit = m_hasCrLfs ? placeBehind(begin, width) : begin + width;
        if (limit >= m_size) {
            return none;
        }
        const std::size_t last = lastSpace(begin, limit);
        return last != none ? last : nextSpace(limit);
    }

private:
    /// Where the character stands that is `width` characters behind the one at `begin`.
    [[nodiscard]] std::size_t placeBehind(std::size_t begin, std::size_t width) const {
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
    [[nodiscard]] std::size_t crLfCount(std::size_t begin, std::size_t end) const {
        std::size_t count = 0;
        for (std::size_t block = begin / kernels::blockSize; block * kernels::blockSize < end; ++block) {
            const std::size_t blockBegin = block * kernels::blockSize;
            const std::size_t before = std::max(begin, blockBegin) - blockBegin;
            const std::size_t behind = kernels::blockSize - std::min(end - blockBegin, kernels::blockSize);
            const std::uint64_t inRange = ~std::uint64_t{0} << before & ~std::uint64_t{0} >> behind;
            if (const std::uint64_t crLfs = m_crLfs[block] & inRange; crLfs != 0) {
                count += static_cast<std::size_t>(std::popcount(crLfs));
            }
        }
        return count;
    }

    [[nodiscard]] std::size_t lastSpace(std::size_t first, std::size_t last) const {
        while (true) {
            const std::size_t block = last / kernels::blockSize;
            const std::size_t place = last % kernels::blockSize;
            // The highest bit is that of `last`.
            const std::uint64_t spaces =
                m_spaces[block + 1] << (kernels::blockSize - 1 - place) | m_spaces[block] >> 1 >> place;
            if (spaces != 0) {
                const std::size_t found = last - static_cast<std::size_t>(std::countl_zero(spaces));
                return found >= first ? found : none;
            }
            if (last < first + kernels::blockSize) {
                return none;
            }
            last -= kernels::blockSize;
        }
    }
    [[nodiscard]] std::size_t nextSpace(std::size_t first) const {
        std::size_t block = first / kernels::blockSize;
        std::uint64_t spaces = m_spaces[block + 1] & ~std::uint64_t{0} << first % kernels::blockSize;
        while (spaces == 0) {
            ++block;
            if (block * kernels::blockSize >= m_size) {
                return none;
            }
            spaces = m_spaces[block + 1];
        }
        return block * kernels::blockSize + static_cast<std::size_t>(std::countr_zero(spaces));
    }

    std::size_t m_size = 0;
    /// One bit for each byte, behind 64 that stand for what is before the text.
    std::array<std::uint64_t, 1 + mostBytes / kernels::blockSize> m_spaces{};
    std::array<std::uint64_t, mostBytes / kernels::blockSize> m_crLfs{}; ///< One for each byte: its second halves.
    bool m_hasCrLfs = false;
};

/// What stands between two members of the whitespace set.
struct Piece {
    std::string_view text;
    std::size_t characters = 0;    ///< Counted alone.
    bool joinsSpaceBefore = false; ///< Its first code point joins a space that stands before it.
    bool joinsSpaceBehind = false; ///< Its last one joins a space that stands behind it.
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
        if (m_isLineEmpty) {
            begin(piece);
            return;
        }
        if (m_length + piece.characters + 1 > m_width) {
            m_result.append(m_pending);
            m_result.append('\n');
            begin(piece);
            return;
        }
        m_length += (m_joinsSpaceBehind ? 0U : 1U) + piece.characters - (piece.joinsSpaceBefore ? 1U : 0U);
        m_joinsSpaceBehind = piece.joinsSpaceBehind;
        addBehindSpace(piece.text);
    }

    [[nodiscard]] TextBuffer take() {
        m_result.append(m_pending);
        m_result.shrink();
        return std::move(m_result);
    }

private:
    /// The piece is the first of a line.
    void begin(const Piece &piece) {
        m_pending = {};
        m_isLineEmpty = true;
        if (piece.text.empty()) {
            return;
        }
        if (isAscii(piece.text.front())) {
            if (const char *const next = fillPlainLines(piece.text.data()); next != piece.text.data()) {
                m_filledEnd = next;
                return;
            }
        }
        m_pending = piece.text;
        m_isLineEmpty = false;
        m_length = piece.characters;
        m_joinsSpaceBehind = piece.joinsSpaceBehind;
    }

    /// Writes whole lines of plain text, the first of which begins with a piece at `position`, and returns where the
    /// next line begins. In plain text a line ends at the last space that leaves it no wider than it may be, or else at
    /// the first one: the text is copied, and line feeds take the place of these spaces.
    const char *fillPlainLines(const char *position) {
        std::size_t filled = 0;
        do {
            char *to = m_result.room(PlainText::mostBytes + PlainText::scratchBytes);
            const std::size_t size = m_plain.copy({position, static_cast<std::size_t>(m_textEnd - position)}, to);
            for (filled = 0; filled < size;) {
                if (m_plain.isSpace(filled)) { // no line begins with empty pieces
                    const std::size_t next = m_plain.spacesEnd(filled);
                    std::memmove(to + filled, to + next, size - next);
                    to -= next - filled;
                    filled = next;
                    continue;
                }
                const std::size_t space = m_plain.lineEnd(filled, m_width);
                if (space == PlainText::none) {
                    break;
                }
                to[space] = '\n';
                filled = space + 1;
            }
            m_result.commit(to + filled);
            position += filled;
        } while (filled != 0);
        return position;
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
    PieceCutter(std::string_view text, LineFiller &filler) : m_filler(filler), m_begin(text.data()) {}

    /// What stands at [begin, end) is ASCII; `isBoundary`: a character begins there.
    void addAscii(const char *begin, const char *end, bool isBoundary) {
        static constexpr kernels::AsciiSet spaces(" \t");
        MemberFinder finder({begin, static_cast<std::size_t>(end - begin)}, spaces);
        for (const char *place = begin; place != end;) {
            const char *const space = finder.from(place);
            if (place != space) {
                beginAt(place, isBoundary);
                m_characters += charactersIn(place, space) - (isBoundary ? 0U : 1U);
                isBoundary = true;
            }
            place = space;
            if (space != end) {
                endAt(space, isBoundary);
                // What the filler has written already need not be looked at.
                m_begin = std::max(m_begin, m_filler.filledEnd());
                place = std::min(m_begin, end);
                isBoundary = true;
            }
        }
    }

    void add(const CharacterBlock &block) {
        std::size_t from = 0;
        const auto addUpTo = [&](std::size_t to) {
            if (from != to) {
                beginAt(block.begin + from, (block.boundaries >> from & 1U) != 0);
                const std::uint64_t behind = to == kernels::blockSize ? 0 : ~std::uint64_t{0} << to;
                m_characters += static_cast<std::size_t>(std::popcount((block.boundaries & ~behind) >> from));
            }
        };
        for (std::uint64_t spaces = block.members; spaces != 0; spaces &= spaces - 1) {
            const auto space = static_cast<std::size_t>(std::countr_zero(spaces));
            addUpTo(space);
            endAt(block.begin + space, (block.boundaries >> space & 1U) != 0);
            from = static_cast<std::size_t>(m_begin - block.begin);
        }
        addUpTo(block.size);
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

    /// There is more of the piece at `place`.
    void beginAt(const char *place, bool isBoundary) {
        if (place == m_begin && !isBoundary) {
            m_joinsBefore = true;
            ++m_characters; // counted alone it has its first character
        }
    }

    void endAt(const char *space, bool isBoundary) {
        // A tab is apart from everything, but it becomes a space.
        const bool isTab = *space == '\t';
        const bool joinsBehind = isTab ? space != m_begin && endsInPrepended({m_begin, space}) : !isBoundary;
        addPiece(space, joinsBehind);
        m_begin = space + (isAscii(*space) ? 1 : static_cast<unsigned char>(*space) == 0xC2 ? 2 : 3);
        m_isBehindTab = isTab;
        m_characters = 0;
        m_joinsBefore = false;
    }

    void addPiece(const char *end, bool joinsBehind) {
        const std::string_view text(m_begin, static_cast<std::size_t>(end - m_begin));
        const bool joinsBefore =
            m_isBehindTab && !text.empty() && !isAscii(text[0]) ? lexivore::joinsSpaceBefore(text) : m_joinsBefore;
        m_filler.add({text, m_characters, joinsBefore, joinsBehind});
    }

    static bool endsInPrepended(std::string_view piece) {
        const DecodedCodePoint last = decodeBefore(piece.data(), piece.data() + piece.size());
        using character_breaks::State;
        return character_breaks::transition(State::begin, last.value).next == State::prepend;
    }

    LineFiller &m_filler;
    const char *m_begin; ///< Of the piece.
    std::size_t m_characters = 0;
    bool m_joinsBefore = false;
    bool m_isBehindTab = false;
};

} // namespace

TextBuffer wrapText(std::string_view text, std::size_t width) {
    LineFiller filler(text, width);
    PieceCutter cutter(text, filler);
    CharacterBlocks blocks(text, whitespace);
    const char *const end = text.data() + text.size();
    while (!blocks.isAtEnd()) {
        if (const char *const position = blocks.position(); isAscii(*position)) {
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
