// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The counts and reports of the four tools in the same plain manner, on well-formed UTF-8.
namespace lexivore::reference {

struct Statistics {
    std::int64_t characters = 0;
    std::int64_t charactersNoSpaces = 0;
    std::int64_t words = 0;
    std::int64_t lines = 0;
    std::int64_t nonEmptyLines = 0;
    std::int64_t sentences = 0;
    std::int64_t paragraphs = 0;

    bool operator==(const Statistics &) const = default;
};

[[nodiscard]] Statistics statistics(std::string_view text);
[[nodiscard]] std::string statisticsReport(const Statistics &statistics);

/// A character (empty for the space) and how often it occurs.
using Frequency = std::pair<std::string, std::int64_t>;

/// The most frequent first. Equal counts stand in the order of their first occurrence here; any order of them is right.
[[nodiscard]] std::vector<Frequency> frequencies(std::string_view text);
[[nodiscard]] std::string frequencyReport(const std::vector<Frequency> &frequencies);

struct Duration {
    std::int64_t minutes = 0;
    std::int64_t seconds = 0;

    bool operator==(const Duration &) const = default;
};

struct ReadingTime {
    std::int64_t wordCount = 0;
    Duration readingTime;
    Duration speakingTime;

    bool operator==(const ReadingTime &) const = default;
};

[[nodiscard]] ReadingTime readingTime(std::string_view text);
[[nodiscard]] std::string formatted(Duration duration);
[[nodiscard]] std::string readingTimeReport(const ReadingTime &readingTime);

struct Readability {
    double score = 0.0;
    std::string level;
    std::string gradeLevel;
    std::int64_t words = 0;
    std::int64_t sentences = 0;
    std::int64_t syllables = 0;

    bool operator==(const Readability &) const = default;
};

[[nodiscard]] std::int64_t syllableCount(std::string_view word);
[[nodiscard]] Readability readability(std::string_view text);
[[nodiscard]] std::string readabilityReport(const Readability &readability);

} // namespace lexivore::reference
