// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/catalog.h"
#include "engine/text.h"
#include "manager/applied_operation.h"
#include "manager/operations_run.h"
#include "manager/recipe.h"
#include "manager/text_history.h"

#include <QObject>

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

class Preferences;

/// What an operation did to the length of the text.
struct OperationMeasures {
    TextMeasures before;
    TextMeasures after;

    bool operator==(const OperationMeasures &) const = default;
};

/// What the text is after a change of the stack: the new result or, while the operations are paused, the base text.
enum class TextAfterChange { result, original };

/// What the manager may hold only so that it need not be computed again. With less all is the same, but slower.
struct MemoryBudget {
    OperationsRunner::Budget run = {};
    std::size_t historyBytes = TextHistory::usualBudget;
};

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
    TransformationManager(Preferences &preferences, const MemoryBudget &memory, QObject *parent = nullptr);
    ~TransformationManager() override;

    [[nodiscard]] const Catalog &transformations() const { return m_transformations; }
    /// The entries of the category in catalog order; for `favorites` those that the user has marked.
    [[nodiscard]] Catalog transformations(TransformationCategory category) const;
    [[nodiscard]] Catalog favoriteTransformations() const;
    [[nodiscard]] TransformationPointer findTransformation(std::string_view id) const;

    [[nodiscard]] const std::set<std::string, std::less<>> &favorites() const { return m_favorites; }
    [[nodiscard]] const Text &currentText() const { return m_state.currentText; }
    /// The base text from which the operations stack is re-run.
    [[nodiscard]] const Text &originalText() const { return m_state.originalText; }
    [[nodiscard]] const std::vector<AppliedOperation> &appliedOperations() const { return m_state.appliedOperations; }
    [[nodiscard]] const TextHistory &history() const { return m_history; }
    /// Which of the applied operations had no effect when the stack was last run, and why.
    [[nodiscard]] const OperationProblems &operationProblems() const { return m_state.problems; }
    /// How long the text was before and after the operation when it last ran; nothing when it did not, being disabled,
    /// unknown or failed. The first call after a run takes one pass over each of the two texts, later ones no time.
    [[nodiscard]] std::optional<OperationMeasures> operationMeasures(const QUuid &operation) const;
    [[nodiscard]] const std::vector<Recipe> &recipes() const { return m_recipes; }
    [[nodiscard]] const std::optional<Recipe> &selectedRecipe() const { return m_selectedRecipe; }
    void setSelectedRecipe(std::optional<Recipe> recipe);

    /// Replaces the current text alone: opening, pasting, pausing.
    void setCurrentText(Text text);
    /// The user's typing: `length` bytes at byte `offset` become `replacement`. Does not cost the size of the text.
    void editCurrentText(std::size_t offset, std::size_t length, std::string_view replacement);
    /// Back to the base text with an empty stack, without a history entry. An empty stack does nothing.
    void returnToOriginalText();

    /// Applies to the current text and appends to the stack. Passes on what `TextTransformation::apply` throws; the
    /// text and the stack are then as before, but the history entry stays. An empty text is refused before any change.
    void applyTransformation(const TextTransformation &transformation, const ParameterMap &parameters);
    void toggleOperation(std::size_t index, TextAfterChange shown = TextAfterChange::result);
    void removeOperation(std::size_t index, TextAfterChange shown = TextAfterChange::result);
    /// `to` counts after the removal, so the operation ends at that index.
    void moveOperation(std::size_t from, std::size_t to, TextAfterChange shown = TextAfterChange::result);
    /// Gives the operation other parameters, in its place and with its id, and runs the stack again.
    /// False, and nothing recorded, when the index is out of range or the parameters are the same.
    bool editOperationParameters(std::size_t index, ParameterMap parameters,
                                 TextAfterChange shown = TextAfterChange::result);
    /// Back to the base text with an empty stack, which can be taken back. An empty stack does nothing.
    void clearOperations();
    /// Empties the texts, the stack and the history; nothing brings them back.
    void clearAll();
    /// Runs every enabled operation over the base text. A failing one is skipped, reported on standard output and noted
    /// in `operationProblems`.
    void reapplyOperations();

    /// Takes back the last entry of the history. With the stack that it brings back empty, the base text is shown, not
    /// the text of the entry. An empty history does nothing.
    void undo();
    /// Brings back what was taken back last, with its text. Does nothing when nothing was.
    void redo();

    /// Appends a recipe of the user's own with the operations of the stack; any name will do, also one that is there
    /// already. An empty stack does nothing.
    void saveRecipe(std::string name);
    /// Deletes every recipe with the id of this one. A built-in one, or an id that none has, does nothing.
    void deleteRecipe(const Recipe &recipe);
    /// Renames the first recipe with the id of this one, likewise. Any name will do.
    void renameRecipe(const Recipe &recipe, std::string newName);
    /// Appends the recipe's operations to the stack by applying each, also those that were disabled; those whose
    /// transformation is unknown are left out. Passes on what `TextTransformation::apply` throws; what was applied
    /// until then stays. An empty text is refused before any change.
    void applyRecipe(const Recipe &recipe);
    /// Puts the built-in templates in front when none is there.
    void ensureTemplates();
    /// The recipes that the user made, in their order.
    [[nodiscard]] std::vector<Recipe> userRecipes() const;
    /// Appends the recipes as the user's own, with fresh ids.
    void importRecipes(std::vector<Recipe> recipes);

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
    void operationProblemsChanged();
    /// An operation began or ended with another text than when it ran before, or does not take part any more.
    void operationMeasuresChanged();
    /// An entry was recorded, taken back or forgotten: what can be undone or redone may be different now.
    void historyChanged();
    void recipesChanged();
    void selectedRecipeChanged();

private:
    /// The fields that operations change together.
    struct State {
        Text currentText;
        Text originalText;
        std::vector<AppliedOperation> appliedOperations;
        OperationProblems problems;
        OperationTexts texts;
        TextOrigin origin; ///< Of `currentText`.
    };

    [[nodiscard]] static TextHistoryState snapshot(const State &state);
    void record(const State &before, HistoryActionType action);
    void apply(State &state, const TextTransformation &transformation, const ParameterMap &parameters);
    void reapply(State &state, TextAfterChange shown = TextAfterChange::result);
    void reapplyOrReturnToOriginal(State &state, TextAfterChange shown = TextAfterChange::result);
    void restore(TextHistoryState restored, bool emptyStackShowsOriginalText);
    void publish(State next);
    void publishRecipes(std::vector<Recipe> next);

    Preferences &m_preferences;
    Catalog m_transformations;
    std::set<std::string, std::less<>> m_favorites;
    State m_state;
    OperationsRunner m_runner;
    TextHistory m_history;
    bool m_historyHasChanged = false; ///< Since the last time that it was announced.
    std::vector<Recipe> m_recipes;
    std::optional<Recipe> m_selectedRecipe;
};

} // namespace lexivore
