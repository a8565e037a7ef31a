// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/pattern_syntax.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/utf8.h"

#include <charconv>

namespace lexivore {

namespace {

constexpr kernels::AsciiSet escapablePunctuation("!\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~");
constexpr kernels::AsciiSet setEscapes("dDwWsS");
constexpr kernels::AsciiSet assertionEscapes("bBAzZ");
constexpr kernels::AsciiSet ambiguous("]{}");

class PatternReader {
public:
    explicit PatternReader(std::string_view pattern) : m_left(pattern) {}

    std::optional<std::vector<PatternToken>> read() {
        while (!m_left.empty()) {
            PatternToken token;
            if (!readToken(token) || !readQuantifier(token)) {
                return std::nullopt;
            }
            m_tokens.push_back(token);
        }
        return std::move(m_tokens);
    }

private:
    using Kind = PatternToken::Kind;

    std::string_view take(std::size_t bytes) {
        const std::string_view taken = m_left.substr(0, bytes);
        m_left.remove_prefix(taken.size());
        return taken;
    }

    bool readToken(PatternToken &token) {
        switch (m_left[0]) {
        case '\\':
            return readEscape(token);
        case '[':
            return readSet(token);
        case '(':
            return readGroupBegin(token);
        case ')':
            token.kind = Kind::groupEnd;
            break;
        case '|':
            token.kind = Kind::alternation;
            break;
        case '^':
        case '$':
            token.kind = Kind::assertion;
            break;
        case '.':
            token.kind = Kind::set;
            break;
        default:
            return readLiteral(token);
        }
        token.source = take(1);
        return true;
    }

    bool readLiteral(PatternToken &token) {
        const DecodedCodePoint decoded = decode(m_left.data(), m_left.data() + m_left.size());
        // ICU reads every ill-formed byte of a text as the replacement character.
        if (ambiguous.contains(m_left[0]) || decoded.value == replacementCharacter) {
            return false;
        }
        token.source = take(decoded.length);
        token.character = token.source;
        return true;
    }

    bool readEscape(PatternToken &token) {
        if (m_left.size() < 2) {
            return false;
        }
        const char escaped = m_left[1];
        if (escapablePunctuation.contains(escaped)) {
            token.character = m_left.substr(1, 1);
        } else if (setEscapes.contains(escaped)) {
            token.kind = Kind::set;
        } else if (assertionEscapes.contains(escaped)) {
            token.kind = Kind::assertion;
        } else {
            return false;
        }
        token.source = take(2);
        return true;
    }

    /// Only what cannot be misread, so that the end of the set is where it seems to be.
    bool readSet(PatternToken &token) {
        token.kind = Kind::set;
        token.isPlainSet = true;
        std::size_t size = 1;
        if (m_left.size() > size && m_left[size] == '^') {
            token.isPlainSet = false;
            ++size;
        }
        const std::size_t membersBegin = size;
        for (; size < m_left.size() && (m_left[size] != ']' || size == membersBegin); ++size) {
            const char member = m_left[size];
            if (member == '\\') {
                ++size;
                if (size == m_left.size()) {
                    return false;
                }
                token.isPlainSet = token.isPlainSet && escapablePunctuation.contains(m_left[size]);
                if (!escapablePunctuation.contains(m_left[size]) && !setEscapes.contains(m_left[size])) {
                    return false;
                }
            } else if (!isAscii(member) || member == '[' || member == ']' || member == '&' || member == '{' ||
                       member == '}' || member == '$' || member == '^' || member == ':') {
                return false;
            }
            token.isPlainSet = token.isPlainSet && !(member == '-' && m_left.substr(size).starts_with("--"));
        }
        if (size == m_left.size()) {
            return false;
        }
        token.source = take(size + 1);
        return true;
    }

    bool readGroupBegin(PatternToken &token) {
        token.kind = Kind::groupBegin;
        constexpr std::string_view withoutCapture = "(?:";
        if (m_left.starts_with(withoutCapture)) {
            token.source = take(withoutCapture.size());
        } else if (m_left.starts_with("(?")) {
            return false;
        } else {
            token.source = take(1);
            token.isCapturing = true;
        }
        return true;
    }

    bool readQuantifier(PatternToken &token) {
        if (m_left.empty()) {
            return true;
        }
        switch (m_left[0]) {
        case '*':
            token.fewest = 0;
            token.most = PatternToken::noLimit;
            break;
        case '+':
            token.most = PatternToken::noLimit;
            break;
        case '?':
            token.fewest = 0;
            break;
        case '{':
            if (!readInterval(token)) {
                return false;
            }
            break;
        default:
            return true;
        }
        if (token.kind == Kind::assertion || token.kind == Kind::alternation || token.kind == Kind::groupBegin) {
            return false;
        }
        m_left.remove_prefix(m_left[0] == '{' ? m_left.find('}') + 1 : 1);
        if (!m_left.empty() && (m_left[0] == '?' || m_left[0] == '+')) {
            token.isGreedy = false;
            m_left.remove_prefix(1);
        }
        return true;
    }

    /// "{2}", "{2,}" or "{2,5}", without moving behind it.
    bool readInterval(PatternToken &token) const {
        const char *const end = m_left.data() + m_left.size();
        const auto fewest = std::from_chars(m_left.data() + 1, end, token.fewest);
        if (fewest.ec != std::errc() || fewest.ptr == end) {
            return false;
        }
        token.most = token.fewest;
        const char *place = fewest.ptr;
        if (*place == ',') {
            ++place;
            const auto most = std::from_chars(place, end, token.most);
            if (most.ec != std::errc()) {
                token.most = PatternToken::noLimit;
            } else {
                place = most.ptr;
            }
        }
        constexpr std::size_t largest = 1'000'000'000;
        const bool isLimited = token.most != PatternToken::noLimit;
        return place != end && *place == '}' && token.fewest <= token.most && token.fewest < largest &&
               (!isLimited || token.most < largest);
    }

    std::string_view m_left;
    std::vector<PatternToken> m_tokens;
};

} // namespace

std::optional<std::vector<PatternToken>> readPattern(std::string_view pattern) { return PatternReader(pattern).read(); }

std::string requiredLiteral(const std::vector<PatternToken> &pattern) {
    using Kind = PatternToken::Kind;
    std::string longest;
    std::string current;
    const auto endStretch = [&] {
        if (current.size() > longest.size()) {
            longest = current;
        }
        current.clear();
    };
    std::size_t depth = 0;
    for (const PatternToken &token : pattern) {
        if (token.kind == Kind::groupBegin) {
            endStretch();
            ++depth;
        } else if (token.kind == Kind::groupEnd) {
            --depth;
        } else if (depth == 0 && token.kind == Kind::alternation) {
            return {};
        } else if (depth == 0 && token.kind == Kind::literal && token.fewest > 0) {
            current += token.character;
            if (token.fewest != 1 || token.most != 1) {
                endStretch();
            }
        } else if (depth == 0) {
            endStretch();
        }
    }
    endStretch();
    return longest;
}

} // namespace lexivore
