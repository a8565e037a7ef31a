// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace lexivore::unicode_tables::generator {

/// What ICU calls UChar32.
using CodePoint = std::int32_t;
using EntryOfCodePoint = std::function<std::uint8_t(CodePoint)>;

/// Says what is wrong and ends the program.
[[noreturn]] void fail(const std::string &message);

/// Writes the definition of an array.
template<typename Number>
void writeArray(std::ostream &out, const std::string &type, const std::string &name,
                const std::vector<Number> &values) {
    out << "const " << type << ' ' << name << "[] = {";
    for (std::size_t i = 0; i < values.size(); ++i) {
        out << (i % 24 == 0 ? "\n" : "") << static_cast<std::int64_t>(values[i]) << ',';
    }
    out << "\n};\n";
}

/// Writes both stages of the table that `entryOf` describes, for the code points from `begin` on.
void writeTable(std::ostream &out, const std::string &blocksName, const std::string &entriesName,
                const EntryOfCodePoint &entryOf, CodePoint begin = 0);

} // namespace lexivore::unicode_tables::generator
