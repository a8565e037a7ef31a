// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// A runner that keeps results must not be told from one that has none, but by how often the transformations run.
#include "manager/operations_run.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace lexivore {
namespace {

/// What all steps of a test have in common.
struct Log {
    std::vector<std::string> ran; ///< The ids with their parameters.
    int failuresLeft = 0;         ///< How many more times "sometimes" fails.
    int randomNumber = 0;
};

/// Appends its id and parameter; "random" a number that is different each time. "error" and "sometimes" can fail,
/// "keep" changes nothing.
class Step final : public TextTransformation {
public:
    Step(const std::string &id, Log &log)
        : TextTransformation(id, id, "", TransformationCategory::lines, ""), m_log(log) {}
    bool isRandom() const override { return id() == "random"; }
    TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override {
        const std::string name = id() + (parameters.contains("p") ? parameters.at("p") : "");
        m_log.ran.push_back(name);
        if (id() == "error") {
            throw TransformationError::missingParameter(name);
        }
        if (id() == "sometimes" && m_log.failuresLeft > 0) {
            --m_log.failuresLeft;
            throw TransformationError::operationFailed("no time");
        }
        if (id() == "keep") {
            return TextBuffer(text);
        }
        return TextBuffer(std::string(text) + "," + name +
                          (isRandom() ? std::to_string(++m_log.randomNumber) : std::string()));
    }

private:
    Log &m_log;
};

struct Seen {
    std::string result;
    std::string printed;
    OperationProblems problems;
    std::map<QUuid, std::pair<TextMeasures, TextMeasures>> measures;

    bool operator==(const Seen &) const = default;
};

class OperationsRerunTest : public testing::Test {
protected:
    AppliedOperation &add(const std::string &id, const ParameterMap &parameters = {}) {
        AppliedOperation &operation = operations.emplace_back();
        operation.transformation = id;
        operation.parameters = parameters;
        return operation;
    }
    Seen runWith(OperationsRunner &some) {
        log.ran.clear();
        testing::internal::CaptureStdout();
        const OperationsRun run = some.run(base, operations);
        Seen seen{std::string(run.result.view()), testing::internal::GetCapturedStdout(), run.problems, {}};
        for (const auto &[id, texts] : run.texts) {
            seen.measures[id] = {texts.before->measures(), texts.after->measures()};
        }
        return seen;
    }
    /// The result of the runner that keeps results.
    std::string run() { return runWith(runner).result; }
    std::string ran() const {
        std::string all;
        for (const std::string &name : log.ran) {
            all += (all.empty() ? "" : " ") + name;
        }
        return all;
    }

    Log log;
    Catalog catalog = {std::make_shared<Step>("one", log),      std::make_shared<Step>("two", log),
                       std::make_shared<Step>("three", log),    std::make_shared<Step>("error", log),
                       std::make_shared<Step>("keep", log),     std::make_shared<Step>("random", log),
                       std::make_shared<Step>("sometimes", log)};
    Text base{"base"};
    std::vector<AppliedOperation> operations;
    OperationsRunner runner{catalog};
};

TEST_F(OperationsRerunTest, RunsNothingWhenNothingIsDifferent) {
    add("one");
    add("two");
    EXPECT_EQ(run(), "base,one,two");
    EXPECT_EQ(ran(), "one two");
    EXPECT_EQ(run(), "base,one,two");
    EXPECT_EQ(ran(), "");
}

TEST_F(OperationsRerunTest, BeginsAtTheFirstStepThatIsDifferent) {
    add("one");
    add("two");
    add("three");
    add("one");
    run();
    operations[2].parameters = {{"p", "!"}};
    EXPECT_EQ(run(), "base,one,two,three!,one");
    EXPECT_EQ(ran(), "three! one");
    operations[1].isEnabled = false;
    EXPECT_EQ(run(), "base,one,three!,one");
    EXPECT_EQ(ran(), "three! one");
    std::swap(operations[2], operations[3]);
    EXPECT_EQ(run(), "base,one,one,three!");
    EXPECT_EQ(ran(), "one three!");
    operations.pop_back();
    EXPECT_EQ(run(), "base,one,one");
    EXPECT_EQ(ran(), "");
}

TEST_F(OperationsRerunTest, StartsAfreshOverAnotherBase) {
    add("one");
    run();
    base = Text("other");
    EXPECT_EQ(run(), "other,one");
    base = Text("base");
    EXPECT_EQ(run(), "base,one");
}

TEST_F(OperationsRerunTest, RunsARandomStepAndAllBehindItEachTime) {
    add("one");
    add("random");
    add("two");
    EXPECT_EQ(run(), "base,one,random1,two");
    EXPECT_EQ(run(), "base,one,random2,two");
    EXPECT_EQ(ran(), "random two");
    operations[1].isEnabled = false;
    EXPECT_EQ(run(), "base,one,two");
    EXPECT_EQ(ran(), "two");
    EXPECT_EQ(run(), "base,one,two");
    EXPECT_EQ(ran(), "");
}

TEST_F(OperationsRerunTest, TriesAFailedStepAgainAndKeepsTheRestIfItFailsAgain) {
    add("one");
    add("error");
    add("two");
    const Seen first = runWith(runner);
    EXPECT_EQ(first.printed, "Error reapplying operation: Missing parameter: error\n");
    EXPECT_EQ(runWith(runner), first);
    EXPECT_EQ(ran(), "error");
}

TEST_F(OperationsRerunTest, RunsTheRestAgainWhenAFailedStepSucceeds) {
    log.failuresLeft = 1;
    add("sometimes");
    add("two");
    EXPECT_EQ(run(), "base,two");
    EXPECT_EQ(run(), "base,sometimes,two");
    EXPECT_EQ(ran(), "sometimes two");
    EXPECT_EQ(run(), "base,sometimes,two");
    EXPECT_EQ(ran(), "");
}

TEST_F(OperationsRerunTest, KeepsWhatWasAppliedBehindItsResults) {
    add("one");
    run();
    AppliedOperation applied;
    applied.transformation = "two";
    const StepTexts texts = runner.add(base, operations, Text("base,one"), applied, Text("base,one,two"));
    EXPECT_EQ(texts.before->text()->view(), "base,one");
    EXPECT_EQ(texts.after->text()->view(), "base,one,two");
    operations.push_back(applied);
    EXPECT_EQ(run(), "base,one,two");
    EXPECT_EQ(ran(), "");
}

TEST_F(OperationsRerunTest, DoesNotTakeWhatWasAppliedToAnotherTextForItsResult) {
    add("one");
    run();
    AppliedOperation applied;
    applied.transformation = "two";
    const StepTexts texts = runner.add(base, operations, Text("typed"), applied, Text("typed,two"));
    EXPECT_EQ(texts.before->text()->view(), "typed");
    operations.push_back(applied);
    EXPECT_EQ(run(), "base,one,two");
    EXPECT_EQ(ran(), "two");
}

TEST_F(OperationsRerunTest, DoesNotKeepWhatARandomStepMadeWhenItWasApplied) {
    AppliedOperation applied;
    applied.transformation = "random";
    static_cast<void>(runner.add(base, operations, base, applied, Text("base,random0")));
    operations.push_back(applied);
    EXPECT_EQ(run(), "base,random1");
    AppliedOperation behind;
    behind.transformation = "two";
    static_cast<void>(runner.add(base, operations, Text("base,random1"), behind, Text("base,random1,two")));
    operations.push_back(behind);
    EXPECT_EQ(run(), "base,random2,two");
}

TEST_F(OperationsRerunTest, AStepWithoutEffectKeepsNoSecondCopy) {
    add("keep");
    const OperationsRun done = runner.run(base, operations);
    EXPECT_TRUE(done.result.sharesAllWith(base));
}

TEST_F(OperationsRerunTest, ForgetsTheOldestTextsBeyondItsBudgetButNotTheirMeasures) {
    OperationsRunner small(catalog, {.bytes = 25, .texts = 256});
    add("one");
    add("two");
    add("three");
    add("one");
    const OperationsRun done = small.run(base, operations);
    const auto &first = done.texts.at(operations[0].id);
    EXPECT_EQ(first.after->text(), nullptr);
    EXPECT_EQ(first.after->measures(), (TextMeasures{1, 8}));
    EXPECT_NE(done.texts.at(operations[2].id).after->text(), nullptr); // 18 bytes; the result does not count
    operations[3].isEnabled = false;
    EXPECT_EQ(runWith(small).result, "base,one,two,three");
    EXPECT_EQ(ran(), "");
    operations[1].isEnabled = false;
    EXPECT_EQ(runWith(small).result, "base,one,three");
    EXPECT_EQ(ran(), "one three"); // the result of the first was forgotten
}

TEST_F(OperationsRerunTest, KeepsNoMoreTextsThanItsBudgetAllows) {
    OperationsRunner small(catalog, {.bytes = 1000, .texts = 1});
    add("one");
    add("two");
    add("three");
    const OperationsRun done = small.run(base, operations);
    EXPECT_EQ(done.texts.at(operations[0].id).after->text(), nullptr);
    EXPECT_NE(done.texts.at(operations[1].id).after->text(), nullptr);
}

TEST_F(OperationsRerunTest, WhatIsAddedIsKeptWithinTheBudgetToo) {
    OperationsRunner small(catalog, {.bytes = 1000, .texts = 1});
    const auto apply = [&](std::string_view before, const std::string &id, std::string_view after) {
        const std::vector<AppliedOperation> behind = operations;
        return small.add(base, behind, behind.empty() ? base : Text(before), add(id), Text(after));
    };
    const StepTexts first = apply("base", "one", "base,one");
    const StepTexts second = apply("base,one", "two", "base,one,two");
    EXPECT_NE(first.after->text(), nullptr);
    const StepTexts third = apply("base,one,two", "three", "base,one,two,three");
    EXPECT_EQ(first.after->text(), nullptr);
    EXPECT_NE(second.after->text(), nullptr);

    const StepTexts typed = apply("typed", "one", "typed,one");
    const StepTexts typedAgain = apply("typed again", "one", "typed again,one");
    EXPECT_EQ(typed.before->text(), nullptr);
    EXPECT_EQ(typed.after->text(), nullptr);
    EXPECT_NE(typedAgain.before->text(), nullptr);
}

/// How many of the steps run again: all from the first different or random one on, and before it those that fail.
std::size_t runsExpected(const std::vector<AppliedOperation> &before, const std::vector<AppliedOperation> &now) {
    const auto steps = [](const std::vector<AppliedOperation> &operations) {
        std::vector<std::pair<std::string, ParameterMap>> found;
        for (const AppliedOperation &operation : operations) {
            if (operation.isEnabled && operation.transformation != "unknown") {
                found.emplace_back(operation.transformation, operation.parameters);
            }
        }
        return found;
    };
    const auto old = steps(before);
    const auto next = steps(now);
    std::size_t same = 0;
    std::size_t failed = 0;
    while (same < old.size() && same < next.size() && old[same] == next[same] && next[same].first != "random") {
        failed += next[same].first == "error" ? 1 : 0;
        ++same;
    }
    return next.size() - same + failed;
}

class RandomReruns : public OperationsRerunTest, public testing::WithParamInterface<bool> {
protected:
    std::size_t below(std::size_t limit) { return m_random() % limit; }
    AppliedOperation randomOperation() {
        static const char *const ids[] = {"one", "two", "three", "error", "keep", "random", "unknown"};
        AppliedOperation operation;
        operation.transformation = ids[below(std::size(ids))];
        operation.isEnabled = below(4) > 0;
        if (below(2) == 0) {
            operation.parameters = {{"p", std::to_string(below(3))}};
        }
        return operation;
    }
    void changeOperations() {
        if (operations.empty() || below(4) == 0) {
            operations.insert(operations.begin() + static_cast<std::ptrdiff_t>(below(operations.size() + 1)),
                              randomOperation());
            return;
        }
        AppliedOperation &some = operations[below(operations.size())];
        switch (below(6)) {
        case 0:
            some.parameters = {{"p", std::to_string(below(3))}};
            break;
        case 1:
            std::swap(some, operations[below(operations.size())]);
            break;
        case 2:
            operations.erase(operations.begin() + (&some - operations.data()));
            break;
        case 3:
            break; // as after a pause
        default:
            some.isEnabled = !some.isEnabled;
        }
        if (operations.size() > 12) {
            operations.resize(6);
        }
    }

    std::mt19937 m_random{7};
};

TEST_P(RandomReruns, CannotBeToldFromFullRuns) {
    const bool isBudgetSmall = GetParam();
    OperationsRunner keeping(catalog, {.bytes = isBudgetSmall ? 60U : 1'000'000U, .texts = 256});
    static_cast<void>(runWith(keeping));
    std::size_t saved = 0;
    for (int step = 0; step < 4000 && !HasFailure(); ++step) {
        const std::vector<AppliedOperation> before = operations;
        changeOperations();
        SCOPED_TRACE("step " + std::to_string(step));
        const int randomNumber = log.randomNumber;
        const Seen seen = runWith(keeping);
        const std::vector<std::string> ranAgain = log.ran;
        log.randomNumber = randomNumber;
        OperationsRunner fresh(catalog);
        EXPECT_EQ(seen, runWith(fresh));
        ASSERT_GE(log.ran.size(), ranAgain.size());
        saved += log.ran.size() - ranAgain.size();
        if (!isBudgetSmall) {
            EXPECT_LE(ranAgain.size(), runsExpected(before, operations));
        }
    }
    EXPECT_GT(saved, isBudgetSmall ? 1000U : 4000U);
}

INSTANTIATE_TEST_SUITE_P(WithAnyBudget, RandomReruns, testing::Bool(),
                         [](const auto &given) { return given.param ? "small" : "large"; });

} // namespace
} // namespace lexivore
