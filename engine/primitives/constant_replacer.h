// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/primitives/membership_scan.h"
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
          m_result(TextBuffer::withCapacity(text.size() + text.size() / 8 + before.size() + roomBehind)) {
        std::copy_n(replacement.data(), std::min(replacement.size(), m_shortReplacement.size()),
                    m_shortReplacement.data());
        m_result.append(before);
        setRoom();
    }

    /// The parts begin at the places that `scan` finds in the text, and `sizeOf(const char *)` is their size. One that
    /// begins within the part before it is none.
    template<typename Scan, typename SizeOf> void replaceAll(Scan scan, SizeOf sizeOf) {
        Places places; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
        for (Stretch stretch; scan.next(stretch);) {
            const std::size_t count = kernels::best().listBits(stretch.members, stretch.blocks, places.data());
            if (m_replacement.size() <= m_shortReplacement.size() && m_end - stretch.end >= slack) {
                replaceShort(stretch, places, count, sizeOf);
            } else {
                for (std::size_t i = 0; i < count; ++i) {
                    replace(stretch.begin + places[i], sizeOf(stretch.begin + places[i]));
                }
            }
            copyUpTo(stretch.end); // while it is in the caches
        }
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
    /// How much more than asked for is read and written.
    static constexpr std::ptrdiff_t slack = 3 * copySlack;
    static constexpr std::size_t roomBehind = Stretch::mostBlocks * kernels::blockSize + slack;

    /// What `replace` does with each place, without asking about room each time, and in registers.
    template<typename SizeOf>
    void replaceShort(const Stretch &stretch, const Places &places, std::size_t count, SizeOf sizeOf) {
        const auto size = static_cast<std::size_t>(stretch.end - stretch.begin);
        ensureRoom(size + count * m_replacement.size() + slack);
        // Where the parts stand about a block apart, whether one block is to be copied between them or two is hard to
        // foresee for the processor: copying two is faster than asking.
        const std::size_t leastCopied = size / (count + 1) > copySlack / 2 ? 2 * copySlack : copySlack;
        const std::array<char, 16> replacement = m_shortReplacement;
        const std::size_t replacementSize = m_replacement.size();
        const char *position = m_position;
        char *to = m_to;
        for (std::size_t i = 0; i < count; ++i) {
            const char *const place = stretch.begin + places[i];
            if (place < position) {
                continue;
            }
            const auto before = static_cast<std::size_t>(place - position);
            copyInBlocks(position, std::max(before, leastCopied), to);
            std::memcpy(to + before, replacement.data(), replacement.size());
            to += before + replacementSize;
            position = place + sizeOf(place);
        }
        m_position = position;
        m_to = to;
    }

    void replace(const char *place, std::size_t size) {
        if (place < m_position) {
            return;
        }
        copyUpTo(place);
        ensureRoom(m_replacement.size());
        if (!m_replacement.empty()) { // nothing to copy may stand nowhere
            std::memcpy(m_to, m_replacement.data(), m_replacement.size());
        }
        m_to += m_replacement.size();
        m_position = place + size;
    }
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
