// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/sequence_traits.h"

#include "engine/primitives/character_breaks.h"
#include "engine/primitives/unicode_tables.h"

namespace lexivore::sequence_traits {

namespace {

std::uint8_t traitsOf(char32_t codePoint) {
    const bool isAlone = character_breaks::breakClass(codePoint) == unicode_tables::BreakClass::other;
    return isAlone ? standsAlone : std::uint8_t{0};
}

std::uint8_t traitsOfAll(char32_t first, char32_t count) {
    std::uint8_t traits = 0xFF;
    for (char32_t codePoint = first; codePoint < first + count; ++codePoint) {
        traits &= traitsOf(codePoint);
    }
    return traits;
}

Table makeTable() {
    Table table;
    for (char32_t codePoint = 0x80; codePoint < 0x800; ++codePoint) {
        table.two[codePoint] = traitsOf(codePoint);
    }
    // Below, and among the surrogates, there are no well-formed sequences: they stay without traits.
    for (char32_t first = 0x800; first < 0x10000; first += 0x40) {
        table.three[first >> 6] = first >= 0xD800 && first < 0xE000 ? std::uint8_t{0} : traitsOfAll(first, 0x40);
    }
    for (char32_t first = 0x10000; first < 0x40000; first += 0x1000) {
        table.four[first >> 12] = traitsOfAll(first, 0x1000);
    }
    return table;
}

} // namespace

const Table &table() {
    static const Table made = makeTable();
    return made;
}

} // namespace lexivore::sequence_traits
