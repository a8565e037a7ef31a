// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_document.h"

#include "engine/primitives/lines.h"
#include "engine/primitives/utf8.h"
#include "ui/editor/text_boundaries.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace lexivore {

TextDocument::TextDocument(QObject *parent) : QObject(parent) {}

bool TextDocument::setText(const Text &text) {
    if (m_text.sharesAllWith(text)) {
        return true;
    }
    if (m_announced && text.size() == m_text.size()) {
        const std::size_t length = m_announced->end - m_announced->begin;
        if (text.slice(m_announced->begin, length) == m_text.slice(m_announced->begin, length)) {
            // Whoever was told of the edit made it too and hands back the result: the same bytes, to be shared from now
            // on.
            m_text = text;
            return true;
        }
    }
    if (text.size() > maximumSize) {
        return false;
    }
    const TextChange difference = differenceOf(m_text, text);
    const QScopedValueRollback removing(m_removedText, m_text.slice(difference.offset, difference.removed));
    m_text = text;
    m_announced.reset();
    if (difference.removed == 0 && difference.inserted == 0) {
        return true;
    }
    // Characters can begin elsewhere in front of the change too, but never in front of the one that it touches.
    m_index.replaced(m_text, difference.offset, difference.removed, difference.inserted);
    const auto follow = [&difference](std::size_t offset) {
        const std::size_t changedEnd = difference.offset + difference.removed;
        return offset > changedEnd ? offset - difference.removed + difference.inserted
                                   : std::min(offset, difference.offset);
    };
    m_caret = boundaryAt(follow(m_caret));
    m_anchor = boundaryAt(follow(m_anchor));
    emit textReplaced(difference.offset, difference.removed, difference.inserted);
    emit selectionChanged();
    return true;
}

QString TextDocument::lineEnding() const {
    const StretchCounts &counts = m_index.total();
    const int kinds =
        (counts.lineFeeds > 0 ? 1 : 0) + (counts.pairs > 0 ? 1 : 0) + (counts.carriageReturns > 0 ? 1 : 0);
    if (kinds > 1) {
        return tr("Mixed");
    }
    return counts.pairs > 0 ? tr("CRLF") : counts.carriageReturns > 0 ? tr("CR") : QString();
}

std::string_view TextDocument::newline() const {
    const StretchCounts &counts = m_index.total();
    if (counts.pairs > counts.lineFeeds && counts.pairs >= counts.carriageReturns) {
        return "\r\n";
    }
    return counts.carriageReturns > counts.lineFeeds ? "\r" : "\n";
}

Text TextDocument::selectedText() const { return m_text.slice(selectionStart(), selectionEnd() - selectionStart()); }

void TextDocument::select(std::size_t anchor, std::size_t caret) {
    const std::size_t newAnchor = boundaryAt(anchor);
    const std::size_t newCaret = anchor == caret ? newAnchor : boundaryAt(caret);
    if (newAnchor == m_anchor && newCaret == m_caret) {
        return;
    }
    m_anchor = newAnchor;
    m_caret = newCaret;
    emit selectionChanged();
}

TextDocument::LineAndColumn TextDocument::placeOf(std::size_t offset) const {
    offset = boundaryAt(offset);
    const StretchCounts before = countsBefore(offset);
    std::size_t charactersBeforeLine = 0;
    if (before.breaks > 0) {
        const TextIndex::Place at = m_index.atBreak(before.breaks - 1);
        const std::string_view chunk = bytes(at.before.bytes, m_index.at(at).bytes);
        const std::size_t end = endOfBreakNumber(chunk, before.breaks - at.before.breaks);
        charactersBeforeLine = at.before.characters + countsOf(chunk.substr(0, end)).characters;
    }
    return {before.breaks + 1, before.characters - charactersBeforeLine + 1};
}

std::size_t TextDocument::boundaryAt(std::size_t offset, Side side) const {
    if (offset >= m_text.size()) {
        return m_text.size();
    }
    const std::size_t known = m_index.atOffset(offset).before.bytes;
    const std::size_t before = boundaryAtOrBefore(m_text, known, offset);
    return before == offset || side == Side::before ? before : characterEndIn(m_text, before);
}

std::size_t TextDocument::nextCharacter(std::size_t offset) const {
    offset = boundaryAt(offset);
    return offset == m_text.size() ? offset : characterEndIn(m_text, offset);
}

std::size_t TextDocument::previousCharacter(std::size_t offset) const {
    const std::size_t boundary = boundaryAt(offset);
    return boundary < offset || boundary == 0 ? boundary : boundaryAt(boundary - 1);
}

std::size_t TextDocument::lineBegin(std::size_t offset) const {
    const std::size_t breaks = countsBefore(boundaryAt(offset)).breaks;
    if (breaks == 0) {
        return 0;
    }
    const TextIndex::Place at = m_index.atBreak(breaks - 1);
    const std::string_view chunk = bytes(at.before.bytes, m_index.at(at).bytes);
    return at.before.bytes + endOfBreakNumber(chunk, breaks - at.before.breaks);
}

std::size_t TextDocument::lineEnd(std::size_t offset) const {
    const std::size_t breaks = countsBefore(boundaryAt(offset)).breaks;
    if (breaks == m_index.total().breaks) {
        return m_text.size();
    }
    const TextIndex::Place at = m_index.atBreak(breaks);
    const std::string_view chunk = bytes(at.before.bytes, m_index.at(at).bytes);
    const std::size_t begin = endOfBreakNumber(chunk, breaks - at.before.breaks);
    const NewlineMatch newline = findNewline(chunk.data() + begin, chunk.data() + chunk.size());
    return at.before.bytes + static_cast<std::size_t>(newline.position - chunk.data());
}

std::size_t TextDocument::nextLineBegin(std::size_t offset) const { return nextCharacter(lineEnd(offset)); }

std::size_t TextDocument::unitsBefore(std::size_t offset) const {
    return countsBefore(std::min(offset, m_text.size())).units;
}

std::size_t TextDocument::offsetOfUnit(std::size_t unit) const {
    if (unit >= m_index.total().units) {
        return m_text.size();
    }
    const TextIndex::Place place = m_index.atUnit(unit);
    const std::string_view chunk = bytes(place.before.bytes, m_index.at(place).bytes);
    const char *position = chunk.data();
    const char *const end = position + chunk.size();
    for (std::size_t units = place.before.units; units < unit && position != end;) {
        const DecodedCodePoint decoded = decode(position, end);
        units += decoded.value >= 0x10000 ? 2U : 1U;
        if (units > unit) {
            break;
        }
        position += decoded.length;
    }
    return place.before.bytes + static_cast<std::size_t>(position - chunk.data());
}

bool TextDocument::replace(std::size_t offset, std::size_t length, std::string_view replacement) {
    return replace(offset, length, Text(replacement));
}

bool TextDocument::replace(std::size_t offset, std::size_t length, const Text &inserted) {
    const std::size_t begin = boundaryAt(offset);
    const std::size_t end = length == 0 ? begin : boundaryAt(std::min(offset + length, m_text.size()), Side::behind);
    if (begin == end && inserted.empty()) {
        return true;
    }
    if (inserted.size() > maximumSize - (m_text.size() - (end - begin))) {
        return false;
    }
    const std::string_view bytes = inserted.view(); // of one piece before anything changes: that may need memory
    const Text removed = m_text.slice(begin, end - begin);
    const Text replaced = m_text.replaced(begin, removed.size(), inserted);
    m_index.replaced(replaced, begin, removed.size(), inserted.size());
    m_text = replaced;
    // What was inserted may have joined what stands around it, so that its end is no place between characters.
    m_caret = boundaryAt(begin + inserted.size(), Side::behind);
    m_anchor = m_caret;
    {
        const QScopedValueRollback announcing(m_announced, std::optional(Range{begin, begin + inserted.size()}));
        const QScopedValueRollback removing(m_removedText, removed);
        emit edited(begin, removed.size(), bytes);
    }
    emit selectionChanged();
    return true;
}

bool TextDocument::insert(std::string_view inserted) { return insert(Text(inserted)); }

bool TextDocument::insert(const Text &inserted) {
    return replace(selectionStart(), selectionEnd() - selectionStart(), inserted);
}

void TextDocument::remove(std::size_t offset, std::size_t length) { replace(offset, length, Text()); }

StretchCounts TextDocument::countsBefore(std::size_t offset) const {
    const TextIndex::Place place = m_index.atOffset(offset);
    StretchCounts counts = place.before;
    counts += countsOf(bytes(place.before.bytes, offset - place.before.bytes));
    return counts;
}

std::string_view TextDocument::bytes(std::size_t offset, std::size_t length) const {
    return readText(m_text, offset, length, m_scratch);
}

} // namespace lexivore
