// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/support/escaped.h"

#include <unicode/utf8.h>

#include <cstdint>
#include <cstdio>

namespace lexivore::test {

namespace {

std::string formatted(const char *format, unsigned value) {
    char text[16];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

} // namespace

std::string escaped(std::string_view text) {
    std::string result = "\"";
    const auto *const bytes = reinterpret_cast<const std::uint8_t *>(text.data());
    const auto size = static_cast<std::int32_t>(text.size());
    for (std::int32_t position = 0; position < size;) {
        const std::int32_t begin = position;
        UChar32 codePoint = 0;
        U8_NEXT(bytes, position, size, codePoint);
        if (codePoint < 0) {
            position = begin + 1;
            result += formatted("\\x%02X", bytes[begin]);
        } else if (codePoint == '"' || codePoint == '\\') {
            result += '\\';
            result += static_cast<char>(codePoint);
        } else if (codePoint >= 0x20 && codePoint < 0x7F) {
            result += static_cast<char>(codePoint);
        } else {
            result += formatted("\\u{%X}", static_cast<unsigned>(codePoint));
        }
    }
    return result + "\"";
}

} // namespace lexivore::test
