// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/text_tool.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace lexivore {

/// Whole minutes and the seconds that are left, 0 to 59.
struct ReadingDuration {
    std::int64_t minutes = 0;
    std::int64_t seconds = 0;

    bool operator==(const ReadingDuration &) const = default;
};

struct ReadingTime {
    std::int64_t wordCount = 0;
    ReadingDuration readingTime;  ///< Silently, at 200 words a minute, cut to whole seconds.
    ReadingDuration speakingTime; ///< Aloud, at 150 words a minute, cut to whole seconds.

    bool operator==(const ReadingTime &) const = default;
};

/// The estimate for a text of that many words, at least 0. Ends the program when the seconds do not fit in 64 bits,
/// which no text reaches.
[[nodiscard]] ReadingTime readingTimeOfWords(std::int64_t wordCount);

/// Counts the words as TextStatistics does, for any bytes. One pass.
[[nodiscard]] ReadingTime readingTime(std::string_view text);

/// "45s" below one minute, otherwise "2m 5s".
[[nodiscard]] std::string formattedDuration(ReadingDuration duration);

/// The plain text that is copied to the clipboard.
[[nodiscard]] std::string readingTimeReport(const ReadingTime &time);

class ReadingTimeTool final : public TextTool {
public:
    using TextTool::TextTool;
    [[nodiscard]] ToolView *makeView(const Text &text, ToolViewFactory &factory) const override;
};

} // namespace lexivore
