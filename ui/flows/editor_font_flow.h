// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace lexivore {

class Sheets;
class WindowState;

/// The size of the editor's font: the settings sheet, and larger and smaller by keys and wheel.
class EditorFontFlow : public QObject {
    Q_OBJECT

public:
    EditorFontFlow(WindowState &state, Sheets &sheets, QObject *parent = nullptr);

    void showSettings();
    /// So many points larger or, negative, smaller, within the range of the settings.
    void zoom(int steps);
    void resetZoom();

private:
    WindowState &m_state;
    Sheets &m_sheets;
};

} // namespace lexivore
