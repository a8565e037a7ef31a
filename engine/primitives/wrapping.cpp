// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/wrapping.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/utf8.h"

#include <cstdint>
#include <utility>

namespace lexivore {

namespace {

/// True for printable ASCII and line feeds alone, where every byte is a character.
bool isPlain(std::string_view text) {
    if (!text.empty() && !isAscii(text[0])) {
        return false;
    }
    std::uint8_t others = 0;
    for (const char byte : text) { // to its end, as vector code does it
        const bool isOther = (static_cast<std::uint8_t>(byte - 0x20) >= 0x5F) & (byte != '\n');
        others = static_cast<std::uint8_t>(others | static_cast<std::uint8_t>(isOther));
    }
    return others == 0;
}

/// The line that is being filled, and the text before it.
class LineFiller {
public:
    LineFiller(std::string_view text, std::size_t width)
        : m_width(width), m_textEnd(text.data() + text.size()),
          m_result(TextBuffer::withCapacity(text.size() + text.size() / 64)), m_filledEnd(text.data()) {}

    void add(std::string_view piece) {
        if (piece.data() < m_filledEnd) {
            return;
        }
        if (m_isLineEmpty) {
            begin(piece);
            return;
        }
        const bool isPiecePlain = isPlain(piece);
        CharacterCounter length;
        count(length, piece, isPiecePlain);
        if (m_length.count() + length.count() + 1 > m_width) {
            m_result.append(m_pending);
            m_result.append('\n');
            begin(piece);
            return;
        }
        m_length.appendPlain(1);
        if (isPiecePlain || !joinsSpaceBefore(piece)) {
            m_length.appendCounted(length);
        } else {
            m_length.append(piece);
        }
        addBehindSpace(piece);
    }

    [[nodiscard]] TextBuffer take() {
        m_result.append(m_pending);
        m_result.shrink();
        return std::move(m_result);
    }

private:
    static void count(CharacterCounter &counter, std::string_view piece, bool isPiecePlain) {
        if (isPiecePlain) {
            counter.appendPlain(piece.size());
        } else {
            counter.append(piece);
        }
    }

    /// The piece is the first of a line.
    void begin(std::string_view piece) {
        m_length = {};
        m_pending = {};
        m_isLineEmpty = true;
        if (piece.empty()) {
            return;
        }
        if (const char *const next = fillPlainLines(piece.data()); next != piece.data()) {
            m_filledEnd = next;
            return;
        }
        m_pending = piece;
        m_isLineEmpty = false;
        count(m_length, piece, isPlain(piece));
    }

    /// Writes whole lines of plain text, the first of which begins with a piece at `position`, and returns where the
    /// next line begins. In plain text a line ends at the last space that leaves it no wider than it may be.
    const char *fillPlainLines(const char *position) {
        while (static_cast<std::size_t>(m_textEnd - position) > m_width) {
            const std::string_view line(position, m_width + 1);
            const std::size_t lastSpace = line.rfind(' ');
            if (lastSpace == std::string_view::npos || lastSpace == 0 || !isPlain(line)) {
                break;
            }
            m_result.append(line.substr(0, lastSpace));
            m_result.append('\n');
            position += lastSpace + 1;
            while (position != m_textEnd && *position == ' ') { // no line begins with empty pieces
                ++position;
            }
        }
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

    std::size_t m_width;
    const char *m_textEnd;
    TextBuffer m_result;
    const char *m_filledEnd;    ///< Pieces that begin before it are written.
    std::string_view m_pending; ///< The end of the line, not copied yet.
    CharacterCounter m_length;  ///< Of the line, counted on the whole of it.
    bool m_isLineEmpty = true;
};

} // namespace

TextBuffer wrapText(std::string_view text, std::size_t width) {
    LineFiller filler(text, width);
    const char *const end = text.data() + text.size();
    const char *pieceBegin = text.data();
    const auto addPiece = [&](const char *pieceEnd) {
        filler.add(std::string_view(pieceBegin, static_cast<std::size_t>(pieceEnd - pieceBegin)));
    };
    forEachMember(MembershipScan(text, whitespace, MembershipScan::Mark::firstByte), [&](const char *space) {
        addPiece(space);
        pieceBegin = space + decode(space, end).length;
    });
    addPiece(end);
    return filler.take();
}

} // namespace lexivore
