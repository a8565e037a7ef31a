// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/string_order.h"

#include "engine/primitives/code_points.h"
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

/// What is moved around: small, so that a pass over all of them stays in the caches for long.
struct Entry {
    std::uint64_t prefix = 0; ///< Eight bytes of the key from the depth that is being sorted, zeros behind its end.
    std::uint32_t index = 0;  ///< Of the string and its key.
    /// How much of the key lies behind the depth; everything longer than a prefix is the same.
    std::uint32_t sizeBehind = 0;
};

using Keys = std::vector<std::string_view>;

/// Reads the prefix of the entry's key at `depth`.
void readPrefix(Entry &entry, const Keys &keys, std::size_t depth) {
    const std::string_view key = keys[entry.index];
    const std::size_t behind = key.size() <= depth ? 0 : std::min(key.size() - depth, prefixSize + 1);
    std::uint64_t bytes = 0;
    if (behind >= prefixSize) {
        std::memcpy(&bytes, key.data() + depth, prefixSize);
    } else if (behind > 0) {
        std::memcpy(&bytes, key.data() + depth, behind);
    }
    entry.prefix = std::endian::native == std::endian::little ? __builtin_bswap64(bytes) : bytes;
    entry.sizeBehind = static_cast<std::uint32_t>(behind);
}

using Entries = std::vector<Entry>;

/// Sorts [begin, end) of `entries` by their prefixes, stably. `scratch` has the same size as `entries`.
void sortByPrefix(Entries &entries, Entries &scratch, std::size_t begin, std::size_t end) {
    constexpr std::size_t worthCounting = 256;
    const auto byPrefix = [](const Entry &left, const Entry &right) { return left.prefix < right.prefix; };
    if (end - begin < worthCounting) {
        const auto first = entries.begin() + static_cast<std::ptrdiff_t>(begin);
        const auto last = entries.begin() + static_cast<std::ptrdiff_t>(end);
        if (end - begin <= 16) { // an insertion sort
            for (auto place = first; place != last; ++place) {
                const auto to = std::upper_bound(first, place, *place, byPrefix);
                std::rotate(to, place, place + 1);
            }
        } else {
            std::stable_sort(first, last, byPrefix);
        }
        return;
    }
    std::array<std::array<std::uint32_t, 256>, prefixSize> counts{};
    for (std::size_t i = begin; i < end; ++i) {
        for (std::size_t byte = 0; byte < prefixSize; ++byte) {
            ++counts[byte][entries[i].prefix >> (8 * byte) & 0xFF];
        }
    }
    Entries *from = &entries;
    Entries *to = &scratch;
    for (std::size_t byte = 0; byte < prefixSize; ++byte) {
        const auto digit = [byte](const Entry &entry) { return entry.prefix >> (8 * byte) & 0xFF; };
        if (counts[byte][digit((*from)[begin])] == end - begin) {
            continue; // the same byte everywhere
        }
        std::array<std::size_t, 256> places{};
        std::size_t place = begin;
        for (std::size_t value = 0; value < 256; ++value) {
            places[value] = place;
            place += counts[byte][value];
        }
        for (std::size_t i = begin; i < end; ++i) {
            (*to)[places[digit((*from)[i])]++] = (*from)[i];
        }
        std::swap(from, to);
    }
    if (from != &entries) {
        std::copy(from->begin() + static_cast<std::ptrdiff_t>(begin), from->begin() + static_cast<std::ptrdiff_t>(end),
                  entries.begin() + static_cast<std::ptrdiff_t>(begin));
    }
}

/// Sorts the few entries of [begin, end) by their keys behind `depth`, stably.
void sortByComparing(Entries &entries, const Keys &keys, std::size_t begin, std::size_t end, std::size_t depth) {
    const auto precedes = [&keys, depth](const Entry &left, const Entry &right) {
        return keys[left.index].substr(depth) < keys[right.index].substr(depth);
    };
    const auto first = entries.begin() + static_cast<std::ptrdiff_t>(begin);
    const auto last = entries.begin() + static_cast<std::ptrdiff_t>(end);
    if (!std::is_sorted(first, last, precedes)) {
        std::stable_sort(first, last, precedes);
    }
}

/// Sorts all entries by their keys, ascending and stably.
void sortByKey(Entries &entries, const Keys &keys) {
    struct Range {
        std::size_t begin;
        std::size_t end;
        std::size_t depth; ///< All keys of the range are equal before it.
    };
    Entries scratch(entries.size());
    std::vector<Range> ranges{{0, entries.size(), 0}}; // a stack of our own: keys can be as long as a text
    while (!ranges.empty()) {
        const auto [begin, end, depth] = ranges.back();
        ranges.pop_back();
        constexpr std::size_t ahead = 16; // what is sorted in part lies anywhere in the text
        for (std::size_t i = begin; i < end; ++i) {
            if (depth > 0 && i + ahead < end) {
                __builtin_prefetch(keys[entries[i + ahead].index].data() + depth);
            }
            readPrefix(entries[i], keys, depth);
        }
        sortByPrefix(entries, scratch, begin, end);
        for (std::size_t group = begin; group < end;) {
            std::size_t groupEnd = group + 1;
            while (groupEnd < end && entries[groupEnd].prefix == entries[group].prefix) {
                ++groupEnd;
            }
            constexpr std::size_t worthDividing = 32;
            if (groupEnd - group > worthDividing) {
                // Keys that end within the prefix come first, the shorter before the longer: zeros stand for their
                // ends, and a real NUL looks the same.
                const auto first = entries.begin() + static_cast<std::ptrdiff_t>(group);
                const auto last = entries.begin() + static_cast<std::ptrdiff_t>(groupEnd);
                const auto bySize = [](const Entry &left, const Entry &right) {
                    return left.sizeBehind < right.sizeBehind;
                };
                if (!std::is_sorted(first, last, bySize)) {
                    std::stable_sort(first, last, bySize);
                }
                const auto longer =
                    std::find_if(first, last, [](const Entry &entry) { return entry.sizeBehind > prefixSize; });
                if (last - longer > 1) {
                    ranges.push_back(
                        {static_cast<std::size_t>(longer - entries.begin()), groupEnd, depth + prefixSize});
                }
            } else if (groupEnd - group > 1) {
                sortByComparing(entries, keys, group, groupEnd, depth);
            }
            group = groupEnd;
        }
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
    Keys keys = strings;
    Entries entries(strings.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (!isOrderedByBytes(keys[i])) {
            keys[i] = composedForms.emplace_back(composed(keys[i]));
        }
        entries[i].index = static_cast<std::uint32_t>(i);
    }
    // Reversed before and after, so that equal ones keep their order when the direction is reversed.
    if (direction == SortDirection::descending) {
        std::reverse(entries.begin(), entries.end());
    }
    sortByKey(entries, keys);
    if (direction == SortDirection::descending) {
        std::reverse(entries.begin(), entries.end());
    }
    const std::vector<std::string_view> unsorted = strings;
    std::transform(entries.begin(), entries.end(), strings.begin(),
                   [&unsorted](const Entry &entry) { return unsorted[entry.index]; });
}

} // namespace lexivore
