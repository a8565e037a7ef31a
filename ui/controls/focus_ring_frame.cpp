// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/focus_ring_frame.h"

#include "ui/controls/focus_ring.h"
#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QEvent>
#include <QPainter>

namespace lexivore {

namespace {

/// What the ring is drawn on: the window, or the part of it that scrolls.
QWidget *groundUnder(const QWidget &widget) {
    QWidget *ground = widget.parentWidget();
    while (ground != nullptr && !ground->isWindow()) {
        const auto *area = qobject_cast<QAbstractScrollArea *>(ground->parentWidget());
        if (area != nullptr && area->viewport() == ground) {
            break;
        }
        ground = ground->parentWidget();
    }
    return ground;
}

int marginAround(const FocusShape &shape) {
    return shape.placement == FocusShape::Placement::outside ? metrics::focusGap + metrics::focusLine : 0;
}

} // namespace

FocusRingFrame::FocusRingFrame(QWidget &widget) : QFocusFrame(&widget) {
    setObjectName(QStringLiteral("focusRing"));
    hide();
}

void FocusRingFrame::follow(QWidget *widget) {
    watch(false);
    m_widget = widget;
    hide();
    QWidget *ground = widget != nullptr ? groundUnder(*widget) : nullptr;
    if (ground == nullptr) {
        return;
    }
    setParent(ground);
    watch(true);
    place();
}

void FocusRingFrame::watch(bool isWatching) {
    for (const QPointer<QWidget> &watched : std::as_const(m_watched)) {
        if (watched != nullptr) {
            watched->removeEventFilter(this);
        }
    }
    m_watched.clear();
    for (QWidget *next = m_widget; isWatching && next != nullptr && next != parentWidget();
         next = next->parentWidget()) {
        next->installEventFilter(this);
        m_watched << next;
    }
}

void FocusRingFrame::place() {
    const FocusShape shape = focusShape(*m_widget);
    const int margin = marginAround(shape);
    const QRect widget(m_widget->mapTo(parentWidget(), QPoint()), m_widget->size());
    const QRect surrounded = widget.adjusted(0, shape.inset, 0, -shape.inset);
    setGeometry(surrounded.adjusted(-margin, -margin, margin, margin));
    setVisible(m_widget->isVisible());
    raise();
}

bool FocusRingFrame::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        if (m_widget != nullptr) {
            place();
        }
        break;
    default:
        break;
    }
    // QFocusFrame would place the frame where it sees fit.
    return QWidget::eventFilter(watched, event); // NOLINT(bugprone-parent-virtual-call)
}

void FocusRingFrame::paintEvent(QPaintEvent *) {
    if (m_widget == nullptr) {
        return;
    }
    QPainter painter(this);
    const FocusShape shape = focusShape(*m_widget);
    const int line = metrics::focusLine;
    drawFrame(painter, rect(), shape.radius + marginAround(shape), Qt::transparent, theme().focus, line);
    const auto *button = qobject_cast<const QAbstractButton *>(m_widget);
    if (shape.isDoubledWhenChecked && button != nullptr && button->isChecked()) {
        drawFrame(painter, rect().adjusted(line, line, -line, -line), shape.radius - line, Qt::transparent,
                  theme().onAccent, line);
    }
}

} // namespace lexivore
