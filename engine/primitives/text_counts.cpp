// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/text_counts.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/bit_tally.h"
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

// The text is walked in blocks of 64 bytes, for which the kernels say where its spaces, newlines and so on are, one bit
// a byte. Each count is a few operations on these bits and on what is carried from one block to the next.
namespace lexivore {

namespace {

using kernels::CountedBytes;

constexpr unsigned lastBit = kernels::blockSize - 1;

/// Counts the pieces between separators that are not empty.
class PieceCounter {
public:
    void add(std::uint64_t separators, std::uint64_t inText) {
        m_tally.add((separators << 1 | m_isBehindSeparator) & ~separators & inText);
        m_isBehindSeparator = separators >> lastBit;
    }
    [[nodiscard]] std::size_t count() { return m_tally.count(); }

private:
    BitTally m_tally;
    std::uint64_t m_isBehindSeparator = 1;
};

/// Counts the pieces between separators that have a byte which is not blank.
class NonBlankPieceCounter {
public:
    /// No byte is both a separator and blank.
    void add(std::uint64_t separators, std::uint64_t blanks, std::uint64_t inText) {
        // A piece begins behind a separator. Added to a run of blanks that it begins with, its first bit is carried to
        // the first byte behind the run; that byte, unless the piece ends there, makes the piece count.
        const std::uint64_t pieceBegins = separators << 1 | m_isBeforeContent;
        std::uint64_t reached = 0;
        const bool isCarriedOut = __builtin_add_overflow(blanks, pieceBegins & inText, &reached);
        m_isBeforeContent = separators >> lastBit | (isCarriedOut ? 1U : 0U);
        m_tally.add(reached & ~blanks & ~separators & inText);
    }
    [[nodiscard]] std::size_t count() { return m_tally.count(); }

private:
    BitTally m_tally;
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

/// What stands in a block, code points outside ASCII included.
struct Block {
    const char *begin = nullptr;
    std::uint64_t inText = 0;     ///< The bytes that are there: all of them, but for the last block.
    std::uint64_t blanks = 0;     ///< Every byte of spaces and tabs.
    std::uint64_t newlines = 0;   ///< Every byte of newline characters.
    std::uint64_t laterBytes = 0; ///< Of both, those that are not the first of their code point.
    CountedBytes ascii;
};

/// Finds spaces and newlines outside ASCII, which can reach from one block into the next.
class WideSpaces {
public:
    explicit WideSpaces(const char *end) : m_end(end) {}

    void addTo(Block &block) {
        add(block, 0, m_carriedBlanks, m_carriedNewlines);
        block.laterBytes = m_carriedBlanks | m_carriedNewlines;
        m_carriedBlanks = m_carriedNewlines = 0;
        for (std::uint64_t leads = block.ascii.spaceLeads & block.inText; leads != 0; leads &= leads - 1) {
            const auto bit = static_cast<unsigned>(std::countr_zero(leads));
            // A lead that begins a well-formed sequence is part of no other, so that each can be looked at by itself.
            const DecodedCodePoint decoded = decode(block.begin + bit, m_end);
            const CodePointSet properties = codePointProperties(decoded.value);
            if ((properties & whitespaceAndNewlines) != 0) {
                const std::uint64_t bytes = (std::uint64_t{1} << decoded.length) - 1;
                const bool isNewline = (properties & newlines) != 0;
                add(block, bit, isNewline ? 0 : bytes, isNewline ? bytes : 0);
                block.laterBytes |= (bytes & ~std::uint64_t{1}) << bit;
            }
        }
    }

private:
    void add(Block &block, unsigned bit, std::uint64_t blanks, std::uint64_t newlineBytes) {
        block.blanks |= blanks << bit;
        block.newlines |= newlineBytes << bit;
        if (bit != 0) {
            m_carriedBlanks |= blanks >> (kernels::blockSize - bit);
            m_carriedNewlines |= newlineBytes >> (kernels::blockSize - bit);
        }
    }

    const char *m_end;
    std::uint64_t m_carriedBlanks = 0;
    std::uint64_t m_carriedNewlines = 0;
};

/// Calls `visit(const Block &)` with every block of `text`.
template<typename Visit> void forEachBlock(std::string_view text, Visit &&visit) {
    constexpr std::size_t blocksAtOnce = 64;
    std::array<CountedBytes, blocksAtOnce> found;
    WideSpaces wideSpaces(text.data() + text.size());
    const auto visitBlocks = [&](const char *begin, std::size_t blocks, std::uint64_t inText) {
        for (std::size_t i = 0; i < blocks; ++i) {
            Block block{begin + i * kernels::blockSize, inText, found[i].blanks, found[i].newlines, 0, found[i]};
            wideSpaces.addTo(block);
            visit(block);
        }
    };
    const char *position = text.data();
    std::size_t left = text.size();
    while (left >= kernels::blockSize) {
        const std::size_t blocks = std::min(left / kernels::blockSize, blocksAtOnce);
        kernels::best().findCounted(position, blocks, found.data());
        visitBlocks(position, blocks, ~std::uint64_t{0});
        position += blocks * kernels::blockSize;
        left -= blocks * kernels::blockSize;
    }
    if (left > 0) {
        char last[kernels::blockSize] = {}; // zeros are nothing that counts
        std::memcpy(last, position, left);
        kernels::best().findCounted(last, 1, found.data());
        visitBlocks(position, 1, (std::uint64_t{1} << left) - 1);
    }
}

/// Counts the characters that begin with white space: all of it but the line feeds of CR LF and the spaces that a
/// character before them takes in.
class WhitespaceCounter {
public:
    WhitespaceCounter(const char *textBegin, Spaces spaces) : m_textBegin(textBegin), m_spaces(spaces) {}

    void add(const Block &block) {
        const std::uint64_t crLfs =
            block.ascii.lineFeeds & (block.ascii.carriageReturns << 1 | m_isBehindCarriageReturn);
        m_isBehindCarriageReturn = block.ascii.carriageReturns >> lastBit;
        const std::uint64_t blanks = block.blanks & ~block.laterBytes;
        m_tally.add((blanks | (block.newlines & ~block.laterBytes)) & ~crLfs);

        if (m_spaces == Spaces::standAlone) {
            return;
        }
        const std::uint64_t behindNonAscii = block.ascii.nonAscii << 1 | m_isBehindNonAscii;
        m_isBehindNonAscii = block.ascii.nonAscii >> lastBit;
        for (std::uint64_t left = blanks & behindNonAscii; left != 0; left &= left - 1) {
            m_taken += isTaken(block.begin + std::countr_zero(left)) ? 1U : 0U;
        }
    }
    [[nodiscard]] std::size_t count() { return m_tally.count() - m_taken; }

private:
    /// A Prepend takes in what follows it, unless it is a control (UAX #29, rules GB5 and GB9b).
    [[nodiscard]] bool isTaken(const char *blank) const {
        const char32_t before = decodeBefore(m_textBegin, blank).value;
        return *blank != '\t' && character_breaks::breakClass(before) == unicode_tables::BreakClass::prepend;
    }

    const char *m_textBegin;
    Spaces m_spaces;
    BitTally m_tally;
    std::size_t m_taken = 0;
    std::uint64_t m_isBehindCarriageReturn = 0;
    std::uint64_t m_isBehindNonAscii = 0;
};

} // namespace

TextCounts countText(std::string_view text, Spaces spaces) {
    WhitespaceCounter whitespaceCharacters(text.data(), spaces);
    PieceCounter words;
    BitTally newlineCharacters;
    NonBlankPieceCounter lines;
    NonBlankPieceCounter sentences;
    NonBlankPieceCounter paragraphs;
    LineFeedPairs lineFeedPairs;
    const char *const end = text.data() + text.size();
    forEachBlock(text, [&](const Block &block) {
        const char *const next = block.begin + kernels::blockSize;
        const bool nextIsLineFeed =
            end - block.begin > static_cast<std::ptrdiff_t>(kernels::blockSize) && *next == '\n';
        whitespaceCharacters.add(block);
        words.add(block.blanks | block.newlines, block.inText);
        newlineCharacters.add(block.newlines & ~block.laterBytes);
        lines.add(block.newlines, block.blanks, block.inText);
        sentences.add(block.ascii.sentenceEnds, block.blanks, block.inText);
        paragraphs.add(lineFeedPairs.add(block.ascii.lineFeeds, nextIsLineFeed), block.blanks, block.inText);
    });
    return {
        .whitespaceCharacters = whitespaceCharacters.count(),
        .words = words.count(),
        .lines = newlineCharacters.count() + 1,
        .nonBlankLines = lines.count(),
        .nonBlankSentences = sentences.count(),
        .nonBlankParagraphs = paragraphs.count(),
    };
}

} // namespace lexivore
