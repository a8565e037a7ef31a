// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/string_order.h"

#include "engine/primitives/code_points.h"
#include "engine/primitives/huge_page_allocator.h"
#include "engine/primitives/utf8.h"

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <deque>
#include <limits>
#include <string>

// Strings are sorted by eight bytes of their keys at a time, read as one number: UTF-8 bytes order as their code points
// do. A radix sort puts the numbers in order; strings whose numbers are equal are then sorted by the next eight bytes.

namespace lexivore {

namespace {

std::string composed(std::string_view text) {
    // ICU counts in 32 bits; a single string of that size keeps its own order.
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        return std::string(text);
    }
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2 *const nfc = icu::Normalizer2::getNFCInstance(status);
    std::string result;
    if (U_SUCCESS(status)) {
        icu::StringByteSink<std::string> sink(&result);
        nfc->normalizeUTF8(0, icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink, nullptr,
                           status);
    }
    // ICU refuses only for want of memory or data, and then the text's own order is the best there is.
    return U_SUCCESS(status) ? result : std::string(text);
}

constexpr std::size_t prefixSize = 8;

/// What is moved around.
struct Entry {
    std::uint64_t prefix = 0; ///< Eight bytes of the key from the depth that is being sorted, zeros behind its end.
    const char *key = nullptr;
    std::uint32_t size = 0;  ///< Of the key.
    std::uint32_t index = 0; ///< Of the string.

    /// How much of the key lies behind the depth; everything longer than a prefix is the same.
    [[nodiscard]] std::size_t sizeBehind(std::size_t depth) const {
        return size <= depth ? 0 : std::min(size - depth, prefixSize + 1);
    }
};

/// Reads the prefix of the entry's key at `depth`.
void readPrefix(Entry &entry, std::size_t depth) {
    constexpr bool isLittleEndian = std::endian::native == std::endian::little;
    const std::size_t behind = entry.sizeBehind(depth);
    std::uint64_t bytes = 0;
    if (behind >= prefixSize) {
        std::memcpy(&bytes, entry.key + depth, prefixSize);
    } else if (behind > 0 && isLittleEndian && entry.size >= prefixSize) { // as one number, without what stands before
        std::memcpy(&bytes, entry.key + entry.size - prefixSize, prefixSize);
        bytes >>= 8 * (prefixSize - behind);
    } else if (behind > 0) {
        std::memcpy(&bytes, entry.key + depth, behind);
    }
    entry.prefix = isLittleEndian ? __builtin_bswap64(bytes) : bytes;
}

using Entries = HugeVector<Entry>;

/// Sorts the few entries of [begin, end) stably.
template<typename Precedes> void sortFew(Entries &entries, std::size_t begin, std::size_t end, Precedes precedes) {
    for (std::size_t i = begin + 1; i < end; ++i) {
        const Entry entry = entries[i];
        std::size_t to = i;
        for (; to > begin && precedes(entry, entries[to - 1]); --to) {
            entries[to] = entries[to - 1];
        }
        entries[to] = entry;
    }
}

constexpr std::size_t few = 24;

/// Sorts [begin, end) of `entries` by the lower `bytes` bytes of their prefixes, above which they are equal, stably.
/// `scratch` has the same size as `entries`.
void sortByPrefix(Entries &entries, Entries &scratch, std::size_t begin, std::size_t end,
                  std::size_t bytes = prefixSize) {
    constexpr std::size_t worthCounting = 256;
    constexpr std::size_t worthDividing = std::size_t{1} << 14; // what is sorted at once should fit the caches
    const auto byPrefix = [](const Entry &left, const Entry &right) { return left.prefix < right.prefix; };
    const auto placeOf = [](std::size_t index) { return static_cast<std::ptrdiff_t>(index); };
    if (end - begin <= few) {
        sortFew(entries, begin, end, byPrefix);
        return;
    }
    if (end - begin < worthCounting) {
        std::stable_sort(entries.begin() + placeOf(begin), entries.begin() + placeOf(end), byPrefix);
        return;
    }
    std::array<std::array<std::uint32_t, 256>, prefixSize> counts{};
    for (std::size_t i = begin; i < end; ++i) {
        for (std::size_t byte = 0; byte < bytes; ++byte) {
            ++counts[byte][entries[i].prefix >> (8 * byte) & 0xFF];
        }
    }
    Entries *from = &entries;
    Entries *to = &scratch;
    std::array<std::size_t, 256> places{};
    const auto distribute = [&](std::size_t byte) { // false when all have the same byte there
        const auto digit = [byte](const Entry &entry) { return entry.prefix >> (8 * byte) & 0xFF; };
        if (counts[byte][digit((*from)[begin])] == end - begin) {
            return false;
        }
        std::size_t place = begin;
        for (std::size_t value = 0; value < 256; ++value) {
            places[value] = place;
            place += counts[byte][value];
        }
        for (std::size_t i = begin; i < end; ++i) {
            (*to)[places[digit((*from)[i])]++] = (*from)[i];
        }
        std::swap(from, to);
        return true;
    };
    const auto copyBack = [&]() {
        if (from != &entries) {
            std::copy(from->begin() + placeOf(begin), from->begin() + placeOf(end), entries.begin() + placeOf(begin));
        }
    };
    if (end - begin > worthDividing) { // by the first byte that differs, each part then by itself
        while (bytes > 0 && !distribute(bytes - 1)) {
            --bytes;
        }
        copyBack();
        if (bytes > 1) {
            std::size_t partBegin = begin;
            for (const std::size_t partEnd : places) {
                sortByPrefix(entries, scratch, partBegin, partEnd, bytes - 1);
                partBegin = partEnd;
            }
        }
        return;
    }
    for (std::size_t byte = 0; byte < bytes; ++byte) {
        (void)distribute(byte);
    }
    copyBack();
}

struct Range {
    std::size_t begin;
    std::size_t end;
};

/// Of [begin, end), whose prefixes at `depth` are equal, puts the keys that end within the prefix first, the shorter
/// before the longer: zeros stand for their ends, and a real NUL looks the same. Returns where the longer ones begin.
std::size_t sortByEnds(Entries &entries, Range range, std::size_t depth) {
    const auto bySize = [depth](const Entry &left, const Entry &right) {
        return left.sizeBehind(depth) < right.sizeBehind(depth);
    };
    const auto first = entries.begin() + static_cast<std::ptrdiff_t>(range.begin);
    const auto last = entries.begin() + static_cast<std::ptrdiff_t>(range.end);
    if (range.end - range.begin <= few) {
        sortFew(entries, range.begin, range.end, bySize);
    } else if (!std::is_sorted(first, last, bySize)) {
        std::stable_sort(first, last, bySize);
    }
    const auto longer =
        std::find_if(first, last, [depth](const Entry &entry) { return entry.sizeBehind(depth) > prefixSize; });
    return static_cast<std::size_t>(longer - entries.begin());
}

/// Sorts all entries by their keys, ascending and stably.
void sortByKey(Entries &entries) {
    Entries scratch(entries.size());
    std::vector<Range> ranges{{0, entries.size()}}; // in order, whose keys are equal before the depth
    std::vector<Range> deeper;
    for (std::size_t depth = 0; !ranges.empty(); depth += prefixSize) {
        for (const Range range : ranges) {
            constexpr std::size_t ahead = 16; // the keys of neighbours lie anywhere in the text
            for (std::size_t i = range.begin; i < range.end; ++i) {
                if (depth > 0 && i + ahead < entries.size()) {
                    __builtin_prefetch(entries[i + ahead].key + depth);
                }
                readPrefix(entries[i], depth);
            }
            sortByPrefix(entries, scratch, range.begin, range.end);
            for (std::size_t group = range.begin; group < range.end;) {
                std::size_t groupEnd = group + 1;
                while (groupEnd < range.end && entries[groupEnd].prefix == entries[group].prefix) {
                    ++groupEnd;
                }
                if (groupEnd - group > 1) {
                    const std::size_t longer = sortByEnds(entries, {group, groupEnd}, depth);
                    if (groupEnd - longer > 1) {
                        deeper.push_back({longer, groupEnd});
                    }
                }
                group = groupEnd;
            }
        }
        std::swap(ranges, deeper);
        deeper.clear();
    }
}

} // namespace

bool isOrderedByBytes(std::string_view text) {
    const char *position = text.data();
    const char *const end = position + text.size();
    while ((position = asciiRunEnd(position, end)) != end) {
        const DecodedCodePoint decoded = decode(position, end);
        if (isIn(property::mayChangeInComposing, decoded.value)) {
            return false;
        }
        position += decoded.length;
    }
    return true;
}

void sortByStringOrder(std::vector<std::string_view> &strings, SortDirection direction) {
    std::deque<std::string> composedForms; // a deque, so that views of its strings stay valid
    Entries entries(strings.size());
    for (std::size_t i = 0; i < strings.size(); ++i) {
        std::string_view key = strings[i];
        if (!isOrderedByBytes(key)) {
            key = composedForms.emplace_back(composed(key));
        }
        entries[i] = {0, key.data(), static_cast<std::uint32_t>(key.size()), static_cast<std::uint32_t>(i)};
    }
    // Reversed before and after, so that equal ones keep their order when the direction is reversed.
    if (direction == SortDirection::descending) {
        std::reverse(entries.begin(), entries.end());
    }
    sortByKey(entries);
    if (direction == SortDirection::descending) {
        std::reverse(entries.begin(), entries.end());
    }
    const std::vector<std::string_view> unsorted = strings;
    std::transform(entries.begin(), entries.end(), strings.begin(),
                   [&unsorted](const Entry &entry) { return unsorted[entry.index]; });
}

} // namespace lexivore
