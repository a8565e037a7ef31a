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
#include <limits>
#include <string>
#include <utility>
#include <vector>

// A radix sort on the numbers that the beginnings of the strings are read as; strings whose numbers are equal are then
// sorted by the bytes behind those. From the first bits on that differ the entries are distributed into ever smaller
// parts, and the last few of them are put in order all at once.

namespace lexivore {

namespace {

/// ICU's normaliser, or null, which it is only for want of memory or data: then the text's own order is the best there
/// is. So it is for a single string of more bytes than ICU counts.
const icu::Normalizer2 *normalizerFor(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2 *const nfc = icu::Normalizer2::getNFCInstance(status);
    const bool isTooLarge = text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
    return U_SUCCESS(status) && !isTooLarge ? nfc : nullptr;
}

icu::StringPiece stringPiece(std::string_view text) { return {text.data(), static_cast<std::int32_t>(text.size())}; }

bool isComposed(std::string_view text) {
    const icu::Normalizer2 *const nfc = normalizerFor(text);
    UErrorCode status = U_ZERO_ERROR;
    return nfc != nullptr && nfc->isNormalizedUTF8(stringPiece(text), status) != 0 && U_SUCCESS(status);
}

std::string composed(std::string_view text) {
    const icu::Normalizer2 *const nfc = normalizerFor(text);
    if (nfc == nullptr) {
        return std::string(text);
    }
    UErrorCode status = U_ZERO_ERROR;
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    nfc->normalizeUTF8(0, stringPiece(text), sink, nullptr, status);
    return U_SUCCESS(status) ? result : std::string(text);
}

using Entry = StringKeys::Entry;

/// Some bits of a key.
struct Digit {
    static constexpr int mostBits = 10;

    int shift;
    std::uint64_t mask;

    [[nodiscard]] std::size_t of(const Entry &entry) const { return entry.key >> shift & mask; }
};

/// The bits to sort `count` entries by first: from the first bit on that is not the same in all keys, as many as leave
/// a few entries for each value. `differences` has a bit set for each that is not the same, and is not 0.
Digit firstDigit(std::uint64_t differences, std::size_t count) {
    const int bits = std::clamp(static_cast<int>(std::bit_width(count)) - 3, 4, Digit::mostBits);
    return {std::max(0, static_cast<int>(std::bit_width(differences)) - bits), (std::uint64_t{1} << bits) - 1};
}

/// The bits that are not the same in all keys.
std::uint64_t differencesOf(std::span<const Entry> entries) {
    std::uint64_t differences = 0;
    for (const Entry &entry : entries) {
        differences |= entry.key ^ entries[0].key;
    }
    return differences;
}

/// Where the entries with each value of a digit end.
using Ends = std::array<std::uint32_t, std::size_t{1} << Digit::mostBits>;

/// Sorts `entries` into `to` by the digit, stably.
void distribute(std::span<const Entry> entries, Digit digit, Entry *to, Ends &ends) {
    std::fill_n(ends.begin(), digit.mask + 1, 0U);
    for (const Entry &entry : entries) {
        ++ends[digit.of(entry)];
    }
    std::uint32_t place = 0;
    for (std::size_t value = 0; value <= digit.mask; ++value) {
        place += std::exchange(ends[value], place);
    }
    for (const Entry &entry : entries) {
        to[ends[digit.of(entry)]++] = entry;
    }
}

/// Sorts `entries` by their keys, stably; into `scratch`, which is as large, or where they are.
void sortByKey(std::span<Entry> entries, Entry *scratch, bool intoScratch, std::uint64_t differences) {
    if (entries.size() <= kernels::mostSortedAtOnce) {
        kernels::best().sortFew(entries.data(), entries.size(), intoScratch ? scratch : entries.data());
        return;
    }
    if (differences == 0) {
        if (intoScratch) {
            std::copy(entries.begin(), entries.end(), scratch);
        }
        return;
    }
    const Digit digit = firstDigit(differences, entries.size());
    Ends ends; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
    distribute(entries, digit, scratch, ends);
    std::size_t begin = 0;
    for (std::size_t value = 0; value <= digit.mask; ++value) {
        const std::span<Entry> same(scratch + begin, ends[value] - begin);
        if (digit.shift > 0 && same.size() > 1) {
            sortByKey(same, entries.data() + begin, !intoScratch, differencesOf(same));
        } else if (!intoScratch) {
            std::copy(same.begin(), same.end(), entries.begin() + static_cast<std::ptrdiff_t>(begin));
        }
        begin = ends[value];
    }
}

/// Sorts as many entries as fit the caches together with what they stand for.
class BlockSorter {
public:
    explicit BlockSorter(const StringKeys &keys) : m_keys(keys) {}

    /// `entries` have the keys of `depth`, before which all strings are equal. `scratch` is as large.
    void sort(std::span<Entry> entries, Entry *scratch, std::size_t depth) {
        sortByKey(entries, scratch, false, differencesOf(entries));
        m_ties.clear();
        findTies(entries, 0, entries.size(), depth, m_ties);
        while (!m_ties.empty()) {
            depth += StringKeys::bytesInKey;
            m_deeperTies.clear();
            for (const Range tie : m_ties) {
                const std::span<Entry> tied = entries.subspan(tie.begin, tie.end - tie.begin);
                if (tied.size() == 2) {
                    sortPair(tied, depth);
                    continue;
                }
                for (Entry &entry : tied) {
                    entry.key = m_keys.keyAt(entry, depth);
                }
                if (const std::uint64_t differences = differencesOf(tied); differences != 0) {
                    sortByKey(tied, scratch + tie.begin, false, differences);
                }
                findTies(entries, tie.begin, tie.end, depth, m_deeperTies);
            }
            std::swap(m_ties, m_deeperTies);
        }
    }

private:
    struct Range {
        std::size_t begin;
        std::size_t end;
    };

    /// Adds the ranges of [begin, end) whose keys of `depth` are equal and do not tell all.
    void findTies(std::span<const Entry> entries, std::size_t begin, std::size_t end, std::size_t depth,
                  std::vector<Range> &ties) const {
        while (begin != end) {
            const std::uint64_t key = entries[begin].key;
            std::size_t tieEnd = begin + 1;
            while (tieEnd != end && entries[tieEnd].key == key) {
                ++tieEnd;
            }
            if (tieEnd - begin > 1 && m_keys.goesOn(key)) {
                for (std::size_t i = begin; i < tieEnd; ++i) {
                    m_keys.prefetch(entries[i], depth + StringKeys::bytesInKey);
                }
                ties.push_back({begin, tieEnd});
            }
            begin = tieEnd;
        }
    }

    /// Two strings are compared as they are, which ends it at once.
    void sortPair(std::span<Entry> pair, std::size_t depth) const {
        const auto behind = [&](const Entry &entry) { return m_keys.stringOf(entry).substr(depth); };
        if (m_keys.precedes(behind(pair[1]), behind(pair[0]))) {
            std::swap(pair[0], pair[1]);
        }
    }

    const StringKeys &m_keys;
    std::vector<Range> m_ties; ///< In order.
    std::vector<Range> m_deeperTies;
};

} // namespace

bool isOrderedByBytes(std::string_view text) {
    const char *position = text.data();
    const char *const end = position + text.size();
    while ((position = asciiRunEnd(position, end)) != end) {
        const DecodedCodePoint decoded = decode(position, end);
        if (isIn(property::mayChangeInComposing, decoded.value)) {
            const bool isFirst = position == text.data(); // it may compose with the one before it
            const std::size_t before = isFirst ? 0 : decodeBefore(text.data(), position).length;
            return isComposed({position - before, static_cast<std::size_t>(end - position) + before});
        }
        position += decoded.length;
    }
    return true;
}

StringSorter::StringSorter(std::string_view text, SortDirection direction, std::size_t mostParts)
    : m_keys(text, direction), m_entries(2 * mostParts), m_mostParts(mostParts),
      m_areOrderedByBytes(isOrderedByBytes(text)) {}

StringSorter::Entry StringSorter::composedEntryOf(std::string_view part) {
    return m_keys.entryOf(part, composed(part));
}

void StringSorter::sort(const std::function<void(std::span<const Entry>)> &visit) {
    constexpr std::size_t entriesInBlock = 4096;
    const std::array<Entry *, 2> arrays = {m_entries.data(), m_entries.data() + m_size};
    struct Range {
        std::size_t begin;
        std::size_t size;
        std::size_t depth; ///< Before which the strings are equal.
        std::size_t array; ///< The one that they are in.
    };
    std::vector<Range> waiting{{0, m_size, 0, 0}}; // the last one comes first
    BlockSorter blockSorter(m_keys);
    Ends ends; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
    while (!waiting.empty()) {
        const Range range = waiting.back();
        waiting.pop_back();
        const std::span<Entry> entries(arrays[range.array] + range.begin, range.size);
        Entry *const other = arrays[1 - range.array] + range.begin;
        if (entries.size() <= entriesInBlock) {
            blockSorter.sort(entries, other, range.depth);
            visit(entries);
            continue;
        }
        const std::uint64_t differences = differencesOf(entries);
        if (differences == 0 && !m_keys.goesOn(entries[0].key)) {
            visit(entries);
        } else if (differences == 0) {
            const std::size_t depth = range.depth + StringKeys::bytesInKey;
            for (Entry &entry : entries) {
                entry.key = m_keys.keyAt(entry, depth);
            }
            waiting.push_back({range.begin, range.size, depth, range.array});
        } else {
            const Digit digit = firstDigit(differences, entries.size());
            distribute(entries, digit, other, ends);
            for (std::size_t value = digit.mask + 1; value > 0; --value) {
                const std::size_t begin = value == 1 ? 0 : ends[value - 2];
                if (begin != ends[value - 1]) {
                    waiting.push_back({range.begin + begin, ends[value - 1] - begin, range.depth, 1 - range.array});
                }
            }
        }
    }
}

} // namespace lexivore
