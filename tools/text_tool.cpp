// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tools/text_tool.h"

namespace lexivore {

TextTool::TextTool(std::string id, std::string name, std::string description, std::string icon)
    : m_id(std::move(id)), m_name(std::move(name)), m_description(std::move(description)), m_icon(std::move(icon)) {}

} // namespace lexivore
