// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"
#include "manager/applied_operation.h"
#include "manager/operations_run.h"

#include <cstddef>
#include <optional>
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
    /// The base text over which `operations` make `text`, every time alike. Nothing when the text came about otherwise.
    std::optional<Text> base = {};
    bool isTextForgotten = false; ///< `text` is empty, for it can be made again.

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
///
/// What it holds of large texts is bounded all the same: a text that operations have made of a base text is forgotten
/// when there is no room for it, and made again when it is needed. Of the older ones fewer are held, so that going back
/// costs a few operations a step on average.
class TextHistory {
public:
    /// Bytes of texts that could be made again.
    static constexpr std::size_t usualBudget = std::size_t{512} << 20U;

    /// Forgets nothing.
    TextHistory() = default;
    /// The catalog must outlive the history.
    explicit TextHistory(const Catalog &catalog, std::size_t budget = usualBudget)
        : m_catalog(&catalog), m_budget(budget) {}

    [[nodiscard]] const std::vector<HistoryEntry> &undoStack() const { return m_undoStack; }
    [[nodiscard]] const std::vector<HistoryEntry> &redoStack() const { return m_redoStack; }

    /// Records the state before a change and forgets what could be redone.
    void push(TextHistoryState before, HistoryActionType action);
    /// Takes back the last change: the state to restore, with its text. `current` becomes the state that redo restores.
    /// Call only when there is something to undo. When memory runs out nothing has changed.
    [[nodiscard]] TextHistoryState undo(TextHistoryState current);
    /// The counterpart of `undo`; keeps the rest of the redo stack.
    [[nodiscard]] TextHistoryState redo(TextHistoryState current);
    void clear();

private:
    void remake(TextHistoryState &wanted, const TextHistoryState &current);
    void keepWithinBudget();
    [[nodiscard]] std::size_t heldBytes() const;
    [[nodiscard]] TextHistoryState *leastWanted();

    std::vector<HistoryEntry> m_undoStack;
    std::vector<HistoryEntry> m_redoStack;
    const Catalog *m_catalog = nullptr;
    std::size_t m_budget = 0;
};

} // namespace lexivore
