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
};

constexpr RoleShape shapeOf(FontRole role) {
    switch (role) {
    case FontRole::score:
        return {3.8, 0, QFont::DemiBold};
    case FontRole::duration:
        return {2.6, 0, QFont::DemiBold};
    case FontRole::cardValue:
        return {1, 6, QFont::DemiBold};
    case FontRole::smallCardValue:
        return {1, 3, QFont::DemiBold};
    case FontRole::alertTitle:
        return {1, 2, QFont::DemiBold};
    case FontRole::headline:
        return {1, 1, QFont::DemiBold};
    case FontRole::body:
        return {1, 0, QFont::Normal};
    case FontRole::callout:
        return {1, 0, QFont::Medium};
    case FontRole::subheadline:
        return {1, -0.5, QFont::Normal};
    case FontRole::fieldLabel:
        return {1, -0.5, QFont::Medium};
    case FontRole::caption:
        return {1, -1, QFont::Normal};
    case FontRole::captionMedium:
        return {1, -1, QFont::Medium};
    case FontRole::sectionTitle:
        return {1, -1, QFont::DemiBold};
    case FontRole::smallCaption:
        return {1, -1.5, QFont::Normal};
    case FontRole::badge:
        return {1, -1.5, QFont::Bold};
    }
    return {1, 0, QFont::Normal};
}

double pointsOf(FontRole role, double systemPoints) {
    const RoleShape shape = shapeOf(role);
    return qMax(1.0, systemPoints * shape.factor + shape.morePoints);
}

/// A system font may be given in pixels.
double systemPoints() {
    const QFont font = QGuiApplication::font();
    return font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
}

} // namespace

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

int heightFor(int height, FontRole role, int lines) {
    const QScreen *screen = QGuiApplication::primaryScreen();
    const double pixelsPerPoint = screen != nullptr ? screen->logicalDotsPerInchY() / 72 : designPixelsPerPoint;
    const double pixels = pointsOf(role, systemPoints()) * pixelsPerPoint;
    const double designPixels = pointsOf(role, designPoints) * designPixelsPerPoint;
    const double line = QFontMetricsF(fontFor(role)).height();
    const double growth = lines * line * (1 - designPixels / pixels);
    return qMax(qRound(height + growth), qCeil(lines * line));
}

} // namespace lexivore
