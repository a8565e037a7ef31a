// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace lexivore {

/// A round badge filling `rect`, with a number on it. A number that is too large for it, having many digits or large
/// ones, is written smaller.
void drawBadge(QPainter &painter, const QRectF &rect, int number, const QColor &fill);

} // namespace lexivore
