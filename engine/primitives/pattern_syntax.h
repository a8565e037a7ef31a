// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

/// A piece of a regular expression.
struct PatternToken {
    enum class Kind {
        literal,     ///< One character that stands for itself.
        set,         ///< What matches one of several characters: "[a-z]", "\d", ".".
        assertion,   ///< What matches a place: "^", "$", "\b".
        alternation, ///< "|".
        groupBegin,  ///< "(", or "(?:" when it captures nothing.
        groupEnd,    ///< ")", with the quantifier of the group.
    };
    static constexpr std::size_t noLimit = std::numeric_limits<std::size_t>::max();

    Kind kind = Kind::literal;
    std::string_view source;    ///< As it stands in the pattern, without the quantifier.
    std::string_view character; ///< The bytes of a literal.
    bool isCapturing = false;   ///< Of a group's begin.
    bool isPlainSet = false;    ///< A set that names each member or range of it, none of them outside ASCII.
    std::size_t fewest = 1;     ///< The quantifier.
    std::size_t most = 1;
    bool isGreedy = true; ///< False for the lazy and the possessive quantifiers.
};

/// The pieces of `pattern`, lent from it, which must be one that compiles. Nothing when it has anything that is not
/// certain to be understood here: flags, look-around, references, properties, nested sets, and more.
[[nodiscard]] std::optional<std::vector<PatternToken>> readPattern(std::string_view pattern);

/// The longest stretch of literal characters that every match has, or nothing.
[[nodiscard]] std::string requiredLiteral(const std::vector<PatternToken> &pattern);

} // namespace lexivore
