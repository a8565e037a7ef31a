// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/updates/quiet_moment.h"

#include "ui/sheets/sheet_layer.h"

#include <QApplication>
#include <QEvent>

namespace lexivore {

QuietMoment::QuietMoment(QWidget &window, std::chrono::milliseconds quiet, QObject *parent)
    : QObject(parent), m_window(window) {
    m_timer.setInterval(quiet);
    connect(&m_timer, &QTimer::timeout, this, &QuietMoment::look);
    m_timer.start();
    qApp->installEventFilter(this);
}

bool QuietMoment::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::Drop:
    case QEvent::Wheel:
        m_timer.start();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void QuietMoment::look() {
    const bool isOccupied = QApplication::activePopupWidget() != nullptr ||
                            QApplication::activeModalWidget() != nullptr ||
                            QApplication::mouseButtons() != Qt::NoButton;
    if (m_window.isVisible() && !m_window.isMinimized() && !isOccupied && !SheetLayer::isOver(m_window)) {
        m_timer.stop();
        qApp->removeEventFilter(this);
        deleteLater();
        emit came();
    }
}

} // namespace lexivore
