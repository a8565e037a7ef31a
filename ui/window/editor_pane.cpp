// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/editor_pane.h"

#include "manager/transformation_manager.h"
#include "ui/window/plain_editor.h"
#include "ui/window/status_bar.h"
#include "ui/window/window_state.h"

#include <QFontDatabase>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace lexivore {

EditorPane::EditorPane(TransformationManager &manager, WindowState &state, QWidget *parent)
    : QWidget(parent), m_manager(manager), m_state(state), m_editor(new PlainEditor(this)),
      m_statusBar(new StatusBar(this)) {
    setObjectName("editorPane");
    m_editor->setObjectName("editor");
    m_editor->setAccessibleName(tr("Text"));

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_editor, 1);
    column->addWidget(m_statusBar);

    connect(m_editor, &PlainEditor::edited, this,
            [this](std::size_t offset, std::size_t removed, std::string_view text) {
                const QScopedValueRollback editing(m_isEditing, true);
                emit edited(offset, removed, text);
            });
    connect(m_editor, &PlainEditor::caretMoved, m_statusBar, &StatusBar::setCursorPosition);
    connect(m_editor, &PlainEditor::countsChanged, this, [this] {
        const TextDocument &document = m_editor->model();
        m_statusBar->setCounts(document.characterCount(), document.wordCount(), document.lineCount());
    });
    connect(m_statusBar, &StatusBar::settingsRequested, this, &EditorPane::settingsRequested);
    connect(&m_manager, &TransformationManager::currentTextChanged, this, &EditorPane::showText);
    connect(&m_state, &WindowState::editorFontSizeChanged, this, &EditorPane::showFontSize);
    showText();
    showFontSize();
}

QWidget *EditorPane::editor() const { return m_editor; }

bool EditorPane::editorHasFocus() const { return m_editor->hasFocus(); }

void EditorPane::focusEditor() { m_editor->setFocus(Qt::OtherFocusReason); }

void EditorPane::setCaret(std::size_t offset) { m_editor->setCaret(offset); }

void EditorPane::showText() {
    if (!m_isEditing) {
        m_editor->setText(m_manager.currentText());
    }
}

void EditorPane::showFontSize() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (m_state.editorFontSize() > 0) {
        font.setPointSizeF(m_state.editorFontSize());
    }
    m_editor->setFont(font);
}

} // namespace lexivore
