// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/readability_scale.h"

#include "tools/readability_tool.h"
#include "ui/controls/accessible_role.h"
#include "ui/theme/drawing.h"
#include "ui/theme/theme.h"

#include <QPainter>

namespace lexivore {

namespace {

constexpr int bandCount = static_cast<int>(readabilityBands.size());
constexpr double gap = 3;
constexpr double thickness = 6;
constexpr QSizeF markSize(4, 14);

/// Where the band begins, and where the one before it ends; 100 after the last.
double boundOf(int band) {
    return band < bandCount ? readabilityBands[static_cast<std::size_t>(band)].lowestScore : 100;
}

} // namespace

ReadabilityScale::ReadabilityScale(double score, bool hasScore, QWidget *parent)
    : QWidget(parent), m_score(qBound(0.0, score, 100.0)), m_hasScore(hasScore) {
    setFixedHeight(static_cast<int>(markSize.height()));
    setAccessibleRole(*this, QAccessible::Graphic);
}

int ReadabilityScale::bandOf(double score) {
    return static_cast<int>(&readabilityBand(score) - readabilityBands.data());
}

void ReadabilityScale::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const Theme &colours = theme();
    const double perPoint = (width() - (bandCount - 1) * gap) / 100;
    const double top = (height() - thickness) / 2;
    for (int band = 0; band < bandCount; ++band) {
        const QRectF place(boundOf(band) * perPoint + band * gap, top, (boundOf(band + 1) - boundOf(band)) * perPoint,
                           thickness);
        const bool isCurrent = m_hasScore && band == bandOf(m_score);
        fillRounded(painter, place, thickness / 2, isCurrent ? colours.accent : colours.track);
    }
    if (!m_hasScore) {
        return;
    }
    const double middle =
        qBound(markSize.width() / 2, m_score * perPoint + bandOf(m_score) * gap, width() - markSize.width() / 2);
    const QRectF mark(middle - markSize.width() / 2, 0, markSize.width(), markSize.height());
    painter.fillRect(mark.adjusted(-1.5, 0, 1.5, 0), colours.raised);
    fillRounded(painter, mark, 2, colours.text);
}

} // namespace lexivore
