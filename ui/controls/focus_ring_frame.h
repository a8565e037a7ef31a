// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFocusFrame>
#include <QList>
#include <QPointer>

namespace lexivore {

/// The ring itself: it lies over the widget that it surrounds, moves with it and is cut off where a scroll area cuts it
/// off. A focus frame by type, which assistive technology passes over; the toolkit's own leaves no room around a
/// widget.
class FocusRingFrame final : public QFocusFrame {
    Q_OBJECT

public:
    explicit FocusRingFrame(QWidget &widget);

    /// Surrounds `widget`, or nothing.
    void follow(QWidget *widget);
    [[nodiscard]] QWidget *followed() const { return m_widget; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void watch(bool isWatching);
    void place();

    QPointer<QWidget> m_widget;
    QList<QPointer<QWidget>> m_watched; ///< The widget and what it stands in: all that can move or hide it.
};

} // namespace lexivore
