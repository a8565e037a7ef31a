// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/flows/editor_font_flow.h"

#include "ui/sheets/editor_settings_sheet.h"
#include "ui/sheets/sheets.h"
#include "ui/window/window_state.h"

#include <algorithm>

namespace lexivore {

EditorFontFlow::EditorFontFlow(WindowState &state, Sheets &sheets, QObject *parent)
    : QObject(parent), m_state(state), m_sheets(sheets) {}

void EditorFontFlow::showSettings() {
    m_sheets.showEditorSettings(m_state.editorFontSize(), [this](double points) { m_state.setEditorFontSize(points); });
}

void EditorFontFlow::zoom(int steps) {
    const double size = m_state.editorFontSize(); // which the preferences may hold beyond the settings' range
    const double least = std::min<double>(size, EditorSettingsSheet::leastFontSize);
    const double greatest = std::max<double>(size, EditorSettingsSheet::greatestFontSize);
    m_state.setEditorFontSize(std::clamp(size + steps, least, greatest));
}

void EditorFontFlow::resetZoom() { m_state.setEditorFontSize(WindowState::defaultEditorFontSize); }

} // namespace lexivore
