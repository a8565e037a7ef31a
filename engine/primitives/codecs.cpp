// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/codecs.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/replacement.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace lexivore {

namespace {

constexpr std::string_view base64Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
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

/// What is written for a byte in the query component of a URL.
struct InQuery {
    std::array<char, 4> text{}; ///< The fourth is there so that they are copied at once.
    std::uint8_t length = 1;
};
constexpr std::size_t longestInQuery = 4;

constexpr kernels::AsciiSet allowedInQuery("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                                           "-._~!$&'()*+,;=:@/?");

constexpr std::array<InQuery, 256> makeInQuery() {
    std::array<InQuery, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        const char character = static_cast<char>(static_cast<unsigned char>(byte));
        if (allowedInQuery.contains(character)) {
            table[byte].text[0] = character;
        } else {
            table[byte] = {{'%', uppercaseDigits[byte >> 4], uppercaseDigits[byte & 0x0F]}, 3};
        }
    }
    return table;
}

constexpr std::array<InQuery, 256> inQuery = makeInQuery();

} // namespace

void appendBase64(TextBuffer &result, std::string_view bytes) {
    char *to = result.room(base64Size(bytes.size()));
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
    constexpr std::size_t scratch = 16;
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

void appendHexadecimal(TextBuffer &result, std::string_view bytes) {
    char *const to = result.room(bytes.size() * 2);
    kernels::best().encodeHexadecimal(bytes.data(), bytes.size(), to);
    result.commit(to + bytes.size() * 2);
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

void appendPercent(TextBuffer &result, std::string_view bytes) {
    constexpr std::size_t stretch = 4096;
    while (!bytes.empty()) {
        const std::string_view some = bytes.substr(0, stretch);
        char *to = result.room(some.size() * longestInQuery);
        const std::size_t encoded = kernels::best().encodePercent(some.data(), some.size(), allowedInQuery, to);
        for (const char byte : some.substr(encoded)) {
            // All of them at once, however many count: no byte needs a decision.
            const InQuery &written = inQuery[indexOf(byte)];
            std::memcpy(to, written.text.data(), written.text.size());
            to += written.length;
        }
        result.commit(to);
        bytes.remove_prefix(some.size());
    }
}

std::optional<TextBuffer> decodePercent(std::string_view text) {
    TextBuffer result;
    char *const to = result.room(text.size() + kernels::blockSize);
    bool isValid = false;
    result.commit(to + kernels::best().decodePercent(text.data(), text.size(), to, isValid));
    if (!isValid) {
        return std::nullopt;
    }
    result.shrink();
    return result;
}

} // namespace lexivore
