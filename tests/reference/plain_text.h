// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <unicode/unistr.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// The words that the reference is written in. Texts are strings of code points; nothing here is shared with the engine,
// and nothing is fast.
namespace lexivore::reference {

using Pieces = std::vector<std::u32string>;
using CodePointTest = std::function<bool(char32_t)>;

/// True for well-formed UTF-8 (RFC 3629).
[[nodiscard]] bool isUtf8(std::string_view bytes);
/// The code points of well-formed UTF-8.
[[nodiscard]] std::u32string codePoints(std::string_view utf8);
[[nodiscard]] std::string utf8(std::u32string_view text);

[[nodiscard]] icu::UnicodeString toIcu(std::u32string_view text);
[[nodiscard]] std::u32string fromIcu(const icu::UnicodeString &text);

// Code points.
[[nodiscard]] bool isLetter(char32_t codePoint);
[[nodiscard]] bool isMark(char32_t codePoint);
[[nodiscard]] bool isNumber(char32_t codePoint);
[[nodiscard]] bool isPunctuation(char32_t codePoint);
[[nodiscard]] bool isWhitespaceCharacter(char32_t codePoint); ///< The White_Space property, line breaks included.
[[nodiscard]] bool isNewline(char32_t codePoint);             ///< The newline set.
[[nodiscard]] bool isWhitespace(char32_t codePoint);          ///< The whitespace set: no line breaks.
[[nodiscard]] bool isWhitespaceOrNewline(char32_t codePoint);
[[nodiscard]] bool isAlphanumeric(char32_t codePoint);
[[nodiscard]] bool isSentenceEnd(char32_t codePoint); ///< One of ".", "!" and "?".

/// The extended grapheme clusters of the whole text, in order.
[[nodiscard]] Pieces characters(std::u32string_view text);
[[nodiscard]] std::size_t length(std::u32string_view text); ///< In characters.

/// The pieces between the code points for which `isSeparator` holds, empty ones included. Never none.
[[nodiscard]] Pieces split(std::u32string_view text, const CodePointTest &isSeparator);
[[nodiscard]] Pieces lines(std::u32string_view text);
[[nodiscard]] Pieces withoutEmpty(const Pieces &pieces);
[[nodiscard]] std::u32string join(const Pieces &pieces, std::u32string_view separator);
/// Without the whitespace set at both ends.
[[nodiscard]] std::u32string trimmed(std::u32string_view text);
/// Every occurrence of `find` replaced, from the start, without overlaps; an empty `find` occurs nowhere.
[[nodiscard]] std::u32string replaceAll(std::u32string_view text, std::u32string_view find,
                                        std::u32string_view replacement);

// Case, in the root locale.
[[nodiscard]] std::u32string upper(std::u32string_view text);
[[nodiscard]] std::u32string lower(std::u32string_view text);
/// The full titlecase mapping of one letter.
[[nodiscard]] std::u32string titleOfLetter(char32_t letter);
/// What stands behind the first `begin` code points of `text`, lowercased as the part of `text` that it is.
[[nodiscard]] std::u32string lowerFrom(std::u32string_view text, std::size_t begin);
/// A single word: the first letter titlecased, what precedes it kept, what follows lowercased.
[[nodiscard]] std::u32string capitalizedWord(std::u32string_view word);
/// Every word of a text in that form, everything else kept.
[[nodiscard]] std::u32string capitalized(std::u32string_view text);

} // namespace lexivore::reference
