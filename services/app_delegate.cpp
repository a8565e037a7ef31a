// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/app_delegate.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace lexivore {

AppDelegate::AppDelegate(const QVariantMap &information, Preferences &preferences,
                         std::function<bool(const QUrl &)> openFile, QObject *parent)
    : QObject(parent), m_updaterController(information, preferences, std::move(openFile)) {
    QCoreApplication::instance()->installEventFilter(this); // also sees what the window gets
}

void AppDelegate::adoptWindow(QObject *window, std::function<void()> hideApplication) {
    m_window = window;
    m_hideApplication = std::move(hideApplication);
}

bool AppDelegate::eventFilter(QObject *watched, QEvent *event) {
    if (watched == m_window && event->type() == QEvent::Close) {
        event->ignore();
        m_hideApplication();
        return true;
    }
    if (watched == QCoreApplication::instance() && event->type() == QEvent::Quit) {
        QCoreApplication::exit();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace lexivore
