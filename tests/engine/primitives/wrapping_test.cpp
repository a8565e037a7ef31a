// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/wrapping.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/utf8.h"

#include <gtest/gtest.h>

#include <cstddef>
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

TEST(Wrapping, FillsLongTextsOfAllScriptsAsItFillsAnyOther) {
    // Words that are mostly told apart by one space, at every distance from where blocks begin, and now and then all
    // else that tells words apart or joins a space.
    const std::string_view letters[] = {"a",  "é", "ж", "σ", "क",        "्",   "ि",  "漢",
                                        "字", "م", "ً",  "👩", "👩\u200D👧", "🇩🇪", "각", "."};
    const std::string_view others[] = {"\t",       "\u00A0", "\u3000", " \u0301", "\u0600 ",
                                       "\t\u0301", "\n",     "\r\n",   "\u2028"};
    std::mt19937 random(14);
    const auto below = [&random](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    for (const std::size_t width : {1U, 5U, 12U, 30U, 64U, 80U, 81U, 200U, 3'000U}) {
        for (const std::size_t otherEvery : {0U, 300U, 10U}) {
            for (const std::size_t longestWord : {4U, 12U, 100U, 1'000U}) {
                const std::size_t asciiEvery = 1 + below(6);
                std::string text(below(3), ' ');
                while (text.size() < 6'000) {
                    const std::size_t script = below(std::size(letters) - 2);
                    for (std::size_t left = 1 + below(1 + below(longestWord)); left > 0; --left) {
                        text += below(asciiEvery) == 0 ? "w" : letters[script + below(3)];
                    }
                    text.append(below(30) == 0 ? below(70) : 1, ' ');
                    text += otherEvery > 0 && below(otherEvery) == 0 ? others[below(std::size(others))] : "";
                }
                ASSERT_EQ(wrapText(text, width), wrappedSlowly(text, width))
                    << width << " " << testing::PrintToString(text);
            }
        }
    }
}

/// The same for texts whose pieces have as many characters in a line as they have alone.
std::string filledWordByWord(std::string_view text, std::size_t width) {
    std::string result;
    std::size_t length = 0;
    bool isLineEmpty = true;
    for (const std::string &piece : pieces(text)) {
        const std::size_t pieceLength = characterCount(piece);
        if (!isLineEmpty && length + pieceLength + 1 <= width) {
            result.append(1, ' ').append(piece);
            length += 1 + pieceLength;
            continue;
        }
        result.append(isLineEmpty ? 0 : 1, '\n').append(piece);
        length = pieceLength;
        isLineEmpty = piece.empty();
    }
    return result;
}

void expectFilledWordByWord(const std::string &text, std::size_t width) {
    ASSERT_EQ(wrapText(text, width), filledWordByWord(text, width)) << width << " " << testing::PrintToString(text);
}

constexpr std::size_t copiedAtOnce = 4096;

TEST(Wrapping, LeavesOutTheBlanksThatLinesWouldBeginWith) {
    std::mt19937 random(13);
    const auto below = [&random](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    const std::string_view lineEnds[] = {"\n", "\r\n", "\r", "\n\r", "\n\n", "\r\r\n"};
    const std::string_view others[] = {"é", "\x1B", "漢", "👍", "\u00A0", "\u3000"};
    for (std::size_t round = 0; round < 144; ++round) {
        const std::size_t blankKinds = round % 3; // spaces, tabs, both
        const std::size_t lineEndKinds = round / 3 % 3 == 0 ? 0 : 1 + below(std::size(lineEnds));
        const bool hasOneKindOfLineEnds = round / 3 % 3 == 1;
        const std::size_t longestRun = std::size_t{2} << 2 * (round / 9 % 4);
        const std::size_t longestWord = std::size_t{2} << 2 * below(4);
        const std::size_t otherEvery = round / 36 * 60;
        const auto blanks = [&](std::size_t count) {
            std::string run(count, blankKinds == 1 ? '\t' : ' ');
            for (char &blank : run) {
                blank = blankKinds == 2 && below(2) == 0 ? '\t' : blank;
            }
            return run;
        };
        std::string text = blanks(below(2) * below(100));
        while (text.size() < 2 * copiedAtOnce + below(500)) {
            for (std::size_t left = 1 + below(longestWord); left > 0; --left) {
                const bool isLineEnd = lineEndKinds > 0 && below(10) == 0;
                text += isLineEnd ? lineEnds[hasOneKindOfLineEnds ? lineEndKinds - 1 : below(lineEndKinds)] : "w";
            }
            text += otherEvery > 0 && below(otherEvery) == 0 ? others[below(std::size(others))] : "";
            text += blanks(below(4) == 0 ? 1 : 1 + below(longestRun));
        }
        text += below(2) == 0 ? "end" : "";
        for (std::size_t width = 1; width < 18; ++width) {
            expectFilledWordByWord(text, width);
        }
        for (const std::size_t width : {63U, 64U, 65U, 80U, 200U, 4'094U, 4'095U, 4'096U, 4'097U, 6'000U, 8'200U}) {
            expectFilledWordByWord(text, width);
        }
        expectFilledWordByWord(text, 20 + below(text.size()));
        expectFilledWordByWord(text, text.size());
        expectFilledWordByWord(text, SIZE_MAX);
    }
}

TEST(Wrapping, EndsLinesAtEveryPlaceOfWhatIsCopiedAtOnce) {
    // One run of blanks in a long text of words, another one, or none.
    const auto words = [](std::size_t size, std::string_view word) {
        std::string text;
        while (text.size() < size) {
            text += word;
        }
        return text.substr(0, size);
    };
    for (const std::string_view word : {"ab cd ", "word\r\n ", "w", "one\ttwo  ", "no blank in sight ... \r\n"}) {
        for (std::size_t place = copiedAtOnce - 66; place < copiedAtOnce + 66; ++place) {
            for (const std::size_t run : {0U, 1U, 2U, 63U, 64U, 65U, 150U}) {
                const std::string text =
                    words(place, word).append(run, run % 2 == 0 ? ' ' : '\t').append(words(300, word));
                const std::size_t widths[] = {1 + place % 14, 80, place - 1, place, place + 1, place + run, 5'000};
                expectFilledWordByWord(text, widths[(place + run) % std::size(widths)]);
                expectFilledWordByWord(text, widths[(place + run + 3) % std::size(widths)]);
            }
        }
    }
}

TEST(Wrapping, MakesASpaceOfATabWhereverItStandsBehindALongStretchWithoutAny) {
    constexpr std::size_t searchedAtOnce = 16'384;
    for (std::size_t place = searchedAtOnce - 70; place < searchedAtOnce + 140; ++place) {
        std::string text(place % 3, 'x');
        while (text.size() < place) {
            text += "\u0436 ";
        }
        text.back() = '\t';
        text += "\u0436 \u0436 \u0436";
        expectFilledWordByWord(text, 20);
    }
}

TEST(Wrapping, EndsNarrowLinesAtEveryPlaceOfABlock) {
    for (std::size_t before = 0; before < 70; ++before) {
        for (const std::size_t run : {1U, 2U, 3U, 5U, 12U, 13U, 30U, 61U, 62U, 63U, 64U, 65U, 66U, 130U}) {
            for (const std::string_view word : {"a", "ab", "abcdefghijklm", "a\n"}) {
                std::string text = "First " + std::string(before, 'x');
                for (std::size_t i = 0; i < 20; ++i) {
                    text.append(run, i % 2 == 0 ? ' ' : '\t').append(word).append(i % 3, 'x');
                }
                for (std::size_t width = 1 + before % 2; width < 16; width += 2) {
                    expectFilledWordByWord(text, width);
                }
            }
        }
    }
}

} // namespace
} // namespace lexivore
