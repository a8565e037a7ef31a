// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace lexivore {

/// A set of pieces of one text, compared by their bytes. Keeps views, so the text must outlive it.
/// A flat table that doubles when it is half full; the hash is seeded anew in each run of the program, so that no text
/// can be made to collide.
class PieceSet {
public:
    PieceSet();

    /// True when the piece was not in the set before.
    bool insert(std::string_view piece);
    [[nodiscard]] std::size_t size() const { return m_size; }

private:
    struct Slot {
        const char *data = nullptr; ///< Null for a free slot.
        std::size_t size = 0;
        std::uint64_t hash = 0;
    };

    void grow();

    std::vector<Slot> m_slots;
    std::size_t m_size = 0;
};

} // namespace lexivore
