// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/preferences.h"
#include "services/updates/updater.h"
#include "tests/services/updates/keys.h"
#include "tests/services/updates/loopback_server.h"
#include "tests/support/files.h"
#include "tests/support/memory_preferences.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace lexivore {

/// A server that offers an update, and an updater that says what happens.
class UpdaterTest : public testing::Test {
protected:
    using LoopbackServer = test::LoopbackServer;
    using Behaviour = LoopbackServer::Answer::Behaviour;
    using Kind = UpdateError::Kind;

    static constexpr int patience = 20'000; // milliseconds; only a broken updater takes that long

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

} // namespace lexivore
