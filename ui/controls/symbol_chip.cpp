// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/symbol_chip.h"

#include "ui/controls/accessible_role.h"
#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

#include <QPainter>

namespace lexivore {

namespace {

constexpr int chipSize = 36;
constexpr int symbolSize = 20;

} // namespace

SymbolChip::SymbolChip(const QString &symbol, QWidget *parent) : QWidget(parent), m_symbol(symbol) {
    setFixedSize(chipSize, chipSize);
    setAccessibleRole(*this, QAccessible::Graphic);
}

void SymbolChip::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    fillRounded(painter, rect(), metrics::radius, theme().accentWash);
    drawSymbol(painter, rect(), m_symbol, symbolSize, theme().accentText);
}

} // namespace lexivore
