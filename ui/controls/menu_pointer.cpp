// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/menu_pointer.h"

#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QMenu>

namespace lexivore {

void leaveWhenClosedElsewhere(QMenu &menu, QWidget &widget) {
    QObject::connect(&menu, &QMenu::aboutToHide, &widget, [&widget] {
        if (widget.rect().contains(widget.mapFromGlobal(QCursor::pos()))) {
            return;
        }
        widget.setAttribute(Qt::WA_UnderMouse, false);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&widget, &leave);
        widget.update();
    });
}

} // namespace lexivore
