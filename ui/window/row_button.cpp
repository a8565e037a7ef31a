// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/row_button.h"

#include "ui/controls/focus_ring.h"
#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/window/row_accessibility.h"

#include <QKeyEvent>
#include <QPainter>

namespace lexivore {

RowButton::RowButton(QWidget *parent) : QAbstractButton(parent) {
    installRowAccessibility();
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    setFocusShape(*this, {FocusShape::Placement::inside, metrics::radius, true});
}

void RowButton::addState(QAccessible::State &state) const {
    state.selectable = isCheckable();
    state.selected = isChecked();
}

void RowButton::paintBackground(QPainter &painter, const QColor &fill) const {
    fillRounded(painter, rect(), metrics::radius, fill);
}

void RowButton::enterEvent(QEnterEvent *event) {
    QAbstractButton::enterEvent(event);
    setHovered(true);
}

void RowButton::leaveEvent(QEvent *event) {
    QAbstractButton::leaveEvent(event);
    setHovered(false);
}

void RowButton::focusInEvent(QFocusEvent *event) {
    QAbstractButton::focusInEvent(event);
    emit focusChanged(true);
}

void RowButton::focusOutEvent(QFocusEvent *event) {
    QAbstractButton::focusOutEvent(event);
    emit focusChanged(false);
}

void RowButton::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    // A button would move the focus by arrow keys its own way; the list does that.
    if (event->key() == Qt::Key_Space) {
        QAbstractButton::keyPressEvent(event);
        return;
    }
    event->ignore();
}

void RowButton::setHovered(bool hovered) {
    if (m_isHovered == hovered) {
        return;
    }
    m_isHovered = hovered;
    emit hoverChanged(hovered);
    update();
}

} // namespace lexivore
