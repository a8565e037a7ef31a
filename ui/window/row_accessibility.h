// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

namespace lexivore {

class RowButton;

/// Makes assistive technology see rows as items of a list that can be pressed, with their text as the name and, when
/// they are checkable, whether they are selected. Needs to be called once; more does nothing.
void installRowAccessibility();

/// Tells assistive technology that the row's selection is another one now.
void announceSelection(RowButton &row);

/// Tells assistive technology that the row was switched on or off.
void announceChecked(RowButton &row);

} // namespace lexivore
