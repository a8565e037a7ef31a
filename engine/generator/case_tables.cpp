// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/generator/case_tables.h"

#include "engine/generator/code_point_pages.h"
#include "engine/generator/table_writing.h"
#include "engine/primitives/unicode_tables.h"

#include <unicode/locid.h>
#include <unicode/stringoptions.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace lexivore::unicode_tables::generator {

namespace {

std::string utf8Of(const icu::UnicodeString &text) {
    std::string bytes;
    return text.toUTF8String(bytes);
}

using MapCase = std::function<icu::UnicodeString(const icu::UnicodeString &)>;

/// What becomes of a code point when its length stays the same and, if that is over two bytes, all bytes but the last.
/// Empty when it needs the full mapping.
std::string mappedInPlace(CodePoint c, const MapCase &mapCase) {
    const std::string from = utf8Of(icu::UnicodeString(c));
    const std::string to = utf8Of(mapCase(icu::UnicodeString(c)));
    const bool keepsBeginning = from.size() == 2 || std::equal(from.begin(), from.end() - 1, to.begin());
    const bool isInPlace = from == to || (from.size() == to.size() && from.size() <= 3 && keepsBeginning);
    return isInPlace ? to : std::string();
}

/// Writes the arrays and returns what initializes a CasePages with them.
std::string writeCasePages(std::ostream &out, const std::string &name, const MapCase &mapCase) {
    using kernels::CasePages;
    constexpr std::uint8_t changed = kernels::CodePointPages::deeper;
    std::vector<std::uint8_t> changes;
    for (CodePoint c = 0; c < static_cast<CodePoint>(codePointLimit); ++c) {
        const std::string to = U_IS_SURROGATE(c) ? std::string() : mappedInPlace(c, mapCase);
        changes.push_back(to.empty()                            ? CasePages::special
                          : to == utf8Of(icu::UnicodeString(c)) ? CasePages::unchanged
                                                                : changed);
    }
    const auto byteOf = [&](CodePoint c, bool isLast) {
        const std::string to = mappedInPlace(c, mapCase);
        return static_cast<std::uint8_t>(to.empty() ? 0 : isLast ? to.back() : to.front());
    };
    const PageMaker pages([&](const Prefix &prefix) {
        if (prefix.bytesToCome == 0) {
            return byteOf(prefix.first, true);
        }
        const std::uint8_t common = commonEntry(
            prefix, [&changes](CodePoint c) { return changes[static_cast<std::size_t>(c)]; }, CasePages::unchanged);
        const bool isOfFour = prefix.least == 0x10000;
        return common == changed && isOfFour && prefix.bytesToCome < 3 ? CasePages::special : common;
    });
    constexpr CodePoint leadsOfTwo = 0x20;
    constexpr CodePoint leastOfTwo = 0x80;
    std::vector<PageMaker::Page> firsts(leadsOfTwo);
    std::vector<PageMaker::Page> lasts(leadsOfTwo);
    for (CodePoint c = leastOfTwo; c < leadsOfTwo << 6; ++c) {
        firsts[static_cast<std::size_t>(c >> 6)][static_cast<std::size_t>(c & 0x3F)] = byteOf(c, false);
        lasts[static_cast<std::size_t>(c >> 6)][static_cast<std::size_t>(c & 0x3F)] = byteOf(c, true);
    }
    PageMaker::writePages(out, name + "Firsts", firsts);
    PageMaker::writePages(out, name + "Lasts", lasts);
    const auto changesAscii = [&](CodePoint c) { return changes[static_cast<std::size_t>(c)] == changed; };
    std::string initializer = "{";
    initializer.append(pages.write(out, name + "Pages"));
    initializer.append(", ").append(name).append("Firsts, ").append(name).append("Lasts, ");
    initializer.append(changesAscii('a') ? "'a', " : "'A', ");
    return initializer.append(changesAscii('a') && changesAscii('A') ? "0x20}" : "0}");
}

void writeTablesOf(std::ostream &out, const std::string &name, const MapCase &mapCase) {
    std::map<std::int32_t, std::uint8_t> indexOf{{0, std::uint8_t{0}}};
    std::vector<std::int32_t> deltas{0};
    std::vector<std::pair<CodePoint, icu::UnicodeString>> specials;
    const auto entryOf = [&](CodePoint c) -> std::uint8_t {
        if (U_IS_SURROGATE(c)) {
            return 0;
        }
        const icu::UnicodeString mapped = mapCase(icu::UnicodeString(c));
        if (mapped.countChar32() != 1) {
            specials.emplace_back(c, mapped);
            return specialMapping;
        }
        const std::int32_t delta = mapped.char32At(0) - c;
        const auto [place, isNew] = indexOf.emplace(delta, static_cast<std::uint8_t>(deltas.size()));
        if (isNew) {
            deltas.push_back(delta);
            if (deltas.size() > specialMapping) {
                fail("too many different case deltas for one byte");
            }
        }
        return place->second;
    };
    writeTable(out, name + "Blocks", name + "DeltaIndices", entryOf);
    writeArray(out, "std::int32_t", name + "Deltas", deltas);
    out << "const SpecialMapping " << name << "Specials[] = {\n";
    for (const auto &[c, mapped] : specials) {
        if (mapped.countChar32() > 3) {
            fail("a case mapping of more than three code points");
        }
        out << '{' << c << ",{";
        for (std::int32_t i = 0; i < 3; ++i) {
            out << (i < mapped.countChar32() ? mapped.char32At(mapped.moveIndex32(0, i)) : 0) << (i < 2 ? "," : "");
        }
        out << "}},\n";
    }
    out << "};\n";
    const std::string pages = writeCasePages(out, name, mapCase);
    out << "extern const CaseTables " << name << ";\nconst CaseTables " << name << " = {" << name << "Blocks, " << name
        << "DeltaIndices, " << name << "Deltas, " << name << "Specials, " << specials.size() << ", " << pages << "};\n";
}

void writeInversionPages(std::ostream &out, const icu::Locale &root) {
    const std::string pages = writeCasePages(out, "inversion", [&root](const icu::UnicodeString &text) {
        if (text.char32At(0) == casedMark) {
            return icu::UnicodeString(); // how it is inverted depends on the character it belongs to
        }
        icu::UnicodeString upper = text;
        icu::UnicodeString lower = text;
        upper.toUpper(root);
        lower.toLower(root);
        const bool isCased = (upper == text) != (lower == text);
        return !isCased ? text : upper == text ? lower : upper;
    });
    out << "extern const kernels::CasePages inversionPages;\nconst kernels::CasePages inversionPages = " << pages
        << ";\n";
}

} // namespace

void writeCaseTables(std::ostream &out) {
    const icu::Locale &root = icu::Locale::getRoot();
    writeTablesOf(out, "uppercase", [&](icu::UnicodeString text) { return text.toUpper(root); });
    writeTablesOf(out, "lowercase", [&](icu::UnicodeString text) { return text.toLower(root); });
    writeTablesOf(out, "titlecase", [&](icu::UnicodeString text) {
        return text.toTitle(nullptr, root, U_TITLECASE_WHOLE_STRING | U_TITLECASE_NO_BREAK_ADJUSTMENT);
    });
    writeInversionPages(out, root);
}

} // namespace lexivore::unicode_tables::generator
