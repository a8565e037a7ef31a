// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/string_order.h"

#include "engine/primitives/code_points.h"
#include "engine/primitives/utf8.h"

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <deque>
#include <string>

namespace lexivore {

namespace {

bool mayChangeInComposing(std::string_view text) {
    const char *position = text.data();
    const char *const end = position + text.size();
    while ((position = asciiRunEnd(position, end)) != end) {
        const DecodedCodePoint decoded = decode(position, end);
        if (isIn(property::mayChangeInComposing, decoded.value)) {
            return true;
        }
        position += decoded.length;
    }
    return false;
}

std::string composed(std::string_view text) {
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

/// A string and what decides its place. UTF-8 bytes order as their code points do, so that the first eight of them,
/// read as a number, decide most comparisons without a look at the text.
struct SortEntry {
    std::uint64_t prefix = 0;
    std::string_view key; ///< The composed form.
    std::string_view string;
};

std::uint64_t prefixOf(std::string_view key) {
    unsigned char bytes[8] = {};
    std::memcpy(bytes, key.data(), std::min(key.size(), sizeof bytes));
    std::uint64_t prefix = 0;
    for (const unsigned char byte : bytes) {
        prefix = prefix << 8 | byte;
    }
    return prefix;
}

bool precedes(const SortEntry &left, const SortEntry &right) {
    return left.prefix != right.prefix ? left.prefix < right.prefix : left.key < right.key;
}

} // namespace

void sortByStringOrder(std::vector<std::string_view> &strings, SortDirection direction) {
    std::deque<std::string> composedForms; // a deque, so that views of its strings stay valid
    std::vector<SortEntry> entries;
    entries.reserve(strings.size());
    for (const std::string_view string : strings) {
        std::string_view key = string;
        if (mayChangeInComposing(string)) {
            key = composedForms.emplace_back(composed(string));
        }
        entries.push_back({key.empty() ? 0 : prefixOf(key), key, string});
    }
    if (direction == SortDirection::ascending) {
        std::stable_sort(entries.begin(), entries.end(), precedes);
    } else {
        std::stable_sort(entries.begin(), entries.end(),
                         [](const SortEntry &left, const SortEntry &right) { return precedes(right, left); });
    }
    std::transform(entries.begin(), entries.end(), strings.begin(),
                   [](const SortEntry &entry) { return entry.string; });
}

} // namespace lexivore
