// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/simple_pattern.h"

#include "engine/primitives/utf8.h"

namespace lexivore {

namespace {

constexpr kernels::AsciiSet specialCharacters("\\^$.|?*+()[]{}");
constexpr std::string_view digits = "0123456789";
constexpr std::string_view smallLetters = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view capitalLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

/// The part of `alphabet` from `first` to `last`; empty when they do not stand in it in that order.
std::string_view rangeIn(std::string_view alphabet, char first, char last) {
    const std::size_t from = alphabet.find(first);
    const std::size_t to = alphabet.find(last);
    return from <= to && to != std::string_view::npos ? alphabet.substr(from, to - from + 1) : std::string_view();
}

std::string_view range(char first, char last) {
    for (const std::string_view alphabet : {digits, smallLetters, capitalLetters}) {
        if (const std::string_view found = rangeIn(alphabet, first, last); !found.empty()) {
            return found;
        }
    }
    return {};
}

/// The set that stands between "[" and "]": letters, digits and ranges of either, nothing else.
std::optional<kernels::AsciiSet> setOf(std::string_view members) {
    kernels::AsciiSet set;
    if (members.empty()) {
        return std::nullopt;
    }
    while (!members.empty()) {
        const bool isRange = members.size() >= 3 && members[1] == '-';
        const std::string_view characters = range(members[0], members[isRange ? 2 : 0]);
        if (characters.empty()) {
            return std::nullopt;
        }
        for (const char character : characters) {
            set.add(character);
        }
        members.remove_prefix(isRange ? 3 : 1);
    }
    return set;
}

bool isLiteral(std::string_view pattern) {
    for (const char byte : pattern) {
        if (specialCharacters.contains(byte)) {
            return false;
        }
    }
    // ICU reads every ill-formed byte of the text as this character.
    return !pattern.empty() && isValidUtf8(pattern) && pattern.find("\uFFFD") == std::string_view::npos;
}

} // namespace

std::optional<SimplePattern> simplePattern(std::string_view pattern) {
    SimplePattern result;
    if (isLiteral(pattern)) {
        result.literal = pattern;
        return result;
    }
    if (pattern.ends_with('+')) {
        result.isRun = true;
        pattern.remove_suffix(1);
    }
    std::optional<kernels::AsciiSet> set;
    if (pattern.size() == 1) {
        set = setOf(pattern);
    } else if (pattern.starts_with('[') && pattern.ends_with(']')) {
        set = setOf(pattern.substr(1, pattern.size() - 2));
    }
    if (!set) {
        return std::nullopt;
    }
    result.set = *set;
    return result;
}

} // namespace lexivore
