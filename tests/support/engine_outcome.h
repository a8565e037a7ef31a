// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"
#include "tests/reference/reference.h"
#include "tests/support/placed_bytes.h"

#include <string_view>

namespace lexivore::test {

/// What the engine gives, in the reference's terms. `offset` shifts the text's place in memory.
[[nodiscard]] inline reference::Outcome engineOutcome(const TextTransformation &transformation, std::string_view text,
                                                      const ParameterMap &parameters, std::size_t offset = 0) {
    const PlacedBytes placed(text, offset);
    try {
        return {true, std::string(transformation.apply(placed.view(), parameters).view())};
    } catch (const TransformationError &error) {
        return {false, error.description()};
    }
}

} // namespace lexivore::test
