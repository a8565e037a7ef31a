// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace lexivore {

/// What a user has named, as it is, or "Untitled" when nothing of the name shows.
[[nodiscard]] QString shownName(const QString &name);

/// What a user has named, as the text of a menu item: one line of reasonable width, never empty, in which "&" is no
/// mark of a shortcut.
[[nodiscard]] QString menuText(const QString &name);

} // namespace lexivore
