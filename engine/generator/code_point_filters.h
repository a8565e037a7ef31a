// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>

namespace lexivore::unicode_tables::generator {

/// Writes what initializes the filters for code points with a role.
void writeRoleFilters(std::ostream &out);

/// Writes what initializes the filters for code points that may change in composing.
void writeChangeableFilters(std::ostream &out);

} // namespace lexivore::unicode_tables::generator
