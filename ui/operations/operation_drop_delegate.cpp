// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/operations/operation_drop_delegate.h"

#include "manager/transformation_manager.h"
#include "ui/window/window_state.h"

#include <algorithm>
#include <utility>

namespace lexivore {

OperationDropDelegate::OperationDropDelegate(std::size_t index, const TransformationManager &manager,
                                             WindowState &state, Move move, DropMarks &marks)
    : m_index(index), m_manager(manager), m_state(state), m_move(std::move(move)), m_marks(marks) {}

std::optional<std::size_t> OperationDropDelegate::draggedIndex() const {
    if (!m_state.draggedOperation()) {
        return std::nullopt;
    }
    const std::vector<AppliedOperation> &operations = m_manager.appliedOperations();
    const auto dragged = std::find(operations.begin(), operations.end(), *m_state.draggedOperation());
    if (dragged == operations.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(dragged - operations.begin());
}

void OperationDropDelegate::dropEntered() {
    const std::optional<std::size_t> from = draggedIndex();
    if (!from || *from == m_index) {
        return;
    }
    m_marks.dropAbove = m_index < *from;
    m_marks.dropBelow = *from < m_index;
}

void OperationDropDelegate::dropExited() { m_marks = {}; }

bool OperationDropDelegate::performDrop() {
    const std::optional<std::size_t> from = draggedIndex();
    m_marks = {};
    if (!from || *from == m_index) {
        return false;
    }
    m_move(*from, m_index);
    m_state.setDraggedOperation(std::nullopt);
    return true;
}

} // namespace lexivore
