// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/case_mapping.h"
#include "engine/primitives/case_writing.h"
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/utf8.h"
#include "engine/primitives/word_case.h"
#include "tests/engine/mixed_texts.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

// What maps whole blocks, against what takes one code point after the other.
namespace lexivore {

namespace {

using unicode_tables::CaseTables;
using unicode_tables::lowercase;
using unicode_tables::titlecase;
using unicode_tables::uppercase;
using Write = std::function<char *(char32_t codePoint, const char *position, char *to)>;

/// Every code point as `write` writes it, other bytes as they are.
std::string mapped(std::string_view text, const Write &write) {
    std::string result;
    const char *const end = text.data() + text.size();
    for (const char *position = text.data(); position != end;) {
        const DecodedCodePoint decoded = decode(position, end);
        if (decoded.length == 1 && !isAscii(*position)) {
            result += *position;
        } else {
            char bytes[longestMapping];
            result.append(bytes, write(decoded.value, position, bytes));
        }
        position += decoded.length;
    }
    return result;
}

std::string mapped(std::string_view text, const CaseTables &tables) {
    return mapped(text, [&](char32_t codePoint, const char *, char *to) { return writeMapped(tables, codePoint, to); });
}

std::string plainLower(std::string_view text, std::string_view context, SigmaContext::Extent extent) {
    return mapped(text, [&](char32_t codePoint, const char *position, char *to) {
        return writeLowercase(codePoint, position, {context.data(), context.data() + context.size(), extent}, to);
    });
}

std::string plainLower(std::string_view text) { return plainLower(text, text, SigmaContext::Extent::wholeText); }

char32_t firstOf(std::string_view text) { return decode(text.data(), text.data() + text.size()).value; }

std::string plainInverted(std::string_view text) {
    std::string result;
    forEachCharacter(text, [&](std::string_view character) {
        const bool changesUp = mapped(character, uppercase) != character;
        const bool changesDown = mapped(character, lowercase) != character;
        result += changesUp == changesDown ? std::string(character)
                  : changesUp              ? mapped(character, uppercase)
                                           : mapped(character, lowercase);
    });
    return result;
}

std::string plainAlternated(std::string_view text) {
    std::string result;
    bool isUppersTurn = true;
    forEachCharacter(text, [&](std::string_view character) {
        if (isIn(property::letter, firstOf(character))) {
            result += mapped(character, isUppersTurn ? uppercase : lowercase);
            isUppersTurn = !isUppersTurn;
        } else {
            result += character;
        }
    });
    return result;
}

/// The end of the word that begins at `position`.
const char *wordEnd(const char *position, const char *end, bool joinsOverApostrophe) {
    while (position != end) {
        const DecodedCodePoint decoded = decode(position, end);
        const bool joins = joinsOverApostrophe && isApostrophe(decoded.value) &&
                           startsWithAlphanumeric(position + decoded.length, end);
        if (!isIn(alphanumerics, decoded.value) && !joins) {
            break;
        }
        position += decoded.length;
    }
    return position;
}

std::string plainCapitalized(std::string_view word, std::string_view text, bool joinsOverApostrophe) {
    const char *letter = word.data();
    const char *const end = letter + word.size();
    while (letter != end && !isIn(property::letter, decode(letter, end).value)) {
        letter += decode(letter, end).length;
    }
    std::string result(word.data(), letter);
    if (letter != end) {
        const std::size_t length = decode(letter, end).length;
        const auto rest = static_cast<std::size_t>(letter - word.data()) + length;
        const auto extent =
            joinsOverApostrophe ? SigmaContext::Extent::wordJoinedOverApostrophes : SigmaContext::Extent::word;
        result += mapped({letter, length}, titlecase) + plainLower(word.substr(rest), text, extent);
    }
    return result;
}

/// Calls `onWord(word)` with every word and `onOther(bytes)` with everything between them, one code point at a time.
void forEachWord(std::string_view text, bool joinsOverApostrophe, const std::function<void(std::string_view)> &onWord,
                 const std::function<void(std::string_view)> &onOther) {
    const char *const end = text.data() + text.size();
    for (const char *position = text.data(); position != end;) {
        const bool isWord = startsWithAlphanumeric(position, end);
        const char *const pieceEnd =
            isWord ? wordEnd(position, end, joinsOverApostrophe) : position + decode(position, end).length;
        (isWord ? onWord : onOther)(std::string_view(position, pieceEnd));
        position = pieceEnd;
    }
}

std::string plainTitle(std::string_view text) {
    std::string result;
    forEachWord(
        text, true, [&](std::string_view word) { result += plainCapitalized(word, text, true); },
        [&](std::string_view other) { result += other; });
    return result;
}

std::string plainIdentifier(std::string_view text, const IdentifierStyle &style) {
    std::string result;
    bool isFirst = true;
    forEachWord(
        text, false,
        [&](std::string_view word) {
            result += isFirst || style.joiner == '\0' ? std::string() : std::string(1, style.joiner);
            const bool isCapitalized = style.capitalizesWords && !(isFirst && style.lowersFirstWord);
            result += isCapitalized ? plainCapitalized(word, text, false)
                                    : plainLower(word, text, SigmaContext::Extent::word);
            isFirst = false;
        },
        [](std::string_view) {});
    return result;
}

TEST(CaseBlocks, AreMappedLikeSingleCodePoints) {
    onMixedTexts([](const std::string &text) {
        SCOPED_TRACE(testing::PrintToString(text));
        TextBuffer upper;
        appendUppercase(upper, text);
        ASSERT_EQ(upper.view(), mapped(text, uppercase));
        TextBuffer lower;
        appendLowercase(lower, text);
        ASSERT_EQ(lower.view(), plainLower(text));
        ASSERT_EQ(invertCase(text).view(), plainInverted(text));
        ASSERT_EQ(alternateCase(text).view(), plainAlternated(text));
    });
}

TEST(CaseBlocks, OfWordsAreMappedLikeSingleCodePoints) {
    constexpr IdentifierStyle styles[] = {
        {.lowersFirstWord = true, .capitalizesWords = true},
        {.lowersFirstWord = false, .capitalizesWords = true},
        {.joiner = '_'},
    };
    onMixedTexts([&](const std::string &text) {
        SCOPED_TRACE(testing::PrintToString(text));
        ASSERT_EQ(capitalizeWords(text).view(), plainTitle(text));
        for (const IdentifierStyle &style : styles) {
            ASSERT_EQ(joinIdentifierWords(text, style).view(), plainIdentifier(text, style));
        }
    });
}

TEST(CaseBlocks, LeaveNoCharacterWithTwoCasesButForOneMark) {
    using unicode_tables::BreakClass;
    const auto isCased = [](char32_t codePoint) {
        const std::string text = encoded(codePoint);
        return mapped(text, uppercase) != text || mapped(text, lowercase) != text;
    };
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        const bool isSurrogate = codePoint >= 0xD800 && codePoint < 0xE000;
        const BreakClass breakClass = isSurrogate ? BreakClass::other : character_breaks::breakClass(codePoint);
        if (breakClass != BreakClass::other && codePoint != 0x345 && isCased(codePoint)) {
            // Joined pictographs can only be this one, all in the same case.
            EXPECT_EQ(codePoint, 0x24C2U);
        }
    }
}

} // namespace

} // namespace lexivore
