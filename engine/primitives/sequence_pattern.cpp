// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/sequence_pattern.h"

#include "engine/primitives/adjacent_sets.h"
#include "engine/primitives/byte_search.h"
#include "engine/primitives/membership_scan.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <memory>

namespace lexivore {

namespace {

using Kind = PatternToken::Kind;

constexpr char16_t asciiCount = 128;

/// The ASCII characters that the set matches, as ICU itself has it.
std::optional<std::array<bool, 256>> asciiMembers(std::string_view set) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString source(set.data(), static_cast<std::int32_t>(set.size()), US_INV);
    icu::UnicodeString characters;
    for (char16_t character = 0; character < asciiCount; ++character) {
        characters.append(character);
    }
    icu::RegexMatcher matcher(source, characters, 0, status);
    std::array<bool, 256> members{};
    while (U_SUCCESS(status) && matcher.find(status) != 0) {
        members[static_cast<std::size_t>(matcher.start(status))] = true;
    }
    return U_SUCCESS(status) ? std::optional(members) : std::nullopt;
}

kernels::AsciiSet asciiSet(const std::array<bool, 256> &members) {
    kernels::AsciiSet set;
    for (std::size_t character = 0; character < asciiCount; ++character) {
        if (members[character]) {
            set.add(static_cast<char>(character));
        }
    }
    return set;
}

} // namespace

std::optional<SequencePattern> SequencePattern::make(const std::vector<PatternToken> &pattern) {
    const auto isUnknown = [](const PatternToken &token) {
        return token.kind == Kind::alternation || token.kind == Kind::assertion || !token.isGreedy;
    };
    if (std::ranges::any_of(pattern, isUnknown)) {
        return std::nullopt;
    }
    constexpr std::size_t mostItems = 64; // each has a table
    SequencePattern result;
    std::vector<std::size_t> openGroups;
    for (const PatternToken &token : pattern) {
        if (token.kind == Kind::groupBegin) {
            constexpr std::size_t notCapturing = PatternToken::noLimit;
            openGroups.push_back(token.isCapturing ? result.m_groups.size() : notCapturing);
            if (token.isCapturing) {
                result.m_groups.push_back({result.m_items.size(), 0});
            }
            continue;
        }
        if (token.kind == Kind::groupEnd) {
            if (openGroups.empty() || token.fewest != 1 || token.most != 1) {
                return std::nullopt;
            }
            if (openGroups.back() < result.m_groups.size()) {
                result.m_groups[openGroups.back()].end = result.m_items.size();
            }
            openGroups.pop_back();
            continue;
        }
        Item item;
        item.fewest = token.fewest;
        item.most = token.most;
        if (result.m_items.size() == mostItems) {
            return std::nullopt;
        }
        if (token.kind == Kind::literal && token.character.size() == 1) {
            item.isMember[static_cast<unsigned char>(token.character[0])] = true;
        } else if (const auto members = token.kind == Kind::set ? asciiMembers(token.source) : std::nullopt) {
            item.isMember = *members;
            result.m_knowsAsciiAlone = result.m_knowsAsciiAlone || !token.isPlainSet;
        } else {
            return std::nullopt;
        }
        result.m_items.push_back(item);
    }
    const auto isNeeded = [](const Item &item) { return item.fewest > 0; };
    if (!openGroups.empty() || std::ranges::none_of(result.m_items, isNeeded) || !result.isUnambiguous()) {
        return std::nullopt;
    }
    result.m_first = asciiSet(result.firstBytes(0));
    result.findCore();
    for (const PatternToken &token : pattern) {
        if (token.kind == Kind::literal && token.fewest == 1 && token.most == 1) {
            result.m_prefix += token.character;
        } else if (token.kind != Kind::groupBegin && token.kind != Kind::groupEnd) {
            break;
        }
    }
    return result;
}

/// The bytes that what follows from `item` on can begin with. When it can be empty, that does not count.
std::array<bool, 256> SequencePattern::firstBytes(std::size_t item) const {
    std::array<bool, 256> bytes{};
    for (; item < m_items.size(); ++item) {
        std::ranges::transform(bytes, m_items[item].isMember, bytes.begin(), std::logical_or<>());
        if (m_items[item].fewest > 0) {
            break;
        }
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

bool SequencePattern::canSearch(std::string_view text) const {
    return !m_knowsAsciiAlone || kernels::best().asciiPrefix(text.data(), text.size()) == text.size();
}

void SequencePattern::findCore() {
    constexpr std::size_t longest = 3; // more would not make it much rarer
    for (std::size_t i = 0; i < m_items.size() && m_items[i].fewest > 0; ++i) {
        const Item &item = m_items[i];
        const std::size_t known = i == 0 ? 1 : item.fewest;
        m_core.insert(m_core.end(), std::min(known, longest - m_core.size()), asciiSet(item.isMember));
        if (m_core.size() == longest || (i > 0 && item.fewest != item.most)) {
            break;
        }
    }
}

/// The end of the match whose items from `item` on begin at `position`, or null. Either way `ends` gets the ends of all
/// of these up to the one that did not match.
const char *SequencePattern::matchFrom(std::size_t item, const char *position, const char *end,
                                       std::vector<const char *> &ends) const {
    for (; item < m_items.size(); ++item) {
        const auto left = static_cast<std::size_t>(end - position);
        const char *const farthest = position + std::min(m_items[item].most, left);
        const char *const begin = position;
        while (position != farthest && m_items[item].isMember[static_cast<unsigned char>(*position)]) {
            ++position;
        }
        ends.push_back(position);
        if (static_cast<std::size_t>(position - begin) < m_items[item].fewest) {
            return nullptr;
        }
    }
    return position;
}

bool SequencePattern::forEachMatch(std::string_view text, const std::function<void(const Groups &)> &visit) const {
    const char *const end = text.data() + text.size();
    const char *position = text.data(); // no match begins before it
    std::size_t steps = 0;
    std::vector<const char *> ends; // of the items of a match, as far as they are known

    // The next place where a match may begin, or the end.
    const Item &firstItem = m_items[0];
    const bool isFirstUnlimited = firstItem.most == PatternToken::noLimit;
    MemberFinder first(text, m_first);
    const auto nextBegin = [&]() -> const char * {
        ends.clear();
        if (m_prefix.empty()) {
            return first.from(position);
        }
        const std::string_view rest(position, static_cast<std::size_t>(end - position));
        const std::size_t found = findBytes(rest, m_prefix);
        return found == std::string_view::npos ? end : position + found;
    };
    // The same by what stands where the first item ends: from there it is read back.
    const bool hasCore = m_core.size() > std::max(m_prefix.size(), std::size_t{1});
    AdjacentSetsFinder core(text, hasCore ? std::span(m_core) : std::span(&m_first, 1));
    const char *coreFrom = position;
    const auto nextBeginBeforeCore = [&]() -> const char * {
        ends.clear();
        for (;;) {
            const char *const last = core.from(std::max(coreFrom, position));
            if (last == end) {
                return end;
            }
            coreFrom = last + 1;
            const char *const farthest =
                last + 1 - std::min(firstItem.most, static_cast<std::size_t>(last + 1 - position));
            const char *begin = last;
            while (begin != farthest && firstItem.isMember[static_cast<unsigned char>(begin[-1])]) {
                --begin;
            }
            if (static_cast<std::size_t>(coreFrom - begin) >= firstItem.fewest) {
                ends.push_back(coreFrom);
                return begin;
            }
            steps += static_cast<std::size_t>(coreFrom - begin);
        }
    };
    const auto next = [&]() { return hasCore ? nextBeginBeforeCore() : nextBegin(); };

    constexpr std::size_t stepsABegin = 64;
    Groups groups(m_groups.size() + 1);
    for (const char *begin = next(); begin != end; begin = next()) {
        const char *const matchEnd = hasCore ? matchFrom(1, ends.front(), end, ends) : matchFrom(0, begin, end, ends);
        steps += static_cast<std::size_t>(ends.back() - begin);
        if (steps > text.size() + stepsABegin * static_cast<std::size_t>(begin - text.data()) + 4096) {
            return false;
        }
        if (matchEnd == nullptr) {
            if (!hasCore) {
                // What begins within the repetition that the attempt began with comes to the same end.
                position = std::max(begin + 1, isFirstUnlimited ? ends.front() : begin);
            }
            continue;
        }
        groups[0] = {begin, static_cast<std::size_t>(matchEnd - begin)};
        const auto endOf = [&](std::size_t items) { return items == 0 ? begin : ends[items - 1]; };
        for (std::size_t i = 0; i < m_groups.size(); ++i) {
            const char *const groupBegin = endOf(m_groups[i].begin);
            groups[i + 1] = {groupBegin, static_cast<std::size_t>(endOf(m_groups[i].end) - groupBegin)};
        }
        visit(groups);
        position = matchEnd;
    }
    return true;
}

} // namespace lexivore
