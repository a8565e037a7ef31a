// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/folder_lock.h"
#include "tests/manager/json_preferences_fixture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <iostream>
#include <iterator>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <random>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

// Other copies of the program, writers that are killed, and homes where writing fails.

namespace lexivore {
namespace {

using namespace std::chrono_literals;

class JsonPreferencesFaultsTest : public JsonPreferencesFixture {};

TEST_F(JsonPreferencesFaultsTest, TwoProcessesLoseNothingOfEachOther) {
    constexpr int rounds = 200;
    // Each changes its own key and looks whether its last change is still there before it makes the next.
    const auto count = [&](const QString &key) {
        JsonPreferences preferences(path(), std::chrono::minutes(1));
        for (int i = 1; i <= rounds; ++i) {
            preferences.setValue(key, i % 10);
            if (onDisk().value(key).toInt() != i % 10) {
                return 1;
            }
        }
        preferences.setValue(key, rounds);
        return 0;
    };
    const pid_t one = test::startChild([&] { return count(QStringLiteral("one")); });
    const pid_t two = test::startChild([&] { return count(QStringLiteral("two")); });
    EXPECT_EQ(count(QStringLiteral("three")), 0);
    EXPECT_EQ(test::resultOf(one), 0);
    EXPECT_EQ(test::resultOf(two), 0);
    EXPECT_EQ(onDisk(), (QVariantMap{{QStringLiteral("one"), qlonglong(rounds)},
                                     {QStringLiteral("two"), qlonglong(rounds)},
                                     {QStringLiteral("three"), qlonglong(rounds)}}));
}

TEST_F(JsonPreferencesFaultsTest, IsWholeWheneverItsWriterIsKilled) {
    const QByteArray shortList = "[]";
    const QByteArray longList = "[" + QByteArray("\"0123456789\",").repeated(5'000) + "1]";
    ASSERT_EQ(elsewhere([](JsonPreferences &preferences) {
                  preferences.setValue(QStringLiteral("favorites"), QStringList{QStringLiteral("trim-lines")});
                  return 0;
              }),
              0);
    std::mt19937 random(1);
    const char *const asked = std::getenv("LEXIVORE_KILLS"); // for more than the ordinary
    const int rounds = asked != nullptr ? std::atoi(asked) : 150;
    int killed = 0;
    for (int round = 0; round < rounds; ++round) {
        const pid_t writer = test::startChild([&] {
            JsonPreferences preferences(path());
            for (;;) {
                preferences.setValue(QStringLiteral("recipes"), longList);
                preferences.setValue(QStringLiteral("recipes"), shortList);
            }
            return 0;
        });
        ::usleep(static_cast<useconds_t>(random() % 15'000));
        ::kill(writer, SIGKILL);
        killed += test::resultOf(writer) == -SIGKILL ? 1 : 0;
        const QVariantMap left = onDisk();
        ASSERT_EQ(left.value(QStringLiteral("favorites")), QVariant(QVariantList{QStringLiteral("trim-lines")}));
        const QVariant recipes = left.value(QStringLiteral("recipes"));
        ASSERT_TRUE(!recipes.isValid() || recipes == QVariant(shortList) || recipes == QVariant(longList));
    }
    EXPECT_EQ(killed, rounds);
    std::cout << killed << " writers killed\n";

    QElapsedTimer timer;
    timer.start();
    JsonPreferences preferences(path());
    preferences.setValue(QStringLiteral("hasText"), true);
    EXPECT_LT(timer.elapsed(), 15'000); // QSettings alone would wait for 30 seconds
    EXPECT_EQ(onDisk().value(QStringLiteral("hasText")), QVariant(true));
    EXPECT_EQ(files().filter(QStringLiteral("corrupt")), QStringList());
}

TEST_F(JsonPreferencesFaultsTest, DoesNotWaitForTheLockOfACopyThatWasKilled) {
    put("{}");
    test::writeBytes(path("preferences.json.lock"), ""); // made, but not yet filled
    QElapsedTimer timer;
    timer.start();
    JsonPreferences preferences(path());
    preferences.setValue(QStringLiteral("hasText"), true);
    EXPECT_LT(timer.elapsed(), 15'000);
    EXPECT_EQ(onDisk().value(QStringLiteral("hasText")), QVariant(true));
    EXPECT_EQ(files(), QStringList{QStringLiteral("preferences.json")});
}

TEST_F(JsonPreferencesFaultsTest, GoesOnWhenAnotherCopyDoesNotGiveTheLockBack) {
    put("{}");
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t holder = test::startChild([&] {
        const FolderLock lock(QFileInfo(path()).absolutePath(), 0ms);
        if (lock.state() != FolderLock::State::held || ::write(ready[1], "x", 1) != 1) {
            return 1;
        }
        for (;;) {
            ::pause();
        }
        return 0;
    });
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    {
        JsonPreferences preferences(path(), 50ms);
        preferences.setValue(QStringLiteral("hasText"), true);
        EXPECT_EQ(preferences.value(QStringLiteral("hasText")), QVariant(true));
        EXPECT_EQ(onDisk(), QVariantMap());
        EXPECT_FALSE(preferences.isStored());

        ::kill(holder, SIGKILL);
        test::resultOf(holder);
        preferences.setValue(QStringLiteral("editorFontSize"), 20);
        EXPECT_EQ(onDisk(), (QVariantMap{{QStringLiteral("hasText"), true}, {QStringLiteral("editorFontSize"), 20LL}}));
        EXPECT_TRUE(preferences.isStored());
    }
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST_F(JsonPreferencesFaultsTest, AFileCutAnywhereIsSetAsideBeforeTheFirstWrite) {
    const QByteArray whole = test::encodePreferences({
        {QStringLiteral("favorites"), QVariantList{QStringLiteral("trim-lines"), QStringLiteral("é")}},
        {QStringLiteral("recipes"), QByteArray(R"([{"name":"x"}])")},
        {QStringLiteral("editorFontSize"), 13.5},
    });
    ASSERT_TRUE(whole.endsWith("}\n"));
    for (qsizetype length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        const QByteArray cut = whole.left(length);
        const QTemporaryDir place;
        const QString file = place.filePath(QStringLiteral("preferences.json"));
        const QString aside = file + QStringLiteral(".corrupt");
        test::writeBytes(file, cut);

        JsonPreferences preferences(file);
        const bool isWhole = length == whole.size() - 1; // only the final newline is missing
        ASSERT_EQ(preferences.value(QStringLiteral("favorites")).isValid(), isWhole);
        ASSERT_EQ(test::bytesOf(file), cut); // reading changes nothing
        preferences.setValue(QStringLiteral("hasText"), true);
        ASSERT_EQ(test::decodePreferences(test::bytesOf(file))->size(), isWhole ? 4 : 1);
        if (length == 0 || isWhole) {
            ASSERT_FALSE(QFileInfo::exists(aside)); // nothing would be lost
        } else {
            ASSERT_EQ(test::bytesOf(aside), cut);
        }
    }
}

TEST_F(JsonPreferencesFaultsTest, EveryCorruptFileIsKept) {
    JsonPreferences preferences(path());
    for (const char *bytes : {"[]", "{\"a\": 1} x", "\xFF\xFE", "null"}) {
        put(bytes);
        preferences.setValue(QStringLiteral("hasText"), true);
    }
    EXPECT_EQ(test::bytesOf(path("preferences.json.corrupt")), "[]");
    EXPECT_EQ(test::bytesOf(path("preferences.json.corrupt-2")), "{\"a\": 1} x");
    EXPECT_EQ(test::bytesOf(path("preferences.json.corrupt-3")), "\xFF\xFE");
    EXPECT_EQ(test::bytesOf(path("preferences.json.corrupt-4")), "null");
    EXPECT_EQ(onDisk(), (QVariantMap{{QStringLiteral("hasText"), true}}));
}

TEST_F(JsonPreferencesFaultsTest, AFileCorruptedSinceItWasWrittenIsKeptHoweverAlikeItLooks) {
    JsonPreferences preferences(path());
    preferences.setValue(QStringLiteral("favorites"), QStringList{QStringLiteral("trim-lines")});
    const QDateTime time = QFileInfo(path()).lastModified();
    QByteArray damaged = test::bytesOf(path());
    damaged.replace(damaged.indexOf(']'), 1, "}");
    put(damaged);
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();
    preferences.setValue(QStringLiteral("hasText"), true);
    EXPECT_EQ(test::bytesOf(path("preferences.json.corrupt")), damaged);
    EXPECT_EQ(onDisk().value(QStringLiteral("hasText")), QVariant(true));
}

TEST_F(JsonPreferencesFaultsTest, NothingIsWrittenBehindTheBackOfTheLock) {
    put("{}");
    EXPECT_EQ(test::inChild([&] {
                  int argumentCount = 1;
                  char name[] = "test";
                  char *arguments[] = {name, nullptr};
                  const QCoreApplication application(argumentCount, arguments);
                  {
                      JsonPreferences preferences(path());
                      test::limitFileSize(100);
                      preferences.setValue(QStringLiteral("text"), QString(200, QLatin1Char('x')));
                      test::limitFileSize(RLIM_INFINITY);
                      put("corrupt"); // what is not written yet must not be written over it
                      QCoreApplication::processEvents();
                  }
                  return test::bytesOf(path()) == "corrupt" ? 0 : 1;
              }),
              0);
}

/// Writes what cannot be written, sees that nothing is lost, and writes again when it can be. Answers 0 or the number
/// of the step that went wrong.
int failAndRecover(const QString &path, const std::function<void()> &makeRoom) {
    const QByteArray before = test::bytesOf(path);
    JsonPreferences preferences(path);
    const QString large(50'000, QLatin1Char('x'));
    preferences.setValue(QStringLiteral("large"), large);
    if (test::bytesOf(path) != before || preferences.isStored()) {
        return 1;
    }
    if (preferences.value(QStringLiteral("large")) != QVariant(large)) {
        return 2;
    }
    if (preferences.value(QStringLiteral("favorites")).toList().size() != 1) {
        return 3;
    }
    if (QDir(QFileInfo(path).absolutePath()).entryList({QStringLiteral("preferences.json*")}).size() != 1) {
        return 4;
    }
    makeRoom();
    preferences.setValue(QStringLiteral("hasText"), true);
    const QVariantMap after = test::decodePreferences(test::bytesOf(path)).value_or(QVariantMap());
    const bool isAllThere = after.size() == 3 && after.value(QStringLiteral("large")) == QVariant(large);
    return isAllThere && preferences.isStored() ? 0 : 5;
}

constexpr char someFavorites[] = "{\"favorites\": [\"trim-lines\"]}";

TEST_F(JsonPreferencesFaultsTest, AFileThatMayNotGrowStaysAsItWas) {
    put(someFavorites);
    EXPECT_EQ(test::inChild([&] {
                  test::limitFileSize(1'000);
                  return failAndRecover(path(), [] { test::limitFileSize(RLIM_INFINITY); });
              }),
              0);
}

/// From now on this process has a kernel that knows no locks of files, as some file systems have none.
bool doWithoutLocks() {
    sock_filter filter[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_flock, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOLCK),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{static_cast<unsigned short>(std::size(filter)), filter};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

TEST_F(JsonPreferencesFaultsTest, AFileSystemWithoutLocksKeepsTheChangesToo) {
    put(someFavorites);
    constexpr int couldNotFilter = 77;
    const int result = test::inChild([&] {
        if (!doWithoutLocks()) {
            return couldNotFilter;
        }
        if (FolderLock(folder.path(), 0ms).state() != FolderLock::State::unsupported) {
            return 70;
        }
        QElapsedTimer timer;
        timer.start();
        for (int number = 1; number <= 3; ++number) {
            JsonPreferences preferences(path());
            preferences.setValue(QStringLiteral("number%1").arg(number), number);
        }
        const bool areAllThere = onDisk().size() == 4 && files() == QStringList{QStringLiteral("preferences.json")};
        return !areAllThere ? 1 : timer.elapsed() < 10'000 ? 0 : 2;
    });
    if (result == couldNotFilter) {
        GTEST_SKIP() << "This system lets nobody filter system calls.";
    }
    EXPECT_EQ(result, 0);
}

/// From now on this process may mount what it likes, and nobody else sees it.
bool enterOwnMounts() {
    const QByteArray user = "0 " + QByteArray::number(::geteuid()) + " 1\n";
    const QByteArray group = "0 " + QByteArray::number(::getegid()) + " 1\n";
    if (::unshare(CLONE_NEWNS) != 0) {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
            return false;
        }
        test::writeBytes(QStringLiteral("/proc/self/setgroups"), "deny");
        test::writeBytes(QStringLiteral("/proc/self/uid_map"), user);
        test::writeBytes(QStringLiteral("/proc/self/gid_map"), group);
    }
    return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

TEST_F(JsonPreferencesFaultsTest, AFullDiskLeavesTheOldFile) {
    constexpr int couldNotMount = 77;
    const int result = test::inChild([&] {
        const QByteArray place = QFile::encodeName(folder.path());
        if (!enterOwnMounts() || ::mount("none", place.constData(), "tmpfs", 0, "size=256k") != 0) {
            return couldNotMount;
        }
        put(someFavorites);
        const QString filler = folder.filePath(QStringLiteral("filler"));
        QFile file(filler);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
            return 70;
        }
        while (file.write(QByteArray(4'096, 'f')) > 0) {
        }
        file.close();
        return failAndRecover(path(), [&] { QFile::remove(filler); });
    });
    if (result == couldNotMount) {
        GTEST_SKIP() << "This system lets nobody mount a small file system; the limit on the file's size was tested.";
    }
    EXPECT_EQ(result, 0);
}

TEST_F(JsonPreferencesFaultsTest, AFolderThatMayNotBeWrittenLeavesTheOldFile) {
    put(someFavorites);
    const QByteArray place = QFile::encodeName(QFileInfo(path()).absolutePath());
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    ASSERT_EQ(::chmod(place.constData(), 0555), 0);
    EXPECT_EQ(test::inChild([&] {
                  if (::geteuid() == 0 && ::setuid(65534) != 0) {
                      return 70;
                  }
                  const QByteArray before = test::bytesOf(path());
                  JsonPreferences preferences(path());
                  preferences.setValue(QStringLiteral("hasText"), true);
                  if (test::bytesOf(path()) != before || files().size() != 1) {
                      return 1;
                  }
                  const bool goesOn = preferences.value(QStringLiteral("hasText")) == QVariant(true);
                  return goesOn && !preferences.isStored() ? 0 : 2;
              }),
              0);

    test::writeBytes(path(), "corrupt"); // cannot be set aside, so it must not be overwritten either
    EXPECT_EQ(test::inChild([&] {
                  if (::geteuid() == 0 && ::setuid(65534) != 0) {
                      return 70;
                  }
                  JsonPreferences preferences(path());
                  preferences.setValue(QStringLiteral("hasText"), true);
                  return test::bytesOf(path()) == "corrupt" && !preferences.isStored() ? 0 : 1;
              }),
              0);
    ASSERT_EQ(::chmod(place.constData(), 0755), 0);
}

TEST_F(JsonPreferencesFaultsTest, WhatCouldNotBeReadAtFirstIsKeptWhenItCanBeReplaced) {
    put(someFavorites);
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0777), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(QFileInfo(path()).absolutePath()).constData(), 0777), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(path()).constData(), 0), 0);
    ASSERT_EQ(::geteuid() == 0 ? ::chown(QFile::encodeName(path()).constData(), 65534, 65534) : 0, 0);
    EXPECT_EQ(test::inChild([&] {
                  if (::geteuid() == 0 && ::setuid(65534) != 0) {
                      return 70;
                  }
                  JsonPreferences preferences(path());
                  preferences.setValue(QStringLiteral("favorites"), QStringList{QStringLiteral("uppercase")});
                  if (preferences.isStored() || files() != QStringList{QStringLiteral("preferences.json")}) {
                      return 1;
                  }
                  ::chmod(QFile::encodeName(path()).constData(), 0600);
                  preferences.setValue(QStringLiteral("hasText"), true);
                  if (!preferences.isStored() || onDisk().size() != 2) {
                      return 2;
                  }
                  if (test::bytesOf(path("preferences.json.corrupt")) != someFavorites) {
                      return 3;
                  }
                  preferences.setValue(QStringLiteral("hasText"), false);
                  return files().size() == 2 ? 0 : 4; // it is kept once
              }),
              0);
}

TEST_F(JsonPreferencesFaultsTest, AHomeWithoutRoomForTheFolderIsBorne) {
    const QString file = QStringLiteral("/proc/no/such/preferences.json");
    JsonPreferences preferences(file);
    preferences.setValue(QStringLiteral("hasText"), true);
    EXPECT_EQ(preferences.value(QStringLiteral("hasText")), QVariant(true));
    EXPECT_FALSE(preferences.isStored());
    EXPECT_FALSE(QFileInfo::exists(file));
}

} // namespace
} // namespace lexivore
