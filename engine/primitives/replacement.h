// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/primitives/text_buffer.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <string_view>

namespace lexivore {

/// `text` with every occurrence of `find` replaced, from the start, without overlaps. An empty `find` occurs nowhere.
[[nodiscard]] TextBuffer replaceAll(std::string_view text, std::string_view find, std::string_view replacement);

/// `text` without the ASCII characters of `set`.
[[nodiscard]] TextBuffer removeCharacters(std::string_view text, const kernels::AsciiSet &set);

/// One ASCII character and what is written for it.
struct Escape {
    char character;
    std::string_view replacement; ///< At most kernels::Replacement::longest bytes.
};

/// What is written for each of some ASCII characters.
class EscapeTable {
public:
    /// At most kernels::PartReplacements::most of them.
    constexpr EscapeTable(std::initializer_list<Escape> escapes) {
        for (std::size_t i = 0; i < std::size(m_pairs.seconds); ++i) {
            m_pairs.seconds[i] = static_cast<char>(i);
        }
        for (const auto &[character, replacement] : escapes) {
            const auto byte = static_cast<std::uint8_t>(character);
            m_characters.add(character);
            m_parts.sizes[byte] = 1;
            m_parts.indices[byte] = static_cast<std::uint8_t>(m_parts.count);
            m_parts.replacements[m_parts.count++] = kernels::Replacement(replacement);
            const bool isPair = replacement.size() == 2 && (m_pairs.first == '\0' || m_pairs.first == replacement[0]);
            if (isPair) {
                m_pairs.first = replacement[0];
                m_pairs.seconds[byte] = replacement[1];
            }
            m_hasPairs = m_hasPairs && isPair;
        }
        m_pairs.escaped = m_characters;
    }

    [[nodiscard]] constexpr const kernels::AsciiSet &characters() const { return m_characters; }
    [[nodiscard]] constexpr const kernels::PartReplacements &parts() const { return m_parts; }
    /// The same for a kernel, or null when these are no escapes of that kind.
    [[nodiscard]] constexpr const kernels::PairEscapes *pairs() const { return m_hasPairs ? &m_pairs : nullptr; }

private:
    kernels::AsciiSet m_characters;
    kernels::PartReplacements m_parts;
    kernels::PairEscapes m_pairs;
    bool m_hasPairs = true;
};

/// `text` with every character of the table replaced, in one pass.
[[nodiscard]] TextBuffer escapeCharacters(std::string_view text, const EscapeTable &table);

} // namespace lexivore
