// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/window_columns.h"

#include "ui/theme/metrics.h"
#include "ui/theme/typography.h"

#include <QEvent>

#include <algorithm>
#include <cstdlib>

namespace lexivore {

WindowColumns::WindowColumns(QWidget *parent) : QSplitter(Qt::Horizontal, parent) {
    setChildrenCollapsible(false);
    setHandleWidth(metrics::line);
}

void WindowColumns::add(QWidget *column, Width width, Space space) {
    m_columns.push_back({column, width, space});
    addWidget(column);
    // The toolkit has put it beneath the others, and assistive technology reads from the lowest to the highest.
    std::for_each(m_columns.rbegin() + 1, m_columns.rend(), [](const Column &before) { before.widget->lower(); });
    setStretchFactor(count() - 1, space == Space::takesTheRest ? 1 : 0);
    column->setMinimumWidth(widthOf(m_columns.back(), width.minimum));
}

void WindowColumns::resetWidths() {
    QList<int> widths;
    for (const Column &column : m_columns) {
        widths << widthOf(column, column.width.initial);
    }
    setWidths(widths);
}

QList<int> WindowColumns::widths() {
    noticeChanges();
    QList<int> widths = m_widths;
    for (int index = 0; index < count(); ++index) {
        if (isTheRest(index)) {
            widths[index] = sizes().at(index);
        }
    }
    return widths;
}

void WindowColumns::setWidths(const QList<int> &widths) {
    m_widths = widths;
    m_sharedOut.clear();
    setSizes(widths);
    shareOut();
}

bool WindowColumns::isTheRest(int index) const {
    return m_columns[static_cast<std::size_t>(index)].space == Space::takesTheRest;
}

void WindowColumns::noticeChanges() {
    if (m_sharedOut.isEmpty()) {
        return;
    }
    const QList<int> now = sizes();
    for (int index = 0; index < count(); ++index) {
        const bool isShown = now[index] > 0 && m_sharedOut[index] > 0;
        if (isShown && now[index] != m_sharedOut[index]) {
            m_widths[index] = now[index];
        }
    }
}

void WindowColumns::shareOut() {
    if (m_widths.isEmpty() || !isVisible()) {
        return;
    }
    QList<int> sizes = m_widths;
    std::vector<int> order; // of those that are shown and give way
    int room = width() + handleWidth();
    int rest = 0;
    for (int index = 0; index < count(); ++index) {
        if (widget(index)->isHidden()) {
            continue;
        }
        room -= handleWidth();
        if (isTheRest(index)) {
            rest = index;
        } else {
            sizes[index] = std::max(sizes[index], widget(index)->minimumWidth());
            room -= sizes[index];
            order.push_back(index);
        }
    }
    std::stable_sort(order.begin(), order.end(),
                     [rest](int left, int right) { return std::abs(left - rest) < std::abs(right - rest); });
    for (const int index : order) {
        const int lacking = std::max(0, widget(rest)->minimumWidth() - room);
        const int given = std::min(lacking, sizes[index] - widget(index)->minimumWidth());
        sizes[index] -= given;
        room += given;
    }
    sizes[rest] = std::max(0, room);
    setSizes(sizes);
    m_sharedOut = this->sizes();
}

// What takes the rest wraps its text, so larger letters do not need a wider column.
int WindowColumns::widthOf(const Column &column, int width) {
    return column.space == Space::takesTheRest ? width
                                               : std::max(widthFor(width), column.widget->minimumSizeHint().width());
}

bool WindowColumns::event(QEvent *event) {
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::LayoutRequest: // also when a column is shown or hidden
    case QEvent::ApplicationFontChange: {
        noticeChanges();
        setMinima();
        const bool isHandled = QSplitter::event(event);
        if (event->type() == QEvent::LayoutRequest) {
            // What a column takes that appears, and leaves that disappears, is the toolkit's to settle.
            m_sharedOut = m_sharedOut.isEmpty() ? QList<int>() : sizes();
        } else {
            shareOut();
        }
        return isHandled;
    }
    default:
        return QSplitter::event(event);
    }
}

void WindowColumns::setMinima() {
    const auto shown = std::count_if(m_columns.begin(), m_columns.end(),
                                     [](const Column &column) { return !column.widget->isHidden(); });
    const std::vector<int> minima = minimaWithin(width() - static_cast<int>(shown - 1) * handleWidth());
    for (std::size_t index = 0; index < m_columns.size(); ++index) {
        m_columns[index].widget->setMinimumWidth(minima[index]);
    }
}

std::vector<int> WindowColumns::minimaWithin(int room) const {
    std::vector<int> minima;
    std::vector<std::size_t> order; // of those that are shown, the one that takes the rest first, then from the left
    int needed = 0;
    for (std::size_t index = 0; index < m_columns.size(); ++index) {
        const Column &column = m_columns[index];
        minima.push_back(widthOf(column, column.width.minimum));
        if (!column.widget->isHidden()) {
            needed += minima.back();
            order.insert(column.space == Space::takesTheRest ? order.begin() : order.end(), index);
        }
    }
    const auto narrow = [&](std::size_t index, int least) {
        const int taken = std::clamp(needed - room, 0, std::max(0, minima[index] - least));
        minima[index] -= taken;
        needed -= taken;
    };
    for (const std::size_t index : order) {
        narrow(index, widthOf(m_columns[index], m_columns[index].width.least));
    }
    // With letters so large that even this is too much, everybody gives, and once more the first one before the others.
    if (!order.empty()) {
        narrow(order.front(), m_columns[order.front()].width.least * 3 / 4);
    }
    for (const std::size_t index : order) {
        if (needed > room) {
            minima[index] = minima[index] * std::max(0, room) / needed;
        }
    }
    return minima;
}

} // namespace lexivore
