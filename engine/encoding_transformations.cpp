// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/encoding_transformations.h"

#include "engine/primitives/codecs.h"
#include "engine/primitives/replacement.h"
#include "engine/primitives/utf8.h"

#include <optional>
#include <utility>

namespace lexivore {

namespace {

/// The text as bytes for an encoder. Only the engine's interface can be handed a text that is no valid UTF-8.
std::string_view bytesOf(std::string_view text) {
    if (!isValidUtf8(text)) {
        throw TransformationError::invalidInput("Cannot convert text to data");
    }
    return text;
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

/// Decodes "&amp;" everywhere and then the other entities, so that "&amp;lt;" gives "<". Both steps in one pass: only
/// the first makes ampersands, and what follows one was in the text already.
TextBuffer decodeEntities(std::string_view text) {
    TextBuffer result = TextBuffer::withCapacity(text.size());
    for (std::size_t ampersand = text.find('&'); ampersand != std::string_view::npos; ampersand = text.find('&')) {
        result.append(text.substr(0, ampersand));
        text.remove_prefix(ampersand + 1);
        if (text.starts_with(ampersandName)) {
            text.remove_prefix(ampersandName.size());
        }
        char decoded = '&';
        for (const Entity &entity : entities) {
            if (text.starts_with(entity.name)) {
                decoded = entity.character;
                text.remove_prefix(entity.name.size());
                break;
            }
        }
        result.append(decoded);
    }
    result.append(text);
    result.shrink();
    return result;
}

} // namespace

TextBuffer Base64EncodeTransformation::apply(std::string_view text, const ParameterMap &) const {
    return encodeBase64(bytesOf(text));
}

TextBuffer Base64DecodeTransformation::apply(std::string_view text, const ParameterMap &) const {
    return decodedText(decodeBase64(text), "Invalid Base64 string");
}

TextBuffer URLEncodeTransformation::apply(std::string_view text, const ParameterMap &) const {
    if (!isValidUtf8(text)) {
        throw TransformationError::operationFailed("Cannot encode URL");
    }
    return encodePercent(text);
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
    return encodeHexadecimal(bytesOf(text));
}

TextBuffer HexDecodeTransformation::apply(std::string_view text, const ParameterMap &) const {
    std::optional<TextBuffer> bytes = decodeHexadecimal(text);
    if (!bytes) {
        throw TransformationError::invalidInput("Invalid hexadecimal string");
    }
    return decodedText(std::move(bytes), "Cannot decode hexadecimal to UTF-8");
}

} // namespace lexivore
