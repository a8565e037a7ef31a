// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/word_reversal.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/utf8.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace lexivore {

namespace {

/// Writes any lines, word by word.
class LineWordReverser {
public:
    /// The lines are of a text that ends at `textEnd`.
    LineWordReverser(TextBuffer &result, const char *textEnd) : m_result(result), m_textEnd(textEnd) {}

    void append(std::string_view lines) {
        const char *const end = lines.data() + lines.size();
        const char *wordBegin = lines.data();
        forEachMember(MembershipScan(lines, whitespaceAndNewlines, MembershipScan::Mark::firstByte),
                      [&](const char *separator) {
                          addWord(wordBegin, separator);
                          const DecodedCodePoint decoded = decode(separator, end);
                          wordBegin = separator + decoded.length;
                          if (isNewline(decoded.value)) {
                              appendWords();
                              m_result.append('\n');
                          }
                      });
        addWord(wordBegin, end);
        appendWords();
    }

private:
    void addWord(const char *begin, const char *end) {
        if (begin != end) {
            m_words.emplace_back(begin, static_cast<std::size_t>(end - begin));
        }
    }

    /// The words of a line, the last one first.
    void appendWords() {
        if (m_words.empty()) {
            return;
        }
        const char *const begin = m_words.front().data();
        const auto lineBytes = static_cast<std::size_t>(m_words.back().data() + m_words.back().size() - begin);
        char *to = m_result.room(lineBytes + shortCopySlack + 1);
        const bool isFarFromEnd = static_cast<std::size_t>(m_textEnd - begin) >= lineBytes + shortCopySlack;
        for (std::size_t left = m_words.size(); left > 0; --left) {
            const std::string_view word = m_words[left - 1];
            if (isFarFromEnd) {
                copyInShortBlocks(word.data(), word.size(), to);
            } else {
                copyBytes(word.data(), word.size(), to);
            }
            to += word.size();
            *to++ = ' ';
        }
        m_result.commit(to - 1);
        m_words.clear();
    }

    TextBuffer &m_result;
    const char *m_textEnd;
    std::vector<std::string_view> m_words; ///< Of the line.
};

/// The end of the line that `position` lies in, behind its newline character.
const char *lineEndBehind(const char *position, const char *end) {
    const NewlineMatch newline = findNewline(position, end);
    return newline.position + newline.length;
}

} // namespace

TextBuffer withWordsReversed(std::string_view text) {
    // How much is written word by word when the kernel comes to a line that it does not take: ever more while it takes
    // little.
    constexpr std::size_t leastAtOnce = 512;
    constexpr std::size_t mostAtOnce = std::size_t{1} << 16;
    std::size_t atOnce = leastAtOnce;
    const char *const end = text.data() + text.size();
    TextBuffer result = TextBuffer::withCapacity(text.size() + 2 * copySlack);
    LineWordReverser reverser(result, end);
    for (const char *position = text.data(); position != end;) {
        const auto left = static_cast<std::size_t>(end - position);
        char *to = result.room(left + copySlack);
        const std::size_t taken = kernels::best().reverseWords(position, left, to);
        result.commit(to);
        position += taken;
        atOnce = taken < atOnce ? std::min(2 * atOnce, mostAtOnce) : leastAtOnce;
        const char *const linesEnd = left - taken <= atOnce ? end : lineEndBehind(position + atOnce, end);
        reverser.append({position, static_cast<std::size_t>(linesEnd - position)});
        position = linesEnd;
    }
    result.shrink();
    return result;
}

} // namespace lexivore
