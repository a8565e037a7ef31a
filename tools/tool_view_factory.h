// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"

namespace lexivore {

class CharacterFrequencyTool;
class ReadabilityTool;
class ReadingTimeTool;
class StatisticsTool;
class ToolView;
struct TextStatistics;

/// Makes the result views. The user interface hands one to the tools, which know no widget.
/// Each view gets its tool, for the header, and the text, whose bytes it may keep: copying a Text shares them.
class ToolViewFactory {
public:
    virtual ~ToolViewFactory() = default;

    /// The statistics come computed.
    [[nodiscard]] virtual ToolView *makeStatisticsView(const StatisticsTool &tool, const Text &text,
                                                       const TextStatistics &statistics) = 0;

    // These views compute their result themselves, once, when they first appear.
    [[nodiscard]] virtual ToolView *makeCharacterFrequencyView(const CharacterFrequencyTool &tool,
                                                               const Text &text) = 0;
    [[nodiscard]] virtual ToolView *makeReadingTimeView(const ReadingTimeTool &tool, const Text &text) = 0;
    [[nodiscard]] virtual ToolView *makeReadabilityView(const ReadabilityTool &tool, const Text &text) = 0;
};

} // namespace lexivore
