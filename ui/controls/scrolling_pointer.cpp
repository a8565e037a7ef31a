// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/scrolling_pointer.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QWindow>

namespace lexivore {

void pointAgain(const QWidget &area) {
    QWindow *window = area.window()->windowHandle();
    const bool isPointedAt = area.underMouse() && QGuiApplication::mouseButtons() == Qt::NoButton;
    if (window == nullptr || !isPointedAt) {
        return;
    }
    // As if the pointer had moved.
    const QPoint pointer = QCursor::pos();
    const QPoint place = window->mapFromGlobal(pointer);
    QMouseEvent move(QEvent::MouseMove, place, place, pointer, Qt::NoButton, Qt::NoButton,
                     QGuiApplication::keyboardModifiers());
    QCoreApplication::sendEvent(window, &move);
}

void pointAtWhatScrolls(QScrollArea &area) {
    QObject::connect(area.verticalScrollBar(), &QScrollBar::valueChanged, &area,
                     [&area] { pointAgain(*area.viewport()); });
}

} // namespace lexivore
