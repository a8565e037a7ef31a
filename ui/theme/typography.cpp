// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/theme/typography.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>

namespace lexivore {

namespace {

constexpr double designPoints = 10;
constexpr double designPixelsPerPoint = 96.0 / 72;

struct RoleShape {
    double factor;
    double morePoints;
    QFont::Weight weight;
    int line; ///< Pixels at the design's font size.
};

constexpr RoleShape shapeOf(FontRole role) {
    switch (role) {
    case FontRole::score:
        return {3.8, 0, QFont::DemiBold, 50};
    case FontRole::duration:
        return {2.6, 0, QFont::DemiBold, 44};
    case FontRole::cardValue:
        return {1, 6, QFont::DemiBold, 26};
    case FontRole::smallCardValue:
        return {1, 3, QFont::DemiBold, 22};
    case FontRole::alertTitle:
        return {1, 2, QFont::DemiBold, 24};
    case FontRole::headline:
        return {1, 1, QFont::DemiBold, 20};
    case FontRole::body:
        return {1, 0, QFont::Normal, 18};
    case FontRole::callout:
        return {1, 0, QFont::Medium, 18};
    case FontRole::subheadline:
        return {1, -0.5, QFont::Normal, 18};
    case FontRole::fieldLabel:
        return {1, -0.5, QFont::Medium, 18};
    case FontRole::caption:
        return {1, -1, QFont::Normal, 16};
    case FontRole::captionMedium:
        return {1, -1, QFont::Medium, 16};
    case FontRole::sectionTitle:
        return {1, -1, QFont::DemiBold, 16};
    case FontRole::smallCaption:
        return {1, -1.5, QFont::Normal, 16};
    case FontRole::badge:
        return {1, -1.5, QFont::Bold, 16};
    }
    return {1, 0, QFont::Normal, 18};
}

double pointsOf(FontRole role, double system) {
    const RoleShape shape = shapeOf(role);
    return qMax(1.0, system * shape.factor + shape.morePoints);
}

double designPixelsOf(FontRole role) { return pointsOf(role, designPoints) * designPixelsPerPoint; }

double pixelsOf(FontRole role) {
    const QScreen *screen = QGuiApplication::primaryScreen();
    const double pixelsPerPoint = screen != nullptr ? screen->logicalDotsPerInchY() / 72 : designPixelsPerPoint;
    return pointsOf(role, systemPoints()) * pixelsPerPoint;
}

} // namespace

double systemPoints() {
    // A system font may be given in pixels.
    const QFont font = QGuiApplication::font();
    return font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
}

QFont fontFor(FontRole role) {
    QFont font = QGuiApplication::font();
    font.setPointSizeF(pointsOf(role, systemPoints()));
    font.setWeight(shapeOf(role).weight);
    return font;
}

QFont monospacedFont(double points) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(qMax(1.0, points));
    return font;
}

int lineHeightFor(FontRole role) {
    const double natural = QFontMetricsF(fontFor(role)).height();
    const double designed = shapeOf(role).line * pixelsOf(role) / designPixelsOf(role);
    // The score is digits alone: it needs no room for what hangs below the line.
    return role == FontRole::score ? qRound(designed) : qMax(qRound(designed), qCeil(natural));
}

int heightFor(int height, FontRole role, int lines) {
    const double line = QFontMetricsF(fontFor(role)).height();
    const double growth = lines * line * (1 - designPixelsOf(role) / pixelsOf(role));
    return qMax(qRound(height + growth), qCeil(lines * line));
}

int widthFor(int width) {
    constexpr double tolerated = 1.25;
    const double scale = pixelsOf(FontRole::body) / designPixelsOf(FontRole::body);
    return qRound(width * qMax(1.0, scale / tolerated));
}

} // namespace lexivore
