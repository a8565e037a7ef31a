// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/primitives/text_buffer.h"

#include <cstddef>
#include <string_view>

namespace lexivore {

/// Builds a text out of parts. The short ones of a large text are made in a buffer that stays in the cache and moved
/// from there to their place past it: memory is written once, and not read before as it is when a cache takes it in.
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
            move(m_stage);
            m_stage.truncate(0);
        }
    }
    /// Appends a part that is no short one.
    void append(std::string_view part) {
        endPart();
        if (m_isStaged) {
            move(part);
        } else {
            m_to.append(part);
        }
    }

private:
    static constexpr std::size_t largeSize = std::size_t{1} << 22;

    void move(std::string_view part) {
        char *const place = m_to.room(part.size());
        kernels::best().copyPastCache(part.data(), part.size(), place);
        m_to.commit(place + part.size());
    }

    TextBuffer &m_to;
    TextBuffer m_stage;
    bool m_isStaged;
};

} // namespace lexivore
