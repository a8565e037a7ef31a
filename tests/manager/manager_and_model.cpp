// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/manager/manager_and_model.h"

#include "manager/preferences.h"
#include "manager/recipe_json.h"
#include "tests/support/scripted_randomness.h"

#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <sstream>
#include <variant>

namespace lexivore::test {

namespace {

/// Keeps what is printed from the terminal while it lives.
class Printed {
public:
    Printed() : m_usual(std::cout.rdbuf(m_text.rdbuf())) {}
    ~Printed() { std::cout.rdbuf(m_usual); }
    Printed(const Printed &) = delete;
    Printed &operator=(const Printed &) = delete;

    [[nodiscard]] std::string text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::streambuf *m_usual;
};

/// The description of the error that `action` ends with, or nothing.
std::string errorOf(const std::function<void()> &action) {
    try {
        action();
    } catch (const TransformationError &error) {
        return error.description();
    }
    return {};
}

bool areSame(const std::optional<Recipe> &left, const std::optional<Recipe> &right) {
    return left.has_value() == right.has_value() && (!left.has_value() || haveSameFields(*left, *right));
}

/// The action as the model names it.
std::string nameOf(const HistoryEntry &entry) {
    if (const auto *removal = std::get_if<HistoryRemoval>(&entry.action)) {
        return "removal " + std::to_string(removal->index) + " " + removal->operation.id.toString().toStdString();
    }
    if (const auto *toggle = std::get_if<HistoryToggle>(&entry.action)) {
        return "toggle " + std::to_string(toggle->index);
    }
    if (const auto *move = std::get_if<HistoryMove>(&entry.action)) {
        return "move " + std::to_string(move->from) + " " + std::to_string(move->to);
    }
    return "transformation";
}

using Measures = std::map<QUuid, OperationMeasures>;

Measures measuresOf(const ModelState &state) {
    Measures found;
    for (const auto &[id, step] : state.steps) {
        found.emplace(id, step.measures);
    }
    return found;
}

Measures measuresOf(const TextHistoryState &state) {
    Measures found;
    for (const auto &[id, texts] : state.texts) {
        found.emplace(id, OperationMeasures{texts.before->measures(), texts.after->measures()});
    }
    return found;
}

void compareHistory(const std::vector<HistoryEntry> &entries, const std::vector<ModelEntry> &expected) {
    ASSERT_EQ(entries.size(), expected.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const TextHistoryState &state = entries[i].state;
        EXPECT_EQ(state.isTextForgotten ? expected[i].state.text : state.text.view(), expected[i].state.text);
        EXPECT_TRUE(haveSameFields(state.operations, expected[i].state.operations));
        EXPECT_EQ(state.problems, expected[i].state.problems);
        EXPECT_EQ(measuresOf(state), measuresOf(expected[i].state));
        EXPECT_EQ(nameOf(entries[i]), expected[i].action);
    }
}

} // namespace

ManagerAndModel::ManagerAndModel(const std::optional<MemoryBudget> &little)
    : manager(preferences, little.value_or(MemoryBudget())), model(manager.transformations()),
      m_hasLittleMemory(little.has_value()) {}

ManagerAndModel::Before::Before(const ManagerModel &model)
    : state(model.now), original(model.original), undoDepth(model.undoStack.size()), redoDepth(model.redoStack.size()),
      recipes(model.recipes), selectedRecipe(model.selectedRecipe), favorites(model.favorites), writes(model.writes) {}

void ManagerAndModel::act(std::uint32_t chance, const std::function<void()> &onManager,
                          const std::function<void()> &onModel) {
    const Before before(model);
    std::string error;
    std::string printed;
    {
        restartRandomness(chance);
        const Printed capture;
        error = errorOf(onManager);
        printed = capture.text();
    }
    restartRandomness(chance);
    model.printed.clear();
    EXPECT_EQ(error, errorOf(onModel));
    EXPECT_EQ(printed, model.printed);
    compareText();
    compareHistory(manager.history().undoStack(), model.undoStack);
    compareHistory(manager.history().redoStack(), model.redoStack);
    compareRecipes(before);
    compareAnnouncements(before);
}

void ManagerAndModel::compareText() const {
    EXPECT_EQ(manager.currentText().view(), model.now.text);
    EXPECT_EQ(manager.originalText().view(), model.original);
    EXPECT_TRUE(haveSameFields(manager.appliedOperations(), model.now.operations));
    EXPECT_EQ(manager.operationProblems(), model.now.problems);
    Measures measures;
    for (const AppliedOperation &operation : manager.appliedOperations()) {
        if (const std::optional<OperationMeasures> found = manager.operationMeasures(operation.id)) {
            measures.emplace(operation.id, *found);
        }
    }
    EXPECT_EQ(measures, measuresOf(model.now));
}

void ManagerAndModel::compareRecipes(const Before &before) const {
    EXPECT_EQ(manager.favorites(), model.favorites);
    EXPECT_TRUE(haveSameFields(manager.recipes(), model.recipes));
    EXPECT_TRUE(areSame(manager.selectedRecipe(), model.selectedRecipe));
    EXPECT_EQ(preferences.writeCount(), model.writes);
    if (model.writes != before.writes && model.favorites == before.favorites) {
        const QByteArray stored = preferences.value(preference::recipes).toByteArray();
        EXPECT_TRUE(haveSameFields(RecipeJson::decode(stored).value_or(std::vector<Recipe>()), model.recipes));
    }
}

void ManagerAndModel::compareAnnouncements(const Before &before) {
    const ModelState &now = model.now;
    std::string expected;
    const auto expect = [&](bool isNew, const std::string &name) {
        expected += isNew ? (expected.empty() ? "" : " ") + name : "";
    };
    expect(now.text != before.state.text, "currentText");
    expect(model.original != before.original, "originalText");
    expect(!haveSameFields(now.operations, before.state.operations), "operations");
    expect(now.problems != before.state.problems, "problems");
    const std::string announced = m_changes.take();
    // Of a text that is no longer held only the measures can be compared.
    const bool cannotTell = m_hasLittleMemory && measuresOf(now) == measuresOf(before.state);
    const bool isAnnounced = announced.find("measures") != std::string::npos;
    expect(now.steps != before.state.steps && (!cannotTell || isAnnounced), "measures");
    expect(model.undoStack.size() != before.undoDepth || model.redoStack.size() != before.redoDepth, "history");
    expect(!haveSameFields(model.recipes, before.recipes), "recipes");
    expect(!areSame(model.selectedRecipe, before.selectedRecipe), "selectedRecipe");
    expect(model.favorites != before.favorites, "favorites");
    EXPECT_EQ(announced, expected);
}

} // namespace lexivore::test
