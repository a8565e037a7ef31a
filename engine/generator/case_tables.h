// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>

namespace lexivore::unicode_tables::generator {

/// Writes the tables of upper, lower and title case and of the inversion of case.
void writeCaseTables(std::ostream &out);

} // namespace lexivore::unicode_tables::generator
