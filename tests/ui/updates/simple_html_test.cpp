// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/updates/simple_html.h"

#include <gtest/gtest.h>

namespace lexivore {
namespace {

std::string simple(const QString &html) { return simpleHtml(html).toStdString(); }

TEST(SimpleHtml, KeepsWordsAndWhatTheyAre) {
    for (const char *html : {"", "a &amp; b > c", "<h2>a</h2><p>b<br>c</p>", "<ul><li><b>a</b></ul>",
                             "<a href=\"https://example.org/?a&amp;b\">a</a>"}) {
        EXPECT_EQ(simple(html), html);
    }
}

TEST(SimpleHtml, KeepsNoAttributeButTheAddressOfALink) {
    EXPECT_EQ(simple("<P Class='x' style=\"a>b\">a</P >"), "<p>a</p>");
    EXPECT_EQ(simple("<li value=9 / >a"), "<li>a");
    EXPECT_EQ(simple("<a title='<b>' HREF = 'x\"y' id=z>a</a>"), "<a href=\"x&quot;y\">a</a>");
    EXPECT_EQ(simple("<a class=x href=y>a</a>"), "<a href=\"y\">a</a>");
    EXPECT_EQ(simple("<a name=x>a"), "a");
}

TEST(SimpleHtml, MakesParagraphsOfTables) {
    EXPECT_EQ(simple("<table><tr><td colspan=1000000>a</td><th rowspan='9'>b</table>"),
              "<div><div><div>a</div><div>b</div>");
}

TEST(SimpleHtml, LeavesOutWhatItDoesNotKnow) {
    EXPECT_EQ(simple("<font size=99>a</font><t&#97;ble>b<img src=x>"), "ab");
}

TEST(SimpleHtml, LeavesOutWhatIsNotForReading) {
    EXPECT_EQ(simple("a<!-- <b> -- > -->b<!DOCTYPE html><?xml?>c"), "abc");
    EXPECT_EQ(simple("<style>p > b {}</style>a<SCRIPT>if (a<b) '</p>'</Script >b<title>c</title>"), "ab");
}

TEST(SimpleHtml, TakesWhatDoesNotEndForMarkupToTheEnd) {
    for (const char *html : {"a<b", "a<p class='x>b</p>", "a<!-- b", "a<script>b", "a</", "a<p title=\"x>b"}) {
        EXPECT_EQ(simple(html).substr(0, 1), "a") << html;
        EXPECT_EQ(simple(html).find('x'), std::string::npos) << html;
    }
    EXPECT_EQ(simple("1 < 2 <3"), "1 &lt; 2 &lt;3");
}

TEST(SimpleHtml, EndsBeforeThereAreTooManyTags) {
    const std::string nested = simple(QString("<ul><li>x").repeated(7'000));
    EXPECT_EQ(nested, simple(QString("<ul><li>x").repeated(500)));
    EXPECT_EQ(nested.size(), 500U * 9);
}

} // namespace
} // namespace lexivore
