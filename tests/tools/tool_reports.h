// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lexivore::test {

/// The report on `text` of the tool that is called "tool:" and its id, or nothing when there is no such tool.
[[nodiscard]] std::optional<std::string> toolReport(std::string_view name, std::string_view text);

} // namespace lexivore::test
