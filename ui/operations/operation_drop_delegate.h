// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

#include <cstddef>
#include <functional>
#include <optional>

namespace lexivore {

class TransformationManager;
class WindowState;

/// Where the mark of a row stands that says where a dropped row will go.
struct DropMarks {
    bool dropAbove = false;
    bool dropBelow = false;

    bool operator==(const DropMarks &) const = default;
};

/// What a row does with another row that is dragged over it. It finds the dragged operation in the window's state; what
/// the drag itself carries is only a token.
class OperationDropDelegate {
public:
    using Move = std::function<void(std::size_t from, std::size_t to)>;

    /// For the row at `index`.
    OperationDropDelegate(std::size_t index, const TransformationManager &manager, WindowState &state, Move move,
                          DropMarks &marks);

    /// Marks the side of the row on which the dragged one would land.
    void dropEntered();
    [[nodiscard]] static Qt::DropAction dropUpdated() { return Qt::MoveAction; }
    void dropExited();
    /// Moves the dragged operation to this row's index. False, and nothing moved, when it is this row or not in the
    /// stack.
    bool performDrop();

private:
    [[nodiscard]] std::optional<std::size_t> draggedIndex() const;

    std::size_t m_index;
    const TransformationManager &m_manager;
    WindowState &m_state;
    Move m_move;
    DropMarks &m_marks;
};

} // namespace lexivore
