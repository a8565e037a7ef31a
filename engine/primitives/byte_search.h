// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace lexivore {

/// Where `pattern`, which is not empty, first occurs in `text`, or npos. Linear in the worst case too, unlike
/// std::string_view::find, which a text like "aaa…" makes quadratic. In UTF-8 a match never begins inside a code point.
[[nodiscard]] std::size_t findBytes(std::string_view text, std::string_view pattern);

} // namespace lexivore
