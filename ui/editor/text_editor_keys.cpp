// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_editor.h"

#include "manager/text_conversion.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

namespace lexivore {

namespace {

/// What a key types, if it is one that does.
QString typedBy(const QKeyEvent *event) {
    const QString text = event->text();
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    const bool isCommand = modifiers == Qt::ControlModifier || modifiers == (Qt::ShiftModifier | Qt::ControlModifier);
    if (text.isEmpty() || (isCommand && text.at(0) != QChar(0x200C) && text.at(0) != QChar(0x200D))) {
        return {};
    }
    const QChar first = text.at(0);
    const bool isText = first.isPrint() || first.category() == QChar::Other_Format ||
                        first.category() == QChar::Other_PrivateUse || first.isSurrogate() || first == u'\t';
    return isText ? text : QString();
}

const std::array<QKeySequence::StandardKey, 10> editKeys{QKeySequence::Copy,
                                                         QKeySequence::Cut,
                                                         QKeySequence::Paste,
                                                         QKeySequence::SelectAll,
                                                         QKeySequence::Delete,
                                                         QKeySequence::DeleteEndOfWord,
                                                         QKeySequence::DeleteStartOfWord,
                                                         QKeySequence::DeleteEndOfLine,
                                                         QKeySequence::InsertParagraphSeparator,
                                                         QKeySequence::InsertLineSeparator};

} // namespace

enum class TextEditor::Move {
    left,
    right,
    wordLeft,
    wordRight,
    up,
    down,
    pageUp,
    pageDown,
    rowBegin,
    rowEnd,
    lineBegin,
    lineEnd,
    paragraphUp,
    paragraphDown,
    textBegin,
    textEnd,
};

std::optional<TextEditor::KeyMove> TextEditor::moveOf(QKeyEvent *event) {
    struct MoveKey {
        QKeySequence::StandardKey moving;
        QKeySequence::StandardKey selecting;
        Move move;
    };
    static constexpr std::array<MoveKey, 14> moveKeys{{
        {QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar, Move::left},
        {QKeySequence::MoveToNextChar, QKeySequence::SelectNextChar, Move::right},
        {QKeySequence::MoveToPreviousWord, QKeySequence::SelectPreviousWord, Move::wordLeft},
        {QKeySequence::MoveToNextWord, QKeySequence::SelectNextWord, Move::wordRight},
        {QKeySequence::MoveToPreviousLine, QKeySequence::SelectPreviousLine, Move::up},
        {QKeySequence::MoveToNextLine, QKeySequence::SelectNextLine, Move::down},
        {QKeySequence::MoveToPreviousPage, QKeySequence::SelectPreviousPage, Move::pageUp},
        {QKeySequence::MoveToNextPage, QKeySequence::SelectNextPage, Move::pageDown},
        {QKeySequence::MoveToStartOfLine, QKeySequence::SelectStartOfLine, Move::rowBegin},
        {QKeySequence::MoveToEndOfLine, QKeySequence::SelectEndOfLine, Move::rowEnd},
        {QKeySequence::MoveToStartOfBlock, QKeySequence::SelectStartOfBlock, Move::lineBegin},
        {QKeySequence::MoveToEndOfBlock, QKeySequence::SelectEndOfBlock, Move::lineEnd},
        {QKeySequence::MoveToStartOfDocument, QKeySequence::SelectStartOfDocument, Move::textBegin},
        {QKeySequence::MoveToEndOfDocument, QKeySequence::SelectEndOfDocument, Move::textEnd},
    }};
    for (const MoveKey &key : moveKeys) {
        if (event->matches(key.moving)) {
            return KeyMove{key.move, Anchor::moves};
        }
        if (event->matches(key.selecting)) {
            return KeyMove{key.move, Anchor::stays};
        }
    }
    // Where the platform has no keys of its own for paragraphs.
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool selects = modifiers == (Qt::ControlModifier | Qt::ShiftModifier);
    const Anchor anchor = selects ? Anchor::stays : Anchor::moves;
    if (selects || modifiers == Qt::ControlModifier) {
        if (event->key() == Qt::Key_Up) {
            return KeyMove{Move::paragraphUp, anchor};
        }
        if (event->key() == Qt::Key_Down) {
            return KeyMove{Move::paragraphDown, anchor};
        }
    }
    return {};
}

bool TextEditor::isOwnKey(QKeyEvent *event) {
    const bool isEdit = std::any_of(editKeys.begin(), editKeys.end(),
                                    [event](QKeySequence::StandardKey key) { return event->matches(key); });
    const bool isPlain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
    const bool types = isPlain && event->key() < Qt::Key_Escape && !typedBy(event).isEmpty();
    const bool deletes = event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete;
    return isEdit || types || moveOf(event) || (deletes && (event->modifiers() & Qt::AltModifier) == 0);
}

void TextEditor::keyPressEvent(QKeyEvent *event) {
    if (moveByKey(event) || editByKey(event)) {
        event->accept();
        return;
    }
    event->ignore();
}

void TextEditor::moveTo(CaretTarget target, Anchor anchor) {
    {
        const QScopedValueRollback moving(m_isMovingCaret, true);
        const bool isSamePlace = target.offset == m_document.caret();
        m_isCaretAtRowEnd = target.atRowEnd;
        m_document.select(anchor == Anchor::stays ? m_document.anchor() : target.offset, target.offset);
        if (isSamePlace) {
            restartBlinking();
        }
    }
    ensureCaretVisible();
    if (m_document.hasSelection()) {
        publishPrimarySelection();
    }
}

bool TextEditor::moveByKey(QKeyEvent *event) {
    const std::optional<KeyMove> key = moveOf(event);
    if (!key) {
        return false;
    }
    switch (key->move) {
    case Move::up:
        moveByRows(-1, key->anchor);
        break;
    case Move::down:
        moveByRows(1, key->anchor);
        break;
    case Move::pageUp:
        moveByPage(-1, key->anchor);
        break;
    case Move::pageDown:
        moveByPage(1, key->anchor);
        break;
    default:
        m_wantedX.reset();
        moveTo(targetOf(*key), key->anchor);
        break;
    }
    return true;
}

TextEditor::CaretTarget TextEditor::targetOf(KeyMove key) const {
    const std::size_t caret = m_document.caret();
    const Row row = m_layout.rowOf(caret, m_isCaretAtRowEnd);
    const bool isRightToLeft = m_layout.line(row).isRightToLeft();
    const bool leavesSelection = m_document.hasSelection() && key.anchor == Anchor::moves;
    const std::size_t lineBegin = m_document.lineBegin(caret);
    switch (key.move) {
    case Move::left:
        return {!leavesSelection ? besideCaret(true)
                : isRightToLeft  ? m_document.selectionEnd()
                                 : m_document.selectionStart()};
    case Move::right:
        return {!leavesSelection ? besideCaret(false)
                : isRightToLeft  ? m_document.selectionStart()
                                 : m_document.selectionEnd()};
    case Move::wordLeft:
        return {isRightToLeft ? m_document.nextWord(caret) : m_document.previousWord(caret)};
    case Move::wordRight:
        return {isRightToLeft ? m_document.previousWord(caret) : m_document.nextWord(caret)};
    case Move::rowBegin:
        return {m_document.boundaryAt(m_layout.rowBegin(row), TextDocument::Side::behind)};
    case Move::rowEnd:
        return {m_layout.rowEnd(row), m_layout.isWrapped(row)};
    case Move::lineBegin:
        return {lineBegin};
    case Move::lineEnd:
        return {m_document.lineEnd(caret)};
    case Move::paragraphUp:
        return {lineBegin == caret ? m_document.lineBegin(m_document.previousCharacter(caret)) : lineBegin};
    case Move::paragraphDown:
        return {m_document.nextLineBegin(caret)};
    case Move::textBegin:
        return {0};
    case Move::textEnd:
        return {text().size()};
    case Move::up:
    case Move::down:
    case Move::pageUp:
    case Move::pageDown:
        break;
    }
    return {caret, m_isCaretAtRowEnd};
}

std::size_t TextEditor::besideCaret(bool left) const {
    const std::size_t caret = m_document.caret();
    const Row row = m_layout.rowOf(caret, m_isCaretAtRowEnd);
    const LineLayout &line = m_layout.line(row);
    const bool isForward = left == line.isRightToLeft();
    if (!line.isBidirectional()) {
        return isForward ? m_document.nextCharacter(caret) : m_document.previousCharacter(caret);
    }
    // Where directions meet, reading order jumps to and fro. Here the places are taken in the order in which they stand
    // in the row, and in reading order only where two of them coincide.
    const std::size_t begin = m_layout.rowBegin(row);
    const std::size_t end = m_layout.rowEnd(row);
    const bool endsWithBreak = !m_layout.isWrapped(row);
    std::vector<std::pair<qreal, std::size_t>> places;
    for (std::size_t offset = begin; offset < end; offset = m_document.nextCharacter(offset)) {
        places.emplace_back(m_layout.xOf(offset, row), offset);
    }
    if (endsWithBreak || caret == end) {
        places.emplace_back(m_layout.xOf(end, row), end);
    }
    std::sort(places.begin(), places.end(), [&line](const auto &first, const auto &second) {
        const bool isBefore = line.isRightToLeft() ? first.second > second.second : first.second < second.second;
        return first.first < second.first || (first.first == second.first && isBefore);
    });
    const auto here =
        std::find_if(places.begin(), places.end(), [&](const auto &place) { return place.second == caret; });
    if (left && here != places.begin() && here != places.end()) {
        return std::prev(here)->second;
    }
    if (!left && here != places.end() && std::next(here) != places.end()) {
        return std::next(here)->second;
    }
    if (isForward) {
        return endsWithBreak || caret == end ? m_document.nextCharacter(end) : end;
    }
    return m_document.previousCharacter(begin);
}

void TextEditor::moveByRows(int rows, Anchor anchor) {
    Row row = m_layout.rowOf(m_document.caret(), m_isCaretAtRowEnd);
    const qreal x = m_wantedX.value_or(m_layout.xOf(m_document.caret(), row));
    bool isAtEdge = false;
    for (int step = 0; step < std::abs(rows) && !isAtEdge; ++step) {
        const auto next = rows < 0 ? m_layout.rowAbove(row) : m_layout.rowBelow(row);
        isAtEdge = !next;
        row = next.value_or(row);
    }
    CaretTarget target = targetIn(row, x);
    if (isAtEdge && std::abs(rows) == 1) {
        target = {rows < 0 ? std::size_t{0} : text().size(), false};
    }
    m_wantedX = x;
    moveTo(target, anchor);
    m_wantedX = x;
}

void TextEditor::moveByPage(int pages, Anchor anchor) {
    Row row = m_layout.rowOf(m_document.caret(), m_isCaretAtRowEnd);
    const qreal x = m_wantedX.value_or(m_layout.xOf(m_document.caret(), row));
    const int step = std::max(m_layout.rowHeight(), viewport()->height() - 2 * m_layout.rowHeight());
    const Row reached = m_layout.rowAt(row.place, row.top + row.height / 2 + pages * step);
    CaretTarget target = targetIn(reached, x);
    const bool isFirstRow = !m_layout.rowAbove(reached);
    const bool isLastRow = !m_layout.rowBelow(reached);
    if (pages < 0 && isFirstRow && m_layout.rowBegin(reached) == m_layout.rowBegin(row)) {
        target = {0, false};
    } else if (pages > 0 && isLastRow && m_layout.rowBegin(reached) == m_layout.rowBegin(row)) {
        target = {text().size(), false};
    }
    scrollBy(pages * step);
    m_wantedX = x;
    moveTo(target, anchor);
    m_wantedX = x;
}

bool TextEditor::editByKey(QKeyEvent *event) {
    const std::size_t caret = m_document.caret();
    if (event->matches(QKeySequence::Copy)) {
        copy();
        return true;
    }
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
        return true;
    }
    if (event->matches(QKeySequence::Cut)) {
        cut();
    } else if (event->key() == Qt::Key_Insert && event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier)) {
        pasteFrom(QGuiApplication::clipboard()->mimeData(QClipboard::Selection));
    } else if (event->matches(QKeySequence::Paste)) {
        paste();
    } else if (event->matches(QKeySequence::DeleteEndOfWord)) {
        removeUpTo(m_document.nextWord(caret));
    } else if (event->matches(QKeySequence::DeleteStartOfWord)) {
        removeUpTo(m_document.previousWord(caret));
    } else if (event->matches(QKeySequence::DeleteEndOfLine) ||
               (event->key() == Qt::Key_Delete && event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier))) {
        const std::size_t end = m_document.lineEnd(caret);
        removeUpTo(end == caret ? m_document.nextCharacter(caret) : end);
    } else if (event->key() == Qt::Key_Backspace && event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier)) {
        const std::size_t begin = m_document.lineBegin(caret);
        removeUpTo(begin == caret ? m_document.previousCharacter(caret) : begin);
    } else if (event->matches(QKeySequence::Delete)) {
        removeUpTo(m_document.nextCharacter(caret));
    } else if (event->matches(QKeySequence::Backspace) ||
               (event->key() == Qt::Key_Backspace && (event->modifiers() & ~Qt::ShiftModifier) == 0)) {
        removeUpTo(m_document.previousCharacter(caret));
    } else if (event->matches(QKeySequence::InsertParagraphSeparator) ||
               event->matches(QKeySequence::InsertLineSeparator)) {
        insertOrRefuse(Text(m_document.newline()));
    } else if (event->key() == Qt::Key_Insert && event->modifiers() == Qt::NoModifier) {
        setOverwriteMode(!m_isOverwriteMode);
    } else if (const QString typed = typedBy(event); !typed.isEmpty()) {
        insertTyped(toUtf8(typed));
    } else {
        return false;
    }
    ensureCaretVisible();
    return true;
}

void TextEditor::removeUpTo(std::size_t offset) {
    if (m_document.hasSelection()) {
        m_document.insert(Text());
        return;
    }
    const std::size_t caret = m_document.caret();
    m_document.remove(std::min(offset, caret), offset < caret ? caret - offset : offset - caret);
}

void TextEditor::insertTyped(std::string_view typed) {
    const std::size_t caret = m_document.caret();
    if (m_isOverwriteMode && !m_document.hasSelection() && caret != m_document.lineEnd(caret)) {
        m_document.replace(caret, m_document.nextCharacter(caret) - caret, typed);
        return;
    }
    insertOrRefuse(Text(typed));
}

bool TextEditor::insertOrRefuse(const Text &inserted) {
    if (m_document.insert(inserted)) {
        return true;
    }
    emit refused(tr("The text would be larger than 2 GB, the most that the editor can hold."));
    return false;
}

} // namespace lexivore
