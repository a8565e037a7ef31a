// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/text_history.h"

#include <gtest/gtest.h>

#include <string_view>
#include <variant>

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

} // namespace
} // namespace lexivore
