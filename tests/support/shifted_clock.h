// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>

namespace lexivore::test {

/// From now on the wall clock of this process begins at `seconds` after 1970 (UTC). What measures durations goes on as
/// before, and so do the times that the system gives to files.
void setClock(std::time_t seconds);

} // namespace lexivore::test
