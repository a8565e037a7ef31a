// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/generator/code_point_classes.h"

#include "engine/primitives/code_points.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <utility>

namespace lexivore::unicode_tables::generator {

namespace {

void check(UErrorCode status) {
    if (U_FAILURE(status)) {
        fail(u_errorName(status));
    }
}

/// The scripts whose conjuncts ICU's own rules keep together.
bool joinsConjuncts(CodePoint c) {
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

BreakClass breakClassOf(CodePoint c) {
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

} // namespace

std::uint8_t propertiesOf(CodePoint c) {
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

std::uint8_t traitsOf(CodePoint c) {
    unsigned bits = static_cast<unsigned>(breakClassOf(c));
    bits |= u_hasBinaryProperty(c, UCHAR_CASED) != 0 ? unsigned{cased} : 0U;
    bits |= u_hasBinaryProperty(c, UCHAR_CASE_IGNORABLE) != 0 ? unsigned{caseIgnorable} : 0U;
    return static_cast<std::uint8_t>(bits);
}

kernels::Kind kindOf(CodePoint c) {
    using kernels::Kind;
    if (isApostrophe(static_cast<char32_t>(c))) {
        return Kind::apostrophe;
    }
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
    for (const auto &[set, kind] : kinds) {
        if (bits == set) {
            return kind;
        }
    }
    fail("a code point with properties of several kinds");
}

kernels::Role roleOf(CodePoint c) {
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

} // namespace lexivore::unicode_tables::generator
