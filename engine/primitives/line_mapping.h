// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/lines.h"
#include "engine/primitives/staged_text.h"
#include "engine/primitives/text_buffer.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace lexivore {

/// Builds a text of pieces of one other text with a separator between them. Pieces that stood side by side with that
/// very separator between them already are copied as one, so that what changes nothing costs next to nothing. A large
/// text goes past the caches, which have enough to do with what the pieces are found with.
class Joiner {
public:
    /// All pieces are parts of `text`.
    Joiner(char separator, std::string_view text, std::size_t expectedBytes)
        : m_separator(separator), m_textEnd(text.data() + text.size()),
          m_result(TextBuffer::withCapacity(expectedBytes + (expectedBytes == 0 ? 0 : copySlack))),
          m_staged(m_result, expectedBytes) {}
    Joiner(const Joiner &) = delete;
    Joiner &operator=(const Joiner &) = delete;

    void add(std::string_view piece) {
        if (m_hasPiece) {
            constexpr std::size_t worthCopying = std::size_t{1} << 14; // while it is in the caches
            const char *const previousEnd = m_pending.data() + m_pending.size();
            if (piece.data() == previousEnd + 1 && *previousEnd == m_separator && m_pending.size() < worthCopying) {
                m_pending = {m_pending.data(), m_pending.size() + 1 + piece.size()};
                return;
            }
            copyPending();
            m_staged.part().append(m_separator);
        }
        m_hasPiece = true;
        m_pending = piece;
    }
    [[nodiscard]] TextBuffer take() {
        if (m_hasPiece) {
            copyPending();
        }
        m_staged.endPart();
        m_result.shrink();
        return std::move(m_result);
    }

private:
    void copyPending() {
        constexpr std::size_t worthACall = 1024;
        const std::size_t size = m_pending.size();
        if (size >= worthACall) {
            m_staged.append(m_pending);
            return;
        }
        TextBuffer &part = m_staged.part();
        if (static_cast<std::size_t>(m_textEnd - m_pending.data()) < size + copySlack) {
            part.append(m_pending);
        } else {
            char *const to = part.room(size + copySlack);
            copyInBlocks(m_pending.data(), size, to);
            part.commit(to + size);
        }
        if (part.size() >= StagedText::stretch) {
            m_staged.endPart();
        }
    }

    char m_separator;
    const char *m_textEnd;
    std::string_view m_pending; ///< Added but not copied yet.
    TextBuffer m_result;
    StagedText m_staged;
    bool m_hasPiece = false;
};

/// Builds a text of parts of the lines of another. No result is longer than that text and a separator, so that nothing
/// has to be asked for each part. It holds nothing that others could point to: the place that is written next stays in
/// a register of the processor, where bytes are written that for all the compiler knows might be part of anything else.
class LineWriter {
public:
    /// Parts that are about as long as two blocks are copied in two, however short some are: for the processor to guess
    /// it each time would cost more. The second one ends where the part does, for parts come from anywhere in the text,
    /// and what lies behind them would have to be waited for.
    LineWriter(TextBuffer &result, std::string_view text, std::size_t usualSize = 0)
        : m_textEnd(text.data() + text.size()), m_areTwoBlocksUsual(usualSize > copySlack / 2),
          m_to(result.room(text.size() + 1 + copySlack)) {}

    void add(char separator) { *m_to++ = separator; }
    void add(std::string_view part) {
        const char *const partEnd = part.data() + part.size();
        if (static_cast<std::size_t>(m_textEnd - partEnd) < copySlack) {
            copyBytes(part.data(), part.size(), m_to);
        } else if (m_areTwoBlocksUsual && part.size() <= 2 * copySlack) {
            const std::size_t second = std::max(part.size(), copySlack) - copySlack;
            std::memcpy(m_to, part.data(), copySlack);
            std::memcpy(m_to + second, part.data() + second, copySlack);
        } else {
            copyInBlocks(part.data(), part.size(), m_to);
        }
        m_to += part.size();
        kernels::askAhead(m_to);
    }
    /// Where what was written ends.
    [[nodiscard]] const char *end() const { return m_to; }

private:
    const char *m_textEnd;
    bool m_areTwoBlocksUsual;
    char *m_to;
};

/// Every line as `map(std::string_view) -> std::string_view` gives it, a part of it, joined with `separator`.
template<typename Map> [[nodiscard]] TextBuffer mapLines(std::string_view text, Map &&map, char separator = '\n') {
    TextBuffer result;
    LineWriter writer(result, text);
    forEachLine(text, [&](std::string_view line) {
        if (line.data() != text.data()) {
            writer.add(separator);
        }
        writer.add(map(line));
    });
    result.commit(writer.end());
    result.shrink();
    return result;
}

/// Every line as it is, joined with `separator`; all of it between `before` and `behind`.
/// Throws TextTooLarge before it writes what could never be kept.
[[nodiscard]] TextBuffer joinLines(std::string_view text, std::string_view separator, std::string_view before = {},
                                   std::string_view behind = {});

/// The lines in reverse order, joined with a line feed.
[[nodiscard]] TextBuffer reverseLines(std::string_view text);

/// The lines for which `keep(std::string_view)` is true, unchanged, joined with a line feed.
template<typename Keep> [[nodiscard]] TextBuffer filterLines(std::string_view text, Keep &&keep) {
    TextBuffer result;
    LineWriter writer(result, text);
    bool isFirst = true;
    forEachLine(text, [&](std::string_view line) {
        if (keep(line)) {
            if (!isFirst) {
                writer.add('\n');
            }
            isFirst = false;
            writer.add(line);
        }
    });
    result.commit(writer.end());
    result.shrink();
    return result;
}

/// Every line trimmed of spaces and tabs at both ends, empty lines kept, joined with `separator`.
[[nodiscard]] inline TextBuffer trimAndJoinLines(std::string_view text, char separator) {
    return mapLines(
        text, [](std::string_view line) { return trimmed(line); }, separator);
}

} // namespace lexivore
