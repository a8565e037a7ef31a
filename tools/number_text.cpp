// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tools/number_text.h"

#include <charconv>
#include <limits>

namespace lexivore {

std::string oneDecimalText(double number) {
    // A sign, every digit of the largest double, the point and one digit.
    char text[std::numeric_limits<double>::max_exponent10 + 4];
    const std::to_chars_result result = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, 1);
    return {text, result.ptr};
}

} // namespace lexivore
