// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/memory_limit.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <optional>
#include <sys/resource.h>
#include <unistd.h>
#include <utility>

namespace lexivore {

namespace {

constexpr std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();

#ifdef __SANITIZE_ADDRESS__ // whose own bookkeeping takes terabytes of addresses
constexpr bool canBeLimited = false;
#else
constexpr bool canBeLimited = true;
#endif

/// The number in the file; there is none when it says "max", or is not there.
std::uint64_t numberIn(const std::string &path) {
    std::uint64_t number = 0;
    return (std::ifstream(path) >> number) ? number : unlimited;
}

std::uint64_t physicalMemory() {
    const long pages = ::sysconf(_SC_PHYS_PAGES);
    const long pageSize = ::sysconf(_SC_PAGESIZE);
    return pages > 0 && pageSize > 0 ? static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageSize)
                                     : unlimited;
}

std::string ownControlGroup() {
    std::ifstream file("/proc/self/cgroup");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("0::")) {
            return line;
        }
    }
    return {};
}

/// What `limitMemory` replaced, if it did.
std::optional<rlim_t> &limitBefore() {
    static std::optional<rlim_t> before;
    return before;
}

/// Sets the limit of what this process may have and returns the one before; none when it cannot be done.
std::optional<rlim_t> exchangeLimit(rlim_t wanted) {
    rlimit limit{};
    if (::getrlimit(RLIMIT_DATA, &limit) != 0) {
        return std::nullopt;
    }
    const rlim_t before = std::exchange(limit.rlim_cur, wanted);
    return ::setrlimit(RLIMIT_DATA, &limit) == 0 ? std::optional(before) : std::nullopt;
}

} // namespace

std::uint64_t memoryOfControlGroup(std::string_view group, const std::string &root) {
    constexpr std::string_view mark = "0::";
    std::uint64_t least = unlimited;
    for (std::string_view path = group.substr(group.starts_with(mark) ? mark.size() : group.size()); !path.empty();
         path = path.substr(0, path.rfind('/'))) {
        least = std::min(least, numberIn(root + std::string(path) + "/memory.max"));
        if (path.find('/') == std::string_view::npos) {
            break;
        }
    }
    return least;
}

void limitMemory() {
    const std::uint64_t memory = std::min(physicalMemory(), memoryOfControlGroup(ownControlGroup()));
    rlimit limit{};
    if (!canBeLimited || memory == unlimited || ::getrlimit(RLIMIT_DATA, &limit) != 0) {
        return;
    }
    const rlim_t most = memory / 4 * 3;
    if (limit.rlim_cur > most) {
        limitBefore() = exchangeLimit(most);
    }
}

ChildrenWithoutMemoryLimit::ChildrenWithoutMemoryLimit() {
    if (limitBefore()) {
        limitBefore() = exchangeLimit(*limitBefore());
    }
}

ChildrenWithoutMemoryLimit::~ChildrenWithoutMemoryLimit() {
    if (limitBefore()) {
        limitBefore() = exchangeLimit(*limitBefore());
    }
}

} // namespace lexivore
