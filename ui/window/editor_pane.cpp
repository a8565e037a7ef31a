// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/editor_pane.h"

#include "manager/transformation_manager.h"
#include "ui/controls/hairline.h"
#include "ui/editor/text_editor.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"
#include "ui/window/file_drop.h"
#include "ui/window/find_bar.h"
#include "ui/window/status_bar.h"
#include "ui/window/window_state.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace lexivore {

namespace {

/// Outside of this the toolkit's fonts are no use; the size that is kept stays what it is.
constexpr double smallestShownFont = 1;
constexpr double largestShownFont = 500;

} // namespace

EditorPane::EditorPane(TransformationManager &manager, WindowState &state, QWidget *parent)
    : QWidget(parent), m_manager(manager), m_state(state), m_editor(new TextEditor(this)),
      m_findBar(new FindBar(*m_editor, this)), m_statusBar(new StatusBar(this)) {
    setObjectName("editorPane");
    m_editor->setObjectName("editor");
    m_editor->setAccessibleName(tr("Text"));
    m_editor->setFrameShape(QFrame::NoFrame);
    m_editor->installEventFilter(this);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_editor, 1);
    column->addWidget(new Hairline(Qt::Horizontal, this));
    column->addWidget(m_findBar);
    column->addWidget(m_statusBar);

    connectEditor();
    showColours();
    showFontSize();
    showText();
    showCounts();
}

void EditorPane::connectEditor() {
    connect(m_editor, &TextEditor::edited, this, &EditorPane::edited);
    connect(m_editor, &TextEditor::undoRequested, this, &EditorPane::undoRequested);
    connect(m_editor, &TextEditor::redoRequested, this, &EditorPane::redoRequested);
    connect(m_editor, &TextEditor::caretMoved, m_statusBar, &StatusBar::setCursorPosition);
    connect(m_editor, &TextEditor::countsChanged, this, &EditorPane::showCounts);
    connect(m_editor, &TextEditor::zoomRequested, this, &EditorPane::zoomRequested);
    connect(m_editor, &TextEditor::refused, this, &EditorPane::refused);
    const auto *files = new FileDrop(m_editor->viewport());
    connect(files, &FileDrop::dropped, this, &EditorPane::fileDropped);
    connect(files, &FileDrop::refused, this, &EditorPane::refused);
    connect(m_statusBar, &StatusBar::settingsRequested, this, &EditorPane::settingsRequested);
    connect(&m_manager, &TransformationManager::currentTextChanged, this, &EditorPane::showText);
    connect(&m_state, &WindowState::editorFontSizeChanged, this, &EditorPane::showFontSize);
}

bool EditorPane::editorHasFocus() const { return m_editor->hasFocus(); }

void EditorPane::focusEditor() { m_editor->setFocus(Qt::OtherFocusReason); }

void EditorPane::restore(const Text &text, const TextChange &change) {
    m_editor->setText(text);
    m_editor->document().setCaret(change.offset + change.inserted);
    m_editor->ensureCaretVisible();
}

// After an edit the manager's text has the same bytes; taking it over makes the two share them.
void EditorPane::showText() { m_editor->setText(m_manager.currentText()); }

void EditorPane::showCounts() {
    const TextDocument &document = m_editor->document();
    m_statusBar->setCounts(document.characterCount(), document.wordCount(), document.lineCount());
    m_statusBar->setLineEnding(document.lineEnding());
}

void EditorPane::showFontSize() {
    m_editor->setFont(monospacedFont(std::clamp(m_state.editorFontSize(), smallestShownFont, largestShownFont)));
}

void EditorPane::showColours() {
    QPalette colours;
    colours.setColor(QPalette::Base, theme().view);
    // While a sheet lies over it the editor is disabled, but under the scrim the text keeps its colours.
    colours.setColor(QPalette::Disabled, QPalette::Text, theme().text);
    colours.setColor(QPalette::Disabled, QPalette::PlaceholderText, theme().text3);
    m_editor->setPalette(colours);
    m_editor->setCaretColor(theme().accentText);
}

void EditorPane::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        showColours();
    }
}

bool EditorPane::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        // On this platform Ctrl+K deletes to the end of the line, but here it goes to the search from anywhere.
        const auto *key = static_cast<QKeyEvent *>(event);
        return key->key() == Qt::Key_K && key->modifiers() == Qt::ControlModifier;
    }
    case QEvent::KeyPress: {
        // Tab itself types a tab.
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Tab && key->modifiers() == Qt::ControlModifier) {
            return focusNextChild();
        }
        if (key->key() == Qt::Key_Backtab && key->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier)) {
            return focusPreviousChild();
        }
        return false;
    }
    default:
        return QWidget::eventFilter(watched, event);
    }
}

} // namespace lexivore
