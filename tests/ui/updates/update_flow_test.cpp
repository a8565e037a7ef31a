// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/services/updates/keys.h"
#include "tests/services/updates/loopback_server.h"
#include "tests/support/files.h"
#include "tests/ui/sheets/sheet_fixture.h"
#include "ui/sheets/alert_sheet.h"
#include "ui/updates/check_for_updates_menu_item.h"
#include "ui/updates/progress_sheet.h"
#include "ui/updates/update_flow.h"
#include "ui/updates/update_sheet.h"

#include <QMenu>
#include <QNetworkProxy>
#include <QProgressBar>
#include <QTemporaryDir>
#include <QTextBrowser>

namespace lexivore {
namespace {

using namespace std::chrono_literals;
using test::LoopbackServer;

constexpr int patience = 20'000; // milliseconds; only a broken program takes that long

/// The whole way from a server to what the user sees and does.
class UpdateFlowTest : public SheetTest {
protected:
    UpdateFlowTest() {
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
        offer("2.0");
        server.answers["/update.deb"] = {"200 OK", {}, file, {}};
    }

    void offer(const QByteArray &version, const QByteArray &more = {}) {
        server.answers["/feed"] = {
            "200 OK",
            {},
            "<rss "
            "xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel><item><sparkle:version>" +
                version +
                "</sparkle:version><description>&lt;p&gt;What is new &lt;a href='https://example.org/more'&gt;more"
                "&lt;/a&gt;&lt;/p&gt;</description>" +
                more + "<enclosure url='" + server.address("/update.deb").toEncoded() + "' length='" +
                QByteArray::number(file.size()) + "' sparkle:edSignature='" + signer.sign(file).toBase64() +
                "'/></item></channel></rss>",
            {}};
    }

    void begin() {
        Updater::Settings settings{.feed = hasFeed ? server.address("/feed") : QUrl(),
                                   .publicKey = signer.publicKey(),
                                   .currentVersion = "1.0",
                                   .systemVersion = "6.1",
                                   .channels = {},
                                   .folder = folder.filePath("updates"),
                                   .open = [this](const QUrl &address) {
                                       opened << address;
                                       return true;
                                   }};
        settings.firstLook = 1ms;
        updater = std::make_unique<Updater>(settings, preferences);
        flow = std::make_unique<UpdateFlow>(
            *updater, window, [this](const QUrl &address) { links << address; }, 150ms);
        item = std::make_unique<CheckForUpdatesMenuItem>(*updater);
    }

    void check() {
        begin();
        item->trigger();
    }

    template<typename SheetType> SheetType *waitFor() {
        const auto isThere = [this] { return window.findChild<SheetType *>() != nullptr; };
        EXPECT_TRUE(QTest::qWaitFor(isThere, patience));
        settle();
        return window.findChild<SheetType *>();
    }

    /// The title and the message of the alert.
    QStringList waitForAlert() {
        const QWidget *alert = waitFor<AlertSheet>();
        return alert != nullptr ? QStringList{alert->accessibleName(), alert->accessibleDescription()} : QStringList();
    }

    LoopbackServer server{LoopbackServer::Protocol::https};
    test::UpdateSigner signer;
    QByteArray file = QByteArray("the new version\n").repeated(100'000);
    QTemporaryDir folder;
    test::MemoryPreferences preferences;
    bool hasFeed = true;
    QList<QUrl> opened;
    QList<QUrl> links;
    std::unique_ptr<Updater> updater;
    std::unique_ptr<UpdateFlow> flow;
    std::unique_ptr<CheckForUpdatesMenuItem> item;
};

TEST_F(UpdateFlowTest, TheCommandHasItsTitleAndFollowsTheUpdater) {
    begin();
    EXPECT_EQ(item->text(), QString::fromUtf8("Check for Updates…"));
    EXPECT_TRUE(item->isEnabled());
    item->trigger();
    EXPECT_FALSE(item->isEnabled());
    waitFor<UpdateSheet>();
    EXPECT_FALSE(item->isEnabled());
    click(find("later"));
    EXPECT_TRUE(item->isEnabled());
}

TEST_F(UpdateFlowTest, ACheckShowsThatItRunsAndCanBeCancelled) {
    server.answers["/feed"].behaviour = LoopbackServer::Answer::Behaviour::silent;
    check();
    auto *sheet = waitFor<ProgressSheet>();
    EXPECT_EQ(labelsIn(*sheet), QStringList(QString::fromUtf8("Checking for Updates…")));
    EXPECT_EQ(sheet->accessibleName(), QString::fromUtf8("Checking for Updates…"));
    EXPECT_EQ(focusName(), "cancel");
    press(Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_TRUE(below->hasFocus());
}

TEST_F(UpdateFlowTest, AFoundUpdateIsShownWithItsVersionSizeAndNotes) {
    check();
    auto *sheet = waitFor<UpdateSheet>();
    EXPECT_EQ(sheet->accessibleName(), "Software Update");
    EXPECT_EQ(find<QLabel>("title")->text(), "Lexivore 2.0 is available");
    EXPECT_EQ(find<QLabel>("details")->text(), "You have version 1.0. The download is 1.6 MB large.");
    EXPECT_EQ(find<QTextBrowser>("releaseNotes")->toPlainText(), "What is new more");
    EXPECT_EQ(find("install")->text(), "Install Update");
    EXPECT_EQ(find("later")->text(), "Remind Me Later");
    EXPECT_EQ(find("skip")->text(), "Skip This Version");
    EXPECT_EQ(focusName(), "install");
    EXPECT_EQ(sheet->size(), sheet->sizeWithin(window.size()));
    for (const char *name : {"install", "later", "skip"}) {
        const PushButton *button = find(name);
        EXPECT_TRUE(sheet->rect().contains(QRect(button->mapTo(sheet, QPoint()), button->size()))) << name;
    }
}

TEST_F(UpdateFlowTest, AnUpdateWithoutNotesSaysSo) {
    QByteArray &feed = server.answers["/feed"].body;
    const qsizetype notes = feed.indexOf("<description>");
    feed.remove(notes, feed.indexOf("<enclosure") - notes);
    check();
    auto *sheet = waitFor<UpdateSheet>();
    EXPECT_EQ(labelsIn(*sheet).last(), "There are no release notes.");
    EXPECT_EQ(find<QTextBrowser>("releaseNotes"), nullptr);
    EXPECT_EQ(focusName(), "install");
}

TEST_F(UpdateFlowTest, TheKeyboardReachesEverythingInTheSheet) {
    check();
    waitFor<UpdateSheet>();
    QStringList reached;
    for (int i = 0; i < 5; ++i) {
        reached << focusName();
        press(Qt::Key_Tab);
    }
    // The notes twice: themselves, for scrolling, and the link in them.
    EXPECT_EQ(reached.join(' ').toStdString(), "install releaseNotes releaseNotes skip later");
    EXPECT_EQ(focusName(), "install");
}

TEST_F(UpdateFlowTest, InstallingDownloadsVerifiesAndHandsOver) {
    check();
    waitFor<UpdateSheet>();
    press(Qt::Key_Return);
    EXPECT_EQ(waitForAlert(),
              (QStringList{"Update Ready", "Lexivore 2.0 was verified and given to your desktop to install."}));
    ASSERT_EQ(opened.size(), 1);
    EXPECT_EQ(test::bytesOf(opened.first().toLocalFile()), file);
    press(Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(item->isEnabled());
    EXPECT_TRUE(below->hasFocus());
}

TEST_F(UpdateFlowTest, ReturnInTheNotesInstallsToo) {
    check();
    waitFor<UpdateSheet>();
    press(Qt::Key_Tab);
    EXPECT_EQ(focusName(), "releaseNotes");
    press(Qt::Key_Return);
    EXPECT_EQ(waitForAlert().value(0), "Update Ready");
}

TEST_F(UpdateFlowTest, ADownloadShowsHowFarItIsAndCanBeCancelled) {
    server.answers["/update.deb"].behaviour = LoopbackServer::Answer::Behaviour::stalling;
    check();
    waitFor<UpdateSheet>();
    click(find("install"));
    auto *sheet = waitFor<ProgressSheet>();
    auto *bar = find<QProgressBar>("progress");
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar->value() == 50; }, patience));
    EXPECT_EQ(labelsIn(*sheet), (QStringList{"Downloading Lexivore 2.0", "800.0 kB of 1.6 MB"}));
    EXPECT_EQ(bar->accessibleName(), "Downloading Lexivore 2.0");
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_TRUE(opened.isEmpty());
    EXPECT_TRUE(QDir(folder.filePath("updates")).isEmpty(QDir::Files | QDir::Hidden));
}

TEST_F(UpdateFlowTest, LaterAndEscapeMeanLater) {
    for (const bool byKey : {true, false}) {
        check();
        waitFor<UpdateSheet>();
        if (byKey) {
            press(Qt::Key_Escape);
        } else {
            click(find("later"));
        }
        EXPECT_FALSE(isOpen());
        EXPECT_TRUE(updater->canCheckForUpdates());
        EXPECT_FALSE(preferences.contains(preference::skippedUpdateVersion));
    }
}

TEST_F(UpdateFlowTest, SkippingIsRemembered) {
    check();
    waitFor<UpdateSheet>();
    click(find("skip"));
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(preferences.value(preference::skippedUpdateVersion), QVariant("2.0"));
}

TEST_F(UpdateFlowTest, LinksInTheNotesAreGivenAway) {
    check();
    auto *sheet = waitFor<UpdateSheet>();
    emit find<QTextBrowser>("releaseNotes")->anchorClicked(QUrl("https://example.org/more"));
    EXPECT_EQ(links, QList<QUrl>{QUrl("https://example.org/more")});
    EXPECT_TRUE(sheet->isVisible());
}

TEST_F(UpdateFlowTest, ACheckByHandAlwaysAnswers) {
    offer("1.0");
    check();
    EXPECT_EQ(waitForAlert(), (QStringList{"No Update", "Lexivore 1.0 is the newest version."}));
    press(Qt::Key_Return);
    offer("0.9");
    check();
    EXPECT_EQ(waitForAlert(),
              (QStringList{"No Update", "You have Lexivore 1.0. The newest version on offer is older: 0.9."}));
    press(Qt::Key_Return);
    offer("2.0", "<sparkle:minimumSystemVersion>99.1</sparkle:minimumSystemVersion>");
    check();
    EXPECT_EQ(waitForAlert(), (QStringList{"No Update", "Lexivore 2.0 needs a newer system: version 99.1 or later."}));
    press(Qt::Key_Return);
    hasFeed = false;
    check();
    EXPECT_EQ(waitForAlert(),
              (QStringList{"No Update", "Updates of Lexivore come from your system's package manager."}));
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_F(UpdateFlowTest, AFailureIsOneMessage) {
    server.answers["/update.deb"].body.replace(5, 1, "!");
    check();
    waitFor<UpdateSheet>();
    click(find("install"));
    EXPECT_EQ(waitForAlert(),
              (QStringList{"Update Error",
                           "The downloaded update has a wrong signature, so it cannot be trusted. It was deleted."}));
    EXPECT_EQ(window.findChildren<Sheet *>().size(), 1);
    EXPECT_EQ(focusName(), "confirm");
    press(Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(item->isEnabled());
}

TEST_F(UpdateFlowTest, WhatNobodyAskedForWaitsUntilNobodyTypes) {
    begin();
    updater->start();
    for (int i = 0; i < 20; ++i) {
        QTest::keyClick(below, Qt::Key_A);
        QTest::qWait(20);
    }
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(below->text(), QString(20, 'a'));
    waitFor<UpdateSheet>();
    EXPECT_EQ(focusName(), "later") << "a key that was meant for the text installs nothing";
    find<QTextBrowser>("releaseNotes")->setFocus();
    press(Qt::Key_Return);
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(opened.isEmpty());
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_F(UpdateFlowTest, WhatNobodyAskedForWaitsForTheMouse) {
    begin();
    updater->start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !updater->canCheckForUpdates(); }, patience));
    for (int i = 0; i < 20; ++i) {
        QTest::mouseClick(below, Qt::LeftButton);
        QTest::qWait(20);
    }
    EXPECT_FALSE(isOpen());
    EXPECT_NE(waitFor<UpdateSheet>(), nullptr);
}

TEST_F(UpdateFlowTest, WhatNobodyAskedForWaitsForAnOpenMenu) {
    QMenu menu(&window);
    menu.addAction("Choosing");
    menu.popup(window.mapToGlobal(QPoint(10, 10)));
    ASSERT_EQ(QApplication::activePopupWidget(), &menu);
    begin();
    updater->start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !updater->canCheckForUpdates(); }, patience));
    EXPECT_FALSE(QTest::qWaitFor([this] { return isOpen(); }, 500));
    menu.close();
    EXPECT_NE(waitFor<UpdateSheet>(), nullptr);
}

TEST_F(UpdateFlowTest, WhatNobodyAskedForWaitsForTheWindowAndForOtherSheets) {
    window.hide();
    begin();
    updater->start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !updater->canCheckForUpdates(); }, patience));
    EXPECT_FALSE(QTest::qWaitFor([this] { return window.findChild<UpdateSheet *>() != nullptr; }, 500));
    window.show();
    auto *other = show(new AlertSheet({.title = "Other", .message = "First", .confirmation = "OK"}, {}));
    EXPECT_FALSE(QTest::qWaitFor([this] { return window.findChild<UpdateSheet *>() != nullptr; }, 500));
    other->confirm();
    EXPECT_NE(waitFor<UpdateSheet>(), nullptr);
}

TEST_F(UpdateFlowTest, AScheduledCheckWithoutAFindShowsNothing) {
    server.answers["/feed"].body = "no feed";
    begin();
    updater->start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !server.requests.isEmpty(); }, patience));
    ASSERT_TRUE(QTest::qWaitFor([this] { return updater->canCheckForUpdates(); }, patience));
    EXPECT_FALSE(QTest::qWaitFor([this] { return isOpen(); }, 300));
}

} // namespace
} // namespace lexivore
