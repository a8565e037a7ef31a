// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/text_history.h"

#include "engine/catalog.h"
#include "engine/text_transformation.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace lexivore {
namespace {

TextHistoryState state(std::string_view text) { return {Text(text), {}}; }

TEST(TextHistory, StatesAreEqualByTextAndOperationIds) {
    TextHistoryState one = state("a");
    TextHistoryState other = state("a");
    EXPECT_EQ(one, other);
    EXPECT_NE(one, state("b"));
    one.operations.emplace_back();
    EXPECT_NE(one, other);
    other.operations.push_back(one.operations.front());
    other.operations.front().isEnabled = false;
    other.operations.front().transformation = "something else";
    EXPECT_EQ(one, other);
    other.operations.front().id = QUuid::createUuid();
    EXPECT_NE(one, other);
}

TEST(TextHistory, UndoAndRedoSwapStatesAndKeepTheAction) {
    TextHistory history;
    history.push(state("1"), HistoryToggle{4});
    history.push(state("2"), HistoryMove{1, 2});
    EXPECT_EQ(history.undo(state("3")), state("2"));
    EXPECT_EQ(history.undo(state("2")), state("1"));
    EXPECT_TRUE(history.undoStack().empty());
    ASSERT_EQ(history.redoStack().size(), 2U);
    EXPECT_EQ(std::get<HistoryToggle>(history.redoStack().back().action).index, 4U);

    EXPECT_EQ(history.redo(state("1")), state("2"));
    ASSERT_EQ(history.redoStack().size(), 1U);
    EXPECT_EQ(std::get<HistoryMove>(history.redoStack().back().action).to, 2U);
    EXPECT_EQ(history.redoStack().back().state, state("3"));
    EXPECT_EQ(std::get<HistoryToggle>(history.undoStack().back().action).index, 4U);
}

TEST(TextHistory, APushForgetsWhatCouldBeRedone) {
    TextHistory history;
    history.push(state("1"), HistoryTransformation{});
    static_cast<void>(history.undo(state("2")));
    history.push(state("1"), HistoryTransformation{});
    EXPECT_TRUE(history.redoStack().empty());
    EXPECT_EQ(history.undoStack().size(), 1U);
    history.clear();
    EXPECT_TRUE(history.undoStack().empty());
}

TEST(TextHistory, HasNoMaximumDepth) {
    TextHistory history;
    for (std::size_t i = 0; i < 100'000; ++i) {
        history.push(state("x"), HistoryToggle{i});
    }
    EXPECT_EQ(history.undoStack().size(), 100'000U);
    EXPECT_EQ(std::get<HistoryToggle>(history.undoStack().front().action).index, 0U);
}

TEST(TextHistory, MakesForgottenTextsAgainAlsoWhereAStepFails) {
    const Catalog catalog = makeCatalog();
    const std::string transformations[] = {"uppercase", "no-such-transformation", "wrap-lines", "reverse", "lowercase"};
    const ParameterMap refused{{"width", "0"}};
    ASSERT_THROW((void)findTransformation(catalog, "wrap-lines")->apply("x", refused), TransformationError);

    const Text origin(std::string_view("some text"));
    const std::string texts[] = {"some text", "SOME TEXT", "SOME TEXT", "SOME TEXT", "TXET EMOS", "txet emos"};
    std::vector<TextHistoryState> states;
    TextHistoryState made = state("");
    made.origin = TextOrigin{origin, 0};
    for (std::size_t done = 0; true; ++done) {
        made.text = done == 0 ? origin : Text(std::string_view(texts[done]));
        states.push_back(made);
        if (done == std::size(transformations)) {
            break;
        }
        AppliedOperation operation;
        operation.transformation = transformations[done];
        operation.parameters = refused;
        made.operations.push_back(operation);
    }

    TextHistory history(catalog, 0); // no room for any text that can be made again
    for (std::size_t done = 0; done + 1 < states.size(); ++done) {
        history.push(states[done], HistoryTransformation{});
    }
    EXPECT_TRUE(history.undoStack()[3].state.isTextForgotten); // the step before it failed
    TextHistoryState current = states.back();
    for (std::size_t left = states.size() - 1; left > 0; --left) {
        current = history.undo(current);
        EXPECT_EQ(current.text, Text(std::string_view(texts[left - 1]))) << left;
    }
    for (std::size_t done = 1; done < states.size(); ++done) {
        current = history.redo(current);
        EXPECT_EQ(current.text, Text(std::string_view(texts[done]))) << done;
    }
}

TEST(TextHistory, MakesForgottenTextsAgainOfTheirOwnBaseAndParameters) {
    const Catalog catalog = makeCatalog();
    TextHistory history(catalog, 0);
    std::vector<std::string> expected;
    TextHistoryState now;
    const auto show = [&] {
        std::string text(now.origin->text.view());
        for (const AppliedOperation &operation : now.operations) {
            const TransformationPointer found = findTransformation(catalog, operation.transformation);
            text = std::string(found->apply(text, operation.parameters).view());
        }
        now.text = text == now.origin->text.view() ? now.origin->text : Text(std::string_view(text));
    };
    const auto change = [&](auto how) {
        history.push(now, HistoryTransformation{});
        expected.emplace_back(now.text.view());
        how();
        show();
    };
    const auto add = [&](const char *prefix) {
        change([&] {
            AppliedOperation &operation = now.operations.emplace_back();
            operation.transformation = "add-prefix";
            operation.parameters = {{"prefix", prefix}};
        });
    };
    for (const char *base : {"first", "second"}) {
        const auto begin = [&] {
            now.operations.clear();
            now.origin = TextOrigin{Text(std::string_view(base)), 0};
        };
        if (expected.empty()) {
            begin();
            show();
        } else {
            change(begin);
        }
        add("1");
        add("2");
        change([&] { now.operations[0].parameters = {{"prefix", "one"}}; });
        add("3");
    }
    while (!history.undoStack().empty()) {
        now = history.undo(now);
        EXPECT_EQ(now.text.view(), expected.back()) << "with " << now.operations.size() << " operations";
        expected.pop_back();
    }
}

} // namespace
} // namespace lexivore
