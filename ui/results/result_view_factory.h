// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/tool_view_factory.h"

namespace lexivore {

/// Makes the result views as widgets without a parent. Whoever asked owns them.
class ResultViewFactory final : public ToolViewFactory {
public:
    ToolView *makeStatisticsView(const StatisticsTool &tool, const Text &text,
                                 const TextStatistics &statistics) override;
    ToolView *makeCharacterFrequencyView(const CharacterFrequencyTool &tool, const Text &text) override;
    ToolView *makeReadingTimeView(const ReadingTimeTool &tool, const Text &text) override;
    ToolView *makeReadabilityView(const ReadabilityTool &tool, const Text &text) override;
};

} // namespace lexivore
