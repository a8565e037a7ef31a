// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <string_view>

namespace lexivore {

/// The lines of `text` that are not there before, in order, joined with a line feed. Throws TextTooLarge from 4 GB on.
[[nodiscard]] TextBuffer distinctLines(std::string_view text);

} // namespace lexivore
