// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/families.h"
#include "tests/reference/plain_text.h"

#include <set>

namespace lexivore::reference {

namespace {

std::u32string addPrefix(std::u32string_view text, const Parameters &parameters) {
    const std::u32string prefix = required(parameters, "prefix");
    if (prefix.empty()) {
        return std::u32string(text);
    }
    Pieces result;
    for (const std::u32string &line : lines(text)) {
        result.push_back(prefix + line);
    }
    return join(result, U"\n");
}

std::u32string addSuffix(std::u32string_view text, const Parameters &parameters) {
    const std::u32string suffix = required(parameters, "suffix");
    if (suffix.empty()) {
        return std::u32string(text);
    }
    Pieces result;
    for (const std::u32string &line : lines(text)) {
        result.push_back(line + suffix);
    }
    return join(result, U"\n");
}

std::u32string removeExtraWhitespace(std::u32string_view text, const Parameters &) {
    return join(withoutEmpty(split(text, isWhitespace)), U" ");
}

std::u32string removeAllSpaces(std::u32string_view text, const Parameters &) { return replaceAll(text, U" ", U""); }
std::u32string removeTabs(std::u32string_view text, const Parameters &) { return replaceAll(text, U"\t", U""); }

std::u32string removeEmptyLines(std::u32string_view text, const Parameters &) {
    Pieces kept;
    for (const std::u32string &line : lines(text)) {
        if (!trimmed(line).empty()) {
            kept.push_back(line);
        }
    }
    return join(kept, U"\n");
}

std::u32string removeLineBreaks(std::u32string_view text, const Parameters &) { return trimAndJoin(text, U" "); }

Pieces firstOccurrences(const Pieces &pieces) {
    Pieces kept;
    std::set<std::u32string> seen;
    for (const std::u32string &piece : pieces) {
        if (seen.insert(piece).second) {
            kept.push_back(piece);
        }
    }
    return kept;
}

std::u32string removeDuplicateLines(std::u32string_view text, const Parameters &) {
    return join(firstOccurrences(lines(text)), U"\n");
}

std::u32string removeDuplicateWords(std::u32string_view text, const Parameters &) {
    return join(firstOccurrences(withoutEmpty(split(text, isWhitespaceOrNewline))), U" ");
}

std::u32string filtered(std::u32string_view text, const CodePointTest &isKept) {
    std::u32string result;
    for (const std::u32string &character : characters(text)) {
        if (isKept(character.front())) {
            result += character;
        }
    }
    return result;
}

bool isLetterNumberOrSpace(char32_t codePoint) {
    return isLetter(codePoint) || isNumber(codePoint) || isWhitespaceCharacter(codePoint);
}

std::u32string deleteNonAlphanumeric(std::u32string_view text, const Parameters &) {
    return filtered(text, isLetterNumberOrSpace);
}

std::u32string removeSpecialCharacters(std::u32string_view text, const Parameters &) {
    return filtered(text, isLetterNumberOrSpace);
}

std::u32string deleteNumeric(std::u32string_view text, const Parameters &) {
    return filtered(text, [](char32_t codePoint) { return !isNumber(codePoint); });
}

std::u32string keepOnlyNumeric(std::u32string_view text, const Parameters &) {
    return filtered(text, [](char32_t codePoint) { return isNumber(codePoint) || isWhitespaceCharacter(codePoint); });
}

std::u32string removePunctuation(std::u32string_view text, const Parameters &) {
    return filtered(text, [](char32_t codePoint) { return !isPunctuation(codePoint); });
}

} // namespace

std::u32string trimAndJoin(std::u32string_view text, std::u32string_view separator) {
    Pieces result;
    for (const std::u32string &line : lines(text)) {
        result.push_back(trimmed(line));
    }
    return join(result, separator);
}

std::vector<Row> addRemoveRows() {
    return {
        {"add-prefix", addPrefix},
        {"add-suffix", addSuffix},
        {"remove-whitespace", removeExtraWhitespace},
        {"remove-all-spaces", removeAllSpaces},
        {"remove-tabs", removeTabs},
        {"remove-empty-lines", removeEmptyLines},
        {"remove-line-breaks", removeLineBreaks},
        {"remove-duplicates", removeDuplicateLines},
        {"remove-duplicate-words", removeDuplicateWords},
        {"delete-non-alphanumeric", deleteNonAlphanumeric},
        {"delete-numeric", deleteNumeric},
        {"keep-only-numeric", keepOnlyNumeric},
        {"remove-punctuation", removePunctuation},
        {"remove-special-chars", removeSpecialCharacters},
        {"wrap-lines", wrapLines},
    };
}

} // namespace lexivore::reference
