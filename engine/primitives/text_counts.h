// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace lexivore {

/// What there is in a text, beside its characters. A piece is blank when it is empty or holds nothing but the
/// whitespace set, which has spaces and tabs but no line breaks.
struct TextCounts {
    std::size_t whitespaceCharacters = 0; ///< Characters whose first code point has the property White_Space.
    std::size_t words = 0;                ///< The pieces between white space and newlines that are not empty.
    std::size_t lines = 0;                ///< The pieces between newline characters; at least 1.
    std::size_t nonBlankLines = 0;
    std::size_t nonBlankSentences = 0;  ///< Of the pieces between ".", "!" and "?".
    std::size_t nonBlankParagraphs = 0; ///< Of the pieces between "\n\n", found from the start without overlaps.
};

/// Whether a space may belong to the character before it, as countCharacters tells.
enum class Spaces : bool { standAlone, mayBeTakenIn };

/// One pass. Bytes that are no UTF-8 count as replacement characters.
[[nodiscard]] TextCounts countText(std::string_view text, Spaces spaces = Spaces::mayBeTakenIn);

} // namespace lexivore
