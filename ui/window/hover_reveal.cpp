// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/hover_reveal.h"

#include <QEvent>
#include <QWidget>

#include <chrono>

namespace lexivore {

namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds restingTime = 1500ms;

} // namespace

HoverReveal::HoverReveal(QWidget *widget) : QObject(widget) {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(restingTime);
    connect(&m_timer, &QTimer::timeout, this, &HoverReveal::revealed);
    widget->installEventFilter(this);
}

bool HoverReveal::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::Enter:
        m_timer.start();
        break;
    case QEvent::Leave:
    case QEvent::Hide:
        m_timer.stop();
        emit concealed();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace lexivore
