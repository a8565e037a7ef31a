// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/result_view_factory.h"

#include "ui/results/character_frequency_view.h"
#include "ui/results/readability_view.h"
#include "ui/results/reading_time_view.h"
#include "ui/results/statistics_result_view.h"

namespace lexivore {

ToolView *ResultViewFactory::makeStatisticsView(const StatisticsTool &tool, const Text &text,
                                                const TextStatistics &statistics) {
    return new StatisticsResultView(tool, text, statistics);
}

ToolView *ResultViewFactory::makeCharacterFrequencyView(const CharacterFrequencyTool &tool, const Text &text) {
    return new CharacterFrequencyView(tool, text);
}

ToolView *ResultViewFactory::makeReadingTimeView(const ReadingTimeTool &tool, const Text &text) {
    return new ReadingTimeView(tool, text);
}

ToolView *ResultViewFactory::makeReadabilityView(const ReadabilityTool &tool, const Text &text) {
    return new ReadabilityView(tool, text);
}

} // namespace lexivore
