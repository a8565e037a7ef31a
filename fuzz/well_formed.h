// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <unicode/unistr.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace lexivore::fuzz {

/// The bytes as ICU reads them: what is no UTF-8 becomes U+FFFD.
[[nodiscard]] inline std::string wellFormed(std::string_view bytes) {
    std::string result;
    icu::UnicodeString::fromUTF8({bytes.data(), static_cast<std::int32_t>(bytes.size())}).toUTF8String(result);
    return result;
}

} // namespace lexivore::fuzz
