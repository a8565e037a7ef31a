// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Only what looks otherwise than before is painted: a large window takes many times as long to paint as the layout of
// what a keystroke changes. For that the editor remembers how each line on the screen looks.
#include "ui/editor/text_editor.h"

#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleHints>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lexivore {

namespace {

/// Mixes a number into a digest, so that its order matters.
void mix(std::uint64_t &digest, std::uint64_t number) {
    digest = (digest ^ number) * 0x9E3779B97F4A7C15U;
    digest ^= digest >> 32U;
}

} // namespace

TextEditor::SelectedPart TextEditor::selectedPart(const ChunkLayout::Line &line) const {
    const std::size_t begin = m_document.selectionStart();
    const std::size_t end = m_document.selectionEnd();
    const std::size_t contentEnd = line.begin + line.layout->contentBytes();
    if (begin == end || begin > contentEnd || end <= line.begin) {
        return {};
    }
    const bool endsWithBreak = line.layout->totalBytes() > line.layout->contentBytes();
    return {std::max(begin, line.begin) - line.begin, std::min(end, contentEnd) - line.begin,
            end > contentEnd && endsWithBreak};
}

std::vector<TextEditor::ShownLine> TextEditor::linesToShow() const {
    std::vector<ShownLine> lines;
    forEachVisibleChunk([&](const TextIndex::Place &place, int y) {
        for (const ChunkLayout::Line &line : m_layout.chunk(place).lines) {
            ShownLine shown{line.begin, line.layout->look(), y + line.top, line.layout->height()};
            if (shown.top + shown.height <= 0 || shown.top >= viewport()->height()) {
                continue;
            }
            const SelectedPart part = selectedPart(line);
            mix(shown.look, part.begin);
            mix(shown.look, part.end);
            mix(shown.look, part.hasBreak ? 1 : 0);
            lines.push_back(shown);
        }
        return true;
    });
    return lines;
}

void TextEditor::updateEverything() {
    m_shown.clear();
    viewport()->update();
}

void TextEditor::updateChanged() {
    std::vector<ShownLine> lines = linesToShow();
    if (m_shown.empty()) {
        viewport()->update();
    } else {
        scrollShown(lines);
        const int overhang = m_layout.rowHeight() / 2;
        const auto update = [&](const ShownLine &line) {
            viewport()->update(0, line.top - overhang, viewport()->width(), line.height + 2 * overhang);
        };
        auto before = m_shown.begin();
        auto now = lines.begin();
        while (before != m_shown.end() || now != lines.end()) {
            const bool bothThere = before != m_shown.end() && now != lines.end() && before->top == now->top;
            if (bothThere && before->height == now->height && before->look == now->look) {
                ++before;
                ++now;
            } else if (now == lines.end() || (before != m_shown.end() && before->top < now->top)) {
                update(*before++);
            } else {
                update(*now++);
            }
        }
    }
    m_shown = std::move(lines);
    updateCaret();
}

void TextEditor::scrollShown(const std::vector<ShownLine> &lines) {
    // Pixels are moved by whole ones of the screen only.
    const qreal ratio = viewport()->devicePixelRatioF();
    if (ratio != std::floor(ratio)) {
        return;
    }
    const auto isSame = [](const ShownLine &left, const ShownLine &right) {
        return left.begin == right.begin && left.look == right.look;
    };
    const auto kept = std::find_first_of(m_shown.begin(), m_shown.end(), lines.begin(), lines.end(), isSame);
    if (kept == m_shown.end()) {
        return;
    }
    const auto there =
        std::find_if(lines.begin(), lines.end(), [&](const ShownLine &line) { return isSame(*kept, line); });
    const int distance = there->top - kept->top;
    if (distance == 0) {
        return;
    }
    viewport()->scroll(0, distance, viewport()->rect());
    m_caretArea.translate(0, distance);
    for (ShownLine &line : m_shown) {
        line.top += distance;
    }
    std::erase_if(m_shown, [this](const ShownLine &line) {
        return line.top + line.height <= 0 || line.top >= viewport()->height();
    });
}

void TextEditor::updateCaret() {
    viewport()->update(m_caretArea);
    m_caretArea = QRegion(caretRect().adjusted(-1, 0, 1, 0)) + dropCaretRect();
    viewport()->update(m_caretArea);
}

void TextEditor::paintEvent(QPaintEvent *event) {
    QPainter painter(viewport());
    const QRegion &dirty = event->region();
    painter.setClipRegion(dirty);
    painter.setPen(palette().color(QPalette::Text));
    LineLayout::Selection selection;
    const QPalette::ColorGroup group = hasFocus() ? QPalette::Active : QPalette::Inactive;
    selection.format.setBackground(palette().brush(group, QPalette::Highlight));
    selection.format.setForeground(palette().brush(group, QPalette::HighlightedText));
    // Marks above and below letters may reach into the lines beside theirs.
    const int overhang = m_layout.rowHeight() / 2;
    forEachVisibleChunk([&](const TextIndex::Place &place, int y) {
        // All that is visible counts as used, so that it outlives the painting of a part such as the caret.
        const ChunkLayout &chunk = m_layout.chunk(place);
        if (y > dirty.boundingRect().bottom()) {
            return true;
        }
        for (const ChunkLayout::Line &line : chunk.lines) {
            const int top = y + line.top;
            const QRect box(0, top - overhang, viewport()->width(), line.layout->height() + 2 * overhang);
            const QRect clip = dirty.intersected(box).boundingRect();
            if (!clip.isEmpty()) {
                const SelectedPart part = selectedPart(line);
                selection.begin = part.begin;
                selection.end = part.end;
                selection.hasBreak = part.hasBreak;
                line.layout->draw(painter, QPointF(marginX, top), part.isAny() ? &selection : nullptr,
                                  clip.adjusted(0, -overhang, 0, overhang));
            }
        }
        return true;
    });
    paintCaret(painter);
    m_layout.trim();
}

void TextEditor::paintCaret(QPainter &painter) {
    const QColor color = m_caretColor.isValid() ? m_caretColor : palette().color(QPalette::Text);
    painter.fillRect(dropCaretRect(), color);
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

QRect TextEditor::dropCaretRect() const {
    if (!m_dropOffset) {
        return {};
    }
    const Row row = m_layout.rowOf(*m_dropOffset, false);
    const auto top = viewportTop(row);
    const int x = marginX + static_cast<int>(m_layout.xOf(*m_dropOffset, row));
    return top ? QRect(x, *top, 1, row.height) : QRect();
}

QRect TextEditor::caretRect() const {
    Row row = m_layout.rowOf(m_document.caret(), m_isCaretAtRowEnd);
    qreal x = 0;
    const bool isInPreedit = m_layout.hasPreedit() && m_layout.preeditOffset() == m_document.caret();
    if (isInPreedit) {
        int rowInLine = row.row;
        const LineLayout &line = m_layout.line(row);
        x = line.xInPreedit(m_preeditCursor, &rowInLine);
        row.top += line.rowTop(rowInLine) - line.rowTop(row.row);
        row.height = line.rowHeight(rowInLine);
    } else {
        x = m_layout.xOf(m_document.caret(), row);
    }
    qreal width = style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this);
    if (m_isOverwriteMode && !isInPreedit) {
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
    return {marginX + static_cast<int>(x), top, static_cast<int>(std::ceil(width)), row.height};
}

void TextEditor::restartBlinking() {
    m_isCaretShown = true;
    m_blinkTimer.stop();
    const int flashTime = QGuiApplication::styleHints()->cursorFlashTime();
    if (hasFocus() && flashTime >= 2) {
        m_blinkTimer.start(flashTime / 2, this);
    }
    updateCaret();
}

} // namespace lexivore
