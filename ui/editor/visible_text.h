// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>
#include <vector>

namespace lexivore {

/// How a code unit that would show nothing is made visible.
enum class QuietMark {
    picture,   ///< A control: its picture stands in for it.
    wideSpace, ///< A space other than the ordinary one: a dot within its width.
    noWidth,   ///< A code point without width: a tick at its place.
};

struct QuietUnit {
    qsizetype unit = 0;
    QuietMark mark = QuietMark::picture;
};

/// `line`, which holds no line break, as it is to be drawn: unit for unit the same, but for the pictures of controls.
/// Adds to `marks` what is to be drawn quietly. Returns the very same string when it holds no control.
[[nodiscard]] QString visibleText(const QString &line, std::vector<QuietUnit> &marks);

/// What is drawn at the end of a line for the line break `terminator`: nothing for LF and CR LF.
[[nodiscard]] QString visibleTerminator(std::string_view terminator);

} // namespace lexivore
