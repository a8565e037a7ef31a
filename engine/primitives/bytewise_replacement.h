// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"

#include <optional>
#include <string_view>

namespace lexivore {

/// What a kernel has to do with each byte to put `replacement` in place of `part`, which has 1 to
/// `kernels::longestMarked` bytes. Nothing when it cannot be told so: because the part may overlap itself, because
/// bytes of it that look alike to the kernel become different ones, or because the replacement is longer by too much.
[[nodiscard]] std::optional<kernels::BytewiseReplacement> bytewiseReplacement(std::string_view part,
                                                                              std::string_view replacement);

} // namespace lexivore
