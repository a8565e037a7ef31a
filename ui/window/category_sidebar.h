// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/window/surface.h"

#include <vector>

class QScrollArea;
class QVariantAnimation;

namespace lexivore {

class CategoryButton;
class RowColumn;
class RowNavigator;
class SectionHeader;
class WindowState;

/// The left column: the categories under a header that folds them.
class CategorySidebar : public Surface {
    Q_OBJECT

public:
    explicit CategorySidebar(WindowState &state, QWidget *parent = nullptr);

    /// Wide enough for the longest category.
    [[nodiscard]] QSize minimumSizeHint() const override;

private:
    void createRows();
    void showSelection();
    void fold();

    WindowState &m_state;
    SectionHeader *m_header;
    RowColumn *m_rows;
    QScrollArea *m_scroll;
    RowNavigator *m_navigator;
    QVariantAnimation *m_folding;
    std::vector<CategoryButton *> m_buttons;
};

} // namespace lexivore
