// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/appcast.h"

#include <gtest/gtest.h>

namespace lexivore {
namespace {

QByteArray feedOf(const QByteArray &items) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
           "<rss version=\"2.0\" xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">"
           "<channel><title>Lexivore</title>" +
           items + "</channel></rss>";
}

const QByteArray wholeItem = R"(<item>
    <title>Version 1.2</title>
    <sparkle:version> 120 </sparkle:version>
    <sparkle:shortVersionString>1.2</sparkle:shortVersionString>
    <sparkle:minimumSystemVersion>5.10</sparkle:minimumSystemVersion>
    <sparkle:channel>beta</sparkle:channel>
    <sparkle:releaseNotesLink>https://example.org/notes</sparkle:releaseNotesLink>
    <description><![CDATA[<p>Grüße &amp; more</p>]]></description>
    <enclosure url="https://example.org/a%20b.deb" length="1234" type="application/octet-stream"
               sparkle:edSignature="AAEC/w=="/>
</item>)";

AppcastItem onlyItem(const QByteArray &items) {
    const AppcastResult result = parseAppcast(feedOf(items));
    EXPECT_EQ(result.error, QString());
    EXPECT_EQ(result.appcast.items.size(), 1U);
    return result.appcast.items.empty() ? AppcastItem() : result.appcast.items.front();
}

std::size_t itemCount(const QByteArray &items) {
    const AppcastResult result = parseAppcast(feedOf(items));
    EXPECT_EQ(result.error, QString());
    return result.appcast.items.size();
}

TEST(Appcast, ReadsEverythingOfAnItem) {
    const AppcastItem item = onlyItem(wholeItem);
    EXPECT_EQ(item.version, "120");
    EXPECT_EQ(item.shortVersion, "1.2");
    EXPECT_EQ(item.minimumSystemVersion, "5.10");
    EXPECT_EQ(item.channel, "beta");
    EXPECT_EQ(item.releaseNotesLink, QUrl("https://example.org/notes"));
    EXPECT_EQ(item.releaseNotes, QString::fromUtf8("<p>Grüße &amp; more</p>"));
    EXPECT_EQ(item.notesFormat, AppcastItem::NotesFormat::html);
    EXPECT_EQ(item.file.toEncoded(), "https://example.org/a%20b.deb");
    EXPECT_EQ(item.length, 1234);
    EXPECT_EQ(item.signature, QByteArray("\x00\x01\x02\xff", 4));
}

TEST(Appcast, ReadsTheVersionsOfOlderFeedsFromTheEnclosure) {
    const AppcastItem item =
        onlyItem(R"(<item><enclosure sparkle:version="7" sparkle:shortVersionString="0.7"/></item>)");
    EXPECT_EQ(item.version, "7");
    EXPECT_EQ(item.shortVersion, "0.7");
    const AppcastItem both =
        onlyItem(R"(<item><enclosure sparkle:version="7"/><sparkle:version>8</sparkle:version></item>)");
    EXPECT_EQ(both.version, "8");
    EXPECT_EQ(both.shortVersion, "8");
}

TEST(Appcast, KeepsTheOrderOfTheItems) {
    const AppcastResult result = parseAppcast(feedOf("<item><sparkle:version>2</sparkle:version></item>"
                                                     "<item><sparkle:version>3</sparkle:version></item>"
                                                     "<item><sparkle:version>1</sparkle:version></item>"));
    ASSERT_EQ(result.appcast.items.size(), 3U);
    EXPECT_EQ(result.appcast.items[0].version, "2");
    EXPECT_EQ(result.appcast.items[2].version, "1");
    EXPECT_EQ(result.appcast.items[2].length, 0) << "nothing is carried over from one item to the next";
}

TEST(Appcast, CarriesNothingOverFromAnItemThatIsLeftOut) {
    const QByteArray plain = "<item><sparkle:version>2</sparkle:version></item>";
    const QByteArray withoutVersion = R"(<item><sparkle:channel>beta</sparkle:channel><description>Notes</description>
        <enclosure url="https://a/b" length="12" sparkle:edSignature="AAEC"/></item>)";
    const AppcastItem item = onlyItem(withoutVersion + plain);
    EXPECT_EQ(item.version, "2");
    EXPECT_EQ(item.channel, "");
    EXPECT_EQ(item.releaseNotes, "");
    EXPECT_EQ(item.file, QUrl());
    EXPECT_EQ(item.length, 0);
    EXPECT_EQ(item.signature, QByteArray());
    const QByteArray foreign = R"(<item><sparkle:version>3</sparkle:version>
        <enclosure url="https://a/theirs" sparkle:os="windows"/></item>)";
    EXPECT_EQ(onlyItem(foreign + plain).version, "2");
}

TEST(Appcast, LeavesOutWhatIsForOtherSystemsOrHasNoVersion) {
    EXPECT_EQ(itemCount("<item><title>No version</title></item>"), 0U);
    const QByteArray version = "<item><sparkle:version>2</sparkle:version>";
    EXPECT_EQ(itemCount(version + R"(<enclosure url="https://a/b" sparkle:os="windows"/></item>)"), 0U);
    EXPECT_EQ(itemCount(version + R"(<enclosure url="https://a/b" sparkle:os="linux"/></item>)"), 1U);
    EXPECT_EQ(itemCount(version + "</item>"), 1U);
    const AppcastItem ours = onlyItem(version + R"(<enclosure url="https://a/ours" sparkle:os="linux-x64"/>
        <enclosure url="https://a/theirs" sparkle:os="macos"/></item>)");
    EXPECT_EQ(ours.file, QUrl("https://a/ours"));
}

TEST(Appcast, LeavesOutVersionsOfAnAbsurdLength) {
    const auto itemOf = [](qsizetype length) {
        return "<item><sparkle:version>" + QByteArray(length, '1') + "</sparkle:version></item>";
    };
    EXPECT_EQ(itemCount(itemOf(100)), 1U);
    EXPECT_EQ(itemCount(itemOf(101)), 0U);
    EXPECT_EQ(onlyItem("<item><sparkle:version>1</sparkle:version><sparkle:shortVersionString>" + QByteArray(101, 'x') +
                       "</sparkle:shortVersionString></item>")
                  .shortVersion.size(),
              100);
}

TEST(Appcast, PassesOverWhatItDoesNotKnow) {
    EXPECT_EQ(itemCount("<sparkle:version>9</sparkle:version>"), 0U) << "outside an item";
    EXPECT_EQ(itemCount("<item><x><sparkle:version>9</sparkle:version></x></item>"), 0U) << "too deep";
    EXPECT_EQ(itemCount("<item><version>9</version></item>"), 0U) << "another namespace";
    EXPECT_EQ(itemCount(R"(<item xmlns:sparkle="urn:other"><sparkle:version>9</sparkle:version></item>)"), 0U);
    EXPECT_EQ(
        onlyItem("<item><sparkle:version>9</sparkle:version><description>a<b>c</b>d</description></item>").releaseNotes,
        "acd");
}

TEST(Appcast, TakesPlainNotesAsPlain) {
    const AppcastItem item = onlyItem(R"(<item><sparkle:version>1</sparkle:version>
        <description sparkle:format="plain-text">a &lt; b</description></item>)");
    EXPECT_EQ(item.notesFormat, AppcastItem::NotesFormat::plainText);
    EXPECT_EQ(item.releaseNotes, "a < b");
}

TEST(Appcast, TakesWhatIsNoValueForNone) {
    for (const char *length : {"", "-1", "0", "12x", "99999999999999999999"}) {
        const QByteArray enclosure =
            QByteArray("<enclosure length='") + length + "' sparkle:edSignature='no Base64!'/>";
        const AppcastItem item = onlyItem("<item><sparkle:version>1</sparkle:version>" + enclosure + "</item>");
        EXPECT_EQ(item.length, 0) << length;
        EXPECT_TRUE(item.signature.isEmpty());
        EXPECT_TRUE(item.file.isEmpty());
    }
}

struct Refusal {
    const char *rule;
    QByteArray feed;
    const char *error; ///< A part of it.
};

TEST(Appcast, RefusesWhatIsNoFeed) {
    const QByteArray bomb = R"(<!DOCTYPE rss [<!ENTITY a "aaaaaaaaaa"><!ENTITY b "&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;">]>)"
                            "<rss>&b;</rss>";
    const QByteArray outside = R"(<!DOCTYPE rss [<!ENTITY f SYSTEM "file:///etc/passwd">]><rss>&f;</rss>)";
    const Refusal refusals[] = {
        {"nothing", "", "line 1"},
        {"no XML", "404 not found", "line 1"},
        {"another document", "<html><body/></html>", "this is no RSS"},
        {"a feed that ends early", feedOf(wholeItem).chopped(20), "line "},
        {"an element that is closed by another", "<rss><channel></rss>", "line 1"},
        {"a second root", "<rss/><rss/>", "line 1"},
        {"a prefix that stands for nothing", "<rss><channel><item><sparkle:version/></item></channel></rss>", "line 1"},
        {"an entity nobody defined", "<rss>&whatever;</rss>", "line 1"},
        {"a bomb of entities", bomb, "a document type is not allowed"},
        {"entities after a declaration", "<?xml version='1.0'?>\n<!-- > -->\n" + bomb,
         "a document type is not allowed"},
        {"entities from files", outside, "a document type is not allowed"},
        {"bytes that are no UTF-8", "<rss>\xff</rss>", "this is no UTF-8"},
        {"UTF-16", QByteArray("\xff\xfe<\0r\0s\0s\0", 10), "this is no UTF-8"},
        {"a comment without an end", "<!-- <rss/>", "line 1"},
        {"too many levels", QByteArray("<rss>").repeated(40) + QByteArray("</rss>").repeated(40), "nested too deeply"},
        {"too long", QByteArray("<rss/>") + QByteArray(longestAppcast, ' '), "longer than"},
    };
    for (const Refusal &refusal : refusals) {
        const AppcastResult result = parseAppcast(refusal.feed);
        EXPECT_FALSE(result.isValid()) << refusal.rule;
        EXPECT_TRUE(result.error.contains(refusal.error)) << refusal.rule << ": " << result.error.toStdString();
        EXPECT_TRUE(result.appcast.items.empty()) << refusal.rule;
    }
}

TEST(Appcast, ReadsTheLongestFeedThatItTakes) {
    const QByteArray feed = feedOf(wholeItem);
    const AppcastResult result = parseAppcast(feed + QByteArray(longestAppcast - feed.size(), ' '));
    EXPECT_TRUE(result.isValid()) << result.error.toStdString();
    EXPECT_EQ(result.appcast.items.size(), 1U);
}

} // namespace
} // namespace lexivore
