// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <cstddef>
#include <string_view>

namespace lexivore {

class PlainEditor;
class StatusBar;
class TransformationManager;
class WindowState;

/// The third column: the editor on the manager's current text, and the status bar.
class EditorPane : public QWidget {
    Q_OBJECT

public:
    EditorPane(TransformationManager &manager, WindowState &state, QWidget *parent = nullptr);

    /// What the toast lies on.
    [[nodiscard]] QWidget *editor() const;
    [[nodiscard]] bool editorHasFocus() const;
    void focusEditor();
    /// Byte offset in the text.
    void setCaret(std::size_t offset);

signals:
    /// The user replaced `removed` bytes at byte `offset`.
    void edited(std::size_t offset, std::size_t removed, std::string_view inserted);
    void settingsRequested();

private:
    void showText();
    void showFontSize();

    TransformationManager &m_manager;
    WindowState &m_state;
    PlainEditor *m_editor;
    StatusBar *m_statusBar;
    bool m_isEditing = false; ///< The editor shows the change already that the manager is about to announce.
};

} // namespace lexivore
