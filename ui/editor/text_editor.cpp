// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_editor.h"

#include "ui/editor/text_editor_accessible.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QInputMethod>
#include <QScrollBar>
#include <QStyleHints>
#include <QTimerEvent>

#include <algorithm>

namespace lexivore {

namespace {
constexpr int tabColumns = 8;
}

TextEditor::TextEditor(QWidget *parent) : QAbstractScrollArea(parent), m_layout(m_document) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setAcceptDrops(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // See `showScrollBar`.
    setFrameShape(QFrame::NoFrame);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAutoFillBackground(true);
    viewport()->setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true); // The scroll bar stands beside the viewport.
    setBackgroundRole(QPalette::Base);
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
                forgetPress();
                followEdit(offset, removed, inserted);
                announceChange(offset, inserted);
                emit countsChanged();
            });
    connect(&m_document, &TextDocument::selectionChanged, this, &TextEditor::caretWasMoved);
}

void TextEditor::followEdit(std::size_t offset, std::size_t removed, std::size_t inserted) {
    if (offset < m_topOffset) {
        const bool isInFront = offset + removed <= m_topOffset;
        m_topOffset = isInFront ? m_topOffset - removed + inserted : offset;
        m_topHidden = isInFront ? m_topHidden : m_topOffset == 0 ? -marginY : 0;
    }
    m_topPlace = m_topOffset;
    if (m_dropOffset && *m_dropOffset > m_document.text().size()) {
        m_dropOffset.reset();
    }
    showScrollBarEarly();
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

void TextEditor::setOverwriteMode(bool overwrite) {
    if (m_isOverwriteMode != overwrite) {
        m_isOverwriteMode = overwrite;
        updateCaret();
    }
}

void TextEditor::setCaretColor(const QColor &color) {
    m_caretColor = color;
    viewport()->update();
}

void TextEditor::applyStyle() {
    LayoutStyle style;
    style.font = font();
    style.width = std::max(1, viewport()->width() - 2 * marginX);
    style.tabDistance = tabColumns * QFontMetricsF(style.font).horizontalAdvance(u' ');
    style.quiet = palette().color(QPalette::PlaceholderText);
    m_layout.setStyle(style);
    updateEverything();
    m_topOffset = m_topPlace;
    m_topHidden = m_topOffset == 0 ? std::min(m_topHidden, 0) : 0;
    scrollBy(0); // What is shown now may end further up.
}

void TextEditor::showMatch(const TextMatch &match) {
    // What matches can be a part of a character, such as a letter without its accent: all of it is selected, and the
    // next search goes on behind it.
    const std::size_t end = m_document.boundaryAt(match.offset + match.length, TextDocument::Side::behind);
    m_document.select(match.offset, end);
    ensureCaretVisible();
}

bool TextEditor::findNext(std::string_view needle) {
    auto match = findForward(text(), needle, m_document.selectionEnd());
    if (!match) {
        match = findForward(text(), needle, 0);
    }
    if (match) {
        showMatch(*match);
    }
    return match.has_value();
}

bool TextEditor::findPrevious(std::string_view needle) {
    auto match = findBackward(text(), needle, m_document.selectionStart());
    if (!match) {
        match = findBackward(text(), needle, text().size());
    }
    if (match) {
        showMatch(*match);
    }
    return match.has_value();
}

void TextEditor::selectAll() {
    m_document.select(0, text().size());
    publishPrimarySelection();
}

void TextEditor::deleteSelection() {
    if (m_document.hasSelection()) {
        m_document.insert(Text());
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

void TextEditor::timerEvent(QTimerEvent *event) {
    if (event->timerId() == m_blinkTimer.timerId()) {
        m_isCaretShown = !m_isCaretShown;
        updateCaret();
    } else if (event->timerId() == m_tripleClickTimer.timerId()) {
        m_tripleClickTimer.stop();
    } else if (event->timerId() == m_autoScrollTimer.timerId()) {
        const QPoint point = viewport()->mapFromGlobal(QCursor::pos());
        const int above = std::min(point.y(), 0);
        const int below = std::max(point.y() - viewport()->height(), 0);
        scrollBy(above + below);
        extendSelection(point);
    } else if (event->timerId() == m_dragScrollTimer.timerId()) {
        scrollBy(dragScrollDistance());
        m_dropOffset = targetAt(m_dragPoint).offset;
        updateCaret();
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
    const bool isSameWidth = m_layout.style().width == std::max(1, viewport()->width() - 2 * marginX);
    if (isSameWidth) {
        scrollBy(0);
    } else {
        applyStyle();
    }
}

void TextEditor::showEvent(QShowEvent *event) {
    QAbstractScrollArea::showEvent(event);
    setVerticalScrollBarPolicy(verticalScrollBarPolicy()); // While hidden it takes no effect.
}

void TextEditor::focusInEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusInEvent(event);
    updateEverything(); // The selection has another colour.
    restartBlinking();
}

void TextEditor::focusOutEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusOutEvent(event);
    m_blinkTimer.stop();
    updateEverything();
}

bool TextEditor::focusNextPrevChild(bool) { return false; }

} // namespace lexivore
