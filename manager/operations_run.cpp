// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/operations_run.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <new>
#include <optional>
#include <stdexcept>
#include <utility>

namespace lexivore {

namespace {

/// What the operation makes of the text, or nothing; then the failure has been reported.
std::optional<Text> applied(const TextTransformation &transformation, const AppliedOperation &operation,
                            const Text &text, OperationProblems &problems) {
    std::string description;
    try {
        return resultOf(transformation, text, operation.parameters);
    } catch (const TransformationError &error) {
        description = error.description();
    } catch (const std::bad_alloc &) {
        throw; // the operation is not to blame
    } catch (const std::exception &error) {
        description = TransformationError::operationFailed(error.what()).description();
    }
    std::cout << "Error reapplying operation: " << description << std::endl;
    problems[operation.id] = {OperationProblem::Kind::failed, std::move(description)};
    return std::nullopt;
}

} // namespace

Text resultOf(const TextTransformation &transformation, const Text &text, const ParameterMap &parameters) {
    try {
        TextBuffer result = transformation.apply(text.view(), parameters);
        if (result.size() > largestText) {
            throw TextTooLarge();
        }
        return Text(std::move(result));
    } catch (const std::length_error &) { // a string or list can be too long on the way as well
        throw TransformationError::operationFailed(QT_TRANSLATE_NOOP("Engine", "The result would be larger than 2 GB"));
    }
}

OperationsRun OperationsRunner::run(const Text &base, const std::vector<AppliedOperation> &operations) {
    OperationsRun run;
    const RunSteps steps = stepsOf(operations, run.problems);
    beginWith(base);
    std::size_t reusable = reusableSteps(steps);
    bool isRepeatable = true; // no step so far was random
    StepTextPointer current = m_base;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const auto &[operation, transformation] = steps[i];
        StepTextPointer after;
        if (i < reusable && !m_steps[i].hasFailed) {
            after = m_steps[i].after;
        } else {
            const std::optional<Text> result = applied(*transformation, *operation, *current->text(), run.problems);
            const bool failsAgain = i < reusable && !result.has_value();
            after = result.has_value() ? share(current, *result) : current;
            if (!failsAgain) {
                reusable = std::min(reusable, i);
                m_steps.resize(std::min(m_steps.size(), i));
                isRepeatable = isRepeatable && !transformation->isRandom();
                if (isRepeatable) {
                    keep(*operation, after, !result.has_value());
                }
            }
            if (!result.has_value()) {
                continue;
            }
        }
        run.texts[operation->id] = {current, after};
        current = std::move(after);
    }
    run.result = *current->text();
    keepWithinBudget(run.result);
    return run;
}

StepTexts OperationsRunner::add(const Text &base, const std::vector<AppliedOperation> &operations, const Text &before,
                                const AppliedOperation &added, const Text &after) {
    if (operations.empty()) {
        beginWith(base);
    }
    OperationProblems ignored;
    const RunSteps steps = stepsOf(operations, ignored);
    const bool goesOn = m_base != nullptr && m_base->text()->sharesAllWith(base) &&
                        commonSteps(steps) == steps.size() && textBefore(steps.size())->text() != nullptr &&
                        *textBefore(steps.size())->text() == before;
    StepTexts texts;
    if (goesOn) {
        texts.before = textBefore(steps.size());
    } else {
        texts.before = std::make_shared<StepText>(before);
        m_texts.push_back(texts.before);
    }
    texts.after = share(texts.before, after);
    const TransformationPointer transformation = findTransformation(m_catalog, added.transformation);
    if (goesOn && transformation != nullptr && !transformation->isRandom()) {
        m_steps.resize(steps.size());
        keep(added, texts.after, false);
    }
    keepWithinBudget(after);
    return texts;
}

void OperationsRunner::forget() {
    m_base.reset();
    m_steps.clear();
}

OperationsRunner::RunSteps OperationsRunner::stepsOf(const std::vector<AppliedOperation> &operations,
                                                     OperationProblems &problems) const {
    RunSteps steps;
    for (const AppliedOperation &operation : operations) {
        if (!operation.isEnabled) {
            continue;
        }
        if (TransformationPointer found = findTransformation(m_catalog, operation.transformation)) {
            steps.emplace_back(&operation, std::move(found));
        } else {
            problems[operation.id] = {OperationProblem::Kind::unknownTransformation, {}};
        }
    }
    return steps;
}

void OperationsRunner::beginWith(const Text &base) {
    if (m_base == nullptr || !m_base->text()->sharesAllWith(base)) {
        m_steps.clear();
        m_base = std::make_shared<StepText>(base);
    }
}

const StepTextPointer &OperationsRunner::textBefore(std::size_t step) const {
    return step == 0 ? m_base : m_steps[step - 1].after;
}

/// How many of the first `steps` are those that were kept.
std::size_t OperationsRunner::commonSteps(const RunSteps &steps) const {
    const auto isSame = [](const auto &step, const Step &kept) {
        return step.first->transformation == kept.transformation && step.first->parameters == kept.parameters;
    };
    return static_cast<std::size_t>(std::ranges::mismatch(steps, m_steps, isSame).in1 - steps.begin());
}

/// How many of the first `steps` need not be run again, apart from those that have failed. The texts that those and the
/// first other one begin with are at hand.
std::size_t OperationsRunner::reusableSteps(const RunSteps &steps) const {
    const std::size_t common = commonSteps(steps);
    std::size_t reusable = 0;
    for (std::size_t i = 0; i <= common; ++i) {
        const bool isAtHand = textBefore(i)->text() != nullptr;
        if (isAtHand) {
            reusable = i;
        } else if (i < common && m_steps[i].hasFailed) {
            break;
        }
    }
    return reusable;
}

void OperationsRunner::keep(const AppliedOperation &operation, StepTextPointer after, bool hasFailed) {
    m_steps.push_back({operation.transformation, operation.parameters, std::move(after), hasFailed});
}

/// A step that changes nothing keeps no second copy of the text.
StepTextPointer OperationsRunner::share(const StepTextPointer &before, const Text &after) {
    if (*before->text() == after) {
        return before;
    }
    auto shared = std::make_shared<StepText>(after);
    m_texts.push_back(shared);
    return shared;
}

void OperationsRunner::keepWithinBudget(const Text &current) {
    std::size_t bytes = 0;
    std::size_t texts = 0;
    std::deque<std::weak_ptr<StepText>> left;
    for (auto place = m_texts.rbegin(); place != m_texts.rend(); ++place) {
        const StepTextPointer one = place->lock();
        if (one == nullptr || one->text() == nullptr) {
            continue;
        }
        if (!one->text()->sharesAllWith(current)) {
            bytes += one->text()->size();
            ++texts;
        }
        if (bytes > m_budget.bytes || texts > m_budget.texts) {
            one->forget();
        } else {
            left.push_front(*place);
        }
    }
    m_texts = std::move(left);
}

} // namespace lexivore
