// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"
#include "engine/primitives/byte_search.h"
#include "engine/primitives/bytewise_replacement.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/text_buffer.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

namespace lexivore {

/// Copies a text with something else in place of many of its parts, each for a few instructions.
class PartReplacer {
public:
    /// `text` must outlive it. Room for `expectedBytes` is asked for at once; `before` is written first.
    PartReplacer(std::string_view text, std::size_t expectedBytes, std::string_view before = {})
        : m_position(text.data()), m_end(text.data() + text.size()),
          m_result(TextBuffer::withCapacity(expectedBytes + before.size() + roomBehind)) {
        m_result.append(before);
        setRoom();
    }

    /// The parts begin at the places that `scan` finds in the text, and `sizeOf(const char *)` is their size. One that
    /// begins within the part before it is none. `write(char *, const char *)` writes what stands in place of the part
    /// and returns the end of it; it may overwrite `longest` bytes, at most as many as a block has.
    template<typename Scan, typename SizeOf, typename Write>
    void replaceAll(Scan scan, SizeOf sizeOf, std::size_t longest, Write write) {
        forEachStretch(scan, [&](const Stretch &stretch, const Places &places, std::size_t count) {
            if (hasSlackBehind(stretch)) {
                ensureRoomFor(stretch, count, longest);
                replaceQuickly(stretch, places, count, sizeOf, write);
            } else {
                replaceOneByOne(stretch, places, count, sizeOf, longest, write);
            }
        });
    }

    /// The same with parts and replacements that are told by the first bytes of the parts.
    template<typename Scan> void replaceAll(Scan scan, const kernels::PartReplacements &parts) {
        const auto sizeOf = [&parts](const char *part) { return parts.sizes[firstByte(part)]; };
        const auto write = [&parts](char *to, const char *part) {
            const kernels::Replacement &replacement = parts.replacements[parts.indices[firstByte(part)]];
            return std::copy_n(replacement.bytes, replacement.size, to);
        };
        constexpr std::size_t longest = kernels::Replacement::longest;
        forEachStretch(scan, [&](const Stretch &stretch, const Places &places, std::size_t count) {
            if (hasSlackBehind(stretch)) {
                ensureRoomFor(stretch, count, longest);
                m_position = kernels::best().replaceParts(m_position, stretch.begin, places.data(), count, parts, m_to);
            } else {
                replaceOneByOne(stretch, places, count, sizeOf, longest, write);
            }
        });
    }

    /// The same with `replacement` in place of every part. `sizeOf` looks at the first byte alone.
    template<typename Scan, typename SizeOf> void replaceAll(Scan scan, SizeOf sizeOf, std::string_view replacement) {
        if (replacement.size() <= kernels::Replacement::longest) {
            kernels::PartReplacements parts;
            parts.replacements[parts.count++] = kernels::Replacement(replacement);
            for (unsigned byte = 0; byte < std::size(parts.sizes); ++byte) {
                const auto first = static_cast<char>(byte);
                parts.sizes[byte] = static_cast<std::uint8_t>(sizeOf(&first));
            }
            replaceAll(scan, parts);
            return;
        }
        forEachStretch(scan, [&](const Stretch &stretch, const Places &places, std::size_t count) {
            replaceOneByOne(stretch, places, count, sizeOf, replacement.size(), Writer{replacement});
        });
    }

    /// The same with `replacement` in place of every occurrence of `part`, which has 1 to
    /// `OccurrenceScan::longestPattern` bytes.
    void replaceAll(std::string_view part, std::string_view replacement) {
        OccurrenceScan scan({m_position, static_cast<std::size_t>(m_end - m_position)}, part);
        const auto sizeOf = [size = part.size()](const char *) { return size; };
        const std::optional<kernels::BytewiseReplacement> bytewise = bytewiseReplacement(part, replacement);
        if (!bytewise || kernels::best().replaceMarked == nullptr) {
            replaceAll(scan, sizeOf, replacement);
            return;
        }
        Places places; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
        for (Stretch stretch; scan.next(stretch);) {
            if (hasSlackBehind(stretch)) {
                replaceMarked(stretch, *bytewise, replacement);
            } else {
                const std::size_t count = kernels::best().listBits(stretch.members, stretch.blocks, places.data());
                replaceOneByOne(stretch, places, count, sizeOf, replacement.size(), Writer{replacement});
            }
        }
    }

    /// The result, with `behind` at its end.
    [[nodiscard]] TextBuffer take(std::string_view behind = {}) {
        copyUpTo(m_end);
        m_result.commit(m_to);
        m_result.append(behind);
        m_result.shrink();
        return std::move(m_result);
    }

private:
    /// How much more than asked for is read and written.
    static constexpr std::size_t slack = kernels::replacingSlack;
    static constexpr std::size_t roomBehind = Stretch::mostBlocks * kernels::blockSize + slack;

    static std::uint8_t firstByte(const char *part) { return static_cast<std::uint8_t>(*part); }

    [[nodiscard]] bool hasSlackBehind(const Stretch &stretch) const {
        return static_cast<std::size_t>(m_end - stretch.end) >= slack;
    }

    /// Writes the same for every part.
    struct Writer {
        std::string_view replacement;
        char *operator()(char *to, const char *) const { return std::copy(replacement.begin(), replacement.end(), to); }
    };

    /// Calls `replace(stretch, places, count)` with the parts of each stretch and copies what stands behind them.
    template<typename Scan, typename Replace> void forEachStretch(Scan &scan, Replace &&replace) {
        Places places; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
        for (Stretch stretch; scan.next(stretch);) {
            replace(stretch, places, kernels::best().listBits(stretch.members, stretch.blocks, places.data()));
            copyUpTo(stretch.end); // while it is in the caches
        }
    }

    /// The parts of a stretch of whole blocks by a kernel, which leaves out what belongs to the next stretch.
    void replaceMarked(const Stretch &stretch, const kernels::BytewiseReplacement &bytewise,
                       std::string_view replacement) {
        const std::size_t partSize = bytewise.partSize;
        const auto size = static_cast<std::size_t>(stretch.end - stretch.begin);
        ensureRoom(size + (size / partSize + 1) * bytewise.inserted + slack);
        // The part that goes on here has been replaced already, and the end of that will be written once more.
        const auto goingOn = static_cast<std::size_t>(m_position - stretch.begin);
        const std::uint64_t before = goingOn == 0 ? 0 : std::uint64_t{1} << (kernels::blockSize - (partSize - goingOn));
        m_to = kernels::best().replaceMarked(stretch.begin, stretch.blocks, stretch.members, before, bytewise,
                                             m_to - std::min(goingOn, replacement.size()));
        const auto behindLast = static_cast<std::size_t>(std::countl_zero(stretch.members[stretch.blocks - 1]));
        const std::size_t written = behindLast + 1; // of the last part
        const std::size_t left = partSize - std::min(partSize, written);
        const std::string_view rest = replacement.substr(replacement.size() - std::min(left, replacement.size()));
        m_to = std::copy(rest.begin(), rest.end(), m_to);
        m_position = stretch.end + left;
    }

    /// Without asking about room for each part, and in registers.
    template<typename SizeOf, typename Write>
    void replaceQuickly(const Stretch &stretch, const Places &places, std::size_t count, SizeOf sizeOf, Write &write) {
        // Where the parts stand about a block apart, whether one block is to be copied between them or two is hard to
        // foresee for the processor: copying two is faster than asking.
        const auto size = static_cast<std::size_t>(stretch.end - stretch.begin);
        const std::size_t leastCopied = size / (count + 1) > copySlack / 2 ? 2 * copySlack : copySlack;
        const char *position = m_position;
        char *to = m_to;
        for (std::size_t i = 0; i < count; ++i) {
            const char *const place = stretch.begin + places[i];
            if (place < position) {
                continue;
            }
            const auto before = static_cast<std::size_t>(place - position);
            copyInBlocks(position, std::max(before, leastCopied), to);
            to = write(to + before, place);
            position = place + sizeOf(place);
            kernels::askAhead(to);
        }
        m_position = position;
        m_to = to;
    }

    template<typename SizeOf, typename Write>
    void replaceOneByOne(const Stretch &stretch, const Places &places, std::size_t count, SizeOf sizeOf,
                         std::size_t longest, const Write &write) {
        for (std::size_t i = 0; i < count; ++i) {
            const char *const place = stretch.begin + places[i];
            if (place >= m_position) {
                copyUpTo(place);
                ensureRoom(longest);
                m_to = write(m_to, place);
                m_position = place + sizeOf(place);
            }
        }
    }

    void copyUpTo(const char *place) {
        if (place <= m_position) {
            return;
        }
        const auto size = static_cast<std::size_t>(place - m_position);
        ensureRoom(size + copySlack);
        if (static_cast<std::size_t>(m_end - m_position) >= size + copySlack) {
            copyInBlocks(m_position, size, m_to);
        } else {
            std::memcpy(m_to, m_position, size);
        }
        m_to += size;
        m_position = place;
    }
    void ensureRoomFor(const Stretch &stretch, std::size_t count, std::size_t longest) {
        ensureRoom(static_cast<std::size_t>(stretch.end - stretch.begin) + count * longest + slack);
    }
    void ensureRoom(std::size_t bytes) {
        if (static_cast<std::size_t>(m_limit - m_to) < bytes) {
            m_result.commit(m_to);
            (void)m_result.room(bytes);
            setRoom();
        }
    }
    void setRoom() {
        m_to = m_result.room(1);
        m_limit = m_result.data() + m_result.capacity();
    }

    const char *m_position; ///< Everything before it is copied or replaced.
    const char *m_end;
    TextBuffer m_result;
    char *m_to = nullptr;          ///< Where the result goes on...
    const char *m_limit = nullptr; ///< ... and where its room ends.
};

} // namespace lexivore
