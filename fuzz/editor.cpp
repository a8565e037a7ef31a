// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// The editor's model beside a plain string, edit for edit.
// Input: the text in a field, then actions: a letter each, then what it needs.
#include "ui/editor/text_document.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/words.h"
#include "fuzz/input.h"
#include "fuzz/well_formed.h"
#include "manager/text_conversion.h"
#include "tests/support/escaped.h"
#include "ui/editor/text_search.h"

#include <string>

namespace lexivore::fuzz {
namespace {

constexpr int mostActions = 80;
constexpr std::size_t mostBytes = std::size_t(1024) * 64;

std::string bytesOf(const Text &text) { return std::string(Text(text).view()); }

class Session {
public:
    explicit Session(const Input &input) : m_input(input) {
        QObject::connect(&m_document, &TextDocument::edited, &m_document,
                         [this](std::size_t offset, std::size_t removed, std::string_view inserted) {
                             require(offset + removed <= m_plain.size(), "an edit is announced within the text");
                             require(bytesOf(m_document.removedText()) == m_plain.substr(offset, removed),
                                     "what an edit took away is what stood there");
                             m_plain.replace(offset, removed, inserted);
                         });
        QObject::connect(&m_document, &TextDocument::textReplaced, &m_document,
                         [this](std::size_t offset, std::size_t removed, std::size_t inserted) {
                             const std::string now = bytesOf(m_document.text());
                             require(offset + removed <= m_plain.size() && offset + inserted <= now.size(),
                                     "a new text is announced within both texts");
                             m_plain.replace(offset, removed, now, offset, inserted);
                         });
    }

    void run() {
        setText(m_input.field());
        for (int action = 0; action < mostActions && !m_input.isOver(); ++action) {
            act();
            check();
        }
    }

private:
    void act() {
        switch (m_input.byte()) {
        case 'd':
            return m_document.remove(m_document.caret(),
                                     m_document.nextCharacter(m_document.caret()) - m_document.caret());
        case 'b': {
            const std::size_t begin = m_document.previousCharacter(m_document.caret());
            return m_document.remove(begin, m_document.caret() - begin);
        }
        case 'r':
            return replace();
        case 'c':
            return m_document.setCaret(place());
        case 's': {
            const std::size_t anchor = place();
            return m_document.select(anchor, place());
        }
        case 'w':
            return m_document.setCaret(m_document.nextWord(m_document.caret()));
        case 'W':
            return m_document.setCaret(m_document.previousWord(m_document.caret()));
        case 'l':
            return m_document.select(m_document.lineBegin(m_document.caret()), m_document.lineEnd(m_document.caret()));
        case 'f':
            return find();
        case 'x':
            return setText(m_input.field());
        case 'n':
            return grow();
        default:
            return (void)m_document.insert(wellFormed(m_input.field()));
        }
    }

    std::size_t place() { return m_input.below(m_plain.size() + 1); }

    void replace() {
        const std::size_t begin = m_document.boundaryAt(place());
        const std::size_t length = m_input.below(m_plain.size() - begin + 1);
        (void)m_document.replace(begin, m_document.boundaryAt(begin + length) - begin, wellFormed(m_input.field()));
    }

    void setText(std::string_view bytes) {
        const std::string text = wellFormed(bytes);
        (void)m_document.setText(Text(std::string_view(text)));
        require(m_plain == text, "a new text is announced");
    }

    /// The text several times over: more than one chunk of the index.
    void grow() {
        std::string text;
        for (std::size_t times = m_input.below(64) + 1; times > 0 && text.size() + m_plain.size() < mostBytes;
             --times) {
            text += m_plain;
        }
        (void)m_document.replace(m_document.caret(), 0, text);
    }

    /// Every match holds what was sought, and is found from both sides.
    void find() {
        const std::string needle = wellFormed(m_input.field());
        const auto found = findForward(m_document.text(), needle, m_document.caret());
        if (!found) {
            return;
        }
        require(found->offset >= m_document.caret() && found->offset + found->length <= m_plain.size(),
                "a match lies where it was sought");
        const QString match = toQString(std::string_view(m_plain).substr(found->offset, found->length));
        require(match.compare(toQString(needle), Qt::CaseInsensitive) == 0, "a match is what was sought");
        const auto back = findBackward(m_document.text(), needle, found->offset + found->length);
        require(back && back->offset >= found->offset, "a match is found from behind as well");
        require(countMatches(m_document.text(), needle) > 0, "a match counts");
        m_document.select(found->offset, found->offset + found->length);
    }

    void check() {
        if (bytesOf(m_document.text()) != m_plain) {
            fail("the text is the plain string",
                 "expected " + test::escaped(m_plain) + "\nbut got  " + test::escaped(bytesOf(m_document.text())));
        }
        require(m_document.characterCount() == characterCount(m_plain), "characters are counted");
        require(m_document.wordCount() == pieceCount(m_plain, whitespaceAndNewlines), "words are counted");
        require(m_document.lineCount() == lineCount(m_plain), "lines are counted");
        checkPlace(m_document.caret());
        checkPlace(m_document.anchor());
        checkPlace(m_plain.size() / 2);
    }

    void checkPlace(std::size_t offset) const {
        const std::size_t before = m_document.boundaryAt(offset);
        require(before <= offset, "a place moves to the front");
        require(offset == before || (offset != m_document.caret() && offset != m_document.anchor()),
                "the caret lies between characters");
        const std::string_view front = std::string_view(m_plain).substr(0, before);
        require(m_document.unitsBefore(before) == static_cast<std::size_t>(toQString(front).size()),
                "units are counted");
        require(m_document.offsetOfUnit(m_document.unitsBefore(before)) == before, "a unit leads back to its place");
        const std::size_t begin = m_document.lineBegin(before);
        const std::size_t end = m_document.lineEnd(before);
        require(begin <= before && before <= end && end <= m_document.nextLineBegin(before),
                "a line is around a place");
        require(m_document.placeOf(before).column == characterCount(front.substr(begin)) + 1, "columns are counted");
        require(before == m_plain.size() || m_document.nextCharacter(before) > before, "a character has a length");
    }

    Input m_input;
    TextDocument m_document;
    std::string m_plain;
};

} // namespace
} // namespace lexivore::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    lexivore::fuzz::Session(lexivore::fuzz::Input(data, size)).run();
    return 0;
}
