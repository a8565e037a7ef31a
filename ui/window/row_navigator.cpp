// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/row_navigator.h"

#include "ui/controls/page_of_rows.h"

#include <QKeyEvent>

#include <algorithm>

namespace lexivore {

void RowNavigator::setRows(const std::vector<QWidget *> &rows) {
    for (const QPointer<QWidget> &row : m_rows) {
        if (row) {
            row->removeEventFilter(this);
        }
    }
    m_rows.assign(rows.begin(), rows.end());
    for (QWidget *row : rows) {
        row->installEventFilter(this);
    }
    updateTabStops();
}

void RowNavigator::setCurrent(QWidget *row) {
    m_current = row;
    updateTabStops();
}

bool RowNavigator::focusFirst() {
    const std::vector<QWidget *> rows = shownRows();
    if (rows.empty()) {
        return false;
    }
    rows.front()->setFocus(Qt::TabFocusReason);
    return true;
}

std::vector<QWidget *> RowNavigator::shownRows() const {
    std::vector<QWidget *> shown;
    for (const QPointer<QWidget> &row : m_rows) {
        if (row && !row->isHidden()) {
            shown.push_back(row);
        }
    }
    return shown;
}

bool RowNavigator::eventFilter(QObject *watched, QEvent *event) {
    auto *row = qobject_cast<QWidget *>(watched);
    if (row == nullptr) {
        return false;
    }
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto *key = static_cast<QKeyEvent *>(event);
        return (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && handleKey(row, key->key());
    }
    case QEvent::FocusIn:
        setCurrent(row);
        return false;
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        updateTabStops();
        return false;
    default:
        return false;
    }
}

bool RowNavigator::handleKey(QWidget *row, int key) {
    const std::vector<QWidget *> rows = shownRows();
    const auto position = std::find(rows.begin(), rows.end(), row);
    if (position == rows.end()) {
        return false;
    }
    QWidget *target = nullptr;
    switch (key) {
    case Qt::Key_Up:
        if (position == rows.begin()) {
            emit leftAtTop();
            return true;
        }
        target = *(position - 1);
        break;
    case Qt::Key_Down:
        target = position + 1 == rows.end() ? row : *(position + 1);
        break;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
        const auto direction = key == Qt::Key_PageUp ? PageDirection::up : PageDirection::down;
        target = rows[rowOnePageOn(rows, static_cast<std::size_t>(position - rows.begin()), direction)];
        break;
    }
    case Qt::Key_Home:
        target = rows.front();
        break;
    case Qt::Key_End:
        target = rows.back();
        break;
    default:
        return false;
    }
    target->setFocus(Qt::TabFocusReason);
    return true;
}

void RowNavigator::updateTabStops() {
    const std::vector<QWidget *> rows = shownRows();
    QWidget *stop = m_current;
    if (std::find(rows.begin(), rows.end(), stop) == rows.end()) {
        stop = rows.empty() ? nullptr : rows.front();
    }
    for (QWidget *row : rows) {
        row->setFocusPolicy(row == stop ? Qt::TabFocus : Qt::NoFocus);
    }
}

} // namespace lexivore
