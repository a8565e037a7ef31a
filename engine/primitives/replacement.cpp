// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/replacement.h"

#include "engine/primitives/byte_search.h"

namespace lexivore {

TextBuffer replaceAll(std::string_view text, std::string_view find, std::string_view replacement) {
    if (find.empty()) {
        return TextBuffer(text);
    }
    TextBuffer result = TextBuffer::withCapacity(text.size());
    while (true) {
        const std::size_t found = findBytes(text, find);
        if (found == std::string_view::npos) {
            break;
        }
        result.append(text.substr(0, found));
        result.append(replacement);
        text.remove_prefix(found + find.size());
    }
    result.append(text);
    result.shrink();
    return result;
}

TextBuffer escapeCharacters(std::string_view text, const EscapeTable &table) {
    TextBuffer result = TextBuffer::withCapacity(text.size() + text.size() / 8);
    std::size_t kept = 0;
    for (std::size_t position = 0; position < text.size(); ++position) {
        const std::string_view replacement = table[text[position]];
        if (!replacement.empty()) {
            result.append(text.substr(kept, position - kept));
            result.append(replacement);
            kept = position + 1;
        }
    }
    result.append(text.substr(kept));
    result.shrink();
    return result;
}

} // namespace lexivore
