// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/text_tool.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace lexivore {

/// The counts of one text. Each follows a rule of its own: lines are counted raw, while blank sentences and paragraphs
/// are not counted. "Blank" means: nothing but spaces and tabs, or nothing at all; line breaks are not blank.
struct TextStatistics {
    std::int64_t characters = 0;         ///< Extended grapheme clusters.
    std::int64_t charactersNoSpaces = 0; ///< Those that are no white space; line breaks are white space.
    std::int64_t words = 0;              ///< The non-empty pieces between white space and line breaks.
    std::int64_t lines = 0;              ///< One more than there are newline characters; CR LF is two of them.
    std::int64_t nonEmptyLines = 0;      ///< The lines that are not blank.
    std::int64_t sentences = 0;          ///< The pieces between ".", "!" and "?" that are not blank.
    std::int64_t paragraphs = 0;         ///< The pieces between "\n\n" that are not blank.

    bool operator==(const TextStatistics &) const = default;
};

/// Counts everything, for any bytes. A few passes, no copy of the text.
[[nodiscard]] TextStatistics textStatistics(std::string_view text);

// The averages, as they are shown: one digit after the point, or "0" when there is nothing to divide by.

/// Characters that are no white space for each word.
[[nodiscard]] std::string charactersPerWord(const TextStatistics &statistics);
/// Words for each line that is not blank.
[[nodiscard]] std::string wordsPerLine(const TextStatistics &statistics);
[[nodiscard]] std::string wordsPerSentence(const TextStatistics &statistics);

/// The plain text that is copied to the clipboard.
[[nodiscard]] std::string statisticsReport(const TextStatistics &statistics);

class StatisticsTool final : public TextTool {
public:
    using TextTool::TextTool;
    /// Counts at once and hands the view the result.
    [[nodiscard]] ToolView *makeView(const Text &text, ToolViewFactory &factory) const override;
};

} // namespace lexivore
