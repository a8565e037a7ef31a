// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace lexivore {

/// The number of characters in each line of `text`, newline characters not counted. One pass over the whole text, which
/// costs less than counting many short lines.
[[nodiscard]] std::vector<std::size_t> lineLengths(std::string_view text);

} // namespace lexivore
