// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/line_groups.h"

#include "engine/primitives/lines.h"
#include "engine/primitives/text_buffer.h"

#include <cstdint>

namespace lexivore {

namespace {

constexpr std::size_t usualSize = std::size_t{1} << 16; ///< Of a group, in bytes.
constexpr std::size_t beginnings = std::size_t{1} << 16;

/// The first two bytes, zeros for what is missing: as a number, which orders as they do.
std::size_t beginningOf(std::string_view line) {
    const auto byteAt = [line](std::size_t index) { return std::size_t{static_cast<unsigned char>(line[index])}; };
    return line.size() >= 2 ? byteAt(0) << 8 | byteAt(1) : line.empty() ? 0 : byteAt(0) << 8;
}

} // namespace

LineGroups::LineGroups(std::string_view text) : m_lines(0) {
    std::vector<std::size_t> sizes(beginnings); // of all lines that begin alike
    forEachLine(text, [&sizes](std::string_view line) { sizes[beginningOf(line)] += line.size() + 1; });

    std::vector<std::uint16_t> groupOf(beginnings); // for each beginning
    std::size_t groupSize = usualSize;
    for (std::size_t beginning = 0; beginning < beginnings; ++beginning) {
        if (sizes[beginning] == 0) {
            continue;
        }
        if (groupSize + sizes[beginning] > usualSize) {
            const bool hasBothBytes = (beginning & 0xFFU) != 0;
            m_groups.push_back({m_size, m_size, 0, hasBothBytes ? std::size_t{2} : 0});
            m_size += copySlack;
            groupSize = 0;
        } else {
            m_groups.back().commonBytes = 0;
        }
        groupOf[beginning] = static_cast<std::uint16_t>(m_groups.size() - 1);
        groupSize += sizes[beginning];
        m_size += sizes[beginning];
    }
    m_lines = Scratch<char>(m_size);

    const char *const textEnd = text.data() + text.size();
    forEachLine(text, [&](std::string_view line) {
        Place &group = m_groups[groupOf[beginningOf(line)]];
        char *const to = m_lines.data() + group.end;
        copyShortPart(line, textEnd, to);
        to[line.size()] = '\n';
        group.end += line.size() + 1;
        ++group.lineCount;
    });
}

} // namespace lexivore
