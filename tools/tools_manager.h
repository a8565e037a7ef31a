// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/text_tool.h"

#include <vector>

namespace lexivore {

/// Owns the analysis tools. One exists as long as the application runs, and its tools never change, so there is nothing
/// to observe.
class ToolsManager {
public:
    ToolsManager();

    /// The tools in the order in which they are offered.
    [[nodiscard]] const std::vector<TextToolPointer> &tools() const { return m_tools; }

private:
    std::vector<TextToolPointer> m_tools;
};

} // namespace lexivore
