// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/row_column.h"

#include "ui/window/row_accessibility.h"

namespace lexivore {

RowColumn::RowColumn(const QString &name, QWidget *parent) : QWidget(parent) {
    installRowAccessibility();
    setAccessibleName(name);
}

} // namespace lexivore
