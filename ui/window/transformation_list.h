// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"

#include "ui/window/surface.h"

#include <vector>

class QAction;
class QScrollArea;

namespace lexivore {

class EmptyState;
class Field;
class Label;
class RowColumn;
class RowNavigator;
class TransformationButton;
class TransformationManager;
class WindowState;

/// The second column: the search field and the transformations that it or the category selects.
class TransformationList : public Surface {
    Q_OBJECT

public:
    TransformationList(TransformationManager &manager, WindowState &state, QWidget *parent = nullptr);

    /// Gives the keyboard to the search field.
    void focusSearch();

signals:
    void transformationSelected(const lexivore::TransformationPointer &transformation);
    void favoriteToggled(const lexivore::TransformationPointer &transformation);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void createSearchField();
    void colourSearchIcons();
    void fitHeader();
    void createRows();
    void showMatches();
    void keepFocus();
    void showFavorites();
    void showPause();
    [[nodiscard]] bool isListed(const TextTransformation &transformation) const;
    void selectFirst();

    TransformationManager &m_manager;
    WindowState &m_state;
    Field *m_search;
    QAction *m_searchIcon = nullptr;
    QAction *m_clearSearch = nullptr;
    Label *m_header;
    QScrollArea *m_scroll;
    RowColumn *m_rows;
    EmptyState *m_emptyState;
    RowNavigator *m_navigator;
    std::vector<TransformationButton *> m_buttons;
};

} // namespace lexivore
