// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/symbol.h"

#include "ui/controls/accessible_role.h"
#include "ui/theme/drawing.h"

#include <QPainter>

namespace lexivore {

Symbol::Symbol(const QString &name, int size, ThemeColour colour, QWidget *parent)
    : QWidget(parent), m_name(name), m_colour(colour) {
    setFixedSize(size, size);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleRole(*this, QAccessible::Graphic);
}

void Symbol::setName(const QString &name) {
    m_name = name;
    update();
}

void Symbol::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    drawSymbol(painter, rect(), m_name, width(), theme().*m_colour);
}

} // namespace lexivore
