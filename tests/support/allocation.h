// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace lexivore::test {

/// Bytes that are allocated at this moment, by malloc, new and for texts, in the whole process. Exact enough to see
/// whether something large was copied.
[[nodiscard]] std::size_t allocatedBytes();

} // namespace lexivore::test
