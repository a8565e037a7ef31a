// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/flows/tool_flow.h"

#include "manager/text_conversion.h"
#include "manager/transformation_manager.h"
#include "tools/tools_manager.h"
#include "ui/flows/memory_shortage.h"
#include "ui/sheets/alerts.h"
#include "ui/sheets/sheets.h"
#include "ui/window/window_state.h"

#include <algorithm>

namespace lexivore {

ToolFlow::ToolFlow(TransformationManager &manager, const ToolsManager &tools, WindowState &state, Sheets &sheets,
                   Alerts &alerts, QObject *parent)
    : QObject(parent), m_manager(manager), m_tools(tools), m_state(state), m_sheets(sheets), m_alerts(alerts) {}

void ToolFlow::run(const QString &id) {
    const std::vector<TextToolPointer> &tools = m_tools.tools();
    const auto tool =
        std::find_if(tools.begin(), tools.end(), [&](const TextToolPointer &t) { return toQString(t->id()) == id; });
    if (tool == tools.end()) {
        return;
    }
    orReportShortage(m_alerts, [&] {
        const Text text = m_manager.currentText();
        // An edited text is joined into one here: the views compute within the toolkit, through which nothing may
        // throw.
        static_cast<void>(text.view());
        m_sheets.showToolResult(**tool, text, [this] { m_state.currentToolWrapper.reset(); });
        m_state.currentToolWrapper = ToolWrapper(*tool);
    });
}

} // namespace lexivore
