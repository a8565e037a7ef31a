// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/field.h"

#include "ui/theme/drawing.h"
#include "ui/theme/theme.h"

#include <QEvent>

#include <limits>

namespace lexivore {

Field::Field(const QString &name, QWidget *parent) : QLineEdit(parent) {
    setAccessibleName(name);
    setMaxLength(std::numeric_limits<int>::max());
    colourText();
}

void Field::changeEvent(QEvent *event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::ApplicationPaletteChange)
        colourText();
}

void Field::colourText() {
    const bool isOff = looksDisabled(*this);
    QPalette palette;
    palette.setColor(QPalette::Disabled, QPalette::Text, isOff ? theme().textOff : theme().text);
    palette.setColor(QPalette::Disabled, QPalette::PlaceholderText, isOff ? theme().textOff : theme().text3);
    setPalette(palette);
}

} // namespace lexivore
