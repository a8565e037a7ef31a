// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/readability_tool.h"
#include "ui/results/tool_view.h"

namespace lexivore {

/// The Flesch Reading Ease of the text.
class ReadabilityView : public ToolView {
    Q_OBJECT

public:
    ReadabilityView(const TextTool &tool, const Text &text);

    [[nodiscard]] std::string report() const override { return readabilityReport(m_result); }

protected:
    void appear() override;

private:
    [[nodiscard]] QWidget *makeScoreCard() const;
    [[nodiscard]] QWidget *makeCount(const QString &title, std::int64_t count) const;

    Readability m_result;
};

} // namespace lexivore
