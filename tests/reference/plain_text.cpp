// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/plain_text.h"

#include <unicode/brkiter.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>

#include <memory>
#include <stdexcept>

namespace lexivore::reference {

namespace {

void require(UErrorCode status) {
    if (U_FAILURE(status)) {
        throw std::runtime_error(u_errorName(status));
    }
}

bool hasCategory(char32_t codePoint, std::uint32_t categories) {
    return (U_MASK(u_charType(static_cast<UChar32>(codePoint))) & categories) != 0;
}

/// The number of bytes of the well-formed sequence that begins at `position`, or 0.
std::size_t sequenceLength(std::string_view bytes, std::size_t position) {
    const auto byte = [&](std::size_t offset) -> unsigned {
        return position + offset < bytes.size() ? static_cast<unsigned char>(bytes[position + offset]) : 0U;
    };
    const auto continues = [&](std::size_t offset) { return byte(offset) >= 0x80 && byte(offset) <= 0xBF; };
    const unsigned first = byte(0);
    const unsigned second = byte(1);
    if (first <= 0x7F) {
        return 1;
    }
    if (first >= 0xC2 && first <= 0xDF) {
        return continues(1) ? 2 : 0;
    }
    if (first >= 0xE0 && first <= 0xEF) {
        const bool overlong = first == 0xE0 && second < 0xA0;
        const bool surrogate = first == 0xED && second > 0x9F;
        return continues(1) && continues(2) && !overlong && !surrogate ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const bool overlong = first == 0xF0 && second < 0x90;
        const bool tooLarge = first == 0xF4 && second > 0x8F;
        return continues(1) && continues(2) && continues(3) && !overlong && !tooLarge ? 4 : 0;
    }
    return 0;
}

} // namespace

bool isUtf8(std::string_view bytes) {
    for (std::size_t position = 0; position < bytes.size();) {
        const std::size_t length = sequenceLength(bytes, position);
        if (length == 0) {
            return false;
        }
        position += length;
    }
    return true;
}

std::u32string codePoints(std::string_view utf8) {
    if (!isUtf8(utf8)) {
        throw std::invalid_argument("The reference works on well-formed UTF-8 only");
    }
    return fromIcu(icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<std::int32_t>(utf8.size()))));
}

std::string utf8(std::u32string_view text) {
    std::string bytes;
    toIcu(text).toUTF8String(bytes);
    return bytes;
}

icu::UnicodeString toIcu(std::u32string_view text) {
    icu::UnicodeString result;
    for (const char32_t codePoint : text) {
        result.append(static_cast<UChar32>(codePoint));
    }
    return result;
}

std::u32string fromIcu(const icu::UnicodeString &text) {
    std::u32string result;
    for (std::int32_t position = 0; position < text.length(); position = text.moveIndex32(position, 1)) {
        result.push_back(static_cast<char32_t>(text.char32At(position)));
    }
    return result;
}

bool isLetter(char32_t codePoint) { return hasCategory(codePoint, U_GC_L_MASK); }
bool isMark(char32_t codePoint) { return hasCategory(codePoint, U_GC_M_MASK); }
bool isNumber(char32_t codePoint) { return hasCategory(codePoint, U_GC_N_MASK); }
bool isPunctuation(char32_t codePoint) { return hasCategory(codePoint, U_GC_P_MASK); }

bool isWhitespaceCharacter(char32_t codePoint) {
    return u_hasBinaryProperty(static_cast<UChar32>(codePoint), UCHAR_WHITE_SPACE) != 0;
}

bool isNewline(char32_t codePoint) {
    return codePoint == U'\u000A' || codePoint == U'\u000B' || codePoint == U'\u000C' || codePoint == U'\u000D' ||
           codePoint == char32_t{0x85} || codePoint == U'\u2028' || codePoint == U'\u2029';
}

bool isWhitespace(char32_t codePoint) { return codePoint == U'\t' || hasCategory(codePoint, U_GC_ZS_MASK); }
bool isWhitespaceOrNewline(char32_t codePoint) { return isWhitespace(codePoint) || isNewline(codePoint); }
bool isAlphanumeric(char32_t codePoint) { return isLetter(codePoint) || isMark(codePoint) || isNumber(codePoint); }
bool isSentenceEnd(char32_t codePoint) { return codePoint == U'.' || codePoint == U'!' || codePoint == U'?'; }

Pieces characters(std::u32string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> boundaries(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    require(status);
    const icu::UnicodeString units = toIcu(text);
    boundaries->setText(units);
    Pieces result;
    std::int32_t begin = boundaries->first();
    for (std::int32_t end = boundaries->next(); end != icu::BreakIterator::DONE; end = boundaries->next()) {
        result.push_back(fromIcu(units.tempSubStringBetween(begin, end)));
        begin = end;
    }
    return result;
}

std::size_t length(std::u32string_view text) { return characters(text).size(); }

Pieces split(std::u32string_view text, const CodePointTest &isSeparator) {
    Pieces result(1);
    for (const char32_t codePoint : text) {
        if (isSeparator(codePoint)) {
            result.emplace_back();
        } else {
            result.back().push_back(codePoint);
        }
    }
    return result;
}

Pieces lines(std::u32string_view text) { return split(text, isNewline); }

Pieces withoutEmpty(const Pieces &pieces) {
    Pieces result;
    for (const std::u32string &piece : pieces) {
        if (!piece.empty()) {
            result.push_back(piece);
        }
    }
    return result;
}

std::u32string join(const Pieces &pieces, std::u32string_view separator) {
    std::u32string result;
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        if (index > 0) {
            result += separator;
        }
        result += pieces[index];
    }
    return result;
}

std::u32string trimmed(std::u32string_view text) {
    while (!text.empty() && isWhitespace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isWhitespace(text.back())) {
        text.remove_suffix(1);
    }
    return std::u32string(text);
}

std::u32string replaceAll(std::u32string_view text, std::u32string_view find, std::u32string_view replacement) {
    if (find.empty()) {
        return std::u32string(text);
    }
    std::u32string result;
    for (std::size_t position = 0; position < text.size();) {
        if (text.substr(position, find.size()) == find) {
            result += replacement;
            position += find.size();
        } else {
            result += text[position];
            ++position;
        }
    }
    return result;
}

std::u32string upper(std::u32string_view text) { return fromIcu(toIcu(text).toUpper(icu::Locale::getRoot())); }
std::u32string lower(std::u32string_view text) { return fromIcu(toIcu(text).toLower(icu::Locale::getRoot())); }

std::u32string titleOfLetter(char32_t letter) {
    const icu::UnicodeString source(static_cast<UChar32>(letter));
    char16_t result[16];
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t size =
        icu::CaseMap::toTitle("", U_TITLECASE_WHOLE_STRING | U_TITLECASE_NO_BREAK_ADJUSTMENT, nullptr,
                              source.getBuffer(), source.length(), result, 16, nullptr, status);
    require(status);
    return fromIcu(icu::UnicodeString(result, size));
}

std::u32string lowerFrom(std::u32string_view text, std::size_t begin) {
    // The root locale's only mapping that depends on its surroundings is that of the capital sigma, and both its forms
    // are one code point long: what precedes has the same length whatever follows it.
    return lower(text).substr(lower(text.substr(0, begin)).size());
}

std::u32string capitalizedWord(std::u32string_view word) {
    std::size_t first = 0;
    while (first < word.size() && !isLetter(word[first])) {
        ++first;
    }
    if (first == word.size()) {
        return std::u32string(word);
    }
    return std::u32string(word.substr(0, first)) + titleOfLetter(word[first]) + lowerFrom(word, first + 1);
}

std::u32string capitalized(std::u32string_view text) {
    const auto isApostrophe = [](char32_t codePoint) { return codePoint == U'\'' || codePoint == U'\u2019'; };
    const auto isInWord = [&](std::size_t index) {
        const bool joins = isApostrophe(text[index]) && index > 0 && isAlphanumeric(text[index - 1]) &&
                           index + 1 < text.size() && isAlphanumeric(text[index + 1]);
        return isAlphanumeric(text[index]) || joins;
    };
    std::u32string result;
    std::u32string word;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (isInWord(index)) {
            word += text[index];
        } else {
            result += capitalizedWord(word);
            word.clear();
            result += text[index];
        }
    }
    return result + capitalizedWord(word);
}

} // namespace lexivore::reference
