// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/catalog.h"
#include "manager/applied_operation.h"
#include "manager/operations_run.h"
#include "manager/recipe.h"
#include "manager/transformation_manager.h"

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace lexivore::test {

/// The texts that an operation began and ended with when it last ran, and their measures.
struct ModelStep {
    ModelStep(std::string textBefore, std::string textAfter);

    std::string before;
    std::string after;
    OperationMeasures measures;

    bool operator==(const ModelStep &) const = default;
};

struct ModelState {
    std::string text;
    std::vector<AppliedOperation> operations;
    std::map<QUuid, ModelStep> steps; ///< Of the operations that had an effect.
    OperationProblems problems;       ///< Of the others, but for the disabled ones.
};

struct ModelEntry {
    ModelState state;
    std::string action; ///< "transformation", "toggle 1", "move 1 0", or "removal 1" and the id.
};

/// The manager's rules written down once more: whole copies of all texts, every run a full one, nothing announced and
/// nothing stored. What only chance decides, ids and times, is taken over from the manager.
class ManagerModel {
public:
    explicit ManagerModel(const Catalog &catalog) : m_catalog(catalog) {}

    ModelState now;
    std::string original;
    std::vector<ModelEntry> undoStack;
    std::vector<ModelEntry> redoStack;
    std::set<std::string, std::less<>> favorites;
    std::vector<Recipe> recipes;
    std::optional<Recipe> selectedRecipe;
    std::string printed; ///< Everything so far.
    int writes = 0;      ///< How often preferences were set so far.

    /// `made` is the stack that the manager has made of the same step.
    void applyTransformation(const TextTransformation &transformation, const ParameterMap &parameters,
                             const std::vector<AppliedOperation> &made);
    void applyRecipe(const Recipe &recipe, const std::vector<AppliedOperation> &made);
    void toggle(std::size_t index, TextAfterChange shown = TextAfterChange::result);
    void remove(std::size_t index, TextAfterChange shown = TextAfterChange::result);
    void move(std::size_t from, std::size_t to, TextAfterChange shown = TextAfterChange::result);
    void edit(std::size_t index, const ParameterMap &parameters, TextAfterChange shown = TextAfterChange::result);
    void clearOperations();
    void clearAll();
    void returnToOriginalText();
    void reapply(TextAfterChange shown = TextAfterChange::result);
    void undo();
    void redo();

    void toggleFavorite(const std::string &id);
    /// `made` are the recipes that the manager has made of the same step, here and below.
    void saveRecipe(const std::string &name, const std::vector<Recipe> &made);
    void deleteRecipe(const Recipe &recipe);
    void renameRecipe(const Recipe &recipe, const std::string &newName);
    void importRecipes(const std::vector<Recipe> &imported, const std::vector<Recipe> &made);
    void ensureTemplates(const std::vector<Recipe> &made);

private:
    void record(const std::string &action);
    void add(Recipe recipe, const std::vector<Recipe> &made);
    void expectNew(const QUuid &id);

    const Catalog &m_catalog;
    std::set<QUuid> m_knownIds;
};

} // namespace lexivore::test
