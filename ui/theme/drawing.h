// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;
class QWidget;

namespace lexivore {

/// Whether the widget is to be drawn as disabled: it is disabled itself. What is disabled only because a sheet lies
/// over the window keeps its looks under the scrim.
[[nodiscard]] bool looksDisabled(const QWidget &widget);

/// Fills the rounded rectangle.
void fillRounded(QPainter &painter, const QRectF &rect, double radius, const QColor &fill);

/// Fills the rounded rectangle and draws a line of `width` just inside its edge.
void drawFrame(QPainter &painter, const QRectF &rect, double radius, const QColor &fill, const QColor &border,
               double width = 1);

/// Fills `line`, which is 1 pixel thick, with whole device pixels, as many in one place as in another. Where a pixel is
/// one and a part of them, the part at the bottom or the right is left as it is.
void fillHairline(QPainter &painter, const QRect &line, const QColor &colour);

/// A symbol in the middle of `rect`, `size` pixels a side.
void drawSymbol(QPainter &painter, const QRectF &rect, QAnyStringView name, int size, const QColor &colour);

} // namespace lexivore
