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

#include <array>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <string>
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

/// Writes both stages of the table that `entryOf` describes.
void writeTable(std::ostream &out, const std::string &blocksName, const std::string &entriesName,
                const std::function<std::uint8_t(UChar32)> &entryOf) {
    using Block = std::array<std::uint8_t, blockSize>;
    std::map<Block, std::uint16_t> known;
    std::vector<std::uint16_t> blocks;
    std::vector<std::uint8_t> entries;
    for (UChar32 first = 0; first < static_cast<UChar32>(codePointLimit); first += blockSize) {
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

using MapCase = std::function<icu::UnicodeString(const icu::UnicodeString &)>;

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
    out << "};\nextern const CaseTables " << name << ";\nconst CaseTables " << name << " = {" << name << "Blocks, "
        << name << "DeltaIndices, " << name << "Deltas, " << name << "Specials, " << specials.size() << "};\n";
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
    const icu::Locale &root = icu::Locale::getRoot();
    writeCaseTables(out, "uppercase", [&](icu::UnicodeString text) { return text.toUpper(root); });
    writeCaseTables(out, "lowercase", [&](icu::UnicodeString text) { return text.toLower(root); });
    writeCaseTables(out, "titlecase", [&](icu::UnicodeString text) {
        return text.toTitle(nullptr, root, U_TITLECASE_WHOLE_STRING | U_TITLECASE_NO_BREAK_ADJUSTMENT);
    });
    out << "} // namespace lexivore::unicode_tables\n";
    out.close();
    if (!out) {
        fail(std::string("cannot write ") + argv[1]);
    }
    return 0;
}
