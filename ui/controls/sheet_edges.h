// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QHBoxLayout;

namespace lexivore {

/// What stands above or below a sheet's body and does not scroll: one row, and a line between it and the body.
class SheetEdge : public QWidget {
    Q_OBJECT

public:
    enum class Side { above, below };

    /// `height` and `inset` in device-independent pixels, the line included. The row starts empty,
    /// that far from both ends.
    SheetEdge(Side side, int height, int inset);

    [[nodiscard]] QHBoxLayout &row() const { return *m_row; }

private:
    QHBoxLayout *m_row;
};

/// The edge above the body with a symbol beside a title and what there is to say about it, one line each.
[[nodiscard]] SheetEdge *makeSymbolHeader(const QString &symbol, const QString &title, const QString &details);

/// The edge below the body with buttons at both ends.
[[nodiscard]] SheetEdge *makeButtonFooter(const QList<QWidget *> &left, const QList<QWidget *> &right);

} // namespace lexivore
