// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/statistics_tool.h"
#include "ui/results/tool_view.h"

namespace lexivore {

/// Six counts and three averages.
class StatisticsResultView : public ToolView {
    Q_OBJECT

public:
    StatisticsResultView(const TextTool &tool, const Text &text, const TextStatistics &stats);

    [[nodiscard]] std::string report() const override { return statisticsReport(m_stats); }

protected:
    void appear() override;

private:
    [[nodiscard]] QWidget *makeCards() const;
    [[nodiscard]] QWidget *makeAverages() const;

    TextStatistics m_stats;
};

} // namespace lexivore
