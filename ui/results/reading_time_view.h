// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/reading_time_tool.h"
#include "ui/results/tool_view.h"

namespace lexivore {

/// How long the text takes to read and to speak.
class ReadingTimeView : public ToolView {
    Q_OBJECT

public:
    ReadingTimeView(const TextTool &tool, const Text &text);

    [[nodiscard]] std::string report() const override { return readingTimeReport(m_result); }

protected:
    void appear() override;

private:
    ReadingTime m_result;
};

} // namespace lexivore
