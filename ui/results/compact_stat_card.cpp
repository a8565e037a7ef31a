// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/compact_stat_card.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/label.h"
#include "ui/controls/symbol.h"

#include <QHBoxLayout>

namespace lexivore {

namespace {

constexpr int cardHeight = 72;
constexpr int symbolSize = 22;

} // namespace

CompactStatCard::CompactStatCard(const QString &title, const QString &value, const QString &icon, ThemeColour color,
                                 QWidget *parent)
    : Card(parent) {
    setAccessibleRole(*this, QAccessible::Grouping);
    setAccessibleName(title);
    setAccessibleDescription(value);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(15, 0, 9, 0);
    row->setSpacing(12);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addStretch();
    texts->addWidget(new Label(value, FontRole::cardValue, &Theme::text, Label::Lines::shrunk));
    texts->addWidget(new Label(title, FontRole::caption, &Theme::text2));
    texts->addStretch();
    row->addWidget(new Symbol(icon, symbolSize, color));
    row->addLayout(texts, 1);
    setFixedHeight(heightFor(cardHeight, FontRole::cardValue, 2));
}

} // namespace lexivore
