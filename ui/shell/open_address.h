// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

class QUrl;

namespace lexivore {

/// Gives the address to the program that the desktop opens such ones with. That one is not bound by the limit of memory
/// of this one. False when there is none.
bool openAddress(const QUrl &address);

} // namespace lexivore
