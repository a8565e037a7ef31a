// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/string_keys.h"

#include "engine/primitives/text_buffer.h"

namespace lexivore {

namespace {

constexpr std::size_t largestOffset = UINT32_MAX;

} // namespace

StringKeys::StringKeys(std::string_view text, SortDirection direction)
    : m_text(text), m_turned(direction == SortDirection::descending ? ~std::uint64_t{0x1F} : 0) {
    if (text.size() > largestOffset) {
        throw TextTooLarge();
    }
}

StringKeys::Entry StringKeys::entryOf(std::string_view part, std::string_view instead) {
    const Place place{static_cast<std::uint32_t>(part.data() - m_text.data()), static_cast<std::uint32_t>(part.size())};
    const std::size_t offset = m_text.size() + m_others.size() + sizeof place;
    if (offset + instead.size() > largestOffset) {
        throw TextTooLarge();
    }
    m_others.append(reinterpret_cast<const char *>(&place), sizeof place);
    m_others += instead;
    Entry entry{0, static_cast<std::uint32_t>(offset), static_cast<std::uint32_t>(instead.size())};
    entry.key = keyAt(entry, 0);
    return entry;
}

std::uint64_t StringKeys::bytesAtEnd(std::string_view bytes) {
    std::uint64_t result = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        result |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (56 - 8 * i);
    }
    return result;
}

} // namespace lexivore
