// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// Draws every symbol at several sizes, light and dark, into one picture to look at:
//     icon_sheet PICTURE [DEVICE_PIXEL_RATIO [PART_OF_A_NAME...]]
#include "ui/icon.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTextStream>

using namespace lexivore;

namespace {

constexpr int sizes[] = {12, 14, 16, 18, 20, 48};
constexpr int padding = 8;
constexpr int columns = 6;
constexpr QSize cell(236, 80);

struct Look {
    QColor ground;
    QColor ink;
    QColor starFill;
    QColor starEdge;
};

void drawCell(QPainter &painter, QPoint corner, const QString &name, const Look &look) {
    painter.setPen(look.ink);
    painter.drawText(QRect(corner, cell).adjusted(padding, 4, 0, 0), Qt::AlignTop, name);
    const int middle = corner.y() + 50;
    int x = corner.x() + padding;
    for (const int size : sizes) {
        const qreal ratio = painter.device()->devicePixelRatioF();
        const QPixmap pixmap = name == QLatin1String("favorite")
                                   ? favoriteStarPixmap(size, look.starFill, look.starEdge, ratio)
                                   : symbolPixmap(name, size, look.ink, ratio);
        painter.drawPixmap(x, middle - size / 2, pixmap);
        x += size + 2 * padding;
    }
}

bool matches(const QString &name, const QStringList &parts) {
    return parts.isEmpty() ||
           std::any_of(parts.begin(), parts.end(), [&](const QString &part) { return name.contains(part); });
}

} // namespace

int main(int argc, char *argv[]) {
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 2) {
        QTextStream(stderr) << "usage: icon_sheet PICTURE [DEVICE_PIXEL_RATIO [PART_OF_A_NAME...]]\n";
        return 2;
    }
    const qreal ratio = arguments.size() > 2 ? arguments.at(2).toDouble() : 1;

    QStringList names;
    (void)hasSymbol(u"star"); // The resource is there once the library has been asked for something.
    for (const QString &file : QDir(QStringLiteral(":/symbols")).entryList()) {
        names << file.chopped(4);
    }
    names << QStringLiteral("favorite") << QStringLiteral("no.such.symbol");
    names.removeIf([&](const QString &name) { return !matches(name, arguments.mid(3)); });

    const Look looks[] = {
        {QColor(u"#F8F8FA"), QColor(u"#444AB8"), QColor(u"#F0AE00"), QColor(u"#946200")},
        {QColor(u"#212126"), QColor(u"#B4B4C1"), QColor(u"#F4C544"), QColor(u"#F4C544")},
    };
    const int rows = (int(names.size()) + columns - 1) / columns;
    const QSize half(columns * cell.width(), rows * cell.height());
    QImage sheet(QSizeF(half.width() * ratio, 2 * half.height() * ratio).toSize(), QImage::Format_RGB32);
    sheet.setDevicePixelRatio(ratio);
    QPainter painter(&sheet);
    int top = 0;
    for (const Look &look : looks) {
        painter.fillRect(QRect(QPoint(0, top), half), look.ground);
        for (int i = 0; i < names.size(); ++i) {
            const QPoint corner(i % columns * cell.width(), top + i / columns * cell.height());
            drawCell(painter, corner, names.at(i), look);
        }
        top += half.height();
    }
    painter.end();
    if (!sheet.save(arguments.at(1))) {
        QTextStream(stderr) << "icon_sheet: cannot write " << arguments.at(1) << '\n';
        return 1;
    }
    return 0;
}
