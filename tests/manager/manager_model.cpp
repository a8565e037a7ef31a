// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/manager/manager_model.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace lexivore::test {

namespace {

template<typename Container> auto at(Container &container, std::size_t index) {
    return container.begin() + static_cast<std::ptrdiff_t>(index);
}

TextMeasures measuresOf(const std::string &text) { return {lineCount(text), characterCount(text)}; }

std::string resultOf(const TextTransformation &transformation, const std::string &text,
                     const ParameterMap &parameters) {
    return std::string(transformation.apply(text, parameters).view());
}

bool isTemplate(const Recipe &recipe) { return recipe.category != RecipeCategory::user; }

} // namespace

ModelStep::ModelStep(std::string textBefore, std::string textAfter)
    : before(std::move(textBefore)), after(std::move(textAfter)), measures{measuresOf(before), measuresOf(after)} {}

void ManagerModel::applyTransformation(const TextTransformation &transformation, const ParameterMap &parameters,
                                       const std::vector<AppliedOperation> &made) {
    if (now.text.empty()) {
        throw TransformationError::invalidInput("Text is empty");
    }
    record("transformation");
    if (now.operations.empty()) {
        original = now.text;
    }
    const std::string result = resultOf(transformation, now.text, parameters);
    AppliedOperation added;
    added.transformation = transformation.id();
    added.transformationName = transformation.name();
    added.parameters = parameters;
    if (const std::size_t place = now.operations.size(); place < made.size()) {
        expectNew(made[place].id);
        added.id = made[place].id;
        added.timestamp = made[place].timestamp;
    }
    now.operations.push_back(added);
    now.steps.emplace(added.id, ModelStep(now.text, result));
    now.text = result;
}

void ManagerModel::applyRecipe(const Recipe &recipe, const std::vector<AppliedOperation> &made) {
    if (now.text.empty()) {
        throw TransformationError::invalidInput("Text is empty");
    }
    if (now.operations.empty()) {
        original = now.text;
    }
    for (const AppliedOperation &operation : recipe.operations) {
        if (const TransformationPointer found = findTransformation(m_catalog, operation.transformation)) {
            applyTransformation(*found, operation.parameters, made);
        }
    }
}

void ManagerModel::toggle(std::size_t index, TextAfterChange shown) {
    if (index < now.operations.size()) {
        record("toggle " + std::to_string(index));
        now.operations[index].isEnabled = !now.operations[index].isEnabled;
        reapply(shown);
    }
}

void ManagerModel::remove(std::size_t index, TextAfterChange shown) {
    if (index >= now.operations.size()) {
        return;
    }
    record("removal " + std::to_string(index) + " " + now.operations[index].id.toString().toStdString());
    now.operations.erase(at(now.operations, index));
    if (now.operations.empty()) {
        now = {.text = original, .operations = {}, .steps = {}, .problems = {}};
    } else {
        reapply(shown);
    }
}

void ManagerModel::move(std::size_t from, std::size_t to, TextAfterChange shown) {
    if (from < now.operations.size() && to < now.operations.size() && from != to) {
        record("move " + std::to_string(from) + " " + std::to_string(to));
        const AppliedOperation moved = now.operations[from];
        now.operations.erase(at(now.operations, from));
        now.operations.insert(at(now.operations, to), moved);
        reapply(shown);
    }
}

void ManagerModel::edit(std::size_t index, const ParameterMap &parameters, TextAfterChange shown) {
    if (index < now.operations.size() && now.operations[index].parameters != parameters) {
        record("transformation");
        now.operations[index].parameters = parameters;
        reapply(shown);
    }
}

void ManagerModel::clearOperations() {
    if (!now.operations.empty()) {
        record("transformation");
        returnToOriginalText();
    }
}

void ManagerModel::clearAll() {
    now = {};
    original.clear();
    undoStack.clear();
    redoStack.clear();
}

void ManagerModel::returnToOriginalText() {
    if (!now.operations.empty()) {
        now = {.text = original, .operations = {}, .steps = {}, .problems = {}};
    }
}

void ManagerModel::reapply(TextAfterChange shown) {
    now.text = original;
    now.steps.clear();
    now.problems.clear();
    for (const AppliedOperation &operation : now.operations) {
        if (!operation.isEnabled) {
            continue;
        }
        const TransformationPointer found = findTransformation(m_catalog, operation.transformation);
        if (found == nullptr) {
            now.problems[operation.id] = {OperationProblem::Kind::unknownTransformation, {}};
            continue;
        }
        try {
            const std::string result = resultOf(*found, now.text, operation.parameters);
            now.steps.emplace(operation.id, ModelStep(now.text, result));
            now.text = result;
        } catch (const TransformationError &error) {
            printed += "Error reapplying operation: " + error.description() + "\n";
            now.problems[operation.id] = {OperationProblem::Kind::failed, error.description()};
        }
    }
    if (shown == TextAfterChange::original) {
        now.text = original;
    }
}

void ManagerModel::undo() {
    if (!undoStack.empty()) {
        const ModelEntry top = undoStack.back();
        undoStack.pop_back();
        redoStack.push_back({now, top.action});
        now = top.state;
        if (now.operations.empty()) {
            now.text = original;
        }
    }
}

void ManagerModel::redo() {
    if (!redoStack.empty()) {
        const ModelEntry top = redoStack.back();
        redoStack.pop_back();
        undoStack.push_back({now, top.action});
        now = top.state;
    }
}

void ManagerModel::toggleFavorite(const std::string &id) {
    if (favorites.contains(id)) {
        favorites.erase(id);
    } else {
        favorites.insert(id);
    }
    ++writes;
}

void ManagerModel::saveRecipe(const std::string &name, const std::vector<Recipe> &made) {
    if (!now.operations.empty()) {
        add({.name = name, .operations = now.operations}, made);
        ++writes;
    }
}

void ManagerModel::deleteRecipe(const Recipe &recipe) {
    if (!isTemplate(recipe)) {
        std::erase_if(recipes, [&](const Recipe &one) { return one.id == recipe.id; });
        ++writes;
    }
}

void ManagerModel::renameRecipe(const Recipe &recipe, const std::string &newName) {
    const auto found = std::ranges::find(recipes, recipe.id, &Recipe::id);
    if (!isTemplate(recipe) && found != recipes.end()) {
        found->name = newName;
        ++writes;
    }
}

void ManagerModel::importRecipes(const std::vector<Recipe> &imported, const std::vector<Recipe> &made) {
    for (Recipe recipe : imported) {
        recipe.category = RecipeCategory::user;
        const Timestamp createdAt = recipe.createdAt;
        add(std::move(recipe), made);
        recipes.back().createdAt = createdAt;
    }
    writes += imported.empty() ? 0 : 1;
}

void ManagerModel::ensureTemplates(const std::vector<Recipe> &made) {
    if (std::ranges::any_of(recipes, isTemplate)) {
        return;
    }
    const std::vector<Recipe> users = std::exchange(recipes, {});
    for (Recipe recipe : makeRecipeTemplates()) {
        const std::size_t place = recipes.size();
        for (std::size_t i = 0; place < made.size() && i < recipe.operations.size(); ++i) {
            recipe.operations[i].id = made[place].operations.at(i).id;
            recipe.operations[i].timestamp = made[place].operations.at(i).timestamp;
        }
        add(std::move(recipe), made);
    }
    recipes.insert(recipes.end(), users.begin(), users.end());
    ++writes;
}

void ManagerModel::record(const std::string &action) {
    undoStack.push_back({now, action});
    redoStack.clear();
}

void ManagerModel::add(Recipe recipe, const std::vector<Recipe> &made) {
    if (const std::size_t place = recipes.size(); place < made.size()) {
        expectNew(made[place].id);
        recipe.id = made[place].id;
        recipe.createdAt = made[place].createdAt;
    }
    recipes.push_back(std::move(recipe));
}

void ManagerModel::expectNew(const QUuid &id) {
    EXPECT_TRUE(m_knownIds.insert(id).second) << id.toString().toStdString() << " is not new";
}

} // namespace lexivore::test
