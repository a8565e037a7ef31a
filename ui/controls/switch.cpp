// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/switch.h"

#include "ui/controls/focus_ring.h"
#include "ui/theme/drawing.h"
#include "ui/theme/theme.h"

#include <QPainter>

namespace lexivore {

namespace {

constexpr QSize trackSize(36, 20);
constexpr int knobInset = 2;

} // namespace

Switch::Switch(const QString &name, QWidget *parent) : QCheckBox(parent) {
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::TabFocus);
    setFocusShape(*this, {FocusShape::Placement::outside, trackSize.height() / 2});
}

QSize Switch::sizeHint() const { return trackSize; }

bool Switch::hitButton(const QPoint &position) const { return rect().contains(position); }

void Switch::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    if (looksDisabled(*this)) {
        painter.setOpacity(0.5);
    }
    const bool isAtRight = isChecked() != (layoutDirection() == Qt::RightToLeft);
    const double radius = height() / 2.0;
    fillRounded(painter, rect(), radius, isChecked() ? theme().accent : theme().switchOff);
    const int knob = height() - 2 * knobInset;
    const QRectF place(isAtRight ? width() - knob - knobInset : knobInset, knobInset, knob, knob);
    fillRounded(painter, place, knob / 2.0, theme().onAccent);
}

} // namespace lexivore
