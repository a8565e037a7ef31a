// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/tool_button.h"

#include "ui/controls/focus_ring.h"
#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

#include <QPainter>
#include <QStyle>

namespace lexivore {

namespace {

constexpr int chevronSize = 12;

} // namespace

ToolButton::ToolButton(const QString &symbol, const QString &help, Size size, QWidget *parent)
    : QToolButton(parent), m_symbol(symbol), m_size(size) {
    setHelp(help);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    const int radius = size.button >= toolBar.button ? metrics::radius : metrics::smallButtonRadius;
    setFocusShape(*this, {FocusShape::Placement::inside, radius});
}

void ToolButton::setSymbol(const QString &name) {
    m_symbol = name;
    update();
}

void ToolButton::setHelp(const QString &help) {
    setToolTip(help);
    setAccessibleName(help);
}

void ToolButton::setOpacity(double opacity) {
    m_opacity = opacity;
    update();
}

QSize ToolButton::sizeHint() const { return {m_size.button + (menu() != nullptr ? chevronSize : 0), m_size.button}; }

void ToolButton::leaveEvent(QEvent *event) {
    QToolButton::leaveEvent(event);
    update(); // of its own accord the toolkit does not draw it anew while a menu is open
}

void ToolButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setOpacity(m_opacity);
    const Theme &colours = theme();
    const double radius = focusShape(*this).radius;
    QColor symbol = colours.text2;
    if (looksDisabled(*this)) {
        symbol = colours.textOff;
    } else if (isChecked()) {
        fillRounded(painter, rect(), radius, colours.accentWash);
        symbol = colours.accentText;
    } else if (isDown()) {
        fillRounded(painter, rect(), radius, colours.toolPress);
        symbol = colours.text;
    } else if (underMouse() && isEnabled()) {
        fillRounded(painter, rect(), radius, colours.toolHover);
        symbol = colours.text;
    }
    const bool hasMenu = menu() != nullptr;
    QRect place = rect();
    if (hasMenu) {
        const QRect arrow(width() - chevronSize - 6, 0, chevronSize, height());
        drawSymbol(painter, QStyle::visualRect(layoutDirection(), rect(), arrow), u"chevron.down", chevronSize, symbol);
        place.setWidth(m_size.button);
        place = QStyle::visualRect(layoutDirection(), rect(), place);
    }
    drawSymbol(painter, place, m_symbol, m_size.symbol, symbol);
}

} // namespace lexivore
