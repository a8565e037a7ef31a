// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/section_header.h"

#include "ui/icon.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QPainter>

namespace lexivore {

namespace {

constexpr int padding = 12;
constexpr int chevronSize = 12;
constexpr qreal quarterTurn = 90;

} // namespace

SectionHeader::SectionHeader(const QString &title, QWidget *parent) : RowButton(parent) { setText(title); }

void SectionHeader::setDisclosure(qreal disclosure) {
    m_disclosure = disclosure;
    update();
}

void SectionHeader::addState(QAccessible::State &state) const {
    state.expandable = true;
    state.expanded = m_disclosure > 0;
    state.collapsed = m_disclosure <= 0;
}

QSize SectionHeader::sizeHint() const { return {0, heightFor(32, FontRole::sectionTitle)}; }

void SectionHeader::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setFont(fontFor(FontRole::sectionTitle));
    painter.setPen(theme().text2);
    painter.drawText(rect().adjusted(padding, 0, -padding - chevronSize, 0), Qt::AlignLeft | Qt::AlignVCenter, text());

    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(width() - padding - chevronSize / 2.0, height() / 2.0);
    painter.rotate(m_disclosure * quarterTurn);
    const QPixmap chevron = symbolPixmap("chevron.right", chevronSize, theme().text2, devicePixelRatioF());
    painter.drawPixmap(QPointF(-chevronSize / 2.0, -chevronSize / 2.0), chevron);
}

} // namespace lexivore
