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

/// Of what a text was made, every time alike: `text`, run through the enabled ones of the state's operations from the
/// `operations`th on. A text that came about otherwise is its own origin, behind all operations.
struct TextOrigin {
    Text text;
    std::size_t operations = 0;
};

/// What undo and redo restore. Cheap to copy: the text is shared.
struct TextHistoryState {
    Text text;
    std::vector<AppliedOperation> operations;
    /// What the last run of `operations` had to report. Goes with the state, but takes no part in the comparison.
    OperationProblems problems = {};
    OperationTexts texts = {}; ///< What that run made of the text, step by step; goes with the state likewise.
    std::optional<TextOrigin> origin = {}; ///< Without it the text cannot be made again.
    bool isTextForgotten = false;          ///< `text` is empty, for it can be made again.

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
/// What it holds of large texts is bounded all the same: a text that operations have made of its origin is forgotten
/// when there is no room for it, and made again when it is needed. Held are the nearest ones and ever fewer of those
/// further back, and what will be needed is made a few operations at a time while the user comes nearer. So no undo
/// runs more operations again than the number of changes has binary digits, as long as there is room for one and a half
/// times as many texts; changes within the stack may take those that they ran themselves in addition.
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
    /// A text on the way from an origin to a state: what the first `done` steps have made.
    struct Partial {
        Text text;
        std::size_t done = 0;
    };
    /// The text of the undo stack's entry at `index`, as far as it has been made.
    struct Preparation {
        std::size_t index = 0;
        Partial made;
    };
    /// Something that is held and may go.
    struct Candidate {
        double rank = 0;
        TextHistoryState *state = nullptr; ///< Null for a preparation.
        std::size_t preparation = 0;
    };

    [[nodiscard]] Partial nearest(const TextHistoryState &wanted, const TextHistoryState &current) const;
    void remake(TextHistoryState &wanted, const TextHistoryState &current);
    void prepareOrLeave(const TextHistoryState &current);
    void prepare(std::size_t index, std::size_t callsLeft, const TextHistoryState &current);
    [[nodiscard]] double rank(std::size_t index) const;
    [[nodiscard]] bool hasRoomFor(std::size_t bytes, double ofRank) const;
    void keepWithinBudget();
    [[nodiscard]] std::size_t heldBytes() const;
    [[nodiscard]] std::optional<Candidate> leastWanted();

    std::vector<HistoryEntry> m_undoStack;
    std::vector<HistoryEntry> m_redoStack;
    std::vector<Preparation> m_preparations;
    const Catalog *m_catalog = nullptr;
    std::size_t m_budget = 0;
};

} // namespace lexivore
