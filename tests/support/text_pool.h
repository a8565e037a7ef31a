// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/property.h"

#include <string>
#include <string_view>
#include <vector>

namespace lexivore::test {

/// Pieces of text of one kind, and how often that kind is drawn in comparison with the others.
struct TextPool {
    const char *name;
    std::size_t weight;
    std::vector<std::string_view> pieces;
};

/// Everything that has ever surprised a program that works on text: every script's way of joining code points to
/// characters, case mappings that grow, every line break and space, what composes and reorders, what is unassigned.
[[nodiscard]] const std::vector<TextPool> &textPools();

/// Any scalar value, as UTF-8.
[[nodiscard]] std::string anyScalarValue(Dice &dice);

/// A text as a list of pieces, of which a smaller failing text can be made by leaving some out. Of every size from
/// nothing to several kilobytes, the longer ones with stretches of ASCII that end at and around powers of two.
/// `size` (0 to 100) bounds the number of pieces.
[[nodiscard]] std::vector<std::string> textPieces(Dice &dice, int size);

} // namespace lexivore::test
