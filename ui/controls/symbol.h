// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/theme/theme.h"

#include <QWidget>

namespace lexivore {

/// A symbol that stands by itself. It is decoration: assistive technology passes over it.
class Symbol : public QWidget {
    Q_OBJECT

public:
    /// `size` in device-independent pixels.
    Symbol(const QString &name, int size, ThemeColour colour, QWidget *parent = nullptr);

    void setName(const QString &name);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_name;
    ThemeColour m_colour;
};

} // namespace lexivore
