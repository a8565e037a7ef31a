// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/core_dumps.h"

#include <fstream>
#include <sys/resource.h>

namespace lexivore {

void keepMemoryOutOfCoreDumps() {
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
    // A limit does not hold for what the kernel hands to a helper, this does.
    std::ofstream("/proc/self/coredump_filter") << "0";
}

} // namespace lexivore
