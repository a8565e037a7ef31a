// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

class QMenu;
class QWidget;

namespace lexivore {

/// Whenever the menu closes with the pointer elsewhere, tells the widget from which it was opened that the pointer has
/// left. The toolkit does not, and the widget would look pointed at until the pointer came back.
void leaveWhenClosedElsewhere(QMenu &menu, QWidget &widget);

} // namespace lexivore
