// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/word_case.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/case_mapping.h"
#include "engine/primitives/case_writing.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/utf8.h"
#include "engine/primitives/words.h"

#include <algorithm>
#include <cstring>

namespace lexivore {

namespace {

using kernels::WordCaseRules;
using kernels::WordCaseState;

/// Writes a text from left to right: long runs of ASCII by the kernel, everything else one code point at a time.
class WordWriter {
public:
    WordWriter(std::string_view text, const WordCaseRules &rules)
        : m_position(text.data()),
          m_rules(rules), m_context{text.data(), text.data() + text.size(),
                                    rules.joinsOverApostrophe ? SigmaContext::Extent::wordJoinedOverApostrophes
                                                              : SigmaContext::Extent::word} {}

    void appendTo(TextBuffer &result) {
        constexpr std::size_t stretch = 4096;
        constexpr std::size_t scratch = kernels::blockSize + longestMapping;
        while (m_position != m_context.end) {
            const auto length = std::min(static_cast<std::size_t>(m_context.end - m_position), stretch);
            m_to = result.room(length * longestMapping + scratch);
            const char *const stretchEnd = m_position + length;
            while (m_position < stretchEnd) {
                // The kernel looks at one byte more than it writes.
                const auto left = static_cast<std::size_t>(m_context.end - m_position);
                m_position += kernels::best().caseWords(m_position, std::min(left, length + 1), m_rules, m_state, m_to);
                const auto rest = static_cast<std::size_t>(m_context.end - m_position);
                const char *const slowEnd = m_position + std::min(rest, kernels::blockSize);
                while (m_position < slowEnd) {
                    writeCodePoint();
                }
            }
            result.commit(m_to);
        }
    }

    /// True when the text ends within a word.
    [[nodiscard]] bool endsInWord() const { return m_state.isInWord; }

private:
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
