// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/status_item.h"

#include "ui/controls/accessible_role.h"
#include "ui/icon.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QPainter>
#include <QtMath>

namespace lexivore {

namespace {

constexpr int iconSize = 14;
constexpr int gap = 6;

} // namespace

StatusItem::StatusItem(const QString &icon, const QString &help, QWidget *parent)
    : QWidget(parent), m_icon(icon), m_help(help) {
    setToolTip(help);
    setAccessibleRole(*this, QAccessible::StaticText);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Expanding);
}

void StatusItem::setText(const QString &text) {
    if (m_text == text) {
        return;
    }
    m_text = text;
    setAccessibleName(m_help + ": " + text);
    updateGeometry();
    update();
}

QSize StatusItem::sizeHint() const {
    const QFontMetricsF metrics(fontFor(FontRole::caption));
    return {iconSize + gap + qCeil(metrics.horizontalAdvance(m_text)), qCeil(metrics.height())};
}

QSize StatusItem::minimumSizeHint() const { return {iconSize, sizeHint().height()}; }

void StatusItem::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QColor colour = theme().text2;
    painter.drawPixmap(0, (height() - iconSize) / 2, symbolPixmap(m_icon, iconSize, colour, devicePixelRatioF()));
    painter.setFont(fontFor(FontRole::caption));
    painter.setPen(colour);
    const int room = width() - iconSize - gap;
    const bool fits = width() >= sizeHint().width();
    painter.drawText(rect().adjusted(iconSize + gap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fits ? m_text : painter.fontMetrics().elidedText(m_text, Qt::ElideRight, room));
}

} // namespace lexivore
