// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/sheet.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/push_button.h"
#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

namespace lexivore {

namespace {

int heightOf(const QWidget &part, int width) {
    const QLayout *layout = part.layout();
    const int wanted =
        layout->hasHeightForWidth() ? layout->totalHeightForWidth(width) : layout->totalSizeHint().height();
    return qBound(part.minimumHeight(), wanted, part.maximumHeight());
}

} // namespace

Sheet::Sheet(const QString &title, int width, QWidget *parent)
    : QWidget(parent), m_width(width), m_parts(new QVBoxLayout(this)), m_scrollArea(new QScrollArea(this)) {
    setAccessibleRole(*this, QAccessible::Dialog);
    setAccessibleModal(*this);
    setAccessibleName(title);
    // Clicks on the sheet stay there, and take the focus from no field.
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_NoMousePropagation);

    auto *content = new QWidget;
    m_body = new QVBoxLayout(content);
    m_body->setSpacing(0);
    m_body->setContentsMargins({});
    m_scrollArea->setWidget(content);
    // The corners are round: only the sheet itself paints the ground.
    content->setAutoFillBackground(false);
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    m_scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->setFocusPolicy(Qt::NoFocus);
    m_scrollArea->viewport()->setAutoFillBackground(false);

    m_parts->setSpacing(0);
    m_parts->setContentsMargins(metrics::line, metrics::line, metrics::line, metrics::line);
    m_parts->addWidget(m_scrollArea, 1);
    watch(*content);
}

void Sheet::addAboveBody(QWidget *part) {
    m_parts->insertWidget(m_parts->indexOf(m_scrollArea), part);
    part->stackUnder(m_scrollArea); // in this order assistive technology reads
    m_fixedParts << part;
    watch(*part);
}

void Sheet::addBelowBody(QWidget *part) {
    m_parts->addWidget(part);
    m_fixedParts << part;
    watch(*part);
}

void Sheet::watch(QWidget &part) { part.installEventFilter(this); }

QSize Sheet::sizeWithin(const QSize &available) const {
    const int width = qMin(widthFor(m_width), available.width());
    const int wanted = qMax(m_leastHeight, qMin(naturalHeight(width), m_greatestHeight));
    return {width, qMin(wanted, available.height())};
}

int Sheet::naturalHeight(int width) const {
    const int inner = width - 2 * metrics::line;
    int height = heightOf(*m_scrollArea->widget(), inner) + 2 * metrics::line;
    for (const QWidget *part : m_fixedParts) {
        height += heightOf(*part, inner);
    }
    return height;
}

void Sheet::takeFocus() {
    for (QWidget *next = nextInFocusChain(); next != this; next = next->nextInFocusChain()) {
        if (isAncestorOf(next) && next->isEnabled() && (next->focusPolicy() & Qt::TabFocus) != 0) {
            next->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

void Sheet::dismiss() { emit dismissed(); }

QWidget *Sheet::buttonRow(const QList<PushButton *> &buttons) {
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->setSpacing(metrics::buttonGap);
    layout->addStretch();
    for (PushButton *button : buttons) {
        layout->addWidget(button);
    }
    return row;
}

bool Sheet::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::LayoutRequest) {
        emit sizeChanged();
    }
    return QWidget::eventFilter(watched, event);
}

void Sheet::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (auto *button = qobject_cast<QAbstractButton *>(window()->focusWidget()); button && isAncestorOf(button)) {
            button->click();
        } else {
            confirm();
        }
        break;
    case Qt::Key_Escape:
        cancel();
        break;
    default:
        if (!scroll(event->key())) {
            QWidget::keyPressEvent(event);
        }
    }
}

bool Sheet::scroll(int key) {
    QScrollBar *bar = m_scrollArea->verticalScrollBar();
    switch (key) {
    case Qt::Key_PageUp:
        bar->triggerAction(QScrollBar::SliderPageStepSub);
        return true;
    case Qt::Key_PageDown:
        bar->triggerAction(QScrollBar::SliderPageStepAdd);
        return true;
    case Qt::Key_Home:
        bar->triggerAction(QScrollBar::SliderToMinimum);
        return true;
    case Qt::Key_End:
        bar->triggerAction(QScrollBar::SliderToMaximum);
        return true;
    default:
        return false;
    }
}

void Sheet::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    drawFrame(painter, rect(), metrics::sheetRadius, theme().pane, theme().sheetBorder);
}

} // namespace lexivore
