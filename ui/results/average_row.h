// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace lexivore {

/// A label at the leading edge and its value at the trailing edge.
class AverageRow : public QWidget {
    Q_OBJECT

public:
    AverageRow(const QString &label, const QString &value, QWidget *parent = nullptr);
};

} // namespace lexivore
