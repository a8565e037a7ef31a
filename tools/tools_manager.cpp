// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tools/tools_manager.h"

#include "tools/character_frequency_tool.h"
#include "tools/readability_tool.h"
#include "tools/reading_time_tool.h"
#include "tools/statistics_tool.h"

#include <memory>

namespace lexivore {

namespace {

template<typename Tool>
TextToolPointer row(const char *id, const char *name, const char *description, const char *icon) {
    return std::make_shared<const Tool>(id, name, description, icon);
}

std::vector<TextToolPointer> makeTools() {
    // clang-format off
    return {
        //  type                        id                     name                      description                                icon
        row<StatisticsTool>            ("statistics",          "Text Statistics",        "Get detailed statistics about your text", "chart.bar.doc.horizontal"),
        row<CharacterFrequencyTool>    ("character-frequency", "Character Frequency",    "Analyze character frequency in text",     "chart.bar.fill"),
        row<ReadingTimeTool>           ("reading-time",        "Reading Time Estimator", "Estimate reading and speaking time",      "clock.fill"),
        row<ReadabilityTool>           ("readability",         "Readability Score",      "Calculate Flesch Reading Ease score",     "chart.line.uptrend.xyaxis"),
    };
    // clang-format on
}

} // namespace

ToolsManager::ToolsManager() : m_tools(makeTools()) {}

} // namespace lexivore
