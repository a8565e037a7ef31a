// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <cstddef>
#include <string_view>

namespace lexivore {

/// `text` filled into lines of at most `width` characters, broken with a line feed at spaces and tabs alone. A longer
/// word stands alone and whole. Line breaks of the text are no places to break and count as characters. Every space and
/// tab separates two pieces, so that runs of them within a line stay, as spaces.
[[nodiscard]] TextBuffer wrapText(std::string_view text, std::size_t width);

} // namespace lexivore
