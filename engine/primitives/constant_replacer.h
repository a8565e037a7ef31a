// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_buffer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

namespace lexivore {

/// Copies a text with the same replacement in place of many of its parts, each for a few instructions.
class ConstantReplacer {
public:
    /// `text` and `replacement` must outlive it. `before` is written first.
    ConstantReplacer(std::string_view text, std::string_view replacement, std::string_view before = {})
        : m_position(text.data()), m_end(text.data() + text.size()), m_replacement(replacement),
          m_result(TextBuffer::withCapacity(text.size() + text.size() / 8 + before.size() + 2 * copySlack)) {
        std::copy_n(replacement.data(), std::min(replacement.size(), m_shortReplacement.size()),
                    m_shortReplacement.data());
        m_result.append(before);
        setRoom();
    }

    /// The next part is `size` bytes at `place`. One that begins within the part before it is none.
    void replace(const char *place, std::size_t size) {
        if (place < m_position) {
            return;
        }
        copyUpTo(place);
        ensureRoom(m_replacement.size() + m_shortReplacement.size());
        if (m_replacement.size() <= m_shortReplacement.size()) {
            std::memcpy(m_to, m_shortReplacement.data(), m_shortReplacement.size());
        } else {
            std::memcpy(m_to, m_replacement.data(), m_replacement.size());
        }
        m_to += m_replacement.size();
        m_position = place + size;
    }

    /// Nothing before `place` is replaced from now on: it can be copied while it is in the caches.
    void copyUpTo(const char *place) {
        if (place <= m_position) {
            return;
        }
        const auto size = static_cast<std::size_t>(place - m_position);
        ensureRoom(size + copySlack);
        if (static_cast<std::size_t>(m_end - m_position) >= size + copySlack) {
            copyInBlocks(m_position, size, m_to);
        } else {
            std::memcpy(m_to, m_position, size);
        }
        m_to += size;
        m_position = place;
    }

    /// The result, with `behind` at its end.
    [[nodiscard]] TextBuffer take(std::string_view behind = {}) {
        copyUpTo(m_end);
        m_result.commit(m_to);
        m_result.append(behind);
        m_result.shrink();
        return std::move(m_result);
    }

private:
    void ensureRoom(std::size_t bytes) {
        if (static_cast<std::size_t>(m_limit - m_to) < bytes) {
            m_result.commit(m_to);
            (void)m_result.room(bytes);
            setRoom();
        }
    }
    void setRoom() {
        m_to = m_result.room(1);
        m_limit = m_result.data() + m_result.capacity();
    }

    const char *m_position; ///< Everything before it is copied or replaced.
    const char *m_end;
    std::string_view m_replacement;
    std::array<char, 16> m_shortReplacement{}; ///< Its beginning, to be copied at once whatever its size.
    TextBuffer m_result;
    char *m_to = nullptr;          ///< Where the result goes on...
    const char *m_limit = nullptr; ///< ... and where its room ends.
};

} // namespace lexivore
