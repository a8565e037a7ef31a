// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/applied_operation.h"

#include <algorithm>
#include <chrono>

namespace lexivore {

Timestamp Timestamp::now() {
    using namespace std::chrono;
    constexpr sys_days referenceDate = year(2001) / January / 1;
    return {duration<double>(system_clock::now() - referenceDate).count()};
}

bool haveSameFields(const AppliedOperation &left, const AppliedOperation &right) {
    return left.id == right.id && left.transformation == right.transformation &&
           left.transformationName == right.transformationName && left.parameters == right.parameters &&
           left.timestamp == right.timestamp && left.isEnabled == right.isEnabled;
}

bool haveSameFields(const std::vector<AppliedOperation> &left, const std::vector<AppliedOperation> &right) {
    return std::ranges::equal(left, right, [](const AppliedOperation &one, const AppliedOperation &other) {
        return haveSameFields(one, other);
    });
}

} // namespace lexivore
