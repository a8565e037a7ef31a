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

} // namespace
} // namespace lexivore
