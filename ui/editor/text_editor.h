// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"
#include "ui/editor/editor_layout.h"
#include "ui/editor/text_document.h"
#include "ui/editor/text_search.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QColor>
#include <QRegion>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

class QMimeData;
class QPainter;

namespace lexivore {

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
    [[nodiscard]] const Text &text() const { return m_document.text(); }
    /// Shows `text`. See `TextDocument::setText` for the cost and for where the caret goes: the text that is shown
    /// already costs nothing, so whatever `edited` led to can be handed back. False when the text is larger than
    /// `TextDocument::maximumSize`: the old one stays.
    bool setText(const Text &text);

    /// The model: text, counts, caret, selection. Changing it changes what is shown.
    [[nodiscard]] TextDocument &document() { return m_document; }
    [[nodiscard]] const TextDocument &document() const { return m_document; }

    [[nodiscard]] bool isOverwriteMode() const { return m_isOverwriteMode; }
    void setOverwriteMode(bool overwrite);

    /// The caret's colour; the palette's Text when none was set.
    void setCaretColor(const QColor &color);

    /// Scrolls no further than needed.
    void ensureCaretVisible();
    /// Selects the next or previous match behind or before the selection, around the end if need be, and scrolls to it.
    /// False when there is none.
    bool findNext(std::string_view needle);
    bool findPrevious(std::string_view needle);

    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

public slots:
    void cut();
    void copy();
    void paste();
    void selectAll();
    /// Removes the selection.
    void deleteSelection();

signals:
    /// The user replaced `removed` bytes at `offset` by `inserted`, which is valid during the call. `text()` is the new
    /// text already. Not emitted for `setText`.
    void edited(std::size_t offset, std::size_t removed, std::string_view inserted);
    /// Line and column of the caret, from 1; the column counts characters.
    void caretMoved(std::size_t line, std::size_t column);
    /// The characters, words, lines or line endings of the text may be others now.
    void countsChanged();
    void selectionChanged();
    /// Chosen from the context menu. Edits and transformations are undone in one order, which the window keeps; the
    /// keys of undo and redo are left to it as well.
    void undoRequested();
    void redoRequested();
    /// Ctrl and the wheel: so many steps larger or, negative, smaller.
    void zoomRequested(int steps);
    /// Something was refused, with a sentence for the user that says why.
    void refused(const QString &message);

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
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
    void timerEvent(QTimerEvent *event) override;
    [[nodiscard]] bool focusNextPrevChild(bool next) override;

private:
    friend class TextEditorAccessible;

    enum class Anchor { moves, stays };
    using Row = EditorLayout::Row;
    /// A place of the caret, with the row it is shown in where two rows meet.
    struct CaretTarget {
        std::size_t offset = 0;
        bool atRowEnd = false;
    };

    // text_editor.cpp
    void connectDocument();
    /// Keeps the first visible row where it is.
    void followEdit(std::size_t offset, std::size_t removed, std::size_t inserted);
    void announceChange(std::size_t offset, std::size_t inserted);
    void applyStyle();
    void caretWasMoved();
    void showMatch(const TextMatch &match);

    // text_editor_painting.cpp
    /// How a line looks on the screen, and where.
    struct ShownLine {
        std::size_t begin = 0;
        std::uint64_t look = 0; ///< The same for what is painted alike.
        int top = 0;
        int height = 0;
    };
    /// The part of a line that is selected, counted from its start.
    struct SelectedPart {
        std::size_t begin = 0;
        std::size_t end = 0;
        bool hasBreak = false;
        [[nodiscard]] bool isAny() const { return begin < end || hasBreak; }
    };
    [[nodiscard]] SelectedPart selectedPart(const ChunkLayout::Line &line) const;
    [[nodiscard]] std::vector<ShownLine> linesToShow() const;
    /// Each of these asks for painting: all, the lines that look otherwise than on the screen, the caret.
    void updateEverything();
    void updateChanged();
    void updateCaret();
    /// Moves what is on the screen to where `lines` has it.
    void scrollShown(const std::vector<ShownLine> &lines);
    void paintCaret(QPainter &painter);
    void restartBlinking();
    [[nodiscard]] QRect caretRect() const;
    /// Empty when nothing is dragged over the editor.
    [[nodiscard]] QRect dropCaretRect() const;

    // text_editor_scrolling.cpp
    /// Calls `visit(place, y)` with the visible chunks from top to bottom, `y` being the top of each in the viewport,
    /// until it says false.
    void forEachVisibleChunk(const std::function<bool(const TextIndex::Place &, int)> &visit) const;
    /// Where the top of a row is in the viewport; nothing when it is not near the visible part.
    [[nodiscard]] std::optional<int> viewportTop(const Row &row) const;
    [[nodiscard]] CaretTarget targetAt(QPoint point) const;
    [[nodiscard]] CaretTarget targetIn(const Row &row, qreal x) const;
    /// The character under `point`, where `targetAt` has the gap between two that is nearest to it.
    [[nodiscard]] std::size_t characterAt(QPoint point) const;
    [[nodiscard]] Row rowAt(QPoint point) const;
    /// Scrolls so that `y` pixels below the top of the chunk are at the top of the viewport, as far as possible.
    void showFrom(TextIndex::Place place, int y);
    void scrollBy(int pixels);
    void scrollToFraction(double fraction);
    /// Lays out what is visible, tells the scroll bar, and has painted what changed.
    void refresh();
    void updateScrollBar();
    /// The policy of the base class would act only after everything was laid out, and then for another width.
    void showScrollBar(bool isShown);
    /// Before anything is laid out, if it is certain that it will be needed.
    void showScrollBarEarly();

    // text_editor_keys.cpp
    enum class Move;
    /// What a key does to the caret.
    struct KeyMove {
        Move move;
        Anchor anchor;
    };
    static std::optional<KeyMove> moveOf(QKeyEvent *event);
    void moveTo(CaretTarget target, Anchor anchor);
    bool moveByKey(QKeyEvent *event);
    /// Where a move ends that is not by rows or pages.
    [[nodiscard]] CaretTarget targetOf(KeyMove key) const;
    /// The place one character to the left or the right of the caret, as the eye sees it.
    [[nodiscard]] std::size_t besideCaret(bool left) const;
    bool editByKey(QKeyEvent *event);
    static bool isOwnKey(QKeyEvent *event);
    void moveByRows(int rows, Anchor anchor);
    void moveByPage(int pages, Anchor anchor);
    void removeUpTo(std::size_t offset);
    void insertTyped(std::string_view typed);
    bool insertOrRefuse(const Text &inserted);

    // text_editor_input_method.cpp
    /// Where the text begins that an input method is told.
    [[nodiscard]] std::size_t surroundingBegin() const;
    /// Puts what the input method has settled in the place of what it replaces.
    void commitInput(const QInputMethodEvent &event);
    /// Replaces `length` UTF-16 code units, the first of them `first` behind the caret.
    void replaceForInputMethod(int first, int length, std::string_view committed);
    /// `toldFrom` is where what the input method knows of the text began.
    void showPreedit(const QInputMethodEvent &event, std::size_t toldFrom);

    // text_editor_mouse.cpp
    [[nodiscard]] bool isInSelection(std::size_t offset) const;
    void extendSelection(QPoint point);
    /// The button that is held down goes on with nothing.
    void forgetPress();
    void startDrag();
    /// How far the text is scrolled while something is held over an edge of it; 0 elsewhere.
    [[nodiscard]] int dragScrollDistance() const;
    void forgetDrop();
    [[nodiscard]] QMimeData *selectionToGive();
    void publishPrimarySelection();
    void pasteFrom(const QMimeData *mimeData);
    void insertDropped(QDropEvent *event);
    static void refuseDrop(QDropEvent *event);

    TextDocument m_document;
    mutable EditorLayout m_layout;
    QColor m_caretColor;
    // Between the text and the edges, in pixels.
    static constexpr int marginX = 16;
    static constexpr int marginY = 12;

    /// What is on the screen, or asked to be painted, from top to bottom. Nothing when all has to be painted.
    std::vector<ShownLine> m_shown;
    QRegion m_caretArea;

    // The first visible row, by a place in it, and how many of its pixels are above the viewport.
    std::size_t m_topOffset = 0;
    int m_topHidden = -marginY;
    /// A place in the first visible row, which stays while the width and the letters change: to stay where that row
    /// begins would lead further up each time.
    std::size_t m_topPlace = 0;
    int m_lastScrollValue = 0;
    bool m_isSettingScrollBar = false;
    double m_wheelRemainder = 0;

    bool m_isCaretAtRowEnd = false;
    bool m_isMovingCaret = false;
    std::optional<qreal> m_wantedX; ///< Where the caret goes when it moves by rows.
    bool m_isCaretShown = true;
    QBasicTimer m_blinkTimer;

    enum class MouseUnit { character, word, line };
    MouseUnit m_mouseUnit = MouseUnit::character;
    TextDocument::Range m_mouseAnchor;
    bool m_isSelecting = false;
    bool m_mayDrag = false;
    QPoint m_pressPoint;
    QPoint m_tripleClickPoint;
    QBasicTimer m_tripleClickTimer;
    QBasicTimer m_autoScrollTimer;
    std::optional<std::size_t> m_dropOffset; ///< Where a text dragged over the editor would go.
    QPoint m_dragPoint;
    QBasicTimer m_dragScrollTimer;
    bool m_isDragging = false;

    int m_preeditCursor = 0;
    bool m_isPreeditCursorShown = true;

    bool m_isOverwriteMode = false;
};

} // namespace lexivore
