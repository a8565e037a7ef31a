// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/support/text_pool.h"

#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>

namespace lexivore::test {

using namespace std::string_view_literals;

const std::vector<TextPool> &textPools() {
    static const std::vector<TextPool> pools = {
        {"ASCII words", 30, {"a"sv,     "b"sv,   "Hello"sv, "WORLD"sv,         "the"sv,     "mp3PLAYER"sv,
                             "x1"sv,    "I"sv,   "don't"sv, "iPhone"sv,        "foo_bar"sv, "e"sv,
                             "queue"sv, "3rd"sv, "42"sv,    "camelCaseWord"sv, "Z"sv,       "zebra"sv,
                             "Apple"sv, "0"sv}},
        {"punctuation", 12, {"."sv,   ","sv, "!"sv, "?"sv,  "-"sv,   "_"sv,  "'"sv, "\""sv, "("sv, ")"sv, "["sv, "]"sv,
                             ";"sv,   ":"sv, "/"sv, "\\"sv, "&"sv,   "<"sv,  ">"sv, "#"sv,  "%"sv, "$"sv, "+"sv, "="sv,
                             "@"sv,   "~"sv, "^"sv, "|"sv,  "`"sv,   "…"sv,  "«"sv, "»"sv,  "“"sv, "”"sv, "‘"sv, "’"sv,
                             "a’b"sv, "—"sv, "€"sv, "¿"sv,  "..."sv, "?!"sv, "{"sv, "}"sv,  "*"sv}},
        {"spaces",
         12,
         {" "sv, " "sv, " "sv, "  "sv, "\t"sv, " \t "sv, "\u00A0"sv, "\u2003"sv, "\u3000"sv, "\u202F"sv, "\u1680"sv,
          "\u2009"sv, "\u205F"sv, "\u200B"sv, "\uFEFF"sv, "\u180E"sv, "\u2060"sv}},
        {"newlines",
         12,
         {"\n"sv, "\n"sv, "\n"sv, "\r\n"sv, "\r"sv, "\v"sv, "\f"sv, "\u0085"sv, "\u2028"sv, "\u2029"sv, "\n\n"sv,
          "\r\r\n"sv, "\n\r"sv, "\n\n\n"sv}},
        {"combining", 8, {"e\u0301"sv,      "\u00E9"sv,        "\u0301"sv, "a\u0308\u0323"sv, "a\u0323\u0308"sv,
                          "\u1EA1\u0308"sv, "o\u0302\u0301"sv, "\u0345"sv, "\u0334"sv,        "\u1DCE"sv,
                          "\u20E3"sv,       "1\uFE0F\u20E3"sv, "\uFE0F"sv, "q\u0307\u0323"sv, "q\u0323\u0307"sv,
                          "\u0344"sv,       "\u0F73"sv,        "\u2ADC"sv, "\u212B"sv,        "\u00C5"sv,
                          "A\u030A"sv,      "\u2126"sv,        "\uF900"sv, "\u1E9B\u0323"sv,  "\u0340"sv,
                          "\u0327"sv,       "\u0328\u0304"sv,  "\u2000"sv, "\u0387"sv,        "\u037E"sv}},
        {"emoji",
         6,
         {"\U0001F600"sv, "\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466"sv,
          "\U0001F468\U0001F3FD\u200D\U0001F4BB"sv, "\U0001F44D\U0001F3FF"sv, "\U0001F3FF"sv, "\u200D"sv, "\u200C"sv,
          "\U0001F468\u200D"sv, "\u2764\uFE0F\u200D\U0001F525"sv, "\u2764"sv, "\u00A9"sv, "\u00A9\u200D\u00AE"sv,
          "\U0001F3F4\U000E0067\U000E0062\U000E0065\U000E006E\U000E0067\U000E007F"sv, "\U0001F9D1\u200D\U0001F384"sv,
          "\U0001FAE0"sv, "\u200D\U0001F525"sv, "\U0001F468\u0301\u200D\U0001F525"sv, "a\u200D\U0001F525"sv}},
        {"flags",
         4,
         {"\U0001F1E9\U0001F1EA"sv, "\U0001F1E9"sv, "\U0001F1EB\U0001F1F7\U0001F1FA"sv,
          "\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7"sv, "\U0001F1FF\u0301"sv, "\U0001F1E6\u200D"sv}},
        {"Hangul",
         5,
         {"\u1100"sv, "\u1161"sv, "\u11A8"sv, "\uAC00"sv, "\uAC01"sv, "\u1100\u1161"sv, "\u1100\u1161\u11A8"sv,
          "\uAC00\u11A8"sv, "\uA960"sv, "\uD7B0"sv, "\uD7CB"sv, "한글"sv, "\uAC00\u11A7"sv,
          "\u1112\u1161\u11AB\u1100\u1173\u11AF"sv}},
        {"Devanagari",
         6,
         {"क"sv, "\u0915\u094D\u0937"sv, "\u0915\u094D"sv, "\u094D"sv, "\u0937"sv, "\u0915\u093C\u0937"sv,
          "\u0915\u094D\u200D\u0937"sv, "\u0915\u094D\u200C\u0937"sv, "\u093F"sv, "नमस्ते"sv,
          "\u0915\u094D\u093C\u0924"sv, "\u0915\u093C\u094D\u0924"sv, "\u0958"sv, "।"sv, "१२३"sv,
          "\u0915\u094D\u094D\u0924"sv, "\u0915\u094Da"sv, "\u0951\u0952"sv}},
        {"other conjuncts",
         5,
         {"\u0995\u09CD\u09B7"sv, "\u0C15\u0C4D\u0C37"sv, "\u0D15\u0D4D\u0D37"sv, "\u0A95\u0ACD\u0AB7"sv,
          "\u0B15\u0B4D\u0B37"sv, "\u0915\u09CD\u09B7"sv, "\u0995\u094D\u0937"sv, "\u09CD"sv, "\u0C4D\u0C37"sv,
          "\u0B95\u0BCD\u0BB7"sv, "\u0C95\u0CCD\u0CB7"sv, "\u1780\u17D2\u1781"sv, "\u1019\u1039\u1019"sv,
          "\u0D9A\u0DCA\u200D\u0DC2"sv, "\u0F40\u0F90"sv, "\u09C7\u09BE"sv, "\u0BC6\u0BBE"sv, "\u0D46\u0D3E"sv,
          "\U000110B9\U000110BA"sv}},
        {"Thai and Lao", 3, {"ภาษาไทย"sv, "\u0E33"sv, "\u0E01\u0E33"sv, "ເຂົ້າ"sv, "\u0EB3"sv, "\u0E48"sv}},
        {"Arabic and Hebrew",
         5,
         {"مرحبا"sv, "لا"sv, "\u0651\u064E"sv, "\u064E\u0651"sv, "שלום"sv, "שָׁלוֹם"sv, "\u05B0\u05C1"sv, "\uFB2C"sv,
          "\u0640"sv, "٣٤"sv, "؟"sv, "\u0622"sv, "\u0627\u0653"sv}},
        {"ligatures", 4, {"ﬁ"sv, "ﬃ"sv, "ﬀ"sv, "ﬆ"sv, "ŉ"sv, "ǰ"sv, "ΐ"sv, "և"sv, "ﬓ"sv, "\uFB00a"sv}},
        {"titlecase letters", 4, {"ǅ"sv, "ǄA"sv, "ǆ"sv, "ǉx"sv, "Ǌ"sv, "ᾳ"sv, "ᾼ"sv, "ῼ"sv, "ᾈ"sv, "ᾀ"sv, "\u1FB7"sv}},
        {"casing",
         8,
         {"ß"sv, "ẞ"sv,      "straße"sv, "ßa"sv,         "İ"sv,      "ı"sv,   "I\u0307"sv, "i\u0307"sv, "\u212A"sv,
          "ſ"sv, "Ⅷ"sv,      "ⅷ"sv,      "Ⓐ"sv,          "ⓐ"sv,      "ა"sv,   "\u1C90"sv,  "Ꭰ"sv,       "\uAB70"sv,
          "𐐀"sv, "𐐨"sv,      "ʰ"sv,      "ª"sv,          "ⅰx"sv,     "Ꞷ"sv, "Ж"sv,       "ж"sv,       "Éa"sv,
          "ÿ"sv, "\u1E9A"sv, "\u1C80"sv, "\U0001E900"sv, "\u0390"sv, "Dž"sv,  "Ⱥ"sv,       "ⱥ"sv,       "\u0250"sv}},
        {"sigmas", 5, {"Σ"sv,    "ΑΣ"sv,  "ΣΑ"sv,  "ΑΣ."sv,  "ΑΣ\u0301"sv,  "Α\u0301Σ"sv,     "ΣΣ"sv, "ΑΣ'Α"sv,
                       "ΑΣ:Α"sv, "σ"sv,   "ς"sv,   "ΌΣΟΣ"sv, "ΑΣ\u00ADΑ"sv, "\u03A3\u0345"sv, "1Σ"sv, "Σ1"sv,
                       "ΑΣ1"sv,  "ΑΣ_"sv, "AΣB"sv, "ʰΣ"sv,   "ΑΣ’"sv,       "ΑΣ\u0345"sv}},
        {"numbers",
         5,
         {"½"sv, "²"sv, "٣"sv, "१"sv, "３"sv, "Ⅳ"sv, "一"sv, "〇"sv, "𝟘"sv, "߁"sv, "৪"sv, "㊀"sv, "௧"sv, "①"sv,
          "7\u0301"sv}},
        {"prepended marks",
         3,
         {"\u0600a"sv, "\u0600"sv, "\u06DD\u0661"sv, "\u070F"sv, "\u08E2"sv, "\u0D4E"sv, "\u0D4E\u0D15"sv,
          "\U000110BD"sv, "\U000110BD\u0915"sv, "\U000111C2"sv, "\U0001193F"sv, "\U00011A3A"sv, "\u0600\n"sv,
          "\u0600\u0600b"sv}},
        {"controls",
         4,
         {"\0"sv, "\0"sv, "\x01"sv, "\x07"sv, "\b"sv, "\x1B"sv, "\x7F"sv, "\u0080"sv, "\u009F"sv, "\u00AD"sv,
          "\u061C"sv, "\u200E"sv, "\u202E"sv, "\u2066"sv, "\u034F"sv, "\0\u0301"sv}},
        {"East Asian",
         5,
         {"漢字"sv, "かな"sv, "カ\u3099"sv, "か\u3099"sv, "\u304C"sv, "ｶﾞ"sv, "ﾞ"sv, "中文。"sv, "ㄅ"sv, "𠀀"sv, "、"sv,
          "\u3099"sv, "\U0002F800"sv}},
        {"unassigned and private",
         3,
         {"\u0378"sv, "\uE000"sv, "\U000F0000"sv, "\uFFFE"sv, "\uFFFF"sv, "\U0010FFFF"sv, "\uFDD0"sv, "\U0001FFFE"sv,
          "\u2065"sv, "\U000E0080"sv, "\uFFFD"sv, "\U000E0001"sv, "\U0001FABF"sv}},
        {"markup", 4, {"&amp;"sv,     "&amp;lt;"sv,  "&lt;"sv, "&gt;"sv, "&quot;"sv, "&#39;"sv, "&apos;"sv,
                       "&amp;amp;"sv, "&nbsp;"sv,    "&am"sv,  "p;"sv,   "&amp"sv,   "%41"sv,   "%"sv,
                       "%C3%A9"sv,    "%e2%82%AC"sv, "+"sv,    "\\n"sv,  "\\"sv,     "key=x"sv, "&&amp;#39;"sv}},
    };
    return pools;
}

namespace {

using PoolList = std::vector<const TextPool *>;

std::string asUtf8(char32_t codePoint) {
    char bytes[4];
    std::int32_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, static_cast<UChar32>(codePoint));
    return {bytes, static_cast<std::size_t>(length)};
}

const TextPool &anyPool(Dice &dice, const PoolList &pools) {
    std::size_t total = 0;
    for (const TextPool *pool : pools) {
        total += pool->weight;
    }
    std::size_t place = dice.below(total);
    for (const TextPool *pool : pools) {
        if (place < pool->weight) {
            return *pool;
        }
        place -= pool->weight;
    }
    return *pools.back();
}

/// All pools, or a few, so that some texts have long stretches of one script.
PoolList palette(Dice &dice) {
    PoolList all;
    for (const TextPool &pool : textPools()) {
        all.push_back(&pool);
    }
    if (dice.chance(50)) {
        return all;
    }
    PoolList few;
    const std::size_t count = dice.between(1, 4);
    while (few.size() < count) {
        few.push_back(dice.pick(all));
    }
    return few;
}

std::string piece(Dice &dice, const PoolList &pools) {
    return dice.chance(2) ? anyScalarValue(dice) : std::string(dice.pick(anyPool(dice, pools).pieces));
}

void appendPieces(Dice &dice, const PoolList &pools, std::size_t count, std::vector<std::string> &to) {
    constexpr std::string_view separators[] = {" ", " ", " ", "\n", "\n", "\r\n", "\t", ", ", ". ", "\u2028"};
    for (std::size_t made = 0; made < count; ++made) {
        to.push_back(piece(dice, pools));
        if (dice.chance(35)) {
            to.emplace_back(dice.pick(separators));
        }
    }
}

/// ASCII of a length at or around a power of two, so that what follows stands at the end of a vector block.
std::string filler(Dice &dice) {
    constexpr std::string_view letters = "abcdefghij KLMNOP\n.qrst 0123456789'-";
    constexpr std::size_t edges[] = {8, 16, 16, 32, 32, 64, 64, 128, 128, 256, 512, 1024, 4096};
    const std::size_t length = dice.pick(edges) - 3 + dice.below(7);
    const bool isOneLetter = dice.chance(30);
    std::string result;
    for (std::size_t made = 0; made < length; ++made) {
        result += isOneLetter ? 'x' : letters[dice.below(letters.size())];
    }
    return result;
}

void appendBlocks(Dice &dice, const PoolList &pools, std::vector<std::string> &to) {
    const std::size_t count = dice.between(1, 4);
    for (std::size_t made = 0; made < count; ++made) {
        to.push_back(filler(dice));
        appendPieces(dice, pools, dice.between(0, 3), to);
    }
}

/// Lines drawn from a few different ones, so that many are equal.
void appendRepeatedLines(Dice &dice, const PoolList &pools, std::size_t count, std::vector<std::string> &to) {
    constexpr std::string_view breaks[] = {"\n", "\n", "\n", "\r\n", "\u2029", "\r"};
    std::vector<std::string> lines(dice.between(1, 6));
    for (std::string &line : lines) {
        for (std::size_t left = dice.below(4); left > 0; --left) {
            line += piece(dice, pools);
        }
    }
    for (std::size_t made = 0; made < count; ++made) {
        to.push_back(dice.pick(lines));
        to.emplace_back(dice.pick(breaks));
    }
}

} // namespace

std::string anyScalarValue(Dice &dice) {
    constexpr std::size_t surrogates = 0x800;
    const std::size_t limit = dice.chance(50) ? 0x3100 : dice.chance(50) ? 0x20000 : 0x110000;
    std::size_t codePoint = dice.below(limit > 0xD800 ? limit - surrogates : limit);
    codePoint += codePoint >= 0xD800 ? surrogates : 0;
    return asUtf8(static_cast<char32_t>(codePoint));
}

std::vector<std::string> textPieces(Dice &dice, int size) {
    const PoolList pools = palette(dice);
    const std::size_t most = static_cast<std::size_t>(std::max(size, 4));
    std::vector<std::string> pieces;
    const std::size_t shape = dice.below(100);
    if (shape < 3) {
        return pieces;
    }
    if (shape < 45) {
        appendPieces(dice, pools, dice.between(1, 10), pieces);
    } else if (shape < 70) {
        appendPieces(dice, pools, dice.between(1, most), pieces);
    } else if (shape < 88) {
        appendBlocks(dice, pools, pieces);
    } else {
        appendRepeatedLines(dice, pools, dice.between(1, most / 2), pieces);
    }
    return pieces;
}

} // namespace lexivore::test
