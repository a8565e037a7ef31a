// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace lexivore::test {

/// Lets allocations fail on purpose: `new`, whoever calls it, and the realloc and mmap of our own sources (the program
/// links lexivore_failing_allocations). Nothing fails unless one of these lives.
class FailingAllocations {
public:
    /// Lets the allocation fail before which `successful` others have succeeded. Those after it succeed again.
    explicit FailingAllocations(std::size_t successful);
    ~FailingAllocations();
    FailingAllocations(const FailingAllocations &) = delete;
    FailingAllocations &operator=(const FailingAllocations &) = delete;

    /// Whether it came to that.
    [[nodiscard]] static bool hasFailed();

    /// None fails while this lives: for what belongs to the test or is not being tested.
    class Pause {
    public:
        Pause();
        ~Pause();
        Pause(const Pause &) = delete;
        Pause &operator=(const Pause &) = delete;
    };
};

} // namespace lexivore::test
