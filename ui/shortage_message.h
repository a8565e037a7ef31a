// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

namespace lexivore {

/// A sentence for the user whose text or result does not fit into the memory.
[[nodiscard]] inline QString memoryShortageMessage() {
    return QCoreApplication::translate("MemoryShortage", "There is not enough memory for the result.");
}

} // namespace lexivore
