// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/wrapping.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/utf8.h"

#include <utility>

namespace lexivore {

namespace {

/// True for printable ASCII alone, where every byte is a character.
bool isPlain(std::string_view piece) {
    for (const char byte : piece) {
        if (static_cast<unsigned char>(byte - 0x20) >= 0x5F) {
            return false;
        }
    }
    return true;
}

/// The line that is being filled, and the text before it.
class LineFiller {
public:
    LineFiller(std::size_t width, std::size_t expectedBytes)
        : m_width(width), m_result(TextBuffer::withCapacity(expectedBytes)) {}

    void add(std::string_view piece) {
        const bool isPiecePlain = isPlain(piece);
        const std::size_t length = isPiecePlain ? piece.size() : characterCount(piece);
        if (m_isLineEmpty) {
            m_pending = piece;
        } else if (m_length.count() + length + 1 > m_width) {
            m_result.append(m_pending);
            m_result.append('\n');
            m_pending = piece;
            m_length = {};
            m_isLineEmpty = true;
        } else {
            m_length.appendPlain(1);
            addBehindSpace(piece);
        }
        if (isPiecePlain) {
            m_length.appendPlain(piece.size());
        } else {
            m_length.append(piece);
        }
        m_isLineEmpty = m_isLineEmpty && piece.empty();
    }

    [[nodiscard]] TextBuffer take() {
        m_result.append(m_pending);
        m_result.shrink();
        return std::move(m_result);
    }

private:
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
    TextBuffer m_result;
    std::string_view m_pending; ///< The end of the line, not copied yet.
    CharacterCounter m_length;  ///< Of the line, counted on the whole of it.
    bool m_isLineEmpty = true;
};

} // namespace

TextBuffer wrapText(std::string_view text, std::size_t width) {
    LineFiller filler(width, text.size());
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
