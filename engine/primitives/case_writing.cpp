// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/case_writing.h"

#include "engine/primitives/code_points.h"
#include "engine/primitives/utf8.h"

#include <algorithm>

namespace lexivore {

namespace {

using Extent = SigmaContext::Extent;
using unicode_tables::CaseTables;

constexpr char32_t smallSigma = 0x3C3;
constexpr char32_t smallFinalSigma = 0x3C2;

std::uint8_t traitsOf(char32_t codePoint) {
    return unicode_tables::lookUp(unicode_tables::traitBlocks, unicode_tables::traits, codePoint);
}

bool endsWithAlphanumeric(const char *begin, const char *position) {
    return position != begin && isIn(alphanumerics, decodeBefore(begin, position).value);
}

/// True when `codePoint`, which is next to the word, belongs to it. `hasAlphanumericBeyond` tells what stands behind
/// it.
template<typename HasAlphanumericBeyond>
bool belongsToWord(char32_t codePoint, Extent extent, HasAlphanumericBeyond hasAlphanumericBeyond) {
    return isIn(alphanumerics, codePoint) ||
           (extent == Extent::wordJoinedOverApostrophes && isApostrophe(codePoint) && hasAlphanumericBeyond());
}

/// True when a cased letter stands before `position`, case-ignorable code points between them not counted.
bool followsCased(const char *position, const SigmaContext &context) {
    while (position != context.begin) {
        const DecodedCodePoint before = decodeBefore(context.begin, position);
        position -= before.length;
        if (context.extent != Extent::wholeText && !belongsToWord(before.value, context.extent, [&]() {
                return endsWithAlphanumeric(context.begin, position);
            })) {
            return false;
        }
        const std::uint8_t traits = traitsOf(before.value);
        if ((traits & unicode_tables::caseIgnorable) == 0) {
            return (traits & unicode_tables::cased) != 0;
        }
    }
    return false;
}

/// The counterpart behind `position`.
bool precedesCased(const char *position, const SigmaContext &context) {
    while (position != context.end) {
        const DecodedCodePoint next = decode(position, context.end);
        position += next.length;
        if (context.extent != Extent::wholeText && !belongsToWord(next.value, context.extent, [&]() {
                return startsWithAlphanumeric(position, context.end);
            })) {
            return false;
        }
        const std::uint8_t traits = traitsOf(next.value);
        if ((traits & unicode_tables::caseIgnorable) == 0) {
            return (traits & unicode_tables::cased) != 0;
        }
    }
    return false;
}

} // namespace

bool startsWithAlphanumeric(const char *position, const char *end) {
    return position != end && isIn(alphanumerics, decode(position, end).value);
}

/// Writes the full mapping of `codePoint` where `longestMapping` bytes fit, and returns the place behind it.
char *writeMapped(const CaseTables &tables, char32_t codePoint, char *to) {
    const std::uint8_t index = unicode_tables::lookUp(tables.blocks, tables.deltaIndices, codePoint);
    if (index != unicode_tables::specialMapping) {
        return encode(static_cast<char32_t>(static_cast<std::int32_t>(codePoint) + tables.deltas[index]), to);
    }
    const auto *special =
        std::lower_bound(tables.specials, tables.specials + tables.specialCount, codePoint,
                         [](const unicode_tables::SpecialMapping &row, char32_t c) { return row.codePoint < c; });
    for (const char32_t mapped : special->mapped) {
        if (mapped == 0) {
            break;
        }
        to = encode(mapped, to);
    }
    return to;
}

bool isFinalSigma(const char *position, const SigmaContext &context) {
    constexpr std::size_t sigmaLength = 2;
    return followsCased(position, context) && !precedesCased(position + sigmaLength, context);
}

char *writeFinalSigma(char *to) { return encode(smallFinalSigma, to); }

char *writeLowercase(char32_t codePoint, const char *position, const SigmaContext &context, char *to) {
    if (codePoint != capitalSigma) {
        return writeMapped(unicode_tables::lowercase, codePoint, to);
    }
    return isFinalSigma(position, context) ? writeFinalSigma(to) : encode(smallSigma, to);
}

} // namespace lexivore
