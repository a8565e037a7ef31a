// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/character_frequency_tool.h"
#include "tools/readability_tool.h"
#include "tools/reading_time_tool.h"
#include "tools/statistics_tool.h"

#include <gtest/gtest.h>

#include <ostream>

// How a failing test shows the tools' results.
namespace lexivore {

inline void PrintTo(const TextStatistics &statistics, std::ostream *out) { *out << statisticsReport(statistics); }
inline void PrintTo(const CharacterFrequency &entry, std::ostream *out) {
    *out << testing::PrintToString(entry.character) << ": " << entry.count;
}
inline void PrintTo(const ReadingTime &time, std::ostream *out) { *out << readingTimeReport(time); }
inline void PrintTo(const Readability &result, std::ostream *out) { *out << readabilityReport(result); }

} // namespace lexivore
