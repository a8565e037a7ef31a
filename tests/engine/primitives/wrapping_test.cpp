// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/wrapping.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/utf8.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {
namespace {

std::vector<std::string> pieces(std::string_view text) {
    std::vector<std::string> result(1);
    const char *const end = text.data() + text.size();
    for (const char *place = text.data(); place != end;) {
        const DecodedCodePoint decoded = decode(place, end);
        if (isIn(whitespace, decoded.value)) {
            result.emplace_back();
        } else {
            result.back().append(place, decoded.length);
        }
        place += decoded.length;
    }
    return result;
}

/// Every line is put together and counted anew for each piece.
std::string wrappedSlowly(std::string_view text, std::size_t width) {
    std::string result;
    std::string line;
    for (const std::string &piece : pieces(text)) {
        if (line.empty()) {
            line = piece;
        } else if (characterCount(line) + characterCount(piece) + 1 > width) {
            result += line + '\n';
            line = piece;
        } else {
            line += ' ' + piece;
        }
    }
    return result + line;
}

TEST(Wrapping, CountsEachLineOnTheWholeOfIt) {
    // Marks that join the space or the tab before them, signs that join what follows, flags, conjuncts, families, CR
    // LF; runs of ASCII that are longer than a block.
    const std::string_view parts[] = {
        "a",      "word",     "é",      "漢",
        "क्ष",     "👩\u200D👧", "🇩🇪",     "🇩",
        "\u0301", "\u0600",   "\u0E33", "\n",
        "\r",     "\r\n",     "\u2028", "The quick brown fox jumps over the lazy dog",
        "\u200D", "\u1100",   "\u094D", "-",
        "\u00A0", "\u3000",   "\t",     "one two three four five six seven eight nine ten eleven twelve"};
    std::mt19937 random(11);
    const auto below = [&random](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    for (int round = 0; round < 6'000; ++round) {
        std::string text;
        for (std::size_t left = below(60); left > 0; --left) {
            text += parts[below(std::size(parts))];
            if (below(2) == 0) {
                text += below(5) == 0 ? '\t' : ' ';
            }
        }
        const std::size_t width = 1 + below(below(2) == 0 ? 12 : 90);
        ASSERT_EQ(wrapText(text, width), wrappedSlowly(text, width)) << width << " " << testing::PrintToString(text);
    }
}

TEST(Wrapping, FillsLongPlainTextsAsItFillsAnyOther) {
    // Texts that are longer than what is copied at once, of words that are shorter and longer than a line, with runs of
    // spaces, and now and then something that is not plain.
    std::mt19937 random(12);
    const auto below = [&random](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    const std::string_view others[] = {"\u0301", "\u00E9", "\x1B", "\x7F", "\u0600"};
    const std::string_view lineEnds[] = {"\n", "\r\n", "\r", "\n\r"};
    for (const std::size_t width : {1U, 2U, 7U, 40U, 62U, 63U, 64U, 65U, 80U, 127U, 128U, 129U, 300U, 5'000U}) {
        for (const std::size_t otherEvery : {0U, 2'000U, 50U}) {
            for (const std::size_t longestWord : {3U, 12U, 100U, 6'000U}) {
                const std::size_t lineEndKinds = 1 + below(std::size(lineEnds));
                std::string text;
                while (text.size() < 14'000) {
                    const std::size_t length = 1 + below(1 + below(longestWord));
                    const std::size_t place = below(3); // of something else
                    const bool hasOther = otherEvery > 0 && below(otherEvery) == 0;
                    const std::string_view other = hasOther ? others[below(std::size(others))] : "";
                    text += place == 0 ? other : "";
                    for (std::size_t i = 0; i < length; ++i) {
                        const bool isLineEnd = below(20) == 0;
                        text += isLineEnd ? lineEnds[below(lineEndKinds)]
                                          : std::string(1, static_cast<char>('!' + below(0x5E)));
                    }
                    text += place == 1 ? other : "";
                    text.append(below(8) == 0 ? 1 + below(below(30) == 0 ? 90 : 4) : 1, below(20) == 0 ? '\t' : ' ');
                    text += place == 2 ? other : "";
                }
                ASSERT_EQ(wrapText(text, width), wrappedSlowly(text, width))
                    << width << " " << testing::PrintToString(text);
            }
        }
    }
}

} // namespace
} // namespace lexivore
