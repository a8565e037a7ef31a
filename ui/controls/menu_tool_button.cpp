// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/menu_tool_button.h"

#include "ui/controls/accessible_menu_button.h"

namespace lexivore {

MenuToolButton::MenuToolButton(const QString &symbol, const QString &help, Size size, QWidget *parent)
    : ToolButton(symbol, help, size, parent) {
    setAccessibleMenuButton(*this);
    setPopupMode(InstantPopup);
}

} // namespace lexivore
