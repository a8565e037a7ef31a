// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/character_frequency_tool.h"
#include "ui/results/tool_view.h"

namespace lexivore {

/// The most frequent characters with a bar each.
class CharacterFrequencyView : public ToolView {
    Q_OBJECT

public:
    CharacterFrequencyView(const TextTool &tool, const Text &text);

    [[nodiscard]] std::string report() const override { return characterFrequencyReport(m_frequencies); }

protected:
    void appear() override;

private:
    std::vector<CharacterFrequency> m_frequencies;
};

} // namespace lexivore
