// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/text_tool.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

/// How often one character occurs.
struct CharacterFrequency {
    std::string character;  ///< One character (extended grapheme cluster), or empty for the space U+0020.
    std::int64_t count = 0; ///< At least 1.

    bool operator==(const CharacterFrequency &) const = default;
};

/// How many entries are shown and reported.
inline constexpr std::size_t shownFrequencyCount = 20;

/// Every different character of `text`, the most frequent first, equal counts in the order of first appearance.
/// Characters are the same when their code points are: no folding of case, no composition. CR LF is one character.
/// For any bytes; one pass.
[[nodiscard]] std::vector<CharacterFrequency> characterFrequencies(std::string_view text);

/// The character as it is shown: the word "Space" for the space, otherwise itself.
[[nodiscard]] std::string_view displayedCharacter(const CharacterFrequency &entry);

/// The plain text that is copied to the clipboard: the first `shownFrequencyCount` of `frequencies`.
[[nodiscard]] std::string characterFrequencyReport(const std::vector<CharacterFrequency> &frequencies);

class CharacterFrequencyTool final : public TextTool {
public:
    using TextTool::TextTool;
    [[nodiscard]] ToolView *makeView(const Text &text, ToolViewFactory &factory) const override;
};

} // namespace lexivore
