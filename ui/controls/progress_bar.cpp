// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/progress_bar.h"

#include "ui/theme/drawing.h"
#include "ui/theme/theme.h"

#include <QPainter>

namespace lexivore {

namespace {

constexpr int thickness = 4;
constexpr int leastWidth = 80;

} // namespace

ProgressBar::ProgressBar(const QString &name, QWidget *parent) : QProgressBar(parent) {
    setAccessibleName(name);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ProgressBar::sizeHint() const { return {leastWidth, thickness}; }

void ProgressBar::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QRectF track(0, (height() - thickness) / 2.0, width(), thickness);
    fillRounded(painter, track, thickness / 2.0, theme().track);
    if (value() > minimum()) {
        // Its ends are round, so that it is never shorter than it is thick.
        const double part = double(value() - minimum()) / (maximum() - minimum());
        QRectF filled = track;
        filled.setWidth(qMax(double(thickness), part * track.width()));
        filled.moveLeft(layoutDirection() == Qt::RightToLeft ? track.right() - filled.width() : track.left());
        fillRounded(painter, filled, thickness / 2.0, theme().accent);
    }
}

} // namespace lexivore
