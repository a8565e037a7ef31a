// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_editor_accessible.h"

#include "manager/text_conversion.h"
#include "ui/editor/text_boundaries.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace lexivore {

namespace {

/// Of more than this only the beginning is given out at once, as the value or with an event: who wants all of it reads
/// it piece by piece.
constexpr std::size_t largestValue = std::size_t{1} << 20;

/// The text, or its beginning if it is very large.
QString valueOf(const Text &text) {
    std::string scratch;
    const std::string_view bytes = readText(text, 0, std::min(largestValue + 1, text.size()), scratch);
    return toQString(bytes.substr(0, wholeCodePointsIn(bytes, largestValue)));
}

QAccessibleInterface *makeAccessible(const QString &className, QObject *object) {
    auto *const editor = qobject_cast<TextEditor *>(object);
    const bool isEditor = editor != nullptr && className == QLatin1String(TextEditor::staticMetaObject.className());
    return isEditor ? new TextEditorAccessible(editor) : nullptr;
}

} // namespace

TextEditorAccessible::TextEditorAccessible(TextEditor *editor) : QAccessibleWidget(editor, QAccessible::EditableText) {}

void TextEditorAccessible::install() { QAccessible::installFactory(makeAccessible); }

void TextEditorAccessible::announceChange(TextEditor &editor, std::size_t offset, const Text &removed,
                                          const Text &inserted) {
    if (!QAccessible::isActive()) {
        return;
    }
    const int place = static_cast<int>(editor.document().unitsBefore(offset));
    if (removed.empty()) {
        QAccessibleTextInsertEvent event(&editor, place, valueOf(inserted));
        QAccessible::updateAccessibility(&event);
    } else if (inserted.empty()) {
        QAccessibleTextRemoveEvent event(&editor, place, valueOf(removed));
        QAccessible::updateAccessibility(&event);
    } else {
        QAccessibleTextUpdateEvent event(&editor, place, valueOf(removed), valueOf(inserted));
        QAccessible::updateAccessibility(&event);
    }
}

void TextEditorAccessible::announceSelection(TextEditor &editor) {
    if (!QAccessible::isActive()) {
        return;
    }
    const TextDocument &document = editor.document();
    const auto unit = [&document](std::size_t offset) { return static_cast<int>(document.unitsBefore(offset)); };
    if (document.hasSelection()) {
        QAccessibleTextSelectionEvent event(&editor, unit(document.selectionStart()), unit(document.selectionEnd()));
        event.setCursorPosition(unit(document.caret()));
        QAccessible::updateAccessibility(&event);
    } else {
        QAccessibleTextCursorEvent event(&editor, unit(document.caret()));
        QAccessible::updateAccessibility(&event);
    }
}

TextEditor &TextEditorAccessible::editor() const { return *static_cast<TextEditor *>(widget()); }

std::size_t TextEditorAccessible::byteAt(int unit) const {
    return document().offsetOfUnit(static_cast<std::size_t>(std::max(unit, 0)));
}

int TextEditorAccessible::unitAt(std::size_t byte) const { return static_cast<int>(document().unitsBefore(byte)); }

void *TextEditorAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) {
        return static_cast<QAccessibleTextInterface *>(this);
    }
    if (type == QAccessible::EditableTextInterface) {
        return static_cast<QAccessibleEditableTextInterface *>(this);
    }
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State TextEditorAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.multiLine = true;
    state.selectableText = true;
    state.editable = true;
    return state;
}

QString TextEditorAccessible::text(QAccessible::Text what) const {
    if (what == QAccessible::Value && QAccessibleWidget::text(what).isEmpty()) {
        return valueOf(editor().text());
    }
    return QAccessibleWidget::text(what);
}

void TextEditorAccessible::selection(int selectionIndex, int *startOffset, int *endOffset) const {
    const bool exists = selectionIndex == 0 && document().hasSelection();
    *startOffset = exists ? unitAt(document().selectionStart()) : 0;
    *endOffset = exists ? unitAt(document().selectionEnd()) : 0;
}

int TextEditorAccessible::selectionCount() const { return document().hasSelection() ? 1 : 0; }

void TextEditorAccessible::addSelection(int startOffset, int endOffset) { setSelection(0, startOffset, endOffset); }

void TextEditorAccessible::removeSelection(int selectionIndex) {
    if (selectionIndex == 0) {
        document().setCaret(document().caret());
    }
}

void TextEditorAccessible::setSelection(int selectionIndex, int startOffset, int endOffset) {
    if (selectionIndex == 0) {
        document().select(byteAt(startOffset), byteAt(endOffset));
        editor().ensureCaretVisible();
    }
}

int TextEditorAccessible::cursorPosition() const { return unitAt(document().caret()); }

void TextEditorAccessible::setCursorPosition(int position) {
    document().setCaret(byteAt(position));
    editor().ensureCaretVisible();
}

QString TextEditorAccessible::text(int startOffset, int endOffset) const {
    const std::size_t begin = byteAt(startOffset);
    const std::size_t end = std::max(begin, byteAt(endOffset));
    std::string scratch;
    return toQString(readText(editor().text(), begin, end - begin, scratch));
}

TextDocument::Range TextEditorAccessible::rangeAround(std::size_t offset, QAccessible::TextBoundaryType type) const {
    const TextDocument &text = document();
    offset = text.boundaryAt(offset);
    switch (type) {
    case QAccessible::CharBoundary:
        return {offset, text.nextCharacter(offset)};
    case QAccessible::WordBoundary:
        return offset == text.lineEnd(offset) ? TextDocument::Range{offset, text.nextCharacter(offset)}
                                              : text.wordAround(offset);
    case QAccessible::LineBoundary: {
        EditorLayout &layout = editor().m_layout;
        const EditorLayout::Row row = layout.rowOf(offset, false);
        const std::size_t end = layout.rowEnd(row);
        return {layout.rowBegin(row), layout.isWrapped(row) ? end : text.nextCharacter(end)};
    }
    case QAccessible::SentenceBoundary:
        return offset == text.lineEnd(offset) ? TextDocument::Range{offset, text.nextCharacter(offset)}
                                              : text.sentenceAround(offset);
    case QAccessible::ParagraphBoundary: {
        // An endless one is given out in stretches.
        const std::size_t begin = text.lineBegin(offset);
        const std::size_t stretch = begin + (offset - begin) / largestValue * largestValue;
        return {text.boundaryAt(stretch),
                std::min(text.nextLineBegin(offset), text.boundaryAt(stretch + largestValue))};
    }
    case QAccessible::NoBoundary:
        break;
    }
    return {0, editor().text().size()};
}

QString TextEditorAccessible::report(TextDocument::Range range, int *startOffset, int *endOffset) const {
    *startOffset = unitAt(range.begin);
    *endOffset = unitAt(range.end);
    return text(*startOffset, *endOffset);
}

QString TextEditorAccessible::textBeforeOffset(int offset, QAccessible::TextBoundaryType boundaryType, int *startOffset,
                                               int *endOffset) const {
    const TextDocument::Range at = rangeAround(byteAt(offset), boundaryType);
    const bool isFirst = at.begin == 0;
    const TextDocument::Range before =
        isFirst ? TextDocument::Range{0, 0} : rangeAround(document().previousCharacter(at.begin), boundaryType);
    return report(before, startOffset, endOffset);
}

QString TextEditorAccessible::textAfterOffset(int offset, QAccessible::TextBoundaryType boundaryType, int *startOffset,
                                              int *endOffset) const {
    const TextDocument::Range at = rangeAround(byteAt(offset), boundaryType);
    const std::size_t size = editor().text().size();
    const TextDocument::Range after =
        at.end >= size ? TextDocument::Range{size, size} : rangeAround(at.end, boundaryType);
    return report(after, startOffset, endOffset);
}

QString TextEditorAccessible::textAtOffset(int offset, QAccessible::TextBoundaryType boundaryType, int *startOffset,
                                           int *endOffset) const {
    return report(rangeAround(byteAt(offset), boundaryType), startOffset, endOffset);
}

int TextEditorAccessible::characterCount() const { return static_cast<int>(document().index().total().units); }

QRect TextEditorAccessible::characterRect(int offset) const {
    EditorLayout &layout = editor().m_layout;
    const std::size_t begin = document().boundaryAt(byteAt(offset));
    const EditorLayout::Row row = layout.rowOf(begin, false);
    const auto top = editor().viewportTop(row);
    if (!top) {
        return {};
    }
    const std::size_t end = std::min(document().nextCharacter(begin), layout.rowEnd(row));
    const qreal left = layout.xOf(begin, row);
    const qreal right = layout.xOf(std::max(begin, end), row);
    const QRect rect(TextEditor::marginX + static_cast<int>(std::min(left, right)), *top,
                     std::max(1, static_cast<int>(std::abs(right - left))), row.height);
    return {editor().viewport()->mapToGlobal(rect.topLeft()), rect.size()};
}

int TextEditorAccessible::offsetAtPoint(const QPoint &point) const {
    const QPoint local = editor().viewport()->mapFromGlobal(point);
    return editor().viewport()->rect().contains(local) ? unitAt(editor().targetAt(local).offset) : -1;
}

void TextEditorAccessible::scrollToSubstring(int startIndex, int) {
    EditorLayout &layout = editor().m_layout;
    const EditorLayout::Row row = layout.rowOf(byteAt(startIndex), false);
    if (!editor().viewportTop(row)) {
        editor().showFrom(row.place, row.top);
    }
}

QString TextEditorAccessible::attributes(int, int *startOffset, int *endOffset) const {
    // All of a plain text looks alike.
    *startOffset = 0;
    *endOffset = characterCount();
    return {};
}

void TextEditorAccessible::deleteText(int startOffset, int endOffset) { replaceText(startOffset, endOffset, {}); }

void TextEditorAccessible::insertText(int offset, const QString &text) { replaceText(offset, offset, text); }

void TextEditorAccessible::replaceText(int startOffset, int endOffset, const QString &text) {
    const std::size_t begin = byteAt(startOffset);
    const std::size_t end = std::max(begin, byteAt(endOffset));
    document().replace(begin, end - begin, toUtf8(text));
    editor().ensureCaretVisible();
}

} // namespace lexivore
