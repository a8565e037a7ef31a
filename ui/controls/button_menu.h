// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCursor>
#include <QMenu>

namespace lexivore {

/// Gives the button its menu. By itself the toolkit would take the pointer to be over the button until it comes there
/// again when the menu is closed by a click somewhere else.
template<typename Button> void setMenuOf(Button &button, QMenu &menu) {
    button.setMenu(&menu);
    QObject::connect(&menu, &QMenu::aboutToHide, &button, [&button] {
        if (!button.rect().contains(button.mapFromGlobal(QCursor::pos()))) {
            button.setAttribute(Qt::WA_UnderMouse, false);
            button.update();
        }
    });
}

} // namespace lexivore
