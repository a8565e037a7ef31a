// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/text_buffer.h"

#include <array>
#include <cstddef>
#include <cstdint>
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
    std::string_view replacement; ///< At most EscapeTable::longest bytes.
};

/// What is written for each of some ASCII characters.
class EscapeTable {
public:
    static constexpr std::size_t longest = 7;

    struct Replacement {
        std::array<char, longest> text{}; ///< Zeros behind its length, so that all can be copied at once.
        std::uint8_t length = 0;
    };

    constexpr EscapeTable(std::initializer_list<Escape> escapes) {
        for (const Escape &escape : escapes) {
            m_characters.add(escape.character);
            Replacement &replacement = m_replacements[static_cast<unsigned char>(escape.character)];
            for (const char byte : escape.replacement) {
                replacement.text[replacement.length++] = byte;
            }
        }
    }
    [[nodiscard]] constexpr const Replacement &operator[](char byte) const {
        return m_replacements[static_cast<unsigned char>(byte)];
    }

    [[nodiscard]] constexpr const kernels::AsciiSet &characters() const { return m_characters; }

private:
    kernels::AsciiSet m_characters;
    std::array<Replacement, 128> m_replacements{};
};

/// `text` with every character of the table replaced, in one pass.
[[nodiscard]] TextBuffer escapeCharacters(std::string_view text, const EscapeTable &table);

} // namespace lexivore
