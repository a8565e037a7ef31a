// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/average_row.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/label.h"

#include <QHBoxLayout>

namespace lexivore {

namespace {

constexpr int rowHeight = 32;
constexpr int inset = 14;

} // namespace

AverageRow::AverageRow(const QString &label, const QString &value, QWidget *parent) : QWidget(parent) {
    setAccessibleRole(*this, QAccessible::Grouping);
    setAccessibleName(label);
    setAccessibleDescription(value);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(inset, 0, inset, 0);
    auto *number = new Label(value, FontRole::callout);
    number->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    row->addWidget(new Label(label, FontRole::body), 1);
    row->addWidget(number);
    setFixedHeight(heightFor(rowHeight, FontRole::body));
}

} // namespace lexivore
