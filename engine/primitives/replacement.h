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
        setPairs();
    }
    [[nodiscard]] constexpr const Replacement &operator[](char byte) const {
        return m_replacements[static_cast<unsigned char>(byte)];
    }

    [[nodiscard]] constexpr const kernels::AsciiSet &characters() const { return m_characters; }
    /// The same for a kernel, or null when these are no escapes of that kind.
    [[nodiscard]] constexpr const kernels::PairEscapes *pairs() const { return m_hasPairs ? &m_pairs : nullptr; }

private:
    constexpr void setPairs() {
        m_pairs.escaped = m_characters;
        m_hasPairs = true;
        for (std::size_t i = 0; i < m_replacements.size(); ++i) {
            const Replacement &replacement = m_replacements[i];
            const bool isEscaped = m_characters.contains(static_cast<char>(i));
            m_pairs.seconds[i] = isEscaped ? replacement.text[1] : static_cast<char>(i);
            if (isEscaped) {
                const bool isFirst = m_pairs.first == '\0';
                m_pairs.first = isFirst ? replacement.text[0] : m_pairs.first;
                m_hasPairs = m_hasPairs && replacement.length == 2 && replacement.text[0] == m_pairs.first;
            }
        }
    }

    kernels::AsciiSet m_characters;
    std::array<Replacement, 128> m_replacements{};
    kernels::PairEscapes m_pairs;
    bool m_hasPairs = false;
};

/// `text` with every character of the table replaced, in one pass.
[[nodiscard]] TextBuffer escapeCharacters(std::string_view text, const EscapeTable &table);

} // namespace lexivore
