// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// Writes the tables of unicode_tables.h from the data of the ICU it is linked with.

#include "engine/primitives/code_points.h"

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uniset.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <utility>
#include <vector>

using namespace lexivore;
using namespace lexivore::unicode_tables;

namespace {

[[noreturn]] void fail(const std::string &message) {
    std::cerr << "generate_unicode_tables: " << message << '\n';
    std::exit(1);
}

void check(UErrorCode status) {
    if (U_FAILURE(status)) {
        fail(u_errorName(status));
    }
}

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
                const std::function<std::uint8_t(UChar32)> &entryOf, UChar32 begin = 0) {
    using Block = std::array<std::uint8_t, blockSize>;
    std::map<Block, std::uint16_t> known;
    std::vector<std::uint16_t> blocks;
    std::vector<std::uint8_t> entries;
    entries.reserve(codePointLimit);
    for (UChar32 first = begin; first < static_cast<UChar32>(codePointLimit); first += blockSize) {
        Block block;
        for (std::size_t i = 0; i < blockSize; ++i) {
            block[i] = entryOf(first + static_cast<UChar32>(i));
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

std::uint8_t propertiesOf(UChar32 c) {
    static const icu::Normalizer2 &nfc = []() -> const icu::Normalizer2 & {
        UErrorCode status = U_ZERO_ERROR;
        const icu::Normalizer2 *instance = icu::Normalizer2::getNFCInstance(status);
        check(status);
        return *instance;
    }();
    const auto category = U_GET_GC_MASK(c);
    unsigned bits = 0;
    const auto add = [&bits](CodePointSet property, bool holds) { bits |= holds ? unsigned{property} : 0U; };
    add(property::letter, (category & U_GC_L_MASK) != 0);
    add(property::mark, (category & U_GC_M_MASK) != 0);
    add(property::number, (category & U_GC_N_MASK) != 0);
    add(property::punctuation, (category & U_GC_P_MASK) != 0);
    add(property::whiteSpace, u_hasBinaryProperty(c, UCHAR_WHITE_SPACE) != 0);
    add(property::newline, (c >= 0x0A && c <= 0x0D) || c == 0x85 || c == 0x2028 || c == 0x2029);
    add(property::horizontalSpace, (category & U_GC_ZS_MASK) != 0 || c == 0x09);
    const bool staysInNfc =
        u_getIntPropertyValue(c, UCHAR_NFC_QUICK_CHECK) == UNORM_YES && nfc.getCombiningClass(c) == 0;
    add(property::mayChangeInComposing, !staysInNfc);
    return static_cast<std::uint8_t>(bits);
}

/// The scripts whose conjuncts ICU's own rules keep together.
bool joinsConjuncts(UChar32 c) {
    UErrorCode status = U_ZERO_ERROR;
    switch (uscript_getScript(c, &status)) {
    case USCRIPT_GUJARATI:
    case USCRIPT_TELUGU:
    case USCRIPT_MALAYALAM:
    case USCRIPT_ORIYA:
    case USCRIPT_BENGALI:
    case USCRIPT_DEVANAGARI:
        return true;
    default:
        return false;
    }
}

BreakClass breakClassOf(UChar32 c) {
    const auto syllabic = u_getIntPropertyValue(c, UCHAR_INDIC_SYLLABIC_CATEGORY);
    switch (u_getIntPropertyValue(c, UCHAR_GRAPHEME_CLUSTER_BREAK)) {
    case U_GCB_CR:
        return BreakClass::carriageReturn;
    case U_GCB_LF:
        return BreakClass::lineFeed;
    case U_GCB_CONTROL:
        return BreakClass::control;
    case U_GCB_EXTEND:
        if (joinsConjuncts(c) && syllabic == U_INSC_VIRAMA) {
            return BreakClass::virama;
        }
        return u_getCombiningClass(c) == 0 ? BreakClass::extendStarter : BreakClass::extend;
    case U_GCB_ZWJ:
        return BreakClass::zeroWidthJoiner;
    case U_GCB_SPACING_MARK:
        return BreakClass::spacingMark;
    case U_GCB_PREPEND:
        return BreakClass::prepend;
    case U_GCB_REGIONAL_INDICATOR:
        return BreakClass::regionalIndicator;
    case U_GCB_L:
        return BreakClass::hangulL;
    case U_GCB_V:
        return BreakClass::hangulV;
    case U_GCB_T:
        return BreakClass::hangulT;
    case U_GCB_LV:
        return BreakClass::hangulLV;
    case U_GCB_LVT:
        return BreakClass::hangulLVT;
    default:
        break;
    }
    if (u_hasBinaryProperty(c, UCHAR_EXTENDED_PICTOGRAPHIC) != 0) {
        return BreakClass::extendedPictographic;
    }
    return joinsConjuncts(c) && syllabic == U_INSC_CONSONANT ? BreakClass::linkingConsonant : BreakClass::other;
}

std::uint8_t traitsOf(UChar32 c) {
    unsigned bits = static_cast<unsigned>(breakClassOf(c));
    bits |= u_hasBinaryProperty(c, UCHAR_CASED) != 0 ? unsigned{cased} : 0U;
    bits |= u_hasBinaryProperty(c, UCHAR_CASE_IGNORABLE) != 0 ? unsigned{caseIgnorable} : 0U;
    return static_cast<std::uint8_t>(bits);
}

kernels::Kind kindOf(UChar32 c) {
    using kernels::Kind;
    const std::uint8_t bits = propertiesOf(c) & ~property::mayChangeInComposing;
    const std::pair<CodePointSet, Kind> kinds[] = {
        {property::letter, Kind::letter},
        {property::mark, Kind::mark},
        {property::number, Kind::number},
        {property::punctuation, Kind::punctuation},
        {property::whiteSpace | property::horizontalSpace, Kind::horizontalSpace},
        {property::whiteSpace | property::newline, Kind::newline},
        {0, Kind::other},
    };
    for (const auto &[properties, kind] : kinds) {
        if (bits == properties) {
            return kind;
        }
    }
    fail("a code point with properties of several kinds");
}

kernels::Role roleOf(UChar32 c) {
    using kernels::Role;
    switch (breakClassOf(c)) {
    case BreakClass::other:
        return Role::none;
    case BreakClass::carriageReturn:
    case BreakClass::lineFeed:
    case BreakClass::control:
        return Role::control;
    case BreakClass::hangulLV:
    case BreakClass::hangulLVT:
        return Role::syllable;
    case BreakClass::regionalIndicator:
        return Role::regionalIndicator;
    case BreakClass::linkingConsonant:
        return Role::consonant;
    case BreakClass::extendedPictographic:
        return Role::pictographic;
    case BreakClass::extend:
        return Role::extend;
    case BreakClass::extendStarter:
        return Role::extendStarter;
    case BreakClass::virama:
        return Role::virama;
    case BreakClass::zeroWidthJoiner:
        return Role::zeroWidthJoiner;
    case BreakClass::spacingMark:
        return Role::spacingMark;
    default:
        return Role::complex;
    }
}

/// The code points whose UTF-8 begins with the same bytes.
struct Prefix {
    UChar32 first = 0;
    unsigned bytesToCome = 0;
    UChar32 least = 0; ///< What is below can be written with fewer bytes.

    [[nodiscard]] UChar32 count() const { return 1 << (6 * bytesToCome); }
    [[nodiscard]] Prefix followedBy(UChar32 bits) const {
        return {first + (bits << (6 * (bytesToCome - 1))), bytesToCome - 1, least};
    }
};

/// What begins with the byte whose lower six bits these are, the upper two being set.
Prefix prefixOfLead(UChar32 bits) {
    if (bits < 0x20) {
        return {(bits & 0x1F) << 6, 1, 0x80};
    }
    return bits < 0x30 ? Prefix{(bits & 0x0F) << 12, 2, 0x800} : Prefix{(bits & 0x0F) << 18, 3, 0x10000};
}

/// Makes the pages of a CodePointPages: first those that are always there, then the children of each in turn.
class PageMaker {
public:
    /// The entry of what begins like this, or `deeper`.
    using EntryOf = std::function<std::uint8_t(const Prefix &)>;

    explicit PageMaker(EntryOf entryOf) : m_entryOf(std::move(entryOf)) {
        for (const UChar32 first : {0x00, 0x40}) {
            addPage([first](UChar32 bits) { return Prefix{first + bits, 0, 0}; });
        }
        addPage(prefixOfLead);
        // By number, for each page may bring more.
        for (std::size_t next = 0; next < m_waiting.size(); ++next) { // NOLINT(modernize-loop-convert)
            const Prefix prefix = m_waiting[next];
            addPage([prefix](UChar32 bits) { return prefix.followedBy(bits); });
        }
    }

    /// Writes the arrays and returns what initializes a CodePointPages with them.
    [[nodiscard]] std::string write(std::ostream &out, const std::string &name) const {
        writePages(out, name + "Entries", m_pages);
        writeArray(out, "std::uint16_t", name + "FirstChildren", m_firstChildren);
        return std::string("{").append(name).append("Entries, ").append(name).append("FirstChildren}");
    }

    using Page = std::array<std::uint8_t, kernels::CodePointPages::pageSize>;
    static void writePages(std::ostream &out, const std::string &name, const std::vector<Page> &pages) {
        out << "const std::uint8_t " << name << "[][64] = {\n";
        for (const auto &page : pages) {
            writePage(out, page);
        }
        out << "};\n";
    }
    static void writePage(std::ostream &out, const Page &page) {
        out << '{';
        for (const std::uint8_t entry : page) {
            out << unsigned{entry} << ',';
        }
        out << "},\n";
    }

    /// What the pages from the root's first child on stand for.
    [[nodiscard]] const std::vector<Prefix> &prefixes() const { return m_waiting; }

private:
    void addPage(const std::function<Prefix(UChar32)> &prefixOf) {
        constexpr std::size_t pagesBeforeChildren = kernels::CodePointPages::rootPage + 1;
        m_firstChildren.push_back(static_cast<std::uint16_t>(pagesBeforeChildren + m_waiting.size()));
        unsigned children = 0;
        Page page{};
        for (std::size_t i = 0; i < page.size(); ++i) {
            const Prefix prefix = prefixOf(static_cast<UChar32>(i));
            page[i] = m_entryOf(prefix);
            if (prefix.bytesToCome > 0 && page[i] == kernels::CodePointPages::deeper) {
                page[i] = static_cast<std::uint8_t>(kernels::CodePointPages::deeper | children++);
                m_waiting.push_back(prefix);
            }
        }
        m_pages.push_back(page);
    }

    EntryOf m_entryOf;
    std::vector<Page> m_pages;
    std::vector<std::uint16_t> m_firstChildren;
    std::vector<Prefix> m_waiting; ///< For their pages, in order.
};

/// The entry that all code points have which begin like this, or `deeper`.
std::uint8_t commonEntry(const Prefix &prefix, const std::function<std::uint8_t(UChar32)> &entryOf,
                         std::uint8_t illFormed) {
    const auto entryAt = [&](UChar32 index) {
        const UChar32 c = prefix.first + index;
        const bool isIllFormed = c < prefix.least || c >= static_cast<UChar32>(codePointLimit) || U_IS_SURROGATE(c);
        return isIllFormed ? illFormed : entryOf(c);
    };
    const std::uint8_t entry = entryAt(0);
    for (UChar32 i = 1; i < prefix.count(); ++i) {
        if (entryAt(i) != entry) {
            return kernels::CodePointPages::deeper;
        }
    }
    return entry;
}

std::string utf8Of(const icu::UnicodeString &text) {
    std::string bytes;
    return text.toUTF8String(bytes);
}

/// Writes what initializes the role filters. Each bit stands for some of the code points that they have to let through.
/// It also lets through what is made of the bytes of several of them, so that those stretches have bits of their own in
/// which many scripts have letters and punctuation beside marks.
void writeRoleFilters(std::ostream &out) {
    struct Stretch {
        UChar32 first;
        UChar32 last;
    };
    constexpr Stretch stretches[] = {{0x80, 0xBF},     {0x480, 0x4BF},   {0x5C0, 0x5FF},   {0x600, 0x63F},
                                     {0x640, 0x67F},   {0x6C0, 0x6FF},   {0x1000, 0x1FFF}, {0x2000, 0x203F},
                                     {0x2040, 0x2FFF}, {0x3000, 0x303F}, {0x3040, 0x31FF}, {0x3200, 0x33FF},
                                     {0xA000, 0xAFFF}, {0xD000, 0xD7FF}, {0xF000, 0xFFFF}};
    constexpr std::size_t bitCount = 8 * kernels::CodePointTables::filterCount;
    static_assert(std::size(stretches) < bitCount);
    const auto bitOf = [&stretches](UChar32 c) {
        const auto *const found = std::find_if(std::begin(stretches), std::end(stretches), [c](const Stretch &stretch) {
            return c >= stretch.first && c <= stretch.last;
        });
        return static_cast<std::size_t>(found - std::begin(stretches)); // all others have the next one
    };
    constexpr std::size_t bytesLookedAt = 3;
    std::array<std::array<PageMaker::Page, bytesLookedAt>, kernels::CodePointTables::filterCount> filters{};
    for (UChar32 c = 0x80; c < static_cast<UChar32>(kernels::CodePointTables::firstWide); ++c) {
        if (U_IS_SURROGATE(c) || roleOf(c) == kernels::Role::none) {
            continue;
        }
        const std::string bytes = utf8Of(icu::UnicodeString(c));
        const std::size_t bit = bitOf(c);
        auto &filter = filters[bit / 8];
        const auto add = [&](std::size_t byte, std::size_t index) {
            filter[byte][index] = static_cast<std::uint8_t>(filter[byte][index] | 1U << bit % 8);
        };
        for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
            add(byte, static_cast<unsigned char>(bytes[byte]) & 0x3FU);
        }
        for (std::size_t any = 0; any < filter[2].size() && bytes.size() == 2; ++any) {
            add(2, any);
        }
    }
    out << '{';
    for (const auto &filter : filters) {
        out << '{';
        for (const PageMaker::Page &page : filter) {
            PageMaker::writePage(out, page);
        }
        out << "},\n";
    }
    out << '}';
}

void writeCharacterTables(std::ostream &out) {
    std::vector<std::uint8_t> entries;
    entries.reserve(codePointLimit);
    for (UChar32 c = 0; c < static_cast<UChar32>(codePointLimit); ++c) {
        entries.push_back(kernels::entryOf(kindOf(c), roleOf(c)));
    }
    const PageMaker pages([&entries](const Prefix &prefix) {
        return commonEntry(
            prefix, [&entries](UChar32 c) { return entries[static_cast<std::size_t>(c)]; },
            kernels::entryOf(kernels::Kind::other, kernels::Role::illFormed));
    });
    const std::string initializer = pages.write(out, "characterPages");
    using kernels::CodePointTables;
    static_assert(CodePointTables::wideBlockBits == blockBits);
    writeTable(
        out, "wideBlocks", "wideEntries", [&entries](UChar32 c) { return entries[static_cast<std::size_t>(c)]; },
        CodePointTables::firstWide);
    entries.resize(CodePointTables::firstWide);
    writeArray(out, "std::uint8_t", "basicEntries", entries);
    out << "extern const kernels::CodePointTables characterTables;\nconst kernels::CodePointTables characterTables = {"
        << initializer << ", basicEntries, wideBlocks, wideEntries,\n";
    writeRoleFilters(out);
    out << "};\n";
}

using MapCase = std::function<icu::UnicodeString(const icu::UnicodeString &)>;

/// What becomes of a code point when its length stays the same and, if that is over two bytes, all bytes but the last.
/// Empty when it needs the full mapping.
std::string mappedInPlace(UChar32 c, const MapCase &mapCase) {
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
    for (UChar32 c = 0; c < static_cast<UChar32>(codePointLimit); ++c) {
        const std::string to = U_IS_SURROGATE(c) ? std::string() : mappedInPlace(c, mapCase);
        changes.push_back(to.empty()                            ? CasePages::special
                          : to == utf8Of(icu::UnicodeString(c)) ? CasePages::unchanged
                                                                : changed);
    }
    const auto byteOf = [&](UChar32 c, bool isLast) {
        const std::string to = mappedInPlace(c, mapCase);
        return static_cast<std::uint8_t>(to.empty() ? 0 : isLast ? to.back() : to.front());
    };
    const PageMaker pages([&](const Prefix &prefix) {
        if (prefix.bytesToCome == 0) {
            return byteOf(prefix.first, true);
        }
        const std::uint8_t common = commonEntry(
            prefix, [&changes](UChar32 c) { return changes[static_cast<std::size_t>(c)]; }, CasePages::special);
        const bool isOfFour = prefix.least == 0x10000;
        return common == changed && isOfFour && prefix.bytesToCome < 3 ? CasePages::special : common;
    });
    std::vector<PageMaker::Page> firstBytes;
    for (const Prefix &prefix : pages.prefixes()) {
        if (prefix.least == 0x80) {
            PageMaker::Page page{};
            for (std::size_t i = 0; i < page.size(); ++i) {
                page[i] = byteOf(prefix.followedBy(static_cast<UChar32>(i)).first, false);
            }
            firstBytes.push_back(page);
        }
    }
    PageMaker::writePages(out, name + "FirstBytes", firstBytes);
    const auto changesAscii = [&](UChar32 c) { return changes[static_cast<std::size_t>(c)] == changed; };
    std::string initializer = "{";
    initializer.append(pages.write(out, name + "Pages")).append(", ").append(name).append("FirstBytes, ");
    initializer.append(changesAscii('a') ? "'a', " : "'A', ");
    return initializer.append(changesAscii('a') && changesAscii('A') ? "0x20}" : "0}");
}

void writeCaseTables(std::ostream &out, const std::string &name, const MapCase &mapCase) {
    std::map<std::int32_t, std::uint8_t> indexOf{{0, std::uint8_t{0}}};
    std::vector<std::int32_t> deltas{0};
    std::vector<std::pair<UChar32, icu::UnicodeString>> specials;
    const auto entryOf = [&](UChar32 c) -> std::uint8_t {
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

int main(int argc, char **argv) {
    if (argc != 2) {
        fail("usage: generate_unicode_tables FILE");
    }
    std::ofstream out(argv[1], std::ios::trunc);
    out << "// Made by generate_unicode_tables from ICU " U_ICU_VERSION " (Unicode " U_UNICODE_VERSION ").\n"
        << "#include \"engine/primitives/unicode_tables.h\"\nnamespace lexivore::unicode_tables {\n";
    writeTable(out, "propertyBlocks", "properties", propertiesOf);
    writeTable(out, "traitBlocks", "traits", traitsOf);
    writeCharacterTables(out);
    const icu::Locale &root = icu::Locale::getRoot();
    writeCaseTables(out, "uppercase", [&](icu::UnicodeString text) { return text.toUpper(root); });
    writeCaseTables(out, "lowercase", [&](icu::UnicodeString text) { return text.toLower(root); });
    writeCaseTables(out, "titlecase", [&](icu::UnicodeString text) {
        return text.toTitle(nullptr, root, U_TITLECASE_WHOLE_STRING | U_TITLECASE_NO_BREAK_ADJUSTMENT);
    });
    writeInversionPages(out, root);
    out << "} // namespace lexivore::unicode_tables\n";
    out.close();
    if (!out) {
        fail(std::string("cannot write ") + argv[1]);
    }
    return 0;
}
