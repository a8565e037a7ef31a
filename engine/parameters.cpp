// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/parameters.h"

#include <charconv>
#include <string>

namespace lexivore {

namespace {

std::optional<std::string_view> valueOf(const ParameterMap &given, std::string_view key) {
    const auto found = given.find(key);
    return found == given.end() ? std::nullopt : std::optional<std::string_view>(found->second);
}

} // namespace

std::string_view requiredValue(const ParameterMap &given, std::string_view key) {
    const auto value = valueOf(given, key);
    if (!value) {
        throw TransformationError::missingParameter(std::string(key));
    }
    return *value;
}

std::string_view requiredNonEmptyValue(const ParameterMap &given, std::string_view key) {
    const std::string_view value = requiredValue(given, key);
    if (value.empty()) {
        throw TransformationError::missingParameter(std::string(key));
    }
    return value;
}

std::string_view valueOrEmpty(const ParameterMap &given, std::string_view key) {
    return valueOf(given, key).value_or(std::string_view());
}

std::optional<std::int64_t> wholeNumber(const ParameterMap &given, std::string_view key) {
    std::string_view digits = valueOrEmpty(given, key);
    if (digits.starts_with('+')) {
        digits.remove_prefix(1);
        if (digits.starts_with('-')) {
            return std::nullopt; // from_chars reads a minus sign itself
        }
    }
    std::int64_t number = 0;
    const char *const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

std::int64_t wholeNumberAtLeast(const ParameterMap &given, std::string_view key, std::int64_t minimum,
                                const char *message) {
    const auto number = wholeNumber(given, key);
    if (!number || *number < minimum) {
        throw TransformationError::invalidInput(message);
    }
    return *number;
}

} // namespace lexivore
