// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

class QWidget;

namespace lexivore {

/// Tells when the pointer has rested on a widget for 1.5 s, and when it has left.
class HoverReveal : public QObject {
    Q_OBJECT

public:
    /// Watches `widget` and belongs to it.
    explicit HoverReveal(QWidget *widget);

signals:
    void revealed();
    void concealed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTimer m_timer;
};

} // namespace lexivore
