// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/add_remove_transformations.h"

#include "engine/parameters.h"
#include "engine/primitives/characters.h"
#include "engine/primitives/distinct_lines.h"
#include "engine/primitives/line_mapping.h"
#include "engine/primitives/replacement.h"
#include "engine/primitives/word_set.h"
#include "engine/primitives/wrapping.h"

namespace lexivore {

namespace {

/// Every line with `prefix` before and `suffix` behind it.
TextBuffer affixLines(std::string_view text, std::string_view prefix, std::string_view suffix) {
    // All of them end and begin alike, so what stands between two lines is always the same.
    std::string between(suffix);
    between += '\n';
    between += prefix;
    return joinLines(text, between, prefix, suffix);
}

/// Letters, numbers and whitespace, line breaks included.
constexpr CharacterFilter lettersNumbersAndSpaces{property::letter | property::number | property::whiteSpace};

} // namespace

std::vector<TransformationParameter> AddPrefixTransformation::parameters() const {
    return {{"prefix", "Prefix", "> ", "Enter prefix text..."}};
}

TextBuffer AddPrefixTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    const std::string_view prefix = requiredValue(parameters, "prefix");
    if (prefix.empty()) {
        return TextBuffer(text); // line breaks stay as they are, too
    }
    return affixLines(text, prefix, "");
}

std::vector<TransformationParameter> AddSuffixTransformation::parameters() const {
    return {{"suffix", "Suffix", ";", "Enter suffix text..."}};
}

TextBuffer AddSuffixTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    const std::string_view suffix = requiredValue(parameters, "suffix");
    if (suffix.empty()) {
        return TextBuffer(text);
    }
    return affixLines(text, "", suffix);
}

TextBuffer RemoveWhitespaceTransformation::apply(std::string_view text, const ParameterMap &) const {
    return joinPieces(text, whitespace, ' ');
}

TextBuffer RemoveAllSpacesTransformation::apply(std::string_view text, const ParameterMap &) const {
    return removeCharacters(text, kernels::AsciiSet(" "));
}

TextBuffer RemoveTabsTransformation::apply(std::string_view text, const ParameterMap &) const {
    return removeCharacters(text, kernels::AsciiSet("\t"));
}

TextBuffer RemoveEmptyLinesTransformation::apply(std::string_view text, const ParameterMap &) const {
    return filterLines(text, [](std::string_view line) { return !isBlank(line); });
}

TextBuffer RemoveLineBreaksTransformation::apply(std::string_view text, const ParameterMap &) const {
    return trimAndJoinLines(text, ' ');
}

TextBuffer RemoveDuplicateLinesTransformation::apply(std::string_view text, const ParameterMap &) const {
    return distinctLines(text);
}

TextBuffer RemoveDuplicateWordsTransformation::apply(std::string_view text, const ParameterMap &) const {
    TextBuffer result = TextBuffer::withCapacity(text.size() / 4); // most words were there before
    WordSet(text, WordSet::Counting::off).addWords([&](std::string_view word) {
        char *const to = result.room(word.size() + 1 + shortCopySlack);
        copyShortPart(word, text.data() + text.size(), to);
        to[word.size()] = ' ';
        result.commit(to + word.size() + 1);
        return true;
    });
    result.truncate(result.empty() ? 0 : result.size() - 1);
    result.shrink();
    return result;
}

// The next one and RemoveSpecialCharacters are one operation under two names and must stay equal.
TextBuffer DeleteNonAlphanumericTransformation::apply(std::string_view text, const ParameterMap &) const {
    return filterCharacters(text, lettersNumbersAndSpaces);
}

TextBuffer DeleteNumericCharactersTransformation::apply(std::string_view text, const ParameterMap &) const {
    return filterCharacters(text, {property::number, false});
}

TextBuffer KeepOnlyNumericTransformation::apply(std::string_view text, const ParameterMap &) const {
    return filterCharacters(text, {property::number | property::whiteSpace});
}

TextBuffer RemovePunctuationTransformation::apply(std::string_view text, const ParameterMap &) const {
    return filterCharacters(text, {property::punctuation, false});
}

TextBuffer RemoveSpecialCharactersTransformation::apply(std::string_view text, const ParameterMap &) const {
    return filterCharacters(text, lettersNumbersAndSpaces);
}

std::vector<TransformationParameter> WrapLinesTransformation::parameters() const {
    return {{"width", "Width", "80", "Characters per line..."}};
}

TextBuffer WrapLinesTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    const auto width = wholeNumberAtLeast(parameters, "width", 1, "Width must be a positive number");
    return wrapText(text, static_cast<std::size_t>(width));
}

} // namespace lexivore
