// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"
#include "manager/transformation_manager.h"
#include "ui/flows/change_history.h"

#include <QObject>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace lexivore {

class Alerts;

/// What "Undo" and "Redo" take back: the manager's last step, or the edits made since it.
///
/// It watches the manager, so that every change of the text has its place in the order of changes, whoever made it.
class UndoFlow : public QObject {
    Q_OBJECT

public:
    /// `editorHasFocus` tells whether the keyboard is in the editor: then its edits go first.
    UndoFlow(TransformationManager &manager, Alerts &alerts, std::function<bool()> editorHasFocus,
             QObject *parent = nullptr);

    /// Takes back the latest edit when the editor has the focus, or when there is nothing else to take back; otherwise
    /// the manager's last step. Does nothing when there is neither.
    void undo();
    /// Brings back the change after the text that is shown, whether it is an edit or a step.
    void redo();

    /// The user's change of the text in the editor, to be carried out and remembered. When there is not enough memory
    /// for it, the text before it is restored.
    void edit(std::size_t offset, std::size_t removed, std::string_view inserted);

signals:
    /// The text is about to be `text` again, by this change of what is shown.
    void restoring(const lexivore::Text &text, const lexivore::TextChange &change);

private:
    /// Takes notice of what the manager did since the last time.
    void synchronize();
    void show(const ChangeHistory::Restored &restored);
    [[nodiscard]] std::vector<std::optional<Text>> textsBeforeNewSteps() const;

    void takeBack();
    void doAgain();

    TransformationManager &m_manager;
    Alerts &m_alerts;
    std::function<bool()> m_editorHasFocus;
    ChangeHistory m_history;
    Text m_shown;                ///< The manager's text when it was last looked at.
    std::size_t m_undoDepth = 0; ///< Its history then.
    std::size_t m_redoDepth = 0;
    TextChange m_change; ///< The edit being carried out.
    bool m_isEditing = false;
    bool m_isRestoring = false;
    bool m_isRedoing = false;
};

} // namespace lexivore
