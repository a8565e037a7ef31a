// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/support/allocation.h"

#include "engine/primitives/memory_block.h"

#include <malloc.h>

#ifdef __SANITIZE_ADDRESS__
// The compiler's package does not always bring the sanitizer's own header.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // NOLINT(bugprone-reserved-identifier): its name
#endif

namespace lexivore::test {

std::size_t allocatedBytes() {
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd + MemoryBlock::mappedBytes();
#endif
}

} // namespace lexivore::test
