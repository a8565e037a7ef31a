// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/primitives/membership_scan.h"

#include <optional>
#include <string>
#include <string_view>

namespace lexivore {

/// A regular expression whose matches are plain to see: a text without any special character ("colour"), or one set of
/// ASCII letters and digits, alone or repeated ("[0-9]+", "[A-Fa-f]", "x+"). What it matches is what ICU matches.
struct SimplePattern {
    std::string literal;   ///< If not empty, this is what matches.
    kernels::AsciiSet set; ///< Otherwise a member of this does...
    bool isRun = false;    ///< ... or each longest run of them.
};

/// Nothing for every pattern that is not as simple as that, malformed ones included.
[[nodiscard]] std::optional<SimplePattern> simplePattern(std::string_view pattern);

/// Calls `visit(std::string_view)` with every match of a pattern that is no literal, in order.
template<typename Visit> void forEachMatch(std::string_view text, const SimplePattern &pattern, Visit &&visit) {
    const char *runBegin = nullptr;
    const char *runEnd = nullptr;
    const auto visitRun = [&]() {
        if (runBegin != nullptr) {
            visit(std::string_view(runBegin, static_cast<std::size_t>(runEnd - runBegin)));
        }
    };
    forEachMember(MembershipScan(text, pattern.set), [&](const char *member) {
        if (member != runEnd || !pattern.isRun) {
            visitRun();
            runBegin = member;
        }
        runEnd = member + 1;
    });
    visitRun();
}

} // namespace lexivore
