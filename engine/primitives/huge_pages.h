// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

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

} // namespace lexivore
