// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <stdexcept>
#include <string_view>

namespace lexivore {

/// A pattern that does not compile, or a match that ran into the limits of time or stack.
/// `what()` is ICU's name of the error and, where ICU gives one, the place in the pattern.
class RegularExpressionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// `text` with every match of `pattern` (ICU's syntax, no options) replaced by `replacementTemplate`, in which "$" and
/// one digit is that group, empty if it does not exist or took no part, and a backslash makes the next character
/// literal. Throws RegularExpressionError. Costs a conversion to UTF-16 and back beside the matching itself, but for
/// patterns that need no engine (SimplePattern, SequencePattern) and texts without what every match must have.
/// ICU may take 1.25 seconds of the processor, one more for each 25 MB, without backtracking also a microsecond for
/// each place where it tries to match, and 64 MB for its stack.
[[nodiscard]] TextBuffer replaceMatches(std::string_view text, std::string_view pattern,
                                        std::string_view replacementTemplate);

} // namespace lexivore
