// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/support/failing_allocations.h"

#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace {

thread_local std::size_t left = 0;
thread_local bool isArmed = false;
thread_local bool failed = false;
thread_local int pauses = 0;

bool mustFail() {
    if (!isArmed || pauses > 0 || left-- > 0) {
        return false;
    }
    isArmed = false;
    failed = true;
    return true;
}

void *allocatedOrNull(std::size_t size) { return mustFail() ? nullptr : std::malloc(size > 0 ? size : 1); }

void *allocated(std::size_t size) {
    void *const memory = allocatedOrNull(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

} // namespace

// The whole program's `new`, libraries included.
void *operator new(std::size_t size) { return allocated(size); }
void *operator new[](std::size_t size) { return allocated(size); }
void *operator new(std::size_t size, const std::nothrow_t &) noexcept { return allocatedOrNull(size); }
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept { return allocatedOrNull(size); }
void operator delete(void *memory) noexcept { std::free(memory); }
void operator delete[](void *memory) noexcept { std::free(memory); }
void operator delete(void *memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void *memory, std::size_t) noexcept { std::free(memory); }

// The linker's --wrap sends calls of our own sources here.
// NOLINTBEGIN(bugprone-reserved-identifier): the linker's names
extern "C" {
void *__real_realloc(void *memory, std::size_t size);
void *__wrap_realloc(void *memory, std::size_t size) { return mustFail() ? nullptr : __real_realloc(memory, size); }
void *__real_mmap(void *place, std::size_t size, int access, int flags, int file, off_t offset);
void *__wrap_mmap(void *place, std::size_t size, int access, int flags, int file, off_t offset) {
    return mustFail() ? MAP_FAILED : __real_mmap(place, size, access, flags, file, offset);
}
}
// NOLINTEND(bugprone-reserved-identifier)

namespace lexivore::test {

FailingAllocations::FailingAllocations(std::size_t successful) {
    left = successful;
    failed = false;
    isArmed = true;
}

FailingAllocations::~FailingAllocations() { isArmed = false; }

bool FailingAllocations::hasFailed() { return failed; }

FailingAllocations::Pause::Pause() { ++pauses; }

FailingAllocations::Pause::~Pause() { --pauses; }

} // namespace lexivore::test
