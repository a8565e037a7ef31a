// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

class QApplication;

namespace lexivore {

/// Which colours the user wants the programs of the desktop to have.
enum class ColourScheme { noPreference, dark, light };

/// What the desktop portal tells as `color-scheme`: a number, inside any number of D-Bus variants. Anything else is no
/// preference.
[[nodiscard]] ColourScheme colourSchemeOf(const QVariant &value);

/// Keeps the program as dark or light as the user wants the desktop to be, also while it runs. Asks the desktop portal
/// (org.freedesktop.portal.Settings), whose answer comes later. Without a portal or a preference the palette is the one
/// of the platform's theme.
void followSystemAppearance(QApplication &application);

} // namespace lexivore
