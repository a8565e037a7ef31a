// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"
#include "ui/editor/stretch_counts.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace lexivore {

/// The guess of a chunk's height that stands until somebody measures it.
struct HeightEstimate {
    double rowHeight = 16;
    double charactersPerRow = 80;
};

/// A stretch of a few kilobytes that begins and ends between characters, behind a line break where one is near.
struct TextChunk {
    std::uint32_t id = 0; ///< Never used again when the bytes change.
    std::uint32_t bytes = 0;
    std::uint32_t units = 0;
    std::uint32_t characters = 0;
    std::uint32_t words = 0; ///< Those that begin here.
    std::uint32_t newlines = 0;
    std::uint32_t breaks = 0;
    std::uint32_t lineFeeds = 0;
    std::uint32_t carriageReturns = 0;
    std::uint32_t pairs = 0;
    std::uint32_t height = 0; ///< In pixels: measured, or the estimate.
    std::uint32_t lead = 0;   ///< So many bytes at its start are shown in the last row of the chunk before it.
    bool beginsInWord = false;
    bool endsInWord = false;
    bool endsWithBreak = false;
};

/// Counts and lines of a text, kept up to date by the change alone.
///
/// The text is cut into chunks whose counts are summed in blocks, so that finding a place and following an edit cost a
/// few kilobytes of scanning whatever the size of the text. A text of nothing is one empty chunk. The index keeps no
/// text: who asks hands it in.
class TextIndex {
public:
    /// A chunk by its place. Stays valid until the text changes.
    struct Place {
        std::size_t block = 0;
        std::size_t chunk = 0;
        StretchCounts before;           ///< Of everything in front of the chunk.
        std::uint64_t heightBefore = 0; ///< Likewise, in pixels.
    };

    TextIndex();

    /// One pass over the text.
    void build(const Text &text);
    /// `removed` bytes at `offset` became `inserted` ones, which made `text`. Costs the change and a few kilobytes.
    void replaced(const Text &text, std::size_t offset, std::size_t removed, std::size_t inserted);

    [[nodiscard]] const StretchCounts &total() const { return m_total; }
    [[nodiscard]] std::uint64_t totalHeight() const { return m_totalHeight; }

    /// The chunk that holds the byte at `offset`; the last one for the end of the text.
    [[nodiscard]] Place atOffset(std::size_t offset) const;
    /// The chunk that holds line break number `number`, counted from 0, which exists.
    [[nodiscard]] Place atBreak(std::size_t number) const;
    /// The chunk that holds UTF-16 code unit `unit`; the last one for the end of the text.
    [[nodiscard]] Place atUnit(std::size_t unit) const;
    /// The chunk at `height` pixels from the top; the last one for anything below.
    [[nodiscard]] Place atHeight(std::uint64_t height) const;
    [[nodiscard]] Place first() const { return {}; }
    [[nodiscard]] bool isFirst(const Place &place) const { return place.block == 0 && place.chunk == 0; }
    [[nodiscard]] bool isLast(const Place &place) const;
    /// There must be one.
    [[nodiscard]] Place next(Place place) const;
    [[nodiscard]] Place previous(Place place) const;
    [[nodiscard]] const TextChunk &at(const Place &place) const { return m_blocks[place.block].chunks[place.chunk]; }

    /// Every height becomes an estimate, and no chunk has a lead.
    void resetHeights(const HeightEstimate &estimate);
    void setHeight(const Place &place, std::uint32_t height);
    void setLead(const Place &place, std::uint32_t lead);

private:
    struct Block {
        std::vector<TextChunk> chunks;
        StretchCounts counts;
        std::uint64_t height = 0;
    };

    template<typename Amount> [[nodiscard]] Place find(std::uint64_t wanted, Amount amount) const;
    void appendChunks(std::vector<TextChunk> &chunks, const Text &text, std::size_t begin, std::size_t end);
    [[nodiscard]] TextChunk makeChunk(std::string_view bytes, const StretchCounts &counts);
    [[nodiscard]] std::uint32_t estimatedHeight(const TextChunk &chunk) const;
    void replaceChunks(const Place &from, const Place &to, std::vector<TextChunk> chunks);
    /// As few blocks as there need be, summed up.
    [[nodiscard]] static std::vector<Block> blocksOf(const std::vector<TextChunk> &chunks);
    static void sum(Block &block);
    void sumAll();

    std::vector<Block> m_blocks;
    StretchCounts m_total;
    std::uint64_t m_totalHeight = 0;
    HeightEstimate m_estimate;
    std::uint32_t m_nextId = 1;
};

} // namespace lexivore
