// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>

namespace lexivore::unicode_tables::generator {

/// Writes what initializes the role filters of the CodePointTables.
void writeRoleFilters(std::ostream &out);

} // namespace lexivore::unicode_tables::generator
