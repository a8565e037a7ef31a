// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QLineEdit>

namespace lexivore {

/// A text field that takes text of any length. It keeps its looks while a sheet lies over it, and draws its caret
/// itself, because the toolkit's has no colour of its own. The keys of undo and redo are its own only as long as it has
/// typing to take back or to do again; then they are the window's.
class Field : public QLineEdit {
    Q_OBJECT

public:
    /// `name` is what assistive technology reads before the content.
    explicit Field(const QString &name, QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void colourText();
    void restartBlinking();

    QBasicTimer m_blinking;
    bool m_showsCaret = false; ///< At this moment: it blinks.
};

} // namespace lexivore
