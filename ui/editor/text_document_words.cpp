// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Words as the caret knows them: the toolkit's word boundaries (UAX #29) within a window of one line.
#include "manager/text_conversion.h"
#include "ui/editor/text_boundaries.h"
#include "ui/editor/text_document.h"

#include <QString>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace lexivore {

namespace {

/// Words longer than this many bytes are walked in steps of it.
constexpr std::size_t reach = 2048;

/// A part of one line around a place, as the toolkit reads it.
struct Window {
    std::size_t begin = 0;
    QString text;

    Window(const TextDocument &document, std::size_t offset)
        : begin(std::max(document.lineBegin(offset), document.boundaryAt(offset - std::min(offset, reach)))) {
        const std::size_t end = std::min(document.lineEnd(offset), document.boundaryAt(offset + reach));
        std::string scratch;
        text = toQString(readText(document.text(), begin, end - begin, scratch));
    }

    [[nodiscard]] qsizetype unitAt(const TextDocument &document, std::size_t offset) const {
        return static_cast<qsizetype>(document.unitsBefore(offset) - document.unitsBefore(begin));
    }
    [[nodiscard]] std::size_t offsetOf(const TextDocument &document, qsizetype unit) const {
        return document.offsetOfUnit(document.unitsBefore(begin) + static_cast<std::size_t>(unit));
    }
};

TextDocument::Range pieceAround(const TextDocument &document, std::size_t offset,
                                QTextBoundaryFinder::BoundaryType type) {
    offset = document.boundaryAt(offset);
    const std::size_t end = document.lineEnd(offset);
    if (document.lineBegin(offset) == end) {
        return {offset, offset};
    }
    const std::size_t inside = offset == end ? document.previousCharacter(offset) : offset;
    const Window window(document, inside);
    QTextBoundaryFinder finder(type, window.text);
    const qsizetype unit = window.unitAt(document, inside);
    finder.setPosition(unit);
    const qsizetype first = finder.isAtBoundary() ? unit : finder.toPreviousBoundary();
    finder.setPosition(unit);
    const qsizetype last = finder.toNextBoundary();
    return {document.boundaryAt(window.offsetOf(document, std::max<qsizetype>(first, 0))),
            document.boundaryAt(window.offsetOf(document, last == -1 ? window.text.size() : last),
                                TextDocument::Side::behind)};
}

} // namespace

std::size_t TextDocument::nextWord(std::size_t offset) const {
    offset = boundaryAt(offset);
    if (offset == lineEnd(offset)) {
        return nextCharacter(offset);
    }
    const Window window(*this, offset);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, window.text);
    finder.setPosition(window.unitAt(*this, offset));
    qsizetype unit = finder.toNextBoundary();
    while (unit != -1 && unit < window.text.size() && window.text.at(unit).isSpace()) {
        unit = finder.toNextBoundary();
    }
    const std::size_t found = boundaryAt(window.offsetOf(*this, unit == -1 ? window.text.size() : unit), Side::behind);
    return found > offset ? found : nextCharacter(offset);
}

std::size_t TextDocument::previousWord(std::size_t offset) const {
    offset = boundaryAt(offset);
    if (offset == lineBegin(offset)) {
        return previousCharacter(offset);
    }
    const Window window(*this, offset);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, window.text);
    finder.setPosition(window.unitAt(*this, offset));
    qsizetype unit = finder.toPreviousBoundary();
    while (unit > 0 && window.text.at(unit).isSpace()) {
        unit = finder.toPreviousBoundary();
    }
    const std::size_t found = boundaryAt(window.offsetOf(*this, std::max<qsizetype>(unit, 0)));
    return found < offset ? found : previousCharacter(offset);
}

TextDocument::Range TextDocument::wordAround(std::size_t offset) const {
    return pieceAround(*this, offset, QTextBoundaryFinder::Word);
}

TextDocument::Range TextDocument::sentenceAround(std::size_t offset) const {
    return pieceAround(*this, offset, QTextBoundaryFinder::Sentence);
}

} // namespace lexivore
