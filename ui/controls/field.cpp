// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/field.h"

#include "ui/controls/accessible_field.h"
#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleHints>
#include <QTimerEvent>

#include <limits>

namespace lexivore {

Field::Field(const QString &name, QWidget *parent) : QLineEdit(parent) {
    installAccessibleFields();
    setAccessibleName(name);
    setMaxLength(std::numeric_limits<int>::max());
    colourText();
    connect(this, &QLineEdit::cursorPositionChanged, this, &Field::restartBlinking);
    connect(this, &QLineEdit::textChanged, this, &Field::restartBlinking);
}

bool Field::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if ((key->matches(QKeySequence::Undo) && !isUndoAvailable()) ||
            (key->matches(QKeySequence::Redo) && !isRedoAvailable())) {
            event->ignore();
            return false;
        }
    }
    return QLineEdit::event(event);
}

void Field::changeEvent(QEvent *event) {
    QLineEdit::changeEvent(event);
    // Of a new palette of the application only windows are told; what they contain gets theirs.
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::PaletteChange) {
        colourText();
    }
}

void Field::paintEvent(QPaintEvent *event) {
    QLineEdit::paintEvent(event);
    if (!m_showsCaret || isReadOnly()) {
        return;
    }
    // The toolkit's rectangle leaves room on both sides of the caret.
    const QRect room = cursorRect();
    QRect caret(0, 0, metrics::caretWidth, fontMetrics().height());
    caret.moveCenter(room.center());
    caret.moveLeft(qMin(caret.left(), width() - metrics::caretWidth));
    QPainter(this).fillRect(caret, theme().accentText);
}

void Field::focusInEvent(QFocusEvent *event) {
    QLineEdit::focusInEvent(event);
    restartBlinking();
}

void Field::focusOutEvent(QFocusEvent *event) {
    QLineEdit::focusOutEvent(event);
    restartBlinking();
}

void Field::timerEvent(QTimerEvent *event) {
    if (event->timerId() == m_blinking.timerId()) {
        m_showsCaret = !m_showsCaret;
        update();
    } else {
        QLineEdit::timerEvent(event);
    }
}

void Field::restartBlinking() {
    m_showsCaret = hasFocus();
    m_blinking.stop();
    const int flashTime = QGuiApplication::styleHints()->cursorFlashTime();
    if (hasFocus() && flashTime >= 2) {
        m_blinking.start(flashTime / 2, this);
    }
    update();
}

void Field::colourText() {
    const bool isOff = looksDisabled(*this);
    QPalette palette;
    palette.setColor(QPalette::Disabled, QPalette::Text, isOff ? theme().textOff : theme().text);
    palette.setColor(QPalette::Disabled, QPalette::PlaceholderText, isOff ? theme().textOff : theme().text3);
    setPalette(palette);
}

} // namespace lexivore
