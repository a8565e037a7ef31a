// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/text_tool.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace lexivore {

/// The Flesch Reading Ease of one text.
struct Readability {
    double score = 0.0;     ///< 0 (hard) to 100 (easy); 0 when there are no words.
    std::string level;      ///< For example "Fairly Easy"; empty when there are no words.
    std::string gradeLevel; ///< For example "7th grade"; empty when there are no words.
    std::int64_t words = 0;
    std::int64_t sentences = 0; ///< Counted as in TextStatistics, but at least 1 once computed.
    std::int64_t syllables = 0;

    bool operator==(const Readability &) const = default;
};

/// Syllables of one word by an English rule of thumb, at least 1: the runs of the letters "aeiouy", one less when there
/// are two or more and the word ends with "e". An accented vowel is none; punctuation at the end keeps the "e" sounded.
[[nodiscard]] std::int64_t syllableCount(std::string_view word);

/// What a score is called.
struct ReadabilityBand {
    double lowestScore;
    const char *level;
    const char *gradeLevel;
};

/// From hard to easy: each reaches to just below the lowest score of the next, the last one to 100.
inline constexpr std::array readabilityBands = {
    ReadabilityBand{0, "Very Difficult", "College Graduate"},
    ReadabilityBand{30, "Difficult", "College"}, // One band where the usual scale has two.
    ReadabilityBand{50, "Fairly Difficult", "10th-12th grade"},
    ReadabilityBand{60, "Standard", "8th-9th grade"},
    ReadabilityBand{70, "Fairly Easy", "7th grade"},
    ReadabilityBand{80, "Easy", "6th grade"},
    ReadabilityBand{90, "Very Easy", "5th grade"},
};

/// The one of them that `score`, from 0 to 100, lies in.
[[nodiscard]] const ReadabilityBand &readabilityBand(double score);

/// For any bytes; a few passes.
[[nodiscard]] Readability readability(std::string_view text);

/// The plain text that is copied to the clipboard.
[[nodiscard]] std::string readabilityReport(const Readability &readability);

class ReadabilityTool final : public TextTool {
public:
    using TextTool::TextTool;
    [[nodiscard]] ToolView *makeView(const Text &text, ToolViewFactory &factory) const override;
};

} // namespace lexivore
