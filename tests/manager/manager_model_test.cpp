// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Random walks through all that can be done with a manager, beside a plain model of its rules. In every second walk the
// manager keeps next to nothing of what it could compute again: nobody may be able to tell, but by the time it takes.
#include "manager/preferences.h"
#include "manager/recipe_json.h"
#include "tests/manager/manager_and_model.h"
#include "tests/support/property.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore::test {

namespace {

constexpr unsigned walks = 200;
constexpr int stepsOfAWalk = 300;
constexpr std::size_t mostOperations = 10; // some double the text

/// One that no catalog has.
class UnknownTransformation final : public TextTransformation {
public:
    UnknownTransformation() : TextTransformation("unknown", "Unknown", "", TransformationCategory::lines, "") {}
    TextBuffer apply(std::string_view text, const ParameterMap &) const override {
        return TextBuffer(std::string(text) + "?");
    }
};

class Walk : ManagerAndModel {
public:
    Walk(std::uint64_t seed, const std::optional<MemoryBudget> &little) : ManagerAndModel(little), m_dice(seed) {}

    void run() {
        for (int step = 0; step < stepsOfAWalk && !testing::Test::HasFailure(); ++step) {
            SCOPED_TRACE("step " + std::to_string(step));
            takeStep();
        }
        SCOPED_TRACE("all the way back and forth");
        while (!model.undoStack.empty() && !testing::Test::HasFailure()) {
            undo();
        }
        while (!model.redoStack.empty() && !testing::Test::HasFailure()) {
            redo();
        }
    }

private:
    void takeStep() {
        static constexpr struct {
            std::size_t weight;
            void (Walk::*take)();
        } choices[] = {
            {8, &Walk::type},
            {4, &Walk::paste},
            {16, &Walk::apply},
            {4, &Walk::applyAlone},
            {4, &Walk::applyAnyRecipe},
            {2, &Walk::applyStoredRecipe},
            {8, &Walk::toggle},
            {5, &Walk::remove},
            {7, &Walk::move},
            {7, &Walk::edit},
            {12, &Walk::undo},
            {8, &Walk::redo},
            {4, &Walk::pause},
            {4, &Walk::reapply},
            {1, &Walk::returnToOriginalText},
            {2, &Walk::clearOperations},
            {1, &Walk::clearAll},
            {1, &Walk::toggleFavorite},
            {1, &Walk::loadFavorites},
            {1, &Walk::saveRecipe},
            {1, &Walk::deleteRecipe},
            {1, &Walk::renameRecipe},
            {1, &Walk::importRecipes},
            {1, &Walk::ensureTemplates},
            {1, &Walk::loadRecipes},
            {1, &Walk::selectRecipe},
        };
        std::size_t left = 0;
        for (const auto &choice : choices) {
            left += choice.weight;
        }
        left = m_dice.below(left);
        const auto *choice = std::begin(choices);
        for (; left >= choice->weight; ++choice) {
            left -= choice->weight;
        }
        (this->*choice->take)();
    }

    // The text.

    void type() {
        const std::size_t offset = m_dice.between(0, model.now.text.size());
        const std::size_t length = std::min(m_dice.below(5), model.now.text.size() - offset);
        const std::string typed = word();
        act(
            "type", [&] { manager.editCurrentText(offset, length, typed); },
            [&] { model.now.text.replace(offset, length, typed); });
    }
    void paste() {
        const std::string pasted = m_dice.chance(10) ? "" : word() + word() + word();
        setText("paste", pasted);
    }
    /// What the window does while the operations are paused, also after each change of the stack.
    void pause() { setText("pause", model.original); }
    void setText(const std::string &name, const std::string &text) {
        act(
            name, [&] { manager.setCurrentText(Text(text)); }, [&] { model.now.text = text; });
    }

    // The stack.

    void apply() {
        if (model.now.operations.size() >= mostOperations) {
            return clearOperations();
        }
        const AppliedOperation one = operation();
        const TransformationPointer found = manager.findTransformation(one.transformation);
        const UnknownTransformation unknown;
        const TextTransformation &applied = found != nullptr ? *found : unknown;
        act(
            "apply " + one.transformation, [&] { manager.applyTransformation(applied, one.parameters); },
            [&] { model.applyTransformation(applied, one.parameters, manager.appliedOperations()); });
    }
    /// Only one transformation at a time.
    void applyAlone() {
        returnToOriginalText();
        apply();
    }
    void applyAnyRecipe() {
        Recipe recipe;
        for (std::size_t count = m_dice.below(4); count > 0; --count) {
            recipe.operations.push_back(operation());
            recipe.operations.back().isEnabled = m_dice.chance(50);
        }
        applyRecipe(recipe);
    }
    void applyStoredRecipe() { applyRecipe(anyRecipe()); }
    void applyRecipe(const Recipe &recipe) {
        if (model.now.operations.size() + recipe.operations.size() > mostOperations) {
            clearOperations();
        }
        std::string name = "apply the recipe";
        for (const AppliedOperation &one : recipe.operations) {
            name += " " + one.transformation;
        }
        act(
            name, [&] { manager.applyRecipe(recipe); },
            [&] { model.applyRecipe(recipe, manager.appliedOperations()); });
    }
    void toggle() {
        const TextAfterChange shown = textAfterChange();
        const std::size_t at = index();
        act(
            "toggle", [&] { manager.toggleOperation(at, shown); }, [&] { model.toggle(at, shown); });
    }
    void remove() {
        const TextAfterChange shown = textAfterChange();
        const std::size_t at = index();
        act(
            "remove", [&] { manager.removeOperation(at, shown); }, [&] { model.remove(at, shown); });
    }
    void move() {
        const TextAfterChange shown = textAfterChange();
        const std::size_t from = index();
        const std::size_t to = index();
        act(
            "move", [&] { manager.moveOperation(from, to, shown); }, [&] { model.move(from, to, shown); });
    }
    void edit() {
        const TextAfterChange shown = textAfterChange();
        const std::size_t at = index();
        const bool isThere = at < model.now.operations.size();
        const ParameterMap parameters = parametersFor(isThere ? model.now.operations[at].transformation : "add-prefix");
        act(
            "edit", [&] { manager.editOperationParameters(at, parameters, shown); },
            [&] { model.edit(at, parameters, shown); });
    }
    void clearOperations() {
        act(
            "clear operations", [&] { manager.clearOperations(); }, [&] { model.clearOperations(); });
    }
    void clearAll() {
        act(
            "clear all", [&] { manager.clearAll(); }, [&] { model.clearAll(); });
    }
    void returnToOriginalText() {
        act(
            "return", [&] { manager.returnToOriginalText(); }, [&] { model.returnToOriginalText(); });
    }
    void reapply() {
        act(
            "reapply", [&] { manager.reapplyOperations(); }, [&] { model.reapply(); });
    }
    void undo() {
        act(
            "undo", [&] { manager.undo(); }, [&] { model.undo(); });
    }
    void redo() {
        act(
            "redo", [&] { manager.redo(); }, [&] { model.redo(); });
    }

    // Favorites and recipes.

    void toggleFavorite() {
        const std::string id = m_dice.pick(ids);
        act(
            "toggle favorite", [&] { manager.toggleFavorite(id); }, [&] { model.toggleFavorite(id); });
        const QVariantList stored = preferences.value(preference::favorites).toList();
        EXPECT_EQ(static_cast<std::size_t>(stored.size()), model.favorites.size());
        EXPECT_EQ(favoritesIn(stored), model.favorites);
    }
    /// What is stored may have come from elsewhere.
    void loadFavorites() {
        static const QVariant lists[] = {QVariantList{}, QVariantList{"reverse", "no such id", "reverse"}};
        static const QVariant others[] = {QVariant(), "reverse", QVariantList{"reverse", 1.0}};
        const bool isList = m_dice.chance(50);
        const QVariant &stored = isList ? m_dice.pick(lists) : m_dice.pick(others);
        store(preference::favorites, stored);
        act(
            "load favorites", [&] { manager.loadFavorites(); },
            [&] { model.favorites = isList ? favoritesIn(stored.toList()) : model.favorites; });
    }
    void saveRecipe() {
        const std::string name = word();
        act(
            "save recipe", [&] { manager.saveRecipe(name); }, [&] { model.saveRecipe(name, manager.recipes()); });
    }
    void deleteRecipe() {
        const Recipe recipe = anyRecipe();
        act(
            "delete recipe", [&] { manager.deleteRecipe(recipe); }, [&] { model.deleteRecipe(recipe); });
    }
    void renameRecipe() {
        const Recipe recipe = anyRecipe();
        const std::string name = word();
        act(
            "rename recipe", [&] { manager.renameRecipe(recipe, name); }, [&] { model.renameRecipe(recipe, name); });
    }
    void importRecipes() {
        std::vector<Recipe> imported;
        for (std::size_t count = m_dice.below(3); count > 0; --count) {
            imported.push_back(anyRecipe());
        }
        act(
            "import recipes", [&] { manager.importRecipes(imported); },
            [&] { model.importRecipes(imported, manager.recipes()); });
    }
    void ensureTemplates() {
        act(
            "ensure templates", [&] { manager.ensureTemplates(); }, [&] { model.ensureTemplates(manager.recipes()); });
    }
    void loadRecipes() {
        std::vector<Recipe> recipes = model.recipes;
        recipes.resize(m_dice.below(recipes.size() + 1));
        const bool isList = m_dice.chance(80);
        store(preference::recipes, isList ? RecipeJson::encode(recipes).value() : QByteArray("[{}]"));
        act(
            "load recipes", [&] { manager.loadRecipes(); }, [&] { model.recipes = isList ? recipes : model.recipes; });
    }
    void selectRecipe() {
        const std::optional<Recipe> recipe = m_dice.chance(30) ? std::nullopt : std::optional(anyRecipe());
        act(
            "select recipe", [&] { manager.setSelectedRecipe(recipe); }, [&] { model.selectedRecipe = recipe; });
    }

    // What is drawn.

    static constexpr const char *ids[] = {"uppercase",   "reverse",       "base64-encode", "base64-decode",
                                          "trim-lines",  "hex-decode",    "add-prefix",    "reverse-lines",
                                          "json-escape", "unknown",       "shuffle-lines", "delete-lines-containing",
                                          "wrap-lines",  "replace-regex", "replace-regex", "keep-first-n-lines",
                                          "join-lines",  "shuffle-lines"};

    /// Mostly an index of the stack, now and then one behind it.
    TextAfterChange textAfterChange() {
        return m_dice.below(4) == 0 ? TextAfterChange::original : TextAfterChange::result;
    }
    std::size_t index() { return m_dice.between(0, model.now.operations.size()); }
    std::string word() { return std::string(m_dice.below(4), "ab \n!"[m_dice.below(5)]) + "abc=\n "[m_dice.below(6)]; }
    AppliedOperation operation() {
        AppliedOperation one;
        one.transformation = m_dice.pick(ids);
        one.parameters = parametersFor(one.transformation);
        return one;
    }
    ParameterMap parametersFor(const std::string &id) {
        ParameterMap given;
        if (const TransformationPointer found = manager.findTransformation(id)) {
            for (const TransformationParameter &one : found->parameters()) {
                if (m_dice.chance(95)) {
                    given[one.id] = valueFor(one.id);
                }
            }
        }
        return given;
    }
    std::string valueFor(const std::string &parameter) {
        if (parameter == "pattern") {
            static constexpr const char *patterns[] = {"a", "(a|b)(\\n)?", "^", "(", "[z", "", "\\s+"};
            return m_dice.pick(patterns);
        }
        if (parameter == "count" || parameter == "width") {
            static constexpr const char *numbers[] = {"1", "2", "3", "0", "many"};
            return m_dice.pick(numbers);
        }
        return word();
    }
    /// One of the list, one of the same id but another category, or one that is not in the list.
    Recipe anyRecipe() {
        Recipe recipe{.name = word(), .operations = {operation(), operation()}};
        if (!model.recipes.empty() && m_dice.chance(80)) {
            recipe = m_dice.pick(model.recipes);
        }
        recipe.category = m_dice.chance(10) ? RecipeCategory::coding : recipe.category;
        return recipe;
    }
    static std::set<std::string, std::less<>> favoritesIn(const QVariantList &stored) {
        std::set<std::string, std::less<>> found;
        for (const QVariant &id : stored) {
            found.insert(id.toString().toStdString());
        }
        return found;
    }
    void store(const char *key, const QVariant &value) {
        preferences.setValue(key, value);
        ++model.writes;
    }

    void act(const std::string &name, const std::function<void()> &onManager, const std::function<void()> &onModel) {
        SCOPED_TRACE(name);
        ManagerAndModel::act(static_cast<std::uint32_t>(m_dice.below(1U << 31U)), onManager, onModel);
    }

    Dice m_dice;
};

TEST(ManagerModel, EveryFieldFollowsTheRulesThroughRandomWalks) {
    for (unsigned number = 0; number < walks && !testing::Test::HasFailure(); ++number) {
        SCOPED_TRACE("walk " + std::to_string(number));
        const MemoryBudget little{.run = {.bytes = number % 100, .texts = number % 7}, .historyBytes = number % 90};
        Walk(testSeed() + number, number % 2 == 0 ? std::nullopt : std::optional(little)).run();
    }
}

} // namespace

} // namespace lexivore::test
