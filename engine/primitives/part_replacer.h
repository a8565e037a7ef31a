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

/// Copies a text with something else in place of many of its parts, each for a few instructions.
class PartReplacer {
public:
    /// `text` must outlive it. Room for `expectedBytes` is asked for at once; `before` is written first.
    PartReplacer(std::string_view text, std::size_t expectedBytes, std::string_view before = {})
        : m_position(text.data()), m_end(text.data() + text.size()),
          m_result(TextBuffer::withCapacity(expectedBytes + before.size() + roomBehind)) {
        m_result.append(before);
        setRoom();
    }

    /// The parts begin at the places that `scan` finds in the text, and `sizeOf(const char *)` is their size. One that
    /// begins within the part before it is none. `write(char *)` writes what stands in their place and returns the end
    /// of it; it may overwrite `longest` bytes.
    template<typename Scan, typename SizeOf, typename Write>
    void replaceAll(Scan scan, SizeOf sizeOf, std::size_t longest, Write write) {
        Places places; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
        for (Stretch stretch; scan.next(stretch);) {
            const std::size_t count = kernels::best().listBits(stretch.members, stretch.blocks, places.data());
            if (longest <= copySlack && m_end - stretch.end >= slack) {
                replaceShort(stretch, places, count, sizeOf, longest, write);
            } else {
                for (std::size_t i = 0; i < count; ++i) {
                    const char *const place = stretch.begin + places[i];
                    if (place >= m_position) {
                        copyUpTo(place);
                        ensureRoom(longest);
                        m_to = write(m_to);
                        m_position = place + sizeOf(place);
                    }
                }
            }
            copyUpTo(stretch.end); // while it is in the caches
        }
    }

    /// The same with `replacement` in place of every part.
    template<typename Scan, typename SizeOf> void replaceAll(Scan scan, SizeOf sizeOf, std::string_view replacement) {
        std::array<char, 16> bytes{};
        const std::size_t size = replacement.size();
        if (size <= bytes.size()) {
            std::copy(replacement.begin(), replacement.end(), bytes.begin());
            replaceAll(scan, sizeOf, bytes.size(), [bytes, size](char *to) {
                std::memcpy(to, bytes.data(), bytes.size()); // all of them at once, whatever the size
                return to + size;
            });
        } else {
            replaceAll(scan, sizeOf, size, [replacement](char *to) {
                std::memcpy(to, replacement.data(), replacement.size());
                return to + replacement.size();
            });
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

    /// Without asking about room for each part, and in registers.
    template<typename SizeOf, typename Write>
    void replaceShort(const Stretch &stretch, const Places &places, std::size_t count, SizeOf sizeOf,
                      std::size_t longest, Write &write) {
        const auto size = static_cast<std::size_t>(stretch.end - stretch.begin);
        ensureRoom(size + count * longest + slack);
        // Where the parts stand about a block apart, whether one block is to be copied between them or two is hard to
        // foresee for the processor: copying two is faster than asking.
        const std::size_t leastCopied = size / (count + 1) > copySlack / 2 ? 2 * copySlack : copySlack;
        const char *position = m_position;
        char *to = m_to;
        for (std::size_t i = 0; i < count; ++i) {
            const char *const place = stretch.begin + places[i];
            if (place < position) {
                continue;
            }
            const auto before = static_cast<std::size_t>(place - position);
            copyInBlocks(position, std::max(before, leastCopied), to);
            to = write(to + before);
            position = place + sizeOf(place);
        }
        m_position = position;
        m_to = to;
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
    TextBuffer m_result;
    char *m_to = nullptr;          ///< Where the result goes on...
    const char *m_limit = nullptr; ///< ... and where its room ends.
};

} // namespace lexivore
