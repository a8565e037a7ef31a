// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/menu_text.h"

#include <QCoreApplication>
#include <QTextBoundaryFinder>

namespace lexivore {

namespace {

constexpr qsizetype longestText = 60;

} // namespace

QString shownName(const QString &name) {
    return name.trimmed().isEmpty() ? QCoreApplication::translate("Menu", "Untitled") : name;
}

QString menuText(const QString &name) {
    // So much of a very long name is more than is shown.
    QString text = name.left(100 * longestText).simplified();
    if (text.size() > longestText) {
        QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
        characters.setPosition(longestText);
        if (!characters.isAtBoundary()) {
            characters.toPreviousBoundary();
        }
        text.truncate(characters.position() > 0 ? characters.position() : longestText);
        text += QChar(0x2026);
    }
    if (text.isEmpty()) {
        return shownName(text);
    }
    return text.replace('&', "&&");
}

} // namespace lexivore
