// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

// The form of the tables in which kernels look code points up. What engine/generator/ makes has it.
namespace lexivore::kernels {

/// One byte for each code point, in pages of 64 entries, found by the bytes of its UTF-8. Pages 0 and 1 belong to the
/// ASCII characters, page 2 to the first bytes from 0xC0 on; each byte that follows has its lower six bits looked up in
/// a page of its own. In a page whose bytes are not the last ones, an entry with its highest bit set is not the answer
/// yet: the rest of it, added to `firstChildren[page]`, is the page for the next byte. Any other one is that of all
/// code points that begin like this.
struct CodePointPages {
    static constexpr std::size_t pageSize = 64;
    static constexpr std::size_t rootPage = 2;
    static constexpr std::uint8_t deeper = 0x80;
    using Page = std::uint8_t[pageSize];

    const Page *pages;
    const std::uint16_t *firstChildren;
};

/// A case mapping that leaves the lengths of code points as they are: what kernels map. In `pages` the entries of last
/// bytes are what these become, or 0 where only the full mapping will do; the others tell whether all code points that
/// begin like this stay as they are.
struct CasePages {
    static constexpr std::uint8_t unchanged = 0;
    static constexpr std::uint8_t special = 1; ///< Needs the full mapping.

    CodePointPages pages;
    // What both bytes of code points of two bytes become, or 0: the lower five bits of the first one tell the page.
    // Asked in place of the pages that these code points have above, too.
    const CodePointPages::Page *firstsOfTwo;
    const CodePointPages::Page *lastsOfTwo;
    std::uint8_t asciiBegin;   ///< The first of the 26 ASCII letters that get the other case...
    std::uint8_t asciiIgnored; ///< ... when these bits are not looked at.
};

/// Finds some of the code points of two and three bytes, and a few more: they have a bit that is set in the entries of
/// all their bytes. The lower six bits of each byte are the index; behind two bytes any third one has the bit.
struct alignas(CodePointPages::pageSize) CodePointFilter {
    CodePointPages::Page firsts;
    CodePointPages::Page seconds;
    CodePointPages::Page thirds;
};

/// A code point is found that one of these finds.
struct CodePointFilters {
    static constexpr std::size_t count = 2;
    CodePointFilter filters[count];
};

/// The same entries in two forms, and what tells where they are of interest.
struct CodePointTables {
    CodePointPages pages;
    // By number, those of the code points below 0x10000, surrogates included, and in two stages those of the others.
    static constexpr std::uint32_t firstWide = 0x10000;
    static constexpr unsigned wideBlockBits = 7;
    const std::uint8_t *basicEntries;
    const std::uint16_t *wideBlocks; ///< For every 128 code points the block of 128 entries that is theirs.
    const std::uint8_t *wideEntries;
    CodePointFilters roleFilters; ///< Find the code points with a role.
};

/// What a code point is, as far as anything looks for it: no code point is two of these.
enum class Kind : std::uint8_t { other, letter, mark, number, punctuation, horizontalSpace, newline, apostrophe };

/// How a code point takes part in the boundaries between characters (UAX #29).
enum class Role : std::uint8_t {
    none,
    control,
    syllable, ///< A whole one of Hangul.
    regionalIndicator,
    consonant,
    pictographic,
    extend,
    extendStarter,
    virama,
    zeroWidthJoiner,
    spacingMark,
    complex, ///< Anything else.
    illFormed,
};

/// The entry of a code point: its role in the lower four bits, its kind above them.
[[nodiscard]] constexpr std::uint8_t entryOf(Kind kind, Role role) {
    return static_cast<std::uint8_t>(static_cast<unsigned>(kind) << 4 | static_cast<unsigned>(role));
}

} // namespace lexivore::kernels
