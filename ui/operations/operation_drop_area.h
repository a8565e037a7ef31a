// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPoint>
#include <QPointer>

class QDragMoveEvent;
class QDropEvent;
class QScrollArea;

namespace lexivore {

class DraggableOperationItem;

/// Tells the rows of a column when another row is dragged over them or dropped on them. While that one is held near the
/// upper or lower end of what is shown of the column, it scrolls, faster the nearer to the end, and the row that comes
/// under the pointer becomes the target.
class OperationDropArea : public QObject {
    Q_OBJECT

public:
    /// `area` shows the column, which is its widget. Belongs to the column.
    explicit OperationDropArea(QScrollArea &area);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void dragTo(QDragMoveEvent &event);
    void leave();
    void drop(QDropEvent &event);
    /// The row at a position in the column; null when there is none.
    [[nodiscard]] DraggableOperationItem *rowAt(QPoint position) const;
    void setTarget(DraggableOperationItem *row);
    /// Pixels to scroll by on each tick, upwards when negative.
    [[nodiscard]] int scrollStep() const;

    QScrollArea &m_area;
    QPointer<DraggableOperationItem> m_target;
    QPoint m_pointer; ///< In the viewport.
    QBasicTimer m_scrolling;
};

} // namespace lexivore
