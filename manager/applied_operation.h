// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"

#include <QUuid>

#include <string>
#include <vector>

namespace lexivore {

/// A moment as preferences and recipes store it: seconds since 2001-01-01 00:00:00 UTC, fractions included.
/// Kept as the very number that was read, so that writing a file back never changes it.
struct Timestamp {
    double secondsSinceReferenceDate = 0;

    [[nodiscard]] static Timestamp now();
    bool operator==(const Timestamp &) const = default;
};

/// One entry of the operations stack.
struct AppliedOperation {
    QUuid id = QUuid::createUuid();
    std::string transformation;     ///< The transformation's id in the catalog.
    std::string transformationName; ///< Its display name when it was applied.
    ParameterMap parameters;
    Timestamp timestamp = Timestamp::now();
    bool isEnabled = true; ///< A disabled operation is skipped when the stack is re-run.

    /// Two operations are the same when their ids are; nothing else takes part.
    bool operator==(const AppliedOperation &other) const { return id == other.id; }
};

/// True when all fields are equal, not only the ids.
[[nodiscard]] bool haveSameFields(const AppliedOperation &left, const AppliedOperation &right);
[[nodiscard]] bool haveSameFields(const std::vector<AppliedOperation> &left,
                                  const std::vector<AppliedOperation> &right);

} // namespace lexivore
