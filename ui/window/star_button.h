// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

class QVariantAnimation;

namespace lexivore {

/// The star that marks a favorite. It is there to be pressed only while it is revealed.
class StarButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit StarButton(QWidget *parent = nullptr);

    [[nodiscard]] bool isFavorite() const { return isChecked(); }
    /// Without the signal `toggled`, which stands for what the user does.
    void setFavorite(bool favorite);
    /// Fades in or out.
    void setRevealed(bool revealed);
    [[nodiscard]] bool isRevealed() const { return m_isRevealed; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QVariantAnimation *m_fading;
    qreal m_opacity = 0;
    bool m_isRevealed = false;
};

} // namespace lexivore
