// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/hairline.h"

#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

#include <QPainter>

namespace lexivore {

Hairline::Hairline(Qt::Orientation orientation, QWidget *parent) : QWidget(parent) {
    if (orientation == Qt::Horizontal) {
        setFixedHeight(metrics::line);
    } else {
        setFixedWidth(metrics::line);
    }
}

void Hairline::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    fillHairline(painter, rect(), theme().border);
}

} // namespace lexivore
