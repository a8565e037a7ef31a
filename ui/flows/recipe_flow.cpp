// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/flows/recipe_flow.h"

#include "manager/preferences.h"
#include "manager/transformation_manager.h"
#include "ui/sheets/alerts.h"
#include "ui/sheets/sheets.h"
#include "ui/text_conversion.h"
#include "ui/window/window_state.h"

#include <algorithm>
#include <new>
#include <utility>

namespace lexivore {

RecipeFlow::RecipeFlow(TransformationManager &manager, Preferences &preferences, WindowState &state, Sheets &sheets,
                       Alerts &alerts, QObject *parent)
    : QObject(parent), m_manager(manager), m_preferences(preferences), m_state(state), m_sheets(sheets),
      m_alerts(alerts) {}

void RecipeFlow::select(const QString &id) {
    const QUuid uuid = QUuid::fromString(id);
    if (uuid.isNull()) {
        return;
    }
    const std::vector<Recipe> &recipes = m_manager.recipes();
    const auto recipe = std::find_if(recipes.begin(), recipes.end(), [&](const Recipe &r) { return r.id == uuid; });
    if (recipe != recipes.end()) {
        select(Recipe(*recipe));
    }
}

void RecipeFlow::select(const Recipe &recipe) {
    if (!m_state.operationsEnabled()) {
        return;
    }
    const bool asksNever = m_preferences.value(preference::dontShowReplaceOperationsAlert).toBool();
    if (m_manager.appliedOperations().empty() || asksNever) {
        replaceOperations(recipe);
        return;
    }
    m_state.pendingRecipe = recipe;
    m_alerts.askToReplaceOperations(
        [this](bool asksNoMore) {
            if (const std::optional<Recipe> pending = std::exchange(m_state.pendingRecipe, std::nullopt)) {
                replaceOperations(*pending);
            }
            if (asksNoMore) {
                m_preferences.setValue(preference::dontShowReplaceOperationsAlert, true);
            }
        },
        [this] { m_state.pendingRecipe.reset(); });
}

void RecipeFlow::replaceOperations(const Recipe &recipe) {
    m_manager.clearOperations();
    try {
        m_manager.applyRecipe(recipe);
    } catch (const TransformationError &error) {
        m_alerts.showError(toQString(error.description()));
    } catch (const std::bad_alloc &) {
        m_alerts.showError(tr("There is not enough memory for the result."));
    }
}

void RecipeFlow::showSaveSheet() {
    m_sheets.showRecipeSaveSheet(m_state.newRecipeName, [this](const QString &name) { save(name); });
}

void RecipeFlow::save(const QString &name) {
    m_state.newRecipeName = name;
    const std::vector<Recipe> &recipes = m_manager.recipes();
    const auto existing = std::find_if(recipes.begin(), recipes.end(), [&](const Recipe &recipe) {
        return !recipe.isTemplate() && recipe.name == toUtf8(name);
    });
    if (existing == recipes.end()) {
        saveAndClose(name);
        return;
    }
    m_state.existingRecipeToReplace = *existing;
    m_alerts.askToReplaceRecipe(
        name,
        [this] {
            if (const std::optional<Recipe> replaced = std::exchange(m_state.existingRecipeToReplace, std::nullopt)) {
                // Without operations nothing would be saved in the place of what is deleted.
                if (!m_manager.appliedOperations().empty()) {
                    m_manager.deleteRecipe(*replaced);
                }
                saveAndClose(m_state.newRecipeName);
            }
        },
        [this] {
            m_state.existingRecipeToReplace.reset();
            m_state.newRecipeName.clear();
            m_sheets.setRecipeName({});
        });
}

void RecipeFlow::saveAndClose(const QString &name) {
    m_manager.saveRecipe(toUtf8(name));
    m_state.newRecipeName.clear();
    m_sheets.closeRecipeSaveSheet();
}

void RecipeFlow::showManageSheet() { m_sheets.showManageRecipesSheet(m_manager); }

} // namespace lexivore
