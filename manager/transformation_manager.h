// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/catalog.h"
#include "engine/text.h"
#include "manager/applied_operation.h"
#include "manager/recipe.h"
#include "manager/text_history.h"

#include <QObject>

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

class Preferences;

/// The one state object: the catalog, the text, the operations stack, the history, the recipes and the favorites.
///
/// Each published field has a signal. It is emitted once for an operation that really changed the field, after all
/// fields have their new values, and never when nothing changed. Indices are positions in `appliedOperations`; an index
/// out of range is ignored.
class TransformationManager : public QObject {
    Q_OBJECT

public:
    /// Builds the catalog, then loads favorites and recipes from `preferences`, which must outlive the manager.
    explicit TransformationManager(Preferences &preferences, QObject *parent = nullptr);
    ~TransformationManager() override;

    [[nodiscard]] const Catalog &transformations() const { return m_transformations; }
    /// The entries of the category in catalog order; for `favorites` those that the user has marked.
    [[nodiscard]] Catalog transformations(TransformationCategory category) const;
    [[nodiscard]] Catalog favoriteTransformations() const;
    [[nodiscard]] TransformationPointer findTransformation(std::string_view id) const;

    [[nodiscard]] const std::set<std::string, std::less<>> &favorites() const { return m_favorites; }
    [[nodiscard]] const Text &currentText() const { return m_currentText; }
    /// The base text from which the operations stack is re-run.
    [[nodiscard]] const Text &originalText() const { return m_originalText; }
    [[nodiscard]] const std::vector<AppliedOperation> &appliedOperations() const { return m_appliedOperations; }
    [[nodiscard]] const TextHistory &history() const { return m_history; }
    [[nodiscard]] const std::vector<Recipe> &recipes() const { return m_recipes; }
    [[nodiscard]] const std::optional<Recipe> &selectedRecipe() const { return m_selectedRecipe; }
    void setSelectedRecipe(std::optional<Recipe> recipe);

    /// Replaces the current text alone: opening, pasting, pausing.
    void setCurrentText(Text text);
    /// The user's typing: `length` bytes at byte `offset` become `replacement`. Does not cost the size of the text.
    void editCurrentText(std::size_t offset, std::size_t length, std::string_view replacement);
    /// Back to the base text with an empty stack, without a history entry.
    void returnToOriginalText();

    /// Applies to the current text and appends to the stack. Throws TransformationError; see `apply` there.
    void applyTransformation(const TextTransformation &transformation, const ParameterMap &parameters);
    void toggleOperation(std::size_t index);
    void removeOperation(std::size_t index);
    /// `to` counts after the removal, so the operation ends at that index.
    void moveOperation(std::size_t from, std::size_t to);
    void clearOperations();
    void clearAll();
    /// Runs every enabled operation over the base text. A failing one is skipped and reported on standard output.
    void reapplyOperations();

    void undo();
    void redo();

    void saveRecipe(std::string name);
    void deleteRecipe(const Recipe &recipe);
    void renameRecipe(const Recipe &recipe, std::string newName);
    /// Appends the recipe's operations to the stack by applying each. Throws the first TransformationError.
    void applyRecipe(const Recipe &recipe);
    /// Puts the built-in templates in front when none is there.
    void ensureTemplates();

    void loadFavorites();
    void saveFavorites();
    void toggleFavorite(const std::string &id);
    void loadRecipes();
    void saveRecipes();

signals:
    void favoritesChanged();
    void currentTextChanged();
    void originalTextChanged();
    void appliedOperationsChanged();
    void recipesChanged();
    void selectedRecipeChanged();

private:
    Preferences &m_preferences;
    Catalog m_transformations;
    std::set<std::string, std::less<>> m_favorites;
    Text m_currentText;
    Text m_originalText;
    std::vector<AppliedOperation> m_appliedOperations;
    TextHistory m_history;
    std::vector<Recipe> m_recipes;
    std::optional<Recipe> m_selectedRecipe;
};

} // namespace lexivore
