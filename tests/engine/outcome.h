// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace lexivore::test {

/// What a transformation gives: a text, or the whole description of an error.
struct Outcome {
    // Implicit, so that a table can name a text or a failure as its result.
    Outcome(const char *result) : text(result) {}
    Outcome(std::string result, bool isFailure = false) : text(std::move(result)), failed(isFailure) {}

    std::string text;
    bool failed = false;

    bool operator==(const Outcome &) const = default;
};

inline std::ostream &operator<<(std::ostream &out, const Outcome &outcome) {
    return out << (outcome.failed ? "the error " : "the text ") << testing::PrintToString(outcome.text);
}

/// The failure with exactly this description.
inline Outcome fails(std::string description) { return {std::move(description), true}; }

inline Outcome outcomeOf(const TextTransformation &transformation, std::string_view text,
                         const ParameterMap &parameters) {
    try {
        return std::string(transformation.apply(text, parameters).view());
    } catch (const TransformationError &error) {
        return fails(error.description());
    }
}

} // namespace lexivore::test
