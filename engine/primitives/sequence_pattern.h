// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/primitives/pattern_syntax.h"

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

/// A regular expression that is one sequence of ASCII characters and sets of them, each perhaps repeated, with groups
/// around parts of it, such as "([a-z]+), ([0-9]{1,3})", and in which no repetition could end earlier than it does and
/// still lead to a match: what follows it begins with other characters. Then nothing has to be tried twice, and one
/// pass over the UTF-8 finds what ICU finds.
class SequencePattern {
public:
    /// What a match and its groups match; the whole match first.
    using Groups = std::vector<std::string_view>;

    /// Nothing for every pattern that is not like that.
    [[nodiscard]] static std::optional<SequencePattern> make(const std::vector<PatternToken> &pattern);

    /// False for patterns with sets that have members outside ASCII, "\d" or ".", when the text is not ASCII.
    [[nodiscard]] bool canSearch(std::string_view text) const;

    /// Calls `visit` with every match in `text`, in order. False when it gave up on the way, because the text makes it
    /// look at the same bytes again and again.
    [[nodiscard]] bool forEachMatch(std::string_view text, const std::function<void(const Groups &)> &visit) const;

private:
    struct Item {
        std::array<bool, 256> isMember{};
        std::size_t fewest = 1;
        std::size_t most = 1;
    };
    struct Range { ///< Of items.
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    [[nodiscard]] bool isUnambiguous() const;
    [[nodiscard]] std::array<bool, 256> firstBytes(std::size_t item) const;
    void findCore();
    [[nodiscard]] const char *matchFrom(std::size_t item, const char *position, const char *end,
                                        std::vector<const char *> &ends) const;

    std::vector<Item> m_items;
    std::vector<Range> m_groups;
    std::string m_prefix;      ///< What every match begins with, or nothing.
    kernels::AsciiSet m_first; ///< What every match begins with one of.
    /// What the last character that the first item matches is one of, and those behind it. Nothing when it may match
    /// none, and the first set alone when that is all that can be told.
    std::vector<kernels::AsciiSet> m_core;
    bool m_knowsAsciiAlone = false; ///< A set has members outside ASCII.
};

} // namespace lexivore
