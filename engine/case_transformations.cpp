// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/case_transformations.h"

#include "engine/primitives/case_mapping.h"
#include "engine/primitives/sentence_case.h"
#include "engine/primitives/word_case.h"

#include <utility>

namespace lexivore {

TextBuffer UppercaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    TextBuffer result;
    appendUppercase(result, text);
    result.shrink();
    return result;
}

TextBuffer LowercaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    TextBuffer result;
    appendLowercase(result, text);
    result.shrink();
    return result;
}

TextBuffer TitleCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    return capitalizeWords(text);
}

TextBuffer SentenceCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    return capitalizeSentences(text);
}

TextBuffer CamelCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    TextBuffer result = joinIdentifierWords(text, {.lowersFirstWord = true, .capitalizesWords = true});
    return result.empty() ? TextBuffer(text) : std::move(result); // only this one keeps a text without words
}

TextBuffer PascalCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    return joinIdentifierWords(text, {.lowersFirstWord = false, .capitalizesWords = true});
}

TextBuffer SnakeCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    return joinIdentifierWords(text, {.joiner = '_'});
}

TextBuffer KebabCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    return joinIdentifierWords(text, {.joiner = '-'});
}

TextBuffer AlternatingCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    return alternateCase(text);
}

TextBuffer InvertCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    return invertCase(text);
}

} // namespace lexivore
