// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/surface.h"

#include <QPainter>

namespace lexivore {

Surface::Surface(ThemeColour colour, QWidget *parent) : QWidget(parent), m_colour(colour) {}

void Surface::paintEvent(QPaintEvent *) { QPainter(this).fillRect(rect(), theme().*m_colour); }

} // namespace lexivore
