// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/operations_run.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace lexivore {
namespace {

/// Appends its own id, or throws what the id names.
class Step final : public TextTransformation {
public:
    explicit Step(const std::string &id) : TextTransformation(id, id, "", TransformationCategory::lines, "") {}
    TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override {
        if (id() == "error") {
            throw TransformationError::missingParameter("count");
        }
        if (id() == "memory") {
            throw std::bad_alloc();
        }
        if (id() == "large") {
            throw TextTooLarge();
        }
        if (id() == "library") {
            throw std::runtime_error("a library's own words");
        }
        return TextBuffer(std::string(text) + "," + id() + (parameters.contains("p") ? parameters.at("p") : ""));
    }
};

class OperationsRunTest : public testing::Test {
protected:
    AppliedOperation &add(const std::string &id) {
        AppliedOperation &operation = operations.emplace_back();
        operation.transformation = id;
        return operation;
    }
    /// The result; what was printed goes to `printed`.
    std::string run() {
        testing::internal::CaptureStdout();
        const OperationsRun done = OperationsRunner(catalog).run(Text("base"), operations);
        printed = testing::internal::GetCapturedStdout();
        problems = done.problems;
        return std::string(done.result.view());
    }

    Catalog catalog = {std::make_shared<Step>("one"),     std::make_shared<Step>("two"),
                       std::make_shared<Step>("error"),   std::make_shared<Step>("memory"),
                       std::make_shared<Step>("library"), std::make_shared<Step>("large")};
    std::vector<AppliedOperation> operations;
    OperationProblems problems;
    std::string printed;
};

TEST_F(OperationsRunTest, AnEmptyStackGivesTheBase) {
    EXPECT_EQ(run(), "base");
    EXPECT_EQ(printed, "");
}

TEST_F(OperationsRunTest, AppliesInOrderWithEachOperationsParameters) {
    add("two").parameters = {{"p", "!"}};
    add("one");
    EXPECT_EQ(run(), "base,two!,one");
    EXPECT_TRUE(problems.empty());
}

TEST_F(OperationsRunTest, PassesOverDisabledAndUnknownOperations) {
    add("one").isEnabled = false;
    const QUuid unknown = add("gone").id;
    add("gone").isEnabled = false;
    add("two");
    EXPECT_EQ(run(), "base,two");
    EXPECT_EQ(printed, "");
    EXPECT_EQ(problems, (OperationProblems{{unknown, {OperationProblem::Kind::unknownTransformation, ""}}}));
}

TEST_F(OperationsRunTest, PrintsEveryFailureAndGoesOn) {
    add("one");
    const QUuid error = add("error").id;
    add("two");
    const QUuid library = add("library").id;
    EXPECT_EQ(run(), "base,one,two");
    EXPECT_EQ(printed, "Error reapplying operation: Missing parameter: count\n"
                       "Error reapplying operation: Operation failed: a library's own words\n");
    using enum OperationProblem::Kind;
    EXPECT_EQ(problems, (OperationProblems{{error, {failed, "Missing parameter: count"}},
                                           {library, {failed, "Operation failed: a library's own words"}}}));
}

TEST_F(OperationsRunTest, ALackOfMemoryEndsTheRunAndIsNoFailureOfTheOperation) {
    add("one");
    add("memory");
    OperationsRunner runner(catalog);
    testing::internal::CaptureStdout();
    EXPECT_THROW(static_cast<void>(runner.run(Text("base"), operations)), std::bad_alloc);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    operations.pop_back();
    EXPECT_EQ(runner.run(Text("base"), operations).result.view(), "base,one");
}

TEST_F(OperationsRunTest, AResultThatIsTooLargeIsAFailureOfTheOperation) {
    add("one");
    const QUuid large = add("large").id;
    EXPECT_EQ(run(), "base,one");
    EXPECT_EQ(
        problems,
        (OperationProblems{
            {large, {OperationProblem::Kind::failed, "Operation failed: The result would be larger than 2 GB"}}}));
}

} // namespace
} // namespace lexivore
