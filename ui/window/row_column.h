// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QWidget>

class QScrollArea;
class QScrollBar;

namespace lexivore {

class RowButton;

/// What the rows of a list stand in. To assistive technology it is a list of the rows that are shown.
class RowColumn : public QWidget {
    Q_OBJECT

public:
    explicit RowColumn(const QString &name, QWidget *parent = nullptr);

    /// Stands in `area` with `margins` around the rows. The scroll bar takes its place out of the right one.
    void standIn(QScrollArea &area, const QMargins &margins);
    /// Scrolls to the row whenever it gets the keyboard.
    void showWhenFocused(RowButton &row);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void placeRows();

    QScrollArea *m_area = nullptr;
    QScrollBar *m_scrollBar = nullptr;
    QMargins m_margins;
};

} // namespace lexivore
