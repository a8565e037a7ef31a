// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/case_transformations.h"

#include "engine/primitives/case_mapping.h"
#include "engine/primitives/characters.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/words.h"

namespace lexivore {

namespace {

/// The words of the programmer cases: what stands between code points that are no letter, mark or number.
template<typename Visit> void forEachIdentifierWord(std::string_view text, Visit &&visit) {
    const char *const end = text.data() + text.size();
    const char *position = findMember(text.data(), end, alphanumerics);
    while (position != end) {
        const char *const wordEnd = findNonMember(position, end, alphanumerics);
        visit(std::string_view(position, static_cast<std::size_t>(wordEnd - position)));
        position = findMember(wordEnd, end, alphanumerics);
    }
}

TextBuffer joinLowercaseWords(std::string_view text, char joiner) {
    TextBuffer result = TextBuffer::withCapacity(text.size());
    forEachIdentifierWord(text, [&](std::string_view word) {
        if (!result.empty()) {
            result.append(joiner);
        }
        appendLowercase(result, word);
    });
    result.shrink();
    return result;
}

} // namespace

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
    TextBuffer result;
    appendCapitalized(result, text);
    result.shrink();
    return result;
}

TextBuffer SentenceCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    TextBuffer result = TextBuffer::withCapacity(text.size() + text.size() / 8);
    bool isFirst = true;
    forEachSentencePiece(text, [&](std::string_view piece) {
        if (!isFirst) {
            result.append(". ");
        }
        isFirst = false;
        const std::string_view sentence = trimmed(piece);
        if (!sentence.empty()) {
            const std::size_t firstEnd = characterEnd(sentence, 0);
            appendUppercase(result, sentence.substr(0, firstEnd));
            appendLowercase(result, sentence.substr(firstEnd), sentence);
        }
    });
    result.shrink();
    return result;
}

TextBuffer CamelCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    TextBuffer result = TextBuffer::withCapacity(text.size());
    bool hasWord = false;
    forEachIdentifierWord(text, [&](std::string_view word) {
        if (hasWord) {
            appendCapitalized(result, word);
        } else {
            appendLowercase(result, word);
        }
        hasWord = true;
    });
    if (!hasWord) {
        return TextBuffer(text); // unlike the three other programmer cases
    }
    result.shrink();
    return result;
}

TextBuffer PascalCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    TextBuffer result = TextBuffer::withCapacity(text.size());
    forEachIdentifierWord(text, [&](std::string_view word) { appendCapitalized(result, word); });
    result.shrink();
    return result;
}

TextBuffer SnakeCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    return joinLowercaseWords(text, '_');
}

TextBuffer KebabCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    return joinLowercaseWords(text, '-');
}

TextBuffer AlternatingCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    return alternateCase(text);
}

TextBuffer InvertCaseTransformation::apply(std::string_view text, const ParameterMap &) const {
    return invertCase(text);
}

} // namespace lexivore
