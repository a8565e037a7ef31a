// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/families.h"
#include "tests/reference/plain_text.h"

#include <unicode/normalizer2.h>

#include <algorithm>

namespace lexivore::reference {

namespace {

std::u32string composed(const std::u32string &text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2 *const nfc = icu::Normalizer2::getNFCInstance(status);
    const icu::UnicodeString result = nfc->normalize(toIcu(text), status);
    if (U_FAILURE(status)) {
        throw std::runtime_error(u_errorName(status));
    }
    return fromIcu(result);
}

Pieces sorted(const Pieces &strings, bool isAscending) {
    struct Entry {
        std::u32string key;
        std::u32string string;
    };
    std::vector<Entry> entries;
    for (const std::u32string &string : strings) {
        entries.push_back({composed(string), string});
    }
    std::stable_sort(entries.begin(), entries.end(), [&](const Entry &left, const Entry &right) {
        return isAscending ? left.key < right.key : left.key > right.key;
    });
    Pieces result;
    for (const Entry &entry : entries) {
        result.push_back(entry.string);
    }
    return result;
}

std::u32string sortLines(std::u32string_view text, const Parameters &) {
    return join(sorted(lines(text), true), U"\n");
}

std::u32string sortLinesReverse(std::u32string_view text, const Parameters &) {
    return join(sorted(lines(text), false), U"\n");
}

std::u32string sortLinesByLength(std::u32string_view text, const Parameters &) {
    Pieces all = lines(text);
    std::stable_sort(all.begin(), all.end(), [](const std::u32string &left, const std::u32string &right) {
        return length(left) < length(right);
    });
    return join(all, U"\n");
}

std::u32string sortWords(std::u32string_view text, const Parameters &) {
    return join(sorted(withoutEmpty(split(text, isWhitespaceOrNewline)), true), U" ");
}

std::u32string reverseWords(std::u32string_view text, const Parameters &) {
    Pieces result;
    for (const std::u32string &line : lines(text)) {
        Pieces words = withoutEmpty(split(line, isWhitespace));
        std::reverse(words.begin(), words.end());
        result.push_back(join(words, U" "));
    }
    return join(result, U"\n");
}

} // namespace

std::vector<Row> sortingRows() {
    return {
        {"sort-lines", sortLines}, {"sort-lines-reverse", sortLinesReverse}, {"sort-lines-length", sortLinesByLength},
        {"sort-words", sortWords}, {"reverse-words-in-line", reverseWords},
    };
}

} // namespace lexivore::reference
