// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"
#include "ui/editor/text_index.h"

#include <QObject>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lexivore {

/// The editor's model, without any widget: the exact text, the caret and the selection. It keeps no edits to undo: it
/// announces each, and who listens can remember them.
///
/// Offsets are in bytes and lie between characters (so never inside a CR LF); one that does not is moved to the
/// boundary before it, one behind the end to the end. Every operation but `setText` costs the change and a few
/// kilobytes, whatever the size of the text.
class TextDocument : public QObject {
    Q_OBJECT

public:
    /// The largest text that is taken, in bytes.
    static constexpr std::size_t maximumSize = largestText;

    /// Which way a place that lies inside a character is moved.
    enum class Side { before, behind };
    struct Range {
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    struct LineAndColumn {
        std::size_t line = 1;
        std::size_t column = 1; ///< In characters.
        friend bool operator==(const LineAndColumn &, const LineAndColumn &) = default;
    };

    explicit TextDocument(QObject *parent = nullptr);

    [[nodiscard]] const Text &text() const { return m_text; }
    /// Shows another text. Costs a comparison with the old one and a pass over what is different, so it is cheap to go
    /// back to a text that shares most bytes with the one shown. The caret and the selection stay with what stands in
    /// front of the change or behind it; within it they go to its start. The same bytes change and announce nothing.
    /// False, and nothing happens, when the text is too large.
    bool setText(const Text &text);

    [[nodiscard]] std::size_t characterCount() const { return m_index.total().characters; }
    [[nodiscard]] std::size_t wordCount() const { return m_index.total().words; }
    /// The pieces between newline characters: CR LF ends a line twice.
    [[nodiscard]] std::size_t lineCount() const { return m_index.total().newlines + 1; }
    /// "CRLF", "CR" or "Mixed"; nothing when no line ends otherwise than with a line feed. Other newline characters
    /// than CR and LF do not matter to it.
    [[nodiscard]] QString lineEnding() const;
    /// What Return inserts: the line ending that most lines have; LF when there is none yet.
    [[nodiscard]] std::string_view newline() const;
    [[nodiscard]] TextIndex &index() { return m_index; }
    [[nodiscard]] const TextIndex &index() const { return m_index; }

    [[nodiscard]] std::size_t caret() const { return m_caret; }
    /// Where the selection began: the end of it that is not the caret.
    [[nodiscard]] std::size_t anchor() const { return m_anchor; }
    [[nodiscard]] bool hasSelection() const { return m_caret != m_anchor; }
    [[nodiscard]] std::size_t selectionStart() const { return m_caret < m_anchor ? m_caret : m_anchor; }
    [[nodiscard]] std::size_t selectionEnd() const { return m_caret < m_anchor ? m_anchor : m_caret; }
    [[nodiscard]] Text selectedText() const;
    void setCaret(std::size_t offset) { select(offset, offset); }
    void select(std::size_t anchor, std::size_t caret);
    [[nodiscard]] LineAndColumn caretPlace() const { return placeOf(m_caret); }
    [[nodiscard]] LineAndColumn placeOf(std::size_t offset) const;

    /// The nearest place between characters on that side.
    [[nodiscard]] std::size_t boundaryAt(std::size_t offset, Side side = Side::before) const;
    [[nodiscard]] std::size_t nextCharacter(std::size_t offset) const;
    [[nodiscard]] std::size_t previousCharacter(std::size_t offset) const;
    /// The start of the next word or punctuation, or of the next line.
    [[nodiscard]] std::size_t nextWord(std::size_t offset) const;
    [[nodiscard]] std::size_t previousWord(std::size_t offset) const;
    /// The word, punctuation or run of spaces that a double click at `offset` means.
    [[nodiscard]] Range wordAround(std::size_t offset) const;
    /// The sentence that holds `offset`, with the spaces behind it, as far as it lies within the line.
    [[nodiscard]] Range sentenceAround(std::size_t offset) const;
    /// The first byte of the line, and where its line break begins or, without one, the text ends.
    [[nodiscard]] std::size_t lineBegin(std::size_t offset) const;
    [[nodiscard]] std::size_t lineEnd(std::size_t offset) const;
    /// As `lineEnd`, behind the line break.
    [[nodiscard]] std::size_t nextLineBegin(std::size_t offset) const;

    /// UTF-16 offsets, as the accessibility interfaces and input methods count.
    [[nodiscard]] std::size_t unitsBefore(std::size_t offset) const;
    [[nodiscard]] std::size_t offsetOfUnit(std::size_t unit) const;

    /// Replaces a range and puts the caret behind the replacement. Bytes that are no UTF-8 are the caller's mistake.
    /// False when the text would become too large: nothing happens then.
    bool replace(std::size_t offset, std::size_t length, std::string_view replacement);
    /// As above, sharing the bytes of `inserted` instead of copying them.
    bool replace(std::size_t offset, std::size_t length, const Text &inserted);
    /// Replaces the selection, or inserts at the caret.
    bool insert(std::string_view inserted);
    /// As above, sharing the bytes of `inserted` instead of copying them.
    bool insert(const Text &inserted);
    void remove(std::size_t offset, std::size_t length);

    /// What the change that is being announced took away. Nothing at other times.
    [[nodiscard]] const Text &removedText() const { return m_removedText; }

signals:
    /// An edit. `inserted` is valid during the call.
    void edited(std::size_t offset, std::size_t removed, std::string_view inserted);
    /// Another text is shown, which differs from the old one in this range.
    void textReplaced(std::size_t offset, std::size_t removed, std::size_t inserted);
    /// The caret or the selection is elsewhere.
    void selectionChanged();

private:
    [[nodiscard]] std::string_view bytes(std::size_t offset, std::size_t length) const;
    /// Of everything in front of a place: the units and, where it lies between characters, all but the words.
    [[nodiscard]] StretchCounts countsBefore(std::size_t offset) const;

    Text m_text;
    TextIndex m_index;
    std::size_t m_caret = 0;
    std::size_t m_anchor = 0;
    Text m_removedText;
    std::optional<Range> m_announced; ///< What the edit that is being announced inserted, as long as it stands.
    mutable std::string m_scratch;
};

} // namespace lexivore
