// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

class QScrollArea;
class QWidget;

namespace lexivore {

/// Tells the widgets of the area, which have moved beneath a resting pointer, on which of them the pointer is now. The
/// toolkit does not: the one that went would look pointed at, and after a click even when the pointer has left.
void pointAgain(const QWidget &area);

/// Does so whenever the area scrolls.
void pointAtWhatScrolls(QScrollArea &area);

} // namespace lexivore
