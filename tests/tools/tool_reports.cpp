// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/tools/tool_reports.h"

#include "tools/character_frequency_tool.h"
#include "tools/readability_tool.h"
#include "tools/reading_time_tool.h"
#include "tools/statistics_tool.h"

namespace lexivore::test {

std::optional<std::string> toolReport(std::string_view name, std::string_view text) {
    if (name == "tool:statistics") {
        return statisticsReport(textStatistics(text));
    }
    if (name == "tool:character-frequency") {
        return characterFrequencyReport(characterFrequencies(text));
    }
    if (name == "tool:reading-time") {
        return readingTimeReport(readingTime(text));
    }
    if (name == "tool:readability") {
        return readabilityReport(readability(text));
    }
    return std::nullopt;
}

} // namespace lexivore::test
