// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// What undo and redo cost when most texts had to be forgotten: counted in operations that are run again.
#include "manager/text_history.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {
namespace {

constexpr std::size_t textSize = 1000;

/// Makes a text of the same size that tells all that was done before. Counts its runs.
class Step final : public TextTransformation {
public:
    explicit Step(std::size_t &runs) : TextTransformation("step", "", "", {}, ""), m_runs(runs) {}
    TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override {
        ++m_runs;
        std::string result = std::to_string(std::hash<std::string>()(std::string(text) + parameters.at("number")));
        result.resize(textSize, ' ');
        return TextBuffer(result);
    }

private:
    std::size_t &m_runs;
};

/// Changes a stack, undoes and redoes, and knows what the text has to be each time.
class HistoryCost : public testing::Test {
protected:
    void holdAtMost(std::size_t texts) { m_history = TextHistory(m_catalog, texts * textSize); }

    void append() {
        record();
        AppliedOperation operation;
        operation.transformation = "step";
        operation.parameters = {{"number", std::to_string(++m_lastNumber)}};
        m_operations.push_back(operation);
        m_text = Text(m_catalog[0]->apply(m_text.view(), operation.parameters));
    }
    void change(const std::function<void()> &how) {
        record();
        how();
        m_text = m_base;
        for (const AppliedOperation &operation : m_operations) {
            m_text = operation.isEnabled ? Text(m_catalog[0]->apply(m_text.view(), operation.parameters)) : m_text;
        }
    }
    /// What an undo or redo runs again.
    std::size_t undo() {
        return counted([this] {
            m_expected.resize(std::max(m_expected.size(), m_place + 1), m_text);
            restore(m_history.undo(current()));
            --m_place;
        });
    }
    std::size_t redo() {
        return counted([this] {
            restore(m_history.redo(current()));
            ++m_place;
        });
    }
    [[nodiscard]] std::vector<AppliedOperation> &operations() { return m_operations; }
    [[nodiscard]] std::size_t place() const { return m_place; }
    [[nodiscard]] bool canRedo() const { return !m_history.redoStack().empty(); }
    [[nodiscard]] std::size_t heldTexts() const {
        std::size_t held = 0;
        for (const auto *stack : {&m_history.undoStack(), &m_history.redoStack()}) {
            for (const HistoryEntry &entry : *stack) {
                held += entry.state.isTextForgotten || entry.state.text.sharesAllWith(m_base) ? 0 : 1;
            }
        }
        return held;
    }

private:
    void record() {
        m_history.push(current(), HistoryTransformation{});
        m_expected.resize(m_place);
        m_expected.push_back(m_text);
        ++m_place;
    }
    [[nodiscard]] TextHistoryState current() const {
        return {.text = m_text, .operations = m_operations, .origin = TextOrigin{m_base, 0}};
    }
    void restore(TextHistoryState state) {
        ASSERT_FALSE(state.isTextForgotten);
        m_text = std::move(state.text);
        m_operations = std::move(state.operations);
    }
    std::size_t counted(const std::function<void()> &act) {
        m_runs = 0;
        act();
        EXPECT_TRUE(m_text == m_expected[m_place]) << "at " << m_place;
        return m_runs;
    }

    std::size_t m_runs = 0;
    Catalog m_catalog{std::make_shared<Step>(m_runs)};
    TextHistory m_history{m_catalog};
    Text m_base{std::string_view("base")};
    Text m_text = m_base;
    std::vector<AppliedOperation> m_operations;
    std::vector<Text> m_expected;
    std::size_t m_place = 0;
    int m_lastNumber = 0;
};

TEST_F(HistoryCost, AnUndoRunsNoMoreOperationsThanTheirNumberHasDigits) {
    holdAtMost(18);
    for (int i = 0; i < 1023; ++i) {
        append();
        ASSERT_LE(heldTexts(), 18U);
    }
    std::size_t most = 0;
    std::size_t all = 0;
    while (place() > 0) {
        const std::size_t runs = undo();
        most = std::max(most, runs);
        all += runs;
        ASSERT_LE(heldTexts(), 19U) << "the top of what can be redone beside the others";
    }
    EXPECT_LE(most, 10U);
    EXPECT_LE(all, 1023U * 5);
    EXPECT_GT(all, 0U) << "nothing had been forgotten";
    while (canRedo()) {
        ASSERT_LE(redo(), 1U);
    }
}

TEST_F(HistoryCost, WithRoomForAllNothingIsRunAgain) {
    holdAtMost(500);
    for (int i = 0; i < 400; ++i) {
        append();
    }
    while (place() > 0) {
        ASSERT_EQ(undo(), 0U);
    }
    while (canRedo()) {
        ASSERT_EQ(redo(), 0U);
    }
}

TEST_F(HistoryCost, GoingForthAndBackAtRandomTakesNoMore) {
    holdAtMost(25);
    for (int i = 0; i < 500; ++i) {
        append();
    }
    std::mt19937 random(1);
    for (int turn = 0; turn < 300; ++turn) {
        const auto kind = random() % 8;
        for (auto left = random() % 60; left > 0; --left) {
            if (kind < 4 && place() > 0) {
                ASSERT_LE(undo(), 10U);
            } else if (kind < 6 && canRedo()) {
                ASSERT_LE(redo(), 1U);
            } else if (kind == 6) {
                append();
            }
        }
    }
}

TEST_F(HistoryCost, ChangesWithinTheStackTakeAFewMore) {
    holdAtMost(25);
    for (int i = 0; i < 1000; ++i) {
        const std::size_t last = operations().size() - 1;
        switch (i % 12) {
        case 6:
            change([&] { operations()[last].isEnabled = false; });
            break;
        case 9:
            change([&] { std::rotate(operations().end() - 3, operations().end() - 1, operations().end()); });
            break;
        case 10:
            change([&] { operations().erase(operations().end() - 2); });
            break;
        default:
            append();
        }
    }
    std::size_t most = 0;
    std::size_t all = 0;
    while (place() > 0) {
        const std::size_t runs = undo();
        most = std::max(most, runs);
        all += runs;
    }
    EXPECT_LE(most, 20U);
    EXPECT_LE(all, 1000U * 8);
    most = 0;
    while (canRedo()) {
        most = std::max(most, redo());
    }
    EXPECT_LE(most, 4U);
}

TEST_F(HistoryCost, WithLittleRoomItIsStillTheSameTextAndNotTheWholeStackEachTime) {
    holdAtMost(4);
    for (int i = 0; i < 300; ++i) {
        append();
    }
    std::size_t all = 0;
    while (place() > 0) {
        all += undo();
    }
    EXPECT_LE(all, 300U * 15);
}

TEST_F(HistoryCost, WhatWasHalfPreparedAndNotNeededIsNotTakenForALaterText) {
    holdAtMost(7);
    for (int i = 0; i < 20; ++i) {
        if (i == 12) {
            // Undone, it takes a text from further back, and one that is half prepared is made on the way to it.
            change([&] { operations().erase(operations().begin() + 5); });
        } else {
            append();
        }
    }
    while (place() > 0) {
        undo();
    }
    for (int i = 0; i < 11; ++i) {
        append();
    }
    while (place() > 0) {
        undo();
    }
}

} // namespace
} // namespace lexivore
