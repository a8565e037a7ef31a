// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/recipe.h"

#include <QMenu>

#include <array>
#include <vector>

namespace lexivore {

class TransformationManager;

/// The order in which recipes are offered, group by group.
inline constexpr std::array recipeGroups = {
    RecipeCategory::user,    RecipeCategory::coding,         RecipeCategory::formatting,
    RecipeCategory::writing, RecipeCategory::dataProcessing,
};

/// A menu of the manager's recipes under the titles of their groups; groups without recipes are left out.
/// Always up to date.
class RecipeMenu : public QMenu {
    Q_OBJECT

public:
    explicit RecipeMenu(TransformationManager &manager, QWidget *parent = nullptr);

    /// Actions that stand under the recipes, behind a separator.
    void setFixedActions(const std::vector<QAction *> &actions);
    /// Without text there is nothing to apply a recipe to.
    void setRecipesEnabled(bool enabled);

signals:
    /// The recipe's id as an upper-case UUID string.
    void recipeSelected(const QString &id);

private:
    void rebuild();
    void addGroup(RecipeCategory category);

    TransformationManager &m_manager;
    std::vector<QAction *> m_fixedActions;
    std::vector<QAction *> m_recipeActions;
    bool m_recipesEnabled = true;
};

} // namespace lexivore
