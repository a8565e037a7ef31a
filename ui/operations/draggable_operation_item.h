// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/applied_operation.h"
#include "ui/operations/operation_drop_delegate.h"
#include "ui/window/row_button.h"

#include <QPoint>

#include <cstddef>
#include <optional>

namespace lexivore {

class ToolButton;
class TransformationManager;
class WindowState;
struct OperationMeasures;

/// One operation of the stack: a handle to drag it by, its position, its name with its parameters, and a button that
/// removes it. It is drawn from the stack as it is; what the user wants it emits.
class DraggableOperationItem : public RowButton {
    Q_OBJECT

public:
    DraggableOperationItem(const TransformationManager &manager, WindowState &state, QWidget *parent = nullptr);

    /// The row now stands for the operation at `index`.
    void setOperation(const AppliedOperation &operation, std::size_t index);
    [[nodiscard]] const AppliedOperation &operation() const { return m_operation; }
    [[nodiscard]] std::size_t index() const { return m_index; }
    [[nodiscard]] DropMarks marks() const { return m_marks; }

    /// Enables or disables the operation.
    void activate() override { emit toggled(); }
    /// With what the operation did to the text.
    [[nodiscard]] QString description() const override;
    void addState(QAccessible::State &state) const override;

    /// The dragged row has come over this one: marks the side on which it would land.
    void dropEntered();
    void dropExited();
    /// The dragged row goes to this one's place, if that is another. Whether it does.
    bool performDrop();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// The kind of data that a dragged row carries: the operation's id as its canonical string.
    static constexpr char mimeType[] = "application/x-lexivore-operation";

signals:
    void toggled();
    void removed();
    /// By keyboard or context menu.
    void moved(std::size_t from, std::size_t to);
    /// The row at `from` was dropped on this one, and so goes to `to`.
    void dropped(std::size_t from, std::size_t to);
    void editRequested();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void startDrag();
    void describe();
    [[nodiscard]] OperationDropDelegate dropDelegate();
    [[nodiscard]] bool isDragged() const;
    /// How solid the whole row is drawn.
    [[nodiscard]] double opacity() const;
    void showOpacity();
    [[nodiscard]] QRect body() const;
    /// The line with the name on it, from the handle to the remove button.
    [[nodiscard]] QRect nameLine() const;
    [[nodiscard]] QRect badge() const;
    [[nodiscard]] QString toolTipAt(QPoint position) const;
    void paintBadge(QPainter &painter) const;
    void paintTexts(QPainter &painter, const QRect &line) const;
    void paintMarks(QPainter &painter) const;
    void paintMeasure(QPainter &painter, const QRect &line) const;
    void showSelection();
    [[nodiscard]] QString problem() const;
    [[nodiscard]] std::optional<OperationMeasures> measures() const;

    const TransformationManager &m_manager;
    WindowState &m_state;
    AppliedOperation m_operation;
    std::size_t m_index = 0;
    DropMarks m_marks;
    QPoint m_pressPosition;
    bool m_isSelected = false;
    ToolButton *m_remove;
};

} // namespace lexivore
