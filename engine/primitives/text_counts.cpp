// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/text_counts.h"

#include "engine/primitives/character_breaks.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/utf8.h"

#include <bit>
#include <cstdint>

// The text is walked in blocks of 64 bytes, for which the scans say where its spaces, newlines and so on are, one bit a
// byte. Each count is a few operations on these bits and what it carries from one block to the next.
namespace lexivore {

namespace {

constexpr unsigned lastBit = kernels::blockSize - 1;

std::size_t bitCount(std::uint64_t bits) { return static_cast<std::size_t>(std::popcount(bits)); }

class WordCounter {
public:
    [[nodiscard]] std::size_t add(std::uint64_t separators, std::uint64_t inText) {
        const std::uint64_t behindSeparator = separators << 1 | m_isBehindSeparator;
        m_isBehindSeparator = separators >> lastBit;
        return bitCount(behindSeparator & ~separators & inText);
    }

private:
    std::uint64_t m_isBehindSeparator = 1;
};

/// Counts the pieces between separators that have a byte which is not blank.
class NonBlankPieceCounter {
public:
    /// No byte is both a separator and blank.
    [[nodiscard]] std::size_t add(std::uint64_t separators, std::uint64_t blanks, std::uint64_t inText) {
        // A piece begins behind a separator. Added to a run of blanks that it begins with, its first bit is carried to
        // the first byte behind the run; that byte, unless the piece ends there, makes the piece count.
        const std::uint64_t pieceBegins = separators << 1 | m_isBeforeContent;
        std::uint64_t reached = 0;
        const bool isCarriedOut = __builtin_add_overflow(blanks, pieceBegins & inText, &reached);
        m_isBeforeContent = separators >> lastBit | (isCarriedOut ? 1U : 0U);
        return bitCount(reached & ~blanks & ~separators & inText);
    }

private:
    std::uint64_t m_isBeforeContent = 1; ///< The piece had nothing but blanks so far.
};

/// Finds the pairs of line feeds that part paragraphs.
class LineFeedPairs {
public:
    /// The bytes of the block that belong to a pair.
    [[nodiscard]] std::uint64_t add(std::uint64_t lineFeeds, bool nextIsLineFeed) {
        std::uint64_t pairs = m_isSecondDue ? 1U : 0U;
        lineFeeds &= ~pairs;
        m_isSecondDue = false;
        std::uint64_t firsts = lineFeeds & (lineFeeds >> 1 | std::uint64_t{nextIsLineFeed} << lastBit);
        while (firsts != 0) {
            const std::uint64_t both = std::uint64_t{3} << std::countr_zero(firsts);
            pairs |= both;
            m_isSecondDue = (both & (both - 1)) == 0; // the second one did not fit
            firsts &= ~both;
        }
        return pairs;
    }

private:
    bool m_isSecondDue = false; ///< The first byte of the next block is the second of a pair.
};

/// The number of `spaces`, each given by its first byte, that a character before them takes in: such as follow a
/// Prepend (UAX #29, rule GB9b).
std::size_t prependedSpaces(std::string_view text, const char *begin, std::uint64_t spaces) {
    std::size_t count = 0;
    for (; spaces != 0; spaces &= spaces - 1) {
        const char *const space = begin + std::countr_zero(spaces);
        if (space == text.data() || isAscii(space[-1]) || *space == '\t') {
            continue;
        }
        const char32_t before = decodeBefore(text.data(), space).value;
        count += character_breaks::breakClass(before) == unicode_tables::BreakClass::prepend ? 1U : 0U;
    }
    return count;
}

} // namespace

TextCounts countText(std::string_view text) {
    static constexpr kernels::AsciiSet sentenceEndSet(".!?");
    static constexpr kernels::AsciiSet lineFeedSet("\n");
    static constexpr kernels::AsciiSet carriageReturnSet("\r");
    MembershipScan blankScan(text, whitespace, MembershipScan::Mark::everyByte);
    MembershipScan newlineScan(text, newlines, MembershipScan::Mark::everyByte);
    MembershipScan sentenceEndScan(text, sentenceEndSet);
    MembershipScan lineFeedScan(text, lineFeedSet);
    MembershipScan carriageReturnScan(text, carriageReturnSet);
    WordCounter words;
    NonBlankPieceCounter lines;
    NonBlankPieceCounter sentences;
    NonBlankPieceCounter paragraphs;
    LineFeedPairs lineFeedPairs;
    std::uint64_t isBehindCarriageReturn = 0;
    const char *const end = text.data() + text.size();

    TextCounts counts;
    counts.lines = 1;
    MembershipScan::Block blank;
    MembershipScan::Block newline;
    MembershipScan::Block sentenceEnd;
    MembershipScan::Block lineFeed;
    MembershipScan::Block carriageReturn;
    while (blankScan.next(blank) && newlineScan.next(newline) && sentenceEndScan.next(sentenceEnd) &&
           lineFeedScan.next(lineFeed) && carriageReturnScan.next(carriageReturn)) {
        const std::uint64_t inText = ~std::uint64_t{0} >> (kernels::blockSize - blank.size);
        const char *const blockEnd = blank.begin + blank.size;
        const std::uint64_t pairs = lineFeedPairs.add(lineFeed.members, blockEnd != end && *blockEnd == '\n');
        const std::uint64_t crLfs = lineFeed.members & (carriageReturn.members << 1 | isBehindCarriageReturn);
        isBehindCarriageReturn = carriageReturn.members >> lastBit;

        counts.whitespaceCharacters += bitCount(blank.begins | newline.begins) - bitCount(crLfs);
        counts.whitespaceCharacters -= prependedSpaces(text, blank.begin, blank.begins);
        counts.words += words.add(blank.members | newline.members, inText);
        counts.lines += bitCount(newline.begins);
        counts.nonBlankLines += lines.add(newline.members, blank.members, inText);
        counts.nonBlankSentences += sentences.add(sentenceEnd.members, blank.members, inText);
        counts.nonBlankParagraphs += paragraphs.add(pairs, blank.members, inText);
    }
    return counts;
}

} // namespace lexivore
