// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/line_order.h"

#include "engine/primitives/line_mapping.h"
#include "engine/primitives/lines.h"

namespace lexivore {

LineOrder::LineOrder(std::string_view text) : m_text(text), m_size(lineCount(text)), m_places(m_size) {
    if (text.size() > UINT32_MAX) {
        throw TextTooLarge();
    }
    LinePlace *place = m_places.data();
    forEachLine(text, [&](std::string_view line) {
        *place++ = {static_cast<std::uint32_t>(line.data() - text.data()), static_cast<std::uint32_t>(line.size())};
    });
}

TextBuffer LineOrder::join() const {
    constexpr std::size_t ahead = 16; // lines in a new order come from anywhere in the text
    TextBuffer result;
    LineWriter writer(result, m_text, m_text.size() / m_size);
    for (std::size_t i = 0; i < m_size; ++i) {
        if (i + ahead < m_size) {
            const std::string_view line = lineAt(i + ahead);
            __builtin_prefetch(line.data());
            __builtin_prefetch(line.data() + line.size());
        }
        writer.add(lineAt(i));
        writer.add('\n');
    }
    result.commit(writer.end() - 1);
    result.shrink();
    return result;
}

} // namespace lexivore
