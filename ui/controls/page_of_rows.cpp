// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/page_of_rows.h"

#include <QWidget>

namespace lexivore {

std::size_t rowOnePageOn(const std::vector<QWidget *> &rows, std::size_t index, PageDirection direction) {
    const QRect from = rows[index]->geometry();
    const int page = rows[index]->parentWidget()->visibleRegion().boundingRect().height();
    const std::size_t end = direction == PageDirection::up ? 0 : rows.size() - 1;
    std::size_t target = index;
    while (target != end) {
        const std::size_t next = direction == PageDirection::up ? target - 1 : target + 1;
        const bool isNeighbour = target == index;
        if (!isNeighbour && from.united(rows[next]->geometry()).height() > page) {
            break;
        }
        target = next;
    }
    return target;
}

} // namespace lexivore
