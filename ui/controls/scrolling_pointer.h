// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

class QScrollArea;

namespace lexivore {

/// Whenever the area scrolls beneath a resting pointer, tells its widgets on which of them the pointer is now. The
/// toolkit does not: the one that went would look pointed at, and after a click even when the pointer has left.
void pointAtWhatScrolls(QScrollArea &area);

} // namespace lexivore
