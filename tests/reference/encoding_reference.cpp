// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/families.h"
#include "tests/reference/plain_text.h"

#include <utility>

namespace lexivore::reference {

namespace {

constexpr std::string_view base64Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::u32string_view queryAllowed =
    U"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~!$&'()*+,;=:@/?";

unsigned byteAt(const std::string &bytes, std::size_t index) { return static_cast<unsigned char>(bytes[index]); }

char asByte(unsigned value) { return static_cast<char>(static_cast<unsigned char>(value)); }

std::string hexadecimal(unsigned byte, std::string_view digits) { return {digits[byte / 16], digits[byte % 16]}; }

/// The value of the two digits, or nothing.
std::optional<unsigned> byteFromDigits(std::u32string_view digits) {
    constexpr std::u32string_view lower = U"0123456789abcdef";
    constexpr std::u32string_view upper = U"0123456789ABCDEF";
    if (digits.size() != 2) {
        return std::nullopt;
    }
    unsigned value = 0;
    for (const char32_t digit : digits) {
        const std::size_t place = std::min(lower.find(digit), upper.find(digit));
        if (place == std::u32string_view::npos) {
            return std::nullopt;
        }
        value = value * 16 + static_cast<unsigned>(place);
    }
    return value;
}

std::u32string fromBytes(const std::string &bytes, const char *failure) {
    if (!isUtf8(bytes)) {
        throw Failure(failure);
    }
    return codePoints(bytes);
}

std::u32string base64Encode(std::u32string_view text, const Parameters &) {
    const std::string bytes = utf8(text);
    std::string result;
    for (std::size_t index = 0; index < bytes.size(); index += 3) {
        const std::size_t given = std::min<std::size_t>(3, bytes.size() - index);
        unsigned bits = byteAt(bytes, index) << 16;
        bits |= given > 1 ? byteAt(bytes, index + 1) << 8 : 0;
        bits |= given > 2 ? byteAt(bytes, index + 2) : 0;
        result += base64Alphabet[bits >> 18];
        result += base64Alphabet[bits >> 12 & 63];
        result += given > 1 ? base64Alphabet[bits >> 6 & 63] : '=';
        result += given > 2 ? base64Alphabet[bits & 63] : '=';
    }
    return codePoints(result);
}

std::u32string base64Decode(std::u32string_view text, const Parameters &) {
    constexpr const char *failure = "Invalid input: Invalid Base64 string";
    std::string digits = utf8(text);
    if (digits.size() % 4 != 0) {
        throw Failure(failure);
    }
    std::size_t padding = 0;
    while (padding < 2 && digits.ends_with('=')) {
        digits.pop_back();
        ++padding;
    }
    std::string bytes;
    unsigned bits = 0;
    unsigned bitCount = 0;
    for (const char digit : digits) {
        const std::size_t place = base64Alphabet.find(digit);
        if (place == std::string_view::npos) {
            throw Failure(failure);
        }
        bits = bits << 6 | static_cast<unsigned>(place);
        bitCount += 6;
        if (bitCount >= 8) {
            bitCount -= 8;
            bytes += asByte(bits >> bitCount & 255);
        }
    }
    return fromBytes(bytes, failure);
}

std::u32string urlEncode(std::u32string_view text, const Parameters &) {
    std::string result;
    for (const char32_t codePoint : text) {
        const std::string bytes = utf8(std::u32string(1, codePoint));
        if (queryAllowed.find(codePoint) != std::u32string_view::npos) {
            result += bytes;
            continue;
        }
        for (std::size_t index = 0; index < bytes.size(); ++index) {
            result += '%' + hexadecimal(byteAt(bytes, index), "0123456789ABCDEF");
        }
    }
    return codePoints(result);
}

std::u32string urlDecode(std::u32string_view text, const Parameters &) {
    constexpr const char *failure = "Invalid input: Invalid URL-encoded string";
    std::string bytes;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] != U'%') {
            bytes += utf8(text.substr(index, 1));
            continue;
        }
        const std::optional<unsigned> byte = byteFromDigits(text.substr(index + 1, 2));
        if (!byte) {
            throw Failure(failure);
        }
        bytes += asByte(*byte);
        index += 2;
    }
    return fromBytes(bytes, failure);
}

using Pass = std::pair<std::u32string_view, std::u32string_view>;

std::u32string replacedInPasses(std::u32string_view text, const std::vector<Pass> &passes) {
    std::u32string result(text);
    for (const auto &[find, replacement] : passes) {
        result = replaceAll(result, find, replacement);
    }
    return result;
}

std::u32string htmlEncode(std::u32string_view text, const Parameters &) {
    return replacedInPasses(text,
                            {{U"&", U"&amp;"}, {U"<", U"&lt;"}, {U">", U"&gt;"}, {U"\"", U"&quot;"}, {U"'", U"&#39;"}});
}

std::u32string htmlDecode(std::u32string_view text, const Parameters &) {
    return replacedInPasses(
        text,
        {{U"&amp;", U"&"}, {U"&lt;", U"<"}, {U"&gt;", U">"}, {U"&quot;", U"\""}, {U"&#39;", U"'"}, {U"&apos;", U"'"}});
}

std::u32string jsonEscape(std::u32string_view text, const Parameters &) {
    return replacedInPasses(text,
                            {{U"\\", U"\\\\"}, {U"\"", U"\\\""}, {U"\n", U"\\n"}, {U"\r", U"\\r"}, {U"\t", U"\\t"}});
}

std::u32string hexEncode(std::u32string_view text, const Parameters &) {
    const std::string bytes = utf8(text);
    std::string result;
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        result += hexadecimal(byteAt(bytes, index), "0123456789abcdef");
    }
    return codePoints(result);
}

std::u32string hexDecode(std::u32string_view text, const Parameters &) {
    const std::u32string digits = replaceAll(text, U" ", U"");
    std::string bytes;
    for (std::size_t index = 0; index < digits.size(); index += 2) {
        const std::optional<unsigned> byte = byteFromDigits(std::u32string_view(digits).substr(index, 2));
        if (!byte) {
            throw Failure("Invalid input: Invalid hexadecimal string");
        }
        bytes += asByte(*byte);
    }
    return fromBytes(bytes, "Invalid input: Cannot decode hexadecimal to UTF-8");
}

} // namespace

std::vector<Row> encodingRows() {
    return {
        {"base64-encode", base64Encode}, {"base64-decode", base64Decode}, {"url-encode", urlEncode},
        {"url-decode", urlDecode},       {"html-encode", htmlEncode},     {"html-decode", htmlDecode},
        {"json-escape", jsonEscape},     {"hex-encode", hexEncode},       {"hex-decode", hexDecode},
    };
}

} // namespace lexivore::reference
