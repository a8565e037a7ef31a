// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// The visible part is known by its first row, never by a height: heights above it may still be estimates, and when
// they are corrected nothing on the screen moves. The scroll bar follows, except while the user holds it.
#include "ui/editor/text_editor.h"

#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace lexivore {

namespace {
/// Scroll bars count in `int`; texts of more pixels than this are scrolled in coarser steps by the bar.
constexpr std::uint64_t mostBarSteps = 1U << 30;
} // namespace

void TextEditor::forEachVisibleChunk(const std::function<bool(const TextIndex::Place &, int)> &visit) const {
    const TextIndex &index = m_document.index();
    const Row top = m_layout.rowOf(m_topOffset, false);
    int y = -m_topHidden - top.top;
    for (TextIndex::Place place = top.place; visit(place, y) && !index.isLast(place); place = index.next(place)) {
        y += m_layout.chunk(place).height;
        if (y >= viewport()->height()) {
            break;
        }
    }
}

std::optional<int> TextEditor::viewportTop(const Row &row) const {
    std::optional<int> top;
    forEachVisibleChunk([&](const TextIndex::Place &place, int y) {
        if (place.before.bytes == row.place.before.bytes) {
            top = y + row.top;
        }
        return !top;
    });
    return top;
}

TextEditor::CaretTarget TextEditor::targetIn(const Row &row, qreal x) const {
    const std::size_t offset = m_layout.offsetAt(x, row);
    return {offset, offset == m_layout.rowEnd(row) && m_layout.isWrapped(row)};
}

TextEditor::Row TextEditor::rowAt(QPoint point) const {
    const Row top = m_layout.rowOf(m_topOffset, false);
    return m_layout.rowAt(top.place, top.top + m_topHidden + point.y());
}

TextEditor::CaretTarget TextEditor::targetAt(QPoint point) const { return targetIn(rowAt(point), point.x() - marginX); }

std::size_t TextEditor::characterAt(QPoint point) const {
    return m_layout.characterAt(point.x() - marginX, rowAt(point));
}

void TextEditor::showFrom(TextIndex::Place place, int y) {
    const TextIndex &index = m_document.index();
    const int wanted = viewport()->height() - marginY;
    int shown = -y;
    for (TextIndex::Place at = place; shown < wanted; at = index.next(at)) {
        shown += m_layout.chunk(at).height;
        if (index.isLast(at)) {
            y -= std::max(0, wanted - shown);
            break;
        }
    }
    while (y < 0 && !index.isFirst(place)) {
        place = index.previous(place);
        y += m_layout.chunk(place).height;
    }
    if (index.isFirst(place)) {
        y = std::max(y, -marginY);
    }
    while (y >= m_layout.chunk(place).height && !index.isLast(place)) {
        y -= m_layout.chunk(place).height;
        place = index.next(place);
    }
    const Row row = m_layout.rowAt(place, std::max(y, 0));
    if (row.place.before.bytes != place.before.bytes) {
        y += m_layout.chunk(row.place).height;
    }
    m_topOffset = m_layout.rowBegin(row);
    if (m_topPlace < m_topOffset || m_topPlace >= m_layout.rowEnd(row)) {
        m_topPlace = m_topOffset;
    }
    m_topHidden = y - row.top;
    refresh();
}

void TextEditor::scrollBy(int pixels) {
    const Row top = m_layout.rowOf(m_topOffset, false);
    showFrom(top.place, top.top + m_topHidden + pixels);
}

void TextEditor::scrollToFraction(double fraction) {
    TextIndex &index = m_document.index();
    if (fraction >= 1) {
        const TextIndex::Place last = index.atOffset(text().size());
        showFrom(last, m_layout.chunk(last).height + marginY - viewport()->height());
        return;
    }
    const double range = static_cast<double>(index.totalHeight()) + 2 * marginY - viewport()->height();
    const double y = fraction * range - marginY;
    const TextIndex::Place place = index.atHeight(static_cast<std::uint64_t>(std::max(y, 0.0)));
    const double estimated = std::max(1U, index.at(place).height);
    const double inside = y - static_cast<double>(place.heightBefore);
    const double measured = m_layout.chunk(place).height;
    showFrom(place, static_cast<int>(inside * (inside > 0 ? measured / estimated : 1)));
}

void TextEditor::refresh() {
    forEachVisibleChunk([this](const TextIndex::Place &place, int) {
        m_layout.chunk(place);
        return true;
    });
    updateScrollBar();
    updateChanged();
}

void TextEditor::updateScrollBar() {
    QScrollBar *const bar = verticalScrollBar();
    if (bar->isSliderDown()) {
        return;
    }
    const QScopedValueRollback setting(m_isSettingScrollBar, true);
    const Row top = m_layout.rowOf(m_topOffset, false);
    const int height = viewport()->height();
    const std::uint64_t total = m_document.index().totalHeight() + 2 * static_cast<std::uint64_t>(marginY);
    const std::uint64_t pixelsPerStep = total / mostBarSteps + 1;
    const auto steps = [pixelsPerStep](std::uint64_t pixels) { return static_cast<int>(pixels / pixelsPerStep); };
    const std::int64_t above = static_cast<std::int64_t>(top.place.heightBefore) + top.top + m_topHidden + marginY;
    const auto page = static_cast<std::uint64_t>(std::max(height, 1));
    bar->setRange(0, steps(total > page ? total - page : 0));
    bar->setPageStep(std::max(1, steps(page)));
    bar->setSingleStep(std::max(1, steps(static_cast<std::uint64_t>(m_layout.rowHeight()))));
    bar->setValue(steps(static_cast<std::uint64_t>(std::max<std::int64_t>(above, 0))));
    m_lastScrollValue = bar->value();
    showScrollBar(bar->maximum() > 0);
}

void TextEditor::showScrollBar(bool isShown) {
    const Qt::ScrollBarPolicy policy = isShown ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
    if (policy != verticalScrollBarPolicy()) {
        setVerticalScrollBarPolicy(policy);
    }
}

void TextEditor::showScrollBarEarly() {
    if (m_document.index().totalHeight() > 2 * static_cast<std::uint64_t>(viewport()->height())) {
        showScrollBar(true);
    }
}

void TextEditor::scrollContentsBy(int, int) {
    if (m_isSettingScrollBar) {
        return;
    }
    const QScrollBar *const bar = verticalScrollBar();
    const int value = bar->value();
    const std::int64_t steps = std::int64_t{value} - m_lastScrollValue;
    const std::uint64_t total = m_document.index().totalHeight() + 2 * static_cast<std::uint64_t>(marginY);
    const auto pixels = steps * static_cast<std::int64_t>(total / mostBarSteps + 1);
    m_lastScrollValue = value;
    const bool isShort = std::abs(pixels) <= 3 * std::int64_t{viewport()->height()};
    if (isShort && !bar->isSliderDown() && value != bar->maximum() && value != bar->minimum()) {
        scrollBy(static_cast<int>(pixels));
    } else {
        scrollToFraction(bar->maximum() > 0 ? static_cast<double>(value) / bar->maximum() : 0);
    }
}

void TextEditor::ensureCaretVisible() {
    const Row row = m_layout.rowOf(m_document.caret(), m_isCaretAtRowEnd);
    const auto top = viewportTop(row);
    const int height = viewport()->height();
    if (top && *top >= 0 && *top + row.height <= height) {
        return;
    }
    const bool isAbove = top ? *top < 0 : row.place.before.bytes < m_topOffset;
    // At the edges of the text its margin comes into view too.
    if (isAbove) {
        showFrom(row.place, m_document.caret() == 0 ? -marginY : row.top);
    } else {
        const int margin = m_document.caret() == text().size() ? marginY : 0;
        showFrom(row.place, row.top + row.height + margin - height);
    }
    updateMicroFocus();
}

} // namespace lexivore
