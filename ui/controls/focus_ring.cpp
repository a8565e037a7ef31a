// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/focus_ring.h"

#include "ui/controls/focus_ring_frame.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QSlider>

namespace lexivore {

namespace {

constexpr char shapeProperty[] = "lexivoreFocusShape";

} // namespace

void setFocusShape(QWidget &widget, FocusShape shape) { widget.setProperty(shapeProperty, QVariant::fromValue(shape)); }

FocusShape focusShape(const QWidget &widget) {
    const QVariant shape = widget.property(shapeProperty);
    if (shape.isValid()) {
        return shape.value<FocusShape>();
    }
    const bool isButton = qobject_cast<const QAbstractButton *>(&widget) != nullptr;
    if (isButton || qobject_cast<const QSlider *>(&widget) != nullptr) {
        return {.placement = FocusShape::Placement::outside};
    }
    return {};
}

void FocusRing::install(QApplication &application) {
    if (application.findChild<FocusRing *>(QString(), Qt::FindDirectChildrenOnly) == nullptr) {
        new FocusRing(application);
    }
}

FocusRing::FocusRing(QApplication &application) : QObject(&application) { application.installEventFilter(this); }

FocusRing::~FocusRing() = default;

bool FocusRing::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        m_isKeyboardInUse = true;
        break;
    case QEvent::MouseButtonPress:
        m_isKeyboardInUse = false;
        break;
    case QEvent::FocusIn:
        if (auto *widget = qobject_cast<QWidget *>(watched)) {
            receive(*widget, static_cast<QFocusEvent *>(event)->reason());
        }
        break;
    case QEvent::FocusOut:
        // From a menu the keyboard comes back.
        if (m_frame != nullptr && m_frame->followed() == watched &&
            static_cast<QFocusEvent *>(event)->reason() != Qt::PopupFocusReason) {
            moveTo(nullptr);
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void FocusRing::receive(QWidget &widget, Qt::FocusReason reason) {
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        m_isKeyboardInUse = true;
        break;
    case Qt::MouseFocusReason:
        m_isKeyboardInUse = false;
        break;
    default:
        break;
    }
    moveTo(m_isKeyboardInUse ? &widget : nullptr);
}

void FocusRing::moveTo(QWidget *widget) {
    const bool isShown = widget != nullptr && focusShape(*widget).placement != FocusShape::Placement::none;
    if (isShown && m_frame == nullptr) {
        m_frame = new FocusRingFrame(*widget);
    }
    if (m_frame != nullptr) {
        m_frame->follow(isShown ? widget : nullptr);
    }
}

} // namespace lexivore
