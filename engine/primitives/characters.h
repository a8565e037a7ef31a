// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/code_points.h"
#include "engine/primitives/text_buffer.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lexivore {

/// Number of characters in `text`, a character being an extended grapheme cluster (UAX #29, with Indic conjuncts as
/// ICU has them): a family emoji counts 1, "e" with a combining acute counts 1, CR LF counts 1. One pass.
[[nodiscard]] std::size_t characterCount(std::string_view text);

/// How many characters there are, and what is found out by the way.
struct CharacterCount {
    std::size_t characters = 0;
    /// False when no character takes in a space that follows it: no text but those with rare code points has any.
    bool mayTakeInSpaces = false;
};
[[nodiscard]] CharacterCount countCharacters(std::string_view text);

/// True when the first code point of `text`, which is not empty, joins a space that stands before it.
[[nodiscard]] bool joinsSpaceBefore(std::string_view text);

/// The end of the character that begins at byte `position`, which is a boundary before the end of `text`.
[[nodiscard]] std::size_t characterEnd(std::string_view text, std::size_t position);

/// Walks the characters of a text in order and looks at each code point once.
class CharacterWalk {
public:
    explicit CharacterWalk(std::string_view text);
    /// The next character, or false when there is none.
    [[nodiscard]] bool next(std::string_view &character);

private:
    const char *m_position; ///< Where the next character begins.
    const char *m_end;
    std::size_t m_passed = 0; ///< The length of its first code point, which is behind us...
    std::uint8_t m_state = 0; ///< ... in this state.
};

/// Calls `visit(std::string_view)` with every character of `text` in order.
template<typename Visit> void forEachCharacter(std::string_view text, Visit &&visit) {
    CharacterWalk walk(text);
    for (std::string_view character; walk.next(character);) {
        visit(character);
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
