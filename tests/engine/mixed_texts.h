// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/utf8.h"

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

// Texts in many scripts, for comparing what works on whole blocks with what takes one code point after the other.
namespace lexivore {

inline std::string encoded(char32_t codePoint) {
    char bytes[4];
    return {bytes, encode(codePoint, bytes)};
}

/// About `codePoints` code points: stretches of one script each, with every kind of code point that characters, case
/// and words depend on, and with bytes that are no UTF-8 if asked for.
inline std::string randomMixedText(std::mt19937 &random, std::size_t codePoints, bool hasIllFormed = false) {
    static constexpr std::u32string_view stretches[] = {U"abcXYZ 019 .,!'_-\t\n",
                                                        U"éèüößñçåÉÖŉǰſıİaeS ",
                                                        U"абвгдПМСстырЁёЏџ .",
                                                        U"αβγδσΣΑΤάήΐΰς ’'a.",
                                                        U"कखगचटतनपरलह\x93E\x93F\x947\x94D\x93C ।",
                                                        U"的一是不了人我在漢語，。\x3400䷀",
                                                        U"ابتجحد\x64B\x650\x670 ،",
                                                        U"😀🎉👍❤⚡👩👨🏽\x200D\xFE0F\x1F3FB",
                                                        U"🇩🇪🇫🇷\x1F1E6",
                                                        U"한국어각\x1100\x1161\x11A8\xAC00",
                                                        U"\x301\x323\x345\x20DD\x200D\xFE0F\x94D\x903",
                                                        U"\x600\x6DD\x70F\x110BD",
                                                        U"\r\n\r\n\x85\x2028\x2029\x0B",
                                                        U"\x300A\xA0\x1680\x2003\x3000\xAD\xFEFF\x200B",
                                                        U"ếỀﬀẞἀᾳⱥȺɐჰᲰꭰᎠ𐐨𐐀ⅷⓜǅ",
                                                        U"\x7FF\x800\xFFFF\x10000\x10FFFF\x7F\x80\xBF\xC0\xE000\xD7FF"};
    static constexpr std::string_view illFormed[] = {
        "\x80", "\xC3",         "\xE0\xA4",         "\xF0\x9F\x98", "\xED\xA0\x80", "\xC0\x80", "\xF5\x80\x80\x80",
        "\xFF", "\xE0\x80\x80", "\xF4\x90\x80\x80", "\xBF\xBF"};
    std::string text;
    while (codePoints > 0) {
        const std::u32string_view stretch = stretches[random() % std::size(stretches)];
        const std::size_t length = std::min<std::size_t>(codePoints, 1 + random() % (random() % 4 == 0 ? 80 : 8));
        for (std::size_t i = 0; i < length; ++i) {
            text += encoded(stretch[random() % stretch.size()]);
        }
        codePoints -= length;
        if (hasIllFormed && random() % 3 == 0) {
            text += illFormed[random() % std::size(illFormed)];
        } else if (random() % 8 == 0) {
            text += std::string(random() % 100, 'a');
        }
    }
    return text;
}

/// Calls `check(text)` with texts of many lengths, well-formed ones and others.
template<typename Check> void onMixedTexts(Check check) {
    std::mt19937 random(20240614);
    for (std::size_t round = 0; round < 3000; ++round) {
        check(randomMixedText(random, random() % 200, round % 3 == 0));
    }
}

} // namespace lexivore
