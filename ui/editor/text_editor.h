// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"
#include "ui/editor/text_document.h"

#include <QAbstractScrollArea>
#include <QColor>

#include <cstddef>
#include <memory>
#include <string_view>

namespace lexivore {

class EditorCaret;
class EditorInputMethod;
class EditorLayout;
class EditorMouse;
class EditorPainter;

/// The text editor: shows a text exactly as it is, of any size and with lines of any length, and changes only what the
/// user changes.
///
/// All offsets are in bytes of the UTF-8 text and lie between characters; others are moved to the boundary before them.
/// The colours are the palette's: Base, Text, Highlight, HighlightedText, and PlaceholderText for the marks that stand
/// for controls and unusual spaces.
class TextEditor : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit TextEditor(QWidget *parent = nullptr);
    ~TextEditor() override;

    /// Shares everything with the text that is shown. Constant time.
    [[nodiscard]] const Text &text() const;
    /// Shows `text`, forgets the edits, and puts the caret at the start. Costs one pass over the text.
    /// The text that is shown already changes nothing and costs nothing, so whatever `edited` led to can be handed
    /// back. False when the text is larger than `TextDocument::maximumSize`: the old one stays.
    bool setText(const Text &text);

    /// The model: counts, caret, selection, search. Changing it changes what is shown.
    [[nodiscard]] TextDocument &document();
    [[nodiscard]] const TextDocument &document() const;

    [[nodiscard]] bool isReadOnly() const { return m_isReadOnly; }
    void setReadOnly(bool readOnly);
    [[nodiscard]] bool isOverwriteMode() const { return m_isOverwriteMode; }
    void setOverwriteMode(bool overwrite);

    /// The caret's colour; the palette's Text when none was set.
    void setCaretColor(const QColor &color);
    /// The space between the text and the edges, in pixels: 16 at the sides and 12 above and below at first.
    void setTextMargins(int horizontal, int vertical);

    /// Scrolls no further than needed.
    void ensureCaretVisible();
    /// Selects the next or previous match behind or before the selection, around the end if need be, and scrolls to it.
    /// False when there is none.
    bool findNext(std::string_view needle, TextSearch options = {});
    bool findPrevious(std::string_view needle, TextSearch options = {});

public slots:
    void cut();
    void copy();
    void paste();
    void undo();
    void redo();
    void selectAll();
    /// Removes the selection.
    void deleteSelection();

signals:
    /// The user, or an undo of the user's typing, replaced `removed` bytes at `offset` by `inserted`, which is valid
    /// during the call. `text()` is the new text already. Not emitted for `setText`.
    void edited(std::size_t offset, std::size_t removed, std::string_view inserted);
    /// Line and column of the caret, from 1; the column counts characters.
    void caretMoved(std::size_t line, std::size_t column);
    /// The characters, words, lines or line endings of the text may be others now.
    void countsChanged();
    void selectionChanged();
    void undoAvailable(bool available);
    void redoAvailable(bool available);
    void overwriteModeChanged(bool overwrite);
    /// Ctrl and the wheel: so many steps larger or, negative, smaller.
    void zoomRequested(int steps);
    /// Something was refused, with a sentence for the user that says why.
    void refused(const QString &message);

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

private:
    bool m_isReadOnly = false;
    bool m_isOverwriteMode = false;
};

} // namespace lexivore
