// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QVariantAnimation;

namespace lexivore {

class WindowState;

/// "Copied to clipboard", above the bottom of the editor. With large letters it is wider than a narrow editor, so it
/// lies on the window. Takes neither focus nor clicks.
class CopyToast : public QWidget {
    Q_OBJECT

public:
    /// Lies on `window` and follows the place and the size of `editor`.
    CopyToast(WindowState &state, QWidget &editor, QWidget *window);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fade();
    void place();

    WindowState &m_state;
    QWidget &m_editor;
    QVariantAnimation *m_fading;
    QString m_text;
    qreal m_opacity = 0;
};

} // namespace lexivore
