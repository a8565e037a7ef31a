// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/category_button.h"

#include "manager/text_conversion.h"
#include "ui/icon.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"
#include "ui/translation.h"
#include "ui/window/row_accessibility.h"

#include <QPainter>
#include <QtMath>

namespace lexivore {

namespace {

constexpr int horizontalPadding = 12;
constexpr int iconFrame = 20;
constexpr int symbolSize = 18;
constexpr int iconGap = 10;

} // namespace

CategoryButton::CategoryButton(TransformationCategory category, QWidget *parent)
    : RowButton(parent), m_category(category) {
    setText(translated(rawValue(category)));
    setObjectName("category." + toQString(rawValue(category)));
    setCheckable(true);
}

void CategoryButton::setSelected(bool selected) {
    if (isChecked() != selected) {
        setChecked(selected);
        announceSelection(*this);
    }
}

QSize CategoryButton::sizeHint() const {
    const QFontMetricsF callout(fontFor(FontRole::callout));
    return {2 * horizontalPadding + iconFrame + iconGap + qCeil(callout.horizontalAdvance(text())),
            heightFor(34, FontRole::body)};
}

QSize CategoryButton::minimumSizeHint() const { return {0, sizeHint().height()}; }

void CategoryButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    if (isSelected()) {
        paintBackground(painter, theme().accent);
    } else if (isDown() || isHovered()) {
        paintBackground(painter, isDown() ? theme().rowPress : theme().rowHover);
    }
    const QRect frame(horizontalPadding, 0, iconFrame, height());
    const QColor iconColour = isSelected() ? theme().onAccent : theme().text2;
    const QPixmap symbol = symbolPixmap(QAnyStringView(toQString(lexivore::icon(m_category))), symbolSize, iconColour,
                                        devicePixelRatioF());
    painter.drawPixmap(frame.center() - QPoint(symbolSize / 2 - 1, symbolSize / 2 - 1), symbol);

    painter.setFont(nameFont());
    painter.setPen(isSelected() ? theme().onAccent : theme().text);
    painter.drawText(textRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, textRect().width()));
}

void CategoryButton::resizeEvent(QResizeEvent *event) {
    RowButton::resizeEvent(event);
    const bool isElided = QFontMetricsF(fontFor(FontRole::callout)).horizontalAdvance(text()) > textRect().width();
    setToolTip(isElided ? text() : QString());
}

QFont CategoryButton::nameFont() const { return fontFor(isSelected() ? FontRole::callout : FontRole::body); }

QRect CategoryButton::textRect() const {
    const int left = horizontalPadding + iconFrame + iconGap;
    return {left, 0, width() - left - horizontalPadding, height()};
}

} // namespace lexivore
