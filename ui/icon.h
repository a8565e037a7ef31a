// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAnyStringView>
#include <QColor>
#include <QIcon>
#include <QPixmap>

namespace lexivore {

// The symbols are one-colour drawings on a grid of 24 x 24, one file `ui/icons/<name>.svg` each. They are drawn at the
// asked size and device pixel ratio, never scaled, and kept in Qt's pixmap cache: asking again is a look-up.

/// Whether there is a drawing of this name.
[[nodiscard]] bool hasSymbol(QAnyStringView name);

/// The symbol in one colour, which may be translucent, on a transparent square. `size` is the side of that square in
/// device-independent pixels; a size of 0 or less gives a null pixmap. An unknown name gives an empty rounded square.
[[nodiscard]] QPixmap symbolPixmap(QAnyStringView name, int size, const QColor &colour, qreal devicePixelRatio);

/// The star of a favorite: filled with one colour, outlined with another.
[[nodiscard]] QPixmap favoriteStarPixmap(int size, const QColor &fill, const QColor &edge, qreal devicePixelRatio);

/// The symbol for widgets that take an icon and ask for sizes themselves. Disabled, it has `disabledColour`.
[[nodiscard]] QIcon symbolIcon(QAnyStringView name, const QColor &colour, const QColor &disabledColour);

/// The program's own icon in the sizes that window managers ask for.
[[nodiscard]] QIcon applicationIcon();

} // namespace lexivore
