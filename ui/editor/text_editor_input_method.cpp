// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_editor.h"

#include "manager/text_conversion.h"
#include "ui/editor/text_boundaries.h"

#include <QInputMethodEvent>

#include <algorithm>
#include <utility>

namespace lexivore {

namespace {
/// So many bytes of the caret's line are told to an input method on each side.
constexpr std::size_t surroundingReach = 1024;
} // namespace

void TextEditor::replaceForInputMethod(int first, int length, std::string_view committed) {
    const auto caret = static_cast<std::ptrdiff_t>(m_document.unitsBefore(m_document.caret()));
    const auto at = [&](std::ptrdiff_t unit) {
        return m_document.offsetOfUnit(static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, caret + unit)));
    };
    const std::size_t begin = at(first);
    const std::size_t end = at(std::ptrdiff_t{first} + length);
    // It may take back a part of a character, such as the last mark on a letter: the rest of that stays.
    const std::size_t outerBegin = m_document.boundaryAt(begin);
    const std::size_t outerEnd = m_document.boundaryAt(end, TextDocument::Side::behind);
    std::string scratch;
    std::string replacement(readText(text(), outerBegin, begin - outerBegin, scratch));
    replacement += committed;
    replacement += readText(text(), end, outerEnd - end, scratch);
    m_document.replace(outerBegin, outerEnd - outerBegin, replacement);
}

std::size_t TextEditor::surroundingBegin() const {
    const std::size_t caret = m_document.caret();
    return std::max(m_document.lineBegin(caret), m_document.boundaryAt(caret - std::min(caret, surroundingReach)));
}

void TextEditor::inputMethodEvent(QInputMethodEvent *event) {
    const std::size_t toldFrom = surroundingBegin();
    const bool beginsToCompose = !event->preeditString().isEmpty() && event->commitString().isEmpty();
    if (beginsToCompose && m_document.hasSelection() && event->replacementLength() == 0) {
        m_document.insert(Text());
    }
    m_layout.setPreedit({}, 0);
    if (event->replacementLength() > 0 || !event->commitString().isEmpty()) {
        commitInput(*event);
    }
    showPreedit(*event, std::min(toldFrom, text().size()));
    event->accept();
    ensureCaretVisible();
    refresh();
}

void TextEditor::commitInput(const QInputMethodEvent &event) {
    const std::string committed = toUtf8(event.commitString());
    if (event.replacementStart() == 0 && event.replacementLength() == 0) {
        insertTyped(committed);
    } else {
        replaceForInputMethod(event.replacementStart(), event.replacementLength(), committed);
    }
}

void TextEditor::showPreedit(const QInputMethodEvent &event, std::size_t toldFrom) {
    Preedit preedit;
    preedit.text = event.preeditString();
    m_preeditCursor = static_cast<int>(preedit.text.size());
    m_isPreeditCursorShown = !preedit.text.isEmpty();
    for (const QInputMethodEvent::Attribute &attribute : event.attributes()) {
        if (attribute.type == QInputMethodEvent::Cursor) {
            m_preeditCursor = std::clamp(attribute.start, 0, static_cast<int>(preedit.text.size()));
            m_isPreeditCursorShown = attribute.length != 0;
        } else if (attribute.type == QInputMethodEvent::TextFormat) {
            const QTextCharFormat format = qvariant_cast<QTextFormat>(attribute.value).toCharFormat();
            if (format.isValid()) {
                preedit.formats.push_back({attribute.start, attribute.length, format});
            }
        } else if (attribute.type == QInputMethodEvent::Selection) {
            const std::size_t unitsBefore = m_document.unitsBefore(toldFrom);
            const auto at = [&](int unit) {
                return m_document.offsetOfUnit(unitsBefore + static_cast<std::size_t>(std::max(unit, 0)));
            };
            m_document.select(at(attribute.start), at(attribute.start + attribute.length));
        }
    }
    if (preedit.text.isEmpty()) {
        return;
    }
    if (preedit.formats.isEmpty()) {
        QTextCharFormat underlined;
        underlined.setUnderlineStyle(QTextCharFormat::SingleUnderline);
        preedit.formats.push_back({0, static_cast<int>(preedit.text.size()), underlined});
    }
    m_layout.setPreedit(std::move(preedit), m_document.caret());
}

QVariant TextEditor::inputMethodQuery(Qt::InputMethodQuery query) const {
    const std::size_t caret = m_document.caret();
    const std::size_t begin = surroundingBegin();
    const std::size_t end = std::min(m_document.lineEnd(caret), m_document.boundaryAt(caret + surroundingReach));
    const auto piece = [this](std::size_t from, std::size_t to) {
        std::string scratch;
        return toQString(readText(text(), from, to - std::min(from, to), scratch));
    };
    const auto unitsFrom = [this](std::size_t from, std::size_t to) {
        return static_cast<int>(m_document.unitsBefore(to) - m_document.unitsBefore(from));
    };
    switch (query) {
    case Qt::ImEnabled:
        return true;
    case Qt::ImReadOnly:
        return false;
    case Qt::ImHints:
        return static_cast<int>(inputMethodHints() | Qt::ImhMultiLine);
    case Qt::ImFont:
        return font();
    case Qt::ImCursorRectangle:
        return caretRect().translated(viewport()->pos());
    case Qt::ImAnchorRectangle: {
        const Row row = m_layout.rowOf(m_document.anchor(), false);
        const int top = viewportTop(row).value_or(-10 * row.height);
        const int x = marginX + static_cast<int>(m_layout.xOf(m_document.anchor(), row));
        return QRect(x, top, 1, row.height).translated(viewport()->pos());
    }
    case Qt::ImSurroundingText:
        return piece(begin, end);
    case Qt::ImCursorPosition:
        return unitsFrom(begin, caret);
    case Qt::ImAnchorPosition:
        return unitsFrom(begin, std::clamp(m_document.anchor(), begin, end));
    case Qt::ImAbsolutePosition:
        return static_cast<int>(m_document.unitsBefore(caret));
    case Qt::ImTextBeforeCursor:
        return piece(begin, caret);
    case Qt::ImTextAfterCursor:
        return piece(caret, end);
    case Qt::ImCurrentSelection: {
        const std::size_t from = m_document.selectionStart();
        return piece(from, std::min(m_document.selectionEnd(), from + surroundingReach));
    }
    default:
        return QAbstractScrollArea::inputMethodQuery(query);
    }
}

} // namespace lexivore
