// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/text_history.h"

#include <cassert>
#include <utility>

namespace lexivore {

namespace {

/// Moves the top of one stack over to the other, with `current` in the place of its state, which is returned.
/// When memory runs out both stacks are as they were.
TextHistoryState moveTop(std::vector<HistoryEntry> &from, std::vector<HistoryEntry> &to, TextHistoryState current) {
    assert(!from.empty());
    to.push_back({std::move(current), from.back().action});
    TextHistoryState restored = std::move(from.back().state);
    from.pop_back();
    return restored;
}

} // namespace

void TextHistory::push(TextHistoryState before, HistoryActionType action) {
    m_undoStack.push_back({std::move(before), std::move(action)});
    m_redoStack.clear();
}

TextHistoryState TextHistory::undo(TextHistoryState current) {
    return moveTop(m_undoStack, m_redoStack, std::move(current));
}

TextHistoryState TextHistory::redo(TextHistoryState current) {
    return moveTop(m_redoStack, m_undoStack, std::move(current));
}

void TextHistory::clear() {
    m_undoStack.clear();
    m_redoStack.clear();
}

} // namespace lexivore
