// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace lexivore {

/// A round badge filling `rect`, with a number on it. A number with many digits is written smaller, so that it stays
/// inside.
void drawBadge(QPainter &painter, const QRectF &rect, int number, const QColor &fill);

} // namespace lexivore
