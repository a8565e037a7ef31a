// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace lexivore {

/// Base-10 digits without grouping, whatever the user's locale.
[[nodiscard]] inline std::string decimalText(std::int64_t number) { return std::to_string(number); }

/// As "%.1f" prints it in the "C" locale, whatever the user's locale: one digit after a point. The exact value is
/// rounded, a tie to the even digit (0.25 gives "0.2", 0.35 gives "0.3" because the double is less than that).
[[nodiscard]] std::string oneDecimalText(double number);

} // namespace lexivore
