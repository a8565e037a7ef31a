// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/string_order.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/unicode_tables.h"
#include "engine/primitives/utf8.h"
#include "engine/primitives/words.h"

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

// A radix sort on the numbers that the beginnings of the strings are read as. By the first bits that differ the entries
// are distributed into ever smaller parts, by the bytes behind when a number is used up, and the last few of them are
// put in order all at once by numbers of more bytes.

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

/// The first code point from there on that may change in composing, or the end.
const char *findChangeable(const char *position, const char *end) {
    constexpr std::ptrdiff_t worthFiltering = 64; // a word is read through sooner
    if (end - position < worthFiltering) {
        return findMember(position, end, property::mayChangeInComposing);
    }
    while ((position = asciiRunEnd(position, end)) != end) {
        position += kernels::best().findFiltered(position, static_cast<std::size_t>(end - position),
                                                 unicode_tables::changeableFilters);
        if (position == end) {
            break;
        }
        const DecodedCodePoint decoded = decode(position, end);
        if (isIn(property::mayChangeInComposing, decoded.value)) {
            break;
        }
        position += decoded.length;
    }
    return position;
}

/// The first code point that begins there or behind and cannot change in composing, or the end.
const char *findUnchangeable(const char *position, const char *end) {
    while (position != end && isContinuationByte(*position)) {
        ++position;
    }
    return findNonMember(position, end, property::mayChangeInComposing);
}

/// More marks on one character, in bytes, are put in order before ICU sees them.
constexpr std::size_t fewMarks = 1024;

/// Whether no mark stands behind one that belongs behind it. What is composed has none.
bool areMarksInOrder(std::string_view text) {
    const icu::Normalizer2 *const nfc = normalizerFor(text);
    std::uint8_t before = 0;
    const char *const end = text.data() + text.size();
    for (const char *position = text.data(); nfc != nullptr && position != end;) {
        const DecodedCodePoint decoded = decode(position, end);
        const std::uint8_t combiningClass = nfc->getCombiningClass(static_cast<UChar32>(decoded.value));
        if (combiningClass != 0 && combiningClass < before) {
            return false;
        }
        before = combiningClass;
        position += decoded.length;
    }
    return true;
}

/// The text with the marks behind each character in their canonical order, which composing begins with. ICU moves each
/// one past all that belong behind it: of many thousands on one character that takes minutes.
std::string withMarksInOrder(std::string_view text, const icu::Normalizer2 &nfc) {
    struct Mark {
        std::uint8_t combiningClass;
        std::string_view bytes;
    };
    std::string result;
    result.reserve(text.size());
    std::vector<Mark> marks; // behind the last character that is none
    const char *const end = text.data() + text.size();
    for (const char *position = text.data(); position != end;) {
        const DecodedCodePoint decoded = decode(position, end);
        const std::string_view bytes(position, decoded.length);
        const std::uint8_t combiningClass = nfc.getCombiningClass(static_cast<UChar32>(decoded.value));
        if (combiningClass != 0) {
            marks.push_back({combiningClass, bytes});
        }
        position += decoded.length;
        if (combiningClass == 0 || position == end) {
            std::ranges::stable_sort(marks, {}, &Mark::combiningClass);
            for (const Mark &mark : marks) {
                result += mark.bytes;
            }
            marks.clear();
        }
        if (combiningClass == 0) {
            result += bytes;
        }
    }
    return result;
}

std::string composed(std::string_view text) {
    const icu::Normalizer2 *const nfc = normalizerFor(text);
    if (nfc == nullptr) {
        return std::string(text);
    }
    std::string ordered;
    if (text.size() > fewMarks) {
        ordered = withMarksInOrder(text, *nfc);
        text = ordered;
    }
    UErrorCode status = U_ZERO_ERROR;
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    nfc->normalizeUTF8(0, stringPiece(text), sink, nullptr, status);
    return U_SUCCESS(status) ? result : std::string(text);
}

using Entry = StringKeys::Entry;

/// The bits to sort `count` entries by first: the highest of those that are not the same in all keys, as many as leave
/// a few entries for each value. `differences` has a bit set for each that is not the same, and is not 0.
std::uint64_t firstBits(std::uint64_t differences, std::size_t count) {
    const int most = std::clamp(static_cast<int>(std::bit_width(count)) - 2, 4, kernels::mostDigitBits);
    std::uint64_t bits = 0;
    for (int i = 0; i < most && differences != 0; ++i) {
        const std::uint64_t highest = std::bit_floor(differences);
        bits |= highest;
        differences ^= highest;
    }
    return bits;
}

/// The bits that are not the same in all keys.
std::uint64_t differencesOf(std::span<const Entry> entries) {
    std::uint64_t differences = 0;
    for (const Entry &entry : entries) {
        differences |= entry.key ^ entries[0].key;
    }
    return differences;
}

/// Where the entries with each value of some bits end.
using Ends = std::array<std::uint32_t, std::size_t{1} << kernels::mostDigitBits>;

/// Sorts as many entries as fit the caches together with what they stand for.
class BlockSorter {
public:
    explicit BlockSorter(const StringKeys &keys) : m_keys(keys), m_isTextLarge(keys.textSize() >= largeText) {}

    /// `block` have the keys of `depth`, before which all strings are equal. `scratch` is as large.
    void sort(std::span<Entry> block, Entry *scratch, std::size_t depth) {
        m_block = block.data();
        m_scratch = scratch;
        if (!m_isTextLarge) {
            for (const Entry &entry : block) {
                m_keys.prefetchKeys(entry, depth);
            }
        }
        sortByKeys({0, block.size(), depth}, false);
        while (!m_ties.empty()) {
            const Range tie = m_ties.back();
            m_ties.pop_back();
            for (std::size_t i = tie.begin; i < tie.end; ++i) {
                m_block[i].key = m_keys.keyAt(m_block[i], tie.depth);
            }
            sortByKeys(tie, false);
        }
    }

private:
    /// Of a text that no near cache holds, in bytes: what is read of it is asked for shortly before then, that many
    /// entries ahead, for as many requests as a block has would wait for each other.
    static constexpr std::size_t largeText = std::size_t{1} << 21;
    static constexpr std::size_t ahead = 48;

    struct Range {
        std::size_t begin;
        std::size_t end;
        std::size_t depth; ///< Of the keys; before it the strings are equal.
    };

    /// Sorts the range, which lies in the block or in the scratch, into the block; but for strings with equal keys that
    /// go on, which become ties when they are many.
    void sortByKeys(const Range &range, bool isInScratch) {
        const std::span<Entry> entries((isInScratch ? m_scratch : m_block) + range.begin, range.end - range.begin);
        if (entries.size() <= kernels::mostRanked) {
            sortFew(entries, m_block + range.begin, range.depth);
            return;
        }
        const std::uint64_t differences = differencesOf(entries);
        if (differences == 0) {
            if (isInScratch) {
                std::copy(entries.begin(), entries.end(), m_block + range.begin);
            }
            if (m_keys.goesOn(entries[0].key)) {
                m_ties.push_back({range.begin, range.end, range.depth + StringKeys::bytesInKey});
            }
            return;
        }
        Entry *const other = (isInScratch ? m_block : m_scratch) + range.begin;
        Ends ends; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
        const std::size_t values = kernels::best().distribute(
            entries.data(), entries.size(), firstBits(differences, entries.size()), other, ends.data());
        std::size_t begin = 0;
        std::size_t prefetched = 0;
        for (std::size_t value = 0; value < values; ++value) {
            const std::size_t end = ends[value];
            if (m_isTextLarge) {
                for (const std::size_t last = std::min(end + ahead, entries.size()); prefetched < last; ++prefetched) {
                    m_keys.prefetchKeys(other[prefetched], range.depth);
                }
            }
            if (end - begin > 1) {
                sortByKeys({range.begin + begin, range.begin + end, range.depth}, !isInScratch);
            } else if (end != begin && !isInScratch) {
                m_block[range.begin + begin] = other[begin];
            }
            begin = end;
        }
    }

    /// Sorts at most as many entries as are ranked at once, into other memory or where they are.
    void sortFew(std::span<const Entry> entries, Entry *to, std::size_t depth) const {
        // NOLINTBEGIN(cppcoreguidelines-pro-type-member-init): what is read was written
        std::array<Entry, kernels::mostRanked> unsorted;
        kernels::LongKeys keys;
        alignas(kernels::blockSize) std::array<std::uint64_t, kernels::mostRanked> places;
        // NOLINTEND(cppcoreguidelines-pro-type-member-init)
        std::copy(entries.begin(), entries.end(), unsorted.begin());
        const std::size_t count = entries.size();
        depth += commonBytes(entries, depth);
        std::uint32_t goingOn = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const StringKeys::LongKey key = m_keys.longKeyAt(unsorted[i], depth);
            const bool goesOn = unsorted[i].size - depth > StringKeys::bytesInLongKey;
            goingOn |= std::uint32_t{goesOn} << i;
            keys.firsts[i] = key.first;
            keys.seconds[i] = key.second | i; // equal ones keep their order
        }
        const std::uint32_t tied = kernels::best().rankFew(keys, count, places.data());
        for (std::size_t i = 0; i < count; ++i) {
            to[places[i]] = unsorted[i];
        }
        if ((tied & goingOn) != 0) {
            sortSlowly({to, count}, depth);
        }
    }

    /// How many more bytes are surely equal in all strings, whose keys are of `depth`.
    [[nodiscard]] static std::size_t commonBytes(std::span<const Entry> entries, std::size_t depth) {
        std::size_t shortest = SIZE_MAX;
        for (const Entry &entry : entries) {
            shortest = std::min<std::size_t>(shortest, entry.size);
        }
        const auto equalBits = static_cast<std::size_t>(std::countl_zero(differencesOf(entries)));
        return std::min({equalBits / 8, StringKeys::bytesInKey, shortest - depth});
    }

    /// Sorts a few, comparing the strings from `depth` on as they are.
    void sortSlowly(std::span<Entry> entries, std::size_t depth) const {
        const auto behind = [&](const Entry &entry) { return m_keys.stringOf(entry).substr(depth); };
        for (std::size_t i = 1; i < entries.size(); ++i) {
            const Entry entry = entries[i];
            std::size_t place = i;
            for (; place > 0 && m_keys.precedes(behind(entry), behind(entries[place - 1])); --place) {
                entries[place] = entries[place - 1];
            }
            entries[place] = entry;
        }
    }

    const StringKeys &m_keys;
    bool m_isTextLarge;
    Entry *m_block = nullptr;
    Entry *m_scratch = nullptr;
    std::vector<Range> m_ties; ///< To be sorted by keys that they do not have yet.
};

} // namespace

bool isOrderedByBytes(std::string_view text) {
    // ICU decides about what lies around code points that may change. It is given ever more at once while these are
    // close together, for then it is faster than looking for each.
    constexpr std::size_t leastAtOnce = 64;
    constexpr std::size_t mostAtOnce = std::size_t{1} << 16;
    std::size_t atOnce = leastAtOnce;
    const char *const end = text.data() + text.size();
    for (const char *checkedEnd = text.data();;) {
        const char *const place = findChangeable(checkedEnd, end);
        if (place == end) {
            return true;
        }
        const bool isClose = static_cast<std::size_t>(place - checkedEnd) < leastAtOnce;
        atOnce = isClose ? std::min(2 * atOnce, mostAtOnce) : leastAtOnce;
        const bool isFirst = place == text.data(); // others may compose with the one before them
        const char *const begin = isFirst ? place : place - decodeBefore(text.data(), place).length;
        const char *const leastEnd = place + std::min(atOnce, static_cast<std::size_t>(end - place));
        checkedEnd = findUnchangeable(leastEnd, end);
        const std::string_view around(begin, static_cast<std::size_t>(checkedEnd - begin));
        const bool mayHaveManyMarks = static_cast<std::size_t>(checkedEnd - leastEnd) > fewMarks;
        if ((mayHaveManyMarks && !areMarksInOrder(around)) || !isComposed(around)) {
            return false;
        }
    }
}

StringSorter::StringSorter(std::string_view text, SortDirection direction, std::size_t mostParts,
                           bool areOrderedByBytes, std::size_t commonBytes)
    : m_keys(text, direction), m_entries(2 * mostParts), m_mostParts(mostParts), m_commonBytes(commonBytes),
      m_areOrderedByBytes(areOrderedByBytes) {}

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
    std::vector<Range> waiting{{0, m_size, m_commonBytes, 0}}; // the last one comes first
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
            std::size_t value = kernels::best().distribute(entries.data(), entries.size(),
                                                           firstBits(differences, entries.size()), other, ends.data());
            for (; value > 0; --value) {
                const std::size_t begin = value == 1 ? 0 : ends[value - 2];
                if (begin != ends[value - 1]) {
                    waiting.push_back({range.begin + begin, ends[value - 1] - begin, range.depth, 1 - range.array});
                }
            }
        }
    }
}

} // namespace lexivore
