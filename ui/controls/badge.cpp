// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/badge.h"

#include "ui/theme/drawing.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QPainter>
#include <QPixmap>

namespace lexivore {

namespace {

void drawOpaque(QPainter &painter, const QRectF &rect, int number, const QColor &fill) {
    fillRounded(painter, rect, qMin(rect.width(), rect.height()) / 2, fill);
    const QString digits = QString::number(number);
    QFont font = fontFor(FontRole::badge);
    const QFontMetricsF letters(font);
    const double room = qMin(rect.width(), rect.height()) - 4;
    const double needed = qMax(letters.horizontalAdvance(digits), letters.capHeight() * 4 / 3);
    if (needed > room) {
        font.setPointSizeF(qMax(1.0, font.pointSizeF() * room / needed));
    }
    painter.setFont(font);
    painter.setPen(theme().onAccent);
    painter.drawText(rect, Qt::AlignCenter, digits);
}

} // namespace

void drawBadge(QPainter &painter, const QRectF &rect, int number, const QColor &fill) {
    painter.save();
    if (painter.opacity() < 1) {
        // Faded as one: white digits that are faded by themselves would vanish in the faded disc.
        const double ratio = painter.device()->devicePixelRatioF();
        QPixmap badge((rect.size() * ratio).toSize());
        badge.setDevicePixelRatio(ratio);
        badge.fill(Qt::transparent);
        QPainter inner(&badge);
        inner.setRenderHint(QPainter::Antialiasing);
        drawOpaque(inner, QRectF(QPointF(), rect.size()), number, fill);
        inner.end();
        painter.drawPixmap(rect.topLeft(), badge);
    } else {
        drawOpaque(painter, rect, number, fill);
    }
    painter.restore();
}

} // namespace lexivore
