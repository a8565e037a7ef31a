// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/sentence_case.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/case_mapping.h"
#include "engine/primitives/characters.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/words.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace lexivore {

namespace {

constexpr std::ptrdiff_t blockSize{kernels::blockSize};
constexpr kernels::ByteClass terminators{kernels::AsciiSet(".!?")};

bool isTerminator(char byte) { return terminators.ascii.contains(byte); }

/// Where the terminators are in the block of 64 bytes that begins at `position`.
std::uint64_t terminatorsAt(const char *position) {
    std::uint64_t found = 0;
    std::uint64_t candidates = 0;
    kernels::best().classify(position, 1, terminators, &found, &candidates);
    return found;
}

/// The place behind the last terminator before `position`, or `begin`.
const char *behindTerminatorBefore(const char *begin, const char *position) {
    for (; position - begin >= blockSize; position -= blockSize) {
        if (const std::uint64_t found = terminatorsAt(position - blockSize); found != 0) {
            return position - std::countl_zero(found);
        }
    }
    while (position != begin && !isTerminator(position[-1])) {
        --position;
    }
    return position;
}

/// Writes a text from left to right: ASCII by a kernel, and from what it stops at on to the end of the sentence with
/// full case mappings.
class SentenceWriter {
public:
    explicit SentenceWriter(std::string_view text)
        : m_begin(text.data()), m_position(text.data()), m_end(text.data() + text.size()),
          m_terminators(text, terminators.ascii) {}

    void appendTo(TextBuffer &result) {
        while (m_position != m_end) {
            if (!appendBlocks(result)) {
                appendRest(result);
            }
        }
    }

private:
    /// False where the kernel writes nothing.
    bool appendBlocks(TextBuffer &result) {
        constexpr std::size_t stretch = 4096;
        const std::size_t size = std::min(static_cast<std::size_t>(m_end - m_position), stretch);
        char *to = result.room(2 * size + kernels::blockSize);
        const std::size_t read = kernels::best().caseSentences(m_position, size, m_isAtBegin, to);
        result.commit(to);
        m_position += read;
        return read > 0;
    }

    /// Appends what is left of the sentence.
    void appendRest(TextBuffer &result) {
        const char *const terminator = m_terminators.from(m_position);
        const char *const begin = m_isAtBegin ? m_position : behindTerminatorBefore(m_begin, m_position);
        const std::string_view sentence = trimmed({begin, static_cast<std::size_t>(terminator - begin)});
        std::string_view left = sentence;
        if (!m_isAtBegin) {
            const char *const end = sentence.data() + sentence.size();
            left.remove_prefix(static_cast<std::size_t>(std::min(m_position, end) - sentence.data()));
        } else if (!sentence.empty()) {
            const std::size_t firstEnd = characterEnd(sentence, 0);
            appendUppercase(result, sentence.substr(0, firstEnd));
            left.remove_prefix(firstEnd);
        }
        appendLowercase(result, left, sentence);
        m_position = terminator;
        m_isAtBegin = true;
        if (terminator != m_end) {
            result.append(". ");
            ++m_position;
        }
    }

    const char *m_begin;
    const char *m_position;
    const char *m_end;
    MemberFinder m_terminators;
    bool m_isAtBegin = true; ///< Nothing was written of the sentence yet.
};

} // namespace

TextBuffer capitalizeSentences(std::string_view text) {
    TextBuffer result = TextBuffer::withCapacity(text.size() + text.size() / 8);
    SentenceWriter(text).appendTo(result);
    result.shrink();
    return result;
}

} // namespace lexivore
