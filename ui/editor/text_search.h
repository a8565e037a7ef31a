// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace lexivore {

struct TextSearch {
    bool isCaseSensitive = false; ///< Otherwise case is folded by simple case folding, code point by code point.
};

struct TextMatch {
    std::size_t offset = 0;
    std::size_t length = 0; ///< In bytes; can differ from the needle's when case is folded.
    friend bool operator==(const TextMatch &, const TextMatch &) = default;
};

/// The first match that begins at or behind `from`. An empty needle matches nothing. Matches begin and end between code
/// points. None of these copies the text; each walks as much of it as it must.
[[nodiscard]] std::optional<TextMatch> findForward(const Text &text, std::string_view needle, std::size_t from,
                                                   TextSearch search = {});
/// The last match that ends at or before `to`.
[[nodiscard]] std::optional<TextMatch> findBackward(const Text &text, std::string_view needle, std::size_t to,
                                                    TextSearch search = {});
/// How many matches there are, none overlapping another.
[[nodiscard]] std::size_t countMatches(const Text &text, std::string_view needle, TextSearch search = {});

} // namespace lexivore
