// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/editor/line_layout.h"
#include "ui/editor/text_document.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace lexivore {

/// The text of one chunk of the index as it is shown: its lines from top to bottom.
///
/// A line that is cut between two chunks is cut on the screen where a row ends, so that the cut cannot be seen: the row
/// that reaches the end of the chunk is shown whole with this one, and the next chunk begins behind it, by its `lead`.
struct ChunkLayout {
    struct Line {
        std::size_t begin = 0; ///< In the text.
        int top = 0;           ///< In the chunk.
        std::unique_ptr<LineLayout> layout;
    };
    std::vector<Line> lines; ///< None when all of the chunk is shown with the one before.
    std::size_t begin = 0;   ///< In the text.
    std::size_t end = 0;
    int height = 0;

    // What it was made from, to tell whether it still holds.
    std::uint32_t lead = 0;
    std::uint32_t leadBehind = 0;
    std::uint32_t idBehind = 0; ///< 0 when nothing of the chunk behind was looked at.
    std::string bytesBehind;    ///< Those of it that were.
    std::uint64_t lastUse = 0;
};

/// Lays out the visible chunks of a document and finds places in them.
///
/// Pixels are counted from the top of the text, its left edge, or the top of a chunk. Nothing is laid out before it is
/// asked for; the heights of everything else are the index's estimates.
class EditorLayout {
public:
    /// A row of the text. Valid until the text, the style or the layout of something in front changes.
    struct Row {
        TextIndex::Place place; ///< Its chunk.
        std::size_t line = 0;   ///< In the chunk.
        int row = 0;            ///< In the line.
        int top = 0;            ///< In the chunk.
        int height = 0;
    };

    explicit EditorLayout(TextDocument &document) : m_document(document) {}

    [[nodiscard]] const LayoutStyle &style() const { return m_style; }
    /// Forgets all layouts and measured heights.
    void setStyle(const LayoutStyle &style);
    /// Forgets all layouts, not what was measured. For a text that was replaced.
    void clear() { m_chunks.clear(); }
    /// Shows `preedit` at `offset`, or nothing.
    void setPreedit(std::optional<Preedit> preedit, std::size_t offset);
    [[nodiscard]] bool hasPreedit() const { return m_preedit.has_value(); }
    [[nodiscard]] std::size_t preeditOffset() const { return m_preeditOffset; }

    /// The layout of a chunk, made if need be, its height told to the index. Valid until `trim`.
    const ChunkLayout &chunk(const TextIndex::Place &place);
    /// Drops layouts that were not used lately; none that was used since the last time.
    void trim();

    /// The row that shows the caret at `offset`; the end of a row rather than the start of the next one if `atRowEnd`.
    [[nodiscard]] Row rowOf(std::size_t offset, bool atRowEnd);
    /// The row at `y` pixels below the top of the chunk; beyond its edges in those before or behind. The first or last
    /// row of the text for what lies outside of it.
    [[nodiscard]] Row rowAt(TextIndex::Place place, int y);
    /// The row above or below; nothing at the edge of the text.
    [[nodiscard]] std::optional<Row> rowAbove(const Row &row);
    [[nodiscard]] std::optional<Row> rowBelow(const Row &row);

    [[nodiscard]] const LineLayout &line(const Row &row);
    [[nodiscard]] std::size_t rowBegin(const Row &row);
    [[nodiscard]] std::size_t rowEnd(const Row &row);
    [[nodiscard]] qreal xOf(std::size_t offset, const Row &row);
    /// The place between characters nearest to `x` in the row.
    [[nodiscard]] std::size_t offsetAt(qreal x, const Row &row);
    /// Where the character at `x` in the row begins. Beside the end of the row: its last character, or the line break.
    [[nodiscard]] std::size_t characterAt(qreal x, const Row &row);
    /// True when the row is not the last of its line: what follows it is not a line break.
    [[nodiscard]] bool isWrapped(const Row &row);

    /// Average pixels of a row, for scrolling by rows.
    [[nodiscard]] int rowHeight() const;

private:
    [[nodiscard]] bool holds(ChunkLayout &layout, const TextIndex::Place &place) const;
    /// So many bytes of the next chunk are looked at to find the end of a row: more than most rows have.
    [[nodiscard]] std::size_t rowReach() const;
    void layOut(ChunkLayout &layout, const TextIndex::Place &place);
    /// The bytes of the chunk but for its lead, and where its last line goes on in the next chunk the beginning of that
    /// one, of which the layout takes note.
    [[nodiscard]] std::string_view readForLayout(ChunkLayout &layout, const TextIndex::Place &place,
                                                 std::string &scratch) const;
    /// Lays out lines until the first `ownBytes` of `bytes` are shown; in the last chunk (`isLast`) the empty line that
    /// may follow them, too.
    void appendLines(ChunkLayout &layout, std::string_view bytes, std::size_t ownBytes, bool isLast);
    void appendLine(ChunkLayout &layout, LineLayout::Source source, std::size_t begin);
    /// `begin` is that of a line.
    [[nodiscard]] bool isRightToLeftLine(std::size_t begin) const;
    [[nodiscard]] Row rowIn(const TextIndex::Place &place, std::size_t line, int row);

    TextDocument &m_document;
    LayoutStyle m_style;
    std::optional<Preedit> m_preedit;
    std::size_t m_preeditOffset = 0;
    std::unordered_map<std::uint32_t, std::unique_ptr<ChunkLayout>> m_chunks; ///< By the id of the chunk.
    std::uint64_t m_use = 0;
    std::uint64_t m_useAtTrim = 0; ///< The last use before the last `trim`.
};

} // namespace lexivore
