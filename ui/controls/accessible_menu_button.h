// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

class QAbstractButton;

namespace lexivore {

/// Presents a button that is there for its menu, a QToolButton or a QPushButton, to assistive technology: it tells of
/// the menu, opens it and takes the focus. Only before anything asked what the button is.
void setAccessibleMenuButton(QAbstractButton &button);

} // namespace lexivore
