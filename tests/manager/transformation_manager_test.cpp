// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/transformation_manager.h"

#include "tests/manager/manager_story.h"
#include "tests/support/allocation.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

namespace lexivore {
namespace {

using test::ManagerStory;

/// Known to no catalog; does what the test says.
class OwnTransformation final : public TextTransformation {
public:
    explicit OwnTransformation(void (*act)())
        : TextTransformation("own", "Own", "", TransformationCategory::lines, ""), m_act(act) {}
    TextBuffer apply(std::string_view text, const ParameterMap &) const override {
        m_act();
        return TextBuffer("own " + std::string(text));
    }

private:
    void (*m_act)();
};

/// Its result is a byte too large to be shown. Nothing is written into it.
class EndlessTransformation final : public TextTransformation {
public:
    EndlessTransformation() : TextTransformation("endless", "Endless", "", TransformationCategory::lines, "") {}
    TextBuffer apply(std::string_view, const ParameterMap &) const override {
        TextBuffer result;
        result.commit(result.room(largestText + 1) + largestText + 1);
        return result;
    }
};

TEST_F(ManagerStory, StartsEmptyWithTheWholeCatalog) {
    EXPECT_EQ(manager.transformations().size(), makeCatalog().size());
    EXPECT_EQ(text(), "");
    EXPECT_EQ(original(), "");
    EXPECT_EQ(stack(), "");
    EXPECT_EQ(undoCount(), 0U);
    EXPECT_EQ(redoCount(), 0U);
    EXPECT_TRUE(manager.recipes().empty());
    EXPECT_TRUE(manager.favorites().empty());
    EXPECT_FALSE(manager.selectedRecipe().has_value());
    EXPECT_EQ(preferences.writeCount(), 0);
}

TEST_F(ManagerStory, ListsACategoryInCatalogOrder) {
    std::string names;
    for (const TransformationPointer &entry : manager.transformations(TransformationCategory::sorting)) {
        names += entry->name() + "|";
    }
    EXPECT_EQ(names, "Sort Lines Alphabetically|Sort Lines (Reverse)|Sort Lines by Length|Shuffle Lines|"
                     "Sort Words Alphabetically|Reverse Words in Line|");
    EXPECT_TRUE(manager.transformations(TransformationCategory::favorites).empty());
}

TEST_F(ManagerStory, FindsATransformationByItsExactId) {
    ASSERT_NE(manager.findTransformation("trim-lines"), nullptr);
    EXPECT_EQ(manager.findTransformation("trim-lines")->name(), "Trim Lines");
    EXPECT_EQ(manager.findTransformation("Trim-lines"), nullptr);
    EXPECT_EQ(manager.findTransformation(""), nullptr);
}

TEST_F(ManagerStory, TypingChangesTheCurrentTextAlone) {
    manager.setCurrentText(Text("Hello"));
    EXPECT_EQ(changes.take(), "currentText");
    manager.editCurrentText(5, 0, " world");
    EXPECT_EQ(text(), "Hello world");
    EXPECT_EQ(changes.take(), "currentText");
    manager.editCurrentText(0, 5, "Hello");
    manager.setCurrentText(Text("Hello world"));
    EXPECT_EQ(changes.take(), "");
    EXPECT_EQ(original(), "");
    EXPECT_EQ(undoCount(), 0U);
}

TEST_F(ManagerStory, ApplyingToAnEmptyTextChangesNothing) {
    EXPECT_EQ(errorOfApplying("uppercase"), "Invalid input: Text is empty");
    EXPECT_EQ(stack(), "");
    EXPECT_EQ(undoCount(), 0U);
    EXPECT_EQ(changes.take(), "");
}

TEST_F(ManagerStory, ApplyingAppendsToTheStackAndKeepsTheBase) {
    manager.setCurrentText(Text(" b\na "));
    changes.take();
    const Timestamp before = Timestamp::now();

    apply("trim-lines");
    EXPECT_EQ(text(), "b\na");
    EXPECT_EQ(original(), " b\na ");
    EXPECT_EQ(undoCount(), 1U);
    EXPECT_EQ(changes.take(), "currentText originalText operations measures history");

    apply("add-prefix", {{"prefix", "> "}});
    EXPECT_EQ(text(), "> b\n> a");
    EXPECT_EQ(original(), " b\na ");
    EXPECT_EQ(stack(), "trim-lines add-prefix");
    EXPECT_EQ(undoCount(), 2U);
    EXPECT_NE(lastAction<HistoryTransformation>(), nullptr);
    EXPECT_EQ(changes.take(), "currentText operations measures history");

    const AppliedOperation &last = manager.appliedOperations().back();
    EXPECT_EQ(last.transformationName, "Add Prefix");
    EXPECT_EQ(last.parameters, (ParameterMap{{"prefix", "> "}}));
    EXPECT_TRUE(last.isEnabled);
    EXPECT_FALSE(last.id.isNull());
    EXPECT_NE(last.id, manager.appliedOperations().front().id);
    EXPECT_GE(last.timestamp.secondsSinceReferenceDate, before.secondsSinceReferenceDate);
    EXPECT_LE(last.timestamp.secondsSinceReferenceDate, Timestamp::now().secondsSinceReferenceDate);
}

TEST_F(ManagerStory, AnApplicationWithoutEffectKeepsTheTextAndStillCounts) {
    manager.setCurrentText(Text("abc"));
    const Text before = manager.currentText();
    changes.take();
    apply("lowercase");
    EXPECT_TRUE(manager.currentText().sharesAllWith(before));
    EXPECT_EQ(stack(), "lowercase");
    EXPECT_EQ(changes.take(), "originalText operations measures history");
}

TEST_F(ManagerStory, AnEqualTextIsNotKeptTwice) {
    constexpr std::size_t size = std::size_t{4} << 20U;
    manager.setCurrentText(Text(std::string(size, 'a')));
    TextBuffer::releaseSpareMemory();
    const std::size_t before = test::allocatedBytes();
    manager.setCurrentText(Text(std::string(size, 'a')));
    TextBuffer::releaseSpareMemory();
    EXPECT_LT(test::allocatedBytes(), before + size / 2);
}

TEST_F(ManagerStory, AFailedApplicationKeepsItsHistoryEntryAndForgetsRedo) {
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    manager.undo();
    manager.setCurrentText(Text("not base64!"));
    ASSERT_EQ(redoCount(), 1U);
    changes.take();

    EXPECT_EQ(errorOfApplying("base64-decode"), "Invalid input: Invalid Base64 string");
    EXPECT_EQ(text(), "not base64!");
    EXPECT_EQ(original(), "not base64!");
    EXPECT_EQ(stack(), "");
    EXPECT_EQ(undoCount(), 1U);
    EXPECT_EQ(redoCount(), 0U);
    EXPECT_EQ(changes.take(), "originalText history");

    apply("lowercase");
    EXPECT_EQ(errorOfApplying("hex-decode"), "Invalid input: Invalid hexadecimal string");
    EXPECT_EQ(stack(), "lowercase");
    EXPECT_EQ(undoCount(), 3U);
}

TEST_F(ManagerStory, RunningOutOfMemoryFollowsTheRuleOfAnyError) {
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    changes.take();
    const OwnTransformation exhausting([] { throw std::bad_alloc(); });
    EXPECT_THROW(manager.applyTransformation(exhausting, {}), std::bad_alloc);
    EXPECT_EQ(text(), "ABC");
    EXPECT_EQ(stack(), "uppercase");
    EXPECT_EQ(undoCount(), 2U);
    EXPECT_EQ(changes.take(), "history");
}

TEST_F(ManagerStory, DisablingAndEnablingTheOnlyOperation) {
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    changes.take();

    manager.toggleOperation(0);
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(stack(), "(uppercase)");
    EXPECT_EQ(undoCount(), 2U);
    ASSERT_NE(lastAction<HistoryToggle>(), nullptr);
    EXPECT_EQ(lastAction<HistoryToggle>()->index, 0U);
    EXPECT_EQ(changes.take(), "currentText operations measures history");

    manager.toggleOperation(0);
    EXPECT_EQ(text(), "ABC");
    EXPECT_EQ(stack(), "uppercase");
    EXPECT_EQ(undoCount(), 3U);
    EXPECT_EQ(changes.take(), "currentText operations measures history");
}

TEST_F(ManagerStory, AnOperationThatFailsInARerunIsSkippedReportedAndNoted) {
    manager.setCurrentText(Text("plain text!"));
    apply("base64-encode");
    apply("base64-decode");
    apply("uppercase");
    EXPECT_EQ(text(), "PLAIN TEXT!");
    changes.take();

    testing::internal::CaptureStdout();
    manager.toggleOperation(0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Error reapplying operation: Invalid input: Invalid Base64 string\n");
    EXPECT_EQ(text(), "PLAIN TEXT!");
    EXPECT_EQ(changes.take(), "operations problems measures history");
    const OperationProblems expected = {
        {manager.appliedOperations()[1].id, {OperationProblem::Kind::failed, "Invalid input: Invalid Base64 string"}}};
    EXPECT_EQ(manager.operationProblems(), expected);

    testing::internal::CaptureStdout();
    manager.undo();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), ""); // restored, not run
    EXPECT_TRUE(manager.operationProblems().empty());
    EXPECT_EQ(changes.take(), "operations problems measures history");
    manager.redo();
    EXPECT_EQ(manager.operationProblems(), expected);
    EXPECT_EQ(changes.take(), "operations problems measures history");

    manager.removeOperation(1);
    EXPECT_TRUE(manager.operationProblems().empty());
    EXPECT_EQ(stack(), "(base64-encode) uppercase");
    EXPECT_EQ(changes.take(), "operations problems history");
}

TEST_F(ManagerStory, EveryOperationThatRanHasItsMeasures) {
    const auto measures = [this](std::size_t index) {
        return manager.operationMeasures(manager.appliedOperations().at(index).id);
    };
    manager.setCurrentText(Text("b\n\na"));
    apply("remove-empty-lines");
    apply("add-prefix", {{"prefix", "é"}});
    const OperationMeasures removing{{3, 4}, {2, 3}};
    EXPECT_EQ(measures(0), removing);
    EXPECT_EQ(measures(1), (OperationMeasures{{2, 3}, {2, 5}}));
    EXPECT_EQ(manager.operationMeasures(QUuid::createUuid()), std::nullopt);

    manager.toggleOperation(0);
    EXPECT_EQ(measures(0), std::nullopt);
    EXPECT_EQ(measures(1), (OperationMeasures{{3, 4}, {3, 7}}));
    manager.undo();
    EXPECT_EQ(measures(0), removing);
    manager.editOperationParameters(1, {});
    EXPECT_EQ(measures(0), removing);
    EXPECT_EQ(measures(1), std::nullopt); // it fails without a prefix
    const QUuid gone = manager.appliedOperations()[0].id;
    manager.clearOperations();
    EXPECT_EQ(manager.operationMeasures(gone), std::nullopt);
}

TEST_F(ManagerStory, RunningAgainBeginsAtTheStepThatIsDifferent) {
    manager.setCurrentText(Text("b\na"));
    apply("uppercase");
    const Text upper = manager.currentText();
    apply("reverse-lines");
    const Text reversed = manager.currentText();
    changes.take();

    manager.toggleOperation(1);
    EXPECT_TRUE(manager.currentText().sharesAllWith(upper));
    manager.toggleOperation(1);
    manager.setCurrentText(Text("paused"));
    manager.reapplyOperations();
    EXPECT_TRUE(manager.currentText().sharesAllWith(reversed));
    changes.take();
    manager.reapplyOperations();
    EXPECT_EQ(changes.take(), "");
}

TEST_F(ManagerStory, AnUnknownOperationStaysOnTheStackWithoutEffect) {
    manager.setCurrentText(Text("abc"));
    manager.applyTransformation(OwnTransformation([] {}), {});
    EXPECT_EQ(text(), "own abc");
    apply("uppercase");
    changes.take();

    testing::internal::CaptureStdout();
    manager.reapplyOperations();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(text(), "ABC");
    EXPECT_EQ(stack(), "own uppercase");
    EXPECT_EQ(undoCount(), 2U);
    EXPECT_EQ(manager.operationProblems().at(manager.appliedOperations()[0].id).kind,
              OperationProblem::Kind::unknownTransformation);
    EXPECT_EQ(changes.take(), "currentText problems measures");
}

TEST_F(ManagerStory, RemovingTheLastOperationRestoresTheBaseWithoutRunning) {
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    const AppliedOperation removed = manager.appliedOperations().front();
    changes.take();

    manager.removeOperation(0);
    EXPECT_EQ(text(), "abc");
    EXPECT_TRUE(manager.currentText().sharesAllWith(manager.originalText()));
    EXPECT_EQ(stack(), "");
    EXPECT_EQ(undoCount(), 2U);
    ASSERT_NE(lastAction<HistoryRemoval>(), nullptr);
    EXPECT_EQ(lastAction<HistoryRemoval>()->index, 0U);
    EXPECT_TRUE(haveSameFields(lastAction<HistoryRemoval>()->operation, removed));
    EXPECT_EQ(changes.take(), "currentText operations measures history");
}

TEST_F(ManagerStory, MovingEndsAtTheIndexAfterTheRemoval) {
    manager.setCurrentText(Text("b"));
    apply("add-prefix", {{"prefix", "1"}});
    apply("add-prefix", {{"prefix", "2"}});
    apply("add-suffix", {{"suffix", "3"}});
    apply("uppercase");
    EXPECT_EQ(text(), "21B3");
    changes.take();

    manager.moveOperation(0, 2);
    EXPECT_EQ(stack(), "add-prefix add-suffix add-prefix uppercase");
    EXPECT_EQ(text(), "12B3");
    ASSERT_NE(lastAction<HistoryMove>(), nullptr);
    EXPECT_EQ(lastAction<HistoryMove>()->from, 0U);
    EXPECT_EQ(lastAction<HistoryMove>()->to, 2U);
    EXPECT_EQ(undoCount(), 5U);
    EXPECT_EQ(changes.take(), "currentText operations measures history");

    manager.moveOperation(3, 0);
    EXPECT_EQ(stack(), "uppercase add-prefix add-suffix add-prefix");
    EXPECT_EQ(text(), "12B3");
    EXPECT_EQ(changes.take(), "operations measures history");

    manager.moveOperation(1, 1);
    EXPECT_EQ(undoCount(), 6U);
    EXPECT_EQ(changes.take(), "");
}

TEST_F(ManagerStory, EditingParametersKeepsPlaceAndIdentity) {
    manager.setCurrentText(Text("b"));
    apply("add-prefix", {{"prefix", "1"}});
    apply("add-prefix", {{"prefix", "2"}});
    const AppliedOperation before = manager.appliedOperations().front();
    changes.take();

    EXPECT_TRUE(manager.editOperationParameters(0, {{"prefix", "x"}}));
    EXPECT_EQ(text(), "2xb");
    EXPECT_EQ(undoCount(), 3U);
    EXPECT_NE(lastAction<HistoryTransformation>(), nullptr);
    EXPECT_EQ(changes.take(), "currentText operations measures history");
    const AppliedOperation &after = manager.appliedOperations().front();
    EXPECT_EQ(after.id, before.id);
    EXPECT_EQ(after.timestamp, before.timestamp);
    EXPECT_EQ(after.parameters, (ParameterMap{{"prefix", "x"}}));

    EXPECT_FALSE(manager.editOperationParameters(0, {{"prefix", "x"}}));
    EXPECT_FALSE(manager.editOperationParameters(2, {{"prefix", "y"}}));
    EXPECT_EQ(undoCount(), 3U);
    EXPECT_EQ(changes.take(), "");

    manager.undo();
    EXPECT_EQ(text(), "21b");
    EXPECT_EQ(manager.appliedOperations().front().parameters, before.parameters);
    EXPECT_EQ(changes.take(), "currentText operations measures history");
}

TEST_F(ManagerStory, AChangeOfTheStackCanShowTheBaseTextAtOnce) {
    manager.setCurrentText(Text(std::string_view("b a")));
    apply("add-prefix", {{"prefix", "x"}});
    apply("uppercase");
    manager.setCurrentText(manager.originalText());
    changes.take();
    const TextAfterChange shown = TextAfterChange::original;

    manager.toggleOperation(1, shown);
    EXPECT_EQ(stack(), "add-prefix (uppercase)");
    manager.moveOperation(0, 1, shown);
    EXPECT_EQ(stack(), "(uppercase) add-prefix");
    manager.editOperationParameters(1, {{"prefix", "y"}}, shown);
    EXPECT_EQ(manager.appliedOperations()[1].parameters.at("prefix"), "y");
    manager.removeOperation(0, shown);
    EXPECT_EQ(stack(), "add-prefix");
    EXPECT_EQ(text(), "b a");
    EXPECT_EQ(changes.take().find("currentText"), std::string::npos);

    manager.undo();
    EXPECT_EQ(text(), "b a");
    manager.redo();
    EXPECT_EQ(text(), "b a");
    manager.reapplyOperations();
    EXPECT_EQ(text(), "yb a");
}

TEST_F(ManagerStory, IndicesOutOfRangeAreIgnored) {
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    apply("trim-lines");
    changes.take();
    manager.toggleOperation(2);
    manager.removeOperation(2);
    manager.removeOperation(static_cast<std::size_t>(-1));
    manager.moveOperation(0, 2);
    manager.moveOperation(2, 0);
    EXPECT_EQ(stack(), "uppercase trim-lines");
    EXPECT_EQ(undoCount(), 2U);
    EXPECT_EQ(changes.take(), "");
}

TEST_F(ManagerStory, AllFieldsAreSetWhenTheFirstSignalComes) {
    manager.setCurrentText(Text("abc"));
    std::string seen;
    QObject::connect(&manager, &TransformationManager::currentTextChanged, &manager, [&] {
        seen = std::string(text()) + "/" + std::string(original()) + "/" + stack() + "/" + std::to_string(undoCount());
    });
    apply("uppercase");
    EXPECT_EQ(seen, "ABC/abc/uppercase/1");
    manager.removeOperation(0);
    EXPECT_EQ(seen, "abc/abc//2");
    manager.undo();
    EXPECT_EQ(seen, "ABC/abc/uppercase/1");
}

TEST_F(ManagerStory, RefusesAResultThatIsTooLargeToBeShown) {
    manager.setCurrentText(Text(std::string_view("text")));
    try {
        manager.applyTransformation(EndlessTransformation(), {});
        FAIL();
    } catch (const TransformationError &error) {
        EXPECT_NE(error.description().find("larger than 2 GB"), std::string::npos);
    }
    EXPECT_EQ(text(), "text");
    EXPECT_EQ(stack(), "");
}

} // namespace
} // namespace lexivore
