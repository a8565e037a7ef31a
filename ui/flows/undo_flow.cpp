// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/flows/undo_flow.h"

#include "ui/flows/memory_shortage.h"
#include "ui/sheets/alerts.h"

#include <QScopedValueRollback>

#include <utility>
#include <vector>

namespace lexivore {

UndoFlow::UndoFlow(TransformationManager &manager, Alerts &alerts, std::function<bool()> editorHasFocus,
                   QObject *parent)
    : QObject(parent), m_manager(manager), m_alerts(alerts), m_editorHasFocus(std::move(editorHasFocus)),
      m_shown(manager.currentText()), m_undoDepth(manager.history().undoStack().size()),
      m_redoDepth(manager.history().redoStack().size()) {
    connect(&manager, &TransformationManager::currentTextChanged, this, &UndoFlow::synchronize);
    connect(&manager, &TransformationManager::historyChanged, this, &UndoFlow::synchronize);
}

void UndoFlow::undo() {
    orReportShortage(m_alerts, [this] { takeBack(); });
}

void UndoFlow::redo() {
    orReportShortage(m_alerts, [this] { doAgain(); });
}

void UndoFlow::takeBack() {
    synchronize();
    if (m_history.canUndoEdit() && (m_editorHasFocus() || m_manager.history().undoStack().empty())) {
        show(*m_history.undoEdit());
        return;
    }
    m_manager.undo();
    synchronize();
}

void UndoFlow::doAgain() {
    synchronize();
    if (m_history.canRedoEdit()) {
        show(*m_history.redoEdit());
        return;
    }
    const QScopedValueRollback redoing(m_isRedoing, true);
    m_manager.redo();
    synchronize();
}

void UndoFlow::edit(std::size_t offset, std::size_t removed, std::string_view inserted) {
    const bool isDone = orReportShortage(m_alerts, [&] {
        synchronize();
        const QScopedValueRollback editing(m_isEditing, true);
        m_change = {offset, removed, inserted.size()};
        m_manager.editCurrentText(offset, removed, inserted);
    });
    if (!isDone) {
        // The editor shows it already.
        emit restoring(m_manager.currentText(), {offset, inserted.size(), removed});
    }
}

void UndoFlow::show(const ChangeHistory::Restored &restored) {
    const QScopedValueRollback isRestoring(m_isRestoring, true);
    emit restoring(restored.text, restored.change);
    m_manager.setCurrentText(restored.text);
    m_shown = m_manager.currentText();
}

/// A recipe makes several steps at once; of those the manager may have forgotten texts by now.
std::vector<std::optional<Text>> UndoFlow::textsBeforeNewSteps() const {
    const std::vector<HistoryEntry> &stack = m_manager.history().undoStack();
    std::vector<std::optional<Text>> texts;
    for (std::size_t depth = m_undoDepth; depth < stack.size(); ++depth) {
        const TextHistoryState &state = stack[depth].state;
        texts.push_back(state.isTextForgotten ? std::nullopt : std::optional(state.text));
    }
    return texts;
}

void UndoFlow::synchronize() {
    if (m_isRestoring) {
        return;
    }
    const Text previous = std::exchange(m_shown, m_manager.currentText());
    const std::size_t undoDepth = m_manager.history().undoStack().size();
    const std::size_t redoDepth = m_manager.history().redoStack().size();
    if (undoDepth > m_undoDepth) {
        if (m_isRedoing) {
            m_history.stepRedone(previous, m_shown);
        } else {
            const std::vector<std::optional<Text>> before = textsBeforeNewSteps();
            // A change of the text and a step can come together: single mode returns to the base text first.
            if (const std::optional<Text> &first = before.front(); first.has_value() && !(*first == previous)) {
                m_history.recordEdit(previous, *first, wholeChange(previous, *first));
            }
            m_history.recordSteps(before, m_shown);
        }
    } else if (undoDepth < m_undoDepth && redoDepth > m_redoDepth) {
        m_history.stepUndone(previous, m_shown);
    } else {
        if (undoDepth < m_undoDepth) {
            m_history.forgetSteps();
        }
        if (!m_shown.sharesAllWith(previous)) {
            m_history.recordEdit(previous, m_shown, m_isEditing ? m_change : wholeChange(previous, m_shown));
        }
    }
    m_undoDepth = undoDepth;
    m_redoDepth = redoDepth;
}

} // namespace lexivore
