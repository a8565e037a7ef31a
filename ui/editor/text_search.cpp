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
/// that are looked for; what else they end is decoded in vain.
class Finder {
public:
    /// The needle is not empty.
    explicit Finder(std::string_view needle) {
        for (const char *position = needle.data(); position != needle.data() + needle.size();) {
            const DecodedCodePoint decoded = decode(position, needle.data() + needle.size());
            m_folded.push_back(QChar::toCaseFolded(decoded.value));
            position += decoded.length;
        }
        for (const char32_t codePoint : unfolded(m_folded.front())) {
            std::array<char, 4> bytes{};
            const char *const end = encode(codePoint, bytes.data());
            m_endsFirst[static_cast<unsigned char>(end[-1])] = true;
        }
    }

    /// No match is longer than this.
    [[nodiscard]] std::size_t longestMatch() const { return 4 * m_folded.size(); }

    /// The first match that begins at or behind `from`, which lies between code points.
    [[nodiscard]] std::optional<TextMatch> find(std::string_view bytes, std::size_t from) const {
        const char *const end = bytes.data() + bytes.size();
        const auto endsFirst = [this](char byte) { return m_endsFirst[static_cast<unsigned char>(byte)]; };
        for (const char *last = bytes.data() + from; (last = std::find_if(last, end, endsFirst)) != end; ++last) {
            const char *begin = last;
            while (isContinuationByte(*begin)) {
                --begin;
            }
            if (const std::size_t length = matchLength(begin, end); length != 0) {
                return TextMatch{static_cast<std::size_t>(begin - bytes.data()), length};
            }
        }
        return {};
    }

private:
    static char32_t folded(char32_t codePoint) {
        if (codePoint < 0x80) {
            return codePoint >= U'A' && codePoint <= U'Z' ? codePoint + 0x20 : codePoint;
        }
        return QChar::toCaseFolded(codePoint);
    }

    [[nodiscard]] std::size_t matchLength(const char *begin, const char *end) const {
        const char *position = begin;
        for (const char32_t wanted : m_folded) {
            if (position == end) {
                return 0;
            }
            const DecodedCodePoint decoded = decode(position, end);
            if (folded(decoded.value) != wanted) {
                return 0;
            }
            position += decoded.length;
        }
        return static_cast<std::size_t>(position - begin);
    }

    std::vector<char32_t> m_folded;      ///< The needle's code points.
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
        while (position < windowBytes) {
            const auto match = finder.find(bytes, position);
            if (!match || match->offset >= windowBytes) {
                break;
            }
            if (!visit(TextMatch{from + match->offset, match->length})) {
                return;
            }
            const char *const found = bytes.data() + match->offset;
            const std::size_t step = overlapping ? decode(found, bytes.data() + bytes.size()).length : match->length;
            position = match->offset + step;
        }
        from += std::max(position, windowBytes);
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
