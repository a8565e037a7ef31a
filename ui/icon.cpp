// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/icon.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <QtMath>

#include <utility>

// Resources in a static library are linked, and registered, only if this is called, and from outside any namespace.
static void registerDrawings() { Q_INIT_RESOURCE(icons); }

namespace lexivore {

namespace {

constexpr qreal gridSize = 24;
constexpr qreal thinnestLine = 1.25; ///< On the grid.

QString symbolFile(QAnyStringView name) {
    registerDrawings();
    return QStringLiteral(":/symbols/%1.svg").arg(name.toString());
}

/// A transparent square, `side` device pixels wide.
QPixmap emptyCanvas(int side, qreal devicePixelRatio) {
    QPixmap canvas(side, side);
    canvas.setDevicePixelRatio(devicePixelRatio);
    canvas.fill(Qt::transparent);
    return canvas;
}

void drawUnknownSymbol(QPainter &painter, int size) {
    const qreal unit = size / gridSize;
    painter.setPen(QPen(Qt::black, 1.75 * unit));
    painter.drawRoundedRect(QRectF(4 * unit, 4 * unit, 16 * unit, 16 * unit), 3.5 * unit, 3.5 * unit);
}

/// The symbol in black, `size` device-independent pixels a side. With a fractional ratio the last row and column of
/// device pixels may stick out of it, so that the drawing keeps its exact size.
QPixmap drawStencil(QAnyStringView name, int size, qreal devicePixelRatio) {
    // The toolkit draws a line thinner than a device pixel as a staircase of single ones. Where there would be such
    // lines the symbol is drawn some whole times larger and made smaller.
    const int times = qCeil(gridSize / (thinnestLine * size * devicePixelRatio));
    const int side = qCeil(size * devicePixelRatio);
    QPixmap drawing = emptyCanvas(side * times, devicePixelRatio * times);
    QPainter painter(&drawing);
    painter.setRenderHint(QPainter::Antialiasing);
    if (hasSymbol(name)) {
        QSvgRenderer(symbolFile(name)).render(&painter, QRectF(0, 0, size, size));
    } else {
        drawUnknownSymbol(painter, size);
    }
    painter.end();
    if (times > 1) {
        drawing = drawing.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        drawing.setDevicePixelRatio(devicePixelRatio);
    }
    return drawing;
}

QPixmap drawSymbol(QAnyStringView name, int size, const QColor &colour, qreal devicePixelRatio) {
    QPixmap pixmap = drawStencil(name, size, devicePixelRatio);
    QPainter painter(&pixmap);
    // The drawing is a stencil: overlapping strokes of a translucent colour must not show.
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF(0, 0, size + 1, size + 1), colour);
    return pixmap;
}

QString cacheKey(QAnyStringView name, const QString &colours, int size, qreal devicePixelRatio) {
    return QStringLiteral("symbol %1 %2 %3 %4").arg(name.toString(), colours).arg(size).arg(devicePixelRatio);
}

/// What the cache holds under `key`, made by `draw` if it is not there.
template<typename Draw> QPixmap cached(const QString &key, const Draw &draw) {
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = draw();
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

class SymbolIconEngine final : public QIconEngine {
public:
    SymbolIconEngine(QString name, const QColor &colour, const QColor &disabledColour)
        : m_name(std::move(name)), m_colour(colour), m_disabledColour(disabledColour) {}

    QIconEngine *clone() const override { return new SymbolIconEngine(*this); }
    bool isNull() override { return false; }

    /// `size` is in device pixels; QIcon sets the ratio of what it gets.
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override {
        return symbolPixmap(m_name, qMin(size.width(), size.height()), colourOf(mode), 1);
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override {
        const int side = qMin(rect.width(), rect.height());
        const QPixmap symbol = symbolPixmap(m_name, side, colourOf(mode), painter->device()->devicePixelRatioF());
        painter->drawPixmap(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2, symbol);
    }

private:
    [[nodiscard]] QColor colourOf(QIcon::Mode mode) const {
        return mode == QIcon::Disabled ? m_disabledColour : m_colour;
    }

    QString m_name;
    QColor m_colour;
    QColor m_disabledColour;
};

} // namespace

bool hasSymbol(QAnyStringView name) { return QFile::exists(symbolFile(name)); }

QPixmap symbolPixmap(QAnyStringView name, int size, const QColor &colour, qreal devicePixelRatio) {
    if (size <= 0) {
        return {};
    }
    return cached(cacheKey(name, colour.name(QColor::HexArgb), size, devicePixelRatio),
                  [&] { return drawSymbol(name, size, colour, devicePixelRatio); });
}

QPixmap favoriteStarPixmap(int size, const QColor &fill, const QColor &edge, qreal devicePixelRatio) {
    if (size <= 0) {
        return {};
    }
    const auto draw = [&] {
        QPixmap star = drawSymbol(u"star.fill", size, fill, devicePixelRatio);
        QPainter(&star).drawPixmap(0, 0, drawSymbol(u"star", size, edge, devicePixelRatio));
        return star;
    };
    return cached(
        cacheKey(u"favorite", fill.name(QColor::HexArgb) + edge.name(QColor::HexArgb), size, devicePixelRatio), draw);
}

QIcon symbolIcon(QAnyStringView name, const QColor &colour, const QColor &disabledColour) {
    return QIcon(new SymbolIconEngine(name.toString(), colour, disabledColour));
}

QIcon applicationIcon() {
    registerDrawings();
    QSvgRenderer drawing(QStringLiteral(":/application/lexivore.svg"));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        QPixmap pixmap = emptyCanvas(size, 1);
        QPainter painter(&pixmap);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace lexivore
