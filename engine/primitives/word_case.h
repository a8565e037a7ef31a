// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <string_view>

namespace lexivore {

/// The first letter of every word titlecased, the rest of the word lowercased, everything else kept. A word is a
/// longest run of letters, marks and numbers, joined over an apostrophe that stands between two of them.
[[nodiscard]] TextBuffer capitalizeWords(std::string_view text);

/// How the words of an identifier are written.
struct IdentifierStyle {
    bool lowersFirstWord = true;   ///< Otherwise it is written like the others.
    bool capitalizesWords = false; ///< First letter upper case and the rest lower; otherwise all lower case.
    char joiner = '\0';            ///< Between the words; nothing when it is NUL.
};

/// The words of the whole text in that style, everything between them dropped. Here a word is a longest run of letters,
/// marks and numbers, so that an apostrophe separates too. Empty when the text has no word.
[[nodiscard]] TextBuffer joinIdentifierWords(std::string_view text, IdentifierStyle style);

} // namespace lexivore
