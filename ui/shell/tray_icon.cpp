// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/shell/tray_icon.h"

#include "ui/icon.h"

#include <QCoreApplication>

namespace lexivore {

TrayIcon::TrayIcon(QObject *parent) : QObject(parent), m_icon(applicationIcon()) {
    m_menu.addAction(tr("Show"), this, &TrayIcon::showRequested);
    m_menu.addAction(tr("Quit"), qApp, &QCoreApplication::quit);
    m_icon.setContextMenu(&m_menu);
    m_icon.setToolTip(tr("Lexivore"));
    connect(&m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) {
            emit showRequested();
        }
    });
    m_icon.show();
}

} // namespace lexivore
