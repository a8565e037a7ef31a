// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/memory_block.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>

// AddressSanitizer sees mistakes only in what malloc has given.
#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)
#define LEXIVORE_MAPS_BLOCKS
#include <sys/mman.h>
#endif

namespace lexivore {

namespace {

#ifdef LEXIVORE_MAPS_BLOCKS

constexpr std::size_t hugePageSize = std::size_t{1} << 21; ///< Of x86-64, and of AArch64 with pages of 4 KB.

constexpr bool isWorthMapping(std::size_t capacity) { return capacity >= hugePageSize; }

constexpr std::size_t roundedCapacity(std::size_t bytes) {
    const std::size_t wholePages = (bytes + hugePageSize - 1) / hugePageSize * hugePageSize;
    return bytes > hugePageSize / 2 ? wholePages : bytes;
}

void unmap(char *bytes, std::size_t size) {
    if (size > 0) {
        ::munmap(bytes, size);
    }
}

/// Addresses on the boundaries of huge pages, of `size` bytes, a multiple of their size, with `access` to them (see
/// mmap); null when there are none.
char *mapAligned(std::size_t size, int access) {
    void *const memory = ::mmap(nullptr, size + hugePageSize, access, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        return nullptr;
    }
    char *const bytes = static_cast<char *>(memory);
    const std::size_t before = (hugePageSize - reinterpret_cast<std::uintptr_t>(bytes) % hugePageSize) % hugePageSize;
    unmap(bytes, before);
    unmap(bytes + before + size, hugePageSize - before);
    return bytes + before;
}

/// The pages at `bytes`, moved to where there is room for `capacity` bytes; null, and they stay, when there is none.
char *moved(char *bytes, std::size_t size, std::size_t capacity) {
    char *const place = mapAligned(capacity, PROT_NONE);
    if (place != nullptr && ::mremap(bytes, size, capacity, MREMAP_MAYMOVE | MREMAP_FIXED, place) == MAP_FAILED) {
        unmap(place, capacity);
        return nullptr;
    }
    return place;
}

/// Mapped memory with another size, new one when there is none yet; null, and it stays, when that cannot be had.
char *remapped(char *bytes, std::size_t size, std::size_t capacity) {
    char *result = bytes;
    if (bytes == nullptr) {
        result = mapAligned(capacity, PROT_READ | PROT_WRITE);
    } else if (::mremap(bytes, size, capacity, 0) == MAP_FAILED) {
        result = moved(bytes, size, capacity);
    }
    if (result != nullptr) {
        (void)::madvise(result, capacity, MADV_HUGEPAGE); // a wish: without it everything is the same but slower
    }
    return result;
}

#else

constexpr bool isWorthMapping(std::size_t) { return false; }
constexpr std::size_t roundedCapacity(std::size_t bytes) { return bytes; }
void unmap(char *, std::size_t) {}
char *remapped(char *, std::size_t, std::size_t) { return nullptr; }

#endif

std::atomic<std::size_t> mapped = 0;

} // namespace

std::size_t MemoryBlock::mappedBytes() { return mapped; }

bool MemoryBlock::isMapped() const { return isWorthMapping(m_capacity); }

bool MemoryBlock::resize(std::size_t capacity) {
    if (capacity > SIZE_MAX / 2) {
        return false;
    }
    const std::size_t rounded = roundedCapacity(capacity);
    if (rounded == m_capacity) {
        return true;
    }
    if (m_bytes != nullptr && isWorthMapping(rounded) != isMapped()) {
        MemoryBlock other;
        if (!other.resize(rounded)) {
            return false;
        }
        std::memcpy(other.m_bytes, m_bytes, std::min(m_capacity, rounded));
        *this = std::move(other);
        return true;
    }
    char *const bytes = isWorthMapping(rounded) ? remapped(m_bytes, m_capacity, rounded)
                                                : static_cast<char *>(std::realloc(m_bytes, rounded));
    if (bytes == nullptr) {
        return false;
    }
    mapped += isWorthMapping(rounded) ? rounded - m_capacity : 0;
    m_bytes = bytes;
    m_capacity = rounded;
    return true;
}

void MemoryBlock::free() {
    if (isMapped()) {
        unmap(m_bytes, m_capacity);
        mapped -= m_capacity;
    } else {
        std::free(m_bytes);
    }
    m_bytes = nullptr;
    m_capacity = 0;
}

} // namespace lexivore
