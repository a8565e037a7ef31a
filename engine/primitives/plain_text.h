// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lexivore {

/// Breaks plain text into lines: printable ASCII, line feeds, carriage returns and tabs, where every byte is a
/// character, but for the two of each CR LF. The text is copied, its tabs as spaces. Where a line ends is looked up in
/// masks of the spaces, and a line feed is written over the one it ends at. What no line begins with is taken out of
/// the copy when all is known.
/// Places are offsets from where the text begins.
class PlainText {
public:
    static constexpr std::size_t mostBytes = 64 * kernels::blockSize;
    /// What may be overwritten behind the copy.
    static constexpr std::size_t scratchBytes = kernels::blockSize;
    static constexpr std::size_t none = SIZE_MAX;

    /// Copies as much of the beginning of `text` as is plain, up to `mostBytes`, and returns its size.
    std::size_t copy(std::string_view text, char *to);

    /// Leaves out the spaces that begin at `begin`, if there are any, and returns where they end.
    std::size_t leaveOutSpaces(std::size_t begin);
    /// Ends as many lines as it can, each at the last space that leaves it no wider than it may be, else at the first
    /// one behind that. From `begin` on the first one has room for `room` characters more, all others for `width`, and
    /// the spaces that these would begin with are left out. Returns where the first line begins that is not ended.
    std::size_t endLines(std::size_t begin, std::size_t room, std::size_t width);

    /// The last space from `begin` on, or none.
    [[nodiscard]] std::size_t lastSpaceFrom(std::size_t begin) const;
    /// How many characters there are at [begin, end). One begins at `begin`.
    [[nodiscard]] std::size_t characterCount(std::size_t begin, std::size_t end) const;

    /// Closes the gaps that what was left out of the first `size` bytes has in the copy, and returns where these end.
    char *closeGaps(std::size_t size);

private:
    static constexpr std::size_t mostBlocks = mostBytes / kernels::blockSize;

    template<bool narrow> std::size_t endLinesThatAre(std::size_t begin, std::size_t room, std::size_t width);
    std::size_t endLine(std::size_t begin, std::size_t width);
    [[nodiscard]] bool isSpace(std::size_t place) const;
    [[nodiscard]] std::size_t placeBehind(std::size_t begin, std::size_t width) const;
    [[nodiscard]] std::size_t crLfCount(std::size_t begin, std::size_t end) const;
    [[nodiscard]] std::size_t lastSpace(std::size_t first, std::size_t last) const;
    [[nodiscard]] std::size_t nextSpace(std::size_t first) const;
    std::size_t endNarrowLines(std::size_t begin, std::size_t width);
    std::size_t makeGap(std::size_t begin);
    void haveGapsFrom(std::size_t block);

    char *m_copy = nullptr;
    std::size_t m_size = 0;
    bool m_hasCrLfs = false;
    std::size_t m_gapsBegin = none; ///< The first block with something left out.
    /// One bit for each byte, behind 64 that stand for what is before the text.
    std::array<std::uint64_t, 1 + mostBlocks + 1> m_spaces{};
    std::array<std::uint64_t, mostBlocks> m_crLfs{};    ///< One for each byte: its second halves.
    std::array<std::uint64_t, mostBlocks + 1> m_kept{}; ///< One for each byte that is not left out, if there are gaps.
};

} // namespace lexivore
