// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

class QWidget;

namespace lexivore {

/// How long a movement of `duration` takes: no time at all when the style reports an animation duration of zero.
[[nodiscard]] std::chrono::milliseconds motionDuration(const QWidget &widget, std::chrono::milliseconds duration);

} // namespace lexivore
