// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_editor.h"

#include "ui/editor/text_editor_accessible.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QInputMethod>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleHints>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>

namespace lexivore {

namespace {
constexpr int tabColumns = 8;
}

TextEditor::TextEditor(QWidget *parent) : QAbstractScrollArea(parent), m_layout(m_document) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setAcceptDrops(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAutoFillBackground(true);
    viewport()->setBackgroundRole(QPalette::Base);
    verticalScrollBar()->setAttribute(Qt::WA_InputMethodEnabled, false);
    connect(verticalScrollBar(), &QScrollBar::sliderReleased, this, &TextEditor::updateScrollBar);
    connect(QGuiApplication::styleHints(), &QStyleHints::cursorFlashTimeChanged, this, &TextEditor::restartBlinking);
    TextEditorAccessible::install();
    connectDocument();
    applyStyle();
}

TextEditor::~TextEditor() = default;

void TextEditor::connectDocument() {
    connect(&m_document, &TextDocument::edited, this,
            [this](std::size_t offset, std::size_t removed, std::string_view inserted) {
                followEdit(offset, removed, inserted.size());
                announceChange(offset, inserted.size());
                emit edited(offset, removed, inserted);
                emit countsChanged();
            });
    connect(&m_document, &TextDocument::textReplaced, this,
            [this](std::size_t offset, std::size_t removed, std::size_t inserted) {
                m_layout.setPreedit({}, 0);
                m_isSelecting = false;
                followEdit(offset, removed, inserted);
                announceChange(offset, inserted);
                emit countsChanged();
            });
    connect(&m_document, &TextDocument::selectionChanged, this, &TextEditor::caretWasMoved);
    connect(&m_document, &TextDocument::undoAvailable, this, &TextEditor::undoAvailable);
    connect(&m_document, &TextDocument::redoAvailable, this, &TextEditor::redoAvailable);
}

void TextEditor::followEdit(std::size_t offset, std::size_t removed, std::size_t inserted) {
    if (offset < m_topOffset) {
        const bool isInFront = offset + removed <= m_topOffset;
        m_topOffset = isInFront ? m_topOffset - removed + inserted : offset;
        m_topHidden = isInFront ? m_topHidden : m_topOffset == 0 ? -m_marginY : 0;
    }
    if (m_dropOffset && *m_dropOffset > m_document.text().size()) {
        m_dropOffset.reset();
    }
    scrollBy(0);
}

void TextEditor::announceChange(std::size_t offset, std::size_t inserted) {
    TextEditorAccessible::announceChange(*this, offset, m_document.removedText(), text().slice(offset, inserted));
}

bool TextEditor::setText(const Text &text) {
    if (m_document.setText(text)) {
        return true;
    }
    emit refused(tr("The text is larger than 2 GB, the most that the editor can hold."));
    return false;
}

void TextEditor::setReadOnly(bool readOnly) {
    m_isReadOnly = readOnly;
    setAttribute(Qt::WA_InputMethodEnabled, !readOnly);
    restartBlinking();
}

void TextEditor::setUndoEnabled(bool enabled) {
    m_isUndoEnabled = enabled;
    m_document.setUndoEnabled(enabled);
}

void TextEditor::setOverwriteMode(bool overwrite) {
    if (m_isOverwriteMode != overwrite) {
        m_isOverwriteMode = overwrite;
        viewport()->update();
        emit overwriteModeChanged(overwrite);
    }
}

void TextEditor::setCaretColor(const QColor &color) {
    m_caretColor = color;
    viewport()->update();
}

void TextEditor::setTextMargins(int horizontal, int vertical) {
    m_marginX = horizontal;
    m_marginY = vertical;
    applyStyle();
    scrollBy(0);
}

void TextEditor::applyStyle() {
    LayoutStyle style;
    style.font = font();
    style.width = std::max(1, viewport()->width() - 2 * m_marginX);
    style.tabDistance = tabColumns * QFontMetricsF(style.font).horizontalAdvance(u' ');
    style.quiet = palette().color(QPalette::PlaceholderText);
    m_layout.setStyle(style);
    m_topHidden = m_topOffset == 0 ? std::min(m_topHidden, 0) : 0;
    refresh();
}

bool TextEditor::findNext(std::string_view needle, TextSearch options) {
    auto match = findForward(text(), needle, m_document.selectionEnd(), options);
    if (!match) {
        match = findForward(text(), needle, 0, options);
    }
    if (match) {
        m_document.select(match->offset, match->offset + match->length);
        ensureCaretVisible();
    }
    return match.has_value();
}

bool TextEditor::findPrevious(std::string_view needle, TextSearch options) {
    auto match = findBackward(text(), needle, m_document.selectionStart(), options);
    if (!match) {
        match = findBackward(text(), needle, text().size(), options);
    }
    if (match) {
        m_document.select(match->offset, match->offset + match->length);
        ensureCaretVisible();
    }
    return match.has_value();
}

void TextEditor::undo() {
    if (!m_isReadOnly) {
        m_document.undo();
        ensureCaretVisible();
    }
}

void TextEditor::redo() {
    if (!m_isReadOnly) {
        m_document.redo();
        ensureCaretVisible();
    }
}

void TextEditor::selectAll() {
    m_document.select(0, text().size());
    publishPrimarySelection();
}

void TextEditor::deleteSelection() {
    if (!m_isReadOnly && m_document.hasSelection()) {
        m_document.insert({});
        ensureCaretVisible();
    }
}

void TextEditor::caretWasMoved() {
    if (!m_isMovingCaret) {
        m_isCaretAtRowEnd = false;
        m_wantedX.reset();
    }
    if (m_layout.hasPreedit() && m_layout.preeditOffset() != m_document.caret()) {
        m_layout.setPreedit({}, 0);
        QGuiApplication::inputMethod()->reset();
    }
    restartBlinking();
    refresh();
    const TextDocument::LineAndColumn place = m_document.caretPlace();
    emit caretMoved(place.line, place.column);
    TextEditorAccessible::announceSelection(*this);
    emit selectionChanged();
    updateMicroFocus();
}

void TextEditor::paintEvent(QPaintEvent *event) {
    QPainter painter(viewport());
    const QRect dirty = event->rect();
    painter.setClipRegion(event->region());
    painter.setPen(palette().color(QPalette::Text));
    LineLayout::Selection selection;
    const QPalette::ColorGroup group = hasFocus() ? QPalette::Active : QPalette::Inactive;
    selection.format.setBackground(palette().brush(group, QPalette::Highlight));
    selection.format.setForeground(palette().brush(group, QPalette::HighlightedText));
    const std::size_t selectionBegin = m_document.selectionStart();
    const std::size_t selectionEnd = m_document.selectionEnd();

    forEachVisibleChunk([&](const TextIndex::Place &place, int y) {
        const ChunkLayout &chunk = m_layout.chunk(place);
        for (const ChunkLayout::Line &line : chunk.lines) {
            const int top = y + line.top;
            if (top + line.layout->height() < dirty.top() || top > dirty.bottom()) {
                continue;
            }
            const std::size_t contentEnd = line.begin + line.layout->contentBytes();
            const bool isTouched = selectionBegin <= contentEnd && selectionEnd > line.begin;
            selection.begin = std::max(selectionBegin, line.begin) - line.begin;
            selection.end = isTouched ? std::min(selectionEnd, contentEnd) - line.begin : 0;
            selection.hasBreak =
                isTouched && selectionEnd > contentEnd && line.layout->totalBytes() > line.layout->contentBytes();
            line.layout->draw(painter, QPointF(m_marginX, top), isTouched ? &selection : nullptr, dirty);
        }
        return y + chunk.height <= dirty.bottom();
    });
    paintCaret(painter);
    m_layout.trim();
}

void TextEditor::paintCaret(QPainter &painter) {
    const QColor color = m_caretColor.isValid() ? m_caretColor : palette().color(QPalette::Text);
    if (m_dropOffset) {
        const Row row = m_layout.rowOf(*m_dropOffset, false);
        if (const auto top = viewportTop(row); top) {
            painter.fillRect(QRectF(m_marginX + m_layout.xOf(*m_dropOffset, row), *top, 1, row.height), color);
        }
    }
    if (!hasFocus() || !m_isCaretShown || (m_layout.hasPreedit() && !m_isPreeditCursorShown)) {
        return;
    }
    const QRect rect = caretRect();
    if (m_isOverwriteMode && rect.width() > 2) {
        painter.setCompositionMode(QPainter::RasterOp_NotDestination);
        painter.fillRect(rect, Qt::white);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    } else {
        painter.fillRect(rect, color);
    }
}

QRect TextEditor::caretRect() const {
    Row row = m_layout.rowOf(m_document.caret(), m_isCaretAtRowEnd);
    qreal x = 0;
    if (m_layout.hasPreedit()) {
        int rowInLine = row.row;
        const LineLayout &line = m_layout.line(row);
        x = line.xInPreedit(m_preeditCursor, &rowInLine);
        row.top += line.rowTop(rowInLine) - line.rowTop(row.row);
        row.height = line.rowHeight(rowInLine);
    } else {
        x = m_layout.xOf(m_document.caret(), row);
    }
    qreal width = style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this);
    if (m_isOverwriteMode && !m_layout.hasPreedit()) {
        const std::size_t next = m_document.nextCharacter(m_document.caret());
        if (next <= m_layout.rowEnd(row) && next != m_document.caret()) {
            const qreal nextX = m_layout.xOf(next, row);
            width = std::max<qreal>(width, std::abs(nextX - x));
            x = std::min(x, nextX);
        }
    }
    // Spaces at the end of a row may hang over its edge; the caret stays in sight.
    x = std::clamp<qreal>(x, 0, m_layout.style().width);
    const int top = viewportTop(row).value_or(-10 * row.height);
    return {m_marginX + static_cast<int>(x), top, static_cast<int>(std::ceil(width)), row.height};
}

void TextEditor::restartBlinking() {
    m_isCaretShown = true;
    m_blinkTimer.stop();
    const int flashTime = QGuiApplication::styleHints()->cursorFlashTime();
    if (hasFocus() && flashTime >= 2) {
        m_blinkTimer.start(flashTime / 2, this);
    }
    viewport()->update();
}

void TextEditor::timerEvent(QTimerEvent *event) {
    if (event->timerId() == m_blinkTimer.timerId()) {
        m_isCaretShown = !m_isCaretShown;
        viewport()->update(caretRect().adjusted(-1, 0, 1, 0));
    } else if (event->timerId() == m_tripleClickTimer.timerId()) {
        m_tripleClickTimer.stop();
    } else if (event->timerId() == m_autoScrollTimer.timerId()) {
        const QPoint point = viewport()->mapFromGlobal(QCursor::pos());
        const int above = std::min(point.y(), 0);
        const int below = std::max(point.y() - viewport()->height(), 0);
        scrollBy(above + below);
        extendSelection(point);
    } else {
        QAbstractScrollArea::timerEvent(event);
    }
}

bool TextEditor::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        auto *const key = static_cast<QKeyEvent *>(event);
        if (isOwnKey(key)) {
            key->accept();
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

bool TextEditor::viewportEvent(QEvent *event) { return QAbstractScrollArea::viewportEvent(event); }

void TextEditor::changeEvent(QEvent *event) {
    QAbstractScrollArea::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::LayoutDirectionChange:
        applyStyle();
        break;
    case QEvent::ActivationChange:
    case QEvent::EnabledChange:
        viewport()->update();
        break;
    default:
        break;
    }
}

void TextEditor::resizeEvent(QResizeEvent *event) {
    QAbstractScrollArea::resizeEvent(event);
    const bool isSameWidth = m_layout.style().width == std::max(1, viewport()->width() - 2 * m_marginX);
    if (!isSameWidth) {
        applyStyle();
    }
    scrollBy(0);
}

void TextEditor::focusInEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusInEvent(event);
    restartBlinking();
}

void TextEditor::focusOutEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusOutEvent(event);
    m_document.closeTyping();
    m_blinkTimer.stop();
    viewport()->update();
}

bool TextEditor::focusNextPrevChild(bool) { return false; }

} // namespace lexivore
