// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/bundle_information.h"
#include "services/updates/check_for_updates_view_model.h"
#include "services/updates/standard_updater_controller.h"
#include "tests/services/updates/updater_fixture.h"

#include <QNetworkProxy>
#include <QStandardPaths>

namespace lexivore {
namespace {

using namespace std::chrono_literals;

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
    server.answers["/feed"].headers = "Set-Cookie: visitor=1; Path=/\r\n";
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

TEST_F(UpdaterTest, HasPatienceWithASlowServerAsLongAsItSaysSomething) {
    serve("/lexivore-2.0.deb", file, Behaviour::dripping);
    settings.silence = 1s;
    checkAndInstall();
    EXPECT_TRUE(hears("handed 2.0")) << error.message().toStdString();
}

TEST_F(UpdaterTest, GivesTheFileAHarmlessName) {
    const QByteArray longPath = '/' + QByteArray(300, 'x') + ".deb";
    const std::pair<const char *, const char *> names[] = {
        {"/a/..%2f..%2fevil%20name.deb", "evil_name.deb"},
        {"/.hidden", "lexivore-.hidden"},
        {"/", "lexivore-"},
        {"/x.part", "lexivore-x.part"},
        {"/x_2.0~rc1+b-2.deb", "x_2.0~rc1+b-2.deb"},
        {"/na%C3%AFve.deb", "na_ve.deb"},
        {longPath.constData(), "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"
                               "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx.deb"},
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

TEST_F(UpdaterTest, HearsNoMoreOfWhatWasCancelled) {
    updater().checkForUpdates();
    updater().cancel();
    EXPECT_FALSE(QTest::qWaitFor([this] { return said.contains("found 2.0"); }, 400));
    serve("/lexivore-2.0.deb", file, Behaviour::dripping);
    checkAndInstall();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !progress.isEmpty(); }, patience));
    updater().cancel();
    progress.clear();
    EXPECT_FALSE(QTest::qWaitFor([this] { return !progress.isEmpty(); }, 400));
}

TEST_F(UpdaterTest, MindsNoAnswerToAQuestionThatIsNotAsked) {
    updater().checkForUpdates();
    ASSERT_TRUE(hears("found 2.0"));
    updater().cancel();
    EXPECT_FALSE(updater().canCheckForUpdates());
    updater().install();
    updater().remindLater();
    updater().skipVersion();
    EXPECT_FALSE(updater().canCheckForUpdates());
    EXPECT_FALSE(preferences.contains(preference::skippedUpdateVersion));
    EXPECT_TRUE(hears("handed 2.0"));
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

TEST_F(ScheduledTest, DoesNotCheckWhileAnAnswerIsAwaited) {
    updater().start();
    ASSERT_TRUE(hears("found unasked 2.0"));
    said.clear();
    server.requests.clear();
    now = now.addDays(2);
    EXPECT_TRUE(staysQuiet());
    updater().install();
    EXPECT_TRUE(hears("handed 2.0"));
}

TEST_F(ScheduledTest, AClockThatWasSetBackIsNoReasonToWaitForYears) {
    setLastCheck(qint64{-365} * 24 * 60 * 60);
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

TEST_F(ScheduledTest, WithoutAFeedNeverLooks) {
    settings.feed.clear();
    updater().start();
    EXPECT_TRUE(staysQuiet());
    EXPECT_EQ(preferences.writeCount(), 0);
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

TEST_F(UpdaterTest, TheStandardControllerStartsItsUpdaterInTheCacheOfTheProgram) {
    const QByteArray before = qgetenv("XDG_CACHE_HOME");
    qputenv("XDG_CACHE_HOME", folder.filePath("cache").toLocal8Bit());
    const QString updates = QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + "/updates";
    ASSERT_TRUE(updates.startsWith(folder.path()));
    ASSERT_TRUE(QDir().mkpath(updates));
    const QString leftover = updates + "/abcdef.part";
    test::writeBytes(leftover, "half");
    const StandardUpdaterController controller({{bundle_key::feedAddress, server.address("/feed").toString()}},
                                               preferences, {});
    EXPECT_FALSE(QFile::exists(leftover));
    before.isNull() ? qunsetenv("XDG_CACHE_HOME") : qputenv("XDG_CACHE_HOME", before);
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
