// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/generator/table_writing.h"
#include "engine/kernels/code_point_tables.h"

#include <array>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace lexivore::unicode_tables::generator {

/// The code points whose UTF-8 begins with the same bytes.
struct Prefix {
    CodePoint first = 0;
    unsigned bytesToCome = 0;
    CodePoint least = 0; ///< What is below can be written with fewer bytes.

    [[nodiscard]] CodePoint count() const { return 1 << (6 * bytesToCome); }
    [[nodiscard]] Prefix followedBy(CodePoint bits) const {
        return {first + (bits << (6 * (bytesToCome - 1))), bytesToCome - 1, least};
    }
};

/// Makes the pages of a CodePointPages: first those that are always there, then the children of each in turn.
class PageMaker {
public:
    /// The entry of what begins like this, or `deeper`.
    using EntryOf = std::function<std::uint8_t(const Prefix &)>;

    explicit PageMaker(EntryOf entryOf);

    /// Writes the arrays and returns what initializes a CodePointPages with them.
    [[nodiscard]] std::string write(std::ostream &out, const std::string &name) const;

    using Page = std::array<std::uint8_t, kernels::CodePointPages::pageSize>;
    static void writePages(std::ostream &out, const std::string &name, const std::vector<Page> &pages);
    static void writePage(std::ostream &out, const Page &page);

private:
    void addPage(const std::function<Prefix(CodePoint)> &prefixOf);

    EntryOf m_entryOf;
    std::vector<Page> m_pages;
    std::vector<std::uint16_t> m_firstChildren;
    std::vector<Prefix> m_waiting; ///< For their pages, in order.
};

/// The entry that all code points have which begin like this, or `deeper`.
[[nodiscard]] std::uint8_t commonEntry(const Prefix &prefix, const EntryOfCodePoint &entryOf, std::uint8_t illFormed);

} // namespace lexivore::unicode_tables::generator
