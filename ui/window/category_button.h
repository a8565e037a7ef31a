// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"
#include "ui/window/row_button.h"

namespace lexivore {

/// One category of the sidebar. Its action is the signal `clicked`.
class CategoryButton : public RowButton {
    Q_OBJECT

public:
    explicit CategoryButton(TransformationCategory category, QWidget *parent = nullptr);

    [[nodiscard]] TransformationCategory category() const { return m_category; }
    [[nodiscard]] bool isSelected() const { return isChecked(); }
    void setSelected(bool selected);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void nextCheckState() override {}

private:
    [[nodiscard]] QFont nameFont() const;
    [[nodiscard]] QRect textRect() const;

    TransformationCategory m_category;
};

} // namespace lexivore
