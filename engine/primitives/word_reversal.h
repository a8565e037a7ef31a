// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <string_view>

namespace lexivore {

/// The text with the words of each line, cut at whitespace, in reverse order with a space between them. The lines end
/// at any newline character, in place of which stands a line feed.
[[nodiscard]] TextBuffer withWordsReversed(std::string_view text);

} // namespace lexivore
