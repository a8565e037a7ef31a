// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/word_case.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/case_mapping.h"
#include "engine/primitives/case_writing.h"
#include "engine/primitives/character_blocks.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/utf8.h"
#include "engine/primitives/words.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace lexivore {

namespace {

using kernels::WordCaseRules;
using kernels::WordCaseState;

/// The bits of `size` bytes.
constexpr std::uint64_t bitsOfBytes(std::size_t size) { return ~std::uint64_t{0} >> (kernels::blockSize - size); }

/// Writes a text from left to right: long runs of ASCII by one kernel, blocks of other text with others, and what needs
/// a full case mapping one code point at a time.
class WordWriter {
public:
    WordWriter(std::string_view text, const WordCaseRules &rules)
        : m_position(text.data()),
          m_rules(rules), m_kinds{kindsOf(alphanumerics), kindsOf(property::letter),
                                  rules.joinsOverApostrophe ? apostrophe : std::uint8_t{0}, false},
          m_context{text.data(), text.data() + text.size(),
                    rules.joinsOverApostrophe ? SigmaContext::Extent::wordJoinedOverApostrophes
                                              : SigmaContext::Extent::word} {}

    void appendTo(TextBuffer &result) {
        constexpr std::size_t stretch = 4096;
        constexpr std::size_t scratch = (blocksAtOnce + 1) * kernels::blockSize * longestMapping;
        while (m_position != m_context.end) {
            const auto length = std::min(static_cast<std::size_t>(m_context.end - m_position), stretch);
            m_to = result.room(length * longestMapping + scratch);
            const char *const stretchEnd = m_position + length;
            while (m_position < stretchEnd) {
                // The kernel looks at one byte more than it writes.
                m_position +=
                    kernels::best().caseWords(m_position, std::min(bytesLeft(), length + 1), m_rules, m_state, m_to);
                if (m_position < stretchEnd && !writeBlocks()) {
                    writeSlowly(std::min(bytesLeft(), kernels::blockSize));
                }
            }
            result.commit(m_to);
        }
    }

    /// True when the text ends within a word.
    [[nodiscard]] bool endsInWord() const { return m_state.isInWord; }

private:
    static constexpr std::size_t blocksAtOnce = kernels::mostBlocksFound;
    static constexpr std::uint8_t apostrophe = 1U << static_cast<unsigned>(kernels::Kind::apostrophe);

    [[nodiscard]] std::size_t bytesLeft() const { return static_cast<std::size_t>(m_context.end - m_position); }

    void writeSlowly(std::size_t bytes) {
        for (const char *const end = m_position + bytes; m_position < end;) {
            writeCodePoint();
        }
    }

    /// False where no block can be written: in ASCII and in what is no UTF-8.
    bool writeBlocks() {
        kernels::CodePointBlock blocks[blocksAtOnce];
        const std::size_t count = kernels::best().findCodePoints(
            m_position, bytesLeft(), unicode_tables::characterTables, m_kinds, blocks, blocksAtOnce, nullptr);
        for (std::size_t i = 0; i < count; ++i) {
            writeBlock(blocks[i]);
        }
        return count > 0;
    }

    /// Writes the block that begins at the position. In its masks code points have all their bytes.
    void writeBlock(const kernels::CodePointBlock &block) {
        const std::uint64_t inBlock = bitsOfBytes(block.size);
        const std::uint64_t alphanumeric = wholeCodePoints(block.first, block.starts) & inBlock;
        const std::uint64_t words = alphanumeric | joiningApostrophes(block, alphanumeric);
        std::uint64_t titlecased = 0;
        std::uint64_t lowercased = words;
        bool endsBehindLetter = false;
        if (m_rules.capitalizes) {
            const std::uint64_t carried = m_state.isInWord && m_state.isBehindLetter ? 1 : 0;
            // The beginnings of words that have no letter: a bit added to each is carried through it and clears it.
            const std::uint64_t others = words & ~wholeCodePoints(block.second, block.starts);
            const std::uint64_t beginnings = words & ~(words << 1 | carried);
            const std::uint64_t reached = words & ~(others & ~(others + (beginnings & others)));
            const std::uint64_t later = block.starts & words & (reached << 1 | carried);
            lowercased = wholeCodePoints(later, block.starts) & inBlock;
            titlecased = wholeCodePoints(block.second & ~later, block.starts) & inBlock;
            endsBehindLetter = (reached >> (block.size - 1) & 1U) != 0;
        }
        char withSeparators[kernels::blockSize];
        char *const mapped = m_rules.dropsSeparators ? withSeparators : m_to;
        const kernels::MappedBlock result =
            kernels::best().mapCaseOf(m_position, bytesLeft(), titlecased, unicode_tables::titlecase.pages, lowercased,
                                      unicode_tables::lowercase.pages, mapped);
        if (result.specials != 0) {
            writeSlowly(block.size);
            return;
        }
        for (std::uint64_t sigmas = result.capitalSigmas & lowercased; sigmas != 0; sigmas &= sigmas - 1) {
            const auto place = std::countr_zero(sigmas);
            if (isFinalSigma(m_position + place, m_context)) {
                writeFinalSigma(mapped + place);
            }
        }
        if (m_rules.dropsSeparators) {
            const std::uint64_t firstSeparators = ~words & (words << 1 | (m_state.isInWord ? 1U : 0U)) & inBlock;
            const std::uint64_t keep = words | (m_rules.joiner != '\0' ? firstSeparators : 0);
            const std::uint64_t replaced = ~words;
            m_to += kernels::best().compressReplacing(mapped, 1, &keep, &replaced, m_rules.joiner, m_to);
        } else {
            m_to += block.size;
        }
        m_state.isInWord = (words >> (block.size - 1) & 1U) != 0;
        m_state.isBehindAlphanumeric = (alphanumeric >> (block.size - 1) & 1U) != 0;
        m_state.isBehindLetter = endsBehindLetter;
        m_position += block.size;
    }

    /// The apostrophes that stand between two of the alphanumerics.
    [[nodiscard]] std::uint64_t joiningApostrophes(const kernels::CodePointBlock &block,
                                                   std::uint64_t alphanumeric) const {
        std::uint64_t joining = 0;
        std::uint64_t places = block.third & (alphanumeric << 1 | (m_state.isBehindAlphanumeric ? 1U : 0U));
        for (; places != 0; places &= places - 1) {
            const auto place = std::countr_zero(places);
            const std::size_t length = decode(m_position + place, m_context.end).length;
            if (startsWithAlphanumeric(m_position + place + length, m_context.end)) {
                joining |= bitsOfBytes(length) << place;
            }
        }
        return joining;
    }

    void writeCodePoint() {
        const DecodedCodePoint decoded = decode(m_position, m_context.end);
        const char *const next = m_position + decoded.length;
        const CodePointSet properties = codePointProperties(decoded.value);
        if ((properties & alphanumerics) != 0) {
            writeInWord(decoded, (properties & property::letter) != 0);
            m_state.isInWord = true;
            m_state.isBehindAlphanumeric = true;
        } else {
            const bool joins = m_rules.joinsOverApostrophe && m_state.isBehindAlphanumeric &&
                               isApostrophe(decoded.value) && startsWithAlphanumeric(next, m_context.end);
            if (!m_rules.dropsSeparators) {
                copy(decoded.length);
            } else if (m_state.isInWord && m_rules.joiner != '\0') {
                *m_to++ = m_rules.joiner;
            }
            m_state.isInWord = joins;
            m_state.isBehindAlphanumeric = false;
        }
        m_position = next;
    }

    void writeInWord(const DecodedCodePoint &decoded, bool isLetter) {
        if (!m_state.isInWord) {
            m_state.isBehindLetter = false;
        }
        if (!m_rules.capitalizes || m_state.isBehindLetter) {
            m_to = writeLowercase(decoded.value, m_position, m_context, m_to);
        } else if (isLetter) {
            m_to = writeMapped(unicode_tables::titlecase, decoded.value, m_to);
        } else {
            copy(decoded.length);
        }
        m_state.isBehindLetter = m_state.isBehindLetter || isLetter;
    }

    void copy(std::size_t length) {
        std::memcpy(m_to, m_position, length);
        m_to += length;
    }

    const char *m_position;
    char *m_to = nullptr;
    WordCaseRules m_rules;
    kernels::KindSets m_kinds; ///< Alphanumerics, letters, and apostrophes if they join.
    WordCaseState m_state;
    SigmaContext m_context;
};

} // namespace

TextBuffer capitalizeWords(std::string_view text) {
    WordCaseRules rules;
    rules.joinsOverApostrophe = true;
    rules.capitalizes = true;
    TextBuffer result = TextBuffer::withCapacity(text.size() + text.size() / 16);
    WordWriter(text, rules).appendTo(result);
    result.shrink();
    return result;
}

TextBuffer joinIdentifierWords(std::string_view text, IdentifierStyle style) {
    TextBuffer result = TextBuffer::withCapacity(text.size() + text.size() / 16);
    if (style.capitalizesWords && style.lowersFirstWord) {
        const char *const end = text.data() + text.size();
        const char *const wordBegin = findMember(text.data(), end, alphanumerics);
        const char *const wordEnd = findNonMember(wordBegin, end, alphanumerics);
        appendLowercase(result, std::string_view(wordBegin, static_cast<std::size_t>(wordEnd - wordBegin)));
        text.remove_prefix(static_cast<std::size_t>(wordEnd - text.data()));
    }
    WordCaseRules rules;
    rules.capitalizes = style.capitalizesWords;
    rules.dropsSeparators = true;
    rules.joiner = style.joiner;
    WordWriter writer(text, rules);
    writer.appendTo(result);
    if (style.joiner != '\0' && !writer.endsInWord() && !result.empty()) {
        result.truncate(result.size() - 1); // the joiner of a word that does not come
    }
    result.shrink();
    return result;
}

} // namespace lexivore
