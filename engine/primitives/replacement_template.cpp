// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/replacement_template.h"

#include <utility>

namespace lexivore {

ReplacementTemplate::ReplacementTemplate(std::string_view text) {
    std::string literal;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool hasNext = i + 1 < text.size();
        if (text[i] == '\\') {
            // The backslash goes, and what follows, if anything does, stands for itself.
            if (hasNext) {
                literal += text[++i];
            }
        } else if (text[i] == '$' && hasNext && text[i + 1] >= '0' && text[i + 1] <= '9') {
            m_parts.push_back({std::move(literal), text[++i] - '0'});
            literal.clear();
        } else {
            literal += text[i];
        }
    }
    m_parts.push_back({std::move(literal), noGroup});
    for (const Part &part : m_parts) {
        m_literalBytes += part.literal.size();
        if (part.group != noGroup) {
            ++m_uses[static_cast<std::size_t>(part.group)];
        }
    }
}

} // namespace lexivore
