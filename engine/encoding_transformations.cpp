// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/encoding_transformations.h"

#include "engine/primitives/codecs.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/part_replacer.h"
#include "engine/primitives/replacement.h"
#include "engine/primitives/staged_text.h"
#include "engine/primitives/utf8.h"

#include <optional>
#include <utility>

namespace lexivore {

namespace {

/// Appends the text encoded in parts, each of them checked and encoded while it is in the cache. False when it is no
/// valid UTF-8, which only the engine's interface can be handed.
bool appendEncoded(TextBuffer &to, std::string_view text, void (&append)(TextBuffer &, std::string_view)) {
    constexpr std::size_t partSize = StagedText::stretch / 3 * 3; // whole groups for Base64
    StagedText staged(to, text.size());
    for (std::size_t begin = 0, checked = 0; begin < text.size(); begin += partSize) {
        const std::string_view part = text.substr(begin, partSize);
        std::size_t end = begin + part.size();
        constexpr std::size_t mostContinuations = 3; // of the last code point
        for (std::size_t i = 0; i < mostContinuations && end < text.size() && isContinuationByte(text[end]); ++i) {
            ++end;
        }
        if (!isValidUtf8(text.substr(checked, end - checked))) {
            return false;
        }
        checked = end;
        append(staged.part(), part);
        staged.endPart();
    }
    return true;
}

TextBuffer encodedText(std::string_view text, std::size_t capacity, void (&append)(TextBuffer &, std::string_view)) {
    TextBuffer result = TextBuffer::withCapacity(capacity);
    if (!appendEncoded(result, text, append)) {
        throw TransformationError::invalidInput("Cannot convert text to data");
    }
    return result;
}

/// What a decoder gave, if it gave anything and that is a text.
TextBuffer decodedText(std::optional<TextBuffer> decoded, const char *message) {
    if (!decoded || !isValidUtf8(*decoded)) {
        throw TransformationError::invalidInput(message);
    }
    return std::move(*decoded);
}

// One pass over each of these equals replacing row after row: no replacement holds a character of a later row, and the
// character that the replacements share comes first.
constexpr EscapeTable htmlEscapes{{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&#39;"}};
constexpr EscapeTable jsonEscapes{{'\\', "\\\\"}, {'"', "\\\""}, {'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}};

struct Entity {
    std::string_view name; ///< Without the "&" that begins it.
    char character;
};

constexpr std::string_view ampersandName = "amp;";
constexpr Entity entities[] = {{"lt;", '<'}, {"gt;", '>'}, {"quot;", '"'}, {"#39;", '\''}, {"apos;", '\''}};

/// What begins with an ampersand, and the character that it stands for.
struct DecodedEntity {
    std::size_t size;
    char character;
};

/// "&amp;" is decoded everywhere and then the other entities, so that "&amp;lt;" gives "<". Both steps in one: only the
/// first makes ampersands, and what follows one was in the text already.
DecodedEntity decodedAt(const char *ampersand, const char *textEnd) {
    std::string_view rest(ampersand + 1, static_cast<std::size_t>(textEnd - ampersand - 1));
    std::size_t size = 1;
    if (rest.starts_with(ampersandName)) {
        rest.remove_prefix(ampersandName.size());
        size += ampersandName.size();
    }
    for (const Entity &entity : entities) {
        if (rest.starts_with(entity.name)) {
            return {size + entity.name.size(), entity.character};
        }
    }
    return {size, '&'};
}

TextBuffer decodeEntities(std::string_view text) {
    const char *const end = text.data() + text.size();
    PartReplacer replacer(text, text.size());
    replacer.replaceAll(
        MembershipScan(text, kernels::AsciiSet("&")), [end](const char *part) { return decodedAt(part, end).size; }, 1,
        [end](char *to, const char *part) {
            *to = decodedAt(part, end).character;
            return to + 1;
        });
    return replacer.take();
}

} // namespace

TextBuffer Base64EncodeTransformation::apply(std::string_view text, const ParameterMap &) const {
    return encodedText(text, base64Size(text.size()), appendBase64);
}

TextBuffer Base64DecodeTransformation::apply(std::string_view text, const ParameterMap &) const {
    return decodedText(decodeBase64(text), "Invalid Base64 string");
}

TextBuffer URLEncodeTransformation::apply(std::string_view text, const ParameterMap &) const {
    TextBuffer result = TextBuffer::withCapacity(text.size() + text.size() / 2);
    if (!appendEncoded(result, text, appendPercent)) {
        throw TransformationError::operationFailed("Cannot encode URL");
    }
    result.shrink();
    return result;
}

TextBuffer URLDecodeTransformation::apply(std::string_view text, const ParameterMap &) const {
    return decodedText(decodePercent(text), "Invalid URL-encoded string");
}

TextBuffer HTMLEncodeTransformation::apply(std::string_view text, const ParameterMap &) const {
    return escapeCharacters(text, htmlEscapes);
}

TextBuffer HTMLDecodeTransformation::apply(std::string_view text, const ParameterMap &) const {
    return decodeEntities(text);
}

TextBuffer JSONEscapeTransformation::apply(std::string_view text, const ParameterMap &) const {
    return escapeCharacters(text, jsonEscapes);
}

TextBuffer HexEncodeTransformation::apply(std::string_view text, const ParameterMap &) const {
    return encodedText(text, 2 * text.size(), appendHexadecimal);
}

TextBuffer HexDecodeTransformation::apply(std::string_view text, const ParameterMap &) const {
    std::optional<TextBuffer> bytes = decodeHexadecimal(text);
    if (!bytes) {
        throw TransformationError::invalidInput("Invalid hexadecimal string");
    }
    return decodedText(std::move(bytes), "Cannot decode hexadecimal to UTF-8");
}

} // namespace lexivore
