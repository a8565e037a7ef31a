// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/text_buffer.h"

#include <cstddef>

namespace lexivore {

/// Builds a text out of short parts. Those of a large text are made in a buffer that stays in the cache and moved from
/// there to their place past it: memory is written once, and not read before as it is when a cache takes it in.
class StagedText {
public:
    /// How many bytes of a text to read for a part, so that what is read and written fits the cache.
    static constexpr std::size_t stretch = 4096;

    /// Parts are appended to `to`, which is not touched meanwhile. `expectedSize` decides how.
    StagedText(TextBuffer &to, std::size_t expectedSize) : m_to(to), m_isStaged(expectedSize >= largeSize) {}

    /// Where the next part is appended.
    [[nodiscard]] TextBuffer &part() { return m_isStaged ? m_stage : m_to; }
    /// After each part, the last one too.
    void endPart() {
        if (m_isStaged && !m_stage.empty()) {
            char *const place = m_to.room(m_stage.size());
            kernels::best().copyPastCache(m_stage.data(), m_stage.size(), place);
            m_to.commit(place + m_stage.size());
            m_stage.truncate(0);
        }
    }

    /// Of a text, in bytes, from which on the caches hold little of it.
    static constexpr std::size_t largeSize = std::size_t{1} << 22;

private:
    TextBuffer &m_to;
    TextBuffer m_stage;
    bool m_isStaged;
};

} // namespace lexivore
