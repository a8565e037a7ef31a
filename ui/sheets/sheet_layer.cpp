// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/sheet_layer.h"

#include "ui/sheets/sheet.h"
#include "ui/theme/theme.h"

#include <QEvent>
#include <QFocusFrame>
#include <QPainter>

namespace lexivore {

namespace {

constexpr int leastDistanceToEdge = 16;

} // namespace

void SheetLayer::show(QWidget &window, Sheet *sheet) {
    auto *layer = new SheetLayer(window, sheet);
    layer->setGeometry(window.rect());
    layer->QWidget::show();
    layer->raise();
    // Only what is shown counts in the layouts.
    layer->place();
    sheet->takeFocus();
    layer->disableBeneath();
}

bool SheetLayer::isOver(const QWidget &window) {
    return window.findChild<SheetLayer *>(QString(), Qt::FindDirectChildrenOnly) != nullptr;
}

SheetLayer::SheetLayer(QWidget &window, Sheet *sheet)
    : QWidget(&window), m_sheet(sheet), m_focusBefore(window.focusWidget()) {
    setAttribute(Qt::WA_NoMousePropagation);
    sheet->setParent(this);
    window.installEventFilter(this);
    connect(sheet, &Sheet::dismissed, this, &SheetLayer::close);
    connect(sheet, &Sheet::sizeChanged, this, &SheetLayer::place);
}

void SheetLayer::disableBeneath() {
    for (QObject *child : parent()->children()) {
        auto *sibling = qobject_cast<QWidget *>(child);
        const bool isBeneath = sibling != nullptr && sibling != this && !sibling->isWindow();
        if (isBeneath && sibling->isEnabled() && qobject_cast<QFocusFrame *>(sibling) == nullptr) {
            sibling->setEnabled(false);
            m_disabled << sibling;
        }
    }
}

void SheetLayer::place() {
    const int margins = 2 * leastDistanceToEdge;
    const QSize wanted = m_sheet->sizeWithin(size() - QSize(margins, margins));
    m_sheet->setGeometry((width() - wanted.width()) / 2, (height() - wanted.height()) / 2, wanted.width(),
                         wanted.height());
}

void SheetLayer::close() {
    if (m_isClosing) {
        return;
    }
    m_isClosing = true;
    if (SheetLayer *above = layerAbove()) {
        above->m_disabled << m_disabled;
        above->m_focusBefore = m_focusBefore;
    } else {
        for (const QPointer<QWidget> &sibling : std::as_const(m_disabled)) {
            if (sibling != nullptr) {
                sibling->setEnabled(true);
            }
        }
        if (m_focusBefore != nullptr) {
            m_focusBefore->setFocus(Qt::OtherFocusReason);
        }
    }
    hide();
    // No longer found as the window's layer while it waits for its deletion.
    setParent(nullptr);
    deleteLater();
}

SheetLayer *SheetLayer::layerAbove() const {
    for (auto *layer : parent()->findChildren<SheetLayer *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (layer->m_disabled.contains(this)) {
            return layer;
        }
    }
    return nullptr;
}

bool SheetLayer::event(QEvent *event) {
    // The window's shortcuts are asleep: the key goes to the sheet instead.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
    }
    return QWidget::event(event);
}

bool SheetLayer::eventFilter(QObject *watched, QEvent *event) {
    if (watched == parent() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    }
    return QWidget::eventFilter(watched, event);
}

void SheetLayer::paintEvent(QPaintEvent *) { QPainter(this).fillRect(rect(), theme().scrim); }

void SheetLayer::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    place();
}

} // namespace lexivore
