// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

class QWidget;

namespace lexivore {

/// Gives a widget that draws itself the role that assistive technology reports. Its name and description are the
/// widget's `accessibleName` and `accessibleDescription`. Not for subclasses of the toolkit's controls, which bring a
/// role, states and actions of their own.
void setAccessibleRole(QWidget &widget, QAccessible::Role role);

/// For a widget with the role `ListItem`: whether it is the selected one. Announced when it changes.
void setAccessibleSelected(QWidget &widget, bool isSelected);

/// For a sheet or an alert: it keeps the focus until it is answered.
void setAccessibleModal(QWidget &widget);

} // namespace lexivore
