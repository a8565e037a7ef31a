// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// Draws the application's icon for the sizes of the icon theme: render_icon DRAWING SIZE PICTURE
#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int argc, char *argv[]) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        qCritical("usage: render_icon DRAWING SIZE PICTURE");
        return 2;
    }
    QSvgRenderer drawing(arguments[1]);
    const int size = arguments[2].toInt();
    if (!drawing.isValid() || size <= 0) {
        qCritical("cannot draw %s at this size", qPrintable(arguments[1]));
        return 1;
    }
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    return picture.save(arguments[3], "PNG") ? 0 : 1;
}
