// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/plain_editor.h"

#include "engine/primitives/characters.h"
#include "ui/text_conversion.h"

#include <QScopedValueRollback>
#include <QTextBlock>

#include <algorithm>

namespace lexivore {

namespace {

/// The same number of units, none of which the toolkit would change.
QString showable(QString units) {
    for (QChar &unit : units) {
        switch (unit.unicode()) {
        case u'\r':
            unit = QChar(0x240D);
            break;
        case 0x2029:
            unit = QChar(0x2028);
            break;
        case 0xFDD0:
        case 0xFDD1:
            unit = QChar(0xFFFD);
            break;
        default:
            break;
        }
    }
    return units;
}

std::size_t byteCount(QStringView units) { return toUtf8(units).size(); }

} // namespace

PlainEditor::PlainEditor(QWidget *parent) : QPlainTextEdit(parent) {
    setFrameShape(NoFrame);
    setUndoRedoEnabled(false);
    setTabChangesFocus(false);
    connect(document(), &QTextDocument::contentsChange, this, &PlainEditor::takeChange);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &PlainEditor::announceCaret);
}

void PlainEditor::setText(const Text &text) {
    if (text == m_model.text()) {
        return;
    }
    const QScopedValueRollback showing(m_isShowing, true);
    m_model.setText(text);
    m_units = toQString(text.view());
    setPlainText(showable(m_units));
    announceCaret();
    emit countsChanged();
}

void PlainEditor::setCaret(std::size_t offset) {
    QTextCursor cursor = textCursor();
    cursor.setPosition(static_cast<int>(toQString(m_model.text().view().substr(0, offset)).size()));
    setTextCursor(cursor);
}

void PlainEditor::takeChange(int position, int removed, int added) {
    if (m_isShowing) {
        return;
    }
    // The document sometimes counts the end of its last block, which is no part of the text.
    const qsizetype size = document()->characterCount() - 1;
    const qsizetype addedUnits = std::min<qsizetype>(added, size - position);
    const qsizetype removedUnits = m_units.size() + addedUnits - size;
    if (removedUnits < 0 || (removedUnits == 0 && addedUnits == 0)) {
        return;
    }
    QTextCursor range(document());
    range.setPosition(position);
    range.setPosition(position + static_cast<int>(addedUnits), QTextCursor::KeepAnchor);
    const QString inserted = range.selectedText().replace(QChar(0x2029), u'\n');
    const std::size_t offset = byteCount(QStringView(m_units).left(position));
    const std::size_t removedBytes = byteCount(QStringView(m_units).mid(position, removedUnits));
    const std::string insertedBytes = toUtf8(inserted);
    m_units.replace(position, removedUnits, inserted);
    m_model.replace(offset, removedBytes, insertedBytes);
    emit countsChanged();
    emit edited(offset, removedBytes, insertedBytes);
    static_cast<void>(removed);
}

void PlainEditor::announceCaret() {
    const QTextCursor cursor = textCursor();
    const std::string before = toUtf8(QStringView(cursor.block().text()).left(cursor.positionInBlock()));
    emit caretMoved(static_cast<std::size_t>(cursor.blockNumber()) + 1, characterCount(before) + 1);
}

} // namespace lexivore
