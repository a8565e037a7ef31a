// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/card.h"

#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

#include <QPainter>

namespace lexivore {

void Card::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    drawFrame(painter, rect(), metrics::cardRadius, theme().raised, theme().border);
}

} // namespace lexivore
