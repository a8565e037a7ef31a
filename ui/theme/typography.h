// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace lexivore {

/// What a piece of text is for. Sizes follow the application's font, S points.
enum class FontRole {
    score,          ///< 3.8 S, semibold
    duration,       ///< 2.6 S, semibold
    cardValue,      ///< S + 6, semibold
    smallCardValue, ///< S + 3, semibold: small values and the readability level
    alertTitle,     ///< S + 2, semibold
    headline,       ///< S + 1, semibold
    body,           ///< S: categories, menus, fields
    callout,        ///< S, medium: row names, buttons
    subheadline,    ///< S - 0.5: the text of sheets
    fieldLabel,     ///< S - 0.5, medium
    caption,        ///< S - 1: status, counts
    captionMedium,  ///< S - 1, medium: operation names
    sectionTitle,   ///< S - 1, semibold
    smallCaption,   ///< S - 1.5: descriptions, parameters
    badge,          ///< S - 1.5, bold
};

/// The size of the application's font, S, in points.
[[nodiscard]] double systemPoints();

/// The application's font in the size and weight of the role.
[[nodiscard]] QFont fontFor(FontRole role);

/// The height of one line of running text of the role, in device-independent pixels, with the air around it.
[[nodiscard]] int lineHeightFor(FontRole role);

/// The system's monospaced font in so many points.
[[nodiscard]] QFont monospacedFont(double points);

/// `height`, which is right for `lines` lines of text of the role in a system font of 10 points at 96 dots per inch, in
/// device-independent pixels for the font in use: it grows and shrinks with the lines and never clips them.
[[nodiscard]] int heightFor(int height, FontRole role, int lines = 1);

/// A width that is the same whatever the letters, until they are so large (from 12.5 points at 96 dots per inch) that
/// words would no longer fit: then it grows with them. Device-independent pixels.
[[nodiscard]] int widthFor(int width);

} // namespace lexivore
