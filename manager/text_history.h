// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"
#include "manager/applied_operation.h"
#include "manager/operations_run.h"

#include <cstddef>
#include <variant>
#include <vector>

namespace lexivore {

/// What undo and redo restore. Cheap to copy: the text is shared.
struct TextHistoryState {
    Text text;
    std::vector<AppliedOperation> operations;
    /// What the last run of `operations` had to report. Goes with the state, but takes no part in the comparison.
    OperationProblems problems = {};
    OperationTexts texts = {}; ///< What that run made of the text, step by step; goes with the state likewise.

    bool operator==(const TextHistoryState &other) const {
        return text == other.text && operations == other.operations;
    }
};

/// The kind of change that a history entry takes back. Indices are positions in the stack before the change.
struct HistoryRemoval {
    std::size_t index = 0;
    AppliedOperation operation;
};
struct HistoryToggle {
    std::size_t index = 0;
};
struct HistoryMove {
    std::size_t from = 0;
    std::size_t to = 0;
};
struct HistoryTransformation {};
using HistoryActionType = std::variant<HistoryRemoval, HistoryToggle, HistoryMove, HistoryTransformation>;

struct HistoryEntry {
    TextHistoryState state;
    HistoryActionType action;
};

/// The undo and redo stacks. Neither has a maximum depth; the last element is the top.
class TextHistory {
public:
    [[nodiscard]] const std::vector<HistoryEntry> &undoStack() const { return m_undoStack; }
    [[nodiscard]] const std::vector<HistoryEntry> &redoStack() const { return m_redoStack; }

    /// Records the state before a change and forgets what could be redone.
    void push(TextHistoryState before, HistoryActionType action);
    /// Takes back the last change: the state to restore. `current` becomes the state that redo restores.
    /// Call only when there is something to undo.
    [[nodiscard]] TextHistoryState undo(TextHistoryState current);
    /// The counterpart of `undo`; keeps the rest of the redo stack.
    [[nodiscard]] TextHistoryState redo(TextHistoryState current);
    void clear();

private:
    std::vector<HistoryEntry> m_undoStack;
    std::vector<HistoryEntry> m_redoStack;
};

} // namespace lexivore
