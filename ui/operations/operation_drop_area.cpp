// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/operations/operation_drop_area.h"

#include "ui/operations/draggable_operation_item.h"

#include <QDragMoveEvent>
#include <QMimeData>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimerEvent>

#include <algorithm>

namespace lexivore {

namespace {

constexpr int scrollInterval = 16; ///< milliseconds
constexpr int scrollMargin = 40;   ///< pixels
constexpr int pixelsPerStep = 4;   ///< Of the way into the margin, for each pixel that a tick scrolls by.

} // namespace

OperationDropArea::OperationDropArea(QScrollArea &area) : QObject(area.widget()), m_area(area) {
    m_area.widget()->setAcceptDrops(true);
    m_area.widget()->installEventFilter(this);
}

bool OperationDropArea::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::DragEnter:
        leave();
        [[fallthrough]];
    case QEvent::DragMove:
        dragTo(static_cast<QDragMoveEvent &>(*event));
        return true;
    case QEvent::DragLeave:
        leave();
        return true;
    case QEvent::Drop:
        drop(static_cast<QDropEvent &>(*event));
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

void OperationDropArea::dragTo(QDragMoveEvent &event) {
    const bool isOperation = event.mimeData()->hasFormat(DraggableOperationItem::mimeType);
    event.setAccepted(isOperation);
    if (!isOperation) {
        return;
    }
    event.setDropAction(OperationDropDelegate::dropUpdated());
    const QPoint position = event.position().toPoint();
    m_pointer = m_area.widget()->mapTo(m_area.viewport(), position);
    setTarget(rowAt(position));
    if (scrollStep() == 0) {
        m_scrolling.stop();
    } else if (!m_scrolling.isActive()) {
        m_scrolling.start(scrollInterval, this);
    }
}

void OperationDropArea::leave() {
    m_scrolling.stop();
    setTarget(nullptr);
}

void OperationDropArea::drop(QDropEvent &event) {
    DraggableOperationItem *const row = rowAt(event.position().toPoint());
    leave();
    const bool isAccepted = row != nullptr && row->performDrop();
    event.setDropAction(isAccepted ? OperationDropDelegate::dropUpdated() : Qt::IgnoreAction);
    event.setAccepted(isAccepted);
}

DraggableOperationItem *OperationDropArea::rowAt(QPoint position) const {
    QWidget *found = m_area.widget()->childAt(position);
    while (found != nullptr && qobject_cast<DraggableOperationItem *>(found) == nullptr) {
        found = found->parentWidget();
    }
    return static_cast<DraggableOperationItem *>(found);
}

void OperationDropArea::setTarget(DraggableOperationItem *row) {
    if (row == m_target) {
        return;
    }
    if (m_target != nullptr) {
        m_target->dropExited();
    }
    m_target = row;
    if (m_target != nullptr) {
        m_target->dropEntered();
    }
}

int OperationDropArea::scrollStep() const {
    const int height = m_area.viewport()->height();
    const int margin = std::min(scrollMargin, height / 4);
    const int above = margin - m_pointer.y();
    const int below = m_pointer.y() - (height - margin);
    if (above > 0) {
        return -(above / pixelsPerStep + 1);
    }
    return below > 0 ? below / pixelsPerStep + 1 : 0;
}

void OperationDropArea::timerEvent(QTimerEvent *event) {
    if (event->timerId() != m_scrolling.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    QScrollBar *const bar = m_area.verticalScrollBar();
    bar->setValue(bar->value() + scrollStep());
    setTarget(rowAt(m_area.widget()->mapFrom(m_area.viewport(), m_pointer)));
}

} // namespace lexivore
