// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/families.h"
#include "tests/reference/plain_text.h"

namespace lexivore::reference {

namespace {

Pieces words(std::u32string_view text) {
    return withoutEmpty(split(text, [](char32_t codePoint) { return !isAlphanumeric(codePoint); }));
}

std::u32string uppercase(std::u32string_view text, const Parameters &) { return upper(text); }
std::u32string lowercase(std::u32string_view text, const Parameters &) { return lower(text); }
std::u32string titleCase(std::u32string_view text, const Parameters &) { return capitalized(text); }

std::u32string sentence(std::u32string_view piece) {
    const std::u32string core = trimmed(piece);
    if (core.empty()) {
        return {};
    }
    const std::u32string first = characters(core).front();
    return upper(first) + lowerFrom(core, first.size());
}

std::u32string sentenceCase(std::u32string_view text, const Parameters &) {
    Pieces sentences;
    for (const std::u32string &piece : split(text, isSentenceEnd)) {
        sentences.push_back(sentence(piece));
    }
    return join(sentences, U". ");
}

std::u32string camelCase(std::u32string_view text, const Parameters &) {
    const Pieces all = words(text);
    if (all.empty()) {
        return std::u32string(text);
    }
    std::u32string result = lower(all.front());
    for (std::size_t index = 1; index < all.size(); ++index) {
        result += capitalizedWord(all[index]);
    }
    return result;
}

std::u32string pascalCase(std::u32string_view text, const Parameters &) {
    std::u32string result;
    for (const std::u32string &word : words(text)) {
        result += capitalizedWord(word);
    }
    return result;
}

std::u32string lowerWordsJoined(std::u32string_view text, std::u32string_view separator) {
    Pieces lowered;
    for (const std::u32string &word : words(text)) {
        lowered.push_back(lower(word));
    }
    return join(lowered, separator);
}

std::u32string snakeCase(std::u32string_view text, const Parameters &) { return lowerWordsJoined(text, U"_"); }
std::u32string kebabCase(std::u32string_view text, const Parameters &) { return lowerWordsJoined(text, U"-"); }

std::u32string alternatingCase(std::u32string_view text, const Parameters &) {
    std::u32string result;
    bool isUpperTurn = true;
    for (const std::u32string &character : characters(text)) {
        if (isLetter(character.front())) {
            result += isUpperTurn ? upper(character) : lower(character);
            isUpperTurn = !isUpperTurn;
        } else {
            result += character;
        }
    }
    return result;
}

std::u32string invertCase(std::u32string_view text, const Parameters &) {
    std::u32string result;
    for (const std::u32string &character : characters(text)) {
        const std::u32string uppercased = upper(character);
        const std::u32string lowercased = lower(character);
        const bool isUpper = character == uppercased && character != lowercased;
        const bool isLower = character == lowercased && character != uppercased;
        result += isUpper ? lowercased : isLower ? uppercased : character;
    }
    return result;
}

} // namespace

std::vector<Row> caseRows() {
    return {
        {"uppercase", uppercase},       {"lowercase", lowercase}, {"titlecase", titleCase},
        {"sentencecase", sentenceCase}, {"camelcase", camelCase}, {"pascalcase", pascalCase},
        {"snakecase", snakeCase},       {"kebabcase", kebabCase}, {"alternatingcase", alternatingCase},
        {"invertcase", invertCase},
    };
}

} // namespace lexivore::reference
