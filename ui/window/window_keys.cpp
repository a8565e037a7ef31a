// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/window_keys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>

namespace lexivore {

WindowKeys::WindowKeys(QMainWindow &window) : QObject(&window), m_window(window) { window.installEventFilter(this); }

// Keys that nobody below uses come up to the window.
bool WindowKeys::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_F10 && key->modifiers() == Qt::NoModifier) {
            return openMenuBar();
        }
        if (key->key() == Qt::Key_F10 && key->modifiers() == Qt::ShiftModifier) {
            return openContextMenu();
        }
        if (key->matches(QKeySequence::InsertParagraphSeparator)) {
            return pressButton();
        }
    }
    return QObject::eventFilter(watched, event);
}

bool WindowKeys::openMenuBar() {
    QMenuBar *bar = m_window.menuBar();
    if (!bar->isEnabled() || bar->actions().isEmpty()) {
        return false;
    }
    bar->setActiveAction(bar->actions().front());
    return true;
}

bool WindowKeys::openContextMenu() {
    QWidget *target = QApplication::focusWidget();
    if (target == nullptr) {
        return false;
    }
    const QPoint place = target->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, target->mapToGlobal(place));
    QApplication::sendEvent(target, &event);
    return true;
}

bool WindowKeys::pressButton() {
    auto *button = qobject_cast<QAbstractButton *>(QApplication::focusWidget());
    if (button == nullptr) {
        return false;
    }
    button->click();
    return true;
}

} // namespace lexivore
