// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/theme/drawing.h"

#include "ui/icon.h"

#include <QPainter>
#include <QWidget>
#include <QtMath>

namespace lexivore {

bool looksDisabled(const QWidget &widget) {
    return widget.testAttribute(Qt::WA_ForceDisabled) || (!widget.isEnabled() && widget.isWindow());
}

void fillRounded(QPainter &painter, const QRectF &rect, double radius, const QColor &fill) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(rect, radius, radius);
    painter.restore();
}

void drawFrame(QPainter &painter, const QRectF &rect, double radius, const QColor &fill, const QColor &border,
               double width) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(border, width));
    painter.setBrush(fill);
    const double inset = width / 2;
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    painter.restore();
}

void fillHairline(QPainter &painter, const QRect &line, const QColor &colour) {
    const double ratio = painter.device()->devicePixelRatioF();
    const double thickness = qMax(1, qFloor(ratio)) / ratio;
    QRectF drawn = line;
    if (line.height() < line.width()) {
        drawn.setHeight(thickness);
    } else {
        drawn.setWidth(thickness);
    }
    painter.fillRect(drawn, colour);
}

void drawSymbol(QPainter &painter, const QRectF &rect, QAnyStringView name, int size, const QColor &colour) {
    const double ratio = painter.device()->devicePixelRatioF();
    const QPointF corner = rect.center() - QPointF(size / 2.0, size / 2.0);
    // On whole device pixels, or the strokes blur.
    const QPointF aligned(qRound(corner.x() * ratio) / ratio, qRound(corner.y() * ratio) / ratio);
    painter.drawPixmap(aligned, symbolPixmap(name, size, colour, ratio));
}

} // namespace lexivore
