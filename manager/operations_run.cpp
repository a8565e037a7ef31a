// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/operations_run.h"

#include <exception>
#include <iostream>
#include <new>
#include <utility>

namespace lexivore {

OperationsRun::OperationsRun(const Catalog &catalog, Text base, const std::vector<AppliedOperation> &operations)
    : m_result(std::move(base)) {
    for (const AppliedOperation &operation : operations) {
        if (operation.isEnabled) {
            apply(catalog, operation);
        }
    }
}

void OperationsRun::apply(const Catalog &catalog, const AppliedOperation &operation) {
    const TransformationPointer transformation = findTransformation(catalog, operation.transformation);
    if (transformation == nullptr) {
        m_problems[operation.id] = {OperationProblem::Kind::unknownTransformation, {}};
        return;
    }
    try {
        m_result = Text(transformation->apply(m_result.view(), operation.parameters));
    } catch (const TransformationError &error) {
        reportFailure(operation, error.description());
    } catch (const std::bad_alloc &) {
        reportFailure(operation, TransformationError::operationFailed("Not enough memory").description());
    } catch (const std::exception &error) {
        reportFailure(operation, TransformationError::operationFailed(error.what()).description());
    }
}

void OperationsRun::reportFailure(const AppliedOperation &operation, std::string description) {
    std::cout << "Error reapplying operation: " << description << std::endl;
    m_problems[operation.id] = {OperationProblem::Kind::failed, std::move(description)};
}

} // namespace lexivore
