// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/font_preview.h"

#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QPainter>

namespace lexivore {

namespace {

constexpr int padding = 8;

} // namespace

FontPreview::FontPreview(const QString &sample, QWidget *parent) : QLabel(sample, parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(padding + metrics::line);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void FontPreview::setFontSize(double points) { setFont(monospacedFont(points)); }

void FontPreview::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    lexivore::drawFrame(painter, rect(), metrics::radius, theme().view, theme().border);
    painter.end();
    QLabel::paintEvent(event);
}

} // namespace lexivore
