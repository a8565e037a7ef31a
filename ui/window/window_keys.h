// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QMainWindow;

namespace lexivore {

/// The keys that work on every desktop and that the toolkit does not know here: F10 opens the menu bar, Shift+F10 the
/// context menu of what has the keyboard, and Return presses the button that has it, as it does in lists and sheets.
class WindowKeys : public QObject {
    Q_OBJECT

public:
    /// Watches `window` and belongs to it.
    explicit WindowKeys(QMainWindow &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool openMenuBar();
    static bool openContextMenu();
    static bool pressButton();

    QMainWindow &m_window;
};

} // namespace lexivore
