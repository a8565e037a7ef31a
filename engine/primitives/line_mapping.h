// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/lines.h"
#include "engine/text_buffer.h"

#include <cstddef>
#include <string_view>

namespace lexivore {

/// Builds a text of pieces with a separator between them.
class Joiner {
public:
    Joiner(std::string_view separator, std::size_t expectedBytes)
        : m_separator(separator), m_result(TextBuffer::withCapacity(expectedBytes)) {}

    /// Begins the next piece; what is appended to `result()` until the next call belongs to it.
    void beginPiece() {
        if (m_hasPiece) {
            m_result.append(m_separator);
        }
        m_hasPiece = true;
    }
    void add(std::string_view piece) {
        beginPiece();
        m_result.append(piece);
    }
    [[nodiscard]] TextBuffer &result() { return m_result; }
    [[nodiscard]] TextBuffer take() {
        m_result.shrink();
        return std::move(m_result);
    }

private:
    std::string_view m_separator;
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
