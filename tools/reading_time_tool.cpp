// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tools/reading_time_tool.h"

#include "engine/primitives/words.h"
#include "tools/number_text.h"
#include "tools/tool_view_factory.h"

#include <cstdlib>

namespace lexivore {

namespace {

constexpr std::int64_t readingWordsPerMinute = 200;
constexpr std::int64_t speakingWordsPerMinute = 150;
constexpr std::int64_t secondsPerMinute = 60;

ReadingDuration durationAt(std::int64_t wordsPerMinute, std::int64_t wordCount) {
    std::int64_t scaled = 0;
    if (__builtin_mul_overflow(wordCount, secondsPerMinute, &scaled)) {
        std::abort();
    }
    const std::int64_t seconds = scaled / wordsPerMinute;
    return {seconds / secondsPerMinute, seconds % secondsPerMinute};
}

} // namespace

ReadingTime readingTimeOfWords(std::int64_t wordCount) {
    return {wordCount, durationAt(readingWordsPerMinute, wordCount), durationAt(speakingWordsPerMinute, wordCount)};
}

ReadingTime readingTime(std::string_view text) {
    return readingTimeOfWords(static_cast<std::int64_t>(pieceCount(text, whitespaceAndNewlines)));
}

std::string formattedDuration(ReadingDuration duration) {
    const std::string seconds = decimalText(duration.seconds) + "s";
    return duration.minutes < 1 ? seconds : decimalText(duration.minutes) + "m " + seconds;
}

std::string readingTimeReport(const ReadingTime &time) {
    return "Reading Time Estimate\n\nWord Count: " + decimalText(time.wordCount) +
           "\nReading Time: " + formattedDuration(time.readingTime) +
           " (~200 wpm)\nSpeaking Time: " + formattedDuration(time.speakingTime) + " (~150 wpm)";
}

ToolView *ReadingTimeTool::makeView(const Text &text, ToolViewFactory &factory) const {
    return factory.makeReadingTimeView(*this, text);
}

} // namespace lexivore
