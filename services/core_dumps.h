// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

namespace lexivore {

/// From now on a crash of this process, or of one that it starts, writes no memory to the disk: no core file, and a
/// helper of the system that collects crashes is given the registers alone. Whoever wants to look into a crash can run
/// the program in a debugger, or write 0x33 to /proc/PID/coredump_filter while it runs.
///
/// The process stays "dumpable" all the same: otherwise the desktop's portals, which tell light from dark, could not
/// find out who asks.
void keepMemoryOutOfCoreDumps();

} // namespace lexivore
