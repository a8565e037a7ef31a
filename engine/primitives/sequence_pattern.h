// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/primitives/pattern_syntax.h"
#include "engine/primitives/regex_set.h"

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

/// A regular expression that is one sequence of ASCII characters and sets of characters, each perhaps repeated, with
/// groups around parts of it, such as "([a-z]+), ([0-9]{1,3})" or "(\w+): (.)", and in which no repetition could end
/// earlier than it does and still lead to a match: what follows it begins with other characters. Then nothing has to be
/// tried twice, and one pass over the UTF-8 finds what ICU finds.
class SequencePattern {
public:
    /// What a match and its groups match; the whole match first.
    using Groups = std::vector<std::string_view>;

    /// Nothing for every pattern that is not like that, as far as ASCII goes.
    [[nodiscard]] static std::optional<SequencePattern> make(const std::vector<PatternToken> &pattern);

    /// False for patterns with sets that have members outside ASCII, "\d" or ".", when the text is no UTF-8.
    [[nodiscard]] bool canSearch(std::string_view text) const;

    /// Calls `visit` with every match in `text`, in order. False when it gave up on the way: the text makes it look at
    /// the same bytes again and again, or has a character outside ASCII that a repetition and what follows it both
    /// take.
    [[nodiscard]] bool forEachMatch(std::string_view text, const std::function<void(const Groups &)> &visit) const;

private:
    class Search;

    struct Item {
        std::array<bool, 256> isMember{};     ///< None outside ASCII.
        std::shared_ptr<const RegexSet> wide; ///< When there may be members outside ASCII.
        std::size_t fewest = 1;
        std::size_t most = 1;
        /// What may follow the last repetition and has members outside ASCII; empty when the number of them is fixed.
        std::vector<std::shared_ptr<const RegexSet>> rivals;
    };
    struct Range { ///< Of items.
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    /// False for what is no single character or set, and when there are too many.
    [[nodiscard]] bool appendItem(const PatternToken &token);
    [[nodiscard]] Range beginningFrom(std::size_t item) const;
    [[nodiscard]] std::array<bool, 256> firstBytes(std::size_t item) const;
    [[nodiscard]] bool isUnambiguous() const;
    [[nodiscard]] static kernels::ByteClass byteClass(const Item &item);
    void findRivals();
    void findCore();
    void findPrefix(const std::vector<PatternToken> &pattern);

    std::vector<Item> m_items;
    std::vector<Range> m_groups;
    std::string m_prefix; ///< What every match begins with, or nothing.
    /// What each match has a byte of each of, side by side: when there is one, that is what every match begins with,
    /// and else the first is of the last character that the first item matches, and the others are behind it.
    std::vector<kernels::ByteClass> m_core;
    bool m_isAsciiAlone = true; ///< No set has members outside ASCII.
};

} // namespace lexivore
