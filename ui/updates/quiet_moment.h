// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

class QWidget;

namespace lexivore {

/// Waits for a moment in which a sheet over `window` interrupts nobody: the window shows, nothing lies over it, and for
/// a while no key and no mouse button was pressed. Says so once and deletes itself.
class QuietMoment : public QObject {
    Q_OBJECT

public:
    QuietMoment(QWidget &window, std::chrono::milliseconds quiet, QObject *parent);

signals:
    void came();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void look();

    QWidget &m_window;
    QTimer m_timer;
};

} // namespace lexivore
