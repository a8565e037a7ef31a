// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/theme/motion.h"

#include <QStyle>
#include <QWidget>

namespace lexivore {

std::chrono::milliseconds motionDuration(const QWidget &widget, std::chrono::milliseconds duration) {
    const bool moves = widget.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &widget) > 0;
    return moves ? duration : std::chrono::milliseconds::zero();
}

} // namespace lexivore
