// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/generator/code_point_pages.h"

#include "engine/primitives/unicode_tables.h"

#include <unicode/utf.h>

#include <utility>

namespace lexivore::unicode_tables::generator {

namespace {

/// What begins with the byte whose lower six bits these are, the upper two being set.
Prefix prefixOfLead(CodePoint bits) {
    if (bits < 0x20) {
        return {(bits & 0x1F) << 6, 1, 0x80};
    }
    return bits < 0x30 ? Prefix{(bits & 0x0F) << 12, 2, 0x800} : Prefix{(bits & 0x0F) << 18, 3, 0x10000};
}

} // namespace

PageMaker::PageMaker(EntryOf entryOf) : m_entryOf(std::move(entryOf)) {
    for (const CodePoint first : {0x00, 0x40}) {
        addPage([first](CodePoint bits) { return Prefix{first + bits, 0, 0}; });
    }
    addPage(prefixOfLead);
    // By number, for each page may bring more.
    for (std::size_t next = 0; next < m_waiting.size(); ++next) { // NOLINT(modernize-loop-convert)
        const Prefix prefix = m_waiting[next];
        addPage([prefix](CodePoint bits) { return prefix.followedBy(bits); });
    }
}

std::string PageMaker::write(std::ostream &out, const std::string &name) const {
    writePages(out, name + "Entries", m_pages);
    writeArray(out, "std::uint16_t", name + "FirstChildren", m_firstChildren);
    return std::string("{").append(name).append("Entries, ").append(name).append("FirstChildren}");
}

void PageMaker::writePages(std::ostream &out, const std::string &name, const std::vector<Page> &pages) {
    out << "alignas(64) const std::uint8_t " << name << "[][64] = {\n";
    for (const auto &page : pages) {
        writePage(out, page);
    }
    out << "};\n";
}

void PageMaker::writePage(std::ostream &out, const Page &page) {
    out << '{';
    for (const std::uint8_t entry : page) {
        out << unsigned{entry} << ',';
    }
    out << "},\n";
}

void PageMaker::addPage(const std::function<Prefix(CodePoint)> &prefixOf) {
    constexpr std::size_t pagesBeforeChildren = kernels::CodePointPages::rootPage + 1;
    m_firstChildren.push_back(static_cast<std::uint16_t>(pagesBeforeChildren + m_waiting.size()));
    unsigned children = 0;
    Page page{};
    for (std::size_t i = 0; i < page.size(); ++i) {
        const Prefix prefix = prefixOf(static_cast<CodePoint>(i));
        page[i] = m_entryOf(prefix);
        if (prefix.bytesToCome > 0 && page[i] == kernels::CodePointPages::deeper) {
            page[i] = static_cast<std::uint8_t>(kernels::CodePointPages::deeper | children++);
            m_waiting.push_back(prefix);
        }
    }
    m_pages.push_back(page);
}

std::uint8_t commonEntry(const Prefix &prefix, const EntryOfCodePoint &entryOf, std::uint8_t illFormed) {
    const auto entryAt = [&](CodePoint index) {
        const CodePoint c = prefix.first + index;
        const bool isIllFormed = c < prefix.least || c >= static_cast<CodePoint>(codePointLimit) || U_IS_SURROGATE(c);
        return isIllFormed ? illFormed : entryOf(c);
    };
    const std::uint8_t entry = entryAt(0);
    for (CodePoint i = 1; i < prefix.count(); ++i) {
        if (entryAt(i) != entry) {
            return kernels::CodePointPages::deeper;
        }
    }
    return entry;
}

} // namespace lexivore::unicode_tables::generator
