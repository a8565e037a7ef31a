// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lexivore {

/// From now on an allocation fails, and can be reported with nothing lost, when the program has taken three quarters of
/// the memory that the machine, or the control group that it runs in, has at all. Without that the system would grant
/// everything, and end the program once it used it. A stricter limit that is set already stays.
/// Programs that are started inherit it, but for those started while a ChildrenWithoutMemoryLimit lives.
void limitMemory();

/// While one lives this process is limited as it was before `limitMemory`, and with it each program that it starts:
/// what is right for an editor may be too little for a browser. One at a time.
class ChildrenWithoutMemoryLimit {
public:
    ChildrenWithoutMemoryLimit();
    ~ChildrenWithoutMemoryLimit();
    ChildrenWithoutMemoryLimit(const ChildrenWithoutMemoryLimit &) = delete;
    ChildrenWithoutMemoryLimit &operator=(const ChildrenWithoutMemoryLimit &) = delete;
};

/// The least memory, in bytes, that a control group allows, seen from `group` (a line of /proc/self/cgroup, such as
/// "0::/user.slice/app.scope") up to the top. The largest number when none says so.
[[nodiscard]] std::uint64_t memoryOfControlGroup(std::string_view group, const std::string &root = "/sys/fs/cgroup");

} // namespace lexivore
