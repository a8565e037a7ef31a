// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <string_view>

namespace lexivore {

/// The sentences between ".", "!" and "?", each trimmed, its first character uppercased and the rest lowercased, with
/// ". " in place of each of the three.
[[nodiscard]] TextBuffer capitalizeSentences(std::string_view text);

} // namespace lexivore
