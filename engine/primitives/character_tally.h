// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace lexivore {

/// A character where it first stands in the text, and how often it occurs.
struct TalliedCharacter {
    std::string_view firstAppearance;
    std::int64_t count = 0;
};

/// Every different character of `text`, in no order. They are the same when their bytes are. For any bytes; one pass.
[[nodiscard]] std::vector<TalliedCharacter> tallyCharacters(std::string_view text);

} // namespace lexivore
