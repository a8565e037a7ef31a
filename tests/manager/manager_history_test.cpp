// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/transformation_manager.h"

#include "tests/manager/manager_story.h"
#include "tests/support/allocation.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <variant>

namespace lexivore {
namespace {

using test::ManagerStory;

/// No catalog has it.
class OwnTransformation final : public TextTransformation {
public:
    OwnTransformation() : TextTransformation("own", "Own", "", TransformationCategory::lines, "") {}
    TextBuffer apply(std::string_view text, const ParameterMap &) const override {
        return TextBuffer("own " + std::string(text));
    }
};

TEST_F(ManagerStory, UndoingToAnEmptyStackShowsTheBase) {
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    manager.removeOperation(0);
    manager.setCurrentText(Text("typed"));
    manager.undo(); // back to one operation: the text of then
    EXPECT_EQ(text(), "ABC");
    EXPECT_EQ(stack(), "uppercase");
    manager.undo();
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(undoCount(), 0U);
    EXPECT_EQ(redoCount(), 2U);
    changes.take();

    // The snapshot's text differs from the base: the base is shown.
    manager.redo();
    manager.redo();
    EXPECT_EQ(text(), "typed"); // redo restores what was there, whatever the stack
    EXPECT_EQ(stack(), "");
    EXPECT_EQ(undoCount(), 2U);
    EXPECT_EQ(redoCount(), 0U);
    manager.redo();
    EXPECT_EQ(undoCount(), 2U);
}

TEST_F(ManagerStory, UndoingTheFirstApplicationShowsTheBaseWhateverTheSnapshotHolds) {
    manager.setCurrentText(Text("!"));
    EXPECT_NE(errorOfApplying("base64-decode"), ""); // an entry whose text is "!", with an empty stack
    manager.setCurrentText(Text("abc"));
    apply("uppercase"); // the base is now "abc"
    manager.undo();
    EXPECT_EQ(text(), "abc");
    changes.take();
    manager.undo();
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(undoCount(), 0U);
    EXPECT_EQ(redoCount(), 2U);
    EXPECT_EQ(changes.take(), "history");
    manager.undo();
    EXPECT_EQ(changes.take(), "");
}

TEST_F(ManagerStory, UndoAndRedoCarryTheActionAlong) {
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    manager.toggleOperation(0);
    manager.undo();
    ASSERT_EQ(redoCount(), 1U);
    EXPECT_TRUE(std::holds_alternative<HistoryToggle>(manager.history().redoStack().back().action));
    EXPECT_EQ(manager.history().redoStack().back().state.text.view(), "abc");
    manager.redo();
    EXPECT_NE(lastAction<HistoryToggle>(), nullptr);
    EXPECT_EQ(manager.history().undoStack().back().state.text.view(), "ABC");
    EXPECT_EQ(stack(), "(uppercase)");
}

TEST_F(ManagerStory, ANewApplicationAfterAnUndoForgetsRedo) {
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    apply("reverse");
    manager.undo();
    EXPECT_EQ(redoCount(), 1U);
    apply("add-suffix", {{"suffix", "!"}});
    EXPECT_EQ(text(), "ABC!");
    EXPECT_EQ(redoCount(), 0U);
    EXPECT_EQ(undoCount(), 2U);
    changes.take();
    manager.redo();
    EXPECT_EQ(changes.take(), "");
}

TEST_F(ManagerStory, ClearingTheOperationsShowsTheBaseAndCanBeUndone) {
    manager.clearOperations();
    EXPECT_EQ(undoCount(), 0U);
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    apply("reverse");
    changes.take();

    manager.clearOperations();
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(stack(), "");
    EXPECT_EQ(undoCount(), 3U);
    EXPECT_NE(lastAction<HistoryTransformation>(), nullptr);
    EXPECT_EQ(changes.take(), "currentText operations measures history");

    manager.undo();
    EXPECT_EQ(text(), "CBA");
    EXPECT_EQ(stack(), "uppercase reverse");
    EXPECT_EQ(changes.take(), "currentText operations measures history");
}

TEST_F(ManagerStory, ClearingAllForgetsTheHistoryToo) {
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    apply("reverse");
    manager.undo();
    changes.take();
    manager.clearAll();
    EXPECT_EQ(text(), "");
    EXPECT_EQ(original(), "");
    EXPECT_EQ(stack(), "");
    EXPECT_EQ(undoCount(), 0U);
    EXPECT_EQ(redoCount(), 0U);
    EXPECT_EQ(changes.take(), "currentText originalText operations measures history");
    manager.clearAll();
    EXPECT_EQ(changes.take(), "");
}

TEST_F(ManagerStory, ClearingAllLetsGoOfEveryText) {
    TextBuffer::releaseSpareMemory();
    const std::size_t before = test::allocatedBytes();
    constexpr std::size_t size = std::size_t{4} << 20U;
    manager.setCurrentText(Text(std::string(size, 'a')));
    for (const char *id : {"uppercase", "base64-encode", "reverse"}) {
        apply(id);
    }
    manager.undo();
    manager.toggleOperation(0);
    EXPECT_GT(test::allocatedBytes(), before + 3 * size);
    manager.clearAll();
    TextBuffer::releaseSpareMemory();
    EXPECT_LT(test::allocatedBytes(), before + size);
}

TEST_F(ManagerStory, ReturningToTheBaseRecordsNothing) {
    manager.setCurrentText(Text("abc"));
    manager.returnToOriginalText(); // no stack: the text is its own base
    EXPECT_EQ(text(), "abc");
    apply("uppercase");
    changes.take();
    manager.returnToOriginalText();
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(stack(), "");
    EXPECT_EQ(undoCount(), 1U);
    EXPECT_EQ(changes.take(), "currentText operations measures");
    apply("reverse");
    EXPECT_EQ(text(), "cba");
    EXPECT_EQ(stack(), "reverse");
}

TEST_F(ManagerStory, TypingOverAStackIsLostByTheNextRunAndBackByUndo) {
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    manager.editCurrentText(3, 0, " typed");
    manager.reapplyOperations();
    EXPECT_EQ(text(), "ABC");
    manager.editCurrentText(3, 0, " typed");
    manager.toggleOperation(0);
    EXPECT_EQ(text(), "abc");
    manager.undo();
    EXPECT_EQ(text(), "ABC typed");
}

/// Whatever cannot be made again is held by the history as an origin; all that followed can be made again of it.
TEST_F(ManagerStory, WhatFollowsARandomStepOrATypedTextCanBeMadeAgain) {
    const auto origin = [this] { return *manager.history().undoStack().back().state.origin; };
    manager.setCurrentText(Text("b\na\nc"));
    apply("uppercase");
    apply("shuffle-lines");
    const Text shuffled = manager.currentText();
    apply("lowercase");
    apply("reverse"); // records what lowercase has made
    EXPECT_EQ(origin().operations, 2U);
    EXPECT_EQ(origin().text, shuffled);

    manager.editCurrentText(0, 0, "typed ");
    const Text typed = manager.currentText();
    apply("uppercase");
    apply("lowercase");
    EXPECT_EQ(origin().operations, 4U);
    EXPECT_TRUE(origin().text.sharesAllWith(typed));

    manager.toggleOperation(5); // runs everything again, the shuffling too
    manager.toggleOperation(5);
    EXPECT_EQ(origin().operations, 2U);
    EXPECT_EQ(origin().text.size(), shuffled.size());

    manager.toggleOperation(1);
    manager.toggleOperation(5); // nothing random is left
    EXPECT_EQ(origin().operations, 0U);
    EXPECT_TRUE(origin().text.sharesAllWith(manager.originalText()));
}

/// A pattern that had the time once may not have it again.
TEST_F(ManagerStory, WhatAPatternMadeIsHeldAsAnOrigin) {
    const auto origin = [this] { return *manager.history().undoStack().back().state.origin; };
    manager.setCurrentText(Text("b\na"));
    apply("uppercase");
    apply("replace-regex", {{"pattern", "A"}, {"replace", "xy"}});
    const Text made = manager.currentText();
    apply("lowercase");
    apply("reverse");
    EXPECT_EQ(origin().operations, 2U);
    EXPECT_EQ(origin().text, made);

    manager.toggleOperation(3);
    manager.toggleOperation(3);
    EXPECT_EQ(origin().operations, 2U);
    EXPECT_EQ(origin().text, made);

    testing::internal::CaptureStdout();
    manager.editOperationParameters(1, {{"pattern", "("}, {"replace", ""}}); // as if there had been no time
    EXPECT_NE(testing::internal::GetCapturedStdout(), "");
    const Text without = manager.currentText();
    apply("uppercase");
    EXPECT_EQ(origin().operations, 4U);
    EXPECT_EQ(origin().text, without);
}

/// What no catalog has cannot be run again.
TEST_F(ManagerStory, WhatAnUnknownOperationMadeIsHeldAsAnOrigin) {
    TransformationManager forgetful(preferences, {.historyBytes = 0});
    forgetful.setCurrentText(Text("abc"));
    forgetful.applyTransformation(OwnTransformation(), {});
    for (const char *id : {"uppercase", "reverse", "base64-encode"}) {
        forgetful.applyTransformation(*forgetful.findTransformation(id), {});
    }
    EXPECT_TRUE(forgetful.history().undoStack()[2].state.isTextForgotten);
    for (const char *before : {"CBA NWO", "OWN ABC", "own abc", "abc"}) {
        forgetful.undo();
        EXPECT_EQ(forgetful.currentText().view(), before);
    }
}

TEST_F(ManagerStory, HistoryOfAHundredMegabytesCostsNoSecondHundredMegabytes) {
    constexpr std::size_t size = 100'000'000;
    constexpr std::size_t little = 1'000'000;
    manager.setCurrentText(Text(std::string_view(std::string(size, 'a'))));
    const std::size_t withOneText = test::allocatedBytes();

    apply("lowercase"); // no effect: the base, the entry and the current text are one
    EXPECT_LT(test::allocatedBytes(), withOneText + little);

    apply("uppercase"); // the result is the one new text
    EXPECT_LT(test::allocatedBytes(), withOneText + size + little);
    const std::size_t withTwoTexts = test::allocatedBytes();
    EXPECT_TRUE(manager.history().undoStack().back().state.text.sharesAllWith(manager.originalText()));

    manager.editCurrentText(size / 2, 0, "typed");
    manager.clearOperations(); // keeps the typed text in the entry
    manager.undo();
    manager.undo();
    manager.redo();
    manager.redo();
    EXPECT_EQ(undoCount(), 3U);
    EXPECT_LT(test::allocatedBytes(), withTwoTexts + little);
}

} // namespace
} // namespace lexivore
