// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

namespace lexivore::test {

/// While it lives, the process gets no more than so many bytes of memory beside those that it has: whoever asks for
/// more gets std::bad_alloc, and under AddressSanitizer the end of the program.
class MemoryCeiling {
public:
    explicit MemoryCeiling(std::size_t bytes) {
        getrlimit(RLIMIT_AS, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = std::min<rlim_t>(addressSpace() + bytes, m_before.rlim_cur);
        setrlimit(RLIMIT_AS, &limit);
    }
    ~MemoryCeiling() { setrlimit(RLIMIT_AS, &m_before); }
    MemoryCeiling(const MemoryCeiling &) = delete;
    MemoryCeiling &operator=(const MemoryCeiling &) = delete;

private:
    static std::size_t addressSpace() {
        std::size_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        return pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    }

    rlimit m_before{};
};

} // namespace lexivore::test
