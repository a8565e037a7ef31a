// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

class QWidget;

namespace lexivore {

/// Which way a page goes through rows.
enum class PageDirection { up, down };

/// The index of the row that a page leads to from the one at `index`: the farthest that can be seen together with it,
/// and at least the next one. The rows stand in one column, the first one on top.
[[nodiscard]] std::size_t rowOnePageOn(const std::vector<QWidget *> &rows, std::size_t index, PageDirection direction);

} // namespace lexivore
