// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

namespace lexivore {

enum class SortDirection { ascending, descending };

/// Reads the strings that parts of a text are sorted by as numbers of a few bytes each: UTF-8 bytes order as their code
/// points do. The string of a part is the part itself, or another form of it that was given instead.
class StringKeys {
public:
    using Entry = kernels::KeyedPart;

    /// How many bytes of a string a key stands for.
    static constexpr std::size_t bytesInKey = 7;

    /// The keys of texts that are sorted in descending order are turned round, so that they always ascend. Throws
    /// TextTooLarge when the places in `text` cannot be counted in 32 bits.
    StringKeys(std::string_view text, SortDirection direction);

    /// The entry of a part of the text, with the key of its bytes from `depth` on.
    [[nodiscard]] Entry entryOf(std::string_view part, std::size_t depth) const {
        Entry entry{0, static_cast<std::uint32_t>(part.data() - m_text.data()),
                    static_cast<std::uint32_t>(part.size())};
        entry.key = keyAt(entry, depth);
        return entry;
    }
    /// The entry of a part that is sorted by another string, with the key of the beginning of that. Throws TextTooLarge
    /// when there are too many of these.
    [[nodiscard]] Entry entryOf(std::string_view part, std::string_view instead);

    /// Of the text that the parts are of, in bytes.
    [[nodiscard]] std::size_t textSize() const { return m_text.size(); }

    /// What the entry was made of.
    [[nodiscard]] std::string_view partOf(const Entry &entry) const {
        if (isInText(entry)) {
            return {m_text.data() + entry.offset, entry.size};
        }
        Place place;
        std::memcpy(&place, m_others.data() + (entry.offset - m_text.size()) - sizeof place, sizeof place);
        return {m_text.data() + place.offset, place.size};
    }

    /// The string that the entry is sorted by.
    [[nodiscard]] std::string_view stringOf(const Entry &entry) const {
        return isInText(entry) ? std::string_view(m_text.data() + entry.offset, entry.size)
                               : std::string_view(m_others.data() + (entry.offset - m_text.size()), entry.size);
    }

    /// The key of the seven bytes from `depth` on, which is not behind the end of the string: zeros stand for what is
    /// missing, and then the number of those that are there tells ends and NULs apart. The lowest five bits are 0.
    [[nodiscard]] std::uint64_t keyAt(const Entry &entry, std::size_t depth) const {
        constexpr unsigned lowestBitOfSize = 5;
        const std::size_t size = std::min(entry.size - depth, bytesInKey);
        const std::size_t place = entry.offset + depth;
        std::uint64_t bytes = 0;
        if (place + sizeof bytes <= m_text.size()) {
            bytes = numberAt(m_text.data() + place);
        } else {
            bytes = bytesAtEnd(stringOf(entry).substr(depth, size));
        }
        // The shift by all bits is divided in two.
        const std::uint64_t behind = ~std::uint64_t{0} >> (4 * size) >> (4 * size);
        return ((bytes & ~behind) | size << lowestBitOfSize) ^ m_turned;
    }

    /// False when strings with this key end there: strings with equal keys are equal then, all other bytes being so.
    [[nodiscard]] bool goesOn(std::uint64_t key) const { return ((key ^ m_turned) & 0xFF) == bytesInKey << 5; }

    /// A key of more bytes, in two numbers of which the first counts first. The lowest five bits of the second are 0.
    struct LongKey {
        std::uint64_t first;
        std::uint64_t second;
    };
    static constexpr std::size_t bytesInLongKey = 14;

    /// The same for fourteen bytes. It also tells whether there are more.
    [[nodiscard]] LongKey longKeyAt(const Entry &entry, std::size_t depth) const {
        constexpr unsigned lowestBitOfSize = 8;
        constexpr std::size_t half = sizeof(std::uint64_t);
        const std::size_t size = std::min(entry.size - depth, bytesInLongKey + 1);
        const std::size_t place = entry.offset + depth;
        LongKey key{};
        if (place + 2 * half <= m_text.size()) {
            key = {numberAt(m_text.data() + place), numberAt(m_text.data() + place + half)};
        } else {
            const std::string_view bytes = stringOf(entry).substr(depth, bytesInLongKey);
            key = {bytesAtEnd(bytes.substr(0, half)), bytesAtEnd(bytes.substr(std::min(bytes.size(), half)))};
        }
        const LongKey &mask = longKeyMasks.ofSize[size];
        return {(key.first & mask.first) ^ m_firstTurned,
                ((key.second & mask.second) | size << lowestBitOfSize) ^ m_turned};
    }

    /// Whether a string comes before another one, as the keys have it.
    [[nodiscard]] bool precedes(std::string_view left, std::string_view right) const {
        return m_turned == 0 ? left < right : right < left;
    }

    /// Asks for the memory in which the string's bytes from `depth` on lie, if that is in the text.
    void prefetch(const Entry &entry, std::size_t depth) const {
        if (const std::size_t place = entry.offset + depth; place < m_text.size()) {
            __builtin_prefetch(m_text.data() + place);
        }
    }

    /// Asks for the memory that the keys of `depth` are read from, and long keys of up to a key's bytes more.
    void prefetchKeys(const Entry &entry, std::size_t depth) const {
        prefetch(entry, depth);
        prefetch(entry, depth + bytesInKey + sizeof(LongKey) - 1);
    }

private:
    struct Place {
        std::uint32_t offset;
        std::uint32_t size;
    };

    /// For each size of a string, all bits of its bytes that a long key has room for.
    struct LongKeyMasks {
        LongKey ofSize[bytesInLongKey + 2] = {};
        constexpr LongKeyMasks() {
            constexpr std::uint64_t all = ~std::uint64_t{0};
            constexpr std::size_t half = sizeof all;
            for (std::size_t size = 1; size < std::size(ofSize); ++size) {
                const std::size_t inSecond = std::min(size, bytesInLongKey) - std::min(size, half);
                ofSize[size] = {size < half ? ~(all >> (8 * size)) : all, ~(all >> (8 * inSecond))};
            }
        }
    };
    static const LongKeyMasks longKeyMasks;

    /// The other strings lie as if they stood behind the text.
    [[nodiscard]] bool isInText(const Entry &entry) const { return entry.offset <= m_text.size(); }
    /// Eight bytes as a number that orders as they do.
    [[nodiscard]] static std::uint64_t numberAt(const char *place) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, place, sizeof bytes);
        return std::endian::native == std::endian::little ? __builtin_bswap64(bytes) : bytes;
    }
    [[nodiscard]] static std::uint64_t bytesAtEnd(std::string_view bytes);

    std::string_view m_text;
    std::string m_others; ///< In front of each string the place of its part.
    std::uint64_t m_turned;
    std::uint64_t m_firstTurned = m_turned == 0 ? 0 : ~std::uint64_t{0}; ///< The first number of a long key.
};

inline constexpr StringKeys::LongKeyMasks StringKeys::longKeyMasks;

} // namespace lexivore
