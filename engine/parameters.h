// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace lexivore {

/// The value of `key`. Throws missingParameter(key) when the key is absent; an empty value is a value.
[[nodiscard]] std::string_view requiredValue(const ParameterMap &given, std::string_view key);
/// As above, but an empty value counts as missing.
[[nodiscard]] std::string_view requiredNonEmptyValue(const ParameterMap &given, std::string_view key);
/// The value of `key`, or the empty text when the key is absent.
[[nodiscard]] std::string_view valueOrEmpty(const ParameterMap &given, std::string_view key);

/// The value of `key` as a whole base-10 number: ASCII digits, one optional sign, nothing around them.
/// Nothing when the key is absent, the text is no such number, or it does not fit in 64 bits.
[[nodiscard]] std::optional<std::int64_t> wholeNumber(const ParameterMap &given, std::string_view key);
/// As above, at least `minimum`. Throws invalidInput(message) when there is no such number.
[[nodiscard]] std::int64_t wholeNumberAtLeast(const ParameterMap &given, std::string_view key, std::int64_t minimum,
                                              const char *message);

} // namespace lexivore
