// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/transformation_rule.h"

namespace lexivore::test {

namespace {

using namespace std::string_literals;

const Case trimLines[] = {
    {"both ends of every line", "  a \n\tb\t\nc", {}, "a\nb\nc"},
    {"empty lines stay", "a\n\n \nb", {}, "a\n\n\nb"},
    {"spaces within a line stay", " a  b\tc ", {}, "a  b\tc"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"only spaces", " \t ", {}, ""},
    {"a final line break stays", " a \n", {}, "a\n"},
    {"the halves of CR LF become two line feeds", "a \r\n b", {}, "a\n\nb"},
    {"every newline character splits", "a \r b\v c\f d\u0085 e\u2028 f\u2029 g", {}, "a\nb\nc\nd\ne\nf\ng"},
    {"spaces of every kind are trimmed", "\u00A0\u2003a\u3000\u202F", {}, "a"},
    {"what has no width is not trimmed", "\uFEFFa\u200B", {}, "\uFEFFa\u200B"},
    {"other scripts, marks and emoji", " न \n e\u0301 \n 👨\u200D👩\u200D👧 ", {}, "न\ne\u0301\n👨\u200D👩\u200D👧"},
    {"NUL is not trimmed", " \0 \0 "s, {}, "\0 \0"s},
    {"ignores the parameters", " a ", {{"text", "b"}}, "a"},
};
INSTANTIATE_TEST_SUITE_P(TrimLines, TransformationRule, rulesOf("trim-lines", trimLines), ruleAsName);

const Case numberLines[] = {
    {"from one, with a full stop and a space", "first\nsecond", {}, "1. first\n2. second"},
    {"empty lines too", "x\n\ny", {}, "1. x\n2. \n3. y"},
    {"numbers are not padded",
     "a\nb\nc\nd\ne\nf\ng\nh\ni\nj",
     {},
     "1. a\n2. b\n3. c\n4. d\n5. e\n6. f\n7. g\n8. h\n9. i\n10. j"},
    {"the empty text is one empty line", "", {}, "1. "},
    {"one character", "a", {}, "1. a"},
    {"a final line break is followed by an empty line", "a\n", {}, "1. a\n2. "},
    {"lines stay unchanged", " a \n1. b", {}, "1.  a \n2. 1. b"},
    {"CR LF encloses an empty line", "a\r\nb", {}, "1. a\n2. \n3. b"},
    {"every newline character splits",
     "a\rb\vc\fd\u0085e\u2028f\u2029g",
     {},
     "1. a\n2. b\n3. c\n4. d\n5. e\n6. f\n7. g"},
    {"other scripts, marks and emoji", "न\n\u0301\n👨\u200D👩\u200D👧", {}, "1. न\n2. \u0301\n3. 👨\u200D👩\u200D👧"},
    {"no-break space and NUL are text", "\u00A0\n\0"s, {}, "1. \u00A0\n2. \0"s},
};
INSTANTIATE_TEST_SUITE_P(NumberLines, TransformationRule, rulesOf("number-lines", numberLines), ruleAsName);

const Case breakAfterWord[] = {
    {"one word a line", "one two\nthree", {}, "one\ntwo\nthree"},
    {"empty pieces are dropped", "  a \t b\n\n\nc  ", {}, "a\nb\nc"},
    {"punctuation stays with its word", "Hi, you-all! (a b)", {}, "Hi,\nyou-all!\n(a\nb)"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"only spaces and line breaks", " \r\n\t", {}, ""},
    {"a final line break goes", "a\n", {}, "a"},
    {"every newline character separates", "a\r\nb\rc\vd\fe\u0085f\u2028g\u2029h", {}, "a\nb\nc\nd\ne\nf\ng\nh"},
    {"every space separates", "a\u00A0b\u2003c\u3000d", {}, "a\nb\nc\nd"},
    {"what has no width separates nothing", "a\u200Bb\uFEFF", {}, "a\u200Bb\uFEFF"},
    {"other scripts, marks and emoji", "न म e\u0301 👨\u200D👩\u200D👧 漢字", {}, "न\nम\ne\u0301\n👨\u200D👩\u200D👧\n漢字"},
    {"NUL separates nothing", "a\0b c"s, {}, "a\0b\nc"s},
};
INSTANTIATE_TEST_SUITE_P(BreakAfterWord, TransformationRule, rulesOf("break-after-word", breakAfterWord), ruleAsName);

const Case breakAfterSentence[] = {
    {"the terminators go", "Hi. How are you? Fine!", {}, "Hi\nHow are you\nFine"},
    {"runs of terminators leave nothing", "What?! Well... yes", {}, "What\nWell\nyes"},
    {"a terminator needs no space behind it", "a.b", {}, "a\nb"},
    {"blank sentences are dropped", ". \t.a.\u00A0.", {}, "a"},
    {"letter case stays", "a. B. c", {}, "a\nB\nc"},
    {"spaces and tabs at the ends go", "\t a .\u00A0b\u3000", {}, "a\nb"},
    {"spaces within a sentence stay", "a  b\tc.", {}, "a  b\tc"},
    {"line breaks inside a sentence stay as they are",
     "a\nb\r\nc\rd\u2028e\u0085f. g",
     {},
     "a\nb\r\nc\rd\u2028e\u0085f\ng"},
    {"a line break at the end of a piece is not trimmed", "a.\nb\n.c", {}, "a\n\nb\n\nc"},
    {"a piece that is a line break is not empty", "a.\n.b", {}, "a\n\n\nb"},
    {"a text without a terminator is one sentence", "a b", {}, "a b"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"only terminators", ".!?", {}, ""},
    {"only three characters are terminators", "a。b…c；d؟e।f", {}, "a。b…c；d؟e।f"},
    {"numbers and abbreviations are cut too", "3.14 e.g. x", {}, "3\n14 e\ng\nx"},
    {"other scripts, marks and emoji", "न! e\u0301? 👨\u200D👩\u200D👧", {}, "न\ne\u0301\n👨\u200D👩\u200D👧"},
    {"NUL is text", "\0. a\0"s, {}, "\0\na\0"s},
};
INSTANTIATE_TEST_SUITE_P(BreakAfterSentence, TransformationRule, rulesOf("break-after-sentence", breakAfterSentence),
                         ruleAsName);

const Case deleteLinesContaining[] = {
    {"lines with the text go", "apple\nbanana\npineapple", {{"text", "apple"}}, "banana"},
    {"letter case counts", "Ab\nab", {{"text", "A"}}, "ab"},
    {"the text is literal", "a.c\nabc\na*c", {{"text", "."}}, "abc\na*c"},
    {"spaces count", "ab\na b\na  b", {{"text", "a b"}}, "ab\na  b"},
    {"needs the text", "a", {}, fails("Missing parameter: text")},
    {"an empty text is none", "a", {{"text", ""}}, fails("Missing parameter: text")},
    {"needs the text for an empty text too", "", {}, fails("Missing parameter: text")},
    {"every line may go", "a\na", {{"text", "a"}}, ""},
    {"the lines that stay are unchanged", " b \n\na\n\tc", {{"text", "a"}}, " b \n\n\tc"},
    {"a final line break stays", "a\nb\n", {{"text", "a"}}, "b\n"},
    {"empty", "", {{"text", "a"}}, ""},
    {"one character", "b", {{"text", "a"}}, "b"},
    {"CR LF encloses an empty line", "b\r\na\r\n", {{"text", "a"}}, "b\n\n\n"},
    {"every newline character splits", "a\rb\va\fc\u0085a\u2028d\u2029a", {{"text", "a"}}, "b\nc\nd"},
    {"a text with a line break is in no line", "a\nb", {{"text", "a\nb"}}, "a\nb"},
    {"composed and decomposed forms differ", "\u00E9\ne\u0301", {{"text", "\u00E9"}}, "e\u0301"},
    {"a letter is found under its mark", "\u00E9\ne\u0301", {{"text", "e"}}, "\u00E9"},
    {"a member of an emoji family is found", "👨\u200D👩\u200D👧\n👩\na", {{"text", "👩"}}, "a"},
    {"a virama within a conjunct is found", "क्ष\nक", {{"text", "\u094D"}}, "क"},
    {"a no-break space is no space", "a b\na\u00A0b", {{"text", " "}}, "a\u00A0b"},
    {"NUL does not end a line or the text", "a\0b\na\0c"s, {{"text", "\0b"s}}, "a\0c"s},
    {"other spaces may be the text", " a\nb", {{"text", " "}}, "b"},
};
INSTANTIATE_TEST_SUITE_P(DeleteLinesContaining, TransformationRule,
                         rulesOf("delete-lines-containing", deleteLinesContaining), ruleAsName);

const Case deleteLinesStartingWith[] = {
    {"lines that begin with the text go", "# a\nb # c\n#d", {{"text", "#"}}, "b # c"},
    {"leading spaces count", "ab\n ab", {{"text", "ab"}}, " ab"},
    {"letter case counts", "Ab\nab", {{"text", "A"}}, "ab"},
    {"the text is literal", ".a\nba", {{"text", "."}}, "ba"},
    {"needs the text", "a", {}, fails("Missing parameter: text")},
    {"an empty text is none", "a", {{"text", ""}}, fails("Missing parameter: text")},
    {"every line may go", "a\na", {{"text", "a"}}, ""},
    {"a line shorter than the text stays", "a\nab", {{"text", "ab"}}, "a"},
    {"a final line break stays", "a\nb\n", {{"text", "a"}}, "b\n"},
    {"empty", "", {{"text", "a"}}, ""},
    {"one character", "a", {{"text", "a"}}, ""},
    {"every newline character splits", "a\r\nb\ra\u0085c\u2028a", {{"text", "a"}}, "\nb\nc"},
    {"composed and decomposed forms differ", "\u00E9a\ne\u0301a", {{"text", "\u00E9"}}, "e\u0301a"},
    {"a letter is found under its mark", "\u00E9\ne\u0301", {{"text", "e"}}, "\u00E9"},
    {"other scripts and emoji", "नमस्ते\n👨\u200D👩\u200D👧\nשלום", {{"text", "न"}}, "👨\u200D👩\u200D👧\nשלום"},
    {"a no-break space is no space", " a\n\u00A0a", {{"text", " "}}, "\u00A0a"},
    {"NUL does not end a line or the text", "\0a\n\0b"s, {{"text", "\0a"s}}, "\0b"s},
};
INSTANTIATE_TEST_SUITE_P(DeleteLinesStartingWith, TransformationRule,
                         rulesOf("delete-lines-starting", deleteLinesStartingWith), ruleAsName);

const Case keepLinesContaining[] = {
    {"only lines with the text stay", "apple\nbanana\npineapple", {{"text", "apple"}}, "apple\npineapple"},
    {"letter case counts", "Ab\nab", {{"text", "A"}}, "Ab"},
    {"the text is literal", "a.c\nabc", {{"text", "."}}, "a.c"},
    {"needs the text", "a", {}, fails("Missing parameter: text")},
    {"an empty text is none", "a", {{"text", ""}}, fails("Missing parameter: text")},
    {"no line may stay", "a\nb", {{"text", "c"}}, ""},
    {"the lines that stay are unchanged", " a \nb\n\ta", {{"text", "a"}}, " a \n\ta"},
    {"the empty last line goes", "a\nb\n", {{"text", "a"}}, "a"},
    {"empty", "", {{"text", "a"}}, ""},
    {"one character", "a", {{"text", "a"}}, "a"},
    {"every newline character splits", "a1\r\nb\ra2\u0085c\u2028a3\v", {{"text", "a"}}, "a1\na2\na3"},
    {"a text with a line break is in no line", "a\nb", {{"text", "\n"}}, ""},
    {"composed and decomposed forms differ", "\u00E9\ne\u0301", {{"text", "\u00E9"}}, "\u00E9"},
    {"a letter is found under its mark", "\u00E9\ne\u0301", {{"text", "e"}}, "e\u0301"},
    {"other scripts and emoji", "नमस्ते\n👨\u200D👩\u200D👧\nשלום", {{"text", "👩"}}, "👨\u200D👩\u200D👧"},
    {"a text that nearly repeats is found", "aaaaab\naaaa", {{"text", "aaab"}}, "aaaaab"},
    {"a no-break space is no space", "a b\na\u00A0b", {{"text", "\u00A0"}}, "a\u00A0b"},
    {"NUL does not end a line or the text", "a\0b\na\0c"s, {{"text", "\0b"s}}, "a\0b"s},
};
INSTANTIATE_TEST_SUITE_P(KeepLinesContaining, TransformationRule, rulesOf("keep-lines-containing", keepLinesContaining),
                         ruleAsName);

const Case keepLinesStartingWith[] = {
    {"only lines that begin with the text stay", "# a\nb # c\n#d", {{"text", "#"}}, "# a\n#d"},
    {"leading spaces count", "ab\n ab", {{"text", "ab"}}, "ab"},
    {"letter case counts", "Ab\nab", {{"text", "A"}}, "Ab"},
    {"needs the text", "a", {}, fails("Missing parameter: text")},
    {"an empty text is none", "a", {{"text", ""}}, fails("Missing parameter: text")},
    {"no line may stay", "ba", {{"text", "a"}}, ""},
    {"a line shorter than the text goes", "a\nab", {{"text", "ab"}}, "ab"},
    {"the empty last line goes", "a\nb\n", {{"text", "a"}}, "a"},
    {"empty", "", {{"text", "a"}}, ""},
    {"one character", "a", {{"text", "a"}}, "a"},
    {"every newline character splits", "a1\r\nb\ra2\u0085c\u2028a3", {{"text", "a"}}, "a1\na2\na3"},
    {"composed and decomposed forms differ", "\u00E9a\ne\u0301a", {{"text", "\u00E9"}}, "\u00E9a"},
    {"a letter is found under its mark", "\u00E9\ne\u0301", {{"text", "e"}}, "e\u0301"},
    {"other scripts and emoji", "नमस्ते\n👨\u200D👩\u200D👧\nשלום", {{"text", "👨"}}, "👨\u200D👩\u200D👧"},
    {"a no-break space is no space", " a\n\u00A0a", {{"text", " "}}, " a"},
    {"NUL does not end a line or the text", "\0a\n\0b"s, {{"text", "\0a"s}}, "\0a"s},
};
INSTANTIATE_TEST_SUITE_P(KeepLinesStartingWith, TransformationRule,
                         rulesOf("keep-lines-starting", keepLinesStartingWith), ruleAsName);

const Case reverseLines[] = {
    {"the last line first", "a\nb\nc", {}, "c\nb\na"},
    {"a final line break becomes a leading empty line", "a\nb\n", {}, "\nb\na"},
    {"lines stay unchanged", " ab\t\ncd", {}, "cd\n ab\t"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"only line breaks", "\n\n", {}, "\n\n"},
    {"CR LF encloses an empty line", "a\r\nb", {}, "b\n\na"},
    {"every newline character splits", "a\rb\vc\fd\u0085e\u2028f\u2029g", {}, "g\nf\ne\nd\nc\nb\na"},
    {"other scripts, marks and emoji", "न\n\u0301a\n👨\u200D👩\u200D👧", {}, "👨\u200D👩\u200D👧\n\u0301a\nन"},
    {"no-break space and NUL are text", "\u00A0\na\0b"s, {}, "a\0b\n\u00A0"s},
};
INSTANTIATE_TEST_SUITE_P(ReverseLines, TransformationRule, rulesOf("reverse-lines", reverseLines), ruleAsName);

const std::vector<Case> badCounts = badNumbers("count", "Invalid input: Count must be a positive number");

const Case deleteFirstNLines[] = {
    {"the first lines go", "a\nb\nc", {{"count", "1"}}, "b\nc"},
    {"a plus sign may stand before the count", "a\nb\nc", {{"count", "+2"}}, "c"},
    {"leading zeros may, too", "a\nb\nc", {{"count", "002"}}, "c"},
    {"a count of all lines leaves nothing", "a\nb", {{"count", "2"}}, ""},
    {"a greater count leaves nothing", "a\nb", {{"count", "3"}}, ""},
    {"the greatest count leaves nothing", "a\nb", {{"count", "9223372036854775807"}}, ""},
    {"empty", "", {{"count", "1"}}, ""},
    {"one character", "a", {{"count", "1"}}, ""},
    {"a final line break is followed by an empty line", "a\n", {{"count", "1"}}, ""},
    {"empty lines count", "\n\na", {{"count", "2"}}, "a"},
    {"CR LF encloses an empty line", "a\r\nb", {{"count", "1"}}, "\nb"},
    {"every newline character splits", "a\rb\u0085c\u2028d\u2029e\vf\fg", {{"count", "2"}}, "c\nd\ne\nf\ng"},
    {"lines stay unchanged",
     "a\n न e\u0301 \n👨\u200D👩\u200D👧\0\u00A0"s,
     {{"count", "1"}},
     " न e\u0301 \n👨\u200D👩\u200D👧\0\u00A0"s},
};
INSTANTIATE_TEST_SUITE_P(DeleteFirstNLines, TransformationRule, rulesOf("delete-first-n-lines", deleteFirstNLines),
                         ruleAsName);
INSTANTIATE_TEST_SUITE_P(DeleteFirstNLinesCount, TransformationRule, rulesOf("delete-first-n-lines", badCounts),
                         ruleAsName);

const Case deleteLastNLines[] = {
    {"the last lines go", "a\nb\nc", {{"count", "1"}}, "a\nb"},
    {"a plus sign may stand before the count", "a\nb\nc", {{"count", "+2"}}, "a"},
    {"a count of all lines leaves nothing", "a\nb", {{"count", "2"}}, ""},
    {"a greater count leaves nothing", "a\nb", {{"count", "3"}}, ""},
    {"the greatest count leaves nothing", "a\nb", {{"count", "9223372036854775807"}}, ""},
    {"empty", "", {{"count", "1"}}, ""},
    {"one character", "a", {{"count", "1"}}, ""},
    {"the empty last line counts", "a\nb\n", {{"count", "1"}}, "a\nb"},
    {"CR LF encloses an empty line", "a\r\nb", {{"count", "1"}}, "a\n"},
    {"every newline character splits", "a\rb\u0085c\u2028d\u2029e\vf\fg", {{"count", "2"}}, "a\nb\nc\nd\ne"},
    {"lines stay unchanged",
     " न e\u0301 \n👨\u200D👩\u200D👧\0\u00A0\na"s,
     {{"count", "1"}},
     " न e\u0301 \n👨\u200D👩\u200D👧\0\u00A0"s},
};
INSTANTIATE_TEST_SUITE_P(DeleteLastNLines, TransformationRule, rulesOf("delete-last-n-lines", deleteLastNLines),
                         ruleAsName);
INSTANTIATE_TEST_SUITE_P(DeleteLastNLinesCount, TransformationRule, rulesOf("delete-last-n-lines", badCounts),
                         ruleAsName);

const Case keepFirstNLines[] = {
    {"only the first lines stay", "a\nb\nc", {{"count", "2"}}, "a\nb"},
    {"a plus sign may stand before the count", "a\nb\nc", {{"count", "+1"}}, "a"},
    {"a greater count keeps all lines", "a\nb", {{"count", "3"}}, "a\nb"},
    {"the greatest count keeps all lines", "a\nb", {{"count", "9223372036854775807"}}, "a\nb"},
    {"empty", "", {{"count", "1"}}, ""},
    {"one character", "a", {{"count", "1"}}, "a"},
    {"the empty last line counts", "a\n", {{"count", "2"}}, "a\n"},
    {"CR LF encloses an empty line", "a\r\nb", {{"count", "2"}}, "a\n"},
    {"every newline character splits", "a\rb\u0085c\u2028d\u2029e\vf\fg", {{"count", "6"}}, "a\nb\nc\nd\ne\nf"},
    {"lines stay unchanged",
     " न e\u0301 \n👨\u200D👩\u200D👧\0\u00A0\na"s,
     {{"count", "2"}},
     " न e\u0301 \n👨\u200D👩\u200D👧\0\u00A0"s},
};
INSTANTIATE_TEST_SUITE_P(KeepFirstNLines, TransformationRule, rulesOf("keep-first-n-lines", keepFirstNLines),
                         ruleAsName);
INSTANTIATE_TEST_SUITE_P(KeepFirstNLinesCount, TransformationRule, rulesOf("keep-first-n-lines", badCounts),
                         ruleAsName);

const Case keepLastNLines[] = {
    {"only the last lines stay", "a\nb\nc", {{"count", "2"}}, "b\nc"},
    {"a plus sign may stand before the count", "a\nb\nc", {{"count", "+1"}}, "c"},
    {"a greater count keeps all lines", "a\nb", {{"count", "3"}}, "a\nb"},
    {"a greater count makes the ends of all lines alike", "a\rb\u2028c", {{"count", "4"}}, "a\nb\nc"},
    {"the greatest count keeps all lines", "a\nb", {{"count", "9223372036854775807"}}, "a\nb"},
    {"empty", "", {{"count", "1"}}, ""},
    {"one character", "a", {{"count", "1"}}, "a"},
    {"the empty last line counts", "a\nb\n", {{"count", "1"}}, ""},
    {"CR LF encloses an empty line", "a\r\nb", {{"count", "2"}}, "\nb"},
    {"every newline character splits", "a\rb\u0085c\u2028d\u2029e\vf\fg", {{"count", "6"}}, "b\nc\nd\ne\nf\ng"},
    {"lines stay unchanged",
     "a\n न e\u0301 \n👨\u200D👩\u200D👧\0\u00A0"s,
     {{"count", "2"}},
     " न e\u0301 \n👨\u200D👩\u200D👧\0\u00A0"s},
};
INSTANTIATE_TEST_SUITE_P(KeepLastNLines, TransformationRule, rulesOf("keep-last-n-lines", keepLastNLines), ruleAsName);
INSTANTIATE_TEST_SUITE_P(KeepLastNLinesCount, TransformationRule, rulesOf("keep-last-n-lines", badCounts), ruleAsName);

constexpr auto badStart = "Invalid input: Start must be a positive number";
constexpr auto badEnd = "Invalid input: End must be >= start";

const Case extractLines[] = {
    {"both ends are included", "a\nb\nc\nd", {{"start", "2"}, {"end", "3"}}, "b\nc"},
    {"one line", "a\nb\nc", {{"start", "2"}, {"end", "2"}}, "b"},
    {"an end behind the text is clamped", "a\nb\nc", {{"start", "2"}, {"end", "10"}}, "b\nc"},
    {"the greatest end", "a\nb", {{"start", "1"}, {"end", "9223372036854775807"}}, "a\nb"},
    {"a start behind the text gives nothing", "a\nb", {{"start", "3"}, {"end", "3"}}, ""},
    {"the greatest start gives nothing", "a", {{"start", "9223372036854775807"}, {"end", "9223372036854775807"}}, ""},
    {"signs and leading zeros", "a\nb\nc", {{"start", "+02"}, {"end", "+3"}}, "b\nc"},
    {"an end before the start is an error", "a\nb", {{"start", "2"}, {"end", "1"}}, fails(badEnd)},
    {"an absent end is an error", "a\nb", {{"start", "1"}}, fails(badEnd)},
    {"an end that is no number is an error", "a\nb", {{"start", "1"}, {"end", "x"}}, fails(badEnd)},
    {"an empty end is an error", "a\nb", {{"start", "1"}, {"end", ""}}, fails(badEnd)},
    {"an end beyond 64 bits is an error", "a", {{"start", "1"}, {"end", "9223372036854775808"}}, fails(badEnd)},
    {"the end is checked even when the start is behind the text", "a", {{"start", "9"}, {"end", "8"}}, fails(badEnd)},
    {"the start is checked first", "a", {{"start", "0"}, {"end", "x"}}, fails(badStart)},
    {"nothing at all lacks the start", "a", {}, fails(badStart)},
    {"a good end does not help a bad start", "a", {{"start", "-1"}, {"end", "3"}}, fails(badStart)},
    {"empty", "", {{"start", "1"}, {"end", "1"}}, ""},
    {"one character", "a", {{"start", "1"}, {"end", "1"}}, "a"},
    {"the empty last line is a line", "a\nb\n", {{"start", "2"}, {"end", "3"}}, "b\n"},
    {"CR LF encloses an empty line", "a\r\nb", {{"start", "1"}, {"end", "2"}}, "a\n"},
    {"every newline character splits",
     "a\rb\vc\fd\u0085e\u2028f\u2029g",
     {{"start", "2"}, {"end", "6"}},
     "b\nc\nd\ne\nf"},
    {"lines stay unchanged",
     "a\n न e\u0301 \n👨\u200D👩\u200D👧\0\u00A0\nb"s,
     {{"start", "2"}, {"end", "3"}},
     " न e\u0301 \n👨\u200D👩\u200D👧\0\u00A0"s},
};
INSTANTIATE_TEST_SUITE_P(ExtractLines, TransformationRule, rulesOf("extract-lines-range", extractLines), ruleAsName);
INSTANTIATE_TEST_SUITE_P(ExtractLinesStart, TransformationRule,
                         rulesOf("extract-lines-range", badNumbers("start", badStart)), ruleAsName);

/// Enough lines that the text is found at their beginnings, then within them, that both ways of looking are gone.
TEST(KeepLinesStartingWith, KeepsTheSameLinesHoweverOftenTheTextStandsElsewhere) {
    const char *const lineEnds[] = {"\n", "\r\n", "\u2028", "\u0085"};
    std::string text;
    std::string expected;
    for (int i = 0; i < 3000; ++i) {
        const bool isHit = i % 7 == 3;
        const std::string line = (isHit ? "the " : i % 2 == 0 && i > 1000 ? "of the the " : "of ") + std::to_string(i);
        text += line + lineEnds[i / 3 % 4];
        expected += isHit ? (expected.empty() ? "" : "\n") + line : "";
    }
    const TransformationPointer keep = findTransformation(makeCatalog(), "keep-lines-starting");
    EXPECT_EQ(outcomeOf(*keep, text, {{"text", "the"}}).text, expected);
    EXPECT_EQ(outcomeOf(*keep, "the" + text, {{"text", "the"}}).text, "theof 0\n" + expected);
}

const Case joinLines[] = {
    {"with the separator between the lines", "a\nb", {{"separator", " | "}}, "a | b"},
    {"empty lines too", "a\n\nb", {{"separator", ", "}}, "a, , b"},
    {"an empty separator", "a\nb\nc", {{"separator", ""}}, "abc"},
    {"a separator of line breaks", "a\nb", {{"separator", "\r\n"}}, "a\r\nb"},
    {"the separator is literal", "a\nb", {{"separator", "\\n$1"}}, "a\\n$1b"},
    {"needs the separator", "a\nb", {}, fails("Missing parameter: separator")},
    {"lines are not trimmed", " a \n\tb", {{"separator", "+"}}, " a +\tb"},
    {"a final line break becomes a separator", "a\nb\n", {{"separator", ","}}, "a,b,"},
    {"a line needs no separator", "ab", {{"separator", ","}}, "ab"},
    {"empty", "", {{"separator", ","}}, ""},
    {"one character", "a", {{"separator", ","}}, "a"},
    {"only a line break", "\n", {{"separator", ","}}, ","},
    {"CR LF gives two separators", "a\r\nb", {{"separator", ","}}, "a,,b"},
    {"every newline character splits", "a\rb\vc\fd\u0085e\u2028f\u2029g", {{"separator", ","}}, "a,b,c,d,e,f,g"},
    {"other scripts, marks and emoji", "न\n\u0301\n👨\u200D👩\u200D👧", {{"separator", "→"}}, "न→\u0301→👨\u200D👩\u200D👧"},
    {"no-break space and NUL are text", "a\u00A0\n\0"s, {{"separator", "\0\u00A0"s}}, "a\u00A0\0\u00A0\0"s},
};
INSTANTIATE_TEST_SUITE_P(JoinLines, TransformationRule, rulesOf("join-lines", joinLines), ruleAsName);

} // namespace

} // namespace lexivore::test
