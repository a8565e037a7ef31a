// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/scratch.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace lexivore {

/// A copy of the lines of a text in groups by the bytes that they begin with: all lines of a group come before all of
/// the next one in the order of their bytes, and groups are small enough for the caches where the text allows it. In a
/// group the lines keep their order.
class LineGroups {
public:
    /// Costs two looks at the text and the copy.
    explicit LineGroups(std::string_view text);

    [[nodiscard]] std::size_t size() const { return m_groups.size(); }

    struct Group {
        std::string_view text; ///< The lines with a line feed between them; at least one.
        std::size_t lineCount;
        std::size_t commonBytes; ///< That all of the lines begin with.
    };
    [[nodiscard]] Group operator[](std::size_t index) const {
        const Place &group = m_groups[index];
        return {{m_lines.data() + group.begin, group.end - group.begin - 1}, group.lineCount, group.commonBytes};
    }

    /// What the groups are parts of.
    [[nodiscard]] std::string_view all() const { return {m_lines.data(), m_size}; }

private:
    struct Place {
        std::size_t begin; ///< In the copy, in bytes.
        std::size_t end;   ///< Behind the last line feed.
        std::size_t lineCount;
        std::size_t commonBytes;
    };

    std::vector<Place> m_groups;
    std::size_t m_size = 0;
    Scratch<char> m_lines; ///< With a line feed behind each, and room behind each group.
};

} // namespace lexivore
