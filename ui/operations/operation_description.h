// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/applied_operation.h"
#include "manager/transformation_manager.h"

#include <QString>

#include <optional>
#include <vector>

namespace lexivore {

// What a row of the operations panel says about its operation.

/// One line for each parameter, "key: value". What a parameter holds stays on its line, and long values are cut off.
[[nodiscard]] std::vector<QString> parameterLines(const AppliedOperation &operation);

/// Why the operation had no effect when the stack was last run; empty when it had, or is disabled.
[[nodiscard]] QString problemOf(const AppliedOperation &operation, const OperationProblems &problems);

/// What the operation did to the lines and the characters of the text, a line of its own for each; empty when it did
/// not run.
[[nodiscard]] std::vector<QString> measureLines(const std::optional<OperationMeasures> &measures);

/// The one of these that tells most, in a few words: the lines when their number changed, else the characters, if it
/// did.
[[nodiscard]] QString shortMeasure(const std::optional<OperationMeasures> &measures);

} // namespace lexivore
