// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/families.h"
#include "tests/reference/plain_text.h"

#include <unicode/regex.h>

#include <algorithm>

namespace lexivore::reference {

namespace {

std::u32string replaceText(std::u32string_view text, const Parameters &parameters) {
    const std::u32string find = required(parameters, "find");
    return replaceAll(text, find, value(parameters, "replace").value_or(U""));
}

void requireNoRegexError(UErrorCode status) {
    if (U_FAILURE(status)) {
        throw Failure(std::string("Invalid input: Invalid regular expression: ") + u_errorName(status));
    }
}

/// In ICU's unit of about a millisecond: generated patterns that need longer are of no interest.
constexpr std::int32_t timeLimit = 50;

std::u32string group(icu::RegexMatcher &matcher, std::int32_t number) {
    if (number > matcher.groupCount()) {
        return {};
    }
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString matched = matcher.group(number, status); // empty when the group took no part
    requireNoRegexError(status);
    return fromIcu(matched);
}

std::u32string expanded(std::u32string_view replacementTemplate, icu::RegexMatcher &matcher) {
    const auto isDigit = [](char32_t codePoint) { return codePoint >= U'0' && codePoint <= U'9'; };
    std::u32string result;
    for (std::size_t index = 0; index < replacementTemplate.size(); ++index) {
        const char32_t codePoint = replacementTemplate[index];
        const bool hasNext = index + 1 < replacementTemplate.size();
        if (codePoint == U'\\') {
            if (hasNext) {
                ++index;
                result += replacementTemplate[index];
            }
        } else if (codePoint == U'$' && hasNext && isDigit(replacementTemplate[index + 1])) {
            ++index;
            result += group(matcher, static_cast<std::int32_t>(replacementTemplate[index] - U'0'));
        } else {
            result += codePoint;
        }
    }
    return result;
}

std::u32string replaceRegex(std::u32string_view text, const Parameters &parameters) {
    const std::u32string pattern = requiredNotEmpty(parameters, "pattern");
    const std::u32string replacementTemplate = value(parameters, "replace").value_or(U"");
    const icu::UnicodeString units = toIcu(text);

    UErrorCode status = U_ZERO_ERROR;
    icu::RegexMatcher matcher(toIcu(pattern), units, 0, status);
    requireNoRegexError(status);
    matcher.setTimeLimit(timeLimit, status);

    icu::UnicodeString result;
    std::int32_t copiedUpTo = 0;
    while (matcher.find(status)) {
        const std::int32_t begin = matcher.start(status);
        const std::int32_t end = matcher.end(status);
        requireNoRegexError(status);
        result.append(units, copiedUpTo, begin - copiedUpTo);
        result.append(toIcu(expanded(replacementTemplate, matcher)));
        copiedUpTo = end;
    }
    requireNoRegexError(status);
    result.append(units, copiedUpTo, units.length() - copiedUpTo);
    return fromIcu(result);
}

std::u32string reverseText(std::u32string_view text, const Parameters &) {
    Pieces all = characters(text);
    std::reverse(all.begin(), all.end());
    return join(all, U"");
}

} // namespace

std::vector<Row> findReplaceRows() {
    return {
        {"replace-text", replaceText},
        {"replace-regex", replaceRegex},
        {"reverse", reverseText},
    };
}

} // namespace lexivore::reference
