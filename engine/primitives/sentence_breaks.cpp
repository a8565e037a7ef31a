// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/sentence_breaks.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/membership_scan.h"

#include <algorithm>
#include <utility>

namespace lexivore {

namespace {

/// Writes a text from left to right: ASCII by a kernel, and from what it stops at on some sentences one by one.
class SentenceBreaker {
public:
    explicit SentenceBreaker(std::string_view text)
        : m_position(text.data()), m_end(text.data() + text.size()), m_to(m_result.room(text.size() + slack)) {}

    [[nodiscard]] TextBuffer take() {
        while (m_position != m_end) {
            m_position += kernels::best().breakSentences(m_position, bytesLeft(), m_isAtBegin, m_to);
            writeSome();
        }
        m_result.commit(m_to);
        if (m_isAtBegin && !m_result.empty()) {
            m_result.truncate(m_result.size() - 1); // no sentence comes behind the last line feed
        }
        m_result.shrink();
        return std::move(m_result);
    }

private:
    static constexpr std::size_t slack = std::max(copySlack, kernels::blockSize);
    static constexpr kernels::AsciiSet terminators{".!?"};

    [[nodiscard]] std::size_t bytesLeft() const { return static_cast<std::size_t>(m_end - m_position); }

    /// Writes what is left of the sentence and those that end not far behind it.
    void writeSome() {
        constexpr std::size_t stretch = 4096;
        const char *const begin = m_position;
        const auto writeUpTo = [this](const char *terminator) {
            write({m_position, static_cast<std::size_t>(terminator - m_position)});
            m_position = terminator + 1;
            if (!m_isAtBegin) {
                *m_to++ = '\n';
            }
            m_isAtBegin = true;
        };
        forEachMember(MembershipScan({begin, std::min(bytesLeft(), stretch)}, terminators), writeUpTo);
        if (m_position != begin) {
            return;
        }
        const char *const terminator = std::find_if(begin, m_end, [](char byte) { return terminators.contains(byte); });
        if (terminator != m_end) {
            writeUpTo(terminator);
            return;
        }
        write({begin, bytesLeft()});
        m_position = m_end;
    }

    /// Writes the rest of a sentence.
    void write(std::string_view rest) {
        const std::string_view inside = trimmed(rest);
        if (inside.empty()) {
            return; // what stands before it does not end with a blank
        }
        const char *const begin = m_isAtBegin ? inside.data() : rest.data();
        const auto size = static_cast<std::size_t>(inside.data() + inside.size() - begin);
        if (static_cast<std::size_t>(m_end - begin) >= size + copySlack) {
            copyInBlocks(begin, size, m_to);
        } else {
            copyBytes(begin, size, m_to);
        }
        m_to += size;
        m_isAtBegin = false;
    }

    const char *m_position;
    const char *m_end;
    TextBuffer m_result;
    char *m_to;
    bool m_isAtBegin = true; ///< Nothing was written of the sentence yet.
};

} // namespace

TextBuffer breakAfterSentences(std::string_view text) { return SentenceBreaker(text).take(); }

} // namespace lexivore
