// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <type_traits>
#include <vector>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace lexivore {

inline constexpr std::size_t hugePageSize = std::size_t{1} << 21;

/// Whether memory of that size should have huge pages.
[[nodiscard]] constexpr bool isWorthHugePages(std::size_t bytes) { return bytes >= 2 * hugePageSize; }

/// Asks for huge pages where those from `memory` on are not in use yet. A wish: without it everything is the same but
/// slower. The small page that `memory` lies in is included, for an allocator that keeps its own bytes before it could
/// not move memory of two kinds at once.
inline void wishForHugePages([[maybe_unused]] void *memory, [[maybe_unused]] std::size_t bytes) {
#ifdef MADV_HUGEPAGE
    constexpr std::uintptr_t smallPageSize = 4096;
    const auto address = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t before = address % smallPageSize;
    (void)madvise(static_cast<char *>(memory) - before, bytes + before, MADV_HUGEPAGE);
#endif
}

/// Takes huge pages where it allocates megabytes: tables that are read and written in no order need far fewer
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
        if (!isWorthHugePages(bytes)) {
            return static_cast<T *>(::operator new(bytes));
        }
        const std::size_t rounded = (bytes + hugePageSize - 1) / hugePageSize * hugePageSize;
        void *const memory = std::aligned_alloc(hugePageSize, rounded);
        if (memory == nullptr) {
            throw std::bad_alloc();
        }
        wishForHugePages(memory, rounded);
        return static_cast<T *>(memory);
    }
    void deallocate(T *memory, std::size_t count) {
        if (isWorthHugePages(count * sizeof(T))) {
            std::free(memory);
        } else {
            ::operator delete(memory);
        }
    }
    friend bool operator==(const HugePageAllocator &, const HugePageAllocator &) { return true; }
};

template<typename T> using HugeVector = std::vector<T, HugePageAllocator<T>>;

/// Room for a fixed number of values, which are not set before they are written.
template<typename T> class HugeScratch {
public:
    static_assert(std::is_trivially_copyable_v<T>);

    explicit HugeScratch(std::size_t count) : m_values(HugePageAllocator<T>().allocate(count)), m_count(count) {}
    HugeScratch(const HugeScratch &) = delete;
    HugeScratch &operator=(const HugeScratch &) = delete;
    ~HugeScratch() { HugePageAllocator<T>().deallocate(m_values, m_count); }

    [[nodiscard]] T *data() const { return m_values; }

private:
    T *m_values;
    std::size_t m_count;
};

} // namespace lexivore
