// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/regex_set.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <cstdint>
#include <new>
#include <utility>

namespace lexivore {

struct RegexSet::Pattern {
    std::unique_ptr<icu::RegexPattern> compiled;
};

RegexSet::RegexSet(std::unique_ptr<const Pattern> pattern) : m_pattern(std::move(pattern)) {}

RegexSet::~RegexSet() = default;

std::shared_ptr<const RegexSet> RegexSet::make(std::string_view source) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::StringPiece bytes(source.data(), static_cast<std::int32_t>(source.size()));
    std::unique_ptr<icu::RegexPattern> compiled(
        icu::RegexPattern::compile(icu::UnicodeString::fromUTF8(bytes), 0, status));
    if (U_FAILURE(status)) {
        return nullptr;
    }
    auto pattern = std::make_unique<const Pattern>(Pattern{std::move(compiled)});
    return std::shared_ptr<const RegexSet>(new RegexSet(std::move(pattern)));
}

const RegexSet::Page &RegexSet::fill(std::size_t index) const {
    const auto first = static_cast<UChar32>(index * pageSize);
    icu::UnicodeString characters;
    for (UChar32 codePoint = first; codePoint < first + static_cast<UChar32>(pageSize); ++codePoint) {
        characters.append(codePoint);
    }
    const std::int32_t unitsOfEach = characters.length() / static_cast<std::int32_t>(pageSize);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::RegexMatcher> matcher(m_pattern->compiled->matcher(characters, status));
    auto page = std::make_unique<Page>();
    while (U_SUCCESS(status) && matcher->find(status) != 0) {
        page->set(static_cast<std::size_t>(matcher->start(status) / unitsOfEach));
    }
    if (U_FAILURE(status)) { // one character always has a match or not, unless there is no memory left
        throw std::bad_alloc();
    }
    m_pages[index] = std::move(page);
    return *m_pages[index];
}

} // namespace lexivore
