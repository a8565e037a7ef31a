// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

class QApplication;

namespace lexivore {

/// The program's look for the toolkit's own widgets: menus, scroll bars, fields, sliders, check boxes, tooltips.
///
/// It turns the system's palette into the theme's, light or dark, each time the system's palette changes. It draws no
/// focus marks, because `FocusRing` does.
class Style : public QProxyStyle {
    Q_OBJECT

public:
    Style();

    /// Makes it the application's style and gives the application its focus ring. Once, before the first window.
    static void install(QApplication &application);

    void polish(QPalette &palette) override;
    void polish(QWidget *widget) override;
    using QProxyStyle::polish;
    /// Of windows and tooltips: hands a new font of the application on to what the windows contain, and keeps the
    /// palette and the font that tooltips have of their own.
    bool eventFilter(QObject *watched, QEvent *event) override;

    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
};

} // namespace lexivore
