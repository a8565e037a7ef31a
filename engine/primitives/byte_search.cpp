// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/byte_search.h"

#include "engine/kernels/kernels.h"

#include <cstring>

namespace lexivore {

std::size_t findBytes(std::string_view text, std::string_view pattern) {
    bool gaveUp = false;
    const std::size_t place = kernels::best().find(text.data(), text.size(), pattern.data(), pattern.size(), gaveUp);
    if (!gaveUp) {
        return place == text.size() ? std::string_view::npos : place;
    }
    // memmem is the two-way algorithm in every C library that has it: slower, but linear whatever the text.
    const void *const found = memmem(text.data() + place, text.size() - place, pattern.data(), pattern.size());
    if (found == nullptr) {
        return std::string_view::npos;
    }
    return static_cast<std::size_t>(static_cast<const char *>(found) - text.data());
}

} // namespace lexivore
