// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QVariantAnimation;

namespace lexivore {

class WindowState;

/// "Copied to clipboard", above the bottom of the widget that it lies on. Takes neither focus nor clicks.
class CopyToast : public QWidget {
    Q_OBJECT

public:
    /// Lies on `editor` and follows its size.
    CopyToast(WindowState &state, QWidget *editor);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fade();
    void place();

    WindowState &m_state;
    QVariantAnimation *m_fading;
    QString m_text;
    qreal m_opacity = 0;
};

} // namespace lexivore
