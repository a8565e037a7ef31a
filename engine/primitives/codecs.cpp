// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/codecs.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/replacement.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace lexivore {

namespace {

constexpr std::string_view base64Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view lowercaseDigits = "0123456789abcdef";
constexpr std::string_view uppercaseDigits = "0123456789ABCDEF";

constexpr std::uint8_t noValue = 0xFF;
using ValueTable = std::array<std::uint8_t, 256>;

constexpr std::size_t indexOf(char byte) { return static_cast<unsigned char>(byte); }

/// The value of each character of `digits`, in their order.
constexpr ValueTable makeValues(std::string_view digits) {
    ValueTable values{};
    values.fill(noValue);
    for (std::size_t i = 0; i < digits.size(); ++i) {
        values[indexOf(digits[i])] = static_cast<std::uint8_t>(i);
    }
    return values;
}

constexpr ValueTable base64Values = makeValues(base64Alphabet);

constexpr ValueTable makeHexadecimalValues() {
    ValueTable values = makeValues(lowercaseDigits);
    for (std::size_t i = 10; i < uppercaseDigits.size(); ++i) {
        values[indexOf(uppercaseDigits[i])] = static_cast<std::uint8_t>(i);
    }
    return values;
}

constexpr ValueTable hexadecimalValues = makeHexadecimalValues();

/// Two characters for each of `count` values, so that they are looked up and written together.
template<std::size_t count> using PairTable = std::array<std::array<char, 2>, count>;

template<std::size_t count> constexpr PairTable<count> makePairs(std::string_view digits) {
    PairTable<count> pairs{};
    for (std::size_t i = 0; i < count; ++i) {
        pairs[i] = {digits[i / digits.size()], digits[i % digits.size()]};
    }
    return pairs;
}

constexpr auto base64Pairs = makePairs<4096>(base64Alphabet);
constexpr auto uppercasePairs = makePairs<256>(uppercaseDigits);

/// Everything that may not stand in the query component of a URL as itself.
constexpr kernels::ByteClass makeEscapedInQuery() {
    constexpr std::string_view allowed = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                                         "-._~!$&'()*+,;=:@/?";
    kernels::ByteClass escaped;
    for (int byte = 0; byte < 0x80; ++byte) {
        const char character = static_cast<char>(byte);
        if (allowed.find(character) == std::string_view::npos) {
            escaped.ascii.add(character);
        }
    }
    escaped.takesEveryNonAsciiByte = true;
    return escaped;
}

constexpr kernels::ByteClass escapedInQuery = makeEscapedInQuery();

/// The byte that two hexadecimal digits give, or a value over 0xFF.
unsigned hexadecimalByte(char high, char low) {
    const unsigned highValue = hexadecimalValues[indexOf(high)];
    const unsigned lowValue = hexadecimalValues[indexOf(low)];
    return highValue == noValue || lowValue == noValue ? 0x100U : highValue << 4 | lowValue;
}

} // namespace

TextBuffer encodeBase64(std::string_view bytes) {
    TextBuffer result;
    char *to = result.room((bytes.size() + 2) / 3 * 4);
    const auto valueAt = [bytes](std::size_t index) { return static_cast<unsigned>(indexOf(bytes[index])); };
    std::size_t position = kernels::best().encodeBase64(bytes.data(), bytes.size(), to);
    to += position / 3 * 4;
    for (; bytes.size() - position >= 3; position += 3) {
        const unsigned bits = valueAt(position) << 16 | valueAt(position + 1) << 8 | valueAt(position + 2);
        std::memcpy(to, base64Pairs[bits >> 12].data(), 2);
        std::memcpy(to + 2, base64Pairs[bits & 0xFFF].data(), 2);
        to += 4;
    }
    const std::size_t left = bytes.size() - position;
    if (left > 0) {
        const unsigned bits = valueAt(position) << 16 | (left == 2 ? valueAt(position + 1) << 8 : 0U);
        std::memcpy(to, base64Pairs[bits >> 12].data(), 2);
        to[2] = left == 2 ? base64Alphabet[bits >> 6 & 0x3F] : '=';
        to[3] = '=';
        to += 4;
    }
    result.commit(to);
    return result;
}

std::optional<TextBuffer> decodeBase64(std::string_view text) {
    if (text.size() % 4 != 0) {
        return std::nullopt;
    }
    std::size_t padding = 0;
    while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') {
        ++padding;
    }
    TextBuffer result;
    constexpr std::size_t scratch = 8;
    char *to = result.room(text.size() / 4 * 3 + scratch);
    const std::size_t decoded = kernels::best().decodeBase64(text.data(), text.size(), to);
    to += decoded / 4 * 3;
    const auto write = [&to](unsigned value) { *to++ = static_cast<char>(static_cast<unsigned char>(value)); };
    for (std::size_t position = decoded; position < text.size(); position += 4) {
        // Digits that padding stands for count as zeros.
        const bool isLast = position + 4 == text.size();
        const std::size_t digits = isLast ? 4 - padding : 4;
        unsigned bits = 0;
        unsigned all = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            const unsigned value = i < digits ? base64Values[indexOf(text[position + i])] : 0;
            all |= value;
            bits = bits << 6 | value;
        }
        if (all > 0x3F) {
            return std::nullopt;
        }
        write(bits >> 16);
        if (digits > 2) {
            write(bits >> 8);
        }
        if (digits > 3) {
            write(bits);
        }
    }
    result.commit(to);
    return result;
}

TextBuffer encodeHexadecimal(std::string_view bytes) {
    TextBuffer result;
    char *const to = result.room(bytes.size() * 2);
    kernels::best().encodeHexadecimal(bytes.data(), bytes.size(), to);
    result.commit(to + bytes.size() * 2);
    return result;
}

std::optional<TextBuffer> decodeHexadecimal(std::string_view text) {
    TextBuffer digits;
    if (text.find(' ') != std::string_view::npos) {
        digits = removeCharacters(text, kernels::AsciiSet(" "));
        text = digits;
    }
    if (text.size() % 2 != 0) {
        return std::nullopt;
    }
    TextBuffer result;
    char *const to = result.room(text.size() / 2);
    if (!kernels::best().decodeHexadecimal(text.data(), text.size() / 2, to)) {
        return std::nullopt;
    }
    result.commit(to + text.size() / 2);
    return result;
}

TextBuffer encodePercent(std::string_view bytes) {
    TextBuffer result = TextBuffer::withCapacity(bytes.size() + bytes.size() / 2);
    const char *plainBegin = bytes.data();
    const auto appendPlain = [&](const char *plainEnd) {
        result.append(std::string_view(plainBegin, static_cast<std::size_t>(plainEnd - plainBegin)));
    };
    forEachMember(MembershipScan(bytes, escapedInQuery), [&](const char *escaped) {
        appendPlain(escaped);
        const std::array<char, 2> digits = uppercasePairs[indexOf(*escaped)];
        result.append(std::string_view(std::array{'%', digits[0], digits[1]}.data(), 3));
        plainBegin = escaped + 1;
    });
    appendPlain(bytes.data() + bytes.size());
    result.shrink();
    return result;
}

std::optional<TextBuffer> decodePercent(std::string_view text) {
    TextBuffer result;
    char *to = result.room(text.size());
    while (!text.empty()) {
        const std::size_t percent = text.find('%');
        const std::string_view plain = text.substr(0, percent);
        to += plain.copy(to, plain.size());
        if (percent == std::string_view::npos) {
            break;
        }
        const unsigned byte =
            text.size() - percent >= 3 ? hexadecimalByte(text[percent + 1], text[percent + 2]) : 0x100U;
        if (byte > 0xFF) {
            return std::nullopt;
        }
        *to++ = static_cast<char>(static_cast<unsigned char>(byte));
        text.remove_prefix(percent + 3);
    }
    result.commit(to);
    result.shrink();
    return result;
}

} // namespace lexivore
