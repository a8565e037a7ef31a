// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/transformation_rule.h"

namespace lexivore::test {

namespace {

using namespace std::string_literals;

const Case addPrefix[] = {
    {"every line", "a\nb", {{"prefix", "> "}}, "> a\n> b"},
    {"empty lines too", "a\n\nb", {{"prefix", "> "}}, "> a\n> \n> b"},
    {"the empty text is one empty line", "", {{"prefix", "> "}}, "> "},
    {"one character", "a", {{"prefix", "> "}}, "> a"},
    {"a final line break is followed by an empty line", "a\n", {{"prefix", "> "}}, "> a\n> "},
    {"needs the parameter", "a", {}, fails("Missing parameter: prefix")},
    {"its suggested value is no fallback", "a", {{"suffix", "x"}}, fails("Missing parameter: prefix")},
    {"keys are matched exactly", "a", {{"Prefix", "x"}}, fails("Missing parameter: prefix")},
    {"an empty prefix leaves the text as it is", "a\nb\n", {{"prefix", ""}}, "a\nb\n"},
    {"an empty prefix leaves line breaks as they are", "a\r\nb\u2028c", {{"prefix", ""}}, "a\r\nb\u2028c"},
    {"CR LF leaves an empty line between its halves", "a\r\nb", {{"prefix", ">"}}, ">a\n>\n>b"},
    {"every newline character splits",
     "a\rb\vc\fd\u0085e\u2028f\u2029g",
     {{"prefix", ">"}},
     ">a\n>b\n>c\n>d\n>e\n>f\n>g"},
    {"unit separators split nothing", "a\034b\037c", {{"prefix", ">"}}, ">a\034b\037c"},
    {"a prefix may hold line breaks", "a\nb", {{"prefix", "x\r\n"}}, "x\r\na\nx\r\nb"},
    {"a prefix is taken literally", "a", {{"prefix", "\\n$1%s"}}, "\\n$1%sa"},
    {"a line is kept unchanged behind it", " a\t", {{"prefix", "\t"}}, "\t a\t"},
    {"a prefix of other scripts", "שלום\nनमस्ते", {{"prefix", "→ "}}, "→ שלום\n→ नमस्ते"},
    {"a mark stays where it was", "\u0301a", {{"prefix", "e"}}, "e\u0301a"},
    {"an emoji family", "👨\u200D👩\u200D👧", {{"prefix", "👨\u200D👩\u200D👧"}}, "👨\u200D👩\u200D👧👨\u200D👩\u200D👧"},
    {"no-break space and NUL are text", "a\0b\u00A0"s, {{"prefix", "\0"s}}, "\0a\0b\u00A0"s},
};
INSTANTIATE_TEST_SUITE_P(AddPrefix, TransformationRule, rulesOf("add-prefix", addPrefix), ruleAsName);

const Case addSuffix[] = {
    {"every line", "a\nb", {{"suffix", ";"}}, "a;\nb;"},
    {"empty lines too", "a\n\nb", {{"suffix", ";"}}, "a;\n;\nb;"},
    {"the empty text is one empty line", "", {{"suffix", ";"}}, ";"},
    {"one character", "a", {{"suffix", ";"}}, "a;"},
    {"a final line break is followed by an empty line", "a\n", {{"suffix", ";"}}, "a;\n;"},
    {"needs the parameter", "a", {}, fails("Missing parameter: suffix")},
    {"its suggested value is no fallback", "a", {{"prefix", "x"}}, fails("Missing parameter: suffix")},
    {"an empty suffix leaves the text as it is", "a\nb\n", {{"suffix", ""}}, "a\nb\n"},
    {"an empty suffix leaves line breaks as they are", "a\r\nb\u2028c", {{"suffix", ""}}, "a\r\nb\u2028c"},
    {"CR LF leaves an empty line between its halves", "a\r\nb", {{"suffix", ";"}}, "a;\n;\nb;"},
    {"every newline character splits",
     "a\rb\vc\fd\u0085e\u2028f\u2029g",
     {{"suffix", ";"}},
     "a;\nb;\nc;\nd;\ne;\nf;\ng;"},
    {"a suffix is taken literally", "a", {{"suffix", "\\n$1%s"}}, "a\\n$1%s"},
    {"a line is kept unchanged before it", " a\t", {{"suffix", "\n"}}, " a\t\n"},
    {"other scripts", "שלום\nनमस्ते", {{"suffix", "。"}}, "שלום。\nनमस्ते。"},
    {"an emoji family and a mark", "👨\u200D👩\u200D👧\ne", {{"suffix", "\u0301"}}, "👨\u200D👩\u200D👧\u0301\ne\u0301"},
    {"no-break space and NUL are text", "a\0b\u00A0"s, {{"suffix", "\0"s}}, "a\0b\u00A0\0"s},
};
INSTANTIATE_TEST_SUITE_P(AddSuffix, TransformationRule, rulesOf("add-suffix", addSuffix), ruleAsName);

const Case removeWhitespace[] = {
    {"runs become one space and the ends are trimmed", "  a \t b  ", {}, "a b"},
    {"indentation becomes one space", "a\n    b", {}, "a\n b"},
    {"spaces before a line break become one", "a  \nb", {}, "a \nb"},
    {"a tab becomes a space", "a\tb", {}, "a b"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"only spaces", " \t\u00A0", {}, ""},
    {"line breaks are no separators", "\n\n a\n\n", {}, "\n\n a\n\n"},
    {"blank lines keep one space", "a\n  \nb", {}, "a\n \nb"},
    {"line breaks stay as they are", "a\r\nb\rc\u0085d\u2028e\vf", {}, "a\r\nb\rc\u0085d\u2028e\vf"},
    {"the other space separators", "a\u00A0b\u1680c\u2003d\u202Fe\u205Ff\u3000g", {}, "a b c d e f g"},
    {"a run may mix them", "a\u00A0 \t\u3000b", {}, "a b"},
    {"what has no width is no space", "a\u200Bb\uFEFFc\u180Ed", {}, "a\u200Bb\uFEFFc\u180Ed"},
    {"other scripts and marks", "  नमस्ते   e\u0301 ", {}, "नमस्ते e\u0301"},
    {"an emoji family", " 👨\u200D👩\u200D👧  👨\u200D👩\u200D👧 ", {}, "👨\u200D👩\u200D👧 👨\u200D👩\u200D👧"},
    {"NUL is no space", " \0  \0 "s, {}, "\0 \0"s},
};
INSTANTIATE_TEST_SUITE_P(RemoveWhitespace, TransformationRule, rulesOf("remove-whitespace", removeWhitespace),
                         ruleAsName);

const Case removeAllSpaces[] = {
    {"every space", "  a b  c ", {}, "abc"},
    {"a no-break space stays", "a\u00A0b c", {}, "a\u00A0bc"},
    {"so do the other spaces and tabs", "a\tb\u2003c\u3000d e", {}, "a\tb\u2003c\u3000de"},
    {"line breaks stay as they are", " \r\n \r \u2028 \u0085 ", {}, "\r\n\r\u2028\u0085"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"only spaces", "   ", {}, ""},
    {"other scripts and marks", "न म e\u0301 ש", {}, "नमe\u0301ש"},
    {"an emoji family", "👨\u200D👩\u200D👧 a", {}, "👨\u200D👩\u200D👧a"},
    {"NUL stays", "a \0 b"s, {}, "a\0b"s},
};
INSTANTIATE_TEST_SUITE_P(RemoveAllSpaces, TransformationRule, rulesOf("remove-all-spaces", removeAllSpaces),
                         ruleAsName);

const Case removeTabs[] = {
    {"every tab", "\ta\t\tb c\t", {}, "ab c"},
    {"a vertical tab and spaces stay", "a\v \u00A0b", {}, "a\v \u00A0b"},
    {"line breaks stay as they are", "\t\r\n\t\r\t\u2028\t\u0085", {}, "\r\n\r\u2028\u0085"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"only tabs", "\t\t", {}, ""},
    {"other scripts and marks", "न\tम\te\u0301", {}, "नमe\u0301"},
    {"an emoji family", "👨\u200D👩\u200D👧\ta", {}, "👨\u200D👩\u200D👧a"},
    {"NUL stays", "a\t\0\tb"s, {}, "a\0b"s},
};
INSTANTIATE_TEST_SUITE_P(RemoveTabs, TransformationRule, rulesOf("remove-tabs", removeTabs), ruleAsName);

const Case removeEmptyLines[] = {
    {"blank lines too", "a\n \n\t\nb", {}, "a\nb"},
    {"the other lines are not trimmed", "  a \t\n\n\tb ", {}, "  a \t\n\tb "},
    {"a final line break goes", "a\nb\n", {}, "a\nb"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"only line breaks", "\n\r\n\n", {}, ""},
    {"the halves of CR LF leave no empty line", "a\r\nb\r\n", {}, "a\nb"},
    {"every newline character splits", "a\r\rb\u0085c\u2028\u2029d\v\fe", {}, "a\nb\nc\nd\ne"},
    {"spaces of every kind are blank", "a\n\u00A0\u2003\u3000\nb", {}, "a\nb"},
    {"what has no width is not blank", "a\n\u200B\n\uFEFF\nb", {}, "a\n\u200B\n\uFEFF\nb"},
    {"other scripts, marks and emoji", "न\n\n\u0301\n\n👨\u200D👩\u200D👧", {}, "न\n\u0301\n👨\u200D👩\u200D👧"},
    {"NUL is not blank", "a\n\0\n\nb"s, {}, "a\n\0\nb"s},
};
INSTANTIATE_TEST_SUITE_P(RemoveEmptyLines, TransformationRule, rulesOf("remove-empty-lines", removeEmptyLines),
                         ruleAsName);

const Case removeLineBreaks[] = {
    {"trims and joins with a space", "a \n b", {}, "a b"},
    {"an empty line leaves its space", "a \n b\n\nc", {}, "a b  c"},
    {"a final line break becomes a space", "a\n", {}, "a "},
    {"a single line is trimmed", " \ta b\t ", {}, "a b"},
    {"spaces within a line stay", "a  b\nc\td", {}, "a  b c\td"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"a line break alone", "\n", {}, " "},
    {"CR LF leaves two spaces", "a\r\nb", {}, "a  b"},
    {"every newline character", "a\rb\vc\fd\u0085e\u2028f\u2029g", {}, "a b c d e f g"},
    {"spaces of every kind are trimmed", "\u00A0a\u3000\n\u2003b", {}, "a b"},
    {"what has no width is not trimmed", "\uFEFFa\n\u200Bb", {}, "\uFEFFa \u200Bb"},
    {"other scripts, marks and emoji", "न \ne\u0301\n👨\u200D👩\u200D👧", {}, "न e\u0301 👨\u200D👩\u200D👧"},
    {"NUL is not trimmed", " \0 \n \0"s, {}, "\0 \0"s},
};
INSTANTIATE_TEST_SUITE_P(RemoveLineBreaks, TransformationRule, rulesOf("remove-line-breaks", removeLineBreaks),
                         ruleAsName);

const Case removeDuplicateLines[] = {
    {"the first of each line stays", "b\na\nb\nc\na", {}, "b\na\nc"},
    {"the first empty line stays", "x\n\ny\n\nx", {}, "x\n\ny"},
    {"letter case counts", "The\nthe", {}, "The\nthe"},
    {"spaces count", "a\na \n a\na", {}, "a\na \n a"},
    {"the empty last line counts", "a\na\n", {}, "a\n"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"only line breaks", "\n\n\n", {}, ""},
    {"the halves of CR LF enclose an empty line", "a\r\na\r\nb", {}, "a\n\nb"},
    {"every newline character splits", "a\ra\va\fa\u0085a\u2028a\u2029b", {}, "a\nb"},
    {"composed and decomposed forms differ", "\u00E9\ne\u0301\n\u00E9", {}, "\u00E9\ne\u0301"},
    {"what looks alike differs", "a\nа\na\u200B", {}, "a\nа\na\u200B"},
    {"a no-break space is no space", "a b\na\u00A0b", {}, "a b\na\u00A0b"},
    {"other scripts and emoji", "न\n👨\u200D👩\u200D👧\nन\n👨\u200D👩\u200D👧\n👨", {}, "न\n👨\u200D👩\u200D👧\n👨"},
    {"NUL does not end a line", "a\0b\na\0c\na\na\0b"s, {}, "a\0b\na\0c\na"s},
};
INSTANTIATE_TEST_SUITE_P(RemoveDuplicateLines, TransformationRule, rulesOf("remove-duplicates", removeDuplicateLines),
                         ruleAsName);

const Case removeDuplicateWords[] = {
    {"lines become one line", "a b\nb c", {}, "a b c"},
    {"the first of each word stays", "b a b c a", {}, "b a c"},
    {"letter case counts", "The the THE", {}, "The the THE"},
    {"punctuation counts", "a, a b, b", {}, "a, a b, b"},
    {"runs of spaces become one", "  a \t b  ", {}, "a b"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"only spaces and line breaks", " \n\t\r\n ", {}, ""},
    {"every newline character separates", "a\r\nb\rc\u0085d\u2028e\u2029f\vg\fh\n", {}, "a b c d e f g h"},
    {"every space separates", "a\u00A0a\u3000a\u2003b", {}, "a b"},
    {"what has no width separates nothing", "a\u200Ba a", {}, "a\u200Ba a"},
    {"composed and decomposed forms differ", "\u00E9 e\u0301 \u00E9", {}, "\u00E9 e\u0301"},
    {"other scripts and emoji", "न 👨\u200D👩\u200D👧 न 👨\u200D👩\u200D👧 👨", {}, "न 👨\u200D👩\u200D👧 👨"},
    {"NUL does not end a word", "a\0b a\0c a a\0b"s, {}, "a\0b a\0c a"s},
};
INSTANTIATE_TEST_SUITE_P(RemoveDuplicateWords, TransformationRule,
                         rulesOf("remove-duplicate-words", removeDuplicateWords), ruleAsName);

/// Two names for one operation: one table for both.
const Case keepLettersNumbersAndSpaces[] = {
    {"letters, numbers and spaces stay", "a-1, b_2!", {}, "a1 b2"},
    {"line breaks stay as they are",
     "a.\nb.\r\nc.\rd.\u0085e.\u2028f.\u2029g.\vh.\f",
     {},
     "a\nb\r\nc\rd\u0085e\u2028f\u2029g\vh\f"},
    {"empty", "", {}, ""},
    {"one character that stays", "a", {}, "a"},
    {"one character that goes", "-", {}, ""},
    {"a final line break stays", "a!\n", {}, "a\n"},
    {"symbols go as well as punctuation", "$1+2=3 ©a^b~c|d", {}, "123 abcd"},
    {"letters of every script stay", "é一नمש그я", {}, "é一नمש그я"},
    {"numbers of every kind stay", "½²Ⅷ٣५", {}, "½²Ⅷ٣५"},
    {"spaces of every kind stay", "a\tb\u00A0c\u2003d\u3000e", {}, "a\tb\u00A0c\u2003d\u3000e"},
    {"what has no width goes", "\uFEFFa\u200Bb\u00ADc", {}, "abc"},
    {"a mark stays with its letter", "e\u0301 हिन्दी", {}, "e\u0301 हिन्दी"},
    {"a mark goes with its symbol", "a+\u0301b", {}, "ab"},
    {"a mark on its own goes", "\u0301a", {}, "a"},
    {"a symbol on a letter stays with it", "a\u20DDb", {}, "a\u20DDb"},
    {"a keycap is a number", "1\uFE0F\u20E3 #\uFE0F\u20E3", {}, "1\uFE0F\u20E3 "},
    {"an emoji family goes whole", "a👨\u200D👩\u200D👧b👍🏽🇩🇪", {}, "ab"},
    {"control characters go, NUL too", "a\0b\033c"s, {}, "abc"},
};
INSTANTIATE_TEST_SUITE_P(DeleteNonAlphanumeric, TransformationRule,
                         rulesOf("delete-non-alphanumeric", keepLettersNumbersAndSpaces), ruleAsName);
INSTANTIATE_TEST_SUITE_P(RemoveSpecialCharacters, TransformationRule,
                         rulesOf("remove-special-chars", keepLettersNumbersAndSpaces), ruleAsName);

const Case deleteNumeric[] = {
    {"every digit", "a1b22 c", {}, "ab c"},
    {"punctuation and signs stay", "-1.5, +2", {}, "-., +"},
    {"numbers of every kind", "½a²bⅧc٣d५e①f", {}, "abcdef"},
    {"numerals that are letters stay", "一二三", {}, "一二三"},
    {"empty", "", {}, ""},
    {"one character that stays", "a", {}, "a"},
    {"one character that goes", "1", {}, ""},
    {"a final line break stays", "1\n", {}, "\n"},
    {"line breaks stay as they are", "1\r\n2\r3\u0085\u2028\u2029", {}, "\r\n\r\u0085\u2028\u2029"},
    {"a mark goes with its digit", "a1\u0301b", {}, "ab"},
    {"a keycap goes whole", "1\uFE0F\u20E3a", {}, "a"},
    {"other scripts and emoji stay", "नe\u0301👨\u200D👩\u200D👧", {}, "नe\u0301👨\u200D👩\u200D👧"},
    {"no-break space and NUL stay", "1\0002\u00A0"s, {}, "\0\u00A0"s},
};
INSTANTIATE_TEST_SUITE_P(DeleteNumeric, TransformationRule, rulesOf("delete-numeric", deleteNumeric), ruleAsName);

const Case keepOnlyNumeric[] = {
    {"line structure and spacing stay", "a1 b2\nc3", {}, "1 2\n3"},
    {"signs and points go", "-1.5, +2", {}, "15 2"},
    {"numbers of every kind stay", "½a²bⅧc٣d५e①f", {}, "½²Ⅷ٣५①"},
    {"numerals that are letters go", "一1", {}, "1"},
    {"empty", "", {}, ""},
    {"one character that stays", "1", {}, "1"},
    {"one character that goes", "a", {}, ""},
    {"a final line break stays", "a1\n", {}, "1\n"},
    {"line breaks stay as they are", "a\r\nb\rc\u0085\u2028\u2029\v", {}, "\r\n\r\u0085\u2028\u2029\v"},
    {"spaces of every kind stay", "a\tb\u00A0c\u3000", {}, "\t\u00A0\u3000"},
    {"what has no width goes", "\uFEFF1\u200B2", {}, "12"},
    {"a mark stays with its digit", "1\u0301e\u0301", {}, "1\u0301"},
    {"a keycap stays whole", "a1\uFE0F\u20E3", {}, "1\uFE0F\u20E3"},
    {"an emoji family goes", "👨\u200D👩\u200D👧1", {}, "1"},
    {"NUL goes", "1\0a2"s, {}, "12"},
};
INSTANTIATE_TEST_SUITE_P(KeepOnlyNumeric, TransformationRule, rulesOf("keep-only-numeric", keepOnlyNumeric),
                         ruleAsName);

const Case removePunctuation[] = {
    {"every mark of punctuation",
     "Hello, (World)! \"it's\" a-b_c [d] {e} f/g\\h; i: j? k.",
     {},
     "Hello World its abc d e fgh i j k"},
    {"signs that count as punctuation", "a@b#c%d&e*f§g¶h·i", {}, "abcdefghi"},
    {"symbols stay", "$1+2=3 a<b>c^d`e~f|g €©°№", {}, "$1+2=3 a<b>c^d`e~f|g €©°№"},
    {"letters, numbers and spaces stay", "aé一½ \t\u00A0", {}, "aé一½ \t\u00A0"},
    {"punctuation of other scripts", "«a» “b” ‘c’ d… e—f ¿g? h。i、j، ك؟ न। ש־ת", {}, "a b c d ef g hij ك न שת"},
    {"empty", "", {}, ""},
    {"one character that stays", "a", {}, "a"},
    {"one character that goes", ".", {}, ""},
    {"a final line break stays", "a.\n", {}, "a\n"},
    {"line breaks stay as they are", ".\r\n.\r.\u0085.\u2028.\u2029", {}, "\r\n\r\u0085\u2028\u2029"},
    {"a mark goes with its punctuation", "a!\u0301b e\u0301", {}, "ab e\u0301"},
    {"a keycap of punctuation goes whole", "#\uFE0F\u20E31\uFE0F\u20E3", {}, "1\uFE0F\u20E3"},
    {"an emoji family stays", "👨\u200D👩\u200D👧!", {}, "👨\u200D👩\u200D👧"},
    {"NUL stays", ".\0."s, {}, "\0"s},
};
INSTANTIATE_TEST_SUITE_P(RemovePunctuation, TransformationRule, rulesOf("remove-punctuation", removePunctuation),
                         ruleAsName);

const Case wrapLines[] = {
    {"breaks before the word that does not fit", "the quick brown fox", {{"width", "10"}}, "the quick\nbrown fox"},
    {"a line may be exactly as long as the width", "ab cd ef", {{"width", "5"}}, "ab cd\nef"},
    {"a line is never longer for its space", "ab cd", {{"width", "4"}}, "ab\ncd"},
    {"never breaks a long word", "abcdef gh", {{"width", "3"}}, "abcdef\ngh"},
    {"a long word stands alone", "a abcdef b", {{"width", "3"}}, "a\nabcdef\nb"},
    {"a width of one", "a b c", {{"width", "1"}}, "a\nb\nc"},
    {"the greatest width", "a b", {{"width", "9223372036854775807"}}, "a b"},
    {"a sign and leading zeros may stand before the width", "ab cd", {{"width", "+004"}}, "ab\ncd"},
    {"empty", "", {{"width", "3"}}, ""},
    {"one character", "a", {{"width", "3"}}, "a"},
    {"leading spaces disappear", " \t ab", {{"width", "9"}}, "ab"},
    {"spaces between words stay in their number", "a   b", {{"width", "9"}}, "a   b"},
    {"tabs become spaces", "a\tb\t\tc", {{"width", "9"}}, "a b  c"},
    {"trailing spaces stay where they fit", "ab  ", {{"width", "9"}}, "ab  "},
    {"a trailing space that does not fit breaks the line", "abc ", {{"width", "3"}}, "abc\n"},
    {"spaces at a break disappear", "abc   de", {{"width", "3"}}, "abc\nde"},
    {"spaces that still fit stay before the break", "a   bcd", {{"width", "3"}}, "a  \nbcd"},
    {"only spaces", "   ", {{"width", "2"}}, ""},
    {"line breaks are no break points", "a\nb c", {{"width", "1"}}, "a\nb\nc"},
    {"a line break counts towards the length", "ab\ncd ef", {{"width", "7"}}, "ab\ncd\nef"},
    {"and the words around it stay in one piece", "ab\ncd ef", {{"width", "8"}}, "ab\ncd ef"},
    {"a final line break stays", "ab cd\n", {{"width", "3"}}, "ab\ncd\n"},
    {"CR LF stays and counts as one character", "a\r\nb c", {{"width", "5"}}, "a\r\nb c"},
    {"CR LF counts as no less", "a\r\nb c", {{"width", "4"}}, "a\r\nb\nc"},
    {"every other line break stays too", "a\rb\u0085c\u2028d e", {{"width", "8"}}, "a\rb\u0085c\u2028d\ne"},
    {"spaces of every kind are break points", "a\u00A0b\u3000c d", {{"width", "3"}}, "a b\nc d"},
    {"what has no width is no break point", "a\u200Bb", {{"width", "1"}}, "a\u200Bb"},
    {"an emoji family is one character long", "👨\u200D👩\u200D👧 b", {{"width", "3"}}, "👨\u200D👩\u200D👧 b"},
    {"a letter and its marks are one character long", "e\u0301e\u0301 b", {{"width", "4"}}, "e\u0301e\u0301 b"},
    {"joined consonants are one character long", "क्षत्र b", {{"width", "4"}}, "क्षत्र b"},
    {"length is that of the whole line", "a \u0301b c", {{"width", "5"}}, "a \u0301b c"},
    {"a sign that joins what follows joins the space", "\u0600 b c", {{"width", "4"}}, "\u0600 b c"},
    {"a word that begins with a mark is measured on its own", "a \u0301b c", {{"width", "3"}}, "a\n\u0301b\nc"},
    {"letters of other scripts", "привет мир", {{"width", "10"}}, "привет мир"},
    {"NUL counts as one character", "a\0b c"s, {{"width", "4"}}, "a\0b\nc"s},
};
INSTANTIATE_TEST_SUITE_P(WrapLines, TransformationRule, rulesOf("wrap-lines", wrapLines), ruleAsName);
INSTANTIATE_TEST_SUITE_P(WrapLinesWidth, TransformationRule,
                         rulesOf("wrap-lines", badNumbers("width", "Invalid input: Width must be a positive number")),
                         ruleAsName);

} // namespace

} // namespace lexivore::test
