// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/reference.h"
#include "tests/reference/tools_reference.h"

#include <gtest/gtest.h>

#include <ostream>
#include <set>

namespace lexivore::reference {

namespace {

struct Example {
    const char *id;
    const char *rule;
    std::string text;
    Parameters parameters;
    std::string result;
};

std::ostream &operator<<(std::ostream &out, const Example &example) {
    return out << example.id << ": " << example.rule;
}

class ReferenceExample : public testing::TestWithParam<Example> {};
class ReferenceFailure : public testing::TestWithParam<Example> {};

TEST_P(ReferenceExample, GivesTheText) {
    const Example &example = GetParam();
    const Outcome outcome = apply(example.id, example.text, example.parameters);
    EXPECT_TRUE(outcome.succeeded) << outcome.text;
    EXPECT_EQ(outcome.text, example.result);
}

TEST_P(ReferenceFailure, GivesTheDescription) {
    const Example &example = GetParam();
    const Outcome outcome = apply(example.id, example.text, example.parameters);
    EXPECT_FALSE(outcome.succeeded);
    EXPECT_EQ(outcome.text, example.result);
}

using namespace std::string_literals;

const Example caseExamples[] = {
    {"uppercase", "full mapping", "straße", {}, "STRASSE"},
    {"lowercase", "final sigma", "ΟΔΟΣ ΣΟΦΟΣ Σ", {}, "οδος σοφος σ"},
    {"lowercase", "a dotted capital I keeps its dot", "İ", {}, "i̇"},
    {"titlecase", "first letter of every word", "hello WORLD", {}, "Hello World"},
    {"titlecase", "an apostrophe between letters joins", "don't 'quoted' o’neil", {}, "Don't 'Quoted' O’neil"},
    {"titlecase", "other punctuation does not", "foo-bar_baz", {}, "Foo-Bar_Baz"},
    {"titlecase", "digits before the letter are kept", "3rd mp3PLAYER", {}, "3Rd Mp3player"},
    {"titlecase", "digraphs have a titlecase of their own", "ǆ", {}, "ǅ"},
    {"titlecase", "the titlecased letter precedes the sigma", "ΑΣ", {}, "Ας"},
    {"sentencecase", "every terminator becomes a full stop and a space", "Really? yes!", {}, "Really. Yes. "},
    {"sentencecase", "one sentence", "hello WORLD", {}, "Hello world"},
    {"sentencecase", "terminators need no space", "a.b", {}, "A. B"},
    {"sentencecase", "trailing terminator", "end.", {}, "End. "},
    {"sentencecase", "the first character is mapped whole", "ßa", {}, "SSa"},
    {"camelcase", "words are cut at anything else", "hello big-world", {}, "helloBigWorld"},
    {"camelcase", "case is no boundary", "helloWorld foo", {}, "helloworldFoo"},
    {"camelcase", "upper case", "HELLO WORLD", {}, "helloWorld"},
    {"camelcase", "no word leaves the input", "--", {}, "--"},
    {"pascalcase", "every word", "hello big-world", {}, "HelloBigWorld"},
    {"pascalcase", "case within a word goes", "iPhone app", {}, "IphoneApp"},
    {"pascalcase", "no word", "--", {}, ""},
    {"snakecase", "joined with underscores", "Hello Big-World", {}, "hello_big_world"},
    {"snakecase", "no word", "--", {}, ""},
    {"kebabcase", "joined with hyphens", "Hello Big-World", {}, "hello-big-world"},
    {"kebabcase", "no word", "--", {}, ""},
    {"alternatingcase", "begins with upper", "hello world", {}, "HeLlO wOrLd"},
    {"alternatingcase", "only letters flip", "ab cd", {}, "Ab Cd"},
    {"alternatingcase", "characters are mapped whole", "ßa", {}, "SSa"},
    {"invertcase", "swaps", "Hello World", {}, "hELLO wORLD"},
    {"invertcase", "a titlecase letter is neither", "ǅ", {}, "ǅ"},
};
INSTANTIATE_TEST_SUITE_P(Case, ReferenceExample, testing::ValuesIn(caseExamples));

const Example addRemoveExamples[] = {
    {"add-prefix", "the empty text is a line", "", {{"prefix", "> "}}, "> "},
    {"add-suffix", "an empty affix leaves line breaks alone", "a\r\nb", {{"suffix", ""}}, "a\r\nb"},
    {"add-suffix", "empty lines too", "a\n\nb", {{"suffix", ";"}}, "a;\n;\nb;"},
    {"remove-whitespace", "runs become one space", "  a \t b  ", {}, "a b"},
    {"remove-whitespace", "indentation becomes one space", "a\n    b", {}, "a\n b"},
    {"remove-all-spaces", "only U+0020", "a b\u00A0c\td", {}, "ab\u00A0c\td"},
    {"remove-tabs", "every tab", "\ta\t b", {}, "a b"},
    {"remove-empty-lines", "blank ones", "a\n \n\t\nb", {}, "a\nb"},
    {"remove-line-breaks", "empty lines leave their space", "a \n b\n\nc", {}, "a b  c"},
    {"remove-duplicates", "the first empty line stays", "x\n\ny\n\nx", {}, "x\n\ny"},
    {"remove-duplicate-words", "becomes one line", "a b\nb c", {}, "a b c"},
    {"delete-non-alphanumeric", "line breaks stay", "a-1 $\n½", {}, "a1 \n½"},
    {"remove-special-chars", "the same", "a-1 $\n½", {}, "a1 \n½"},
    {"delete-numeric", "of every kind", "a1½²٣b", {}, "ab"},
    {"keep-only-numeric", "spacing stays", "a1 b2\nc3", {}, "1 2\n3"},
    {"remove-punctuation", "symbols stay", "a.b, $+=!", {}, "ab $+="},
    {"wrap-lines",
     "before the word that does not fit",
     "the quick brown fox",
     {{"width", "10"}},
     "the quick\nbrown fox"},
    {"wrap-lines", "never within a word", "abcdef gh", {{"width", "3"}}, "abcdef\ngh"},
};
INSTANTIATE_TEST_SUITE_P(AddRemove, ReferenceExample, testing::ValuesIn(addRemoveExamples));

const Example lineExamples[] = {
    {"trim-lines", "spaces and tabs", " a\t\n\u3000\nb ", {}, "a\n\nb"},
    {"trim-lines", "the halves of CR LF are two breaks", "a\r\nb", {}, "a\n\nb"},
    {"number-lines", "empty lines too", "x\n\ny", {}, "1. x\n2. \n3. y"},
    {"break-after-word", "one word a line", " a b\n\nc", {}, "a\nb\nc"},
    {"break-after-sentence", "terminators go", "Hi. How are you? Fine!", {}, "Hi\nHow are you\nFine"},
    {"delete-lines-containing", "literal", "a.b\naxb", {{"text", "."}}, "axb"},
    {"delete-lines-starting", "leading spaces count", " ab\nab", {{"text", "ab"}}, " ab"},
    {"keep-lines-containing", "case-sensitive", "Ab\nab", {{"text", "a"}}, "ab"},
    {"keep-lines-starting", "from the first character", "ab\nba", {{"text", "a"}}, "ab"},
    {"reverse-lines", "a final line break leads", "a\nb\n", {}, "\nb\na"},
    {"delete-first-n-lines", "a plus sign", "a\nb\nc", {{"count", "+2"}}, "c"},
    {"delete-last-n-lines", "none left", "a\nb", {{"count", "9"}}, ""},
    {"keep-first-n-lines", "more than there are", "a\nb", {{"count", "9223372036854775807"}}, "a\nb"},
    {"keep-last-n-lines", "more than there are", "a\nb", {{"count", "3"}}, "a\nb"},
    {"extract-lines-range", "inclusive and clamped", "a\nb\nc", {{"start", "2"}, {"end", "9"}}, "b\nc"},
    {"extract-lines-range", "behind the text", "a", {{"start", "2"}, {"end", "2"}}, ""},
    {"join-lines", "any separator", "a\nb", {{"separator", " | "}}, "a | b"},
};
INSTANTIATE_TEST_SUITE_P(Lines, ReferenceExample, testing::ValuesIn(lineExamples));

const Example sortingExamples[] = {
    {"sort-lines", "the empty line first", "b\nA\na\n", {}, "\nA\na\nb"},
    {"sort-lines", "equal ones keep their order", "\u00E9\ne\u0301\n\u00E9", {}, "\u00E9\ne\u0301\n\u00E9"},
    {"sort-lines-reverse", "equal ones keep their order", "a\ne\u0301\n\u00E9\nf", {}, "e\u0301\n\u00E9\nf\na"},
    {"sort-lines-length", "stable", "ccc\na\nbb\nd", {}, "a\nd\nbb\nccc"},
    {"sort-words", "one line", "b a\nc", {}, "a b c"},
    {"reverse-words-in-line", "each line for itself", "one two\nthree  four ", {}, "two one\nfour three"},
};
INSTANTIATE_TEST_SUITE_P(Sorting, ReferenceExample, testing::ValuesIn(sortingExamples));

const Example replaceExamples[] = {
    {"replace-text", "no replacement deletes", "banana", {{"find", "a"}}, "bnn"},
    {"replace-text", "an empty find is nowhere", "ab", {{"find", ""}, {"replace", "x"}}, "ab"},
    {"replace-text", "no overlaps", "aaa", {{"find", "aa"}, {"replace", "b"}}, "ba"},
    {"replace-regex", "groups", "key=x", {{"pattern", "(\\w+)="}, {"replace", "[$1]"}}, "[key]x"},
    {"replace-regex", "one digit", "ab", {{"pattern", "(a)"}, {"replace", "$12"}}, "a2b"},
    {"replace-regex",
     "no such group, no match, lone signs",
     "a",
     {{"pattern", "a|(b)"}, {"replace", "<$1$7$$x\\$\\"}},
     "<$$x$"},
    {"replace-regex", "empty matches", "ab", {{"pattern", "x*"}, {"replace", "-"}}, "-a-b-"},
    {"reverse",
     "characters stay whole",
     "ae\u0301\r\n\U0001F468\u200D\U0001F469",
     {},
     "\U0001F468\u200D\U0001F469\r\ne\u0301a"},
};
INSTANTIATE_TEST_SUITE_P(Replace, ReferenceExample, testing::ValuesIn(replaceExamples));

const Example encodingExamples[] = {
    {"base64-encode", "padding", "Hello", {}, "SGVsbG8="},
    {"base64-decode", "padding", "SGVsbG8=", {}, "Hello"},
    {"base64-decode", "bits under the padding", "SGVsbG9=", {}, "Hello"},
    {"base64-decode", "nothing", "", {}, ""},
    {"url-encode", "the query's own characters stay", "a b&c", {}, "a%20b&c"},
    {"url-encode", "uppercase digits for each byte", "é/?#%", {}, "%C3%A9/?%23%25"},
    {"url-decode", "a plus stays", "%c3%A9+%00", {}, "é+\0"s},
    {"html-encode", "the five", "<a href=\"x\">'&", {}, "&lt;a href=&quot;x&quot;&gt;&#39;&amp;"},
    {"html-decode", "in order", "&amp;lt; &amp;amp; &apos;&nbsp;&#60;", {}, "< &amp; '&nbsp;&#60;"},
    {"json-escape", "a backslash and a break", "\\n\n\r\t\"/\b", {}, "\\\\n\\n\\r\\t\\\"/\b"},
    {"hex-encode", "lowercase", "Hié", {}, "4869c3a9"},
    {"hex-decode", "spaces are passed over", "48 65 6C 6c 6F", {}, "Hello"},
    {"hex-decode", "nothing", "", {}, ""},
};
INSTANTIATE_TEST_SUITE_P(Encoding, ReferenceExample, testing::ValuesIn(encodingExamples));

const char *const countMessage = "Invalid input: Count must be a positive number";
const char *const startMessage = "Invalid input: Start must be a positive number";
const char *const endMessage = "Invalid input: End must be >= start";

const Example failures[] = {
    {"add-prefix", "absent", "a", {}, "Missing parameter: prefix"},
    {"add-suffix", "absent", "a", {}, "Missing parameter: suffix"},
    {"join-lines", "absent", "a", {}, "Missing parameter: separator"},
    {"replace-text", "absent", "a", {}, "Missing parameter: find"},
    {"replace-regex", "absent", "a", {}, "Missing parameter: pattern"},
    {"replace-regex", "empty", "a", {{"pattern", ""}}, "Missing parameter: pattern"},
    {"replace-regex",
     "no pattern",
     "a",
     {{"pattern", "("}},
     "Invalid input: Invalid regular expression: U_REGEX_MISMATCHED_PAREN"},
    {"delete-lines-containing", "empty", "a", {{"text", ""}}, "Missing parameter: text"},
    {"keep-lines-starting", "absent", "a", {}, "Missing parameter: text"},
    {"keep-last-n-lines", "zero", "a", {{"count", "0"}}, countMessage},
    {"keep-last-n-lines", "absent", "a", {}, countMessage},
    {"keep-first-n-lines", "a space", "a", {{"count", " 1"}}, countMessage},
    {"delete-first-n-lines", "overflow", "a", {{"count", "9223372036854775808"}}, countMessage},
    {"delete-last-n-lines", "only a sign", "a", {{"count", "+"}}, countMessage},
    {"delete-last-n-lines", "digits of another script", "a", {{"count", "٣"}}, countMessage},
    {"wrap-lines", "no number", "a", {{"width", "abc"}}, "Invalid input: Width must be a positive number"},
    {"extract-lines-range", "start first", "a", {{"start", "x"}}, startMessage},
    {"extract-lines-range", "end below start", "a", {{"start", "2"}, {"end", "1"}}, endMessage},
    {"extract-lines-range", "end absent", "a", {{"start", "2"}}, endMessage},
    {"base64-decode", "no padding", "SGVsbG8", {}, "Invalid input: Invalid Base64 string"},
    {"base64-decode", "a line break", "SGVs\nbG8=", {}, "Invalid input: Invalid Base64 string"},
    {"base64-decode", "padding within", "SG==bG8=", {}, "Invalid input: Invalid Base64 string"},
    {"base64-decode", "too much padding", "A===", {}, "Invalid input: Invalid Base64 string"},
    {"base64-decode", "no UTF-8", "/w==", {}, "Invalid input: Invalid Base64 string"},
    {"url-decode", "cut off", "100%", {}, "Invalid input: Invalid URL-encoded string"},
    {"url-decode", "no digits", "%g0", {}, "Invalid input: Invalid URL-encoded string"},
    {"url-decode", "no UTF-8", "%ff", {}, "Invalid input: Invalid URL-encoded string"},
    {"hex-decode", "odd", "414", {}, "Invalid input: Invalid hexadecimal string"},
    {"hex-decode", "a tab", "41\t42", {}, "Invalid input: Invalid hexadecimal string"},
    {"hex-decode", "no UTF-8", "ed a0 80", {}, "Invalid input: Cannot decode hexadecimal to UTF-8"},
};
INSTANTIATE_TEST_SUITE_P(All, ReferenceFailure, testing::ValuesIn(failures));

TEST(Reference, KnowsEveryTransformationButTheShuffleOnce) {
    const std::vector<std::string> &ids = transformationIds();
    EXPECT_EQ(ids.size(), 57U);
    EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size());
}

TEST(Reference, RefusesATextThatIsNoUtf8) {
    EXPECT_THROW(static_cast<void>(apply("uppercase", "\xFF", {})), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(apply("no such", "", {})), std::invalid_argument);
}

TEST(ReferenceTools, CountTheEmptyText) {
    EXPECT_EQ(statistics(""), (Statistics{0, 0, 0, 1, 0, 0, 0}));
    EXPECT_TRUE(
        statisticsReport(statistics("")).ends_with("Characters per word: 0\nWords per line: 0\nWords per sentence: 0"));
}

TEST(ReferenceTools, CountByEachRule) {
    EXPECT_EQ(statistics("a  b").words, 2);
    EXPECT_EQ(statistics("a  b").charactersNoSpaces, 2);
    EXPECT_EQ(statistics("line1\n\nline3"), (Statistics{12, 10, 2, 3, 2, 1, 2}));
    EXPECT_EQ(statistics("Hi! How are you? Fine.").sentences, 3);
    EXPECT_EQ(statistics("Hi!\n").sentences, 2);
    EXPECT_EQ(statistics("Wait...").sentences, 1);
    EXPECT_EQ(statistics("a\n\n\nb").paragraphs, 2);
    EXPECT_EQ(statistics("e\u0301").characters, 1);
}

TEST(ReferenceTools, ReportTheStatistics) {
    EXPECT_EQ(statisticsReport(statistics("Hello world")),
              "Text Statistics\n\nCharacters: 11\nCharacters (no spaces): 10\nWords: 2\nLines: 1\nNon-empty lines: 1\n"
              "Sentences: 1\nParagraphs: 1\n\nAverages:\nCharacters per word: 5.0\nWords per line: 2.0\n"
              "Words per sentence: 2.0");
}

TEST(ReferenceTools, CountFrequencies) {
    EXPECT_EQ(frequencies("aA a"), (std::vector<Frequency>{{"a", 2}, {"A", 1}, {"", 1}}));
    EXPECT_EQ(frequencyReport({}), "Character Frequency Analysis\n\n");
    EXPECT_EQ(frequencyReport({{"", 12}, {"b", 1}}), "Character Frequency Analysis\n\nSpace: 12\nb: 1");
}

TEST(ReferenceTools, EstimateTheReadingTime) {
    std::string words;
    for (int count = 0; count < 199; ++count) {
        words += "w ";
    }
    EXPECT_EQ(readingTime(words), (ReadingTime{199, {0, 59}, {1, 19}}));
    EXPECT_EQ(
        readingTimeReport({250, {1, 15}, {1, 40}}),
        "Reading Time Estimate\n\nWord Count: 250\nReading Time: 1m 15s (~200 wpm)\nSpeaking Time: 1m 40s (~150 wpm)");
    EXPECT_EQ(formatted({0, 45}), "45s");
}

TEST(ReferenceTools, CountSyllables) {
    EXPECT_EQ(syllableCount("the"), 1);
    EXPECT_EQ(syllableCount("make"), 1);
    EXPECT_EQ(syllableCount("be"), 1);
    EXPECT_EQ(syllableCount("rhythm"), 1);
    EXPECT_EQ(syllableCount("queue"), 1);
    EXPECT_EQ(syllableCount("hmm"), 1);
    EXPECT_EQ(syllableCount("time."), 2);
}

TEST(ReferenceTools, ScoreReadability) {
    const Readability hello = readability("Hello world");
    EXPECT_NEAR(hello.score, 77.905, 1e-9);
    EXPECT_EQ(hello.syllables, 3);
    EXPECT_EQ(readabilityReport(hello),
              "Readability Analysis\n\nFlesch Reading Ease Score: 77.9\nLevel: Fairly Easy\nGrade Level: 7th grade\n\n"
              "Statistics:\nWords: 2\nSentences: 1\nSyllables: 3");
    EXPECT_EQ(readability(""), (Readability{0.0, "", "", 0, 1, 0}));
    EXPECT_EQ(readability("incomprehensibilities").level, "Very Difficult");
    EXPECT_EQ(readability("incomprehensibilities").score, 0.0);
}

} // namespace

} // namespace lexivore::reference
