// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/single_instance.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <memory>
#include <sys/stat.h>
#include <vector>

namespace lexivore {
namespace {

constexpr int patience = 20'000; // milliseconds; only a broken program takes that long

class SingleInstanceTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        static int argc = 1;
        static char name[] = "single_instance_test";
        static char *argv[] = {name, nullptr};
        static QCoreApplication application(argc, argv);
    }

    std::unique_ptr<QProcess> start(const QStringList &files = {}) {
        auto process = std::make_unique<QProcess>();
        process->start(INSTANCE_PROBE, QStringList(m_folder.path()) + files);
        EXPECT_TRUE(process->waitForStarted(patience));
        return process;
    }

    static QByteArray nextLine(QProcess &process) {
        QElapsedTimer timer;
        timer.start();
        while (!process.canReadLine() && timer.elapsed() < patience && process.waitForReadyRead(patience)) {
        }
        return process.readLine().trimmed();
    }

    static void end(QProcess &process) {
        process.write("end\n");
        EXPECT_TRUE(process.waitForFinished(patience));
    }

    QTemporaryDir m_folder;
};

TEST_F(SingleInstanceTest, TheFirstStartIsThePrimaryOne) {
    const auto first = start();
    EXPECT_EQ(nextLine(*first), "primary");
    end(*first);
}

TEST_F(SingleInstanceTest, ALaterStartHandsItsFilesToTheFirstAndEnds) {
    const auto first = start();
    ASSERT_EQ(nextLine(*first), "primary");
    const auto second = start({"/a folder/ä.txt", "/b"});
    EXPECT_EQ(nextLine(*second), "secondary");
    EXPECT_TRUE(second->waitForFinished(patience));
    EXPECT_EQ(nextLine(*first), QByteArray("requested [/a folder/ä.txt|/b] token"));
    end(*first);
}

TEST_F(SingleInstanceTest, OnlyTheUserMayReachTheSocket) {
    const mode_t before = ::umask(0);
    SingleInstance instance(m_folder.path());
    EXPECT_EQ(instance.start({}), SingleInstance::Role::primary);
    ::umask(before);
    struct stat socket {};
    ASSERT_EQ(::stat(qPrintable(m_folder.filePath("lexivore.socket")), &socket), 0);
    EXPECT_EQ(socket.st_mode & (S_IRWXG | S_IRWXO), 0U);
}

TEST_F(SingleInstanceTest, AStartAfterTheEndIsAFirstOneAgain) {
    const auto first = start();
    ASSERT_EQ(nextLine(*first), "primary");
    end(*first);
    const auto second = start();
    EXPECT_EQ(nextLine(*second), "primary");
    end(*second);
}

TEST_F(SingleInstanceTest, AKilledFirstInstanceBlocksNoStart) {
    for (int round = 0; round < 3; ++round) {
        const auto killed = start();
        ASSERT_EQ(nextLine(*killed), "primary");
        killed->kill();
        ASSERT_TRUE(killed->waitForFinished(patience));
    }
    const auto next = start();
    EXPECT_EQ(nextLine(*next), "primary");
    const auto later = start();
    EXPECT_EQ(nextLine(*later), "secondary");
    end(*next);
}

TEST_F(SingleInstanceTest, AFileInTheSocketsPlaceBlocksNoStart) {
    QFile leftover(m_folder.path() + "/lexivore.socket");
    ASSERT_TRUE(leftover.open(QIODevice::WriteOnly));
    leftover.close();
    const auto first = start();
    EXPECT_EQ(nextLine(*first), "primary");
    const auto second = start();
    EXPECT_EQ(nextLine(*second), "secondary");
    end(*first);
}

TEST_F(SingleInstanceTest, StartsAtTheSameInstantGiveOneInstance) {
    for (int round = 0; round < 5; ++round) {
        std::vector<std::unique_ptr<QProcess>> processes;
        processes.reserve(6);
        for (int i = 0; i < 6; ++i) {
            processes.push_back(start());
        }
        int primaries = 0;
        for (const auto &process : processes) {
            const QByteArray line = nextLine(*process);
            if (line == "primary") {
                ++primaries;
            } else {
                EXPECT_EQ(line, "secondary");
            }
        }
        EXPECT_EQ(primaries, 1);
        for (const auto &process : processes) {
            end(*process);
        }
    }
}

TEST_F(SingleInstanceTest, AFirstInstanceThatDoesNotAnswerBlocksNoStart) {
    QLockFile held(m_folder.path() + "/lexivore.lock");
    ASSERT_TRUE(held.tryLock());
    SingleInstance instance(m_folder.path());
    EXPECT_EQ(instance.start({}, std::chrono::milliseconds(100)), SingleInstance::Role::primary);
}

TEST_F(SingleInstanceTest, WhatAStartAskedForThatGaveUpWaitingIsNotDoneLater) {
    const auto first = start();
    ASSERT_EQ(nextLine(*first), "primary");
    ASSERT_EQ(::kill(static_cast<pid_t>(first->processId()), SIGSTOP), 0);
    SingleInstance impatient(m_folder.path());
    EXPECT_EQ(impatient.start({{"/opened by the impatient one itself"}, {}, {}}, std::chrono::milliseconds(300)),
              SingleInstance::Role::primary);
    ASSERT_EQ(::kill(static_cast<pid_t>(first->processId()), SIGCONT), 0);
    const auto later = start({"/later"});
    EXPECT_EQ(nextLine(*later), "secondary");
    EXPECT_EQ(nextLine(*first), "requested [/later] token");
    end(*first);
}

TEST_F(SingleInstanceTest, AStartCanHandOverAsManyFilesAsACommandLineHolds) {
    const auto first = start();
    ASSERT_EQ(nextLine(*first), "primary");
    const QStringList files(20'000, "/" + QString(100, 'x'));
    SingleInstance later(m_folder.path());
    EXPECT_EQ(later.start({files, "token", {}}), SingleInstance::Role::secondary);
    EXPECT_EQ(nextLine(*first), "requested [" + files.join('|').toUtf8() + "] token");
    end(*first);
}

TEST_F(SingleInstanceTest, HangsUpOnWhatIsNoRequest) {
    const auto first = start();
    ASSERT_EQ(nextLine(*first), "primary");
    for (const char *line : {"nonsense\n", "[]\n", "\n"}) {
        QLocalSocket stranger;
        stranger.connectToServer(m_folder.path() + "/lexivore.socket");
        ASSERT_TRUE(stranger.waitForConnected(patience));
        stranger.write(line);
        EXPECT_TRUE(stranger.waitForDisconnected(patience)) << line;
        EXPECT_EQ(stranger.bytesAvailable(), 0) << line;
    }
    const auto later = start({"/later"});
    EXPECT_EQ(nextLine(*later), "secondary");
    EXPECT_EQ(nextLine(*first), "requested [/later] token");
    end(*first);
}

TEST_F(SingleInstanceTest, ALockThatSaysNotWhoseItIsIsTakenOver) {
    for (const char *const content : {"", "no number\n"}) {
        QFile leftover(m_folder.path() + "/lexivore.lock");
        ASSERT_TRUE(leftover.open(QIODevice::WriteOnly));
        leftover.write(content);
        leftover.close();
        SingleInstance first(m_folder.path());
        EXPECT_EQ(first.start({}, std::chrono::milliseconds(100)), SingleInstance::Role::primary);
        qint64 owner = 0;
        QString host;
        QString name;
        EXPECT_TRUE(QLockFile(leftover.fileName()).getLockInfo(&owner, &host, &name)) << '"' << content << '"';
        EXPECT_EQ(owner, QCoreApplication::applicationPid());
        QLocalSocket later;
        later.connectToServer(m_folder.path() + "/lexivore.socket");
        EXPECT_TRUE(later.waitForConnected(patience)) << "it can be asked";
    }
}

TEST_F(SingleInstanceTest, WithoutAFolderNothingIsWrittenAnywhere) {
    SingleInstance instance{QString()};
    EXPECT_EQ(instance.start({}, std::chrono::milliseconds(100)), SingleInstance::Role::primary);
    EXPECT_FALSE(QFile::exists("/lexivore.lock"));
    EXPECT_FALSE(QFile::exists("/lexivore.socket"));
}

TEST_F(SingleInstanceTest, AFolderThatCannotBeWrittenBlocksNoStart) {
    SingleInstance instance("/proc/nowhere");
    EXPECT_EQ(instance.start({}, std::chrono::milliseconds(100)), SingleInstance::Role::primary);
}

} // namespace
} // namespace lexivore
