// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_index.h"

#include "engine/primitives/code_points.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/utf8.h"
#include "ui/editor/text_boundaries.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

namespace lexivore {

namespace {

// Sizes of chunks in bytes. A chunk is also what is laid out at once, so these are a bargain between the number of
// chunks and the time that a keystroke takes.
constexpr std::size_t smallest = 1024;
constexpr std::size_t earliestCut = 2048;
constexpr std::size_t wanted = 4096;
constexpr std::size_t wantedInsideLine = 2048;
constexpr std::size_t latestCut = 8192;
constexpr std::size_t mostWithoutCut = 6144;
constexpr std::size_t mostBreaks = 160;
constexpr std::size_t breaksWhenCut = 128;
/// How far back a good place to cut an over-long line is looked for.
constexpr std::size_t cutSlack = 512;

constexpr std::size_t chunksPerBlock = 256;
constexpr std::size_t mostChunksPerBlock = 512;

/// The end of the last line break in [from, to), or of the first one at or behind `to`.
std::optional<std::size_t> cutBehindBreak(std::string_view bytes, std::size_t from, std::size_t to) {
    std::optional<std::size_t> cut;
    const char *const end = bytes.data() + bytes.size();
    const char *position = bytes.data() + from;
    while (position < end) {
        const NewlineMatch newline = findNewline(position, end);
        if (newline.length == 0 || (cut && newline.position >= bytes.data() + to)) {
            break;
        }
        cut = endOfBreak(bytes, newline);
        position = bytes.data() + *cut;
    }
    return cut;
}

/// A place between characters near `wantedInsideLine` where an over-long line may be cut; 0 when there is none nearby.
std::size_t cutInsideLine(std::string_view bytes) {
    std::size_t cut = wantedInsideLine;
    const std::size_t space = bytes.substr(0, cut).rfind(' ');
    if (space != std::string_view::npos && space + cutSlack > cut) {
        cut = space + 1;
    }
    while (isContinuationByte(bytes[cut])) {
        --cut;
    }
    std::size_t begin = cut - cutSlack;
    while (isContinuationByte(bytes[begin])) {
        ++begin;
    }
    const std::size_t certain = certainBoundaryBefore(bytes, begin, cut);
    return certain == begin ? 0 : certain;
}

/// Cuts a range of a text, which begins and ends between characters, into chunks from left to right.
class Cutter {
public:
    Cutter(const Text &text, std::size_t begin, std::size_t end) : m_text(text), m_begin(begin), m_end(end) {}

    [[nodiscard]] bool isAtEnd() const { return m_begin == m_end; }
    /// The bytes of the next chunk, valid until the next call.
    [[nodiscard]] std::string_view next() {
        const std::size_t length = std::min(m_end - m_begin, latestCut);
        const std::string_view bytes = readText(m_text, m_begin, length, m_scratch);
        const std::size_t size = length > mostWithoutCut ? cut(bytes) : length;
        m_begin += size;
        return size <= length ? bytes.substr(0, size) : readText(m_text, m_begin - size, size, m_scratch);
    }

private:
    std::size_t cut(std::string_view bytes) {
        // Of a long line every byte is searched once although the windows overlap.
        const std::size_t searched = m_searchedTo > m_begin ? m_searchedTo - m_begin : 0;
        if (const auto behindBreak = cutBehindBreak(bytes, std::max(earliestCut, searched), wanted); behindBreak) {
            return *behindBreak;
        }
        m_searchedTo = m_begin + bytes.size();
        if (isContinuationByte(bytes.back()) || !isAscii(bytes.back()) || bytes.back() == '\r') {
            m_searchedTo -= 4; // Part of a newline character may be in front of it.
        }
        if (const std::size_t insideLine = cutInsideLine(bytes); insideLine != 0) {
            return insideLine;
        }
        const std::size_t boundary = boundaryAtOrBefore(m_text, m_begin, m_begin + wantedInsideLine);
        return std::min(m_end, characterEndIn(m_text, boundary)) - m_begin;
    }

    const Text &m_text;
    std::size_t m_begin;
    std::size_t m_end;
    std::size_t m_searchedTo = 0;
    std::string m_scratch;
};

StretchCounts countsIn(const TextChunk &chunk) {
    return {.bytes = chunk.bytes,
            .units = chunk.units,
            .characters = chunk.characters,
            .words = chunk.words,
            .newlines = chunk.newlines,
            .breaks = chunk.breaks,
            .lineFeeds = chunk.lineFeeds,
            .carriageReturns = chunk.carriageReturns,
            .pairs = chunk.pairs};
}

bool endsWithNewline(std::string_view bytes) {
    if (bytes.empty()) {
        return false;
    }
    const DecodedCodePoint last = decodeBefore(bytes.data(), bytes.data() + bytes.size());
    return isIn(newlines, last.value);
}

/// Words are counted in each chunk by itself; one that goes on from the chunk before was counted there.
void joinWords(const TextChunk &before, TextChunk &chunk) {
    if (before.endsInWord && chunk.beginsInWord) {
        --chunk.words;
    }
}

} // namespace

TextIndex::TextIndex() { build(Text()); }

void TextIndex::build(const Text &text) {
    std::vector<TextChunk> chunks;
    chunks.reserve(text.size() / earliestCut + 1);
    appendChunks(chunks, text, 0, text.size());
    m_blocks = blocksOf(chunks);
    sumAll();
}

void TextIndex::replaced(const Text &text, std::size_t offset, std::size_t removed, std::size_t inserted) {
    // The change can join what stands behind it to the character in front of it. So the chunk in front is looked at too
    // where the change begins between two, and chunks behind it as long as their beginning is no boundary any more.
    const std::size_t oldSize = text.size() - inserted + removed;
    const Place from = atOffset(offset > 0 ? offset - 1 : 0);
    Place to = atOffset(std::min(offset + removed, oldSize));
    const std::size_t begin = from.before.bytes;
    const auto endOf = [&](const Place &place) {
        return place.before.bytes + at(place).bytes + inserted - removed; // in the new text
    };
    Place start = from;
    if (endOf(to) - begin < smallest) {
        if (!isLast(to)) {
            to = next(to);
        } else if (!isFirst(from)) {
            start = previous(from);
        }
    }
    std::size_t end = endOf(to);
    while (end != text.size() && boundaryAtOrBefore(text, begin, end) != end) {
        to = next(to);
        end = endOf(to);
    }

    std::vector<TextChunk> chunks;
    appendChunks(chunks, text, start.before.bytes, end);
    chunks.front().lead = std::min(at(start).lead, chunks.front().bytes);
    if (!isFirst(start)) {
        joinWords(at(previous(start)), chunks.front());
    }
    replaceChunks(start, to, std::move(chunks));
}

void TextIndex::appendChunks(std::vector<TextChunk> &chunks, const Text &text, std::size_t begin, std::size_t end) {
    const auto append = [&](std::string_view bytes, const StretchCounts &counts) {
        chunks.push_back(makeChunk(bytes, counts));
        if (chunks.size() > 1) {
            joinWords(chunks[chunks.size() - 2], chunks.back());
        }
    };
    Cutter cutter(text, begin, end);
    do {
        std::string_view bytes = cutter.isAtEnd() ? std::string_view() : cutter.next();
        const StretchCounts counts = countsOf(bytes);
        if (counts.breaks <= mostBreaks) {
            append(bytes, counts);
            continue;
        }
        // Many short lines hold few bytes, but take long to lay out. Looked at once more here, not in each piece.
        std::size_t pieces = (counts.breaks + breaksWhenCut - 1) / breaksWhenCut;
        for (std::size_t breaks = counts.breaks; pieces > 1; --pieces) {
            const std::size_t size = endOfBreakNumber(bytes, breaks / pieces);
            append(bytes.substr(0, size), countsOf(bytes.substr(0, size)));
            bytes.remove_prefix(size);
            breaks -= breaks / pieces;
        }
        append(bytes, countsOf(bytes));
    } while (!cutter.isAtEnd());
}

TextChunk TextIndex::makeChunk(std::string_view bytes, const StretchCounts &counts) {
    const auto narrow = [](std::size_t count) { return static_cast<std::uint32_t>(count); };
    TextChunk chunk;
    chunk.id = m_nextId++;
    chunk.bytes = narrow(counts.bytes);
    chunk.units = narrow(counts.units);
    chunk.characters = narrow(counts.characters);
    chunk.words = narrow(counts.words);
    chunk.newlines = narrow(counts.newlines);
    chunk.breaks = narrow(counts.breaks);
    chunk.lineFeeds = narrow(counts.lineFeeds);
    chunk.carriageReturns = narrow(counts.carriageReturns);
    chunk.pairs = narrow(counts.pairs);
    chunk.beginsInWord = beginsInWord(bytes);
    chunk.endsInWord = endsInWord(bytes);
    chunk.endsWithBreak = endsWithNewline(bytes);
    chunk.height = estimatedHeight(chunk);
    return chunk;
}

std::uint32_t TextIndex::estimatedHeight(const TextChunk &chunk) const {
    // Code points of three bytes are most often as wide as two letters.
    const double extraBytes = chunk.bytes - chunk.characters;
    const double columns = chunk.characters + extraBytes / 2;
    const double lines = chunk.breaks + (chunk.endsWithBreak ? 0.0 : 1.0);
    const double rowsPerLine = columns / std::max(lines, 1.0) / m_estimate.charactersPerRow;
    const bool isCutFromLine = chunk.breaks == 0;
    const double rows = isCutFromLine ? rowsPerLine : lines * (rowsPerLine <= 0.9 ? 1.0 : rowsPerLine + 0.5);
    return static_cast<std::uint32_t>(std::max(1.0, rows) * m_estimate.rowHeight);
}

void TextIndex::replaceChunks(const Place &from, const Place &to, std::vector<TextChunk> chunks) {
    Block &first = m_blocks[from.block];
    std::vector<TextChunk> behind;
    const Block &last = m_blocks[to.block];
    behind.assign(last.chunks.begin() + static_cast<std::ptrdiff_t>(to.chunk) + 1, last.chunks.end());
    const TextChunk lastReplaced = last.chunks[to.chunk];
    const TextChunk lastNew = chunks.back();

    first.chunks.resize(from.chunk);
    first.chunks.insert(first.chunks.end(), chunks.begin(), chunks.end());
    const std::size_t indexBehind = first.chunks.size();
    first.chunks.insert(first.chunks.end(), behind.begin(), behind.end());
    m_blocks.erase(m_blocks.begin() + static_cast<std::ptrdiff_t>(from.block) + 1,
                   m_blocks.begin() + static_cast<std::ptrdiff_t>(to.block) + 1);

    // The first word of the chunk behind may now belong to what is in front of it, or not any more.
    Block *blockBehind = &m_blocks[from.block];
    std::size_t chunkBehind = indexBehind;
    if (chunkBehind == blockBehind->chunks.size() && from.block + 1 < m_blocks.size()) {
        blockBehind = &m_blocks[from.block + 1];
        chunkBehind = 0;
    }
    if (chunkBehind < blockBehind->chunks.size()) {
        TextChunk &next = blockBehind->chunks[chunkBehind];
        next.words += lastReplaced.endsInWord && next.beginsInWord ? 1U : 0U;
        joinWords(lastNew, next);
        sum(*blockBehind);
    }

    Block &changed = m_blocks[from.block];
    if (changed.chunks.size() > mostChunksPerBlock) {
        std::vector<Block> pieces = blocksOf(changed.chunks);
        const auto at = m_blocks.erase(m_blocks.begin() + static_cast<std::ptrdiff_t>(from.block));
        m_blocks.insert(at, std::make_move_iterator(pieces.begin()), std::make_move_iterator(pieces.end()));
    } else {
        sum(changed);
    }
    sumAll();
}

std::vector<TextIndex::Block> TextIndex::blocksOf(const std::vector<TextChunk> &chunks) {
    std::vector<Block> blocks;
    for (std::size_t i = 0; i < chunks.size(); i += chunksPerBlock) {
        const auto begin = chunks.begin() + static_cast<std::ptrdiff_t>(i);
        const auto end = chunks.begin() + static_cast<std::ptrdiff_t>(std::min(i + chunksPerBlock, chunks.size()));
        blocks.push_back({std::vector<TextChunk>(begin, end), {}, 0});
        sum(blocks.back());
    }
    return blocks;
}

void TextIndex::sum(Block &block) {
    block.counts = {};
    block.height = 0;
    for (const TextChunk &chunk : block.chunks) {
        block.counts += countsIn(chunk);
        block.height += chunk.height;
    }
}

void TextIndex::sumAll() {
    m_total = {};
    m_totalHeight = 0;
    for (const Block &block : m_blocks) {
        m_total += block.counts;
        m_totalHeight += block.height;
    }
}

template<typename Amount> TextIndex::Place TextIndex::find(std::uint64_t number, Amount amount) const {
    Place place;
    while (place.block + 1 < m_blocks.size()) {
        const Block &block = m_blocks[place.block];
        if (number < amount(place.before, place.heightBefore) + amount(block.counts, block.height)) {
            break;
        }
        place.before += block.counts;
        place.heightBefore += block.height;
        ++place.block;
    }
    const std::vector<TextChunk> &chunks = m_blocks[place.block].chunks;
    while (place.chunk + 1 < chunks.size()) {
        const TextChunk &chunk = chunks[place.chunk];
        const StretchCounts counts = countsIn(chunk);
        if (number < amount(place.before, place.heightBefore) + amount(counts, chunk.height)) {
            break;
        }
        place.before += counts;
        place.heightBefore += chunk.height;
        ++place.chunk;
    }
    return place;
}

TextIndex::Place TextIndex::atOffset(std::size_t offset) const {
    return find(offset, [](const StretchCounts &counts, std::uint64_t) { return counts.bytes; });
}

TextIndex::Place TextIndex::atBreak(std::size_t number) const {
    return find(number, [](const StretchCounts &counts, std::uint64_t) { return counts.breaks; });
}

TextIndex::Place TextIndex::atUnit(std::size_t unit) const {
    return find(unit, [](const StretchCounts &counts, std::uint64_t) { return counts.units; });
}

TextIndex::Place TextIndex::atHeight(std::uint64_t height) const {
    return find(height, [](const StretchCounts &, std::uint64_t pixels) { return pixels; });
}

bool TextIndex::isLast(const Place &place) const {
    return place.block + 1 == m_blocks.size() && place.chunk + 1 == m_blocks.back().chunks.size();
}

TextIndex::Place TextIndex::next(Place place) const {
    assert(!isLast(place));
    const TextChunk &chunk = at(place);
    place.before += countsIn(chunk);
    place.heightBefore += chunk.height;
    if (++place.chunk == m_blocks[place.block].chunks.size()) {
        ++place.block;
        place.chunk = 0;
    }
    return place;
}

TextIndex::Place TextIndex::previous(Place place) const {
    assert(!isFirst(place));
    if (place.chunk == 0) {
        --place.block;
        place.chunk = m_blocks[place.block].chunks.size();
    }
    --place.chunk;
    const TextChunk &chunk = at(place);
    place.before -= countsIn(chunk);
    place.heightBefore -= chunk.height;
    return place;
}

void TextIndex::resetHeights(const HeightEstimate &estimate) {
    m_estimate = estimate;
    for (Block &block : m_blocks) {
        for (TextChunk &chunk : block.chunks) {
            chunk.height = estimatedHeight(chunk);
            chunk.lead = 0;
        }
        sum(block);
    }
    sumAll();
}

void TextIndex::setHeight(const Place &place, std::uint32_t height) {
    TextChunk &chunk = m_blocks[place.block].chunks[place.chunk];
    m_blocks[place.block].height += height;
    m_blocks[place.block].height -= chunk.height;
    m_totalHeight += height;
    m_totalHeight -= chunk.height;
    chunk.height = height;
}

void TextIndex::setLead(const Place &place, std::uint32_t lead) {
    m_blocks[place.block].chunks[place.chunk].lead = lead;
}

} // namespace lexivore
