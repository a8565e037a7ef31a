// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Random sequences of operations on the manager and on a plain model that copies whole texts and states each rule as a
// few assignments. After every step all fields must be equal, and exactly the changed ones announced, once.
#include "manager/transformation_manager.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/lines.h"
#include "tests/manager/change_counter.h"
#include "tests/support/memory_preferences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace lexivore {
namespace {

struct ModelOperation {
    std::string transformation;
    ParameterMap parameters;
    bool isEnabled = true;

    bool operator==(const ModelOperation &) const = default;
};

/// The texts that an operation began and ended with when it last ran.
using ModelTexts = std::optional<std::pair<std::string, std::string>>;

struct ModelState {
    std::string text;
    std::vector<ModelOperation> operations;
    std::vector<ModelTexts> texts; ///< One for each operation.

    bool operator==(const ModelState &) const = default;
};

class Model {
public:
    explicit Model(const Catalog &catalog) : m_catalog(catalog) {}

    ModelState now;
    std::string original;
    std::vector<ModelState> undoStack;
    std::vector<ModelState> redoStack;
    std::string printed; ///< Since it was last cleared.

    /// Applies the steps one after the other; false when one fails.
    bool apply(const std::vector<ModelOperation> &steps) {
        if (now.text.empty()) {
            return false;
        }
        if (now.operations.empty()) {
            original = now.text;
        }
        for (const ModelOperation &step : steps) {
            const TransformationPointer found = findTransformation(m_catalog, step.transformation);
            if (found == nullptr) {
                continue;
            }
            if (now.text.empty()) {
                return false;
            }
            push();
            if (now.operations.empty()) {
                original = now.text;
            }
            std::string result;
            try {
                result = std::string(found->apply(now.text, step.parameters).view());
            } catch (const TransformationError &) {
                return false;
            }
            now.operations.push_back({step.transformation, step.parameters, true});
            now.texts.emplace_back(std::pair(now.text, result));
            now.text = result;
        }
        return true;
    }
    void toggle(std::size_t index) {
        if (index < now.operations.size()) {
            push();
            now.operations[index].isEnabled = !now.operations[index].isEnabled;
            reapply();
        }
    }
    void remove(std::size_t index) {
        if (index < now.operations.size()) {
            push();
            now.operations.erase(now.operations.begin() + static_cast<std::ptrdiff_t>(index));
            now.texts.clear();
            if (now.operations.empty()) {
                now.text = original;
            } else {
                reapply();
            }
        }
    }
    void move(std::size_t from, std::size_t to) {
        if (from < now.operations.size() && to < now.operations.size() && from != to) {
            push();
            const ModelOperation moved = now.operations[from];
            now.operations.erase(now.operations.begin() + static_cast<std::ptrdiff_t>(from));
            now.operations.insert(now.operations.begin() + static_cast<std::ptrdiff_t>(to), moved);
            reapply();
        }
    }
    void edit(std::size_t index, const ParameterMap &parameters) {
        if (index < now.operations.size() && now.operations[index].parameters != parameters) {
            push();
            now.operations[index].parameters = parameters;
            reapply();
        }
    }
    void clearOperations() {
        if (!now.operations.empty()) {
            push();
            now.operations.clear();
            now.texts.clear();
            now.text = original;
        }
    }
    void clearAll() {
        now = {};
        original.clear();
        undoStack.clear();
        redoStack.clear();
    }
    void returnToOriginalText() {
        if (!now.operations.empty()) {
            now = {original, {}, {}};
        }
    }
    void reapply() {
        now.text = original;
        now.texts.assign(now.operations.size(), std::nullopt);
        for (std::size_t i = 0; i < now.operations.size(); ++i) {
            const ModelOperation &operation = now.operations[i];
            const TransformationPointer found = findTransformation(m_catalog, operation.transformation);
            if (operation.isEnabled && found != nullptr) {
                try {
                    const std::string result(found->apply(now.text, operation.parameters).view());
                    now.texts[i] = std::pair(now.text, result);
                    now.text = result;
                } catch (const TransformationError &error) {
                    printed += "Error reapplying operation: " + error.description() + "\n";
                }
            }
        }
    }
    void undo() {
        if (!undoStack.empty()) {
            redoStack.push_back(now);
            now = undoStack.back();
            undoStack.pop_back();
            if (now.operations.empty()) {
                now.text = original;
            }
        }
    }
    void redo() {
        if (!redoStack.empty()) {
            undoStack.push_back(now);
            now = redoStack.back();
            redoStack.pop_back();
        }
    }

private:
    void push() {
        undoStack.push_back(now);
        redoStack.clear();
    }

    const Catalog &m_catalog;
};

std::vector<ModelOperation> operationsOf(const std::vector<AppliedOperation> &operations) {
    std::vector<ModelOperation> plain;
    plain.reserve(operations.size());
    for (const AppliedOperation &operation : operations) {
        plain.push_back({operation.transformation, operation.parameters, operation.isEnabled});
    }
    return plain;
}

struct ShownState {
    std::string text;
    std::vector<ModelOperation> operations;
    std::vector<std::optional<OperationMeasures>> measures;

    bool operator==(const ShownState &) const = default;
};

TextMeasures measuresOf(const std::string &text) { return {lineCount(text), characterCount(text)}; }

ShownState shown(const ModelState &state) {
    ShownState found{state.text, state.operations, {}};
    for (const ModelTexts &texts : state.texts) {
        found.measures.push_back(
            texts.has_value() ? std::optional(OperationMeasures{measuresOf(texts->first), measuresOf(texts->second)})
                              : std::nullopt);
    }
    return found;
}

ShownState shown(const TextHistoryState &state) {
    ShownState found{std::string(state.text.view()), operationsOf(state.operations), {}};
    for (const AppliedOperation &operation : state.operations) {
        const auto texts = state.texts.find(operation.id);
        found.measures.push_back(
            texts != state.texts.end()
                ? std::optional(OperationMeasures{texts->second.before->measures(), texts->second.after->measures()})
                : std::nullopt);
    }
    return found;
}

std::vector<ShownState> shown(const std::vector<ModelState> &states) {
    std::vector<ShownState> found;
    std::ranges::transform(states, std::back_inserter(found), [](const ModelState &state) { return shown(state); });
    return found;
}

std::vector<ShownState> shown(const std::vector<HistoryEntry> &entries) {
    std::vector<ShownState> found;
    std::ranges::transform(entries, std::back_inserter(found),
                           [](const HistoryEntry &entry) { return shown(entry.state); });
    return found;
}

class Walk {
public:
    explicit Walk(unsigned seed) : m_random(seed) {}

    void run() {
        for (int step = 0; step < 300 && !testing::Test::HasFailure(); ++step) {
            const Model before = m_model;
            m_model.printed.clear();
            testing::internal::CaptureStdout();
            const std::string done = takeStep();
            const std::string printed = testing::internal::GetCapturedStdout();
            SCOPED_TRACE("step " + std::to_string(step) + ": " + done);
            EXPECT_EQ(printed, m_model.printed);
            compare(before);
        }
    }

private:
    std::size_t upTo(std::size_t most) { return static_cast<std::size_t>(m_random()) % (most + 1); }
    /// Mostly an index of the stack, now and then one behind it.
    std::size_t index() { return upTo(m_model.now.operations.size()); }
    std::string word() { return std::string(upTo(3), "ab \n!"[upTo(4)]) + "abc=\n "[upTo(5)]; }

    ModelOperation step() {
        static const char *const ids[] = {"uppercase",  "reverse",       "base64-encode", "base64-decode", "trim-lines",
                                          "hex-decode", "reverse-lines", "json-escape",   "no such id"};
        switch (upTo(3)) {
        case 0:
            return {"add-prefix", {{"prefix", word()}}, true};
        case 1:
            return {"delete-lines-containing", {{"text", word()}}, true};
        default:
            return {ids[upTo(std::size(ids) - 1)], {}, true};
        }
    }

    std::string takeStep() {
        switch (upTo(15)) {
        case 0:
        case 1: {
            const std::size_t offset = upTo(m_model.now.text.size());
            const std::size_t length = std::min(upTo(4), m_model.now.text.size() - offset);
            const std::string typed = word();
            m_manager.editCurrentText(offset, length, typed);
            m_model.now.text.replace(offset, length, typed);
            return "type";
        }
        case 2: {
            const std::string pasted = word() + word() + word();
            m_manager.setCurrentText(Text(pasted));
            m_model.now.text = pasted;
            return "set";
        }
        case 3:
        case 4:
        case 5: {
            const ModelOperation one = step();
            const TransformationPointer found = m_manager.findTransformation(one.transformation);
            if (found != nullptr) {
                expectSame([&] { m_manager.applyTransformation(*found, one.parameters); }, m_model.apply({one}));
            }
            return "apply " + one.transformation;
        }
        case 6: {
            const std::vector<ModelOperation> steps = {step(), step(), step()};
            Recipe recipe;
            for (const ModelOperation &one : steps) {
                AppliedOperation &operation = recipe.operations.emplace_back();
                operation.transformation = one.transformation;
                operation.parameters = one.parameters;
                operation.isEnabled = upTo(1) == 0;
            }
            expectSame([&] { m_manager.applyRecipe(recipe); }, m_model.apply(steps));
            return "recipe " + steps[0].transformation + " " + steps[1].transformation + " " + steps[2].transformation;
        }
        case 7: {
            const std::size_t at = index();
            m_manager.toggleOperation(at);
            m_model.toggle(at);
            return "toggle";
        }
        case 8: {
            const std::size_t at = index();
            m_manager.removeOperation(at);
            m_model.remove(at);
            return "remove";
        }
        case 9: {
            const std::size_t from = index();
            const std::size_t to = index();
            m_manager.moveOperation(from, to);
            m_model.move(from, to);
            return "move";
        }
        case 10: {
            const std::size_t at = index();
            const ParameterMap parameters = {{"prefix", word()}};
            m_manager.editOperationParameters(at, parameters);
            m_model.edit(at, parameters);
            return "edit";
        }
        case 11:
            m_manager.undo();
            m_model.undo();
            return "undo";
        case 12:
            m_manager.redo();
            m_model.redo();
            return "redo";
        case 13:
            m_manager.reapplyOperations();
            m_model.reapply();
            return "reapply";
        case 14:
            m_manager.returnToOriginalText();
            m_model.returnToOriginalText();
            return "return";
        default:
            if (upTo(3) == 0) {
                m_manager.clearAll();
                m_model.clearAll();
                return "clear all";
            }
            m_manager.clearOperations();
            m_model.clearOperations();
            return "clear operations";
        }
    }

    template<typename Action> void expectSame(const Action &action, bool succeeds) {
        bool succeeded = true;
        try {
            action();
        } catch (const TransformationError &) {
            succeeded = false;
        }
        EXPECT_EQ(succeeded, succeeds);
    }

    void compare(const Model &before) {
        EXPECT_EQ(m_manager.currentText().view(), m_model.now.text);
        EXPECT_EQ(m_manager.originalText().view(), m_model.original);
        EXPECT_EQ(operationsOf(m_manager.appliedOperations()), m_model.now.operations);
        EXPECT_EQ(shown(m_manager.history().undoStack()), shown(m_model.undoStack));
        EXPECT_EQ(shown(m_manager.history().redoStack()), shown(m_model.redoStack));
        std::map<QUuid, OperationMeasures> measures;
        const ShownState expected = shown(m_model.now);
        for (std::size_t i = 0; i < expected.operations.size(); ++i) {
            const QUuid id = m_manager.appliedOperations()[i].id;
            const std::optional<OperationMeasures> found = m_manager.operationMeasures(id);
            EXPECT_EQ(found, expected.measures[i]);
            if (found.has_value()) {
                measures[id] = *found;
            }
        }

        const std::string announced = m_changes.take();
        EXPECT_EQ(timesIn(announced, "currentText"), before.now.text != m_model.now.text ? 1 : 0);
        EXPECT_EQ(timesIn(announced, "originalText"), before.original != m_model.original ? 1 : 0);
        const int least = before.now.operations != m_model.now.operations ? 1 : 0;
        EXPECT_GE(timesIn(announced, "operations"), least); // two with the same parameters may have changed places
        EXPECT_LE(timesIn(announced, "operations"), 1);
        const bool historyIsNew = before.undoStack != m_model.undoStack || before.redoStack != m_model.redoStack;
        EXPECT_EQ(timesIn(announced, "history"), historyIsNew ? 1 : 0);
        const bool problemsAreNew = m_problems != m_manager.operationProblems();
        EXPECT_EQ(timesIn(announced, "problems"), problemsAreNew ? 1 : 0);
        EXPECT_GE(timesIn(announced, "measures"), m_measures != measures ? 1 : 0); // a text can be new and as long
        EXPECT_LE(timesIn(announced, "measures"), 1);
        m_measures = measures;
        m_problems = m_manager.operationProblems();
        EXPECT_TRUE(std::ranges::all_of(m_problems, [&](const auto &problem) {
            return std::ranges::count(m_manager.appliedOperations(), problem.first, &AppliedOperation::id) == 1;
        }));
    }

    static int timesIn(const std::string &announced, const std::string &name) {
        int times = 0;
        for (std::size_t at = announced.find(name); at != std::string::npos; at = announced.find(name, at + 1)) {
            ++times;
        }
        return times;
    }

    std::mt19937 m_random;
    test::MemoryPreferences m_preferences;
    TransformationManager m_manager{m_preferences};
    test::ChangeCounter m_changes{m_manager};
    Model m_model{m_manager.transformations()};
    OperationProblems m_problems;
    std::map<QUuid, OperationMeasures> m_measures;
};

TEST(ManagerModel, EveryFieldFollowsTheRulesThroughRandomSequences) {
    for (unsigned seed = 1; seed <= 150 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Walk(seed).run();
    }
}

} // namespace
} // namespace lexivore
