// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/reference/reference.h"
#include "tests/support/property.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace lexivore::test {

/// A text in pieces, and what is given to a transformation with it.
struct TransformationCase {
    std::vector<std::string> pieces;
    reference::Parameters parameters;

    [[nodiscard]] std::string text() const;
};

/// Text and parameters, escaped, for RapidCheck's report of a failure.
void showValue(const TransformationCase &shown, std::ostream &out);

/// Texts of every kind and no parameters. A failing one shrinks by leaving pieces out.
[[nodiscard]] rc::Gen<TransformationCase> texts();

/// Texts and parameter maps fit for the transformation `id`: mostly valid, also absent, empty, malformed and
/// overflowing values; encoded, damaged and arbitrary input for what decodes.
[[nodiscard]] rc::Gen<TransformationCase> casesFor(const std::string &id);

/// A regular expression of a small grammar in which no repetition is repeated, so that none takes exponential time.
/// A few are malformed.
[[nodiscard]] std::string regularExpression(Dice &dice);

} // namespace lexivore::test
