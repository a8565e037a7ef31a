// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

namespace lexivore {

/// Makes a column of rows one stop of the Tab key: Up, Down, Page Up, Page Down, Home and End move among the rows that
/// are shown, and Tab comes back to the row that had the focus last.
class RowNavigator : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// The rows from top to bottom. They may be hidden and shown at any time.
    void setRows(const std::vector<QWidget *> &rows);
    /// The row that Tab reaches when none has had the focus yet.
    void setCurrent(QWidget *row);
    [[nodiscard]] QWidget *current() const { return m_current; }
    /// Focuses the first row that is shown. False when there is none.
    bool focusFirst();

signals:
    /// Up was pressed on the first row.
    void leftAtTop();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] std::vector<QWidget *> shownRows() const;
    bool handleKey(QWidget *row, int key);
    void updateTabStops();

    std::vector<QPointer<QWidget>> m_rows;
    QPointer<QWidget> m_current;
};

} // namespace lexivore
