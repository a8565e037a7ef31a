// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/shell/open_address.h"

#include "services/memory_limit.h"

#include <QDesktopServices>

namespace lexivore {

bool openAddress(const QUrl &address) {
    const ChildrenWithoutMemoryLimit lifted;
    return QDesktopServices::openUrl(address);
}

} // namespace lexivore
