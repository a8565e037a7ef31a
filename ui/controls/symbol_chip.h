// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace lexivore {

/// A symbol on a small square of the accent's wash.
class SymbolChip : public QWidget {
    Q_OBJECT

public:
    explicit SymbolChip(const QString &symbol, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbol;
};

} // namespace lexivore
