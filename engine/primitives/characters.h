// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/code_points.h"
#include "engine/text_buffer.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lexivore {

/// Number of characters in `text`, a character being an extended grapheme cluster (UAX #29, with Indic conjuncts as
/// ICU has them): a family emoji counts 1, "e" with a combining acute counts 1, CR LF counts 1. One pass.
[[nodiscard]] std::size_t characterCount(std::string_view text);

/// The end of the character that begins at byte `position`, which is a boundary before the end of `text`.
[[nodiscard]] std::size_t characterEnd(std::string_view text, std::size_t position);

/// Counts the characters of a text that arrives in pieces, as if the pieces were one text: a piece that begins with a
/// combining mark joins what precedes it.
class CharacterCounter {
public:
    void append(std::string_view piece);
    /// Appends `size` printable ASCII characters, in constant time.
    void appendPlain(std::size_t size);
    [[nodiscard]] std::size_t count() const { return m_count; }

private:
    std::size_t m_count = 0;
    std::uint8_t m_state = 0;
};

/// Calls `visit(std::string_view)` with every character of `text` in order.
template<typename Visit> void forEachCharacter(std::string_view text, Visit &&visit) {
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t end = characterEnd(text, position);
        visit(text.substr(position, end - position));
        position = end;
    }
}

/// Which characters a filter keeps. A character has the properties of its first code point.
struct CharacterFilter {
    CodePointSet set = 0;
    bool keepsMembers = true; ///< False: the members of `set` are dropped and everything else is kept.
};

/// The characters of `text` that `filter` keeps, in order.
[[nodiscard]] TextBuffer filterCharacters(std::string_view text, CharacterFilter filter);

/// The characters of `text` in reverse order, each one whole.
[[nodiscard]] TextBuffer reverseCharacters(std::string_view text);

} // namespace lexivore
