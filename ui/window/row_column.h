// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace lexivore {

/// What the rows of a list stand in. To assistive technology it is a list of the rows that are shown.
class RowColumn : public QWidget {
    Q_OBJECT

public:
    explicit RowColumn(const QString &name, QWidget *parent = nullptr);
};

} // namespace lexivore
