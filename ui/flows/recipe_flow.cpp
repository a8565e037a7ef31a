// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/flows/recipe_flow.h"

#include "manager/preferences.h"
#include "manager/recipe_file.h"
#include "manager/text_conversion.h"
#include "manager/transformation_manager.h"
#include "ui/flows/memory_shortage.h"
#include "ui/sheets/alerts.h"
#include "ui/sheets/sheets.h"
#include "ui/translation.h"
#include "ui/window/file_panels.h"
#include "ui/window/window_state.h"

#include <QDir>

#include <algorithm>
#include <utility>

namespace lexivore {

namespace {

constexpr int longestFileName = 60; ///< At most 180 bytes: file systems take 255.

/// What the name of one recipe, or of all, can be in any folder.
QString proposedFileName(const std::vector<Recipe> &recipes) {
    QString name = recipes.size() == 1 ? translatedName(recipes.front()) : RecipeFlow::tr("recipes");
    std::replace_if(
        name.begin(), name.end(),
        [](QChar character) { return character == u'/' || character.category() == QChar::Other_Control; }, u' ');
    name = name.simplified();
    while (name.startsWith(u'.') || name.startsWith(u' ')) {
        name.remove(0, 1);
    }
    name.truncate(longestFileName);
    if (!name.isEmpty() && name.back().isHighSurrogate()) {
        name.chop(1);
    }
    return (name.trimmed().isEmpty() ? RecipeFlow::tr("recipe") : name.trimmed()) + ".json";
}

} // namespace

RecipeFlow::RecipeFlow(TransformationManager &manager, Preferences &preferences, WindowState &state, Sheets &sheets,
                       Alerts &alerts, FilePanels &panels, QObject *parent)
    : QObject(parent), m_manager(manager), m_preferences(preferences), m_state(state), m_sheets(sheets),
      m_alerts(alerts), m_panels(panels) {}

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
    try {
        orReportShortage(m_alerts, [&] {
            m_manager.clearOperations();
            m_manager.applyRecipe(recipe);
        });
    } catch (const TransformationError &error) {
        m_alerts.showError(translatedError(error.description()));
    }
}

void RecipeFlow::showSaveSheet() {
    m_sheets.showRecipeSaveSheet(
        m_state.newRecipeName, [this](const QString &name) { m_state.newRecipeName = name; },
        [this](const QString &name) { save(name); });
}

void RecipeFlow::save(const QString &name) {
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
    if (m_manager.appliedOperations().empty()) {
        m_alerts.showError(tr("There are no operations to save as a recipe."));
    }
}

void RecipeFlow::showManageSheet() {
    m_sheets.showManageRecipesSheet(
        m_manager, [this] { importRecipes(); }, [this](const std::vector<Recipe> &recipes) { exportRecipes(recipes); });
}

void RecipeFlow::importRecipes() {
    m_panels.askForRecipesToImport([this](const QString &path) { importFrom(path); });
}

void RecipeFlow::importFrom(const QString &path) {
    QString problem;
    std::optional<std::vector<Recipe>> recipes = RecipeFile::read(path, problem);
    if (!recipes) {
        m_alerts.showError(problem);
    } else if (recipes->empty()) {
        m_alerts.showError(tr("There are no recipes in “%1”.").arg(QDir::toNativeSeparators(path)));
    } else {
        // Who imports from the menu sees there what has come.
        showManageSheet();
        m_manager.importRecipes(std::move(*recipes));
    }
}

void RecipeFlow::exportRecipes() { exportRecipes(m_manager.userRecipes()); }

void RecipeFlow::exportRecipes(const std::vector<Recipe> &recipes) {
    if (recipes.empty()) {
        return;
    }
    m_panels.askForRecipesToExport(proposedFileName(recipes), [this, recipes](const QString &path) {
        QString problem;
        if (!RecipeFile::write(path, recipes, problem)) {
            m_alerts.showError(problem);
        }
    });
}

} // namespace lexivore
