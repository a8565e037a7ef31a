// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/tools/sample_texts.h"

#include "tests/reference/plain_text.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace lexivore {

namespace {

/// Each piece stands for a rule that some count has. Repetition makes it likelier.
constexpr std::string_view pieces[] = {
    "a",
    "e",
    "E",
    "the",
    "make",
    "queue",
    "rhythm",
    "Hello",
    "world",
    "time.",
    "x",
    "1",
    " ",
    " ",
    " ",
    "  ",
    "\t",
    "\n",
    "\n",
    "\n\n",
    "\n\n\n",
    "\r\n",
    "\r",
    "\v",
    "\f",
    ".",
    "!",
    "?",
    "...",
    "$",
    "-",
    "\x1f",
    "\x7f",
    "\xc2\x85",     // next line
    "\xe2\x80\xa8", // line separator
    "\xe2\x80\xa9", // paragraph separator
    "\xc2\xa0",     // no-break space
    "\xe1\x9a\x80", // Ogham space mark
    "\xe2\x80\x83", // em space
    "\xe3\x80\x80", // ideographic space
    "\xe2\x80\x8b", // zero width space, which is no space
    "é",
    "e\xcc\x81",
    "\xcc\x81",
    "ß",
    "İ",
    "привет",
    "γειά",
    "\xd9\x85",
    "\xd8\x80",
    "क",
    "\xe0\xa5\x8d",
    "ष",
    "क्ष",
    "字",
    "、",
    "。",
    "가",
    "\xe1\x84\x80",
    "\xe1\x85\xa1",
    "👍",
    "🏽",
    "👨‍👩‍👧",
    "\xe2\x80\x8d",
    "🇩",
    "🇪",
    "\xef\xb8\x8f",
    "«",
};

constexpr std::array<unsigned char, 12> interestingBytes = {0xC2, 0x85, 0xA0, 0xE2, 0x80, 0xA8,
                                                            0xE3, 0xE1, 0xF0, 0x0A, 0x20, 0x65};

} // namespace

std::vector<std::string> hostileTexts() {
    using namespace std::string_literals;
    std::vector<std::string> texts = {
        "",
        " ",
        "\t \t",
        "\n",
        "\r\n",
        "\n\r",
        "\r\r\n\n",
        "\0"s,
        "a\0b"s,
        "\xcc\x81", // a combining acute alone
        "\xcc\x81\xcc\x81\n\xcc\x81",
        "\xd8\x80 ", // an Arabic number sign, which a space joins
        "\xd8\x80\n",
        "\xe2\x80\x8d", // a zero width joiner alone
        "\uFEFFa",      // a byte-order mark
        "\x80",         // a continuation byte alone
        "\xff\xfe",
        "\xc2", // cut off
        "\xe2\x80",
        "\xe2\x80 \xa8",
        "\xf0\x9f\x91",
        "\xc0\xaf",         // overlong
        "\xed\xa0\x80",     // a surrogate
        "\xf4\x90\x80\x80", // above U+10FFFF
        "a\xc2",
        "e\xcc",
        "\xc2\xc2\x85\x85",
    };
    for (const std::size_t size : {63U, 64U, 65U, 4095U, 4096U, 4097U, 10000U}) {
        for (const std::string_view piece : {"\n", " ", "\r\n", "a", ".", "\xcc\x81", "\xe2\x80\xa8", "\xe3\x80\x80",
                                             "\xd8\x80", "\xff", "a ", " \n", "\n\n ", "\xd8\x80 "}) {
            std::string text;
            while (text.size() < size) {
                text += piece;
            }
            texts.push_back(text);
            texts.push_back(text.substr(0, size));
            texts.push_back("x" + text + "y");
        }
    }
    return texts;
}

std::string randomText(std::mt19937 &random, std::size_t pieceCount) {
    // Some texts are drawn from a few neighbouring pieces, so that rules meet themselves and long runs come up.
    const std::size_t kinds = random() % 3 == 0 ? 1 + random() % 6 : std::size(pieces);
    const std::size_t first = random() % std::size(pieces);
    const std::size_t asciiPerPiece = random() % 3 == 0 ? random() % 40 : 0;
    std::string text;
    for (std::size_t left = random() % (pieceCount + 1); left > 0; --left) {
        text += pieces[(first + random() % kinds) % std::size(pieces)];
        for (std::size_t i = 0; i < asciiPerPiece; ++i) {
            text += "abcde fghi. "[random() % 12];
        }
    }
    return text;
}

std::string randomBytes(std::mt19937 &random, std::size_t size) {
    std::string bytes;
    while (bytes.size() < size) {
        const auto byte = random() % 2 == 0 ? interestingBytes[random() % interestingBytes.size()] : random() % 256;
        bytes += static_cast<char>(static_cast<unsigned char>(byte));
    }
    return bytes;
}

std::string hundredMegabytesOf(char byte) {
    std::string text;
    text.resize(100'000'000, byte);
    return text;
}

std::string repaired(std::string_view bytes) {
    std::string result;
    while (!bytes.empty()) {
        std::size_t length = 1;
        while (length <= 4 && !reference::isUtf8(bytes.substr(0, length))) {
            ++length;
        }
        const bool isBroken = length > std::min<std::size_t>(4, bytes.size());
        result += isBroken ? "\xEF\xBF\xBD" : bytes.substr(0, length);
        bytes.remove_prefix(isBroken ? 1 : length);
    }
    return result;
}

} // namespace lexivore
