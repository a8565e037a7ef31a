// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/catalog.h"
#include "tests/engine/outcome.h"
#include "tests/engine/transformation_rule.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace lexivore::test {

namespace {

using namespace std::string_literals;

/// Texts that are no UTF-8, which nothing but the engine's own interface can be handed.
std::vector<Case> notUtf8(const std::string &description) {
    return {{"a lone continuation byte", "a\x80", {}, fails(description)},
            {"a byte that begins nothing", "\xFF", {}, fails(description)},
            {"a sequence that is cut off", "a\xE2\x82", {}, fails(description)},
            {"an overlong form", "\xC0\x80", {}, fails(description)},
            {"a surrogate", "\xED\xA0\x80", {}, fails(description)},
            {"a number beyond Unicode", "\xF4\x90\x80\x80", {}, fails(description)}};
}

const Case base64Encode[] = {
    // RFC 4648, section 10
    {"empty", "", {}, ""},
    {"one character", "f", {}, "Zg=="},
    {"two characters", "fo", {}, "Zm8="},
    {"three characters need no padding", "foo", {}, "Zm9v"},
    {"four characters", "foob", {}, "Zm9vYg=="},
    {"five characters", "fooba", {}, "Zm9vYmE="},
    {"six characters", "foobar", {}, "Zm9vYmFy"},
    {"the standard alphabet", "?>~~~?", {}, "Pz5+fn4/"},
    {"no line breaks are inserted",
     std::string(90, 'a'),
     {},
     "YWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFh"
     "YWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFh"},
    {"line breaks are bytes", "a\r\nb\n", {}, "YQ0KYgo="},
    {"line and paragraph separators", "\u2028\u0085", {}, "4oCowoU="},
    {"letters of several bytes", "é漢😀", {}, "w6nmvKLwn5iA"},
    {"a letter and its mark", "e\u0301", {}, "ZcyB"},
    {"an emoji family", "👨\u200D👩\u200D👧", {}, "8J+RqOKAjfCfkanigI3wn5Gn"},
    {"no-break space and NUL", "\u00A0\0"s, {}, "wqAA"},
    {"ignores the parameters", "f", {{"text", "b"}}, "Zg=="},
};
INSTANTIATE_TEST_SUITE_P(Base64Encode, TransformationRule, rulesOf("base64-encode", base64Encode), ruleAsName);
INSTANTIATE_TEST_SUITE_P(Base64EncodeBytes, TransformationRule,
                         rulesOf("base64-encode", notUtf8("Invalid input: Cannot convert text to data")), ruleAsName);

const Outcome noBase64 = fails("Invalid input: Invalid Base64 string");
const Case base64Decode[] = {
    {"a text with padding", "SGVsbG8=", {}, "Hello"},
    {"two signs of padding", "Zg==", {}, "f"},
    {"no padding where none is needed", "Zm9v", {}, "foo"},
    {"several quanta", "Zm9vYmFy", {}, "foobar"},
    {"the standard alphabet", "Pz5+fn4/", {}, "?>~~~?"},
    {"empty", "", {}, ""},
    {"letters of several bytes", "w6nmvKLwn5iA", {}, "é漢😀"},
    {"a letter and its mark", "ZcyB", {}, "e\u0301"},
    {"an emoji family", "8J+RqOKAjfCfkanigI3wn5Gn", {}, "👨\u200D👩\u200D👧"},
    {"line breaks as they were", "YQ0KYgo=", {}, "a\r\nb\n"},
    {"no-break space and NUL", "wqAA", {}, "\u00A0\0"s},
    {"bits under the padding may be anything", "SGVsbG9=", {}, "Hello"},
    {"many bits under the padding, too", "Zv==", {}, "f"},
    {"padding may not be missing", "SGVsbG8", {}, noBase64},
    {"one character", "Z", {}, noBase64},
    {"two characters without padding", "Zg", {}, noBase64},
    {"too little padding", "Zg=", {}, noBase64},
    {"too much padding", "Zg===", {}, noBase64},
    {"padding that is not needed", "Zm9v====", {}, noBase64},
    {"nothing but padding", "====", {}, noBase64},
    {"three signs of padding", "Z===", {}, noBase64},
    {"padding in the middle", "Zg==Zg==", {}, noBase64},
    {"padding before the last character", "Zg=a", {}, noBase64},
    {"a space", "Zm9v YmFy", {}, noBase64},
    {"a space in place of a character", "Zm9 ", {}, noBase64},
    {"a line break", "Zm9v\nYmFy", {}, noBase64},
    {"a final line break", "Zm9v\n", {}, noBase64},
    {"CR LF", "Zm9v\r\n", {}, noBase64},
    {"the alphabet for URLs", "Pz8-fn4_", {}, noBase64},
    {"a letter outside the alphabet", "Zmé", {}, noBase64},
    {"a digit of another script", "Zm９", {}, noBase64},
    {"a no-break space", "Zm\u00A0", {}, noBase64},
    {"NUL", "Zm9\0"s, {}, noBase64},
    {"bytes that are no UTF-8", "/w==", {}, noBase64},
    {"bytes that are cut off", "4oI=", {}, noBase64},
    {"bytes that are a surrogate", "7aCA", {}, noBase64},
    {"bytes that are overlong", "wIA=", {}, noBase64},
};
INSTANTIATE_TEST_SUITE_P(Base64Decode, TransformationRule, rulesOf("base64-decode", base64Decode), ruleAsName);
INSTANTIATE_TEST_SUITE_P(Base64DecodeBytes, TransformationRule,
                         rulesOf("base64-decode", notUtf8("Invalid input: Invalid Base64 string")), ruleAsName);

const Case urlEncode[] = {
    {"a space, and what is allowed stays", "a b&c", {}, "a%20b&c"},
    {"letters and digits stay", "AZaz09", {}, "AZaz09"},
    {"all that the query may hold stays", "-._~!$&'()*+,;=:@/?", {}, "-._~!$&'()*+,;=:@/?"},
    {"every other ASCII sign", " \"#%<>[\\]^`{|}", {}, "%20%22%23%25%3C%3E%5B%5C%5D%5E%60%7B%7C%7D"},
    {"control characters", "\001\037\177\t", {}, "%01%1F%7F%09"},
    {"line breaks", "a\r\nb\n\r\u0085\u2028", {}, "a%0D%0Ab%0A%0D%C2%85%E2%80%A8"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"a percent sign is encoded again", "%20", {}, "%2520"},
    {"each byte of a letter, in capitals", "é漢😀", {}, "%C3%A9%E6%BC%A2%F0%9F%98%80"},
    {"a letter and its mark", "e\u0301", {}, "e%CC%81"},
    {"an emoji family", "👨\u200D👧", {}, "%F0%9F%91%A8%E2%80%8D%F0%9F%91%A7"},
    {"no-break space and NUL", "\u00A0\0"s, {}, "%C2%A0%00"},
    {"ignores the parameters", "a b", {{"text", "b"}}, "a%20b"},
};
INSTANTIATE_TEST_SUITE_P(UrlEncode, TransformationRule, rulesOf("url-encode", urlEncode), ruleAsName);
INSTANTIATE_TEST_SUITE_P(UrlEncodeBytes, TransformationRule,
                         rulesOf("url-encode", notUtf8("Operation failed: Cannot encode URL")), ruleAsName);

const Outcome noUrl = fails("Invalid input: Invalid URL-encoded string");
const Case urlDecode[] = {
    {"a percent sign and two digits are a byte", "a%20b%26c", {}, "a b&c"},
    {"digits of either case", "%c3%A9%C3%a9", {}, "éé"},
    {"a plus sign stays", "a+b", {}, "a+b"},
    {"decodes once", "%2520", {}, "%20"},
    {"what is not encoded stays", "é 漢\u00A0&=?#\"", {}, "é 漢\u00A0&=?#\""},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "a"},
    {"line breaks, encoded or not", "a%0D%0A\r\n\r\u2028%C2%85", {}, "a\r\n\r\n\r\u2028\u0085"},
    {"a letter and its mark", "e%CC%81", {}, "e\u0301"},
    {"an emoji family", "%F0%9F%91%A8%E2%80%8D%F0%9F%91%A7", {}, "👨\u200D👧"},
    {"NUL, encoded or not", "%00\0"s, {}, "\0\0"s},
    {"a percent sign at the end", "100%", {}, noUrl},
    {"a percent sign alone", "%", {}, noUrl},
    {"a percent sign and one digit", "%4", {}, noUrl},
    {"a percent sign and no digits", "50% off", {}, noUrl},
    {"one digit and a letter", "%4g", {}, noUrl},
    {"a letter and one digit", "%g4", {}, noUrl},
    {"a space in place of a digit", "% 4", {}, noUrl},
    {"a sign in place of a digit", "%+4", {}, noUrl},
    {"two percent signs", "%%41", {}, noUrl},
    {"a digit of another script", "%４1", {}, noUrl},
    {"NUL in place of a digit", "%4\0"s, {}, noUrl},
    {"bytes that are no UTF-8", "%FF", {}, noUrl},
    {"bytes that are cut off", "a%C3b", {}, noUrl},
    {"bytes that are a surrogate", "%ED%A0%80", {}, noUrl},
    {"bytes that are overlong", "%C0%80", {}, noUrl},
};
INSTANTIATE_TEST_SUITE_P(UrlDecode, TransformationRule, rulesOf("url-decode", urlDecode), ruleAsName);
INSTANTIATE_TEST_SUITE_P(UrlDecodeBytes, TransformationRule,
                         rulesOf("url-decode", notUtf8("Invalid input: Invalid URL-encoded string")), ruleAsName);

const Case htmlEncode[] = {
    {"five characters", "&<>\"'", {}, "&amp;&lt;&gt;&quot;&#39;"},
    {"in their places", "a<b & 'c'", {}, "a&lt;b &amp; &#39;c&#39;"},
    {"entities of the text are encoded once", "&lt;", {}, "&amp;lt;"},
    {"nothing else", "é\u00A0©/`=\\", {}, "é\u00A0©/`=\\"},
    {"empty", "", {}, ""},
    {"one character", "<", {}, "&lt;"},
    {"one character that stays", "a", {}, "a"},
    {"line breaks stay as they are", "<\r\n>\r\u0085\u2028\n", {}, "&lt;\r\n&gt;\r\u0085\u2028\n"},
    {"a sign under a mark", "<\u0338", {}, "&lt;\u0338"},
    {"other scripts and emoji", "न&👨\u200D👩\u200D👧", {}, "न&amp;👨\u200D👩\u200D👧"},
    {"NUL stays", "\0<"s, {}, "\0&lt;"s},
};
INSTANTIATE_TEST_SUITE_P(HtmlEncode, TransformationRule, rulesOf("html-encode", htmlEncode), ruleAsName);

const Case htmlDecode[] = {
    {"six entities", "&amp;&lt;&gt;&quot;&#39;&apos;", {}, "&<>\"''"},
    {"gives back what was encoded", "a&lt;b &amp; &#39;c&#39;", {}, "a<b & 'c'"},
    {"what was encoded twice is decoded twice", "&amp;lt;", {}, "<"},
    {"every entity but the ampersand's", "&amp;gt;&amp;quot;&amp;#39;&amp;apos;", {}, ">\"''"},
    {"the ampersand's is decoded once", "&amp;amp;", {}, "&amp;"},
    {"and once more is not twice", "&amp;amp;lt;", {}, "&amp;lt;"},
    {"an ampersand of the text begins an entity too", "&&lt;", {}, "&<"},
    {"other entities stay", "&nbsp;&#60;&#x3C;&copy;&#039;", {}, "&nbsp;&#60;&#x3C;&copy;&#039;"},
    {"letter case counts", "&LT;&Amp;", {}, "&LT;&Amp;"},
    {"the semicolon counts", "&lt &amp &amplt;", {}, "&lt &amp &amplt;"},
    {"an entity that is cut off stays", "&l", {}, "&l"},
    {"an entity within an entity", "&l&amp;t;", {}, "&l&t;"},
    {"empty", "", {}, ""},
    {"one character", "&", {}, "&"},
    {"line breaks stay as they are", "&lt;\r\n\r\u0085\u2028\n", {}, "<\r\n\r\u0085\u2028\n"},
    {"a line break within an entity", "&l\nt;", {}, "&l\nt;"},
    {"an entity under a mark", "&lt;\u0338", {}, "<\u0338"},
    {"other scripts and emoji", "न&amp;👨\u200D👩\u200D👧\u00A0", {}, "न&👨\u200D👩\u200D👧\u00A0"},
    {"NUL stays", "\0&lt;"s, {}, "\0<"s},
};
INSTANTIATE_TEST_SUITE_P(HtmlDecode, TransformationRule, rulesOf("html-decode", htmlDecode), ruleAsName);

const Case jsonEscape[] = {
    {"five characters", "\\\"\n\r\t", {}, "\\\\\\\"\\n\\r\\t"},
    {"a backslash and a letter", "\\n", {}, "\\\\n"},
    {"a line break", "a\nb", {}, "a\\nb"},
    {"CR LF is two characters", "a\r\nb", {}, "a\\r\\nb"},
    {"a lone CR and a final line break", "a\rb\n", {}, "a\\rb\\n"},
    {"no quotes around the result", "abc", {}, "abc"},
    {"a quote after a backslash", "\\\"", {}, "\\\\\\\""},
    {"a solidus and an apostrophe stay", "a/b'c", {}, "a/b'c"},
    {"other control characters stay", "\b\f\v\001\037\033", {}, "\b\f\v\001\037\033"},
    {"other line breaks stay", "\u0085\u2028\u2029", {}, "\u0085\u2028\u2029"},
    {"empty", "", {}, ""},
    {"one character", "\"", {}, "\\\""},
    {"a quote under a mark", "\"\u0301", {}, "\\\"\u0301"},
    {"other scripts and emoji stay", "é न\t👨\u200D👩\u200D👧\u00A0", {}, "é न\\t👨\u200D👩\u200D👧\u00A0"},
    {"NUL stays", "\0\n"s, {}, "\0\\n"s},
};
INSTANTIATE_TEST_SUITE_P(JsonEscape, TransformationRule, rulesOf("json-escape", jsonEscape), ruleAsName);

const Case hexEncode[] = {
    {"two digits for each byte", "Hi", {}, "4869"},
    {"small letters as digits", "é", {}, "c3a9"},
    {"a leading zero", "\n\t\001", {}, "0a0901"},
    {"empty", "", {}, ""},
    {"one character", "a", {}, "61"},
    {"line breaks", "\r\n\r\u0085\u2028", {}, "0d0a0dc285e280a8"},
    {"letters of several bytes", "漢😀", {}, "e6bca2f09f9880"},
    {"a letter and its mark", "e\u0301", {}, "65cc81"},
    {"an emoji family", "👨\u200D👧", {}, "f09f91a8e2808df09f91a7"},
    {"no-break space and NUL", "\u00A0\0"s, {}, "c2a000"},
};
INSTANTIATE_TEST_SUITE_P(HexEncode, TransformationRule, rulesOf("hex-encode", hexEncode), ruleAsName);
INSTANTIATE_TEST_SUITE_P(HexEncodeBytes, TransformationRule,
                         rulesOf("hex-encode", notUtf8("Invalid input: Cannot convert text to data")), ruleAsName);

const Outcome noHexadecimal = fails("Invalid input: Invalid hexadecimal string");
const Outcome noHexadecimalText = fails("Invalid input: Cannot decode hexadecimal to UTF-8");
const Case hexDecode[] = {
    {"spaces are passed over", "48 65 6C 6C 6F", {}, "Hello"},
    {"spaces anywhere", "  4 8  6 9 ", {}, "Hi"},
    {"digits of either case", "c3A9C3a9", {}, "éé"},
    {"empty", "", {}, ""},
    {"only spaces", "   ", {}, ""},
    {"letters of several bytes", "e6bca2f09f9880", {}, "漢😀"},
    {"a letter and its mark", "65cc81", {}, "e\u0301"},
    {"an emoji family", "f09f91a8e2808df09f91a7", {}, "👨\u200D👧"},
    {"line breaks", "0d0a0dc285e280a8", {}, "\r\n\r\u0085\u2028"},
    {"NUL", "00", {}, "\0"s},
    {"one character", "4", {}, noHexadecimal},
    {"an odd number of digits", "48 6", {}, noHexadecimal},
    {"a letter that is no digit", "4g", {}, noHexadecimal},
    {"a prefix", "0x48", {}, noHexadecimal},
    {"a plus sign", "+4", {}, noHexadecimal},
    {"a minus sign", "-4", {}, noHexadecimal},
    {"another separator", "48:69", {}, noHexadecimal},
    {"a tab", "48\t69", {}, noHexadecimal},
    {"a line break", "48\n69", {}, noHexadecimal},
    {"a final line break", "4869\n", {}, noHexadecimal},
    {"CR LF as a pair", "48\r\n69", {}, noHexadecimal},
    {"a no-break space", "48\u00A069", {}, noHexadecimal},
    {"a letter outside ASCII", "é", {}, noHexadecimal},
    {"a digit of another script", "４8", {}, noHexadecimal},
    {"NUL as a digit", "4\0"s, {}, noHexadecimal},
    {"bytes that are no UTF-8", "ff", {}, noHexadecimalText},
    {"bytes that are cut off", "e282", {}, noHexadecimalText},
    {"bytes that are a surrogate", "eda080", {}, noHexadecimalText},
    {"bytes that are overlong", "c080", {}, noHexadecimalText},
    {"bad digits are reported before bad bytes", "ffzz", {}, noHexadecimal},
};
INSTANTIATE_TEST_SUITE_P(HexDecode, TransformationRule, rulesOf("hex-decode", hexDecode), ruleAsName);
INSTANTIATE_TEST_SUITE_P(HexDecodeBytes, TransformationRule,
                         rulesOf("hex-decode", notUtf8("Invalid input: Invalid hexadecimal string")), ruleAsName);

Outcome applied(std::string_view id, std::string_view text) {
    static const Catalog catalog = makeCatalog();
    return outcomeOf(*findTransformation(catalog, id), text, {});
}

// The encoders check and encode a long text in parts of this size.
constexpr std::size_t partSize = 4'095;

TEST(LongTexts, MayHaveCharactersOverTheEndsOfParts) {
    for (std::size_t before = partSize - 5; before <= partSize + 1; ++before) {
        const std::string text = std::string(before, 'a') + "😀é漢" + std::string(partSize, 'b') + "é";
        for (const std::string coding : {"base64", "url", "hex"}) {
            const Outcome encoded = applied(coding + "-encode", text);
            ASSERT_FALSE(encoded.failed) << coding << " of " << before;
            EXPECT_TRUE(applied(coding + "-decode", encoded.text) == text) << coding << " of " << before;
        }
    }
}

TEST(LongTexts, AreEncodedAsTheirPartsAreHoweverLong) {
    // Of which every encoder makes whole groups.
    constexpr std::string_view piece = "Zürich – 漢~\n!";
    static_assert(piece.size() % 3 == 0);
    for (const std::size_t pieces : {std::size_t{1'000}, std::size_t{250'001}}) { // the last are over 4 MB
        std::string text;
        for (std::size_t i = 0; i < pieces; ++i) {
            text.append(piece);
        }
        for (const std::string coding : {"base64", "url", "hex"}) {
            const std::string once = applied(coding + "-encode", piece).text;
            std::string expected;
            for (std::size_t i = 0; i < pieces; ++i) {
                expected += once;
            }
            EXPECT_TRUE(applied(coding + "-encode", text).text == expected) << coding << " of " << pieces;
        }
    }
}

TEST(LongTexts, AreNoTextsWithAnErrorAtTheEndOfAPart) {
    for (std::size_t before = partSize - 5; before <= partSize + 1; ++before) {
        for (const std::string_view bad : {"\x80", "é\x80", "漢\x80", "😀\x80", "\x80\x80\x80\x80", "\xC3", "\xE6\xBC",
                                           "\xF0\x9F\x98", "\xF0\x9F\x98\x80\x80", "\xED\xA0\x80"}) {
            for (const std::string_view after : {"", "b", "é"}) {
                std::string text(before, 'a');
                text.append(bad).append(after);
                EXPECT_EQ(applied("base64-encode", text), fails("Invalid input: Cannot convert text to data"));
                EXPECT_EQ(applied("hex-encode", text), fails("Invalid input: Cannot convert text to data"));
                EXPECT_EQ(applied("url-encode", text), fails("Operation failed: Cannot encode URL"));
            }
        }
    }
}

} // namespace

} // namespace lexivore::test
