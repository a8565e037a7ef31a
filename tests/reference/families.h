// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/reference/reference.h"

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace lexivore::reference {

/// Carries the whole description.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

using Apply = std::u32string (*)(std::u32string_view text, const Parameters &parameters);

struct Row {
    std::string_view id;
    Apply apply;
};

// The families, in catalog order.
[[nodiscard]] std::vector<Row> caseRows();
[[nodiscard]] std::vector<Row> addRemoveRows();
[[nodiscard]] std::vector<Row> lineRows();
[[nodiscard]] std::vector<Row> sortingRows();
[[nodiscard]] std::vector<Row> findReplaceRows();
[[nodiscard]] std::vector<Row> encodingRows();

/// The code points of the value, or nothing when the key is absent.
[[nodiscard]] std::optional<std::u32string> value(const Parameters &parameters, std::string_view key);
/// As above; an absent key is the failure "Missing parameter: " and the key.
[[nodiscard]] std::u32string required(const Parameters &parameters, std::string_view key);
/// As above; an empty value is that failure too.
[[nodiscard]] std::u32string requiredNotEmpty(const Parameters &parameters, std::string_view key);
/// The value as a whole number of 64 bits in ASCII digits with an optional sign; nothing for any other text.
[[nodiscard]] std::optional<std::int64_t> number(const Parameters &parameters, std::string_view key);

[[nodiscard]] std::u32string wrapLines(std::u32string_view text, const Parameters &parameters);
[[nodiscard]] std::u32string trimAndJoin(std::u32string_view text, std::u32string_view separator);

} // namespace lexivore::reference
