// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// The text is read in windows that overlap by the length of the longest possible match, so that it is never joined.
#include "ui/editor/text_search.h"

#include "engine/primitives/utf8.h"
#include "ui/editor/text_boundaries.h"

#include <QChar>

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace lexivore {

namespace {

constexpr std::size_t windowBytes = std::size_t{256} * 1024;
constexpr char32_t lastWithCase = 0x1FFFF; ///< Planes behind the second one have none.

/// The code points that fold to `folded`, itself included.
std::vector<char32_t> unfolded(char32_t folded) {
    using Folding = std::pair<char32_t, char32_t>; // what a code point folds to, and the code point
    static const std::vector<Folding> foldings = [] {
        std::vector<Folding> all;
        for (char32_t codePoint = 0; codePoint <= lastWithCase; ++codePoint) {
            if (const char32_t target = QChar::toCaseFolded(codePoint); target != codePoint) {
                all.emplace_back(target, codePoint);
            }
        }
        std::sort(all.begin(), all.end());
        return all;
    }();
    std::vector<char32_t> codePoints{folded};
    for (auto at = std::lower_bound(foldings.begin(), foldings.end(), Folding(folded, 0));
         at != foldings.end() && at->first == folded; ++at) {
        codePoints.push_back(at->second);
    }
    return codePoints;
}

/// Finds the needle in runs of bytes.
///
/// Few code points can begin a match. In most scripts their letters share the first bytes, so it is their last bytes
/// that are looked for; what else they end is decoded in vain. From there on no code point is decoded twice, however
/// much the needle resembles itself (Knuth, Morris and Pratt).
class Finder {
public:
    /// The needle is not empty.
    explicit Finder(std::string_view needle) {
        for (const char *position = needle.data(); position != needle.data() + needle.size();) {
            const DecodedCodePoint decoded = decode(position, needle.data() + needle.size());
            m_folded.push_back(QChar::toCaseFolded(decoded.value));
            position += decoded.length;
        }
        m_fallbacks.push_back(0);
        while (m_fallbacks.size() < m_folded.size()) {
            m_fallbacks.push_back(matchedWith(m_folded[m_fallbacks.size()], m_fallbacks.back()));
        }
        for (const char32_t codePoint : unfolded(m_folded.front())) {
            std::array<char, 4> bytes{};
            const char *const end = encode(codePoint, bytes.data());
            m_endsFirst[static_cast<unsigned char>(end[-1])] = true;
        }
    }

    /// No match is longer than this.
    [[nodiscard]] std::size_t longestMatch() const { return 4 * m_folded.size(); }

    /// Calls `visit(TextMatch)` with the matches that begin at or behind `from`, which lies between code points, in
    /// order until it says false. Matches may overlap only when they are wanted to.
    template<typename Visit>
    void forEach(std::string_view bytes, std::size_t from, bool overlapping, Visit &&visit) const {
        const char *const end = bytes.data() + bytes.size();
        const auto endsFirst = [this](char byte) { return m_endsFirst[static_cast<unsigned char>(byte)]; };
        const char *position = bytes.data() + from;
        std::size_t matched = 0; // so many code points in front of the position begin the needle
        while (true) {
            if (matched == 0) {
                position = std::find_if(position, end, endsFirst);
            }
            if (position == end) {
                return;
            }
            while (isContinuationByte(*position)) {
                --position;
            }
            const DecodedCodePoint decoded = decode(position, end);
            position += decoded.length;
            matched = matchedWith(folded(decoded.value), matched);
            if (matched == m_folded.size()) {
                const char *const begin = beginOfMatch(position);
                if (!visit(TextMatch{static_cast<std::size_t>(begin - bytes.data()),
                                     static_cast<std::size_t>(position - begin)})) {
                    return;
                }
                matched = overlapping ? m_fallbacks.back() : 0;
            }
        }
    }

private:
    static char32_t folded(char32_t codePoint) {
        if (codePoint < 0x80) {
            return codePoint >= U'A' && codePoint <= U'Z' ? codePoint + 0x20 : codePoint;
        }
        return QChar::toCaseFolded(codePoint);
    }

    /// How many code points begin the needle after `matched` of them, not all, and then `next`.
    [[nodiscard]] std::size_t matchedWith(char32_t next, std::size_t matched) const {
        while (matched > 0 && m_folded[matched] != next) {
            matched = m_fallbacks[matched - 1];
        }
        return m_folded[matched] == next ? matched + 1 : 0;
    }

    [[nodiscard]] const char *beginOfMatch(const char *end) const {
        for (std::size_t left = m_folded.size(); left > 0; --left) {
            do {
                --end;
            } while (isContinuationByte(*end));
        }
        return end;
    }

    std::vector<char32_t> m_folded; ///< The needle's code points.
    /// Of each beginning of the needle: how long the longest shorter one is that it ends with.
    std::vector<std::size_t> m_fallbacks;
    std::array<bool, 256> m_endsFirst{}; ///< Of each byte: whether it ends a code point that can begin a match.
};

/// Calls `visit(TextMatch)` with the matches within the range in order until it says false. Matches may overlap only
/// when they are wanted to.
template<typename Visit>
void forEachMatch(const Text &text, const Finder &finder, std::size_t from, std::size_t to, bool overlapping,
                  Visit &&visit) {
    std::string scratch;
    while (from < to) {
        const std::size_t end = std::min(from + windowBytes + finder.longestMatch(), to);
        const std::string_view bytes = readText(text, from, end - from, scratch);
        std::size_t position = 0;
        while (position < bytes.size() && isContinuationByte(bytes[position])) {
            ++position;
        }
        std::size_t searched = windowBytes;
        bool goesOn = true;
        finder.forEach(bytes, position, overlapping, [&](TextMatch match) {
            if (match.offset >= windowBytes) {
                return false;
            }
            if (!overlapping) {
                searched = std::max(searched, match.offset + match.length);
            }
            goesOn = visit(TextMatch{from + match.offset, match.length});
            return goesOn;
        });
        if (!goesOn) {
            return;
        }
        from += searched;
    }
}

} // namespace

std::optional<TextMatch> findForward(const Text &text, std::string_view needle, std::size_t from) {
    std::optional<TextMatch> first;
    if (!needle.empty()) {
        forEachMatch(text, Finder(needle), from, text.size(), true, [&first](TextMatch match) {
            first = match;
            return false;
        });
    }
    return first;
}

std::optional<TextMatch> findBackward(const Text &text, std::string_view needle, std::size_t to) {
    std::optional<TextMatch> last;
    if (needle.empty()) {
        return last;
    }
    const Finder finder(needle);
    to = std::min(to, text.size());
    for (std::size_t windowEnd = to; windowEnd > 0 && !last;) {
        const std::size_t windowBegin = windowEnd - std::min(windowEnd, windowBytes);
        // What begins in this window may end behind it.
        const std::size_t limit = std::min(windowEnd + finder.longestMatch(), to);
        forEachMatch(text, finder, windowBegin, limit, true, [&last](TextMatch match) {
            last = match;
            return true;
        });
        windowEnd = windowBegin;
    }
    return last;
}

std::size_t countMatches(const Text &text, std::string_view needle) {
    std::size_t count = 0;
    if (!needle.empty()) {
        forEachMatch(text, Finder(needle), 0, text.size(), false, [&count](TextMatch) {
            ++count;
            return true;
        });
    }
    return count;
}

} // namespace lexivore
