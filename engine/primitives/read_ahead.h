// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace lexivore {

/// Asks the memory for a text that is read from its beginning to its end. For whoever looks into tables meanwhile:
/// among many reads elsewhere the processor does not see by itself what will be read next.
class ReadAhead {
public:
    explicit ReadAhead(std::string_view text) : m_text(text) {}

    /// To be called every few kilobytes at the least: the text is read from there on next.
    void continueFrom(const char *place) {
        constexpr std::size_t distance = 8192; // fits the second cache; the first one is full of what is read now
        const std::size_t end = std::min(static_cast<std::size_t>(place - m_text.data()) + distance, m_text.size());
        for (; m_asked < end; m_asked += kernels::blockSize) {
            __builtin_prefetch(m_text.data() + m_asked, 0, 2);
        }
    }

private:
    std::string_view m_text;
    std::size_t m_asked = 0; ///< Bytes of the text.
};

} // namespace lexivore
