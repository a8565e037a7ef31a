// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/editor_pane.h"

#include "manager/transformation_manager.h"
#include "ui/controls/hairline.h"
#include "ui/editor/text_editor.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"
#include "ui/window/status_bar.h"
#include "ui/window/window_state.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <string>

namespace lexivore {

namespace {

/// A change of more bytes than this is shown as a new text.
constexpr std::size_t largestChangeInPlace = std::size_t{1} << 20;

/// Outside of this the toolkit's fonts are no use; the size that is kept stays what it is.
constexpr double smallestShownFont = 1;
constexpr double largestShownFont = 500;

std::string bytesOf(const Text &text) {
    std::string bytes;
    text.forEachRun(0, text.size(), [&](std::string_view run) { bytes += run; });
    return bytes;
}

/// The local file that is dragged, if it is one file.
QString draggedFile(const QMimeData &data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
}

} // namespace

EditorPane::EditorPane(TransformationManager &manager, WindowState &state, QWidget *parent)
    : QWidget(parent), m_manager(manager), m_state(state), m_editor(new TextEditor(this)),
      m_statusBar(new StatusBar(this)) {
    setObjectName("editorPane");
    m_editor->setObjectName("editor");
    m_editor->setAccessibleName(tr("Text"));
    m_editor->setFrameShape(QFrame::NoFrame);
    m_editor->installEventFilter(this);
    m_editor->viewport()->installEventFilter(this);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_editor, 1);
    column->addWidget(new Hairline(Qt::Horizontal, this));
    column->addWidget(m_statusBar);

    connectEditor();
    showColours();
    showFontSize();
    showText();
    showCounts();
}

void EditorPane::connectEditor() {
    connect(m_editor, &TextEditor::edited, this,
            [this](std::size_t offset, std::size_t removed, std::string_view inserted) {
                if (!m_isInStep) {
                    const QScopedValueRollback inStep(m_isInStep, true);
                    emit edited(offset, removed, inserted);
                }
            });
    connect(m_editor, &TextEditor::caretMoved, m_statusBar, &StatusBar::setCursorPosition);
    connect(m_editor, &TextEditor::countsChanged, this, &EditorPane::showCounts);
    connect(m_editor, &TextEditor::zoomRequested, this, &EditorPane::zoomRequested);
    connect(m_editor, &TextEditor::refused, this, &EditorPane::refused);
    connect(m_statusBar, &StatusBar::settingsRequested, this, &EditorPane::settingsRequested);
    connect(&m_manager, &TransformationManager::currentTextChanged, this, &EditorPane::showText);
    connect(&m_state, &WindowState::editorFontSizeChanged, this, &EditorPane::showFontSize);
}

bool EditorPane::editorHasFocus() const { return m_editor->hasFocus(); }

void EditorPane::focusEditor() { m_editor->setFocus(Qt::OtherFocusReason); }

void EditorPane::restore(const Text &text, const TextChange &change) {
    const QScopedValueRollback inStep(m_isInStep, true);
    if (change.removed <= largestChangeInPlace && change.inserted <= largestChangeInPlace) {
        m_editor->document().replace(change.offset, change.removed,
                                     bytesOf(text.slice(change.offset, change.inserted)));
    } else {
        m_editor->setText(text);
        m_editor->document().setCaret(change.offset + change.inserted);
    }
    m_editor->ensureCaretVisible();
}

void EditorPane::showText() {
    // After a restored edit the editor has the bytes already, if not the same value.
    if (!m_isInStep && !(m_editor->text() == m_manager.currentText())) {
        m_editor->setText(m_manager.currentText());
    }
}

void EditorPane::showCounts() {
    const TextDocument &document = m_editor->document();
    m_statusBar->setCounts(document.characterCount(), document.wordCount(), document.lineCount());
}

void EditorPane::showFontSize() {
    m_editor->setFont(monospacedFont(std::clamp(m_state.editorFontSize(), smallestShownFont, largestShownFont)));
}

void EditorPane::showColours() {
    QPalette colours = m_editor->palette();
    if (colours.color(QPalette::Base) != theme().view) {
        colours.setColor(QPalette::Base, theme().view);
        m_editor->setPalette(colours);
    }
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
        // Undo and redo are the window's: it knows whether an edit or a transformation came last.
        const auto *key = static_cast<QKeyEvent *>(event);
        return key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo);
    }
    case QEvent::DragEnter:
    case QEvent::DragMove:
        if (auto *drag = static_cast<QDragMoveEvent *>(event); !draggedFile(*drag->mimeData()).isEmpty()) {
            drag->setDropAction(Qt::CopyAction);
            drag->accept();
            return true;
        }
        return false;
    case QEvent::Drop:
        if (auto *drop = static_cast<QDropEvent *>(event); !draggedFile(*drop->mimeData()).isEmpty()) {
            drop->setDropAction(Qt::CopyAction);
            drop->accept();
            emit fileDropped(draggedFile(*drop->mimeData()));
            return true;
        }
        return false;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

} // namespace lexivore
