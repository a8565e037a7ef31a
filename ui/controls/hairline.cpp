// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/hairline.h"

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

void Hairline::paintEvent(QPaintEvent *) { QPainter(this).fillRect(rect(), theme().border); }

} // namespace lexivore
