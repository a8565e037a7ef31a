// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <vector>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace lexivore {

/// Asks for large pages where it allocates megabytes: tables that are read and written in no order need far fewer
/// entries of the processor's page cache with them, and fresh memory is had in a few steps.
template<typename T> class HugePageAllocator {
public:
    using value_type = T;

    HugePageAllocator() = default;
    template<typename Other> HugePageAllocator(const HugePageAllocator<Other> &) {} // NOLINT: allocators convert

    [[nodiscard]] T *allocate(std::size_t count) {
        if (count > static_cast<std::size_t>(PTRDIFF_MAX) / sizeof(T)) {
            throw std::bad_array_new_length();
        }
        const std::size_t bytes = count * sizeof(T);
        if (!isWorthIt(bytes)) {
            return static_cast<T *>(::operator new(bytes));
        }
        const std::size_t rounded = (bytes + pageSize - 1) / pageSize * pageSize;
        void *const memory = std::aligned_alloc(pageSize, rounded);
        if (memory == nullptr) {
            throw std::bad_alloc();
        }
#ifdef MADV_HUGEPAGE
        (void)madvise(memory, rounded, MADV_HUGEPAGE); // a wish: without it everything is the same but slower
#endif
        return static_cast<T *>(memory);
    }
    void deallocate(T *memory, std::size_t count) {
        if (isWorthIt(count * sizeof(T))) {
            std::free(memory);
        } else {
            ::operator delete(memory);
        }
    }
    friend bool operator==(const HugePageAllocator &, const HugePageAllocator &) { return true; }

private:
    static constexpr std::size_t pageSize = std::size_t{1} << 21;
    static constexpr bool isWorthIt(std::size_t bytes) { return bytes >= 2 * pageSize; }
};

template<typename T> using HugeVector = std::vector<T, HugePageAllocator<T>>;

} // namespace lexivore
