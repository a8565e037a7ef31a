// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/window_memory.h"

#include "manager/preferences.h"
#include "ui/window/window_columns.h"

#include <QEvent>
#include <QMainWindow>

#include <chrono>

namespace lexivore {

namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds settlingTime = 400ms;
constexpr int largestSide = 20000;

/// As many positive whole numbers of a sensible size as asked for, or none.
QList<int> storedSizes(const QVariant &stored, qsizetype count) {
    const QVariantList values = stored.toList();
    QList<int> sizes;
    for (const QVariant &value : values) {
        const int size = value.toInt();
        if (size > 0 && size <= largestSide) {
            sizes.append(size);
        }
    }
    return sizes.size() == count && values.size() == count ? sizes : QList<int>();
}

} // namespace

WindowMemory::WindowMemory(Preferences &preferences, QMainWindow &window, WindowColumns &columns)
    : m_preferences(preferences), m_window(window), m_columns(columns) {
    restore();
    m_settled.setSingleShot(true);
    m_settled.setInterval(settlingTime);
    connect(&m_settled, &QTimer::timeout, this, &WindowMemory::save);
    connect(&m_columns, &QSplitter::splitterMoved, &m_settled, qOverload<>(&QTimer::start));
    m_window.installEventFilter(this);
}

WindowMemory::~WindowMemory() {
    if (m_settled.isActive()) {
        save();
    }
}

void WindowMemory::restore() {
    const QList<int> size = storedSizes(m_preferences.value(preference::windowSize), 2);
    if (!size.isEmpty()) {
        m_window.resize(size[0], size[1]);
    }
    const QList<int> widths = storedSizes(m_preferences.value(preference::columnWidths), m_columns.count());
    if (!widths.isEmpty()) {
        m_columns.setWidths(widths);
    }
}

void WindowMemory::save() {
    if (m_window.isMaximized() || m_window.isFullScreen()) {
        return;
    }
    m_preferences.setValue(preference::windowSize, QVariantList{m_window.width(), m_window.height()});
    const QList<int> widths = m_columns.widths();
    m_preferences.setValue(preference::columnWidths, QVariantList(widths.begin(), widths.end()));
}

bool WindowMemory::eventFilter(QObject *watched, QEvent *event) {
    // The size that the window gets when it first appears is no choice of the user.
    if (event->type() == QEvent::Resize && m_window.isVisible()) {
        m_settled.start();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace lexivore
