// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace lexivore {

/// A set of pieces of one text, compared by their bytes, that knows how often each was inserted. Keeps views, so the
/// text must outlive it.
/// A flat table that doubles when it is half full; the hash is seeded anew in each run of the program, so that no text
/// can be made to collide.
class PieceSet {
public:
    PieceSet();

    /// True when the piece was not in the set before.
    bool insert(std::string_view piece);
    /// The number of different pieces.
    [[nodiscard]] std::size_t size() const { return m_size; }
    /// Each of them once, in no order that means anything.
    [[nodiscard]] std::vector<std::string_view> pieces() const;
    /// How often the piece was inserted.
    [[nodiscard]] std::size_t countOf(std::string_view piece) const;

private:
    struct Slot {
        const char *data = nullptr; ///< Null for a free slot.
        std::size_t size = 0;
        std::uint64_t hash = 0;
        std::size_t count = 0;
    };

    /// The slot that holds the piece, or the free one where it belongs.
    [[nodiscard]] std::size_t slotOf(std::string_view piece, std::uint64_t hash) const;
    void grow();

    std::vector<Slot> m_slots;
    std::size_t m_size = 0;
};

} // namespace lexivore
