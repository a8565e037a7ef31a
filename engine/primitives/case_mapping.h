// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <string_view>

namespace lexivore {

// Full case mappings of Unicode's root locale (The Unicode Standard, section 3.13): "ß" gives "SS", a capital sigma at
// the end of a word gives "ς", "İ" gives "i̇". The user's locale never matters.

void appendUppercase(TextBuffer &to, std::string_view text);

/// `text` lowercased as a part of `context`, which holds it: what stands around a capital sigma there decides whether
/// it is a final one.
void appendLowercase(TextBuffer &to, std::string_view text, std::string_view context);
inline void appendLowercase(TextBuffer &to, std::string_view text) { appendLowercase(to, text, text); }

/// Every upper-case character lowercased and every lower-case one uppercased. A character is upper case when it equals
/// its own uppercase form and differs from its lowercase form; lower case the other way round.
[[nodiscard]] TextBuffer invertCase(std::string_view text);

/// Letters in turn uppercased and lowercased, beginning with upper; every other character is kept and takes no turn.
[[nodiscard]] TextBuffer alternateCase(std::string_view text);

} // namespace lexivore
