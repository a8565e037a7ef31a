// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/footnote.h"

#include "ui/controls/label.h"

namespace lexivore {

QWidget *makeFootnote(const QString &text) {
    auto *footnote = new Label(text, FontRole::caption, &Theme::text2, Label::Lines::wrapped);
    footnote->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    return footnote;
}

} // namespace lexivore
