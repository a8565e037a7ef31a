// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/byte_search.h"

#include <cstring>

namespace lexivore {

std::size_t findBytes(std::string_view text, std::string_view pattern) {
    if (text.size() < pattern.size()) {
        return std::string_view::npos; // and so memmem never sees the null pointer of an empty text
    }
    // memmem is the two-way algorithm in every C library that has it: linear time, constant memory.
    const void *const found = memmem(text.data(), text.size(), pattern.data(), pattern.size());
    if (found == nullptr) {
        return std::string_view::npos;
    }
    return static_cast<std::size_t>(static_cast<const char *>(found) - text.data());
}

} // namespace lexivore
