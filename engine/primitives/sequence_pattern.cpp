// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/sequence_pattern.h"

#include "engine/primitives/adjacent_sets.h"
#include "engine/primitives/byte_search.h"
#include "engine/primitives/utf8.h"

#include <algorithm>

namespace lexivore {

namespace {

using Kind = PatternToken::Kind;

constexpr char32_t asciiCount = 128;

} // namespace

std::optional<SequencePattern> SequencePattern::make(const std::vector<PatternToken> &pattern) {
    const auto isUnknown = [](const PatternToken &token) {
        return token.kind == Kind::alternation || token.kind == Kind::assertion || !token.isGreedy;
    };
    if (std::ranges::any_of(pattern, isUnknown)) {
        return std::nullopt;
    }
    SequencePattern result;
    std::vector<std::size_t> openGroups;
    for (const PatternToken &token : pattern) {
        if (token.kind == Kind::groupBegin) {
            constexpr std::size_t notCapturing = PatternToken::noLimit;
            openGroups.push_back(token.isCapturing ? result.m_groups.size() : notCapturing);
            if (token.isCapturing) {
                result.m_groups.push_back({result.m_items.size(), 0});
            }
        } else if (token.kind == Kind::groupEnd) {
            if (openGroups.empty() || token.fewest != 1 || token.most != 1) {
                return std::nullopt;
            }
            if (openGroups.back() < result.m_groups.size()) {
                result.m_groups[openGroups.back()].end = result.m_items.size();
            }
            openGroups.pop_back();
        } else if (!result.appendItem(token)) {
            return std::nullopt;
        }
    }
    const auto isNeeded = [](const Item &item) { return item.fewest > 0; };
    if (!openGroups.empty() || std::ranges::none_of(result.m_items, isNeeded) || !result.isUnambiguous()) {
        return std::nullopt;
    }
    result.findRivals();
    result.findCore();
    result.findPrefix(pattern);
    return result;
}

bool SequencePattern::appendItem(const PatternToken &token) {
    constexpr std::size_t mostItems = 64; // each has a table
    if (m_items.size() == mostItems) {
        return false;
    }
    Item item;
    item.fewest = token.fewest;
    item.most = token.most;
    if (token.kind == Kind::literal && token.character.size() == 1) {
        item.isMember[static_cast<unsigned char>(token.character[0])] = true;
    } else if (const auto set = token.kind == Kind::set ? RegexSet::make(token.source) : nullptr) {
        for (char32_t character = 0; character < asciiCount; ++character) {
            item.isMember[character] = set->contains(character);
        }
        if (!token.isPlainSet) {
            item.wide = set;
            m_isAsciiAlone = false;
        }
    } else {
        return false;
    }
    m_items.push_back(item);
    return true;
}

/// The items that what follows from `item` on can begin with. When it can be empty, that does not count.
SequencePattern::Range SequencePattern::beginningFrom(std::size_t item) const {
    Range range{item, item};
    while (range.end < m_items.size() && m_items[range.end++].fewest == 0) {
    }
    return range;
}

std::array<bool, 256> SequencePattern::firstBytes(std::size_t item) const {
    std::array<bool, 256> bytes{};
    const Range range = beginningFrom(item);
    for (std::size_t i = range.begin; i < range.end; ++i) {
        std::ranges::transform(bytes, m_items[i].isMember, bytes.begin(), std::logical_or<>());
    }
    return bytes;
}

bool SequencePattern::isUnambiguous() const {
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (m_items[i].fewest == m_items[i].most) {
            continue;
        }
        const std::array<bool, 256> behind = firstBytes(i + 1);
        for (std::size_t byte = 0; byte < behind.size(); ++byte) {
            if (behind[byte] && m_items[i].isMember[byte]) {
                return false;
            }
        }
    }
    return true;
}

void SequencePattern::findRivals() {
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        Item &item = m_items[i];
        const Range behind = beginningFrom(i + 1);
        for (std::size_t k = behind.begin; k < behind.end && item.wide != nullptr && item.fewest != item.most; ++k) {
            if (m_items[k].wide != nullptr) {
                item.rivals.push_back(m_items[k].wide);
            }
        }
    }
}

kernels::ByteClass SequencePattern::byteClass(const Item &item) {
    kernels::ByteClass result;
    for (std::size_t character = 0; character < asciiCount; ++character) {
        if (item.isMember[character]) {
            result.ascii.add(static_cast<char>(character));
        }
    }
    result.takesEveryNonAsciiByte = item.wide != nullptr;
    return result;
}

void SequencePattern::findCore() {
    constexpr std::size_t longest = 3; // more would not make it much rarer
    for (std::size_t i = 0; i < m_items.size() && m_items[i].fewest > 0 && m_core.size() < longest; ++i) {
        const Item &item = m_items[i];
        const std::size_t known = i == 0 || item.wide != nullptr ? 1 : item.fewest;
        m_core.insert(m_core.end(), std::min(known, longest - m_core.size()), byteClass(item));
        if (i > 0 && (item.fewest != item.most || item.wide != nullptr)) {
            break; // how many bytes it takes is not known
        }
    }
    if (m_core.empty()) {
        Item first;
        const Range range = beginningFrom(0);
        first.isMember = firstBytes(0);
        for (std::size_t i = range.begin; i < range.end; ++i) {
            first.wide = first.wide == nullptr ? m_items[i].wide : first.wide;
        }
        m_core.push_back(byteClass(first));
    }
}

/// The characters that all matches begin with, one after the other.
void SequencePattern::findPrefix(const std::vector<PatternToken> &pattern) {
    for (const PatternToken &token : pattern) {
        if (token.kind == Kind::literal && token.fewest == 1 && token.most == 1) {
            m_prefix += token.character;
        } else if (token.kind != Kind::groupBegin && token.kind != Kind::groupEnd) {
            break;
        }
    }
}

bool SequencePattern::canSearch(std::string_view text) const { return m_isAsciiAlone || isValidUtf8(text); }

/// For all matches in one text.
class SequencePattern::Search {
public:
    Search(const SequencePattern &pattern, std::string_view text)
        : m_pattern(pattern), m_begin(text.data()), m_end(text.data() + text.size()), m_position(m_begin),
          m_coreFrom(m_begin), m_core(text, pattern.m_core),
          m_isAscii(pattern.m_isAsciiAlone || kernels::best().asciiPrefix(text.data(), text.size()) == text.size()) {}

    bool run(const std::function<void(const Groups &)> &visit) {
        const bool readsBack = m_pattern.m_core.size() > std::max(m_pattern.m_prefix.size(), std::size_t{1});
        const auto next = [&]() { return readsBack ? beginBeforeCore() : nextBegin(); };
        Groups groups(m_pattern.m_groups.size() + 1);
        for (const char *begin = next(); begin != m_end; begin = next()) {
            const char *const matchEnd = readsBack ? matchFrom(1, m_ends.front()) : matchFrom(0, begin);
            m_steps += static_cast<std::size_t>(m_ends.back() - begin);
            constexpr std::size_t stepsABegin = 64;
            const auto passed = static_cast<std::size_t>(begin - m_begin);
            if (m_isUncertain || m_steps > static_cast<std::size_t>(m_end - m_begin) + stepsABegin * passed + 4096) {
                return false;
            }
            if (matchEnd != nullptr) {
                groups[0] = {begin, static_cast<std::size_t>(matchEnd - begin)};
                setGroups(begin, groups);
                visit(groups);
                m_position = matchEnd;
            } else if (!readsBack) {
                // What begins within the repetition that the attempt began with comes to the same end.
                const bool isUnlimited = m_pattern.m_items[0].most == PatternToken::noLimit;
                m_position = std::max(begin + decode(begin, m_end).length, isUnlimited ? m_ends.front() : begin);
            }
        }
        return !m_isUncertain;
    }

private:
    /// The next place where a match may begin, or the end.
    const char *nextBegin() {
        m_ends.clear();
        if (m_pattern.m_prefix.empty()) {
            return m_core.from(m_position);
        }
        const std::string_view rest(m_position, static_cast<std::size_t>(m_end - m_position));
        const std::size_t found = findBytes(rest, m_pattern.m_prefix);
        return found == std::string_view::npos ? m_end : m_position + found;
    }
    /// The same by what stands where the first item ends, from where it is read back: so much rarer than what it begins
    /// with is that in most texts.
    const char *beginBeforeCore() {
        const Item &item = m_pattern.m_items[0];
        m_ends.clear();
        for (;;) {
            const char *const last = m_core.from(std::max(m_coreFrom, m_position));
            if (last == m_end) {
                return m_end;
            }
            m_coreFrom = last + 1;
            if (!isAscii(*m_coreFrom) && !canEnd(item, m_coreFrom)) {
                continue;
            }
            const char *begin = m_coreFrom;
            if (takeBackwards(item, begin) >= item.fewest) {
                m_ends.push_back(m_coreFrom);
                return begin;
            }
            m_steps += static_cast<std::size_t>(m_coreFrom - begin);
        }
    }

    /// Whether a character outside ASCII begins there that the item, repeated as often as it can be, leaves.
    bool canEnd(const Item &item, const char *position) {
        return !isContinuationByte(*position) && (item.fewest == item.most || lengthAt(item, position) == 0);
    }

    /// The end of the match whose items from `index` on begin at `position`, or null. Either way all of these up to the
    /// one that did not match have their ends then.
    const char *matchFrom(std::size_t index, const char *position) {
        for (; index < m_pattern.m_items.size(); ++index) {
            const Item &item = m_pattern.m_items[index];
            const std::size_t count = takeForwards(item, position);
            m_ends.push_back(position);
            if (count < item.fewest) {
                return nullptr;
            }
        }
        return position;
    }

    /// Moves `position` over as many characters as the item takes there, and returns how many these are.
    std::size_t takeForwards(const Item &item, const char *&position) {
        std::size_t count = 0;
        if (takesAsciiAlone(item)) {
            const std::size_t most = std::min(item.most, static_cast<std::size_t>(m_end - position));
            while (count != most && item.isMember[static_cast<unsigned char>(position[count])]) {
                ++count;
            }
            position += count;
            return count;
        }
        for (; count != item.most && position != m_end; ++count) {
            const std::size_t length = lengthAt(item, position);
            if (length == 0) {
                break;
            }
            position += length;
        }
        return count;
    }
    /// The same before `position`.
    std::size_t takeBackwards(const Item &item, const char *&position) {
        std::size_t count = 0;
        if (takesAsciiAlone(item)) {
            const char *const farthest =
                position - std::min(item.most, static_cast<std::size_t>(position - m_position));
            const char *begin = position;
            while (begin != farthest && item.isMember[static_cast<unsigned char>(begin[-1])]) {
                --begin;
            }
            count = static_cast<std::size_t>(position - begin);
            position = begin;
            return count;
        }
        for (; count != item.most && position != m_position; ++count) {
            const std::size_t length = lengthBefore(item, position);
            if (length == 0) {
                break;
            }
            position -= length;
        }
        return count;
    }
    [[nodiscard]] bool takesAsciiAlone(const Item &item) const { return m_isAscii || item.wide == nullptr; }

    /// How many bytes the character there, or the one before, takes when the item takes it, and else 0.
    std::size_t lengthAt(const Item &item, const char *position) {
        return isAscii(*position) ? std::size_t{item.isMember[static_cast<unsigned char>(*position)]}
                                  : lengthIfMember(item, decode(position, m_end));
    }
    std::size_t lengthBefore(const Item &item, const char *position) {
        return isAscii(position[-1]) ? std::size_t{item.isMember[static_cast<unsigned char>(position[-1])]}
                                     : lengthIfMember(item, decodeBefore(m_begin, position));
    }
    std::size_t lengthIfMember(const Item &item, DecodedCodePoint character) {
        if (item.wide == nullptr || !item.wide->contains(character.value)) {
            return 0;
        }
        const auto takesItToo = [&](const auto &rival) { return rival->contains(character.value); };
        m_isUncertain = m_isUncertain || std::ranges::any_of(item.rivals, takesItToo);
        return character.length;
    }

    void setGroups(const char *begin, Groups &groups) const {
        const auto endOf = [&](std::size_t items) { return items == 0 ? begin : m_ends[items - 1]; };
        for (std::size_t i = 0; i < m_pattern.m_groups.size(); ++i) {
            const char *const groupBegin = endOf(m_pattern.m_groups[i].begin);
            groups[i + 1] = {groupBegin, static_cast<std::size_t>(endOf(m_pattern.m_groups[i].end) - groupBegin)};
        }
    }

    const SequencePattern &m_pattern;
    const char *m_begin;
    const char *m_end;
    const char *m_position; ///< No match begins before it.
    const char *m_coreFrom; ///< No core begins before it that was not looked at.
    AdjacentSetsFinder m_core;
    bool m_isAscii;
    std::vector<const char *> m_ends; ///< Of the items of the match in question, as far as they are known.
    std::size_t m_steps = 0;          ///< Bytes read.
    bool m_isUncertain = false;       ///< A repetition took a character that what follows it could have begun with.
};

bool SequencePattern::forEachMatch(std::string_view text, const std::function<void(const Groups &)> &visit) const {
    return Search(*this, text).run(visit);
}

} // namespace lexivore
