// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

namespace lexivore {

class Alerts;
class Sheets;
class ToolsManager;
class TransformationManager;
class WindowState;

/// Opens an analysis tool on the current text.
class ToolFlow : public QObject {
    Q_OBJECT

public:
    ToolFlow(TransformationManager &manager, const ToolsManager &tools, WindowState &state, Sheets &sheets,
             Alerts &alerts, QObject *parent = nullptr);

    /// An unknown id is ignored.
    void run(const QString &id);

private:
    TransformationManager &m_manager;
    const ToolsManager &m_tools;
    WindowState &m_state;
    Sheets &m_sheets;
    Alerts &m_alerts;
};

} // namespace lexivore
