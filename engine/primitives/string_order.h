// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace lexivore {

enum class SortDirection { ascending, descending };

/// True when `text` is certain to be its own composed form: strings of which this is true are ordered by their bytes.
[[nodiscard]] bool isOrderedByBytes(std::string_view text);

/// Sorts by the code points of the canonically composed form (NFC), not by locale and with letter case distinct.
/// Stable in both directions: different strings with the same composed form keep their input order.
void sortByStringOrder(std::vector<std::string_view> &strings, SortDirection direction);

} // namespace lexivore
