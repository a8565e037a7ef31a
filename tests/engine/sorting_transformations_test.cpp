// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/split_texts.h"
#include "tests/engine/transformation_rule.h"

#include <algorithm>
#include <map>
#include <random>
#include <set>

namespace lexivore::test {

namespace {

using namespace std::string_literals;

const Case sortLines[] = {
    {"ascending", "b\nc\na", {}, "a\nb\nc"},
    {"the empty line first", "b\nA\na\n", {}, "\nA\na\nb"},
    {"capitals before small letters", "apple\nZebra\nÄpfel\nzebra", {}, "Zebra\napple\nzebra\nÄpfel"},
    {"digits before letters", "b1\n2\nA\n10", {}, "10\n2\nA\nb1"},
    {"a line before those that go on", "abc\nab\nabcd\na", {}, "a\nab\nabc\nabcd"},
    {"equal lines all stay", "b\na\nb", {}, "a\nb\nb"},
    {"spaces count and are kept", "b\n a\na \na", {}, " a\na\na \nb"},
    {"long lines that differ at the end",
     "aaaaaaaaaaaaaaaac\naaaaaaaaaaaaaaaab\naaaaaaaac\naaaaaaaab",
     {},
     "aaaaaaaaaaaaaaaab\naaaaaaaaaaaaaaaac\naaaaaaaab\naaaaaaaac"},
    {"by code point and not by unit of UTF-16", "😀\n～\n漢", {}, "漢\n～\n😀"},
    {"by the composed form", "z\ne\u0301\nf\nê", {}, "f\nz\ne\u0301\nê"},
    {"canonical equivalents keep their order", "\u00E9\ne\u0301\n\u00E9", {}, "\u00E9\ne\u0301\n\u00E9"},
    {"the other way round too", "e\u0301\n\u00E9\ne\u0301", {}, "e\u0301\n\u00E9\ne\u0301"},
    {"a sign equals the letter it stands for", "\u212B2\n\u00C51\nA\u030A0", {}, "A\u030A0\n\u00C51\n\u212B2"},
    {"marks in any order are equal", "a\u0323\u0301\na\u0301\u0323", {}, "a\u0323\u0301\na\u0301\u0323"},
    {"Hangul letters equal their syllable", "\u1100\u1161b\n가a", {}, "가a\n\u1100\u1161b"},
    {"compatibility forms differ", "ﬁ\nfi\nﬀ", {}, "fi\nﬀ\nﬁ"},
    {"not by locale", "ö\nz\no", {}, "o\nz\nö"},
    {"other scripts by their code points", "שלום\nпривет\nनमस्ते\nελ", {}, "ελ\nпривет\nשלום\nनमस्ते"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"only line breaks", "\n\n", {}, "\n\n"},
    {"CR LF encloses an empty line", "b\r\na", {}, "\na\nb"},
    {"every newline character splits", "g\rf\ve\fd\u0085c\u2028b\u2029a", {}, "a\nb\nc\nd\ne\nf\ng"},
    {"a no-break space is no space", "\u00A0a\nz\n a", {}, " a\nz\n\u00A0a"},
    {"an emoji family behind one of its members", "👨\u200D👩\u200D👧\n👨", {}, "👨\n👨\u200D👩\u200D👧"},
    {"NUL is the smallest character", "a\0\na\nb\na\0\0"s, {}, "a\na\0\na\0\0\nb"s},
    {"ignores the parameters", "b\na", {{"separator", ","}}, "a\nb"},
};
INSTANTIATE_TEST_SUITE_P(SortLines, TransformationRule, rulesOf("sort-lines", sortLines), ruleAsName);

const Case sortLinesReverse[] = {
    {"descending", "b\nc\na", {}, "c\nb\na"},
    {"the empty line last", "b\nA\na\n", {}, "b\na\nA\n"},
    {"small letters before capitals before digits", "1\nZebra\napple", {}, "apple\nZebra\n1"},
    {"a line behind those that go on", "a\nabc\nab", {}, "abc\nab\na"},
    {"by code point and not by unit of UTF-16", "～\n😀", {}, "😀\n～"},
    {"by the composed form", "e\u0301\nf\nz", {}, "e\u0301\nz\nf"},
    {"canonical equivalents keep their order", "a\n\u00E9\ne\u0301\nb", {}, "\u00E9\ne\u0301\nb\na"},
    {"the other way round too", "a\ne\u0301\n\u00E9\nb", {}, "e\u0301\n\u00E9\nb\na"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"a final line break is an empty line", "a\n", {}, "a\n"},
    {"CR LF encloses an empty line", "a\r\nb", {}, "b\na\n"},
    {"every newline character splits", "a\rb\vc\fd\u0085e\u2028f\u2029g", {}, "g\nf\ne\nd\nc\nb\na"},
    {"other scripts and emoji", "a\n👨\u200D👩\u200D👧\nन\n👨", {}, "👨\u200D👩\u200D👧\n👨\nन\na"},
    {"no-break space and NUL", "a\na\0\n\u00A0"s, {}, "\u00A0\na\0\na"s},
};
INSTANTIATE_TEST_SUITE_P(SortLinesReverse, TransformationRule, rulesOf("sort-lines-reverse", sortLinesReverse),
                         ruleAsName);

const Case sortLinesByLength[] = {
    {"short lines first", "ccc\na\nbb", {}, "a\nbb\nccc"},
    {"lines of equal length keep their order", "ccc\na\nbb\nd", {}, "a\nd\nbb\nccc"},
    {"the order of letters does not matter", "z\na\nm", {}, "z\na\nm"},
    {"empty lines first", "a\n\nb\n", {}, "\n\na\nb"},
    {"spaces count", "  \na\n b ", {}, "a\n  \n b "},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"CR LF encloses an empty line", "ab\r\nc", {}, "\nc\nab"},
    {"every newline character splits", "aaaa\raaa\u0085aa\u2028a", {}, "a\naa\naaa\naaaa"},
    {"a letter of many bytes is one character", "ab\nж\nabc\n漢字", {}, "ж\nab\n漢字\nabc"},
    {"an emoji family is one character", "ab\n👨\u200D👩\u200D👧\n🇩🇪", {}, "👨\u200D👩\u200D👧\n🇩🇪\nab"},
    {"a letter and its marks are one character", "ab\ne\u0301\u0323", {}, "e\u0301\u0323\nab"},
    {"joined consonants are one character", "ab\nक्षि", {}, "क्षि\nab"},
    {"Hangul letters form one character", "ab\n\u1112\u1161\u11AB", {}, "\u1112\u1161\u11AB\nab"},
    {"a mark that begins its line is a character", "ab\n\u0301", {}, "\u0301\nab"},
    {"no-break space and NUL are one character each", "ab\n\0\n\u00A0"s, {}, "\0\n\u00A0\nab"s},
};
INSTANTIATE_TEST_SUITE_P(SortLinesByLength, TransformationRule, rulesOf("sort-lines-length", sortLinesByLength),
                         ruleAsName);

const Case sortWords[] = {
    {"a single line", "b a\nc", {}, "a b c"},
    {"capitals before small letters, digits before both", "b B 1 a A 10 2", {}, "1 10 2 A B a b"},
    {"empty pieces are dropped", "  b \t a \n\n", {}, "a b"},
    {"equal words all stay", "b a b", {}, "a b b"},
    {"punctuation belongs to its word", "b, a. (c)", {}, "(c) a. b,"},
    {"canonical equivalents keep their order", "z \u00E9 e\u0301 f", {}, "f z \u00E9 e\u0301"},
    {"by code point and not by unit of UTF-16", "😀 ～", {}, "～ 😀"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"only spaces and line breaks", " \r\n\t", {}, ""},
    {"every newline character separates", "g\rf\ve\fd\u0085c\u2028b\r\na\u2029h\n", {}, "a b c d e f g h"},
    {"every space separates", "c\u00A0b\u3000a", {}, "a b c"},
    {"what has no width separates nothing", "b\u200Ba a", {}, "a b\u200Ba"},
    {"other scripts and emoji", "न я 👨\u200D👩\u200D👧 a", {}, "a я न 👨\u200D👩\u200D👧"},
    {"NUL separates nothing", "b\0a b a"s, {}, "a b b\0a"s},
};
INSTANTIATE_TEST_SUITE_P(SortWords, TransformationRule, rulesOf("sort-words", sortWords), ruleAsName);

TEST(SortWords, EqualsASortOfAllWords) {
    std::mt19937 random(1);
    // Few and many different ones, short and long, in texts with something to compose and without.
    for (const unsigned differentWords : {3U, 500U, 100'000U}) {
        for (const char *composable : {"", "e\u0301 ", "\u00E9 e\u0301 \u00E9 "}) {
            std::string text = composable;
            for (int i = 0; i < 20'000; ++i) {
                text += std::to_string(random() % differentWords) + std::string(random() % 40, 'x') + "\n";
            }
            std::vector<std::string_view> words = splitPieces(text, whitespaceAndNewlines);
            std::stable_sort(words.begin(), words.end(), [](std::string_view left, std::string_view right) {
                const auto key = [](std::string_view word) { return word == "e\u0301" ? "\u00E9" : word; };
                return key(left) < key(right);
            });
            std::string expected;
            for (const std::string_view word : words) {
                expected += (expected.empty() ? "" : " ") + std::string(word);
            }
            const TransformationPointer sorting = findTransformation(makeCatalog(), "sort-words");
            ASSERT_EQ(sorting->apply(text, {}), expected);
        }
    }
}

const Case reverseWords[] = {
    {"each line for itself", "one two\nthree four", {}, "two one\nfour three"},
    {"runs of spaces become one", "a  b \t c", {}, "c b a"},
    {"spaces at the ends go", "  a b\t\n c d ", {}, "b a\nd c"},
    {"an empty line stays empty", "a b\n\n \t\nc d", {}, "b a\n\n\nd c"},
    {"the letters of a word stay", "abc, def!", {}, "def! abc,"},
    {"a line of one word stays", "abc", {}, "abc"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"a final line break stays", "a b\n", {}, "b a\n"},
    {"CR LF encloses an empty line", "a b\r\nc d", {}, "b a\n\nd c"},
    {"every newline character splits",
     "a b\rc d\ve f\fg h\u0085i j\u2028k l\u2029m n",
     {},
     "b a\nd c\nf e\nh g\nj i\nl k\nn m"},
    {"every space separates", "a\u00A0b\u3000c", {}, "c b a"},
    {"what has no width separates nothing", "a\u200Bb c", {}, "c a\u200Bb"},
    {"other scripts, marks and emoji", "न e\u0301 👨\u200D👩\u200D👧", {}, "👨\u200D👩\u200D👧 e\u0301 न"},
    {"NUL separates nothing", "a\0b c"s, {}, "c a\0b"s},
};
INSTANTIATE_TEST_SUITE_P(ReverseWords, TransformationRule, rulesOf("reverse-words-in-line", reverseWords), ruleAsName);

TEST(ReverseWords, EqualsAReversalWordByWord) {
    std::mt19937 random(1);
    const TransformationPointer reversing = findTransformation(makeCatalog(), "reverse-words-in-line");
    for (int run = 0; run < 300; ++run) { // words longer and shorter than what is copied at once, up to the text's end
        std::string text;
        std::string expected;
        for (std::size_t lines = random() % 20; lines > 0; --lines) {
            std::string reversed;
            for (std::size_t words = random() % 6; words > 0; --words) {
                const std::string word(1 + random() % (run % 3 == 0 ? 5 : 50), static_cast<char>('a' + random() % 26));
                text += std::string(random() % 3 + 1, ' ') + word;
                reversed = word + (reversed.empty() ? "" : " ") + reversed;
            }
            expected += reversed;
            if (lines > 1) {
                text += '\n';
                expected += '\n';
            }
        }
        const std::vector<char> memory(text.begin(), text.end());
        ASSERT_EQ(reversing->apply({memory.data(), memory.size()}, {}), expected) << text;
    }
}

TEST(ReverseWords, TakesUsualAndUnusualLinesByTurns) {
    std::mt19937 random(1);
    const TransformationPointer reversing = findTransformation(makeCatalog(), "reverse-words-in-line");
    constexpr std::string_view lines[] = {"a usual line",
                                          "  with blanks before",
                                          "and behind ",
                                          "two  in between",
                                          "\tand\ttabs",
                                          "\u00A0no-break\u00A0",
                                          "",
                                          "\u0430\u0431 \u0432"};
    constexpr std::string_view reversed[] = {"line usual a", "before blanks with", "behind and", "between in two",
                                             "tabs and",     "no-break",           "",           "\u0432 \u0430\u0431"};
    for (const unsigned usual : {1U, 4U, 200U, 5'000U}) { // lines to one that may be anything
        std::string text;
        std::string expected;
        while (text.size() < 200'000) {
            const std::size_t index = random() % usual == 0 ? random() % std::size(lines) : 0;
            text += std::string(lines[index]) + "\n";
            expected += std::string(reversed[index]) + "\n";
        }
        ASSERT_EQ(reversing->apply(text, {}), expected);
    }
}

TEST(SortLines, EqualsASortOfAllLinesOfALargeText) {
    std::mt19937 random(1);
    const std::string letters = std::string("abcdefgh \0\x7F", 11) + "\t";
    for (const std::size_t longest : {4U, 40U, 200U}) { // short lines are sorted in groups
        std::string text;
        while (text.size() < 2'500'000) {
            for (std::size_t left = random() % longest; left > 0; --left) {
                text += letters[random() % (random() % letters.size() + 1)];
            }
            text += '\n';
        }
        std::vector<std::string_view> lines = splitLines(text);
        std::sort(lines.begin(), lines.end());
        for (const char *id : {"sort-lines", "sort-lines-reverse"}) {
            std::string expected;
            for (const std::string_view line : lines) {
                (expected += line) += '\n';
            }
            expected.pop_back();
            ASSERT_TRUE(findTransformation(makeCatalog(), id)->apply(text, {}) == expected) << id << ' ' << longest;
            std::reverse(lines.begin(), lines.end());
        }
    }
}

TEST(SortLines, ComparesTheComposedFormsInALargeTextOfShortLinesToo) {
    // "e" and an accent come behind "z" when they are composed.
    std::string text;
    std::string letters;
    std::string accented;
    for (int i = 0; i < 200'000; ++i) {
        text += "ze\u0301\nzz\n";
        letters += "zz\n";
        accented += "ze\u0301\n";
    }
    text.pop_back();
    const std::string ascending = letters + accented;
    const std::string descending = accented + letters;
    const Catalog catalog = makeCatalog();
    EXPECT_TRUE(findTransformation(catalog, "sort-lines")->apply(text, {}) ==
                std::string_view(ascending).substr(0, ascending.size() - 1));
    EXPECT_TRUE(findTransformation(catalog, "sort-lines-reverse")->apply(text, {}) ==
                std::string_view(descending).substr(0, descending.size() - 1));
}

TEST(SortLinesByLength, TakesAsciiAndOtherTextsAlike) {
    std::mt19937 random(1);
    const TransformationPointer sorting = findTransformation(makeCatalog(), "sort-lines-length");
    for (const char *letter : {"a", "\u00E9"}) {
        std::string text = "x"; // the first of its length
        std::map<std::size_t, std::string> linesOfLength = {{1, "x\n"}};
        for (int i = 0; i < 1000; ++i) {
            std::string line = std::to_string(i % 7);
            const std::size_t length = 1 + random() % 100;
            while (line.size() < 1 + (length - 1) * std::string_view(letter).size()) {
                line += letter;
            }
            text += "\n" + line;
            linesOfLength[length] += line + "\n";
        }
        std::string expected;
        for (const auto &[length, lines] : linesOfLength) {
            expected += lines;
        }
        expected.pop_back();
        ASSERT_EQ(sorting->apply(text, {}), expected);
    }
}

const Case shuffleOfOneLine[] = {
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"one line stays unchanged", " न e\u0301 👨\u200D👩\u200D👧\u00A0\0 "s, {}, " न e\u0301 👨\u200D👩\u200D👧\u00A0\0 "s},
    {"equal lines are joined with line feeds", "a\ra\u2028a\u0085a", {}, "a\na\na\na"},
    {"CR LF encloses an empty line", "\r\n", {}, "\n\n"},
};
INSTANTIATE_TEST_SUITE_P(ShuffleLines, TransformationRule, rulesOf("shuffle-lines", shuffleOfOneLine), ruleAsName);

std::string shuffled(std::string_view text) {
    const TransformationPointer shuffle = findTransformation(makeCatalog(), "shuffle-lines");
    return std::string(shuffle->apply(text, {}).view());
}

TEST(ShuffleLines, KeepsEveryLineOnce) {
    const std::string text = "a\nb\n\nc\r\nd\u2028a\0b\u0085 e\u0301 \n"s;
    const std::string result = shuffled(text);
    std::vector<std::string_view> before = splitLines(text);
    std::vector<std::string_view> after = splitLines(result);
    EXPECT_EQ(std::count(result.begin(), result.end(), '\n'), static_cast<std::ptrdiff_t>(before.size()) - 1);
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    EXPECT_EQ(after, before);
}

TEST(ShuffleLines, GivesANewOrderEachTime) {
    // Twenty lines have 2.4e18 orders: a repetition within five runs would be no accident.
    const std::string text = "a\nb\nc\nd\ne\nf\ng\nh\ni\nj\nk\nl\nm\nn\no\np\nq\nr\ns\nt";
    std::set<std::string> orders = {text};
    for (int run = 0; run < 5; ++run) {
        orders.insert(shuffled(text));
    }
    EXPECT_EQ(orders.size(), 6U);
}

TEST(ShuffleLines, GivesEveryOrderEquallyOften) {
    constexpr int runs = 6000;
    std::map<std::string, int> counts;
    for (int run = 0; run < runs; ++run) {
        ++counts[shuffled("a\nb\nc")];
    }
    EXPECT_EQ(counts.size(), 6U);
    for (const auto &[order, count] : counts) {
        // Seven standard deviations: one honest run in four hundred thousand million is farther off.
        EXPECT_NEAR(count, runs / 6.0, 7 * 29) << order;
    }
}

} // namespace

} // namespace lexivore::test
