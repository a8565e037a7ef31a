// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/results/card.h"
#include "ui/theme/theme.h"

namespace lexivore {

/// A count: its symbol in a colour, the value and, beneath it, what is counted.
class CompactStatCard : public Card {
    Q_OBJECT

public:
    CompactStatCard(const QString &title, const QString &value, const QString &icon, ThemeColour color,
                    QWidget *parent = nullptr);
};

} // namespace lexivore
