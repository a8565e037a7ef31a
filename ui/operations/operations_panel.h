// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/window/surface.h"

#include <cstddef>
#include <vector>

class QAbstractButton;
class QScrollArea;
class QVBoxLayout;

namespace lexivore {

class DraggableOperationItem;
class EmptyState;
class Label;
class RowColumn;
class RowNavigator;
class RowSlide;
class Symbol;
class ToolButton;
class TransformationManager;
class WindowState;

/// The right column: the operations stack in order, the switch between the modes, and the pause button.
class OperationsPanel : public Surface {
    Q_OBJECT

public:
    OperationsPanel(TransformationManager &manager, WindowState &state, QWidget *parent = nullptr);

    /// Wide enough for the whole header, in either mode.
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    void modeToggled();
    void pauseToggled();
    void operationToggled(std::size_t index);
    void operationRemoved(std::size_t index);
    void editRequested(std::size_t index);
    void operationMoved(std::size_t from, std::size_t to);

protected:
    void changeEvent(QEvent *event) override;

private:
    void createHeader();
    void fitHeader();
    [[nodiscard]] static QString nameOfMode(bool isStack);
    void createRows();
    /// The focus goes with the moved row, and to the next one when a row is removed.
    void move(std::size_t from, std::size_t to);
    /// As `move`; the rows slide to their places.
    void drop(std::size_t from, std::size_t to);
    void remove(std::size_t index);
    void showMode();
    void showPause();
    void showOperations();

    TransformationManager &m_manager;
    WindowState &m_state;
    QWidget *m_header = nullptr;
    Symbol *m_modeIcon = nullptr;
    Label *m_modeName = nullptr;
    QAbstractButton *m_mode = nullptr;
    ToolButton *m_pause = nullptr;
    QScrollArea *m_scroll;
    RowColumn *m_rows;
    QVBoxLayout *m_column;
    EmptyState *m_emptyState;
    RowNavigator *m_navigator;
    RowSlide *m_slide;
    std::vector<DraggableOperationItem *> m_items;
};

} // namespace lexivore
