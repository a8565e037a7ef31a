// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/line_lengths.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/lines.h"
#include "tests/engine/mixed_texts.h"

#include <gtest/gtest.h>

namespace lexivore {

namespace {

std::vector<std::size_t> lengthsOfEach(std::string_view text) {
    std::vector<std::size_t> lengths;
    forEachLine(text, [&](std::string_view line) { lengths.push_back(characterCount(line)); });
    return lengths;
}

TEST(LineLengths, CountCharactersWithoutTheNewlines) {
    EXPECT_EQ(lineLengths(""), (std::vector<std::size_t>{0}));
    EXPECT_EQ(lineLengths("\n"), (std::vector<std::size_t>{0, 0}));
    EXPECT_EQ(lineLengths("abc\r\ne\u0301\u2028👨‍👩‍👧\u0085\v"),
              (std::vector<std::size_t>{3, 0, 1, 1, 0, 0}));
    // A mark at the beginning of a line belongs to nothing before it.
    EXPECT_EQ(lineLengths("a\n\u0301b\n"), (std::vector<std::size_t>{1, 2, 0}));
}

TEST(LineLengths, EqualThoseOfEachLineByItself) {
    onMixedTexts([](std::string_view text) { ASSERT_EQ(lineLengths(text), lengthsOfEach(text)) << text; });
}

TEST(LineLengths, FindNewlinesAtEveryPlaceOfABlock) {
    for (const std::string_view newline : {"\n", "\r", "\v", "\f", "\u0085", "\u2028", "\u2029"}) {
        for (const std::string_view filler : {"a", "é", "का", "的", "👩🏽"}) {
            for (std::size_t before = 0; before < 70; ++before) {
                std::string text;
                for (std::size_t i = 0; i < before; ++i) {
                    text += filler;
                }
                text += newline;
                text += filler;
                text += newline;
                text += newline;
                ASSERT_EQ(lineLengths(text), (std::vector<std::size_t>{before, 1, 0, 0})) << text;
            }
        }
    }
}

} // namespace

} // namespace lexivore
