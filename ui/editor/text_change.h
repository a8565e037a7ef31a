// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace lexivore {

/// A range of a text that was replaced. Offsets and lengths in bytes.
struct TextChange {
    std::size_t offset = 0;
    std::size_t removed = 0;
    std::size_t inserted = 0;
};

} // namespace lexivore
