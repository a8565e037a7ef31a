// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/push_button.h"

#include "ui/controls/focus_ring.h"
#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QPainter>
#include <QStyle>

namespace lexivore {

namespace {

constexpr int padding = 16;
constexpr int symbolSize = 16;
constexpr int chevronSize = 12;
constexpr int chevronGap = 6;

/// Beside a word, the symbol keeps a distance to it.
int widthOfSymbol(const QString &symbol, const QString &text) {
    if (symbol.isEmpty()) {
        return 0;
    }
    return text.isEmpty() ? symbolSize : symbolSize + metrics::buttonGap;
}

struct Fill {
    QColor background;
    QColor border;
    QColor text;
};

Fill fillFor(PushButton::Kind kind, bool isPressed, bool isHovered) {
    const Theme &colours = theme();
    const auto shade = [&](const QColor &rest, const QColor &hover, const QColor &press) {
        return isPressed ? press : isHovered ? hover : rest;
    };
    switch (kind) {
    case PushButton::Kind::primary: {
        const QColor fill = shade(colours.accent, colours.accentHover, colours.accentPress);
        return {fill, fill, colours.onAccent};
    }
    case PushButton::Kind::destructive: {
        const QColor fill = shade(colours.danger, colours.dangerHover, colours.dangerPress);
        return {fill, fill, colours.onDanger};
    }
    case PushButton::Kind::plain:
        break;
    }
    return {shade(colours.button, colours.buttonHover, colours.buttonPress), colours.buttonBorder, colours.text};
}

} // namespace

PushButton::PushButton(const QString &text, Kind kind, QWidget *parent)
    : QPushButton(text, parent), m_kind(kind), m_leastWidth(metrics::leastButtonWidth) {
    setAttribute(Qt::WA_Hover);
    setFocusShape(*this, {FocusShape::Placement::outside, metrics::radius});
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void PushButton::setSymbol(const QString &name) {
    m_symbol = name;
    updateGeometry();
    update();
}

void PushButton::setLeastWidth(int width) {
    m_leastWidth = width;
    updateGeometry();
}

QSize PushButton::sizeHint() const {
    const int symbol = widthOfSymbol(m_symbol, text());
    const int text = QFontMetrics(fontFor(FontRole::callout)).size(Qt::TextShowMnemonic, this->text()).width();
    const int chevron = menu() != nullptr ? chevronGap + chevronSize : 0;
    return {qMax(m_leastWidth, text + symbol + chevron + 2 * padding),
            heightFor(metrics::controlHeight, FontRole::callout)};
}

void PushButton::leaveEvent(QEvent *event) {
    QPushButton::leaveEvent(event);
    update(); // of its own accord the toolkit does not draw it anew while a menu is open
}

void PushButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const Theme &colours = theme();
    const bool isHovered = underMouse() && isEnabled();
    Fill fill = fillFor(m_kind, isDown() || isChecked(), isHovered);
    if (looksDisabled(*this)) {
        fill = {Qt::transparent, colours.border, colours.textOff};
    }
    drawFrame(painter, rect(), metrics::radius, fill.background, fill.border);

    painter.setFont(fontFor(FontRole::callout));
    painter.setPen(fill.text);
    const QFontMetrics letters = painter.fontMetrics();
    const int symbol = widthOfSymbol(m_symbol, text());
    const int chevron = menu() != nullptr ? chevronGap + chevronSize : 0;
    const int width = qMin(letters.size(Qt::TextShowMnemonic, text()).width(), this->width() - symbol - chevron - 8);
    QRect content((this->width() - symbol - width - chevron) / 2, 0, symbol + width + 1, height());
    if (chevron > 0) {
        const QRect place(content.right() + chevronGap, 0, chevronSize, height());
        drawSymbol(painter, QStyle::visualRect(layoutDirection(), rect(), place), u"chevron.down", chevronSize,
                   fill.text);
    }
    if (symbol > 0) {
        const QRect place(content.x(), 0, symbolSize, height());
        drawSymbol(painter, QStyle::visualRect(layoutDirection(), rect(), place), m_symbol, symbolSize, fill.text);
        content.setLeft(content.x() + symbol);
    }
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), content),
                     Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic, text());
}

} // namespace lexivore
