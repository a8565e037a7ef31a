// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/tool_button.h"

namespace lexivore {

/// A tool button that is there for the menu it is given.
class MenuToolButton final : public ToolButton {
    Q_OBJECT

public:
    MenuToolButton(const QString &symbol, const QString &help, Size size, QWidget *parent = nullptr);
};

} // namespace lexivore
