// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/row_column.h"

#include "ui/controls/scrolling_pointer.h"
#include "ui/window/row_accessibility.h"
#include "ui/window/row_button.h"

#include <QEvent>
#include <QLayout>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace lexivore {

RowColumn::RowColumn(const QString &name, QWidget *parent) : QWidget(parent) {
    installRowAccessibility();
    setAccessibleName(name);
}

void RowColumn::standIn(QScrollArea &area, const QMargins &margins) {
    m_area = &area;
    m_scrollBar = area.verticalScrollBar();
    m_margins = margins;
    m_scrollBar->installEventFilter(this);
    area.setFrameShape(QFrame::NoFrame);
    area.setWidgetResizable(true);
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.setFocusPolicy(Qt::NoFocus);
    area.setWidget(this);
    pointAtWhatScrolls(area);
    area.viewport()->setAutoFillBackground(false);
    setAutoFillBackground(false);
    placeRows();
}

void RowColumn::showWhenFocused(RowButton &row) {
    connect(&row, &RowButton::focusChanged, this, [this, &row](bool focused) {
        if (focused) {
            m_area->ensureWidgetVisible(&row, 0, 0);
        }
    });
}

void RowColumn::placeRows() {
    const int taken = m_scrollBar->isVisible() ? m_scrollBar->sizeHint().width() : 0;
    layout()->setContentsMargins(m_margins.left(), m_margins.top(), std::max(0, m_margins.right() - taken),
                                 m_margins.bottom());
}

bool RowColumn::eventFilter(QObject *watched, QEvent *event) {
    if (watched == m_scrollBar && (event->type() == QEvent::Show || event->type() == QEvent::Hide)) {
        placeRows();
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace lexivore
