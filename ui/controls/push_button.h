// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

namespace lexivore {

/// A button with a word on it, at the height of a control; with a chevron behind the word when it opens a menu.
class PushButton : public QPushButton {
    Q_OBJECT

public:
    enum class Kind {
        plain,
        primary,     ///< The one that confirms.
        destructive, ///< Confirms the loss of something.
    };

    explicit PushButton(const QString &text, Kind kind = Kind::plain, QWidget *parent = nullptr);

    /// A symbol before the word.
    void setSymbol(const QString &name);
    /// In device-independent pixels; 84 until set.
    void setLeastWidth(int width);
    [[nodiscard]] Kind kind() const { return m_kind; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Kind m_kind;
    QString m_symbol;
    int m_leastWidth;
};

} // namespace lexivore
