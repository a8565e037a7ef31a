// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/theme/theme.h"

#include <QWidget>

namespace lexivore {

/// A widget that fills itself with one of the theme's colours.
class Surface : public QWidget {
    Q_OBJECT

public:
    explicit Surface(ThemeColour colour, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    ThemeColour m_colour;
};

} // namespace lexivore
