// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <string_view>

namespace lexivore {

/// The sentences of `text`, which end with ".", "!" or "?", a line feed between them: without their ends, without the
/// spaces and tabs around them, and without those that are empty then.
[[nodiscard]] TextBuffer breakAfterSentences(std::string_view text);

} // namespace lexivore
