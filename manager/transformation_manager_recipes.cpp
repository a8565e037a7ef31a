// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// What the manager keeps between runs: favorites and recipes.
#include "manager/transformation_manager.h"

#include "manager/preferences.h"
#include "manager/recipe_json.h"
#include "manager/text_conversion.h"

#include <QVariantList>

#include <algorithm>
#include <utility>

namespace lexivore {

namespace {

bool isTheUsers(const Recipe &recipe) { return !recipe.isTemplate(); }

} // namespace

void TransformationManager::setSelectedRecipe(std::optional<Recipe> recipe) {
    const bool isSame = recipe.has_value() == m_selectedRecipe.has_value() &&
                        (!recipe.has_value() || haveSameFields(*recipe, *m_selectedRecipe));
    if (!isSame) {
        m_selectedRecipe = std::move(recipe);
        emit selectedRecipeChanged();
    }
}

void TransformationManager::saveRecipe(std::string name) {
    if (m_state.appliedOperations.empty()) {
        return;
    }
    std::vector<Recipe> next = m_recipes;
    next.push_back({.name = std::move(name), .operations = m_state.appliedOperations});
    publishRecipes(std::move(next));
}

void TransformationManager::deleteRecipe(const Recipe &recipe) {
    if (recipe.isTemplate()) {
        return;
    }
    std::vector<Recipe> next = m_recipes;
    std::erase_if(next, [&](const Recipe &one) { return one.id == recipe.id; });
    publishRecipes(std::move(next));
}

void TransformationManager::renameRecipe(const Recipe &recipe, std::string newName) {
    if (recipe.isTemplate()) {
        return;
    }
    std::vector<Recipe> next = m_recipes;
    const auto found = std::ranges::find(next, recipe.id, &Recipe::id);
    if (found == next.end()) {
        return;
    }
    found->name = std::move(newName);
    publishRecipes(std::move(next));
}

void TransformationManager::applyRecipe(const Recipe &recipe) {
    if (m_state.currentText.empty()) {
        throw TransformationError::invalidInput(QT_TRANSLATE_NOOP("Engine", "Text is empty"));
    }
    State next = m_state;
    if (next.appliedOperations.empty()) {
        next.originalText = next.currentText;
    }
    try {
        for (const AppliedOperation &operation : recipe.operations) {
            if (const TransformationPointer found = findTransformation(operation.transformation)) {
                apply(next, *found, operation.parameters);
            }
        }
    } catch (...) {
        publish(std::move(next)); // what was applied before the error stays
        throw;
    }
    publish(std::move(next));
}

void TransformationManager::ensureTemplates() {
    if (!std::ranges::all_of(m_recipes, isTheUsers)) {
        return;
    }
    std::vector<Recipe> next = makeRecipeTemplates();
    next.insert(next.end(), m_recipes.begin(), m_recipes.end());
    publishRecipes(std::move(next));
}

std::vector<Recipe> TransformationManager::userRecipes() const {
    std::vector<Recipe> found;
    std::ranges::copy_if(m_recipes, std::back_inserter(found), isTheUsers);
    return found;
}

void TransformationManager::importRecipes(std::vector<Recipe> recipes) {
    if (recipes.empty()) {
        return;
    }
    std::vector<Recipe> next = m_recipes;
    for (Recipe &recipe : recipes) {
        recipe.id = QUuid::createUuid();
        recipe.category = RecipeCategory::user;
        next.push_back(std::move(recipe));
    }
    publishRecipes(std::move(next));
}

void TransformationManager::publishRecipes(std::vector<Recipe> next) {
    const bool areNew = !haveSameFields(next, m_recipes);
    m_recipes = std::move(next);
    saveRecipes();
    if (areNew) {
        emit recipesChanged();
    }
}

void TransformationManager::loadRecipes() {
    const QVariant stored = m_preferences.value(QLatin1String(preference::recipes));
    if (stored.typeId() != QMetaType::QByteArray) {
        return;
    }
    std::optional<std::vector<Recipe>> recipes = RecipeJson::decode(stored.toByteArray());
    if (!recipes) {
        return;
    }
    const bool areNew = !haveSameFields(*recipes, m_recipes);
    m_recipes = std::move(*recipes);
    if (areNew) {
        emit recipesChanged();
    }
}

void TransformationManager::saveRecipes() {
    if (const std::optional<QByteArray> json = RecipeJson::encode(m_recipes)) {
        m_preferences.setValue(QLatin1String(preference::recipes), *json);
    }
}

void TransformationManager::loadFavorites() {
    const QVariant stored = m_preferences.value(QLatin1String(preference::favorites));
    if (stored.typeId() != QMetaType::QVariantList) {
        return;
    }
    std::set<std::string, std::less<>> favorites;
    for (const QVariant &element : stored.toList()) {
        if (element.typeId() != QMetaType::QString) {
            return;
        }
        favorites.insert(element.toString().toStdString());
    }
    if (favorites != m_favorites) {
        m_favorites = std::move(favorites);
        emit favoritesChanged();
    }
}

void TransformationManager::saveFavorites() {
    QVariantList ids;
    for (const std::string &id : m_favorites) {
        ids.append(toQString(id));
    }
    m_preferences.setValue(QLatin1String(preference::favorites), ids);
}

void TransformationManager::toggleFavorite(const std::string &id) {
    std::set<std::string, std::less<>> next = m_favorites;
    if (next.erase(id) == 0) {
        next.insert(id);
    }
    m_favorites = std::move(next);
    saveFavorites();
    emit favoritesChanged();
}

} // namespace lexivore
