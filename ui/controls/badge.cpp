// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/badge.h"

#include "ui/theme/drawing.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QPainter>

namespace lexivore {

void drawBadge(QPainter &painter, const QRectF &rect, int number, const QColor &fill) {
    painter.save();
    fillRounded(painter, rect, qMin(rect.width(), rect.height()) / 2, fill);
    const QString digits = QString::number(number);
    QFont font = fontFor(FontRole::badge);
    const QFontMetricsF letters(font);
    const double room = qMin(rect.width(), rect.height()) - 4;
    const double needed = qMax(letters.horizontalAdvance(digits), letters.capHeight() * 4 / 3);
    if (needed > room)
        font.setPointSizeF(qMax(1.0, font.pointSizeF() * room / needed));
    painter.setFont(font);
    painter.setPen(theme().onAccent);
    painter.drawText(rect, Qt::AlignCenter, digits);
    painter.restore();
}

} // namespace lexivore
