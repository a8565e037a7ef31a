// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace lexivore {

struct TextMatch {
    std::size_t offset = 0;
    std::size_t length = 0; ///< In bytes; can differ from the needle's, for case is folded.
    friend bool operator==(const TextMatch &, const TextMatch &) = default;
};

// Case does not matter: it is folded simply, code point by code point (UAX #44). An empty needle matches nothing.
// Matches begin and end between code points. None of these copies the text; each walks as much of it as it must.

/// The first match that begins at or behind `from`.
[[nodiscard]] std::optional<TextMatch> findForward(const Text &text, std::string_view needle, std::size_t from);
/// The last match that ends at or before `to`.
[[nodiscard]] std::optional<TextMatch> findBackward(const Text &text, std::string_view needle, std::size_t to);
/// How many matches there are, none overlapping another.
[[nodiscard]] std::size_t countMatches(const Text &text, std::string_view needle);

} // namespace lexivore
