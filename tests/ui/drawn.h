// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/icon.h"

#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <cstdlib>
#include <optional>

namespace lexivore::test {

/// The text in a box as high as its letters, as a widget would draw it on this ground.
[[nodiscard]] inline QImage drawnText(const QString &text, const QFont &font, const QColor &colour,
                                      const QColor &ground = Qt::transparent) {
    const QFontMetrics letters(font);
    const QRect box = letters.tightBoundingRect(text);
    QImage drawn(letters.horizontalAdvance(text), box.height(), QImage::Format_ARGB32_Premultiplied);
    drawn.fill(ground);
    QPainter painter(&drawn);
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(0, -box.top(), text);
    return drawn;
}

[[nodiscard]] inline QImage drawnSymbol(QAnyStringView name, int size, const QColor &colour) {
    return symbolPixmap(name, size, colour, 1).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// Where `part` stands in `picture`, both premultiplied: its upper left corner. Nothing when it is not there.
[[nodiscard]] inline std::optional<QPoint> placeOf(const QImage &part, const QImage &picture) {
    constexpr int rounding = 3;
    const auto isSame = [](QRgb left, QRgb right) {
        return std::abs(qAlpha(left) - qAlpha(right)) <= rounding && std::abs(qRed(left) - qRed(right)) <= rounding &&
               std::abs(qGreen(left) - qGreen(right)) <= rounding && std::abs(qBlue(left) - qBlue(right)) <= rounding;
    };
    const auto pixel = [](const QImage &image, int x, int y) {
        return reinterpret_cast<const QRgb *>(image.constScanLine(y))[x];
    };
    const auto isAt = [&](int left, int top) {
        for (int y = 0; y < part.height(); ++y) {
            for (int x = 0; x < part.width(); ++x) {
                if (!isSame(pixel(part, x, y), pixel(picture, left + x, top + y))) {
                    return false;
                }
            }
        }
        return true;
    };
    for (int top = 0; top + part.height() <= picture.height(); ++top) {
        for (int left = 0; left + part.width() <= picture.width(); ++left) {
            if (isAt(left, top)) {
                return QPoint(left, top);
            }
        }
    }
    return std::nullopt;
}

/// The colour that something is drawn in: of its most solid pixel.
[[nodiscard]] inline QColor inkOf(const QImage &picture) {
    QColor ink(Qt::transparent);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            ink = pixel.alpha() > ink.alpha() ? pixel : ink;
        }
    }
    return ink;
}

} // namespace lexivore::test
