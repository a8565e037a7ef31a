// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// The mouse, the clipboard, and dragging text.
#include "ui/editor/text_editor.h"

#include "ui/editor/text_mime_data.h"
#include "ui/shortage_message.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDrag>
#include <QInputMethod>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <new>

namespace lexivore {

namespace {
constexpr int autoScrollInterval = 30;  ///< Milliseconds.
constexpr int dragScrollInterval = 100; ///< Milliseconds.
constexpr int wheelStepsPerNotch = 120; ///< As QWheelEvent::angleDelta counts.
} // namespace

void TextEditor::mousePressEvent(QMouseEvent *event) {
    const bool movesCaret = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
    if (movesCaret && m_layout.hasPreedit()) {
        // What is committed moves the text behind it, so it comes before a place is looked for.
        QGuiApplication::inputMethod()->commit();
    }
    const CaretTarget target = targetAt(event->position().toPoint());
    m_pressPoint = event->position().toPoint();
    if (event->button() == Qt::MiddleButton) {
        const QClipboard *const clipboard = QGuiApplication::clipboard();
        if (clipboard->supportsSelection()) {
            moveTo(target, Anchor::moves);
            pasteFrom(clipboard->mimeData(QClipboard::Selection));
        }
        return;
    }
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_wantedX.reset();
    const bool isTripleClick = m_tripleClickTimer.isActive() && (m_pressPoint - m_tripleClickPoint).manhattanLength() <
                                                                    QApplication::startDragDistance();
    m_tripleClickTimer.stop();
    if (isTripleClick) {
        m_mouseUnit = MouseUnit::line;
        m_mouseAnchor = {m_document.lineBegin(target.offset), m_document.nextLineBegin(target.offset)};
        m_isSelecting = true;
        m_document.select(m_mouseAnchor.begin, m_mouseAnchor.end);
        return;
    }
    m_mouseUnit = MouseUnit::character;
    if (isInSelection(characterAt(m_pressPoint)) && (event->modifiers() & Qt::ShiftModifier) == 0) {
        m_mayDrag = true;
        return;
    }
    m_isSelecting = true;
    if ((event->modifiers() & Qt::ShiftModifier) != 0) {
        m_mouseAnchor = {m_document.anchor(), m_document.anchor()};
        moveTo(target, Anchor::stays);
    } else {
        m_mouseAnchor = {target.offset, target.offset};
        moveTo(target, Anchor::moves);
    }
}

bool TextEditor::isInSelection(std::size_t offset) const {
    return offset >= m_document.selectionStart() && offset < m_document.selectionEnd();
}

void TextEditor::mouseMoveEvent(QMouseEvent *event) {
    const QPoint point = event->position().toPoint();
    if (m_mayDrag) {
        if ((point - m_pressPoint).manhattanLength() >= QApplication::startDragDistance()) {
            m_mayDrag = false;
            startDrag();
        }
        return;
    }
    if (!m_isSelecting || (event->buttons() & Qt::LeftButton) == 0) {
        return;
    }
    if (viewport()->rect().contains(point)) {
        m_autoScrollTimer.stop();
    } else if (!m_autoScrollTimer.isActive()) {
        m_autoScrollTimer.start(autoScrollInterval, this);
    }
    extendSelection(point);
}

void TextEditor::extendSelection(QPoint point) {
    point.setY(std::clamp(point.y(), 0, viewport()->height() - 1));
    const CaretTarget target = targetAt(point);
    if (m_mouseUnit == MouseUnit::character) {
        const QScopedValueRollback moving(m_isMovingCaret, true);
        m_isCaretAtRowEnd = target.atRowEnd;
        m_document.select(m_mouseAnchor.begin, target.offset);
        return;
    }
    TextDocument::Range range{m_document.lineBegin(target.offset), m_document.nextLineBegin(target.offset)};
    if (m_mouseUnit == MouseUnit::word) {
        range = m_document.wordAround(characterAt(point));
    }
    if (target.offset < m_mouseAnchor.begin) {
        m_document.select(m_mouseAnchor.end, range.begin);
    } else {
        m_document.select(m_mouseAnchor.begin, std::max(m_mouseAnchor.end, range.end));
    }
}

void TextEditor::forgetPress() {
    m_isSelecting = false;
    m_mayDrag = false;
    m_autoScrollTimer.stop();
}

void TextEditor::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_autoScrollTimer.stop();
    if (m_mayDrag) {
        m_mayDrag = false;
        moveTo(targetAt(event->position().toPoint()), Anchor::moves);
    }
    if (m_isSelecting) {
        m_isSelecting = false;
        publishPrimarySelection();
    }
}

void TextEditor::mouseDoubleClickEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_mouseUnit = MouseUnit::word;
    m_mouseAnchor = m_document.wordAround(characterAt(event->position().toPoint()));
    m_mayDrag = false;
    m_isSelecting = true;
    m_document.select(m_mouseAnchor.begin, m_mouseAnchor.end);
    m_tripleClickPoint = event->position().toPoint();
    m_tripleClickTimer.start(QApplication::doubleClickInterval(), this);
}

void TextEditor::wheelEvent(QWheelEvent *event) {
    const int angle = event->angleDelta().y();
    if ((event->modifiers() & Qt::ControlModifier) != 0) {
        m_wheelRemainder += static_cast<double>(angle) / wheelStepsPerNotch;
        const int steps = static_cast<int>(m_wheelRemainder);
        m_wheelRemainder -= steps;
        if (steps != 0) {
            emit zoomRequested(steps);
        }
        event->accept();
        return;
    }
    double pixels = -event->pixelDelta().y();
    if (event->pixelDelta().isNull()) {
        pixels =
            -static_cast<double>(angle) / wheelStepsPerNotch * QApplication::wheelScrollLines() * m_layout.rowHeight();
    }
    m_wheelRemainder += pixels;
    const int whole = static_cast<int>(m_wheelRemainder);
    m_wheelRemainder -= whole;
    scrollBy(whole);
    event->accept();
}

void TextEditor::contextMenuEvent(QContextMenuEvent *event) {
    if (event->reason() == QContextMenuEvent::Mouse) {
        const QPoint point = viewport()->mapFromGlobal(event->globalPos());
        const std::size_t offset = characterAt(point);
        // Below the text there is nothing else to click on: what is selected up to its end stays.
        const bool isAtEnd = offset == text().size() && offset == m_document.selectionEnd();
        if (!isInSelection(offset) && !isAtEnd) {
            moveTo(targetAt(point), Anchor::moves);
        }
    }
    const bool canPaste =
        QGuiApplication::clipboard()->mimeData() != nullptr && QGuiApplication::clipboard()->mimeData()->hasText();
    auto *const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(QStringLiteral("editorContextMenu"));
    const auto add = [this, menu](const QString &title, QKeySequence::StandardKey key, bool enabled,
                                  void (TextEditor::*slot)()) {
        QAction *const action = menu->addAction(title, this, slot);
        action->setShortcut(key);
        action->setEnabled(enabled);
    };
    add(tr("&Undo"), QKeySequence::Undo, true, &TextEditor::undoRequested);
    add(tr("&Redo"), QKeySequence::Redo, true, &TextEditor::redoRequested);
    menu->addSeparator();
    add(tr("Cu&t"), QKeySequence::Cut, m_document.hasSelection(), &TextEditor::cut);
    add(tr("&Copy"), QKeySequence::Copy, m_document.hasSelection(), &TextEditor::copy);
    add(tr("&Paste"), QKeySequence::Paste, canPaste, &TextEditor::paste);
    add(tr("Delete"), QKeySequence::UnknownKey, m_document.hasSelection(), &TextEditor::deleteSelection);
    menu->addSeparator();
    add(tr("Select All"), QKeySequence::SelectAll, !text().empty(), &TextEditor::selectAll);
    QPoint place = event->globalPos();
    if (event->reason() != QContextMenuEvent::Mouse) {
        QPoint caret = caretRect().bottomLeft();
        caret.setY(std::clamp(caret.y(), 0, viewport()->height() - 1)); // It may be scrolled out of sight.
        place = viewport()->mapToGlobal(caret);
    }
    menu->popup(place);
    event->accept();
}

void TextEditor::cut() {
    if (m_document.hasSelection()) {
        copy();
        deleteSelection();
    }
}

void TextEditor::copy() {
    if (m_document.hasSelection()) {
        QGuiApplication::clipboard()->setMimeData(selectionToGive());
    }
}

/// What the user takes elsewhere. Whoever asks for it does so in the midst of an event, which an alert waits for.
QMimeData *TextEditor::selectionToGive() {
    auto *const given = new TextMimeData(m_document.selectedText());
    connect(
        given, &TextMimeData::fellShort, this, [this] { emit refused(memoryShortageMessage()); }, Qt::QueuedConnection);
    return given;
}

void TextEditor::paste() { pasteFrom(QGuiApplication::clipboard()->mimeData()); }

void TextEditor::pasteFrom(const QMimeData *mimeData) {
    if (mimeData == nullptr || !mimeData->hasText()) {
        return;
    }
    try {
        insertOrRefuse(textOf(*mimeData));
    } catch (const std::bad_alloc &) {
        emit refused(memoryShortageMessage());
    }
    ensureCaretVisible();
}

void TextEditor::publishPrimarySelection() {
    QClipboard *const clipboard = QGuiApplication::clipboard();
    if (clipboard->supportsSelection() && m_document.hasSelection()) {
        // The user did not ask for it, so that nothing is said when memory is short.
        clipboard->setMimeData(new TextMimeData(m_document.selectedText()), QClipboard::Selection);
    }
}

void TextEditor::startDrag() {
    auto *const drag = new QDrag(this);
    drag->setMimeData(selectionToGive());
    m_isDragging = true;
    const Qt::DropAction action = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
    m_isDragging = false;
    // A move within the editor was carried out by the drop, and a field of the window looks for what it is given: the
    // text does not go for that. Other programs are no target.
    if (action == Qt::MoveAction && drag->target() == nullptr) {
        deleteSelection();
    }
}

void TextEditor::dragEnterEvent(QDragEnterEvent *event) {
    if (!event->mimeData()->hasText()) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
}

void TextEditor::dragMoveEvent(QDragMoveEvent *event) {
    if (!event->mimeData()->hasText()) {
        event->ignore();
        return;
    }
    m_dragPoint = event->position().toPoint();
    m_dropOffset = targetAt(m_dragPoint).offset;
    updateCaret();
    if (dragScrollDistance() == 0) {
        m_dragScrollTimer.stop();
    } else if (!m_dragScrollTimer.isActive()) {
        m_dragScrollTimer.start(dragScrollInterval, this);
    }
    event->acceptProposedAction();
}

int TextEditor::dragScrollDistance() const {
    const int row = m_layout.rowHeight();
    return m_dragPoint.y() < row ? -row : m_dragPoint.y() > viewport()->height() - row ? row : 0;
}

void TextEditor::dragLeaveEvent(QDragLeaveEvent *) { forgetDrop(); }

void TextEditor::forgetDrop() {
    m_dragScrollTimer.stop();
    m_dropOffset.reset();
    updateCaret();
}

void TextEditor::dropEvent(QDropEvent *event) {
    forgetDrop();
    if (!event->mimeData()->hasText()) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    try {
        insertDropped(event);
    } catch (const std::bad_alloc &) {
        emit refused(memoryShortageMessage());
        refuseDrop(event);
    }
}

/// Where it comes from it must not be taken away.
void TextEditor::refuseDrop(QDropEvent *event) {
    event->setDropAction(Qt::IgnoreAction);
    event->ignore();
}

void TextEditor::insertDropped(QDropEvent *event) {
    const std::size_t offset = targetAt(event->position().toPoint()).offset;
    const Text dropped = textOf(*event->mimeData());
    const bool isMove = m_isDragging && event->dropAction() == Qt::MoveAction;
    const std::size_t begin = m_document.selectionStart();
    const std::size_t end = m_document.selectionEnd();
    if (isMove && offset >= begin && offset <= end) {
        return;
    }
    std::size_t from = offset;
    if (isMove) {
        // One replacement of all that lies between, so that it is one edit for everybody.
        const bool goesDown = offset > end;
        const Text between = goesDown ? text().slice(end, offset - end) : text().slice(offset, begin - offset);
        const Text moved = between.replaced(goesDown ? between.size() : 0, 0, dropped);
        if (goesDown) {
            from = begin + between.size();
        }
        m_document.replace(std::min(begin, offset), moved.size(), moved);
    } else {
        m_document.setCaret(offset);
        from = m_document.caret();
        const std::size_t expected = text().size() + dropped.size();
        // Whoever was told of the edit may have restored the text before it.
        if (!insertOrRefuse(dropped) || text().size() != expected) {
            refuseDrop(event);
            return;
        }
    }
    m_document.select(from, from + dropped.size());
    setFocus(Qt::MouseFocusReason);
    ensureCaretVisible();
}

} // namespace lexivore
