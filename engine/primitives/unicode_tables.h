// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/code_point_tables.h"

#include <cstddef>
#include <cstdint>

/// What engine/generator/ makes from ICU's data at build time. Every table over all code points has two
/// stages: `xBlocks[codePoint >> blockBits]` names the block of `x` that holds the entry; blocks that look alike are
/// one.
namespace lexivore::unicode_tables {

inline constexpr unsigned blockBits = 7;
inline constexpr unsigned blockSize = 1U << blockBits;
inline constexpr char32_t codePointLimit = 0x110000;

template<typename Entry>
[[nodiscard]] inline Entry lookUp(const std::uint16_t *blocks, const Entry *entries, char32_t codePoint) {
    return entries[(std::size_t{blocks[codePoint >> blockBits]} << blockBits) | (codePoint & (blockSize - 1))];
}

extern const std::uint16_t propertyBlocks[];
extern const std::uint8_t properties[]; ///< The bits that code_points.h names in `property`.
/// For the code points with `property::mayChangeInComposing`.
extern const kernels::CodePointFilters changeableFilters;

/// Classes of code points that the boundaries between characters depend on (UAX #29, table 2), Extend and Other divided
/// further for the conjuncts of Indic scripts (rule GB9c).
enum class BreakClass : std::uint8_t {
    other,
    carriageReturn,
    lineFeed,
    control,
    extendStarter, ///< Extend with combining class 0: ends the search for a conjunct.
    extend,        ///< Every other Extend but the viramas.
    virama,        ///< Extend that joins two consonants.
    zeroWidthJoiner,
    spacingMark,
    prepend,
    regionalIndicator,
    hangulL,
    hangulV,
    hangulT,
    hangulLV,
    hangulLVT,
    extendedPictographic,
    linkingConsonant,
};
inline constexpr std::size_t breakClassCount = 18;

/// Beside the BreakClass, what a final sigma depends on (The Unicode Standard, definitions D135 and D136).
inline constexpr std::uint8_t breakClassMask = 0x1F;
inline constexpr std::uint8_t cased = 0x20;
inline constexpr std::uint8_t caseIgnorable = 0x40;
extern const std::uint16_t traitBlocks[];
extern const std::uint8_t traits[]; ///< BreakClass, cased and caseIgnorable.

/// Kind and role of each code point.
extern const kernels::CodePointTables characterTables;

// Case mappings: for each code point the index of what is added to it.
inline constexpr std::uint8_t specialMapping = 0xFF; ///< Not one code point: look in the list of special mappings.
struct SpecialMapping {
    char32_t codePoint;
    char32_t mapped[3]; ///< Ends at the first 0.
};
struct CaseTables {
    const std::uint16_t *blocks;
    const std::uint8_t *deltaIndices;
    const std::int32_t *deltas;     ///< deltas[0] is 0.
    const SpecialMapping *specials; ///< In the order of the code points.
    std::size_t specialCount;
    kernels::CasePages pages;
};
extern const CaseTables uppercase;
extern const CaseTables lowercase; ///< Without the final sigma, which depends on what stands around it.
extern const CaseTables titlecase;
/// The only code point that joins the character before it and has a case of its own.
inline constexpr char32_t casedMark = 0x345;
/// Upper case to lower and lower case to upper, for code points that are characters by themselves; the cased mark,
/// which is none, needs the full mapping.
extern const kernels::CasePages inversionPages;

} // namespace lexivore::unicode_tables
