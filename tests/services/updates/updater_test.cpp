// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/preferences.h"
#include "services/bundle_information.h"
#include "services/updates/check_for_updates_view_model.h"
#include "services/updates/standard_updater_controller.h"
#include "services/updates/update_download.h"
#include "services/updates/updater.h"
#include "tests/services/updates/keys.h"
#include "tests/services/updates/loopback_server.h"
#include "tests/support/files.h"
#include "tests/support/memory_preferences.h"

#include <QDir>
#include <QNetworkProxy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace lexivore {
namespace {

using namespace std::chrono_literals;
using test::LoopbackServer;
using Behaviour = LoopbackServer::Answer::Behaviour;
using Kind = UpdateError::Kind;

constexpr int patience = 20'000; // milliseconds; only a broken updater takes that long

/// A server that offers an update, and an updater that says what happens.
class UpdaterTest : public testing::Test {
protected:
    UpdaterTest() {
        serve("/feed", feed());
        serve("/lexivore-2.0.deb", file);
    }

    /// Makes the updater; before that a test changes what it wants.
    Updater &updater() {
        if (m_updater) {
            return *m_updater;
        }
        settings.open = [this](const QUrl &address) {
            openedBytes = test::bytesOf(address.toLocalFile());
            opened << address.toLocalFile();
            return desktopOpens;
        };
        m_updater = std::make_unique<Updater>(settings, preferences);
        Updater *made = m_updater.get();
        QObject::connect(made, &Updater::canCheckForUpdatesChanged, [this](bool can) { say(can ? "can" : "cannot"); });
        QObject::connect(made, &Updater::checkStarted, [this] { say("checking"); });
        QObject::connect(made, &Updater::noFeed, [this] { say("no feed"); });
        QObject::connect(made, &Updater::noUpdateFound, [this](const UpdateChoice &choice) {
            verdict = choice.verdict;
            say("none " + choice.item.version);
        });
        QObject::connect(made, &Updater::updateFound, [this](const AppcastItem &item, Updater::Origin origin) {
            found = item;
            say((origin == Updater::Origin::byHand ? "found " : "found unasked ") + item.version);
        });
        QObject::connect(made, &Updater::downloadStarted, [this] { say("downloading"); });
        QObject::connect(made, &Updater::downloadProgressed, [this](qint64 bytes) { progress << bytes; });
        QObject::connect(made, &Updater::handedOver,
                         [this](const AppcastItem &item) { say("handed " + item.version); });
        QObject::connect(made, &Updater::failed, [this](const UpdateError &failure) {
            error = failure;
            say("failed");
        });
        return *m_updater;
    }

    void say(const QString &what) { said << what; }
    bool hears(const QString &what) {
        return QTest::qWaitFor([&] { return said.contains(what); }, patience);
    }

    void serve(const QString &path, const QByteArray &body, Behaviour behaviour = Behaviour::plain) {
        server.answers[path] = {"200 OK", {}, body, behaviour};
    }

    /// A feed with one item. What is not given is right.
    struct Item {
        QByteArray version = "2.0";
        std::optional<QByteArray> signature = {};
        std::optional<qsizetype> length = {};
        std::optional<QByteArray> address = {};
        QByteArray more = {};
    };
    QByteArray feed() { return feed({}); }
    QByteArray feed(const Item &item) {
        const QByteArray signature = item.signature.value_or(signer.sign(file)).toBase64();
        return "<rss version='2.0' xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel><item>"
               "<sparkle:version>" +
               item.version + "</sparkle:version>" + item.more + "<enclosure url='" +
               item.address.value_or(server.address("/lexivore-2.0.deb").toEncoded()) + "' length='" +
               QByteArray::number(item.length.value_or(file.size())) + "' sparkle:edSignature='" + signature +
               "'/></item></channel></rss>";
    }

    /// Checks by hand and installs what is found.
    void checkAndInstall() {
        updater().checkForUpdates();
        ASSERT_TRUE(hears("found 2.0")) << said.join(", ").toStdString();
        updater().install();
    }

    [[nodiscard]] QStringList filesLeft() const {
        return QDir(settings.folder).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    /// The check or the installation ends in this one error: with one message, nothing opened, and nothing on the disk.
    void expectFailure(Kind kind) {
        ASSERT_TRUE(hears("failed")) << said.join(", ").toStdString();
        EXPECT_EQ(error.kind, kind) << error.message().toStdString();
        EXPECT_FALSE(error.message().isEmpty());
        EXPECT_FALSE(error.message().contains('%'));
        EXPECT_EQ(said.count("failed"), 1);
        EXPECT_TRUE(updater().canCheckForUpdates());
        EXPECT_EQ(said.last(), "failed");
        EXPECT_TRUE(opened.isEmpty());
        EXPECT_EQ(filesLeft(), QStringList());
        EXPECT_FALSE(preferences.contains(preference::skippedUpdateVersion));
    }

    test::UpdateSigner signer;
    LoopbackServer server{LoopbackServer::Protocol::https};
    QByteArray file = QByteArray("the new version\n").repeated(20'000);
    QTemporaryDir folder;
    test::MemoryPreferences preferences;
    Updater::Settings settings{.feed = server.address("/feed"),
                               .publicKey = signer.publicKey(),
                               .currentVersion = "1.0",
                               .systemVersion = "6.1",
                               .channels = {},
                               .folder = folder.filePath("updates"),
                               .open = {}};

    QStringList said;
    UpdateChoice::Verdict verdict{};
    UpdateError error;
    AppcastItem found;
    QStringList opened;
    QByteArray openedBytes;
    QList<qint64> progress;
    bool desktopOpens = true;

private:
    std::unique_ptr<Updater> m_updater;
};

// What works

TEST_F(UpdaterTest, FindsDownloadsVerifiesAndHandsOverAnUpdate) {
    EXPECT_TRUE(updater().canCheckForUpdates());
    checkAndInstall();
    ASSERT_TRUE(hears("handed 2.0")) << error.message().toStdString();
    EXPECT_EQ(said, (QStringList{"cannot", "checking", "found 2.0", "downloading", "can", "handed 2.0"}));
    EXPECT_EQ(opened, QStringList(settings.folder + "/lexivore-2.0.deb"));
    EXPECT_EQ(openedBytes, file);
    EXPECT_EQ(progress.last(), file.size());
    EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
}

TEST_F(UpdaterTest, KeepsTheFileForTheUserAlone) {
    checkAndInstall();
    ASSERT_TRUE(hears("handed 2.0"));
    const auto others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    EXPECT_FALSE(QFile::permissions(opened.first()) & others);
    EXPECT_FALSE(QFile::permissions(opened.first()) & QFile::ExeOwner);
    EXPECT_FALSE(QFile::permissions(settings.folder) & others);
    EXPECT_EQ(filesLeft(), QStringList("lexivore-2.0.deb"));
}

TEST_F(UpdaterTest, TellsTheServerNothingAboutTheUser) {
    checkAndInstall();
    ASSERT_TRUE(hears("handed 2.0"));
    ASSERT_EQ(server.requests.size(), 2);
    for (const QByteArray &request : server.requests) {
        QByteArrayList names;
        for (const QByteArray &line : request.split('\n').mid(1)) {
            names << line.left(line.indexOf(':')).trimmed();
        }
        names.removeAll("");
        std::sort(names.begin(), names.end());
        EXPECT_EQ(names.join(' '), "Accept-Encoding Accept-Language Cache-Control Connection Host Pragma User-Agent");
        EXPECT_TRUE(request.contains("User-Agent: Lexivore/")) << request.toStdString();
        EXPECT_TRUE(request.contains("Accept-Language: *\r\n"));
    }
}

TEST_F(UpdaterTest, FollowsASecureRedirect) {
    server.answers["/moved"] = {"302 Found", "Location: " + server.address("/feed").toEncoded() + "\r\n", {}, {}};
    settings.feed = server.address("/moved");
    checkAndInstall();
    EXPECT_TRUE(hears("handed 2.0"));
}

TEST_F(UpdaterTest, TakesAFileOfUnknownLengthWhenItHasTheRightOne) {
    serve("/lexivore-2.0.deb", file, Behaviour::withoutLength);
    checkAndInstall();
    EXPECT_TRUE(hears("handed 2.0"));
}

TEST_F(UpdaterTest, GivesTheFileAHarmlessName) {
    const std::pair<const char *, const char *> names[] = {
        {"/a/..%2f..%2fevil%20name.deb", "evil_name.deb"},
        {"/.hidden", "lexivore-.hidden"},
        {"/", "lexivore-"},
        {"/x.part", "lexivore-x.part"},
    };
    for (const auto &[path, name] : names) {
        said.clear();
        opened.clear();
        serve(path, file);
        serve(QUrl(path).path(QUrl::FullyEncoded), file);
        serve("/feed", feed({.address = server.address({}).toEncoded() + path}));
        checkAndInstall();
        ASSERT_TRUE(hears("handed 2.0")) << path << error.message().toStdString();
        EXPECT_EQ(opened.first().toStdString(), (settings.folder + '/' + name).toStdString());
    }
}

TEST_F(UpdaterTest, ReplacesAnEarlierDownload) {
    for (int i = 0; i < 2; ++i) {
        said.clear();
        checkAndInstall();
        ASSERT_TRUE(hears("handed 2.0"));
    }
    EXPECT_EQ(opened.size(), 2);
    EXPECT_EQ(filesLeft(), QStringList("lexivore-2.0.deb"));
}

// Checks by hand always answer

TEST_F(UpdaterTest, SaysThatThereIsNoFeedAndAsksNobody) {
    settings.feed.clear();
    updater().start();
    updater().checkForUpdates();
    EXPECT_EQ(said, QStringList("no feed"));
    EXPECT_TRUE(updater().canCheckForUpdates());
    EXPECT_EQ(preferences.writeCount(), 0);
    EXPECT_FALSE(QDir(settings.folder).exists());
}

TEST_F(UpdaterTest, SaysThatThereIsNothingNewer) {
    serve("/feed", feed({.version = "1.0.0"}));
    updater().checkForUpdates();
    ASSERT_TRUE(hears("none 1.0.0"));
    EXPECT_EQ(verdict, UpdateChoice::Verdict::upToDate);
    EXPECT_EQ(said, (QStringList{"cannot", "checking", "can", "none 1.0.0"}));
}

TEST_F(UpdaterTest, NeverOffersADowngrade) {
    serve("/feed", feed({.version = "0.9"}));
    updater().checkForUpdates();
    ASSERT_TRUE(hears("none 0.9"));
    EXPECT_EQ(verdict, UpdateChoice::Verdict::downgrade);
    updater().install();
    EXPECT_EQ(said.last(), "none 0.9");
    EXPECT_EQ(filesLeft(), QStringList());
}

TEST_F(UpdaterTest, SaysThatTheUpdateNeedsANewerSystem) {
    serve("/feed", feed({.more = "<sparkle:minimumSystemVersion>99</sparkle:minimumSystemVersion>"}));
    updater().checkForUpdates();
    ASSERT_TRUE(hears("none 2.0"));
    EXPECT_EQ(verdict, UpdateChoice::Verdict::needsSystem);
}

TEST_F(UpdaterTest, ASecondCheckWhileOneIsRunningDoesNothing) {
    updater().checkForUpdates();
    updater().checkForUpdates();
    ASSERT_TRUE(hears("found 2.0"));
    updater().checkForUpdates();
    EXPECT_EQ(said, (QStringList{"cannot", "checking", "found 2.0"}));
    EXPECT_EQ(server.requests.size(), 1);
}

// What the user answers

TEST_F(UpdaterTest, SkipsAVersionUntilItIsAskedByHand) {
    updater().checkForUpdates();
    ASSERT_TRUE(hears("found 2.0"));
    updater().skipVersion();
    EXPECT_TRUE(updater().canCheckForUpdates());
    EXPECT_EQ(preferences.value(preference::skippedUpdateVersion), QVariant("2.0"));
    said.clear();
    updater().checkForUpdates();
    EXPECT_TRUE(hears("found 2.0"));
}

TEST_F(UpdaterTest, RemindsLaterWithoutAnyMemory) {
    updater().checkForUpdates();
    ASSERT_TRUE(hears("found 2.0"));
    updater().remindLater();
    EXPECT_TRUE(updater().canCheckForUpdates());
    EXPECT_FALSE(preferences.contains(preference::skippedUpdateVersion));
    updater().install();
    updater().skipVersion();
    EXPECT_EQ(said.last(), "can") << "the answer was given";
    EXPECT_FALSE(preferences.contains(preference::skippedUpdateVersion));
}

TEST_F(UpdaterTest, CancelsACheck) {
    serve("/feed", {}, Behaviour::silent);
    updater().checkForUpdates();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !server.requests.isEmpty(); }, patience));
    updater().cancel();
    EXPECT_EQ(said, (QStringList{"cannot", "checking", "can"}));
    serve("/feed", feed());
    updater().checkForUpdates();
    EXPECT_TRUE(hears("found 2.0"));
}

TEST_F(UpdaterTest, CancelsADownloadAndLeavesNothing) {
    serve("/lexivore-2.0.deb", file, Behaviour::stalling);
    checkAndInstall();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !progress.isEmpty(); }, patience));
    updater().cancel();
    EXPECT_TRUE(updater().canCheckForUpdates());
    EXPECT_EQ(filesLeft(), QStringList());
    QTest::qWait(0);
    EXPECT_FALSE(said.contains("failed"));
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(UpdaterTest, ADownloadThatTheProgramsEndInterruptsLeavesNothing) {
    serve("/lexivore-2.0.deb", file, Behaviour::stalling);
    {
        QObject context;
        Updater::Settings own = settings;
        own.open = [](const QUrl &) { return true; };
        Updater ending(own, preferences);
        bool hasBegun = false;
        QObject::connect(&ending, &Updater::updateFound, &context, [&ending] { ending.install(); });
        QObject::connect(&ending, &Updater::downloadProgressed, &context, [&hasBegun] { hasBegun = true; });
        ending.checkForUpdates();
        ASSERT_TRUE(QTest::qWaitFor([&] { return hasBegun; }, patience));
    }
    EXPECT_EQ(filesLeft(), QStringList());
}

// Scheduled checks

class ScheduledTest : public UpdaterTest {
protected:
    ScheduledTest() {
        settings.firstLook = 1ms;
        settings.laterLooks = 1ms;
        settings.now = [this] { return now; };
    }
    void setLastCheck(qint64 secondsAgo) {
        preferences.setValue(preference::lastUpdateCheck, now.toSecsSinceEpoch() - secondsAgo);
    }
    /// Long enough for many looks.
    [[nodiscard]] bool staysQuiet() const {
        return !QTest::qWaitFor([this] { return !said.isEmpty() || !server.requests.isEmpty(); }, 200);
    }

    QDateTime now = QDateTime::fromSecsSinceEpoch(1'800'000'000);
};

TEST_F(ScheduledTest, ChecksUnaskedAndRemembersWhen) {
    updater().start();
    ASSERT_TRUE(hears("found unasked 2.0"));
    EXPECT_EQ(said, (QStringList{"cannot", "found unasked 2.0"}));
    EXPECT_EQ(preferences.value(preference::lastUpdateCheck).toLongLong(), now.toSecsSinceEpoch());
}

TEST_F(ScheduledTest, WaitsForADayToPass) {
    setLastCheck(24 * 60 * 60 - 1);
    updater().start();
    EXPECT_TRUE(staysQuiet());
    now = now.addSecs(1);
    EXPECT_TRUE(hears("found unasked 2.0"));
    updater().remindLater();
    said.clear();
    EXPECT_FALSE(QTest::qWaitFor([this] { return !said.isEmpty(); }, 200)) << "once a day is enough";
}

TEST_F(ScheduledTest, AClockThatWasSetBackIsNoReasonToWaitForYears) {
    setLastCheck(-365 * 24 * 60 * 60);
    updater().start();
    EXPECT_TRUE(hears("found unasked 2.0"));
    EXPECT_EQ(preferences.value(preference::lastUpdateCheck).toLongLong(), now.toSecsSinceEpoch());
}

TEST_F(ScheduledTest, TakesAStoredTimeThatIsNoneForNone) {
    for (const QVariant &value : {QVariant("yesterday"), QVariant(1e300), QVariant(-5), QVariant(QVariantList())}) {
        preferences.setValue(preference::lastUpdateCheck, value);
        updater().start();
        ASSERT_TRUE(hears("found unasked 2.0")) << value.toString().toStdString();
        updater().remindLater();
        said.clear();
    }
}

TEST_F(ScheduledTest, IsQuietWhenThereIsNothing) {
    serve("/feed", feed({.version = "1.0"}));
    updater().start();
    ASSERT_TRUE(hears("can"));
    EXPECT_EQ(said, (QStringList{"cannot", "can"}));
}

TEST_F(ScheduledTest, IsQuietAboutASkippedVersion) {
    preferences.setValue(preference::skippedUpdateVersion, QString("2.0"));
    updater().start();
    ASSERT_TRUE(hears("can"));
    EXPECT_EQ(said, (QStringList{"cannot", "can"}));
}

TEST_F(ScheduledTest, IsQuietWhenItFailsAndDoesNotTryAgainAtOnce) {
    serve("/feed", "no feed at all");
    updater().start();
    ASSERT_TRUE(hears("can"));
    server.requests.clear();
    said.clear();
    EXPECT_TRUE(staysQuiet());
}

TEST_F(ScheduledTest, SaysSoWhenWhatWasFoundUnaskedCannotBeInstalled) {
    serve("/lexivore-2.0.deb", "something else");
    updater().start();
    ASSERT_TRUE(hears("found unasked 2.0"));
    updater().install();
    expectFailure(Kind::wrongLength);
}

// Attacks and accidents: the feed

struct BadFeed {
    const char *rule;
    QByteArray body;
    Kind kind;
    Behaviour behaviour = Behaviour::plain;
};

TEST_F(UpdaterTest, RefusesABadFeed) {
    const QByteArray good = feed();
    const QByteArray bomb = "<!DOCTYPE rss [<!ENTITY a 'aaaa'><!ENTITY b '&a;&a;&a;'>]><rss>&b;</rss>";
    const BadFeed feeds[] = {
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
    for (const BadFeed &each : feeds) {
        SCOPED_TRACE(each.rule);
        said.clear();
        serve("/feed", each.body, each.behaviour);
        updater().checkForUpdates();
        expectFailure(each.kind);
    }
}

TEST_F(UpdaterTest, RefusesAnErrorOfTheServer) {
    for (const QByteArray status : {"404 Not Found", "500 Oops", "204 No Content", "206 Partial Content"}) {
        SCOPED_TRACE(status.toStdString());
        said.clear();
        server.answers["/feed"] = {status, {}, feed(), {}};
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
}

TEST_F(UpdaterTest, RefusesAServerThatItDoesNotKnow) {
    LoopbackServer::trustNobody();
    updater().checkForUpdates();
    expectFailure(Kind::untrustedServer);
    EXPECT_TRUE(server.requests.isEmpty());
}

TEST_F(UpdaterTest, RefusesAServerWithTheNameOfAnother) {
    settings.feed.setUrl(settings.feed.toString().replace("127.0.0.1", "localhost"));
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
    EXPECT_TRUE(server.requests.isEmpty());
}

// Attacks and accidents: the file

struct BadFile {
    const char *rule;
    QByteArray body;
    Kind kind;
    Behaviour behaviour = Behaviour::plain;
};

TEST_F(UpdaterTest, RefusesABadFile) {
    QByteArray changed = file;
    changed[file.size() / 2] = '!';
    const BadFile files[] = {
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
    for (const BadFile &each : files) {
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

TEST_F(UpdaterTest, SaysThatTheDiskIsFull) {
    const int result = test::inChild([this] {
        test::limitFileSize(1000);
        checkAndInstall();
        expectFailure(Kind::cannotSave);
        return HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(result, 0);
}

TEST_F(UpdaterTest, RemovesTheFileWhenTheDesktopDoesNotOpenIt) {
    desktopOpens = false;
    checkAndInstall();
    ASSERT_TRUE(hears("failed"));
    EXPECT_EQ(error.kind, Kind::cannotOpen);
    EXPECT_EQ(openedBytes, file) << "it was verified before";
    EXPECT_EQ(filesLeft(), QStringList());
}

// Around it

TEST_F(UpdaterTest, RemovesWhatACrashLeftWhenItStarts) {
    QDir().mkpath(settings.folder);
    test::writeBytes(settings.folder + "/abcdef.part", "half");
    test::writeBytes(settings.folder + "/recent.deb", "perhaps being installed");
    test::writeBytes(settings.folder + "/old.deb", "installed long ago");
    QFile old(settings.folder + "/old.deb");
    ASSERT_TRUE(old.open(QIODevice::ReadWrite));
    old.setFileTime(QDateTime::currentDateTime().addDays(-2), QFile::FileModificationTime);
    old.close();
    updater().start();
    EXPECT_EQ(filesLeft(), QStringList("recent.deb"));
}

TEST_F(UpdaterTest, ItsViewModelFollowsIt) {
    const CheckForUpdatesViewModel model(updater());
    QList<bool> changes;
    QObject::connect(&model, &CheckForUpdatesViewModel::canCheckForUpdatesChanged, [&](bool can) { changes << can; });
    EXPECT_TRUE(model.canCheckForUpdates());
    updater().checkForUpdates();
    EXPECT_FALSE(model.canCheckForUpdates());
    ASSERT_TRUE(hears("found 2.0"));
    EXPECT_FALSE(model.canCheckForUpdates());
    updater().remindLater();
    EXPECT_TRUE(model.canCheckForUpdates());
    EXPECT_EQ(changes, (QList<bool>{false, true}));
}

TEST_F(UpdaterTest, TheStandardControllerTakesItsSettingsFromTheBundle) {
    const QVariantMap information{{bundle_key::feedAddress, server.address("/feed").toString()},
                                  {bundle_key::publicKey, QString::fromLatin1(signer.publicKey().toBase64())},
                                  {bundle_key::version, "1.0"}};
    StandardUpdaterController controller(information, preferences, [](const QUrl &) { return true; });
    QString version;
    QObject::connect(&controller.updater(), &Updater::updateFound,
                     [&](const AppcastItem &item, Updater::Origin) { version = item.version; });
    EXPECT_EQ(controller.updater().currentVersion(), "1.0");
    controller.updater().checkForUpdates();
    EXPECT_TRUE(QTest::qWaitFor([&] { return version == "2.0"; }, patience));
}

TEST_F(UpdaterTest, TheStandardControllerWithoutAFeedNeverAsksAnybody) {
    StandardUpdaterController controller({}, preferences, {});
    int answers = 0;
    QObject::connect(&controller.updater(), &Updater::noFeed, [&] { ++answers; });
    controller.updater().checkForUpdates();
    EXPECT_EQ(answers, 1);
    EXPECT_EQ(preferences.writeCount(), 0);
}

} // namespace
} // namespace lexivore

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    return RUN_ALL_TESTS();
}
