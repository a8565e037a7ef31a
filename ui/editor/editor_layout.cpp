// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/editor_layout.h"

#include "engine/primitives/lines.h"
#include "engine/primitives/utf8.h"
#include "manager/text_conversion.h"
#include "ui/editor/text_boundaries.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lexivore {

namespace {

/// A character can be longer than a chunk should be; what is laid out at once is not.
constexpr std::size_t longestStretch = 16384;
/// So much of a line decides its direction.
constexpr std::size_t directionReach = 1024;
constexpr std::size_t mostChunksKept = 24;

/// The line that `rest` begins with, whose break, if any, is `newline`. Of a line that is cut behind `own` bytes no
/// more is wanted than the row that reaches there.
LineLayout::Source sourceOf(std::string_view rest, const NewlineMatch &newline, std::size_t own, bool isLast) {
    LineLayout::Source source;
    source.content = rest.substr(0, static_cast<std::size_t>(newline.position - rest.data()));
    source.terminator = rest.substr(source.content.size(), endOfBreak(rest, newline) - source.content.size());
    const bool endsHere = newline.length != 0 || isLast;
    if (source.content.size() > longestStretch) {
        source.content = source.content.substr(0, wholeCodePointsIn(rest, longestStretch));
        source.terminator = {};
    } else if (source.content.size() > own || !endsHere) {
        source.wanted = own;
    }
    return source;
}

} // namespace

void EditorLayout::setStyle(const LayoutStyle &style) {
    m_style = style;
    m_chunks.clear();
    const QFontMetricsF metrics(style.font);
    const double columns = style.width / std::max(1.0, metrics.averageCharWidth());
    m_document.index().resetHeights({std::ceil(metrics.lineSpacing()), std::max(1.0, columns)});
}

void EditorLayout::setPreedit(std::optional<Preedit> preedit, std::size_t offset) {
    if (!preedit && !m_preedit) {
        return;
    }
    m_preedit = std::move(preedit);
    m_preeditOffset = offset;
    m_chunks.clear();
}

std::size_t EditorLayout::rowReach() const {
    const double columns = m_style.width / std::max(1.0, QFontMetricsF(m_style.font).averageCharWidth());
    return static_cast<std::size_t>(std::clamp(4 * columns, 256.0, 4096.0));
}

int EditorLayout::rowHeight() const {
    return std::max(1, static_cast<int>(std::ceil(QFontMetricsF(m_style.font).lineSpacing())));
}

const ChunkLayout &EditorLayout::chunk(const TextIndex::Place &place) {
    std::unique_ptr<ChunkLayout> &layout = m_chunks[m_document.index().at(place).id];
    if (layout == nullptr || !holds(*layout, place)) {
        layout = std::make_unique<ChunkLayout>();
        layOut(*layout, place);
    } else if (layout->begin != place.before.bytes + layout->lead) {
        // The text in front has become longer or shorter.
        const std::size_t begin = place.before.bytes + layout->lead;
        const std::size_t shift = begin - layout->begin;
        for (ChunkLayout::Line &line : layout->lines) {
            line.begin += shift;
        }
        layout->begin = begin;
        layout->end += shift;
    }
    layout->lastUse = ++m_use;
    TextIndex &index = m_document.index();
    index.setHeight(place, static_cast<std::uint32_t>(layout->height));
    if (layout->idBehind != 0) {
        index.setLead(index.next(place), layout->leadBehind);
    }
    return *layout;
}

bool EditorLayout::holds(ChunkLayout &layout, const TextIndex::Place &place) const {
    const TextIndex &index = m_document.index();
    const TextChunk &chunk = index.at(place);
    const bool isCut = !chunk.endsWithBreak && !index.isLast(place);
    if (layout.lead != chunk.lead || isCut != (layout.idBehind != 0)) {
        return false;
    }
    if (!isCut) {
        return true;
    }
    const TextChunk &behind = index.at(index.next(place));
    if (behind.id != layout.idBehind) {
        // It changed, but perhaps not where it was looked at.
        std::string scratch;
        const std::size_t length = std::min<std::size_t>(rowReach(), behind.bytes);
        if (readText(m_document.text(), place.before.bytes + chunk.bytes, length, scratch) != layout.bytesBehind) {
            return false;
        }
        layout.idBehind = behind.id;
    }
    return true;
}

void EditorLayout::layOut(ChunkLayout &layout, const TextIndex::Place &place) {
    const TextIndex &index = m_document.index();
    const TextChunk &chunk = index.at(place);
    layout.lead = chunk.lead;
    layout.begin = place.before.bytes + chunk.lead;
    layout.end = layout.begin;
    const std::size_t ownBytes = chunk.bytes - chunk.lead;
    std::string scratch;
    const std::string_view bytes = readForLayout(layout, place, scratch);
    const bool isShownInFront = ownBytes == 0 && chunk.lead > 0 && !chunk.endsWithBreak;
    if (!isShownInFront) {
        appendLines(layout, bytes, ownBytes, index.isLast(place));
    }
    const std::size_t chunkEnd = layout.begin + ownBytes;
    if (layout.idBehind != 0 && layout.end > chunkEnd) {
        layout.leadBehind = static_cast<std::uint32_t>(layout.end - chunkEnd);
    }
}

std::string_view EditorLayout::readForLayout(ChunkLayout &layout, const TextIndex::Place &place,
                                             std::string &scratch) const {
    const Text &text = m_document.text();
    const TextIndex &index = m_document.index();
    const TextChunk &chunk = index.at(place);
    const std::size_t ownBytes = chunk.bytes - chunk.lead;
    if (index.isLast(place) || chunk.endsWithBreak) {
        return readText(text, layout.begin, ownBytes, scratch);
    }
    const TextChunk &behind = index.at(index.next(place));
    const std::size_t reach = std::min<std::size_t>(rowReach(), behind.bytes);
    // One byte more tells whether they end within a code point.
    const std::size_t length = std::min(ownBytes + reach + 1, text.size() - layout.begin);
    const std::string_view bytes = readText(text, layout.begin, length, scratch);
    layout.idBehind = behind.id;
    layout.bytesBehind = bytes.substr(ownBytes, reach);
    return bytes.substr(0, std::max(ownBytes, wholeCodePointsIn(bytes, ownBytes + reach)));
}

void EditorLayout::appendLines(ChunkLayout &layout, std::string_view bytes, std::size_t ownBytes, bool isLast) {
    bool isRightToLeft = isRightToLeftLine(m_document.lineBegin(layout.begin));
    std::size_t position = 0;
    while (position < ownBytes || (isLast && position == ownBytes)) {
        const std::string_view rest = bytes.substr(position);
        const NewlineMatch newline = findNewline(rest.data(), rest.data() + rest.size());
        LineLayout::Source source = sourceOf(rest, newline, ownBytes - position, isLast);
        source.isRightToLeft = isRightToLeft;
        appendLine(layout, source, layout.begin + position);
        const LineLayout &line = *layout.lines.back().layout;
        if (line.contentBytes() < source.content.size() || source.terminator.empty()) {
            position += line.contentBytes();
            if (newline.length == 0 && isLast && position == ownBytes) {
                break;
            }
            if (line.contentBytes() == 0) {
                break; // Nothing fits: cannot happen with a row of at least one character.
            }
        } else {
            position += line.totalBytes();
            isRightToLeft = isRightToLeftLine(layout.begin + position);
        }
    }
    layout.end = layout.begin + position;
}

void EditorLayout::appendLine(ChunkLayout &layout, LineLayout::Source source, std::size_t begin) {
    if (m_preedit && m_preeditOffset >= begin && m_preeditOffset <= begin + source.content.size()) {
        source.preedit = &*m_preedit;
        source.preeditPlace = m_preeditOffset - begin;
    }
    ChunkLayout::Line line;
    line.begin = begin;
    line.top = layout.height;
    line.layout = std::make_unique<LineLayout>(source, m_style);
    layout.height += line.layout->height();
    layout.lines.push_back(std::move(line));
}

bool EditorLayout::isRightToLeftLine(std::size_t begin) const {
    const Text &text = m_document.text();
    std::string scratch;
    const std::size_t length = std::min(directionReach, text.size() - begin);
    std::string_view bytes = readText(text, begin, length, scratch);
    const NewlineMatch newline = findNewline(bytes.data(), bytes.data() + bytes.size());
    bytes = bytes.substr(0, static_cast<std::size_t>(newline.position - bytes.data()));
    const char *const end = bytes.data() + bytes.size();
    return asciiRunEnd(bytes.data(), end) != end && toQString(bytes).isRightToLeft();
}

void EditorLayout::trim() {
    const std::uint64_t usedBefore = std::exchange(m_useAtTrim, m_use);
    if (m_chunks.size() <= mostChunksKept) {
        return;
    }
    std::vector<std::uint64_t> uses;
    for (const auto &[id, layout] : m_chunks) {
        uses.push_back(layout->lastUse);
    }
    const auto oldestKept = uses.begin() + static_cast<std::ptrdiff_t>(uses.size() - mostChunksKept / 2);
    std::nth_element(uses.begin(), oldestKept, uses.end());
    const std::uint64_t firstKept = std::min(*oldestKept, usedBefore + 1);
    std::erase_if(m_chunks, [&](const auto &entry) { return entry.second->lastUse < firstKept; });
}

EditorLayout::Row EditorLayout::rowIn(const TextIndex::Place &place, std::size_t line, int row) {
    const ChunkLayout::Line &at = chunk(place).lines[line];
    return {place, line, row, at.top + at.layout->rowTop(row), at.layout->rowHeight(row)};
}

EditorLayout::Row EditorLayout::rowOf(std::size_t offset, bool atRowEnd) {
    const TextIndex &index = m_document.index();
    TextIndex::Place place = index.atOffset(offset);
    // What stands at the start of a chunk may be shown in the last row of the one before it.
    while (!index.isFirst(place)) {
        const ChunkLayout &layout = chunk(place);
        const TextIndex::Place previous = index.previous(place);
        const bool mayEndRow = atRowEnd && !index.at(previous).endsWithBreak;
        if (offset > layout.begin || (!layout.lines.empty() && offset == layout.begin && !mayEndRow)) {
            break;
        }
        place = previous;
    }
    // After an edit that one may end in front of the place, which then is in the next one after all.
    while (chunk(place).end < offset && !index.isLast(place)) {
        place = index.next(place);
    }
    const ChunkLayout &layout = chunk(place);
    const auto behind =
        std::upper_bound(layout.lines.begin(), layout.lines.end(), offset,
                         [](std::size_t wanted, const ChunkLayout::Line &line) { return wanted < line.begin; });
    const auto line = behind == layout.lines.begin() ? behind : std::prev(behind);
    const std::size_t inside = offset - std::min(offset, line->begin);
    return rowIn(place, static_cast<std::size_t>(line - layout.lines.begin()), line->layout->rowOf(inside, atRowEnd));
}

EditorLayout::Row EditorLayout::rowAt(TextIndex::Place place, int y) {
    const TextIndex &index = m_document.index();
    while (y < 0 && !index.isFirst(place)) {
        place = index.previous(place);
        y += chunk(place).height;
    }
    while (y >= chunk(place).height && !index.isLast(place)) {
        y -= chunk(place).height;
        place = index.next(place);
    }
    while (chunk(place).lines.empty()) {
        // Only the last chunk can be left over without a row of its own.
        place = index.previous(place);
        y = chunk(place).height;
    }
    const ChunkLayout &layout = chunk(place);
    const auto behind = std::upper_bound(layout.lines.begin(), layout.lines.end(), y,
                                         [](int wanted, const ChunkLayout::Line &line) { return wanted < line.top; });
    const auto line = behind == layout.lines.begin() ? behind : std::prev(behind);
    return rowIn(place, static_cast<std::size_t>(line - layout.lines.begin()), line->layout->rowAt(y - line->top));
}

std::optional<EditorLayout::Row> EditorLayout::rowAbove(const Row &row) {
    if (row.row > 0) {
        return rowIn(row.place, row.line, row.row - 1);
    }
    if (row.line > 0) {
        return rowIn(row.place, row.line - 1, chunk(row.place).lines[row.line - 1].layout->rowCount() - 1);
    }
    if (m_document.index().isFirst(row.place)) {
        return {};
    }
    return rowAt(row.place, -1);
}

std::optional<EditorLayout::Row> EditorLayout::rowBelow(const Row &row) {
    const ChunkLayout &layout = chunk(row.place);
    if (row.row + 1 < layout.lines[row.line].layout->rowCount()) {
        return rowIn(row.place, row.line, row.row + 1);
    }
    if (row.line + 1 < layout.lines.size()) {
        return rowIn(row.place, row.line + 1, 0);
    }
    const Row below = rowAt(row.place, layout.height);
    const bool isSame = rowBegin(below) == rowBegin(row) && below.top == row.top;
    return isSame ? std::nullopt : std::optional(below);
}

const LineLayout &EditorLayout::line(const Row &row) { return *chunk(row.place).lines[row.line].layout; }

std::size_t EditorLayout::rowBegin(const Row &row) {
    const ChunkLayout::Line &line = chunk(row.place).lines[row.line];
    return line.begin + line.layout->rowBegin(row.row);
}

std::size_t EditorLayout::rowEnd(const Row &row) {
    const ChunkLayout::Line &line = chunk(row.place).lines[row.line];
    return line.begin + line.layout->rowEnd(row.row);
}

qreal EditorLayout::xOf(std::size_t offset, const Row &row) {
    const ChunkLayout::Line &line = chunk(row.place).lines[row.line];
    return line.layout->xOf(offset - line.begin, row.row);
}

std::size_t EditorLayout::offsetAt(qreal x, const Row &row) {
    const ChunkLayout::Line &line = chunk(row.place).lines[row.line];
    const std::size_t offset = line.begin + line.layout->placeAt(x, row.row);
    const std::size_t before = m_document.boundaryAt(offset);
    if (before == offset) {
        return offset;
    }
    const std::size_t behind = m_document.boundaryAt(offset, TextDocument::Side::behind);
    // The toolkit may break a row inside of what is one character here.
    if (before < rowBegin(row) || behind > rowEnd(row)) {
        return behind > rowEnd(row) ? before : behind;
    }
    const bool isNearerBehind = std::abs(xOf(behind, row) - x) < std::abs(xOf(before, row) - x);
    return isNearerBehind ? behind : before;
}

std::size_t EditorLayout::characterAt(qreal x, const Row &row) {
    const ChunkLayout::Line &line = chunk(row.place).lines[row.line];
    const std::size_t place = line.layout->placeAt(x, row.row, QTextLine::CursorOnCharacter);
    const std::size_t offset = m_document.boundaryAt(line.begin + place);
    return offset == rowEnd(row) && isWrapped(row) ? m_document.previousCharacter(offset) : offset;
}

bool EditorLayout::isWrapped(const Row &row) {
    const ChunkLayout &layout = chunk(row.place);
    const LineLayout &line = *layout.lines[row.line].layout;
    if (row.row + 1 < line.rowCount()) {
        return true;
    }
    const std::size_t end = layout.lines[row.line].begin + line.contentBytes();
    return line.totalBytes() == line.contentBytes() && end < m_document.text().size();
}

} // namespace lexivore
