// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// A second implementation of every transformation: plain, slow, straight after the rules, on ICU alone. It shares no
// code with the engine, which is compared with it on generated texts.
namespace lexivore::reference {

/// Parameter id to the text entered for it.
using Parameters = std::map<std::string, std::string, std::less<>>;

/// What a transformation gives: a text, or the description of an error.
struct Outcome {
    bool succeeded = false;
    std::string text; ///< UTF-8; the description when it did not succeed.

    bool operator==(const Outcome &) const = default;
};

/// The ids of the transformations in catalog order, without the shuffle, which has no one result.
[[nodiscard]] const std::vector<std::string> &transformationIds();

/// The outcome of the transformation `id` (one of the above) on well-formed UTF-8.
///
/// A regular expression that cannot be compiled or matched fails with ICU's name of the error at the end of the
/// description; where in the pattern that was is left out.
[[nodiscard]] Outcome apply(std::string_view id, std::string_view text, const Parameters &parameters);

} // namespace lexivore::reference
