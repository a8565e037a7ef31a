// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/theme/style.h"

#include "ui/controls/field.h"
#include "ui/controls/focus_ring.h"
#include "ui/controls/switch.h"
#include "ui/theme/drawing.h"
#include "ui/theme/menu_drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>

namespace lexivore {

namespace {

constexpr int knobSize = 18;
constexpr int grooveThickness = 4;
constexpr int checkBoxSize = 18;
constexpr int leastThumb = 24;
constexpr int scrollBarExtent = metrics::scrollBarThickness + 2 * metrics::scrollBarInset;

bool isOn(const QStyleOption &option, QStyle::StateFlag flag) { return option.state.testFlag(flag); }

void drawField(QPainter &painter, const QStyleOption &option, const QWidget *widget) {
    const Theme &colours = theme();
    const bool isOff = widget != nullptr && looksDisabled(*widget);
    const bool hasFocus = isOn(option, QStyle::State_HasFocus);
    drawFrame(painter, option.rect, metrics::radius, isOff ? colours.pane : colours.field,
              hasFocus ? colours.focus : colours.borderStrong, hasFocus ? metrics::focusLine : metrics::line);
}

void drawCheckBox(QPainter &painter, const QStyleOption &option, const QWidget *widget) {
    const Theme &colours = theme();
    painter.save();
    if (widget != nullptr && looksDisabled(*widget)) {
        painter.setOpacity(0.5);
    }
    if (isOn(option, QStyle::State_On)) {
        fillRounded(painter, option.rect, 5, colours.accent);
        drawSymbol(painter, option.rect, u"checkmark", 14, colours.onAccent);
    } else {
        drawFrame(painter, option.rect, 5, colours.field, colours.switchOff);
    }
    painter.restore();
}

/// Where the handle and the groove of a scroll bar are. There are no buttons at its ends.
QRect scrollBarPart(const QStyleOptionSlider &bar, QStyle::SubControl part) {
    const bool isHorizontal = bar.orientation == Qt::Horizontal;
    const QRect groove = isHorizontal ? bar.rect.adjusted(metrics::scrollBarInset, 0, -metrics::scrollBarInset, 0)
                                      : bar.rect.adjusted(0, metrics::scrollBarInset, 0, -metrics::scrollBarInset);
    const int length = isHorizontal ? groove.width() : groove.height();
    const qint64 range = qint64(bar.maximum) - bar.minimum;
    const qint64 proportional = range > 0 ? qint64(length) * bar.pageStep / (range + bar.pageStep) : length;
    const int thumb = static_cast<int>(qBound(qint64(qMin(leastThumb, length)), proportional, qint64(length)));
    const int start =
        QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, length - thumb, bar.upsideDown);
    const auto piece = [&](int from, int size) {
        return isHorizontal ? QRect(groove.x() + from, groove.y(), size, groove.height())
                            : QRect(groove.x(), groove.y() + from, groove.width(), size);
    };
    QRect found;
    switch (part) {
    case QStyle::SC_ScrollBarGroove:
        found = groove;
        break;
    case QStyle::SC_ScrollBarSlider:
        found = piece(start, thumb);
        break;
    case QStyle::SC_ScrollBarSubPage:
        found = piece(0, start);
        break;
    case QStyle::SC_ScrollBarAddPage:
        found = piece(start + thumb, length - start - thumb);
        break;
    default:
        return {};
    }
    return QStyle::visualRect(bar.direction, bar.rect, found);
}

void drawScrollBar(QPainter &painter, const QStyleOptionSlider &bar) {
    if (bar.minimum >= bar.maximum) {
        return;
    }
    const QRect thumb = scrollBarPart(bar, QStyle::SC_ScrollBarSlider);
    const int inset = metrics::scrollBarInset;
    const QRect drawn =
        bar.orientation == Qt::Horizontal ? thumb.adjusted(0, inset, 0, -inset) : thumb.adjusted(inset, 0, -inset, 0);
    const bool isUsed =
        bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider) && isOn(bar, QStyle::State_MouseOver);
    fillRounded(painter, drawn, metrics::scrollBarThickness / 2.0,
                isUsed ? faded(theme().scrollThumb, 2) : theme().scrollThumb);
}

/// The knob runs from one end to the other.
QRect sliderPart(const QStyleOptionSlider &slider, QStyle::SubControl part) {
    const QRect &area = slider.rect;
    const int middle = area.center().y() + 1;
    if (part == QStyle::SC_SliderGroove) {
        return {area.x(), middle - knobSize / 2, area.width(), knobSize};
    }
    const int start = QStyle::sliderPositionFromValue(slider.minimum, slider.maximum, slider.sliderPosition,
                                                      area.width() - knobSize, slider.upsideDown);
    return {area.x() + start, middle - knobSize / 2, knobSize, knobSize};
}

void drawSlider(QPainter &painter, const QStyleOptionSlider &slider, const QWidget *widget) {
    const Theme &colours = theme();
    painter.save();
    if (widget != nullptr && looksDisabled(*widget)) {
        painter.setOpacity(0.5);
    }
    const QRectF knob = sliderPart(slider, QStyle::SC_SliderHandle);
    const QRectF groove(slider.rect.x(), knob.center().y() - grooveThickness / 2.0, slider.rect.width(),
                        grooveThickness);
    fillRounded(painter, groove, grooveThickness / 2.0, colours.track);
    QRectF done = groove;
    if (slider.upsideDown) {
        done.setLeft(knob.center().x());
    } else {
        done.setRight(knob.center().x());
    }
    fillRounded(painter, done, grooveThickness / 2.0, colours.accent);
    drawFrame(painter, knob, knobSize / 2.0, colours.onAccent,
              colours.isDark ? colours.onAccent : colours.borderStrong);
    painter.restore();
}

void polishTooltip(QWidget &tooltip) {
    tooltip.setPalette(paletteOf(theme()));
    tooltip.setFont(fontFor(FontRole::caption));
}

} // namespace

Style::Style() : QProxyStyle(QStringLiteral("Fusion")) {}

void Style::install(QApplication &application) {
    QApplication::setStyle(new Style);
    FocusRing::install(application);
}

void Style::polish(QPalette &palette) { palette = paletteOf(themeFor(palette)); }

void Style::polish(QWidget *widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QScrollBar *>(widget) != nullptr) {
        // There is no track: what lies beneath shows.
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
    } else if (widget->inherits("QTipLabel")) {
        polishTooltip(*widget);
    }
    if (widget->isWindow()) {
        widget->installEventFilter(this);
    }
}

bool Style::eventFilter(QObject *watched, QEvent *event) {
    const bool isNewFont = event->type() == QEvent::ApplicationFontChange;
    if (!isNewFont && event->type() != QEvent::ApplicationPaletteChange) {
        return QProxyStyle::eventFilter(watched, event);
    }
    if (watched->inherits("QTipLabel")) {
        // While a tooltip is in sight, the next one is shown in the same label.
        polishTooltip(*static_cast<QWidget *>(watched));
    } else if (isNewFont) {
        // Of a new font of the application only windows are told; what they contain may have a font that is made of it.
        for (QWidget *part : watched->findChildren<QWidget *>()) {
            if (!part->isWindow()) {
                QCoreApplication::sendEvent(part, event);
            }
        }
    }
    return QProxyStyle::eventFilter(watched, event);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const {
    switch (metric) {
    case PM_ScrollBarExtent:
        return scrollBarExtent;
    case PM_ScrollBarSliderMin:
        return leastThumb;
    case PM_ScrollView_ScrollBarSpacing:
    case PM_ScrollView_ScrollBarOverlap:
        return 0;
    case PM_SliderThickness:
    case PM_SliderControlThickness:
    case PM_SliderLength:
        return knobSize;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return checkBoxSize;
    case PM_CheckBoxLabelSpacing:
    case PM_LineEditIconMargin:
        return 8;
    case PM_TextCursorWidth:
        // A field draws its caret itself.
        return option != nullptr && qobject_cast<const Field *>(option->styleObject) != nullptr ? 0
                                                                                                : metrics::caretWidth;
    case PM_SplitterWidth:
        return metrics::line;
    case PM_ToolTipLabelFrameWidth:
        return 6;
    case PM_MenuPanelWidth:
        return metrics::line;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return menu::margin;
    case PM_MenuScrollerHeight:
        return menu::scrollerHeight;
    case PM_MenuBarHMargin:
        return 8;
    case PM_MenuBarVMargin:
    case PM_MenuBarItemSpacing:
    case PM_MenuBarPanelWidth:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Style::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                     QStyleHintReturn *returned) const {
    switch (hint) {
    case SH_ScrollBar_Transient:
        return 0;
    case SH_Slider_AbsoluteSetButtons:
        return Qt::LeftButton;
    case SH_Menu_SupportsSections:
    case SH_Menu_Scrollable: // or a long one stands in columns, of which some may be beyond the screen
    case SH_Menu_MouseTracking:
    case SH_MenuBar_MouseTracking:
        return 1;
    case SH_ToolTipLabel_Opacity:
        return 255;
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                              const QWidget *widget) const {
    switch (type) {
    case CT_LineEdit: {
        const QSize natural = QProxyStyle::sizeFromContents(type, option, size, widget);
        return {natural.width(), heightFor(metrics::controlHeight, FontRole::body)};
    }
    case CT_MenuItem:
        if (const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option)) {
            return menu::itemSize(*item);
        }
        break;
    case CT_MenuBarItem:
        return menu::barItemSize(size);
    default:
        break;
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

QRect Style::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const {
    // The field itself keeps two more pixels to the text.
    if (element == SE_LineEditContents) {
        return option->rect.adjusted(8, metrics::focusLine, -8, -metrics::focusLine);
    }
    // A switch has no box beside a text: assistive technology is to point at all of it.
    if (element == SE_CheckBoxClickRect && qobject_cast<const Switch *>(widget) != nullptr) {
        return option->rect;
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                            const QWidget *widget) const {
    if (const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option)) {
        if (control == CC_ScrollBar) {
            return scrollBarPart(*slider, part);
        }
        if (control == CC_Slider && slider->orientation == Qt::Horizontal &&
            (part == SC_SliderHandle || part == SC_SliderGroove)) {
            return sliderPart(*slider, part);
        }
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                          const QWidget *widget) const {
    switch (element) {
    case PE_FrameFocusRect:
    case PE_PanelScrollAreaCorner:
        return;
    case PE_PanelLineEdit:
        if (const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option); frame && frame->lineWidth > 0) {
            drawField(*painter, *option, widget);
        }
        return;
    case PE_IndicatorCheckBox:
        drawCheckBox(*painter, *option, widget);
        return;
    case PE_PanelMenu:
        painter->fillRect(option->rect, theme().raised);
        return;
    case PE_FrameMenu:
    case PE_PanelTipLabel:
        painter->fillRect(option->rect, theme().border);
        painter->fillRect(option->rect.adjusted(1, 1, -1, -1), theme().raised);
        return;
    case PE_PanelMenuBar:
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void Style::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                        const QWidget *widget) const {
    switch (element) {
    case CE_MenuItem:
        if (const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option)) {
            menu::drawItem(*painter, *item);
        }
        return;
    case CE_MenuBarItem:
        if (const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option)) {
            menu::drawBarItem(*painter, *item, widget);
        }
        return;
    case CE_MenuScroller:
        menu::drawScroller(*painter, *option);
        return;
    case CE_MenuEmptyArea:
        return;
    case CE_MenuBarEmptyArea:
        painter->fillRect(option->rect, theme().chrome);
        return;
    case CE_ToolBar:
        painter->fillRect(option->rect, theme().chrome);
        fillHairline(*painter, QRect(option->rect.bottomLeft(), option->rect.bottomRight()), theme().border);
        return;
    case CE_Splitter:
        painter->fillRect(option->rect, theme().pane); // the surface on one side of each
        fillHairline(*painter, option->rect, theme().border);
        return;
    default:
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                               const QWidget *widget) const {
    if (const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option)) {
        if (control == CC_ScrollBar) {
            drawScrollBar(*painter, *slider);
            return;
        }
        if (control == CC_Slider && slider->orientation == Qt::Horizontal) {
            drawSlider(*painter, *slider, widget);
            return;
        }
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

} // namespace lexivore
