// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/theme/theme.h"
#include "ui/updates/release_notes.h"
#include "ui/updates/release_notes_view.h"

#include <QTest>
#include <QTextBlock>
#include <QTextList>

#include <gtest/gtest.h>

namespace lexivore {
namespace {

AppcastItem itemWith(const QString &notes, const QUrl &link = {}) {
    AppcastItem item;
    item.releaseNotes = notes;
    item.releaseNotesLink = link;
    return item;
}

std::string written(const AppcastItem &item) {
    QTextDocument document;
    writeReleaseNotes(document, item);
    return document.toPlainText().toStdString();
}

/// The formats of all stretches of text.
QList<QTextCharFormat> formatsOf(const QTextDocument &document) {
    QList<QTextCharFormat> formats;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto place = block.begin(); !place.atEnd(); ++place) {
            formats << place.fragment().charFormat();
        }
    }
    return formats;
}

TEST(ReleaseNotes, KeepTheWords) {
    EXPECT_EQ(written(itemWith("<h2>New</h2><p>One &amp; two</p><ul><li>three<li>four</ul>")),
              "New\nOne & two\nthree\nfour");
    EXPECT_EQ(written(itemWith("")), "");
    AppcastItem plain = itemWith("a <b> & c\n\nd");
    plain.notesFormat = AppcastItem::NotesFormat::plainText;
    EXPECT_EQ(written(plain), "a <b> & c\nd");
}

TEST(ReleaseNotes, RunAndLoadNothing) {
    const char *hostile[] = {
        "<script>alert(1)</script>",
        "<style>* { background: url(https://example.org/x) }</style>",
        "<img src='https://example.org/x.png'>",
        "<img src='file:///etc/passwd'><img src='data:image/png;base64,AAAA'>",
        "<link rel='stylesheet' href='https://example.org/x.css'/>",
        "<iframe src='https://example.org/'></iframe><object data='x'></object>",
    };
    for (const char *notes : hostile) {
        EXPECT_EQ(written(itemWith(QString("<p>before</p>") + notes + "<p>after</p>")), "before\nafter") << notes;
    }
}

TEST(ReleaseNotes, KeepWhatAWordIsAndNothingOfHowItLooks) {
    QTextDocument document;
    writeReleaseNotes(
        document,
        itemWith("<p style='color:white;background:white;font-size:900px;text-indent:9999px'>"
                 "plain <b>bold</b> <i>italic</i> <tt>code</tt></p><table bgcolor='red'><tr><td>cell</table>"));
    ASSERT_EQ(document.toPlainText(), "plain bold italic code\ncell");
    for (const QTextCharFormat &format : formatsOf(document)) {
        EXPECT_FALSE(format.hasProperty(QTextFormat::ForegroundBrush));
        EXPECT_FALSE(format.hasProperty(QTextFormat::BackgroundBrush));
        EXPECT_FALSE(format.hasProperty(QTextFormat::FontPointSize));
        EXPECT_FALSE(format.hasProperty(QTextFormat::FontPixelSize));
    }
    EXPECT_EQ(document.begin().blockFormat().textIndent(), 0);
    EXPECT_EQ(document.rootFrame()->childFrames().size(), 0);
    const QList<QTextCharFormat> formats = formatsOf(document);
    EXPECT_EQ(formats[1].fontWeight(), QFont::Bold);
    EXPECT_TRUE(formats[3].fontItalic());
    EXPECT_FALSE(formats[5].fontFamilies().toStringList().isEmpty());
}

TEST(ReleaseNotes, KeepHeadingsAndLists) {
    QTextDocument document;
    writeReleaseNotes(document, itemWith("<h1>Title</h1><ol><li>one<li>two</ol><p>between</p><ul><li>three</ul>"));
    EXPECT_GT(formatsOf(document).first().fontWeight(), QFont::Medium);
    QList<const QTextList *> lists;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        lists << block.textList();
    }
    ASSERT_EQ(lists.size(), 5);
    EXPECT_EQ(lists[0], nullptr);
    ASSERT_NE(lists[1], nullptr);
    EXPECT_EQ(lists[1], lists[2]);
    EXPECT_EQ(lists[1]->format().style(), QTextListFormat::ListDecimal);
    EXPECT_EQ(lists[3], nullptr);
    ASSERT_NE(lists[4], nullptr);
    EXPECT_EQ(lists[4]->format().style(), QTextListFormat::ListDisc);
}

TEST(ReleaseNotes, LinkOnlyToHttps) {
    QTextDocument document;
    writeReleaseNotes(document,
                      itemWith("<a href='https://example.org/a?b=c'>good</a> <a href='http://example.org'>plain</a> "
                               "<a href='file:///etc/passwd'>file</a> <a href='javascript:x()'>script</a> "
                               "<a href='relative'>relative</a> <a href='https:///nohost'>nowhere</a>"));
    QStringList addresses;
    for (const QTextCharFormat &format : formatsOf(document)) {
        EXPECT_EQ(format.fontUnderline(), format.isAnchor());
        if (format.isAnchor()) {
            addresses << format.anchorHref();
        }
    }
    EXPECT_EQ(addresses, QStringList("https://example.org/a?b=c"));
}

TEST(ReleaseNotes, EndWithALinkToMoreOfThem) {
    EXPECT_EQ(written(itemWith("Notes", QUrl("https://example.org/notes"))),
              "Notes\nRead the release notes on the web");
    EXPECT_EQ(written(itemWith("", QUrl("https://example.org/notes"))), "Read the release notes on the web");
    EXPECT_EQ(written(itemWith("", QUrl("http://example.org/notes"))), "");
}

TEST(ReleaseNotes, AreCutOffWhenTheyAreVeryLong) {
    EXPECT_LE(written(itemWith(QString("word ").repeated(1'000'000))).size(), 70'000U);
}

TEST(ReleaseNotesView, TellsWhichLinkWasChosenAndGoesNowhere) {
    ReleaseNotesView view(itemWith("<a href='https://example.org/a'>link</a>"));
    QList<QUrl> chosen;
    QObject::connect(&view, &ReleaseNotesView::linkChosen, [&](const QUrl &address) { chosen << address; });
    view.resize(300, 200);
    view.show();
    const QString before = view.toPlainText();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.cursorRect().center() + QPoint(4, 0));
    EXPECT_EQ(chosen, QList<QUrl>{QUrl("https://example.org/a")});
    EXPECT_EQ(view.toPlainText(), before);
}

TEST(ReleaseNotesView, IsAFrameWithRoundCorners) {
    ReleaseNotesView view(itemWith("notes"));
    view.resize(300, 200);
    view.setAttribute(Qt::WA_NoSystemBackground);
    QImage picture(view.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    view.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    EXPECT_EQ(picture.pixelColor(150, 0), theme().border);
    EXPECT_EQ(picture.pixelColor(299, 100), theme().border);
    EXPECT_EQ(picture.pixelColor(150, 150), theme().view);
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
}

TEST(ReleaseNotesView, FollowsTheColoursOfTheTheme) {
    ReleaseNotesView view(itemWith("<a href='https://example.org/a'>link</a>"));
    const QPalette before = QApplication::palette();
    QApplication::setPalette(paletteOf(darkTheme()));
    QCoreApplication::processEvents();
    EXPECT_EQ(formatsOf(*view.document()).first().foreground().color(), darkTheme().accentText);
    QApplication::setPalette(paletteOf(lightTheme()));
    QCoreApplication::processEvents();
    EXPECT_EQ(formatsOf(*view.document()).first().foreground().color(), lightTheme().accentText);
    QApplication::setPalette(before);
}

} // namespace
} // namespace lexivore
