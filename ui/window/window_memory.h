// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

class QMainWindow;

namespace lexivore {

class Preferences;
class WindowColumns;

/// Remembers the window's size and the widths of its columns, and nothing else about it.
class WindowMemory : public QObject {
    Q_OBJECT

public:
    /// Restores both at once, and writes them when the user has changed them, or at last when it is destroyed. Both
    /// must outlive it.
    WindowMemory(Preferences &preferences, QMainWindow &window, WindowColumns &columns);
    ~WindowMemory() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void restore();
    void save();

    Preferences &m_preferences;
    QMainWindow &m_window;
    WindowColumns &m_columns;
    QTimer m_settled; ///< A drag of an edge passes many sizes; only the last is written.
};

} // namespace lexivore
