// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"
#include "ui/window/row_button.h"

class QVariantAnimation;

namespace lexivore {

class StarButton;

/// One transformation of the list: icon, name, description and, at the end, the favorite star and a chevron.
/// A click on the star is `favoriteToggled`; a click elsewhere is `clicked`.
class TransformationButton : public RowButton {
    Q_OBJECT

public:
    explicit TransformationButton(TransformationPointer transformation, QWidget *parent = nullptr);

    [[nodiscard]] const TransformationPointer &transformation() const { return m_transformation; }
    [[nodiscard]] bool isFavorite() const;
    void setFavorite(bool favorite);
    /// While the operations are paused a press does nothing, and the row shows it. Its star can still be pressed.
    void setPaused(bool paused);
    /// How far the chevron stands from its place at rest, in pixels.
    [[nodiscard]] qreal chevronOffset() const { return m_chevronOffset; }

    void addState(QAccessible::State &state) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    void favoriteToggled();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void setShowFavorite(bool show);
    void updateStar();
    void moveChevron(bool hovered);
    void placeStar();
    void updateToolTip();
    [[nodiscard]] bool showsChevron() const { return isHovered() && !m_isPaused; }
    [[nodiscard]] int textRight() const;

    TransformationPointer m_transformation;
    StarButton *m_star;
    QVariantAnimation *m_chevronAnimation;
    qreal m_chevronOffset = 0;
    bool m_showFavorite = false; ///< The pointer has rested on the row.
    bool m_isPaused = false;
};

} // namespace lexivore
