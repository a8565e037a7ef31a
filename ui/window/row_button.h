// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QAccessible>

namespace lexivore {

/// A row of a list that is pressed like a button. It draws its background; what stands on it is its subclass's.
/// The mouse does not move the keyboard focus to it, so a click leaves the caret where it is.
class RowButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit RowButton(QWidget *parent = nullptr);

    /// False for a row that is a button to assistive technology, not one of a list.
    [[nodiscard]] virtual bool isListItem() const { return true; }
    [[nodiscard]] bool isHovered() const { return m_isHovered; }
    /// What assistive technology presses it for: a click, by itself.
    virtual void activate() { click(); }
    /// What assistive technology reads after the name.
    [[nodiscard]] virtual QString description() const { return accessibleDescription(); }
    /// Adds what the row is at the moment to what every row is: by itself whether it is selected, if it is checkable.
    virtual void addState(QAccessible::State &state) const;

signals:
    void hoverChanged(bool hovered);
    void focusChanged(bool focused);

protected:
    void paintBackground(QPainter &painter, const QColor &fill) const;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void setHovered(bool hovered);

    bool m_isHovered = false;
};

} // namespace lexivore
