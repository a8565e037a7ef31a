// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <string_view>

namespace lexivore {

// The lines of a text that hold or begin with `part`, which is not empty, or those that do not, joined with a line
// feed. The text is searched as a whole: lines that are not found cost no look of their own.

[[nodiscard]] TextBuffer linesContaining(std::string_view text, std::string_view part);
[[nodiscard]] TextBuffer linesNotContaining(std::string_view text, std::string_view part);
[[nodiscard]] TextBuffer linesStartingWith(std::string_view text, std::string_view part);
[[nodiscard]] TextBuffer linesNotStartingWith(std::string_view text, std::string_view part);

} // namespace lexivore
