// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/code_point_tables.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// The few inner loops over bytes that are worth vector code. One source, kernels_body.inc, is compiled for several
/// instruction sets, and the best that the processor has is chosen when the program starts. Only primitives call these.
namespace lexivore::kernels {

/// Masks have one bit a byte, the first byte in the lowest bit.
inline constexpr std::size_t blockSize = 64;

/// The longest pattern that `markOccurrences` takes.
inline constexpr std::size_t longestMarked = 16;

/// How many keys `rankFew` takes.
inline constexpr std::size_t mostRanked = 32;

/// How many bits of a key `distribute` takes.
inline constexpr int mostDigitBits = 10;

/// How many bytes behind what it reads and writes `replaceParts` may read and overwrite.
inline constexpr std::size_t replacingSlack = 3 * blockSize;

/// Asks for the memory that is written to some kilobytes later, so that it comes in meanwhile: for who writes behind
/// where it has read before, or far from there, and leaves the processor nothing to foresee it by. That may lie behind
/// the memory there is, where asking does no harm.
inline void askAhead(const char *to) {
    constexpr std::size_t distance = 4096;
    constexpr int forWriting = 1;
    __builtin_prefetch(to + distance, forWriting);
}

/// What stands in place of a part of a text.
struct Replacement {
    static constexpr std::size_t longest = 16;

    char bytes[longest] = {};
    std::size_t size = 0;

    constexpr Replacement() = default;
    /// At most `longest` bytes.
    constexpr explicit Replacement(std::string_view text) : size(text.size()) {
        std::copy(text.begin(), text.end(), bytes);
    }
};

/// Parts of a text, and what stands in place of each. What begins with the same byte is alike.
struct PartReplacements {
    static constexpr std::size_t most = 8;

    std::uint8_t sizes[256] = {};   ///< Of the parts, by their first byte.
    std::uint8_t indices[256] = {}; ///< Of what stands in their place, by their first byte.
    Replacement replacements[most];
    std::size_t count = 0; ///< Of replacements.
};

/// What stands in place of a part of a text, told byte by byte: some of the part's bytes are left out or others put
/// between them, and each of the rest becomes another one, always the same for those with the same lowest six bits.
struct BytewiseReplacement {
    static constexpr std::size_t mostInserted = 3;

    std::size_t partSize = 0; ///< At most `longestMarked`.
    std::size_t leftOut = 0;  ///< So many bytes at the beginning of the part.
    std::size_t inserted = 0; ///< So many behind the first byte of the part.
    char insertedBytes[mostInserted] = {};
    char bytes[64] = {}; ///< For each value of the lowest six bits.
};

/// A part of a text and the number that it is sorted by.
struct KeyedPart {
    std::uint64_t key;
    std::uint32_t offset; ///< In bytes, as the size.
    std::uint32_t size;
};

/// Numbers of 128 bits in two halves. The lowest five bits of the second ones tell keys apart that are equal otherwise.
struct alignas(blockSize) LongKeys {
    static constexpr std::uint64_t indexBits = mostRanked - 1;

    std::uint64_t firsts[mostRanked];
    std::uint64_t seconds[mostRanked];
};

/// The longest word, in bytes, that a key has room for.
inline constexpr std::size_t longestKeyedWord = 15;

/// A short word as it lies in memory, zeros behind it, and its size in the last byte.
struct alignas(16) WordKey {
    std::uint64_t first;
    std::uint64_t second;
};

/// Where keys belong in a table of pairs of slots: the sum of the products of their halves with two odd numbers, of
/// which the highest bits count, tells a slot, and the pair is the one that has it.
struct WordHash {
    std::uint64_t factors[2];
    int shift;
};

/// The longest line, in bytes, that `hashLines` takes.
inline constexpr std::size_t longestHashedLine = 128;

/// Some lines of a text, which are looked up together.
struct LineBatch {
    static constexpr std::size_t mostLines = 32;

    std::uint32_t offsets[mostLines]; ///< In the text, in bytes, as the sizes.
    std::uint32_t sizes[mostLines];
    std::uint32_t hashes[mostLines]; ///< Odd numbers.
    std::uint32_t firsts[mostLines]; ///< Offsets of the lines that came first with these hashes, before these.
};

/// Hashes and the offsets of the lines that came first with them: as many as can be looked at at once.
struct alignas(blockSize) LineBucket {
    static constexpr std::size_t slotCount = 8;

    std::uint32_t hashes[slotCount]; ///< 0 for a free slot, behind which all others are free.
    std::uint32_t offsets[slotCount];
};

/// A table of hashes. The highest bits of one tell the bucket where it is looked for first, and then follow the next
/// ones, up to one that has a free slot.
struct LineTable {
    LineBucket *buckets;
    int bits; ///< 1 to 31: it has 2 to the power of this many buckets.
};

/// What lines are hashed with, all of it at random. The hash is NH (RFC 4418, 5.2): the sum of the products of each two
/// numbers of 32 bits that a line consists of, zeros behind it, after their addends were added. To that comes the size
/// times its factor, and of all that times the last factor the upper half counts, its lowest bit set. Two lines have
/// the same hash as seldom as chance has it, whatever they are.
struct alignas(blockSize) LineHash {
    std::uint32_t addends[longestHashedLine / sizeof(std::uint32_t)];
    std::uint64_t sizeFactor; ///< Odd, as the other one.
    std::uint64_t factor;
};

/// Any set of ASCII characters. `rows[low nibble]` has a bit for each high nibble, so that membership of many bytes at
/// once is two table look-ups in registers.
struct AsciiSet {
    std::uint8_t rows[16] = {};

    constexpr AsciiSet() = default;
    constexpr explicit AsciiSet(std::string_view members) {
        for (const char member : members) {
            add(member);
        }
    }
    constexpr void add(char member) {
        const auto byte = static_cast<unsigned char>(member);
        rows[byte & 0x0FU] = static_cast<std::uint8_t>(rows[byte & 0x0FU] | 1U << (byte >> 4));
    }
    constexpr void remove(char member) {
        const auto byte = static_cast<unsigned char>(member);
        rows[byte & 0x0FU] = static_cast<std::uint8_t>(rows[byte & 0x0FU] & ~(1U << (byte >> 4)));
    }
    [[nodiscard]] constexpr bool contains(char member) const {
        const auto byte = static_cast<unsigned char>(member);
        return byte < 0x80 && (rows[byte & 0x0FU] >> (byte >> 4) & 1U) != 0;
    }
};

/// What `classify` looks for: members of an ASCII set, and bytes that may begin a member outside ASCII.
struct ByteClass {
    AsciiSet ascii;
    bool takesEveryNonAsciiByte = false; ///< Otherwise only the bytes in `leads` are candidates.
    std::uint8_t leads[4] = {0xFF, 0xFF, 0xFF, 0xFF};
};

/// Escapes that all take two bytes and begin with the same one.
struct PairEscapes {
    AsciiSet escaped;
    char first = '\0';
    char seconds[128] = {}; ///< The second byte for each character, and each character that is not escaped itself.
};

/// How `caseWords` writes the words of a text.
struct WordCaseRules {
    bool joinsOverApostrophe = false; ///< An apostrophe between two letters or digits belongs to the word.
    bool capitalizes = false;         ///< The first letter of a word upper case and the rest lower; else all lower.
    bool dropsSeparators = false;     ///< What stands between words goes...
    char joiner = '\0';               ///< ... and this, if anything, takes the place of each stretch of it.
};

/// What `caseWords` knows of the text before its place.
struct WordCaseState {
    bool isInWord = false;             ///< The byte before belongs to a word.
    bool isBehindAlphanumeric = false; ///< The byte before is a letter or digit.
    bool isBehindLetter = false;       ///< The word has had a letter.
};

/// Where the bytes are in a block that the counts of a text depend on.
struct CountedBytes {
    std::uint64_t blanks = 0;   ///< U+0009 and U+0020.
    std::uint64_t newlines = 0; ///< U+000A to U+000D, among them the two that follow.
    std::uint64_t lineFeeds = 0;
    std::uint64_t carriageReturns = 0;
    std::uint64_t sentenceEnds = 0; ///< ".", "!" and "?".
    std::uint64_t nonAscii = 0;
    std::uint64_t spaceLeads = 0; ///< Bytes that spaces and newlines outside ASCII begin with.
};

/// How often each ASCII character occurs.
struct AsciiCounts {
    std::uint64_t counts[128] = {};
    /// Bit n tells that much of the text so far were characters from 16n to 16n + 15, which are counted accordingly.
    std::uint8_t frequentRows = 0xFF;
};

/// How far a case mapping came.
struct MappedCase {
    std::size_t size;     ///< The bytes read, and as many written.
    bool hasCapitalSigma; ///< Some of them are one, whose lowercase depends on what stands around it.
};

/// What is true of some code points of a block, at their first bytes.
struct MappedBlock {
    std::uint64_t specials; ///< They need the full mapping: what was written for them is of no meaning.
    std::uint64_t capitalSigmas;
};

/// What is looked for: three sets of kinds, one bit for each, and whether the roles are wanted.
struct KindSets {
    std::uint8_t first = 0;
    std::uint8_t second = 0;
    std::uint8_t third = 0;
    bool withRoles = true;
};

/// The code points of up to 64 bytes, one bit for each at its first byte. Not cleared, for there are many at once.
struct CodePointBlock {
    std::uint64_t starts;
    std::uint64_t first;  ///< Of the first set of kinds.
    std::uint64_t second; ///< Of the second.
    std::uint64_t third;  ///< Of the third.
    std::uint64_t crLfs;  ///< Line feeds behind a carriage return.
    std::uint32_t size;   ///< In bytes: whole code points, all of them well-formed.
    // The rest only when the roles are wanted...
    bool hasRoles;  ///< Others than that of a control.
    bool isComplex; ///< It has complex roles; only where `hasRoles`.
    std::uint64_t controls;
    // ... and these only where `hasRoles`.
    std::uint64_t syllables;
    std::uint64_t regionalIndicators;
    std::uint64_t consonants;
    std::uint64_t pictographics;
    std::uint64_t extends;
    std::uint64_t extendStarters;
    std::uint64_t viramas;
    std::uint64_t zeroWidthJoiners;
    std::uint64_t spacingMarks;
};

/// The most blocks that `findCodePoints` fills.
inline constexpr std::size_t mostBlocksFound = 32;
/// How many code points it may write.
inline constexpr std::size_t roomForUnits = (mostBlocksFound + 1) * blockSize;
/// What it writes for a code point of four bytes: no code point at all.
inline constexpr std::uint16_t wideUnit = 0xD800;

/// Characters of one code point, in a block.
struct SingleUnits {
    std::uint64_t places; ///< Their first bytes.
    std::size_t count;
};

/// What was copied of a text.
struct PlainPrefix {
    std::size_t size; ///< In bytes.
    bool hasCrLfs;
};

/// A bit of a mask, and how many bits of another one are set below it.
struct RankedBit {
    std::uint64_t bit; ///< 0 for none.
    std::size_t rank;
};

struct Kernels {
    const char *name;
    /// The length of the longest prefix of `size` bytes that is ASCII.
    std::size_t (*asciiPrefix)(const char *from, std::size_t size);
    /// For `blocks` blocks of 64 bytes: which bytes are in the ASCII set, and which are candidates outside it. Returns
    /// whether there are candidates.
    bool (*classify)(const char *from, std::size_t blocks, const ByteClass &byteClass, std::uint64_t *members,
                     std::uint64_t *candidates);
    /// Counts bytes, as many as it takes at once of those before the first that is not ASCII, and returns how many.
    std::size_t (*countAscii)(const char *from, std::size_t size, AsciiCounts &counts);
    /// The place of the first code point of two or three bytes that the filters find, or of the first one of four, or
    /// `size`. What is not UTF-8 may be found, too.
    std::size_t (*findFiltered)(const char *from, std::size_t size, const CodePointFilters &filters);
    /// Whether a text has newline characters other than line feeds.
    bool (*hasOtherNewlines)(const char *from, std::size_t size);
    /// For `blocks` blocks of 64 bytes.
    void (*findCounted)(const char *from, std::size_t blocks, CountedBytes *found);
    /// Finds the code points from `from` on, in up to `limit` blocks, which is at most `mostBlocksFound`, and returns
    /// how many blocks it filled. Ends before a block of ASCII, before what is no UTF-8 and where `size` ends. Unless
    /// `units` is null, it also writes all these code points one after the other, `wideUnit` for those of four bytes,
    /// and may overwrite everything behind them that there is room for.
    std::size_t (*findCodePoints)(const char *from, std::size_t size, const CodePointTables &tables, KindSets kinds,
                                  CodePointBlock *blocks, std::size_t limit, std::uint16_t *units);
    /// Writes the code points in `units`, which begin at `starts`, of those characters that consist of one of them, but
    /// for those of four bytes. `isFollowedByBoundary` tells whether the last character ends with the block. Up to 64
    /// units behind what it writes are overwritten too, and as many are read.
    SingleUnits (*selectSingles)(std::uint64_t starts, std::uint64_t boundaries, bool isFollowedByBoundary,
                                 const std::uint16_t *units, std::uint16_t *to);
    /// Maps code points from `from` on, up to the first that needs the full mapping or is no UTF-8, but keeps some of
    /// the bytes that are none. Up to 64 bytes behind what it writes are overwritten too.
    MappedCase (*mapCase)(const char *from, std::size_t size, const CasePages &pages, char *to);
    /// Writes 64 bytes: those of `size` bytes of whole code points, the code points in `firsts` mapped with
    /// `firstPages`, those in `seconds` with `secondPages`, everything else as it is. In the masks they have all their
    /// bits set.
    MappedBlock (*mapCaseOf)(const char *from, std::size_t size, std::uint64_t firsts, const CasePages &firstPages,
                             std::uint64_t seconds, const CasePages &secondPages, char *to);
    /// The number of set bits in all of `size` masks.
    std::size_t (*countBits)(const std::uint64_t *masks, std::size_t size);
    /// The highest bit of `mask` below which no more than `most` bits of `counted` are set.
    RankedBit (*highestRanked)(std::uint64_t mask, std::uint64_t counted, std::size_t most);
    /// Writes the index of every set bit, counted from the first mask on, in order, and returns how many there are; at
    /// most 1024 masks. Up to 64 indices behind them are overwritten too.
    std::size_t (*listBits)(const std::uint64_t *masks, std::size_t size, std::uint16_t *indices);
    /// Writes the bytes of `blocks` blocks whose bits are set in `keep` and returns how many. Up to 64 bytes behind
    /// them are overwritten too, but none of what follows the blocks where `to` is `from`.
    std::size_t (*compress)(const char *from, std::size_t blocks, const std::uint64_t *keep, char *to);
    /// As above, with `replacement` in place of every byte that is kept and has its bit in `replaced` set.
    std::size_t (*compressReplacing)(const char *from, std::size_t blocks, const std::uint64_t *keep,
                                     const std::uint64_t *replaced, char replacement, char *to);
    /// Copies the longest prefix that is plain text, which is printable ASCII, line feeds, carriage returns and tabs.
    /// Tabs become spaces. Marks all spaces then, and the line feeds behind carriage returns, in as many masks as it
    /// has begun blocks of 64 bytes. Up to 64 bytes behind what it writes are overwritten too.
    PlainPrefix (*copyPlain)(const char *from, std::size_t size, std::uint64_t *spaces, std::uint64_t *crLfs, char *to);
    /// Copies bytes to memory that nobody reads soon, and which therefore takes no place in the cache. `to` is other
    /// memory. Another thread may see the bytes late.
    void (*copyPastCache)(const char *from, std::size_t size, char *to);
    /// Writes all bytes but the members of the set and returns how many. Up to 64 bytes behind them are overwritten
    /// too.
    std::size_t (*removeMembers)(const char *from, std::size_t size, const AsciiSet &set, char *to);
    /// Writes as many bytes as it takes at once, those that are to be escaped escaped, and returns how many it read.
    /// Moves `to`, from where on it may overwrite twice as many bytes and 64 more.
    std::size_t (*escapeInPairs)(const char *from, std::size_t size, const PairEscapes &escapes, char *&to);
    /// Writes the words of whole blocks of ASCII in a new case, as many blocks as are followed by an ASCII byte, and
    /// returns how many bytes it read. Moves `to` and the state; up to 64 bytes behind `to` are overwritten too.
    std::size_t (*caseWords)(const char *from, std::size_t size, const WordCaseRules &rules, WordCaseState &state,
                             char *&to);
    /// Writes blocks of ASCII as sentences: the first character upper case and the rest lower, no blanks around them,
    /// ". " in place of each "." "!" and "?". Ends at the latest before 64 bytes that are followed by nothing or by
    /// anything but ASCII, and returns how many bytes it read. Moves `to`, from where on it may overwrite twice as many
    /// bytes and 64 more. `isAtBegin` tells whether nothing but blanks was read of a sentence.
    std::size_t (*caseSentences)(const char *from, std::size_t size, bool &isAtBegin, char *&to);
    /// Writes blocks of ASCII as sentences, each with a line feed behind it: without their "." "!" and "?", without the
    /// blanks around them, and without those that are empty then. Ends where the above does, and returns how many bytes
    /// it read. Moves `to`, behind which up to 64 bytes are overwritten too. `isAtBegin` is the same as above.
    std::size_t (*breakSentences)(const char *from, std::size_t size, bool &isAtBegin, char *&to);
    /// Writes the letters of whole blocks of ASCII in turn upper and lower case, and returns how many bytes it read.
    /// The turn is moved on.
    std::size_t (*alternateCase)(const char *from, std::size_t size, bool &isUppersTurn, char *to);
    /// The first place of `pattern`, which has at least one byte, in `text`, or `size` when there is none. Gives up,
    /// and returns the place it has come to with `gaveUp` set, when too many places look right at first.
    std::size_t (*find)(const char *text, std::size_t size, const char *pattern, std::size_t patternSize, bool &gaveUp);
    /// For `blocks` blocks of 64 bytes: at which bytes `pattern` stands, which has 1 to `longestMarked` bytes. Reads
    /// the `patternSize - 1` bytes behind the blocks, too.
    void (*markOccurrences)(const char *from, std::size_t blocks, const char *pattern, std::size_t patternSize,
                            std::uint64_t *places);
    /// Copies what stands from `from` on up to the end of the last of `count` parts, which begin at `places`, counted
    /// from `begin` on, with the replacement in place of each, and returns that end. A part that begins within the part
    /// before it is none. Moves `to`. Overwrites up to `replacingSlack` bytes behind it.
    const char *(*replaceParts)(const char *from, const char *begin, const std::uint16_t *places, std::size_t count,
                                const PartReplacements &parts, char *&to);
    /// Writes blocks with the replacement in place of each part that begins at a bit in `begins`, or in `before`, those
    /// of the block before these, and returns the end of that. Parts do not overlap; the bytes of one that goes on
    /// behind the blocks are not written. Overwrites up to 64 bytes behind. Takes as long wherever the parts are, and
    /// is null where that is longer than to write one after the other.
    char *(*replaceMarked)(const char *from, std::size_t blocks, const std::uint64_t *begins, std::uint64_t before,
                           const BytewiseReplacement &replacement, char *to);
    /// RFC 3629.
    bool (*isValidUtf8)(const char *text, std::size_t size);
    /// Two lowercase digits for each byte.
    void (*encodeHexadecimal)(const char *from, std::size_t size, char *to);
    /// A byte for each two digits; false when there is anything but digits. `to` may be what is read.
    bool (*decodeHexadecimal)(const char *from, std::size_t pairs, char *to);
    /// "%" and two uppercase digits for each of as many bytes as it takes at once, but for those in `kept`. Returns how
    /// many bytes it read and moves `to`, from where on it may overwrite four times as many.
    std::size_t (*encodePercent)(const char *from, std::size_t size, const AsciiSet &kept, char *&to);
    /// A byte for each "%" and the two hexadecimal digits behind it, everything else as it is; returns how many bytes
    /// it wrote. Not valid when there is a "%" without digits. Up to 64 bytes behind what it writes are overwritten
    /// too.
    std::size_t (*decodePercent)(const char *from, std::size_t size, char *to, bool &isValid);
    /// Writes the longest prefix that is ASCII in reverse order before `toEnd`, which is in other memory, and returns
    /// its length. Tells whether there is a carriage return in it.
    std::size_t (*reverseAscii)(const char *from, std::size_t size, char *toEnd, bool &hasCarriageReturn);
    /// Writes some bytes, 1 to 64 of them, so that they end at `toEnd`: the parts that begin at the bits in `begins`,
    /// the lowest of which is set, in reverse order, each part whole. `left` bytes can be read from `from` on, and 64
    /// before `toEnd` are overwritten.
    void (*reverseParts)(const char *from, std::size_t left, std::uint64_t begins, std::size_t size, char *toEnd);
    /// Writes lines with their words in reverse order, a space between them and a line feed behind each, up to the
    /// first that it does not take. It may take those that end with a line feed and have tabs (U+0009) and spaces
    /// (U+0020) for their only other newlines and spaces. Returns how many bytes it read. Moves `to`, behind which up
    /// to 64 bytes are overwritten too.
    std::size_t (*reverseWords)(const char *from, std::size_t size, char *&to);
    /// Base64 digits of as many groups of three bytes as it takes at once; returns how many bytes it read.
    std::size_t (*encodeBase64)(const char *from, std::size_t size, char *to);
    /// The bytes of as many groups of four Base64 digits as it takes at once, all of them valid; returns how many
    /// digits it read. Up to 16 bytes behind what it writes are overwritten too.
    std::size_t (*decodeBase64)(const char *from, std::size_t size, char *to);
    /// Writes for each of the first `count` keys how many of them are smaller; there is room for all that it takes.
    /// Returns a bit for each that only its lowest five bits make larger than another one.
    std::uint32_t (*rankFew)(const LongKeys &keys, std::size_t count, std::uint64_t *smaller);
    /// Writes the parts to `to`, other memory, sorted stably by those bits of their keys that are set in `bits`, at
    /// most `mostDigitBits`, as if no others were between them. Returns how many values these can have, and for each of
    /// them `ends` gets the index behind its last part.
    std::size_t (*distribute)(const KeyedPart *from, std::size_t count, std::uint64_t bits, KeyedPart *to,
                              std::uint32_t *ends);
    /// Writes the hashes of the first `count` lines. Where each begins `longestHashedLine` bytes can be read. Returns a
    /// bit for each that is longer, whose hash is of no meaning.
    std::uint32_t (*hashLines)(const char *text, LineBatch &lines, std::size_t count, const LineHash &hash);
    /// Looks for the hashes of the first `count` lines in the table, and enters those that are not there yet. Returns a
    /// bit for each of the others, whose `firsts` it writes. The table must have more free slots than these are lines.
    std::uint32_t (*enterLines)(LineBatch &lines, std::size_t count, const LineTable &table);
    /// The keys of words, at most 64, and the first slots of their pairs. Each word lies between two `bounds`, which
    /// count from `from` on, and 16 bytes can be read where it begins. Returns a bit for each that is too long, of
    /// which nothing is known. Asks the memory for the slots in `table`, if there is one.
    std::uint64_t (*keyWords)(const char *from, const std::uint16_t *bounds, std::size_t count, const WordHash &hash,
                              WordKey *keys, std::uint32_t *slots, const WordKey *table);
    /// A bit for each key, of at most 64, that stands in its slot of the table, the first one of a pair, or in the
    /// second one, into which its slot is changed then. The table is aligned to its pairs.
    std::uint64_t (*matchKeys)(const WordKey *keys, std::uint32_t *slots, std::size_t count, const WordKey *table);
};

/// The best for this processor.
[[nodiscard]] const Kernels &best();
/// Every set that this processor can run, the plain one first: what the tests compare.
[[nodiscard]] std::size_t availableCount();
[[nodiscard]] const Kernels &available(std::size_t index);

} // namespace lexivore::kernels
