// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/frequency_row.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/label.h"
#include "ui/theme/metrics.h"

#include <QLinearGradient>
#include <QPainter>

#include <optional>

namespace lexivore {

namespace {

constexpr int rowHeight = 24;
constexpr int barHeight = 20;
constexpr int characterColumn = 60;
constexpr int besideBar = 100; ///< The column of the character and the place for the count.
constexpr int countGap = 8;
/// UTF-16 units. One letter can carry a million marks, and to lay them out takes seconds with every painting.
constexpr qsizetype longestCharacter = 64;

/// A character that leaves no ink, as a sign for the row and as words for assistive technology.
struct Invisible {
    QString character;
    QString sign;
    QString name;
};

std::optional<Invisible> invisible(const QString &character) {
    const QString lineBreak = FrequencyRow::tr("Line break");
    const Invisible known[] = {
        {"\n", QString::fromUtf8("↵"), lineBreak},
        {"\r\n", "CR LF", lineBreak + " (CR LF)"},
        {"\r", "CR", lineBreak + " (CR)"},
        {"\t", QString::fromUtf8("⇥"), FrequencyRow::tr("Tab")},
    };
    for (const Invisible &entry : known) {
        if (entry.character == character) {
            return entry;
        }
    }
    const QList<uint> points = character.toUcs4();
    if (points.size() != 1) {
        return std::nullopt;
    }
    const QChar::Category category = QChar::category(points.front());
    const bool hasInk = category != QChar::Other_Control && category != QChar::Other_Format;
    if (hasInk && !QChar::isSpace(points.front())) {
        return std::nullopt;
    }
    const QString number = QString("U+%1").arg(points.front(), 4, 16, QLatin1Char('0')).toUpper();
    return Invisible{character, number, number};
}

} // namespace

FrequencyRow::FrequencyRow(const QString &character, qint64 count, qint64 greatest, QWidget *parent)
    : QWidget(parent), m_character(shortened(character, longestCharacter)), m_count(count), m_greatest(greatest) {
    setAccessibleRole(*this, QAccessible::ListItem);
    setAccessibleName(m_character);
    if (const std::optional<Invisible> shown = invisible(m_character)) {
        m_character = shown->sign;
        setAccessibleName(shown->name);
        setToolTip(shown->name);
    }
    m_character = onOneLine(m_character);
    setAccessibleDescription(QString::number(count));
    setFixedHeight(heightFor(rowHeight, FontRole::body));
}

int FrequencyRow::widthBesideBar() const {
    const QFontMetrics digits(fontFor(FontRole::caption));
    return qMax(widthFor(besideBar),
                widthFor(characterColumn) + countGap + digits.horizontalAdvance(QString::number(m_greatest)));
}

double FrequencyRow::barWidth() const {
    if (m_greatest <= 0) {
        return 0;
    }
    return qMax(0, width() - widthBesideBar()) * (static_cast<double>(m_count) / static_cast<double>(m_greatest));
}

QRectF FrequencyRow::mirrored(QRectF place) const {
    if (layoutDirection() == Qt::RightToLeft) {
        place.moveRight(width() - place.left());
    }
    return place;
}

void FrequencyRow::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    const Theme &colours = theme();
    painter.setFont(monospacedFont(systemPoints()));
    painter.setPen(colours.text);
    const QRect column(0, 0, widthFor(characterColumn) - 4, height());
    painter.drawText(mirrored(column), Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(m_character, Qt::ElideRight, column.width()));

    const QRectF bar(widthFor(characterColumn), (height() - barHeight) / 2.0, barWidth(), barHeight);
    const QRectF shownBar = mirrored(bar);
    QLinearGradient fill(shownBar.topLeft(), shownBar.topRight());
    fill.setColorAt(0, colours.barStart);
    fill.setColorAt(1, colours.barEnd);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    const double radius = qMin<double>(metrics::barRadius, bar.width() / 2);
    painter.drawRoundedRect(shownBar, radius, radius);

    painter.setFont(fontFor(FontRole::caption));
    painter.setPen(colours.text2);
    const QRectF count(bar.right() + countGap, 0, width() - bar.right() - countGap, height());
    painter.drawText(mirrored(count), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine | Qt::TextDontClip,
                     QString::number(m_count));
}

} // namespace lexivore
