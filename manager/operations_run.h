// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/catalog.h"
#include "engine/text.h"
#include "manager/applied_operation.h"

#include <map>
#include <string>
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

/// One run of an operations stack over a base text.
class OperationsRun {
public:
    /// Applies every enabled operation to the result of the one before. An operation that fails, for whatever reason,
    /// or whose transformation is unknown leaves the text as it was; a failure is also reported at once on standard
    /// output.
    OperationsRun(const Catalog &catalog, Text base, const std::vector<AppliedOperation> &operations);

    [[nodiscard]] const Text &result() const { return m_result; }
    [[nodiscard]] const OperationProblems &problems() const { return m_problems; }

private:
    void apply(const Catalog &catalog, const AppliedOperation &operation);
    void reportFailure(const AppliedOperation &operation, std::string description);

    Text m_result;
    OperationProblems m_problems;
};

} // namespace lexivore
