// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/update_download.h"
#include "tests/services/updates/updater_fixture.h"

namespace lexivore {
namespace {

using namespace std::chrono_literals;
using test::LoopbackServer;
using Behaviour = LoopbackServer::Answer::Behaviour;
using Kind = UpdateError::Kind;

/// What the server sends instead of what it should, and the error that comes of it.
struct BadAnswer {
    const char *rule;
    QByteArray body;
    Kind kind;
    Behaviour behaviour = Behaviour::plain;
};

// Attacks and accidents: the feed

TEST_F(UpdaterTest, RefusesABadFeed) {
    const QByteArray good = feed();
    const QByteArray bomb = "<!DOCTYPE rss [<!ENTITY a 'aaaa'><!ENTITY b '&a;&a;&a;'>]><rss>&b;</rss>";
    const BadAnswer feeds[] = {
        {"malformed", good.chopped(10), Kind::damagedFeed},
        {"no feed", "<html/>", Kind::damagedFeed},
        {"empty", "", Kind::damagedFeed},
        {"with entities", bomb, Kind::damagedFeed},
        {"oversized", good + QByteArray(longestAppcast, ' '), Kind::tooLong},
        {"endless", QByteArray(1 << 16, ' '), Kind::tooLong, Behaviour::endless},
        {"truncated", good, Kind::unreachable, Behaviour::truncated},
        {"silent", good, Kind::silentServer, Behaviour::silent},
        {"stalling", good, Kind::silentServer, Behaviour::stalling},
        {"without a signature", feed({.signature = ""}), Kind::noSignature},
        {"with half a signature", feed({.signature = signer.sign(file).first(32)}), Kind::noSignature},
        {"without a length", feed({.length = 0}), Kind::noLength},
        {"with a huge file", feed({.length = largestUpdate + 1}), Kind::noLength},
        {"with a file that is not secure", feed({.address = "http://127.0.0.1/x.deb"}), Kind::insecureAddress},
        {"with a file on this computer", feed({.address = "file:///etc/passwd"}), Kind::insecureAddress},
        {"without a file", feed({.address = ""}), Kind::insecureAddress},
    };
    settings.silence = 300ms;
    for (const BadAnswer &each : feeds) {
        SCOPED_TRACE(each.rule);
        said.clear();
        serve("/feed", each.body, each.behaviour);
        updater().checkForUpdates();
        expectFailure(each.kind);
    }
}

TEST_F(UpdaterTest, DoesNotWaitForEverForAFeedThatComesDropByDrop) {
    serve("/feed", feed(), Behaviour::dripping);
    settings.longestCheck = 500ms;
    updater().checkForUpdates();
    expectFailure(Kind::silentServer);
}

TEST_F(UpdaterTest, RefusesAnErrorOfTheServer) {
    const QByteArray longPage = feed() + QByteArray(longestAppcast, ' ');
    for (const QByteArray status :
         {"400 Bad Request", "404 Not Found", "500 Oops", "204 No Content", "206 Partial Content"}) {
        SCOPED_TRACE(status.toStdString());
        said.clear();
        server.answers["/feed"] = {status, {}, longPage, {}};
        updater().checkForUpdates();
        expectFailure(Kind::serverError);
        EXPECT_EQ(error.detail, QString::fromLatin1(status.left(3)));
    }
}

TEST_F(UpdaterTest, RefusesAFeedThatIsNotSecure) {
    LoopbackServer plain(LoopbackServer::Protocol::http);
    plain.answers["/feed"] = {"200 OK", {}, feed(), {}};
    settings.feed = plain.address("/feed");
    updater().checkForUpdates();
    expectFailure(Kind::insecureAddress);
    EXPECT_TRUE(plain.requests.isEmpty());
}

TEST_F(UpdaterTest, RefusesARedirectOfTheFeedToPlainHttp) {
    LoopbackServer plain(LoopbackServer::Protocol::http);
    plain.answers["/feed"] = {"200 OK", {}, feed(), {}};
    server.answers["/feed"] = {"301 Moved", "Location: " + plain.address("/feed").toEncoded() + "\r\n", {}, {}};
    updater().checkForUpdates();
    expectFailure(Kind::insecureRedirect);
    EXPECT_TRUE(plain.requests.isEmpty());
}

TEST_F(UpdaterTest, RefusesToBeLedInACircle) {
    server.answers["/feed"] = {"302 Found", "Location: /feed\r\n", {}, {}};
    updater().checkForUpdates();
    expectFailure(Kind::unreachable);
    EXPECT_EQ(server.requests.size(), 6); // the first, and five redirects
}

TEST_F(UpdaterTest, RefusesAServerThatItDoesNotKnow) {
    LoopbackServer::trustNobody();
    updater().checkForUpdates();
    expectFailure(Kind::untrustedServer);
    EXPECT_TRUE(server.requests.isEmpty());
}

TEST_F(UpdaterTest, RefusesAServerWithTheNameOfAnother) {
    const LoopbackServer other(LoopbackServer::Protocol::https, QHostAddress("127.0.0.2"));
    settings.feed = other.address("/feed");
    updater().checkForUpdates();
    expectFailure(Kind::untrustedServer);
}

TEST_F(UpdaterTest, SaysThatAServerIsDead) {
    {
        LoopbackServer gone(LoopbackServer::Protocol::http);
        settings.feed = gone.address("/feed");
        settings.feed.setScheme("https");
    }
    updater().checkForUpdates();
    expectFailure(Kind::unreachable);
}

TEST_F(UpdaterTest, SaysThatAServerDoesNotEvenShakeHands) {
    QTcpServer mute;
    ASSERT_TRUE(mute.listen(QHostAddress::LocalHost));
    settings.feed = QUrl("https://127.0.0.1:" + QString::number(mute.serverPort()));
    settings.silence = 300ms;
    updater().checkForUpdates();
    expectFailure(Kind::silentServer);
}

TEST_F(UpdaterTest, RefusesToWorkWithoutAKey) {
    settings.publicKey = "short";
    updater().checkForUpdates();
    expectFailure(Kind::unusableKey);
    EXPECT_FALSE(QTest::qWaitFor([this] { return !server.requests.isEmpty(); }, 200)) << "nor does it ask all the same";
}

// Attacks and accidents: the file

TEST_F(UpdaterTest, RefusesABadFile) {
    QByteArray changed = file;
    changed[file.size() / 2] = '!';
    const BadAnswer files[] = {
        {"one byte is another", changed, Kind::wrongSignature},
        {"one byte is missing", file.chopped(1), Kind::wrongLength},
        {"one byte too many", file + '\n', Kind::tooLong},
        {"empty", "", Kind::wrongLength},
        {"cut off", file, Kind::unreachable, Behaviour::truncated},
        {"cut off without a word", file.chopped(5), Kind::wrongLength, Behaviour::withoutLength},
        {"endless", file, Kind::tooLong, Behaviour::endless},
        {"silent", file, Kind::silentServer, Behaviour::silent},
        {"stalling", file, Kind::silentServer, Behaviour::stalling},
    };
    settings.silence = 300ms;
    for (const BadAnswer &each : files) {
        SCOPED_TRACE(each.rule);
        said.clear();
        serve("/lexivore-2.0.deb", each.body, each.behaviour);
        checkAndInstall();
        expectFailure(each.kind);
    }
}

TEST_F(UpdaterTest, RefusesTheSignatureOfAnother) {
    serve("/feed", feed({.signature = test::UpdateSigner().sign(file)}));
    checkAndInstall();
    expectFailure(Kind::wrongSignature);
}

TEST_F(UpdaterTest, RefusesTheSignatureOfAnotherFile) {
    serve("/feed", feed({.signature = signer.sign("another file")}));
    checkAndInstall();
    expectFailure(Kind::wrongSignature);
}

TEST_F(UpdaterTest, RefusesWhatIsRightUnderAnotherKey) {
    settings.publicKey = test::UpdateSigner().publicKey();
    checkAndInstall();
    expectFailure(Kind::wrongSignature);
}

TEST_F(UpdaterTest, RefusesARedirectOfTheFileToPlainHttp) {
    LoopbackServer plain(LoopbackServer::Protocol::http);
    plain.answers["/x"] = {"200 OK", {}, file, {}};
    server.answers["/lexivore-2.0.deb"] = {
        "302 Found", "Location: " + plain.address("/x").toEncoded() + "\r\n", {}, {}};
    checkAndInstall();
    expectFailure(Kind::insecureRedirect);
    EXPECT_TRUE(plain.requests.isEmpty());
}

TEST_F(UpdaterTest, SaysThatThereIsNoPlaceForTheFile) {
    test::writeBytes(folder.filePath("updates"), "a file where the folder should be");
    checkAndInstall();
    expectFailure(Kind::cannotSave);
}

TEST_F(UpdaterTest, SaysWhyTheVerifiedFileCannotHaveItsName) {
    ASSERT_TRUE(QDir().mkpath(settings.folder + "/lexivore-2.0.deb/taken"));
    checkAndInstall();
    expectFailure(Kind::cannotSave);
    EXPECT_EQ(error.detail, "File exists");
}

TEST_F(UpdaterTest, SaysThatTheDiskIsFull) {
    const int result = test::inChild([this] {
        test::limitFileSize(1000);
        checkAndInstall();
        expectFailure(Kind::cannotSave);
        EXPECT_EQ(error.detail, "File too large");
        return HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(result, 0);
}

TEST_F(UpdaterTest, RemovesTheFileWhenTheDesktopDoesNotOpenIt) {
    desktopOpens = false;
    checkAndInstall();
    ASSERT_TRUE(hears("failed"));
    EXPECT_EQ(said.last(), "failed");
    EXPECT_EQ(error.kind, Kind::cannotOpen);
    EXPECT_EQ(openedBytes, file) << "it was verified before";
    EXPECT_EQ(filesLeft(), QStringList());
}

} // namespace
} // namespace lexivore
