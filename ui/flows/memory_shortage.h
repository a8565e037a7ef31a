// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/sheets/alerts.h"
#include "ui/shortage_message.h"

#include <new>
#include <utility>

namespace lexivore {

/// Does `action`, which leaves everything as it was when memory runs out, and tells the user if it does. Whether it was
/// done.
template<typename Action> bool orReportShortage(Alerts &alerts, Action &&action) {
    try {
        std::forward<Action>(action)();
        return true;
    } catch (const std::bad_alloc &) {
        alerts.showError(memoryShortageMessage());
        return false;
    }
}

} // namespace lexivore
