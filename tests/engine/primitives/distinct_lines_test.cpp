// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/distinct_lines.h"

#include "tests/engine/split_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace lexivore {

namespace {

using namespace std::string_literals;

/// Compares with a standard set. The memory of the text ends where it does.
void expectDistinct(const std::string &text) {
    const std::vector<char> memory(text.begin(), text.end());
    std::set<std::string_view> seen;
    std::string expected;
    for (const std::string_view line : splitLines(text)) {
        if (seen.insert(line).second) {
            expected += (seen.size() == 1 ? "" : "\n") + std::string(line);
        }
    }
    const TextBuffer distinct = distinctLines({memory.data(), memory.size()});
    const auto place = std::mismatch(distinct.view().begin(), distinct.view().end(), expected.begin(), expected.end());
    // Told by the place, for of so many lines the difference takes more memory than there is.
    ASSERT_TRUE(distinct == expected) << "first differs at byte " << place.second - expected.begin();
}

TEST(DistinctLines, AreTheFirstOfTheirKind) {
    EXPECT_EQ(distinctLines("a\nb\na\nab\nb"), "a\nb\nab");
    EXPECT_EQ(distinctLines("a\r\nb\r\na"), "a\n\nb");
    EXPECT_EQ(distinctLines(""), "");
    EXPECT_EQ(distinctLines("\n\n"), "");
    EXPECT_EQ(distinctLines("a\n"), "a\n");
}

TEST(DistinctLines, AreToldFromTheirBeginnings) {
    std::string text;
    for (std::size_t size = 0; size < 100; ++size) {
        text += std::string(size, 'x') + "\n" + std::string(100 - size, '\0') + "\n";
    }
    expectDistinct(text + text);
    expectDistinct("abc\nab");
    expectDistinct("ab\nabc\nab");
    expectDistinct("\xC3\xA9\n\xC3\nx\xC3\xA9\nx\xC3"); // what is no UTF-8, too
}

TEST(DistinctLines, AreEqualWhateverEndsThem) {
    expectDistinct("a\na\ra\va\fa\u0085a\u2028a\u2029a");
    expectDistinct("a\u0085a\u0086\na\u2028a\u2027\na");
}

TEST(DistinctLines, MayDifferInTheHighestBitsOfSomeWordsOfTheProcessorAlone) {
    std::mt19937 random(2);
    std::string text;
    for (int i = 0; i < 60'000; ++i) {
        for (int word = 0; word < 4; ++word) {
            text += "aaaaaaa";
            text += static_cast<char>('0' + random() % 16);
        }
        text += '\n';
    }
    expectDistinct(text);
}

TEST(DistinctLines, MayDifferInOneByteWhereverItStands) {
    std::string text;
    for (const std::size_t size : {1U, 31U, 64U, 65U, 127U, 128U, 129U, 200U}) {
        for (std::size_t place = 0; place < size; ++place) {
            std::string line(size, 'a');
            line[place] = 'b';
            text += line + "\n";
        }
    }
    expectDistinct(text + text);
    expectDistinct(text + text + std::string(300, 'c'));
}

TEST(DistinctLines, AreToldApartWhereTheirHashesAreTheSame) {
    std::string text; // of so many lines some twenty have the hash of another, whatever they are hashed with
    for (int i = 0; i < 300'000; ++i) {
        text += std::to_string(i) + "\n";
    }
    expectDistinct(text + text);
}

TEST(DistinctLines, EqualThoseOfAStandardSetOnRandomLines) {
    constexpr unsigned seed = 1;
    std::mt19937 random(seed);
    for (const unsigned differentLines : {1U, 10U, 3000U, 100'000U}) {
        for (const unsigned longest : {1U, 30U, 200U}) { // short ones are many for the size of the text
            std::string text;
            for (int i = 0; i < 60'000; ++i) {
                text += std::to_string(random() % differentLines);
                text += i % 50 == 0 ? std::string(random() % longest, 'x') : "";
                text += random() % 9 == 0 ? "\u2028" : "\n";
            }
            SCOPED_TRACE("seed " + std::to_string(seed));
            expectDistinct(text);
        }
    }
}

TEST(DistinctLines, StandInLargeTextsAsInSmallOnes) {
    std::mt19937 random(3);
    for (const unsigned oneOf : {2U, 10U, 1'000U}) { // stretches of all sizes between lines that go
        std::string text;
        for (int i = 0; text.size() < 5'000'000; ++i) {
            text += random() % oneOf == 0 ? "again" : std::to_string(i) + std::string(random() % 100, 'x');
            text += random() % 1'000 == 0 ? "\r" : "\n";
        }
        expectDistinct(text);
    }
}

} // namespace

} // namespace lexivore
