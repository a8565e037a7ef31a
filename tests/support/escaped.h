// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace lexivore::test {

/// `text` as a test failure shows it, on one line: printable ASCII as it is, other code points as "\u{E9}", bytes that
/// are no UTF-8 as "\xFF", and quotes around it all.
[[nodiscard]] std::string escaped(std::string_view text);

} // namespace lexivore::test
