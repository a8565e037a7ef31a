// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/editor/visible_text.h"

#include <QColor>
#include <QFont>
#include <QTextLayout>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

class QPainter;

namespace lexivore {

/// What decides how lines look.
struct LayoutStyle {
    QFont font;
    int width = 100; ///< Of a row, in pixels.
    qreal tabDistance = 80;
    QColor quiet; ///< Of what stands for controls and unusual spaces.
};

/// What an input method shows at the caret and has not committed yet.
struct Preedit {
    QString text;
    QList<QTextLayout::FormatRange> formats; ///< Counted from the start of `text`.
};

/// One line, or a stretch of an over-long one, laid out in rows.
///
/// Places in it are byte offsets from its start. The rows, from top to bottom, are numbered from 0; their places and
/// `x` are in pixels from the line's top left corner.
class LineLayout {
public:
    static constexpr std::size_t everything = std::numeric_limits<std::size_t>::max();

    struct Source {
        std::string_view content;    ///< Without the line break.
        std::string_view terminator; ///< The line break, if the line ends with one.
        bool isRightToLeft = false;
        /// Rows are laid out until one reaches this place; what follows is left out.
        std::size_t wanted = everything;
        const Preedit *preedit = nullptr; ///< May be absent.
        std::size_t preeditPlace = 0;
    };
    /// What `draw` needs beside the text; the places may lie outside of the line.
    struct Selection {
        std::size_t begin = 0;
        std::size_t end = 0;
        bool hasBreak = false; ///< The line break is selected too.
        QTextCharFormat format;
    };

    LineLayout(const Source &source, const LayoutStyle &style);

    /// Of the content laid out, and of that with the line break.
    [[nodiscard]] std::size_t contentBytes() const { return m_contentBytes; }
    [[nodiscard]] std::size_t totalBytes() const { return m_contentBytes + m_terminatorBytes; }
    [[nodiscard]] int height() const { return m_height; }
    [[nodiscard]] bool isRightToLeft() const { return m_isRightToLeft; }
    /// Some of it runs from left to right and some, or all, from right to left.
    [[nodiscard]] bool isBidirectional() const { return m_isBidirectional; }
    /// The same number for lines that are drawn alike in the same style.
    [[nodiscard]] std::uint64_t look() const { return m_look; }

    [[nodiscard]] int rowCount() const { return m_layout.lineCount(); }
    /// The row that shows the caret at `place`. Where two rows meet it is the end of the first one if `atRowEnd`.
    [[nodiscard]] int rowOf(std::size_t place, bool atRowEnd) const;
    [[nodiscard]] int rowAt(int y) const;
    [[nodiscard]] std::size_t rowBegin(int row) const;
    [[nodiscard]] std::size_t rowEnd(int row) const;
    [[nodiscard]] int rowTop(int row) const;
    [[nodiscard]] int rowHeight(int row) const;

    [[nodiscard]] qreal xOf(std::size_t place, int row) const;
    /// As `xOf`, `units` UTF-16 code units into the preedit text.
    [[nodiscard]] qreal xInPreedit(int units, int *row) const;
    /// The place nearest to `x` in the row, or where the letter at `x` begins. Not always between characters.
    [[nodiscard]] std::size_t placeAt(qreal x, int row,
                                      QTextLine::CursorPosition position = QTextLine::CursorBetweenCharacters) const;
    void draw(QPainter &painter, QPointF position, const Selection *selection, const QRectF &clip) const;

private:
    [[nodiscard]] qsizetype unitOf(std::size_t place) const;
    [[nodiscard]] std::size_t placeOf(qsizetype unit) const;
    void layOut(const LayoutStyle &style, std::size_t wanted);
    void setFormats(const LayoutStyle &style, const Preedit *preedit);
    void drawMarks(QPainter &painter, QPointF position, const QRectF &clip) const;

    QTextLayout m_layout;
    QString m_source; ///< The content in UTF-16, to convert places. Not kept when that is trivial.
    std::vector<QuietUnit> m_marks;
    QString m_terminatorPicture;
    QColor m_quiet;
    std::size_t m_contentBytes = 0;
    std::size_t m_terminatorBytes = 0;
    qsizetype m_preeditUnit = 0;
    qsizetype m_preeditLength = 0;
    int m_height = 0;
    std::uint64_t m_look = 0;
    bool m_isRightToLeft = false;
    bool m_isBidirectional = false;
    bool m_isAscii = true;
};

} // namespace lexivore
