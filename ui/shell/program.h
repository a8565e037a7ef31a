// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QVariantMap>

class QApplication;

namespace lexivore {

/// Runs the program until it ends and returns its exit code. `information` is what it was built with. When it runs
/// already, the running one comes forward instead and this returns at once.
[[nodiscard]] int runProgram(QApplication &application, const QVariantMap &information);

} // namespace lexivore
