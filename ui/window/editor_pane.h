// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/flows/change_history.h"

#include <QWidget>

#include <cstddef>
#include <string_view>

namespace lexivore {

class FindBar;
class StatusBar;
class TextEditor;
class TransformationManager;
class WindowState;

/// The third column: the editor on the manager's current text, with the bar that finds in it and the status bar below.
class EditorPane : public QWidget {
    Q_OBJECT

public:
    EditorPane(TransformationManager &manager, WindowState &state, QWidget *parent = nullptr);

    [[nodiscard]] TextEditor &editor() { return *m_editor; }
    [[nodiscard]] FindBar &findBar() { return *m_findBar; }
    [[nodiscard]] bool editorHasFocus() const;
    void focusEditor();
    /// Shows a text that an edit was taken back to, or done again, with the caret where that happened. A small change
    /// is made in place and costs its own size.
    void restore(const Text &text, const TextChange &change);

signals:
    /// The user replaced `removed` bytes at byte `offset`.
    void edited(std::size_t offset, std::size_t removed, std::string_view inserted);
    void settingsRequested();
    void undoRequested();
    void redoRequested();
    /// The user asks for a size so many steps larger or, negative, smaller.
    void zoomRequested(int steps);
    /// Something was refused, with a sentence for the user that says why.
    void refused(const QString &message);
    /// A file or folder was dropped on the editor.
    void fileDropped(const QString &path);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void connectEditor();
    void showText();
    void showCounts();
    void showFontSize();
    void showColours();

    TransformationManager &m_manager;
    WindowState &m_state;
    TextEditor *m_editor;
    FindBar *m_findBar;
    StatusBar *m_statusBar;
};

} // namespace lexivore
