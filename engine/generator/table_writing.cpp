// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/generator/table_writing.h"

#include "engine/primitives/unicode_tables.h"

#include <array>
#include <cstdlib>
#include <iostream>
#include <map>

namespace lexivore::unicode_tables::generator {

void fail(const std::string &message) {
    std::cerr << "generate_unicode_tables: " << message << '\n';
    std::exit(1);
}

void writeTable(std::ostream &out, const std::string &blocksName, const std::string &entriesName,
                const EntryOfCodePoint &entryOf, CodePoint begin) {
    using Block = std::array<std::uint8_t, blockSize>;
    std::map<Block, std::uint16_t> known;
    std::vector<std::uint16_t> blocks;
    std::vector<std::uint8_t> entries;
    entries.reserve(codePointLimit);
    for (CodePoint first = begin; first < static_cast<CodePoint>(codePointLimit); first += blockSize) {
        Block block;
        for (std::size_t i = 0; i < blockSize; ++i) {
            block[i] = entryOf(first + static_cast<CodePoint>(i));
        }
        const auto [place, isNew] = known.emplace(block, static_cast<std::uint16_t>(known.size()));
        if (isNew) {
            entries.insert(entries.end(), block.begin(), block.end());
        }
        blocks.push_back(place->second);
    }
    writeArray(out, "std::uint16_t", blocksName, blocks);
    writeArray(out, "std::uint8_t", entriesName, entries);
}

} // namespace lexivore::unicode_tables::generator
