// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/recipe_menu.h"

#include "manager/transformation_manager.h"
#include "ui/menu_text.h"
#include "ui/translation.h"

#include <algorithm>

namespace lexivore {

RecipeMenu::RecipeMenu(TransformationManager &manager, QWidget *parent) : QMenu(parent), m_manager(manager) {
    connect(&m_manager, &TransformationManager::recipesChanged, this, &RecipeMenu::rebuild);
    rebuild();
}

void RecipeMenu::setFixedActions(const std::vector<QAction *> &actions) {
    m_fixedActions = actions;
    rebuild();
}

void RecipeMenu::setRecipesEnabled(bool enabled) {
    m_recipesEnabled = enabled;
    for (QAction *action : m_recipeActions) {
        action->setEnabled(enabled);
    }
}

void RecipeMenu::rebuild() {
    for (QAction *action : actions()) {
        removeAction(action);
        if (std::find(m_fixedActions.begin(), m_fixedActions.end(), action) == m_fixedActions.end()) {
            // Not at once: the change may come from the very action.
            action->deleteLater();
        }
    }
    m_recipeActions.clear();
    for (const RecipeCategory category : recipeGroups) {
        addGroup(category);
    }
    if (!m_recipeActions.empty() && !m_fixedActions.empty()) {
        addSeparator();
    }
    for (QAction *action : m_fixedActions) {
        addAction(action);
    }
}

void RecipeMenu::addGroup(RecipeCategory category) {
    bool hasTitle = false;
    for (const Recipe &recipe : m_manager.recipes()) {
        if (recipe.category != category) {
            continue;
        }
        if (!hasTitle) {
            if (!m_recipeActions.empty()) {
                addSeparator();
            }
            addSection(translated(rawValue(category)));
            hasTitle = true;
        }
        QAction *action = addAction(menuText(translatedName(recipe)));
        const QString id = recipe.id.toString(QUuid::WithoutBraces).toUpper();
        action->setData(id);
        action->setEnabled(m_recipesEnabled);
        connect(action, &QAction::triggered, this, [this, id] { emit recipeSelected(id); });
        m_recipeActions.push_back(action);
    }
}

} // namespace lexivore
