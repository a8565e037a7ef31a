// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/generator/table_writing.h"
#include "engine/kernels/code_point_tables.h"

#include <cstdint>

namespace lexivore::unicode_tables::generator {

/// What ICU says of a code point: an entry of `properties`.
[[nodiscard]] std::uint8_t propertiesOf(CodePoint c);
/// An entry of `traits`.
[[nodiscard]] std::uint8_t traitsOf(CodePoint c);
/// The two that the kernels know of each code point.
[[nodiscard]] kernels::Kind kindOf(CodePoint c);
[[nodiscard]] kernels::Role roleOf(CodePoint c);

} // namespace lexivore::unicode_tables::generator
