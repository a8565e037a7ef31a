// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/empty_state.h"

#include "ui/controls/accessible_role.h"
#include "ui/icon.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QPainter>

namespace lexivore {

namespace {

constexpr int iconSize = 40;
constexpr int gap = 12;
constexpr int aboveTheMiddle = 24;

} // namespace

EmptyState::EmptyState(QWidget *column, QWidget *parent) : QWidget(parent), m_column(column) {
    setAccessibleRole(*this, QAccessible::StaticText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void EmptyState::show(const QString &icon, const QString &text) {
    m_icon = icon;
    m_text = text;
    setAccessibleName(text);
    setVisible(true);
    update();
}

void EmptyState::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QFont font = fontFor(FontRole::body);
    const QFontMetrics metrics(font);
    const int iconHeight = m_icon.isEmpty() ? 0 : iconSize + gap;
    const int centre = m_column->height() / 2 - mapTo(m_column, QPoint()).y() - aboveTheMiddle;
    int top = centre - (iconHeight + metrics.height()) / 2;
    if (!m_icon.isEmpty()) {
        painter.drawPixmap((width() - iconSize) / 2, top,
                           symbolPixmap(m_icon, iconSize, theme().text3, devicePixelRatioF()));
        top += iconHeight;
    }
    painter.setFont(font);
    painter.setPen(theme().text2);
    painter.drawText(QRect(0, top, width(), metrics.height()), Qt::AlignCenter, m_text);
}

} // namespace lexivore
