// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QSystemTrayIcon>

namespace lexivore {

/// The program's icon in the tray of the desktop, from where a hidden window comes back. Where there is no tray it does
/// not show.
class TrayIcon : public QObject {
    Q_OBJECT

public:
    explicit TrayIcon(QObject *parent = nullptr);

signals:
    void showRequested();

private:
    QMenu m_menu;
    QSystemTrayIcon m_icon;
};

} // namespace lexivore
