// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/text_buffer.h"

#include <array>
#include <initializer_list>
#include <string_view>

namespace lexivore {

/// `text` with every occurrence of `find` replaced, from the start, without overlaps. An empty `find` occurs nowhere.
[[nodiscard]] TextBuffer replaceAll(std::string_view text, std::string_view find, std::string_view replacement);

/// `text` without the ASCII characters of `set`.
[[nodiscard]] TextBuffer removeCharacters(std::string_view text, const kernels::AsciiSet &set);

/// One ASCII character and what is written for it.
struct Escape {
    char character;
    std::string_view replacement;
};

/// What is written for each of some ASCII characters.
class EscapeTable {
public:
    constexpr EscapeTable(std::initializer_list<Escape> escapes) {
        for (const Escape &escape : escapes) {
            m_characters.add(escape.character);
            m_replacements[static_cast<unsigned char>(escape.character)] = escape.replacement;
        }
    }
    [[nodiscard]] constexpr std::string_view operator[](char byte) const {
        return m_replacements[static_cast<unsigned char>(byte)];
    }

    [[nodiscard]] constexpr const kernels::AsciiSet &characters() const { return m_characters; }

private:
    kernels::AsciiSet m_characters;
    std::array<std::string_view, 256> m_replacements{};
};

/// `text` with every character of the table replaced, in one pass.
[[nodiscard]] TextBuffer escapeCharacters(std::string_view text, const EscapeTable &table);

} // namespace lexivore
