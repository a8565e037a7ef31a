// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/catalog.h"
#include "engine/text.h"
#include "manager/applied_operation.h"
#include "manager/step_text.h"

#include <cstddef>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace lexivore {

/// Why an enabled operation had no effect when the stack was last run.
struct OperationProblem {
    enum class Kind {
        failed,                ///< Its transformation gave an error.
        unknownTransformation, ///< No transformation has its id.
    };

    Kind kind = Kind::failed;
    std::string description; ///< The error as the user reads it; empty for an unknown transformation.

    bool operator==(const OperationProblem &) const = default;
};

/// By the id of the operation. Operations that did what they should are not in it.
using OperationProblems = std::map<QUuid, OperationProblem>;

/// What an operation made of the text when it last ran.
struct StepTexts {
    StepTextPointer before;
    StepTextPointer after;

    bool operator==(const StepTexts &other) const { return *before == *other.before && *after == *other.after; }
};

/// By the id of the operation. Operations that are disabled, failed or unknown are not in it.
using OperationTexts = std::map<QUuid, StepTexts>;

/// What the transformation makes of the text. Throws what its `apply` throws, and operationFailed when the result would
/// be larger than a text may be.
[[nodiscard]] Text resultOf(const TextTransformation &transformation, const Text &text, const ParameterMap &parameters);

/// One run of an operations stack over a base text.
struct OperationsRun {
    Text result;
    OperationProblems problems;
    OperationTexts texts;
};

/// Runs operations stacks. What comes out, printed errors included, is always that of running every step; but steps
/// that are the same as in the last run, over the same base text, are not run again: their results were kept.
/// Run again are all steps from the first random one on, and any that failed, for it may have wanted time or memory.
class OperationsRunner {
public:
    /// What the kept results may take at most, apart from the base text and the last result, which others hold anyway.
    struct Budget {
        std::size_t bytes = std::size_t{256} << 20U;
        std::size_t texts = 256;
    };

    /// The catalog must outlive the runner.
    explicit OperationsRunner(const Catalog &catalog, Budget budget) : m_catalog(catalog), m_budget(budget) {}
    explicit OperationsRunner(const Catalog &catalog) : OperationsRunner(catalog, Budget()) {}

    /// Applies every enabled operation to the result of the one before. An operation that fails or whose transformation
    /// is unknown leaves the text as it was; a failure is also reported at once on standard output. A lack of memory is
    /// no failure of an operation: it ends the whole run with std::bad_alloc.
    [[nodiscard]] OperationsRun run(const Text &base, const std::vector<AppliedOperation> &operations);

    /// Takes note that `added` has just made `after` of `before`, behind the `operations` over `base`, so that the next
    /// run need not do it again.
    [[nodiscard]] StepTexts add(const Text &base, const std::vector<AppliedOperation> &operations, const Text &before,
                                const AppliedOperation &added, const Text &after);

    /// Lets go of all that was kept.
    void forget();

private:
    /// An enabled operation of a known transformation that is not random, and neither is any before it.
    struct Step {
        std::string transformation;
        ParameterMap parameters;
        StepTextPointer after;
        bool hasFailed = false;
    };
    using RunSteps = std::vector<std::pair<const AppliedOperation *, TransformationPointer>>;

    [[nodiscard]] RunSteps stepsOf(const std::vector<AppliedOperation> &operations, OperationProblems &problems) const;
    void beginWith(const Text &base);
    [[nodiscard]] const StepTextPointer &textBefore(std::size_t step) const;
    [[nodiscard]] std::size_t commonSteps(const RunSteps &steps) const;
    [[nodiscard]] std::size_t reusableSteps(const RunSteps &steps) const;
    void keep(const AppliedOperation &operation, StepTextPointer after, bool hasFailed);
    [[nodiscard]] StepTextPointer share(const StepTextPointer &before, const Text &after);
    void keepWithinBudget(const Text &current);

    const Catalog &m_catalog;
    Budget m_budget;
    StepTextPointer m_base; ///< Null before the first run.
    std::vector<Step> m_steps;
    std::deque<std::weak_ptr<StepText>> m_texts; ///< All that may have to be forgotten, the oldest first.
};

} // namespace lexivore
