// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/line_layout.h"

#include "engine/primitives/utf8.h"
#include "manager/text_conversion.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace lexivore {

namespace {

std::uint64_t lookOf(const LineLayout::Source &source, std::size_t laidOut) {
    static std::uint64_t preedits = 0;
    if (source.preedit != nullptr) {
        return ++preedits; // What an input method shows changes with everything that it says.
    }
    const std::hash<std::string_view> digest;
    return digest(source.content) * 31 + digest(source.terminator) * 17 + laidOut * 2 + (source.isRightToLeft ? 1 : 0);
}

bool runsFromRightToLeft(char32_t codePoint) {
    switch (QChar::direction(codePoint)) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirAN:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirRLI:
        return true;
    default:
        return false;
    }
}

bool hasRightToLeft(const QString &content) {
    const QList<uint> codePoints = content.toUcs4();
    return std::any_of(codePoints.begin(), codePoints.end(), runsFromRightToLeft);
}

} // namespace

LineLayout::LineLayout(const Source &source, const LayoutStyle &style)
    : m_terminatorPicture(visibleTerminator(source.terminator)), m_quiet(style.quiet),
      m_contentBytes(source.content.size()), m_terminatorBytes(source.terminator.size()),
      m_isRightToLeft(source.isRightToLeft) {
    const char *const end = source.content.data() + source.content.size();
    m_isAscii = asciiRunEnd(source.content.data(), end) == end;
    QString content = toQString(source.content);
    QString shown = visibleText(content, m_marks);
    if (!m_isAscii) {
        m_isBidirectional = m_isRightToLeft || hasRightToLeft(content);
        m_source = std::move(content);
    }
    if (source.preedit != nullptr) {
        m_preeditUnit = unitOf(source.preeditPlace);
        m_preeditLength = source.preedit->text.size();
        shown.insert(m_preeditUnit, source.preedit->text);
    }
    m_layout.setText(shown);
    m_layout.setFont(style.font);
    m_layout.setCacheEnabled(true);
    QTextOption option(m_isRightToLeft ? Qt::AlignRight : Qt::AlignLeft);
    option.setTextDirection(m_isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTabStopDistance(style.tabDistance);
    m_layout.setTextOption(option);
    if (!m_marks.empty() || source.preedit != nullptr) {
        setFormats(style, source.preedit);
    }
    layOut(style, source.wanted);
    m_look = lookOf(source, m_contentBytes);
}

void LineLayout::setFormats(const LayoutStyle &style, const Preedit *preedit) {
    QList<QTextLayout::FormatRange> formats;
    for (const QuietUnit &mark : m_marks) {
        if (mark.mark == QuietMark::picture) {
            const auto start = static_cast<int>(mark.unit >= m_preeditUnit ? mark.unit + m_preeditLength : mark.unit);
            if (!formats.isEmpty() && formats.back().start + formats.back().length == start) {
                ++formats.back().length; // Thousands of ranges take long to lay out.
                continue;
            }
            QTextLayout::FormatRange range;
            range.start = start;
            range.length = 1;
            range.format.setForeground(style.quiet);
            formats.push_back(range);
        }
    }
    if (preedit != nullptr) {
        for (QTextLayout::FormatRange range : preedit->formats) {
            range.start += static_cast<int>(m_preeditUnit);
            formats.push_back(range);
        }
    }
    m_layout.setFormats(formats);
}

void LineLayout::layOut(const LayoutStyle &style, std::size_t wanted) {
    m_layout.beginLayout();
    while (true) {
        QTextLine row = m_layout.createLine();
        if (!row.isValid()) {
            break;
        }
        row.setLeadingIncluded(true);
        row.setLineWidth(style.width);
        row.setPosition(QPointF(0, m_height));
        m_height += static_cast<int>(std::ceil(row.height()));
        if (wanted != everything) {
            const std::size_t rowEndPlace = placeOf(row.textStart() + row.textLength());
            if (rowEndPlace >= wanted) {
                if (rowEndPlace < m_contentBytes) {
                    m_contentBytes = rowEndPlace;
                    m_terminatorBytes = 0;
                    m_terminatorPicture.clear();
                }
                break;
            }
        }
    }
    m_layout.endLayout();
}

qsizetype LineLayout::unitOf(std::size_t place) const {
    place = std::min(place, m_contentBytes);
    qsizetype unit = 0;
    if (m_isAscii) {
        unit = static_cast<qsizetype>(place);
    } else {
        for (std::size_t bytes = 0; bytes < place && unit < m_source.size(); ++unit) {
            const QChar next = m_source.at(unit);
            if (next.isHighSurrogate()) {
                bytes += 4;
                ++unit;
            } else {
                bytes += next.unicode() < 0x80 ? 1U : next.unicode() < 0x800 ? 2U : 3U;
            }
        }
    }
    const bool isBehindPreedit = m_preeditLength > 0 && unit > m_preeditUnit;
    return isBehindPreedit ? unit + m_preeditLength : unit;
}

std::size_t LineLayout::placeOf(qsizetype unit) const {
    if (m_preeditLength > 0 && unit > m_preeditUnit) {
        unit = std::max(m_preeditUnit, unit - m_preeditLength);
    }
    if (m_isAscii) {
        return static_cast<std::size_t>(unit);
    }
    std::size_t bytes = 0;
    for (qsizetype i = 0; i < unit && i < m_source.size(); ++i) {
        const QChar next = m_source.at(i);
        if (next.isHighSurrogate()) {
            bytes += i + 1 < unit ? 4U : 0U;
            ++i;
        } else {
            bytes += next.unicode() < 0x80 ? 1U : next.unicode() < 0x800 ? 2U : 3U;
        }
    }
    return bytes;
}

int LineLayout::rowOf(std::size_t place, bool atRowEnd) const {
    const qsizetype unit = unitOf(place);
    for (int row = 0; row + 1 < rowCount(); ++row) {
        const QTextLine line = m_layout.lineAt(row);
        const qsizetype end = line.textStart() + line.textLength();
        if (unit < end || (unit == end && atRowEnd)) {
            return row;
        }
    }
    return rowCount() - 1;
}

int LineLayout::rowAt(int y) const {
    for (int row = 0; row + 1 < rowCount(); ++row) {
        if (y < rowTop(row + 1)) {
            return row;
        }
    }
    return rowCount() - 1;
}

std::size_t LineLayout::rowBegin(int row) const { return placeOf(m_layout.lineAt(row).textStart()); }

std::size_t LineLayout::rowEnd(int row) const {
    const QTextLine line = m_layout.lineAt(row);
    return placeOf(line.textStart() + line.textLength());
}

int LineLayout::rowTop(int row) const { return static_cast<int>(m_layout.lineAt(row).y()); }

int LineLayout::rowHeight(int row) const { return (row + 1 < rowCount() ? rowTop(row + 1) : m_height) - rowTop(row); }

qreal LineLayout::xOf(std::size_t place, int row) const {
    return m_layout.lineAt(row).cursorToX(static_cast<int>(unitOf(place)));
}

qreal LineLayout::xInPreedit(int units, int *row) const {
    const int unit = static_cast<int>(m_preeditUnit) + units;
    *row = m_layout.lineForTextPosition(unit).lineNumber();
    return m_layout.lineAt(*row).cursorToX(unit);
}

std::size_t LineLayout::placeAt(qreal x, int row, QTextLine::CursorPosition position) const {
    const QTextLine line = m_layout.lineAt(row);
    const int begin = line.textStart();
    const int end = begin + line.textLength();
    const auto isNearer = [&](int one, int other) {
        return std::abs(line.cursorToX(one) - x) < std::abs(line.cursorToX(other) - x);
    };
    int unit = line.xToCursor(x, position);
    // To the right of a row that is not the last one the toolkit stays in front of the last character, which it takes
    // for a space; of a row that runs from right to left it answers with the end of the row above.
    if (unit < begin) {
        unit = isNearer(end, begin) ? end : begin;
    } else if (position == QTextLine::CursorBetweenCharacters && end > begin &&
               !m_layout.text().at(end - 1).isSpace() && isNearer(end, unit)) {
        unit = end;
    }
    return placeOf(unit);
}

void LineLayout::draw(QPainter &painter, QPointF position, const Selection *selection, const QRectF &clip) const {
    QList<QTextLayout::FormatRange> selections;
    if (selection != nullptr && selection->begin < selection->end) {
        QTextLayout::FormatRange range;
        range.start = static_cast<int>(unitOf(selection->begin));
        range.length = static_cast<int>(unitOf(selection->end)) - range.start;
        range.format = selection->format;
        if (range.length > 0) {
            selections.push_back(range);
        }
    }
    if (selection != nullptr && selection->hasBreak) {
        const int row = rowCount() - 1;
        const qreal x = xOf(m_contentBytes, row);
        const qreal width = QFontMetricsF(m_layout.font()).horizontalAdvance(u' ');
        const QRectF box(x - (m_isRightToLeft ? width : 0), rowTop(row), width, rowHeight(row));
        painter.fillRect(box.translated(position), selection->format.background());
    }
    m_layout.draw(&painter, position, selections, clip);
    if (!m_marks.empty() || !m_terminatorPicture.isEmpty()) {
        drawMarks(painter, position, clip);
    }
}

void LineLayout::drawMarks(QPainter &painter, QPointF position, const QRectF &clip) const {
    painter.save();
    painter.setPen(m_quiet);
    for (const QuietUnit &mark : m_marks) {
        const int unit = static_cast<int>(
            m_preeditLength > 0 && mark.unit >= m_preeditUnit ? mark.unit + m_preeditLength : mark.unit);
        const QTextLine row = m_layout.lineForTextPosition(unit);
        if (mark.mark == QuietMark::picture || !row.isValid() || !clip.intersects(row.rect().translated(position))) {
            continue;
        }
        const qreal left = position.x() + row.cursorToX(unit);
        const qreal middle = position.y() + row.y() + row.height() / 2;
        if (mark.mark == QuietMark::wideSpace) {
            const qreal right = position.x() + row.cursorToX(unit + 1);
            painter.fillRect(QRectF((left + right) / 2 - 1, middle - 1, 2, 2), m_quiet);
        } else {
            const qreal quarter = row.height() / 4;
            painter.fillRect(QRectF(left, middle - quarter, 1, 2 * quarter), m_quiet);
        }
    }
    if (!m_terminatorPicture.isEmpty()) {
        const int row = rowCount() - 1;
        const QTextLine line = m_layout.lineAt(row);
        const QFontMetricsF metrics(m_layout.font());
        const qreal shift = m_isRightToLeft ? -metrics.horizontalAdvance(m_terminatorPicture) : 0;
        painter.setFont(m_layout.font());
        painter.drawText(position + QPointF(xOf(m_contentBytes, row) + shift, line.y() + line.ascent()),
                         m_terminatorPicture);
    }
    painter.restore();
}

} // namespace lexivore
