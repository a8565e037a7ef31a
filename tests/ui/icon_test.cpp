// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/icon.h"

#include "engine/catalog.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QSet>
#include <QSvgRenderer>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace lexivore {
namespace {

/// The symbols that views name themselves, beside those of the transformations and the categories.
const char *const namedByViews[] = {
    // toolbar, sidebar, list, editor and status bar
    "doc.on.clipboard", "doc.on.doc", "trash", "book.closed", "bookmark", "xmark.circle", "sidebar.right",
    "magnifyingglass", "xmark.circle.fill", "questionmark.circle", "star", "star.fill", "chevron.right", "chevron.down",
    "checkmark.circle.fill", "location", "character.cursor.ibeam", "character.textbox",
    "text.line.first.and.arrowtriangle.forward", "gearshape",
    // operations panel and sheets
    "square.stack", "1.square", "pause", "play", "list.bullet.rectangle", "line.3.horizontal", "book", "pencil",
    "checkmark",
    // analysis tools and their results
    "chart.bar.doc.horizontal", "chart.bar.fill", "clock.fill", "chart.line.uptrend.xyaxis", "textformat.abc",
    "character.book.closed", "list.bullet", "space", "text.quote", "doc.text", "book.fill", "mic.fill"};

QSet<QString> namesInUse() {
    QSet<QString> names(std::begin(namedByViews), std::end(namedByViews));
    for (const TransformationPointer &transformation : makeCatalog()) {
        names.insert(QString::fromStdString(transformation->icon()));
    }
    for (const TransformationCategory category : allTransformationCategories) {
        const std::string_view name = icon(category);
        names.insert(QString::fromUtf8(name.data(), qsizetype(name.size())));
    }
    return names;
}

QStringList drawnNames() {
    EXPECT_TRUE(hasSymbol(u"star"));
    QStringList names;
    for (const QString &file : QDir(QStringLiteral(":/symbols")).entryList()) {
        names << file.chopped(4);
    }
    return names;
}

QString fileOf(const QString &name) { return QStringLiteral(":/symbols/%1.svg").arg(name); }

/// The part of the picture that is not quite transparent.
QRect inkOf(const QImage &image, int leastAlpha = 1) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) >= leastAlpha) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

class EverySymbol : public testing::Test {
protected:
    const QStringList names = drawnNames();
};

TEST_F(EverySymbol, ThatTheProgramNamesIsDrawn) {
    for (const QString &name : namesInUse()) {
        EXPECT_TRUE(hasSymbol(name)) << qPrintable(name);
    }
}

TEST_F(EverySymbol, ThatIsDrawnIsNamedSomewhere) {
    const QSet<QString> used = namesInUse();
    for (const QString &name : names) {
        EXPECT_TRUE(used.contains(name)) << qPrintable(name);
    }
}

TEST_F(EverySymbol, IsWellFormedAndOnTheGrid) {
    ASSERT_FALSE(names.isEmpty());
    for (const QString &name : names) {
        const QSvgRenderer drawing(fileOf(name));
        EXPECT_TRUE(drawing.isValid()) << qPrintable(name);
        EXPECT_EQ(drawing.viewBoxF(), QRectF(0, 0, 24, 24)) << qPrintable(name);
    }
}

TEST_F(EverySymbol, KeepsToOneColourOneStrokeAndPlainShapes) {
    const QSet<QString> shapes = {"svg", "path", "circle", "ellipse", "rect"};
    const QSet<QString> paints = {"none", "#000000"};
    const QSet<QString> strokes = {"1.75", "1.25"}; // the thinner one for letters and signs a few pixels high
    const QSet<QString> geometry = {
        "xmlns", "width", "height", "viewBox", "stroke-linecap", "stroke-linejoin", "d", "cx", "cy", "r",
        "rx",    "ry",    "x",      "y",       "fill-rule"};
    for (const QString &name : names) {
        SCOPED_TRACE(qPrintable(name));
        QFile file(fileOf(name));
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        QXmlStreamReader xml(&file);
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement) {
                continue;
            }
            EXPECT_TRUE(shapes.contains(xml.name().toString())) << qPrintable(xml.name().toString());
            for (const QXmlStreamAttribute &attribute : xml.attributes()) {
                const QString key = attribute.name().toString();
                const QString value = attribute.value().toString();
                const bool isExpected =
                    key == QLatin1String("fill") || key == QLatin1String("stroke")
                        ? paints.contains(value)
                        : (key == QLatin1String("stroke-width") ? strokes.contains(value) : geometry.contains(key));
                EXPECT_TRUE(isExpected) << qPrintable(key) << "=" << qPrintable(value);
            }
        }
        EXPECT_FALSE(xml.hasError()) << qPrintable(xml.errorString());
    }
}

TEST_F(EverySymbol, DrawsSomethingWithinTheBoxFrom3To21) {
    constexpr int scale = 20;
    for (const QString &name : names) {
        const QImage image = symbolPixmap(name, 24 * scale, Qt::black, 1).toImage();
        const QRect ink = inkOf(image, 64);
        EXPECT_GE(qMax(ink.width(), ink.height()), 12 * scale) << qPrintable(name);
        EXPECT_TRUE(QRect(3 * scale - 1, 3 * scale - 1, 18 * scale + 2, 18 * scale + 2).contains(ink))
            << qPrintable(name) << " " << ink.left() / 20.0 << " " << ink.top() / 20.0 << " " << ink.right() / 20.0
            << " " << ink.bottom() / 20.0;
    }
}

TEST_F(EverySymbol, StandsInTheMiddle) {
    // Pointing and badged symbols lean by up to this much; everything else is nearer.
    constexpr qreal leaning = 1.3;
    constexpr int scale = 20;
    for (const QString &name : names) {
        const QRect ink = inkOf(symbolPixmap(name, 24 * scale, Qt::black, 1).toImage(), 64);
        EXPECT_NEAR((ink.left() + ink.right() + 1) / 2.0 / scale, 12, leaning) << qPrintable(name);
        EXPECT_NEAR((ink.top() + ink.bottom() + 1) / 2.0 / scale, 12, leaning) << qPrintable(name);
    }
}

TEST_F(EverySymbol, LooksUnlikeEveryOtherOne) {
    for (int size : {14, 20}) {
        QList<QImage> seen;
        for (const QString &name : names) {
            const QImage image = symbolPixmap(name, size, Qt::black, 1).toImage();
            EXPECT_FALSE(seen.contains(image)) << qPrintable(name) << " at " << size;
            seen << image;
        }
    }
}

TEST_F(EverySymbol, HasAsMuchInkWhenItIsSmall) {
    const auto inkAmount = [](const QString &name, int size) {
        const QImage image = symbolPixmap(name, size, Qt::black, 1).toImage();
        qreal sum = 0;
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                sum += qAlpha(image.pixel(x, y)) / 255.0;
            }
        }
        return sum / (size * size);
    };
    for (const QString &name : names) {
        const qreal whole = inkAmount(name, 240);
        for (const int size : {12, 14, 16, 18, 20}) {
            EXPECT_NEAR(inkAmount(name, size) / whole, 1, 0.06) << qPrintable(name) << " at " << size;
        }
    }
}

TEST_F(EverySymbol, HasOnlyTheAskedColour) {
    const QColor colour(68, 74, 184);
    for (const QString &name : names) {
        const QImage image = symbolPixmap(name, 20, colour, 2).toImage().convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (pixel.alpha() > 200) {
                    ASSERT_NEAR(pixel.red(), colour.red(), 1) << qPrintable(name);
                    ASSERT_NEAR(pixel.green(), colour.green(), 1) << qPrintable(name);
                    ASSERT_NEAR(pixel.blue(), colour.blue(), 1) << qPrintable(name);
                }
            }
        }
    }
}

TEST(SymbolPixmap, HasTheDevicePixelsOfTheScreen) {
    for (const auto &[ratio, side] :
         {std::pair(1.0, 20), std::pair(1.25, 25), std::pair(1.5, 30), std::pair(2.0, 40)}) {
        const QPixmap pixmap = symbolPixmap(u"gearshape", 20, Qt::black, ratio);
        EXPECT_EQ(pixmap.size(), QSize(side, side));
        EXPECT_EQ(pixmap.devicePixelRatio(), ratio);
        // Drawn at that size, not scaled up to it: the same as the plain symbol of so many pixels.
        QImage image = pixmap.toImage();
        image.setDevicePixelRatio(1);
        EXPECT_EQ(image, symbolPixmap(u"gearshape", side, Qt::black, 1).toImage());
    }
}

TEST(SymbolPixmap, KeepsItsExactSizeBetweenWholeDevicePixels) {
    const QPixmap pixmap = symbolPixmap(u"minus.circle", 14, Qt::black, 1.25); // 17.5 device pixels
    EXPECT_EQ(pixmap.size(), QSize(18, 18));
    const QRect ink = inkOf(pixmap.toImage(), 32);
    EXPECT_EQ(ink.left(), 2);
    EXPECT_EQ(ink.right(), 15);
}

TEST(SymbolPixmap, ShowsNoOverlapsInATranslucentColour) {
    const QImage image = symbolPixmap(u"number", 240, QColor(0, 0, 0, 128), 1).toImage();
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            most = qMax(most, qAlpha(image.pixel(x, y)));
        }
    }
    EXPECT_EQ(most, 128);
}

TEST(SymbolPixmap, IsDrawnOnceAndThenRemembered) {
    const QPixmap first = symbolPixmap(u"trash", 20, Qt::red, 1);
    EXPECT_EQ(symbolPixmap(u"trash", 20, Qt::red, 1).cacheKey(), first.cacheKey());
    EXPECT_NE(symbolPixmap(u"trash", 20, Qt::blue, 1).cacheKey(), first.cacheKey());
    EXPECT_NE(symbolPixmap(u"trash", 18, Qt::red, 1).cacheKey(), first.cacheKey());
    EXPECT_NE(symbolPixmap(u"trash", 20, Qt::red, 2).cacheKey(), first.cacheKey());
    EXPECT_NE(symbolPixmap(u"pencil", 20, Qt::red, 1).cacheKey(), first.cacheKey());
}

TEST(SymbolPixmap, ShowsAnEmptyRoundedSquareForAnUnknownName) {
    for (const char *name : {"no.such.symbol", "", "..", "../star", "a b", "star.svg", "\xC3\xA9"}) {
        EXPECT_FALSE(hasSymbol(name)) << name;
        const QImage image = symbolPixmap(name, 24, Qt::black, 1).toImage();
        EXPECT_EQ(inkOf(image, 64), QRect(3, 3, 18, 18)) << name;
        EXPECT_EQ(qAlpha(image.pixel(12, 12)), 0) << name;
        EXPECT_EQ(qAlpha(image.pixel(3, 3)), 0) << name;
    }
}

TEST(SymbolPixmap, IsNullWithoutASize) {
    EXPECT_TRUE(symbolPixmap(u"star", 0, Qt::black, 1).isNull());
    EXPECT_TRUE(symbolPixmap(u"star", -3, Qt::black, 1).isNull());
    EXPECT_TRUE(favoriteStarPixmap(0, Qt::black, Qt::black, 1).isNull());
}

TEST(SymbolPixmap, CutsTheSignOutOfASolidSymbol) {
    const auto alphaAt = [](const char *name, int x, int y) {
        return qAlpha(symbolPixmap(name, 240, Qt::black, 1).toImage().pixel(x * 10, y * 10));
    };
    EXPECT_EQ(alphaAt("xmark.circle.fill", 12, 12), 0);
    EXPECT_EQ(alphaAt("xmark.circle.fill", 12, 5), 255);
    EXPECT_EQ(alphaAt("clock.fill", 12, 9), 0);
    EXPECT_EQ(alphaAt("clock.fill", 8, 14), 255);
    EXPECT_EQ(alphaAt("checkmark.circle.fill", 11, 15), 0);
    EXPECT_EQ(alphaAt("number.square.fill", 12, 12), 255);
    EXPECT_EQ(alphaAt("number.square.fill", 12, 9), 0);
}

TEST(FavoriteStar, IsFilledWithOneColourAndOutlinedWithTheOther) {
    const QImage image = favoriteStarPixmap(48, Qt::yellow, Qt::darkRed, 1).toImage();
    EXPECT_EQ(image.pixelColor(24, 26), QColor(Qt::yellow));
    bool hasEdge = false;
    for (int y = 0; y < 24 && !hasEdge; ++y) {
        hasEdge = image.pixelColor(24, y) == QColor(Qt::darkRed);
    }
    EXPECT_TRUE(hasEdge);
    EXPECT_EQ(qAlpha(image.pixel(1, 1)), 0);
}

TEST(SymbolIcon, DrawsEachSizeAfreshAndDimsWhenDisabled) {
    const QIcon icon = symbolIcon(u"pencil", Qt::red, Qt::gray);
    ASSERT_FALSE(icon.isNull());
    const QPixmap sharp = icon.pixmap(QSize(20, 20), 2.0);
    EXPECT_EQ(sharp.size(), QSize(40, 40));
    EXPECT_EQ(sharp.devicePixelRatio(), 2.0);
    EXPECT_EQ(icon.pixmap(QSize(16, 16), 1.0).toImage(), symbolPixmap(u"pencil", 16, Qt::red, 1).toImage());
    EXPECT_EQ(icon.pixmap(QSize(16, 16), 1.0, QIcon::Disabled).toImage(),
              symbolPixmap(u"pencil", 16, Qt::gray, 1).toImage());
}

TEST(SymbolIcon, PaintsItselfInTheMiddleOfARectangle) {
    QImage canvas(40, 20, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    symbolIcon(u"minus.circle", Qt::black, Qt::gray).paint(&painter, canvas.rect());
    painter.end();
    const QRect ink = inkOf(canvas);
    EXPECT_EQ(ink.left() + ink.right(), 39);
    EXPECT_EQ(ink.top() + ink.bottom(), 19);
}

TEST(ApplicationIcon, IsAnAccentSquareWithFourWhiteLinesAndABite) {
    const QImage image = applicationIcon().pixmap(QSize(128, 128), 1.0).toImage();
    ASSERT_EQ(image.size(), QSize(128, 128));
    EXPECT_EQ(image.pixelColor(16, 64), QColor(0x4F, 0x55, 0xCC));
    EXPECT_EQ(qAlpha(image.pixel(104, 24)), 0);   // bitten off
    EXPECT_EQ(qAlpha(image.pixel(24, 104)), 255); // the opposite corner is whole
    int lines = 0;
    for (int y = 1; y < 128; ++y) {
        lines += image.pixelColor(40, y) == QColor(Qt::white) && image.pixelColor(40, y - 1) != QColor(Qt::white);
    }
    EXPECT_EQ(lines, 4);
}

TEST(ApplicationIcon, ComesInEverySizeOfADesktop) {
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        EXPECT_EQ(applicationIcon().actualSize(QSize(size, size)), QSize(size, size));
    }
}

} // namespace
} // namespace lexivore

int main(int argc, char *argv[]) {
    const QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
