// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/transformation_rule.h"

#include <ctime>

namespace lexivore::test {

namespace {

using namespace std::string_literals;

const Case replaceText[] = {
    {"every occurrence", "banana", {{"find", "an"}, {"replace", "AN"}}, "bANANa"},
    {"an absent replacement deletes", "banana", {{"find", "a"}}, "bnn"},
    {"so does an empty one", "banana", {{"find", "a"}, {"replace", ""}}, "bnn"},
    {"needs a text to find", "a", {{"replace", "b"}}, fails("Missing parameter: find")},
    {"an empty text to find is nowhere", "a\r\nb", {{"find", ""}, {"replace", "x"}}, "a\r\nb"},
    {"an empty text to find is in no empty text", "", {{"find", ""}, {"replace", "x"}}, ""},
    {"occurrences do not overlap", "aaaaa", {{"find", "aa"}, {"replace", "b"}}, "bba"},
    {"the replacement is not searched again", "aa", {{"find", "a"}, {"replace", "aab"}}, "aabaab"},
    {"nor is what the replacement joins", "aabb", {{"find", "ab"}}, "ab"},
    {"letter case counts", "aA", {{"find", "a"}, {"replace", "x"}}, "xA"},
    {"the text to find is literal", "a.c abc", {{"find", "a.c"}, {"replace", "x"}}, "x abc"},
    {"the replacement is literal", "a", {{"find", "a"}, {"replace", "$0\\n&"}}, "$0\\n&"},
    {"the whole text may go", "abc", {{"find", "abc"}}, ""},
    {"a text to find longer than the text", "ab", {{"find", "abc"}, {"replace", "x"}}, "ab"},
    {"empty", "", {{"find", "a"}, {"replace", "x"}}, ""},
    {"one character", "a", {{"find", "a"}, {"replace", "xyz"}}, "xyz"},
    {"a final line break stays", "a\n", {{"find", "a"}, {"replace", "b"}}, "b\n"},
    {"the text is not cut into lines", "a\nb\nc", {{"find", "a\nb"}, {"replace", "x"}}, "x\nc"},
    {"a line feed is found within CR LF", "a\r\nb\n", {{"find", "\n"}, {"replace", "|"}}, "a\r|b|"},
    {"CR LF is found whole", "a\r\nb\n", {{"find", "\r\n"}, {"replace", "|"}}, "a|b\n"},
    {"every other line break can be found",
     "a\u2028b\u0085c\rd",
     {{"find", "\u0085"}, {"replace", "|"}},
     "a\u2028b|c\rd"},
    {"composed and decomposed forms differ", "\u00E9e\u0301", {{"find", "\u00E9"}, {"replace", "x"}}, "xe\u0301"},
    {"a letter is found under its mark", "\u00E9e\u0301", {{"find", "e"}, {"replace", "x"}}, "\u00E9x\u0301"},
    {"a member of an emoji family is found", "👨\u200D👩\u200D👧", {{"find", "\u200D"}, {"replace", "+"}}, "👨+👩+👧"},
    {"other scripts", "привет नमस्ते", {{"find", "नमस्ते"}, {"replace", "मित्र"}}, "привет मित्र"},
    {"a no-break space is no space", "a b\u00A0c", {{"find", " "}, {"replace", "_"}}, "a_b\u00A0c"},
    {"NUL is found and written", "a\0b"s, {{"find", "\0b"s}, {"replace", "\0\0"s}}, "a\0\0"s},
    {"NUL does not end the text to find", "ab a\0b"s, {{"find", "a\0"s}, {"replace", "x"}}, "ab xb"},
};
INSTANTIATE_TEST_SUITE_P(ReplaceText, TransformationRule, rulesOf("replace-text", replaceText), ruleAsName);

const Case regexMatching[] = {
    {"every match in the whole text", "a1 b22\nc333", {{"pattern", "\\d+"}, {"replace", "#"}}, "a# b#\nc#"},
    {"an absent replacement deletes", "a1b2", {{"pattern", "\\d"}}, "ab"},
    {"needs a pattern", "a", {{"replace", "b"}}, fails("Missing parameter: pattern")},
    {"an empty pattern is none", "a", {{"pattern", ""}, {"replace", "b"}}, fails("Missing parameter: pattern")},
    {"no match leaves the text as it is", "a\r\nb\u2028", {{"pattern", "x"}, {"replace", "y"}}, "a\r\nb\u2028"},
    {"empty", "", {{"pattern", "a"}, {"replace", "x"}}, ""},
    {"the empty text has an empty match", "", {{"pattern", "a*"}, {"replace", "x"}}, "x"},
    {"one character", "a", {{"pattern", "a"}, {"replace", "xyz"}}, "xyz"},
    {"letter case counts", "aA", {{"pattern", "a"}, {"replace", "x"}}, "xA"},
    {"options within the pattern are ICU's", "aA\nA", {{"pattern", "(?im)^a$"}, {"replace", "x"}}, "aA\nx"},
    {"a point matches no line break",
     "a\nb\rc\r\nd\u0085e\u2028f\u2029g\vh\fi",
     {{"pattern", "."}, {"replace", "x"}},
     "x\nx\rx\r\nx\u0085x\u2028x\u2029x\vx\fx"},
    {"a caret is the start of the whole text only", "a\na\na", {{"pattern", "^a"}, {"replace", "x"}}, "x\na\na"},
    {"a dollar sign is the end of the whole text only", "a\na\na", {{"pattern", "a$"}, {"replace", "x"}}, "a\na\nx"},
    {"and the place before a final line feed", "a\na\n", {{"pattern", "a$"}, {"replace", "x"}}, "a\nx\n"},
    {"and before a final CR LF", "a\r\n", {{"pattern", "a$"}, {"replace", "x"}}, "x\r\n"},
    {"and before any other final line break", "a\u2028", {{"pattern", "a$"}, {"replace", "x"}}, "x\u2028"},
    {"but not before two of them", "a\n\n", {{"pattern", "a$"}, {"replace", "x"}}, "a\n\n"},
    {"a dollar sign matches at both of these places", "a\n", {{"pattern", "$"}, {"replace", "!"}}, "a!\n!"},
    {"the end alone can be asked for", "a\n", {{"pattern", "\\z"}, {"replace", "!"}}, "a\n!"},
    {"empty matches between the characters", "ab", {{"pattern", "x*"}, {"replace", "-"}}, "-a-b-"},
    {"an empty match never cuts a code point", "😀é", {{"pattern", "x*"}, {"replace", "-"}}, "-😀-é-"},
    {"matches do not overlap", "aaaaa", {{"pattern", "aa"}, {"replace", "b"}}, "bba"},
    {"the first alternative wins", "abc", {{"pattern", "a|ab|abc"}, {"replace", "x"}}, "xbc"},
    {"a match may cover line breaks", "a\r\nb", {{"pattern", "a\\Rb"}, {"replace", "x"}}, "x"},
    {"references to groups", "abba cddc xyxy", {{"pattern", "(.)(.)\\2\\1"}, {"replace", "x"}}, "x x xyxy"},
    {"looking ahead and behind", "a1 b1 a2", {{"pattern", "(?<=a)\\d(?= )"}, {"replace", "x"}}, "ax b1 a2"},
    {"letters of every script", "a1 я2 न漢", {{"pattern", "\\p{L}"}, {"replace", "x"}}, "x1 x2 xx"},
    {"digits of every script", "1٣५½", {{"pattern", "\\d"}, {"replace", "x"}}, "xxx½"},
    {"a point is one code point", "e\u0301 👨\u200D👧", {{"pattern", "."}, {"replace", "x"}}, "xxxxxx"},
    {"a grapheme cluster can be asked for", "e\u0301 👨\u200D👩\u200D👧", {{"pattern", "\\X"}, {"replace", "x"}}, "xxx"},
    {"composed and decomposed forms differ", "\u00E9e\u0301", {{"pattern", "\u00E9"}, {"replace", "x"}}, "xe\u0301"},
    {"text beyond the basic plane keeps its place", "😀a😀b😀", {{"pattern", "[ab]"}, {"replace", "😁"}}, "😀😁😀😁😀"},
    {"an emoji is found", "a😀b", {{"pattern", "😀"}, {"replace", "x"}}, "axb"},
    {"a code point is found by its number", "a😀b", {{"pattern", "\\x{1F600}"}, {"replace", "x"}}, "axb"},
    {"a no-break space is no space", "a b\u00A0c", {{"pattern", " "}, {"replace", "_"}}, "a_b\u00A0c"},
    {"NUL is found and written", "a\0b"s, {{"pattern", "\0b"s}, {"replace", "\0\0"s}}, "a\0\0"s},
};
INSTANTIATE_TEST_SUITE_P(RegexMatching, TransformationRule, rulesOf("replace-regex", regexMatching), ruleAsName);

const Case regexTemplate[] = {
    {"a group", "key=x", {{"pattern", "(\\w+)="}, {"replace", "[$1]"}}, "[key]x"},
    {"the whole match", "ab", {{"pattern", "."}, {"replace", "<$0>"}}, "<a><b>"},
    {"nine groups",
     "abcdefghi",
     {{"pattern", "(.)(.)(.)(.)(.)(.)(.)(.)(.)"}, {"replace", "$9$8$7$6$5$4$3$2$1"}},
     "ihgfedcba"},
    {"groups in any order and number", "ab", {{"pattern", "(a)(b)"}, {"replace", "$2$1$2"}}, "bab"},
    {"only one digit belongs to a group", "ab", {{"pattern", "(a)(b)"}, {"replace", "$12"}}, "a2"},
    {"even when there are that many groups",
     "abcdefghijkl",
     {{"pattern", "(.)(.)(.)(.)(.)(.)(.)(.)(.)(.)(.)(.)"}, {"replace", "$12 $10"}},
     "a2 a0"},
    {"a group that does not exist is empty", "ab", {{"pattern", "(a)"}, {"replace", "<$2$9>"}}, "<>b"},
    {"a group that took no part is empty", "ab", {{"pattern", "(a)|(b)"}, {"replace", "<$1|$2>"}}, "<a|><|b>"},
    {"a group that repeats is its last match", "abc", {{"pattern", "(.)+"}, {"replace", "$1"}}, "c"},
    {"a backslash makes a dollar sign literal", "a", {{"pattern", "a"}, {"replace", "\\$0"}}, "$0"},
    {"a backslash makes a backslash literal", "a", {{"pattern", "a"}, {"replace", "\\\\$0"}}, "\\a"},
    {"a backslash makes any letter literal", "a", {{"pattern", "a"}, {"replace", "\\n\\t\\u0041"}}, "ntu0041"},
    {"a backslash makes a character of many bytes literal", "a", {{"pattern", "a"}, {"replace", "\\é\\😀"}}, "é😀"},
    {"a lone backslash at the end gives nothing", "ab", {{"pattern", "a"}, {"replace", "x\\"}}, "xb"},
    {"a dollar sign at the end is itself", "a", {{"pattern", "a"}, {"replace", "5$"}}, "5$"},
    {"a dollar sign before no digit is itself", "a", {{"pattern", "a"}, {"replace", "$x$ ${n}$-1"}}, "$x$ ${n}$-1"},
    {"a dollar sign before a dollar sign is itself", "a", {{"pattern", "a"}, {"replace", "$$0"}}, "$a"},
    {"digits of other scripts are no digits", "a", {{"pattern", "(a)"}, {"replace", "$١"}}, "$١"},
    {"named groups have numbers", "a-b", {{"pattern", "(?<l>.)-(?<r>.)"}, {"replace", "$2-$1"}}, "b-a"},
    {"a group of other scripts and emoji",
     "न👨\u200D👩\u200D👧é",
     {{"pattern", "(न)(.+)(é)"}, {"replace", "$3$2$1"}},
     "é👨\u200D👩\u200D👧न"},
    {"a group with line breaks and NUL",
     "a\r\n\u2028\0b"s,
     {{"pattern", "a([^b]*)b"}, {"replace", "$1"}},
     "\r\n\u2028\0"s},
    {"what is replaced is not searched again", "aa", {{"pattern", "a"}, {"replace", "ba"}}, "baba"},
    {"a template never fails", "a", {{"pattern", "a"}, {"replace", "$\\$$9\\\\\\"}}, "$$\\"},
    {"a template does not matter without a match", "b", {{"pattern", "a"}, {"replace", "$9\\"}}, "b"},
};
INSTANTIATE_TEST_SUITE_P(RegexTemplate, TransformationRule, rulesOf("replace-regex", regexTemplate), ruleAsName);

Outcome failsToCompile(const std::string &description) {
    return fails("Invalid input: Invalid regular expression: " + description);
}

const Case regexErrors[] = {
    {"an open group", "", {{"pattern", "("}}, failsToCompile("U_REGEX_MISMATCHED_PAREN (line 1, offset 1)")},
    {"a group closed twice", "", {{"pattern", "a)"}}, failsToCompile("U_REGEX_MISMATCHED_PAREN (line 1, offset 2)")},
    {"an open set", "", {{"pattern", "[a"}}, failsToCompile("U_REGEX_MISSING_CLOSE_BRACKET (line 1, offset 2)")},
    {"nothing to repeat", "", {{"pattern", "*a"}}, failsToCompile("U_REGEX_RULE_SYNTAX (line 1, offset 1)")},
    {"bounds in the wrong order", "", {{"pattern", "a{2,1}"}}, failsToCompile("U_REGEX_MAX_LT_MIN (line 1, offset 6)")},
    {"a lone backslash", "", {{"pattern", "\\"}}, failsToCompile("U_REGEX_BAD_ESCAPE_SEQUENCE (line 1, offset 1)")},
    {"an unknown option", "", {{"pattern", "(?z)"}}, failsToCompile("U_REGEX_RULE_SYNTAX (line 1, offset 3)")},
    {"a reference to no group",
     "",
     {{"pattern", "\\3"}},
     failsToCompile("U_REGEX_INVALID_BACK_REF (line 1, offset 2)")},
    {"looking behind without a bound",
     "",
     {{"pattern", "(?<=a*)b"}},
     failsToCompile("U_REGEX_LOOK_BEHIND_LIMIT (line 1, offset 7)")},
    {"an unknown property",
     "",
     {{"pattern", "\\p{Foo}"}},
     failsToCompile("U_REGEX_PROPERTY_SYNTAX (line 1, offset 7)")},
    {"a name used twice",
     "",
     {{"pattern", "(?<n>a)(?<n>b)"}},
     failsToCompile("U_REGEX_INVALID_CAPTURE_GROUP_NAME (line 1, offset 12)")},
    {"the place counts characters",
     "",
     {{"pattern", "é😀("}},
     failsToCompile("U_REGEX_MISMATCHED_PAREN (line 1, offset 3)")},
    {"the place counts lines",
     "",
     {{"pattern", "a\n("}},
     failsToCompile("U_REGEX_MISMATCHED_PAREN (line 2, offset 1)")},
    {"a bad pattern fails whatever the text",
     "abc",
     {{"pattern", "("}, {"replace", "x"}},
     failsToCompile("U_REGEX_MISMATCHED_PAREN (line 1, offset 1)")},
    {"a match that needs too much stack",
     std::string(5'000'000, 'a'),
     {{"pattern", "(a|b)*"}},
     failsToCompile("U_REGEX_STACK_OVERFLOW")},
};
INSTANTIATE_TEST_SUITE_P(RegexErrors, TransformationRule, rulesOf("replace-regex", regexErrors), ruleAsName);

TEST(ReplaceWithRegex, GivesUpOnAPatternOfExponentialTime) {
    const TransformationPointer replaceRegex = findTransformation(makeCatalog(), "replace-regex");
    const std::clock_t begin = std::clock();
    EXPECT_EQ(outcomeOf(*replaceRegex, std::string(60, 'a') + "!", {{"pattern", "(a+)+$"}}),
              failsToCompile("U_REGEX_TIME_OUT"));
    // Of the processor, about a second and a quarter; more is left for a busy machine.
    EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, 4);
}

const Case reverseText[] = {
    {"the last character first", "abc d", {}, "d cba"},
    {"line breaks are reversed too", "ab\ncd\n", {}, "\ndc\nba"},
    {"CR LF stays in one piece", "a\r\nb", {}, "b\r\na"},
    {"LF CR becomes CR LF", "a\n\rb", {}, "b\r\na"},
    {"every other line break", "a\rb\u0085c\u2028d\u2029e\vf\fg", {}, "g\ff\ve\u2029d\u2028c\u0085b\ra"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"a letter keeps its marks", "ae\u0301\u0323b", {}, "be\u0301\u0323a"},
    {"a letter of several bytes", "aéж漢😀", {}, "😀漢жéa"},
    {"an emoji family stays whole", "a👨\u200D👩\u200D👧b", {}, "b👨\u200D👩\u200D👧a"},
    {"an emoji keeps its skin tone", "👍🏽👋🏿", {}, "👋🏿👍🏽"},
    {"flags stay whole", "🇩🇪🇫🇷a", {}, "a🇫🇷🇩🇪"},
    {"a keycap stays whole", "1\uFE0F\u20E32", {}, "21\uFE0F\u20E3"},
    {"vowel signs and conjuncts stay whole", "नमस्ते क्षत्रिय", {}, "यत्रिक्ष स्तेमन"},
    {"Thai vowels and tones stay with their letter", "ที่นี่กำ", {}, "กำนี่ที่"},
    {"Hangul letters of a syllable stay together",
     "\u1112\u1161\u11AB\u1100\u1173",
     {},
     "\u1100\u1173\u1112\u1161\u11AB"},
    {"scripts from right to left are reversed alike", "שלום", {}, "םולש"},
    {"spaces of every kind", " a\tb\u00A0", {}, "\u00A0b\ta "},
    {"a mark on its own joins what then precedes it", "\u0301a", {}, "a\u0301"},
    {"NUL is a character like any other", "a\0bc"s, {}, "cb\0a"s},
    {"a long run of plain letters",
     "abcdefghijklmnopqrstuvwxyz0123456789é",
     {},
     "é9876543210zyxwvutsrqponmlkjihgfedcba"},
    {"ignores the parameters", "ab", {{"find", "a"}}, "ba"},
};
INSTANTIATE_TEST_SUITE_P(ReverseText, TransformationRule, rulesOf("reverse", reverseText), ruleAsName);

} // namespace

} // namespace lexivore::test
