// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

/// What takes the place of a match, parsed once: literal text and references to groups in turn. "$" and one digit is
/// that group, a backslash makes the next character literal and is itself dropped, and everything else stands for
/// itself. No text is malformed.
class ReplacementTemplate {
public:
    explicit ReplacementTemplate(std::string_view text);

    /// Appends the replacement of one match; `appendGroup(int)` appends what that group matched, if anything.
    template<typename AppendGroup> void append(TextBuffer &to, AppendGroup appendGroup) const {
        for (const Part &part : m_parts) {
            to.append(part.literal);
            if (part.group != noGroup) {
                appendGroup(part.group);
            }
        }
    }

    /// The bytes that take the place of a match; `sizeOf(int)` tells those of a group.
    template<typename SizeOf> [[nodiscard]] std::size_t sizeFor(SizeOf sizeOf) const {
        std::size_t sum = m_literalBytes;
        for (std::size_t group = 0; group < m_uses.size(); ++group) {
            sum += m_uses[group] == 0 ? 0 : m_uses[group] * sizeOf(static_cast<int>(group));
        }
        return sum;
    }
    /// No text of `size` bytes becomes larger than this: its matches and their groups lie side by side.
    [[nodiscard]] std::size_t mostBytesFor(std::size_t size) const {
        return size * m_parts.size() + m_literalBytes * (size + 1);
    }

private:
    static constexpr int noGroup = -1;
    struct Part {
        std::string literal;
        int group;
    };
    std::vector<Part> m_parts;
    std::size_t m_literalBytes = 0;       ///< Of all parts together.
    std::array<std::size_t, 10> m_uses{}; ///< How many parts refer to each group: a template may have thousands.
};

} // namespace lexivore
