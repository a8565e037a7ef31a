// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/lines.h"
#include "engine/text_buffer.h"

#include <cstddef>
#include <string_view>
#include <utility>

namespace lexivore {

/// Builds a text of pieces, lent from one other text, with a separator between them. Pieces that stood side by side
/// with that very separator between them already are copied as one, so that what changes nothing costs next to nothing.
class Joiner {
public:
    Joiner(std::string_view separator, std::size_t expectedBytes)
        : m_separator(separator), m_result(TextBuffer::withCapacity(expectedBytes)) {}

    void add(std::string_view piece) {
        if (m_hasPiece) {
            const char *const previousEnd = m_pending.data() + m_pending.size();
            if (m_separator.size() == 1 && piece.data() == previousEnd + 1 && *previousEnd == m_separator[0]) {
                m_pending = {m_pending.data(), m_pending.size() + 1 + piece.size()};
                return;
            }
            m_result.append(m_pending);
            m_result.append(m_separator);
        }
        m_hasPiece = true;
        m_pending = piece;
    }
    [[nodiscard]] TextBuffer take() {
        m_result.append(m_pending);
        m_result.shrink();
        return std::move(m_result);
    }

private:
    std::string_view m_separator;
    std::string_view m_pending; ///< Added but not copied yet.
    TextBuffer m_result;
    bool m_hasPiece = false;
};

/// Every line as `map(std::string_view) -> std::string_view` gives it, joined with `separator`.
template<typename Map>
[[nodiscard]] TextBuffer mapLines(std::string_view text, Map &&map, std::string_view separator = "\n") {
    Joiner joiner(separator, text.size());
    forEachLine(text, [&](std::string_view line) { joiner.add(map(line)); });
    return joiner.take();
}

/// Every line as it is, joined with `separator`.
[[nodiscard]] inline TextBuffer joinLines(std::string_view text, std::string_view separator) {
    return mapLines(
        text, [](std::string_view line) { return line; }, separator);
}

/// The lines for which `keep(std::string_view)` is true, unchanged, joined with a line feed.
template<typename Keep> [[nodiscard]] TextBuffer filterLines(std::string_view text, Keep &&keep) {
    Joiner joiner("\n", text.size());
    forEachLine(text, [&](std::string_view line) {
        if (keep(line)) {
            joiner.add(line);
        }
    });
    return joiner.take();
}

/// Every line trimmed of spaces and tabs at both ends, empty lines kept, joined with `separator`.
[[nodiscard]] inline TextBuffer trimAndJoinLines(std::string_view text, std::string_view separator) {
    return mapLines(text, trimmed, separator);
}

} // namespace lexivore
