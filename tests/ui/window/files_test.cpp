// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/support/files.h"
#include "tests/ui/window/window_fixture.h"
#include "ui/flows/text_file.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>

#include <grp.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace lexivore {
namespace {

class Files : public WindowTest {
protected:
    [[nodiscard]] QString path(const QString &name) const { return QDir(folder.path()).filePath(name); }

    void write(const QString &name, const QByteArray &bytes) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    [[nodiscard]] QByteArray read(const QString &name) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    void open(const QString &name) {
        chosenFile = path(name);
        choose("OpenFile");
    }
    void save(const QString &name) {
        chosenFile = path(name);
        choose("SaveFile");
    }
    /// The message of the alert that is shown; empty when there is none.
    [[nodiscard]] QString alertMessage() {
        auto *message = find<QLabel>("message");
        return message != nullptr && message->isVisible() ? message->text() : QString();
    }

    QTemporaryDir folder;
};

TEST_F(Files, AFileIsOpenedExactly) {
    const QByteArray bytes("\xEF\xBB\xBFone\r\ntwo\rthree\tfour\0five\xE2\x80\xA8six", 33);
    write("in.txt", bytes);
    open("in.txt");
    EXPECT_EQ(text(), bytes.toStdString());
    EXPECT_TRUE(alertMessage().isEmpty());
}

TEST_F(Files, OpeningChangesTheCurrentTextAlone) {
    setText("base");
    click("transformation.uppercase");
    write("in.txt", "opened");
    open("in.txt");
    EXPECT_EQ(text(), "opened");
    EXPECT_EQ(manager().originalText().view(), "base");
    EXPECT_EQ(manager().appliedOperations().size(), 1U);
}

TEST_F(Files, AFileThatIsNotUtf8IsIgnoredWithoutAMessage) {
    setText("kept");
    write("in.txt", "caf\xE9");
    open("in.txt");
    EXPECT_EQ(text(), "kept");
    EXPECT_TRUE(alertMessage().isEmpty());
}

TEST_F(Files, TheFileThatALaterStartIsGivenIsOpened) {
    setText("before");
    write("a.txt", "a");
    app().comeForward({path("a.txt")});
    EXPECT_EQ(text(), "a");
    EXPECT_TRUE(alertMessage().isEmpty());
    app().comeForward({});
    EXPECT_EQ(text(), "a");
}

TEST_F(Files, OfSeveralFilesThatAStartIsGivenNoneIsOpenedAndTheUserIsTold) {
    setText("kept");
    write("a.txt", "a");
    write("b.txt", "b");
    app().comeForward({path("a.txt"), path("b.txt")});
    EXPECT_EQ(text(), "kept");
    EXPECT_EQ(alertMessage(), "Open one file at a time.");
}

TEST_F(Files, WhatIsNoReadableFileIsToldAndTheTextStays) {
    setText("kept");
    ASSERT_TRUE(QDir(folder.path()).mkdir("folder"));
    ASSERT_EQ(::mkfifo(path("pipe").toUtf8().constData(), 0600), 0);
    for (const char *name : {"folder", "pipe", "vanished.txt"}) {
        open(name);
        EXPECT_TRUE(alertMessage().contains(name)) << name;
        EXPECT_EQ(text(), "kept");
        click("confirm");
        ASSERT_TRUE(QTest::qWaitFor([this] { return alertMessage().isEmpty(); }));
    }
}

TEST_F(Files, AFileBeyondTheLimitIsAFailure) {
    write("in.txt", "12345");
    EXPECT_TRUE(std::holds_alternative<Text>(textFile::read(path("in.txt"), 5)));
    EXPECT_TRUE(std::holds_alternative<textFile::Failure>(textFile::read(path("in.txt"), 4)));
}

TEST_F(Files, TheTextIsSavedByteForByte) {
    const std::string bytes("\xEF\xBB\xBF"
                            "a\r\nb\rc\n\0d",
                            12);
    setText(bytes);
    save("out.txt");
    EXPECT_EQ(read("out.txt").toStdString(), bytes);
}

TEST_F(Files, TheTextThatWasToBeSavedIsSavedThoughAnotherFileIsOpenedMeanwhile) {
    write("handed over.txt", "other");
    setText("mine");
    chosenFile.reset();
    choose("SaveFile");
    app().comeForward({path("handed over.txt")});
    EXPECT_EQ(text(), "other");
    ScriptedPanels::unanswered(path("mine.txt"));
    EXPECT_EQ(read("mine.txt"), "mine");
}

TEST_F(Files, SavingReplacesTheOldFile) {
    write("out.txt", "a much longer old content");
    setText("new");
    save("out.txt");
    EXPECT_EQ(read("out.txt"), "new");
}

TEST_F(Files, SavingOverALinkReplacesTheFileThatItLeadsTo) {
    ASSERT_TRUE(QDir(folder.path()).mkdir("folder"));
    write("folder/real.txt", "old");
    ASSERT_TRUE(QFile::link("folder/real.txt", path("link.txt")));
    setText("new");
    save("link.txt");
    EXPECT_TRUE(QFileInfo(path("link.txt")).isSymLink());
    EXPECT_FALSE(QFileInfo(path("folder/real.txt")).isSymLink());
    EXPECT_EQ(read("folder/real.txt"), "new");
}

TEST_F(Files, AFailedSaveIsToldAndTheOldFileStaysWhole) {
    ASSERT_TRUE(QDir(folder.path()).mkdir("folder"));
    setText("new");
    for (const char *name : {"folder", "no such folder/out.txt"}) {
        save(name);
        EXPECT_FALSE(alertMessage().isEmpty()) << name;
        click("confirm");
        ASSERT_TRUE(QTest::qWaitFor([this] { return alertMessage().isEmpty(); }));
    }
    EXPECT_EQ(text(), "new");
    EXPECT_TRUE(QFileInfo(path("folder")).isDir());
}

TEST_F(Files, AFullDiskLeavesTheOldFileWholeAndIsTold) {
    write("out.txt", "old");
    Text inPieces(std::string(100'000, 'x'));
    for (std::size_t place = 50; place < inPieces.size(); place += 100) {
        inPieces = inPieces.replaced(place, 1, "y");
    }
    // Found out when it is closed, while it is written at once, and while it is written piece by piece.
    for (const Text &full : {Text(std::string(5'000, 'x')), Text(std::string(200'000, 'x')), inPieces}) {
        EXPECT_EQ(test::inChild([&] {
                      test::limitFileSize(1'000);
                      const QString failure = textFile::write(path("out.txt"), full);
                      return failure == "“" + path("out.txt") + "” could not be saved: File too large" ? 0 : 1;
                  }),
                  0);
        EXPECT_EQ(read("out.txt"), "old");
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("out.txt"));
    }
}

TEST_F(Files, AFileThatMayNotBeWrittenStaysWholeAndIsTold) {
    write("out.txt", "old");
    ASSERT_TRUE(QFile::setPermissions(path("out.txt"), QFile::ReadOwner | QFile::ReadOther));
    ASSERT_EQ(::chmod(qPrintable(folder.path()), 0555), 0);
    EXPECT_EQ(test::inChild([&] {
                  if (::geteuid() == 0 && ::setuid(65534) != 0) { // root may write everything
                      return 2;
                  }
                  return textFile::write(path("out.txt"), Text("new")).isEmpty() ? 1 : 0;
              }),
              0);
    EXPECT_EQ(read("out.txt"), "old");
    ASSERT_EQ(::chmod(qPrintable(folder.path()), 0700), 0);
}

/// The group and the rights of the file after a user saved over it who is in `usersGroup`, and in `sharedGroup` too.
std::string groupAndRightsAfterSaving(const QString &path, gid_t usersGroup, gid_t sharedGroup) {
    EXPECT_EQ(test::inChild([&] {
                  const bool isOther =
                      ::setgroups(1, &sharedGroup) == 0 && ::setgid(usersGroup) == 0 && ::setuid(usersGroup) == 0;
                  return isOther && textFile::write(path, Text("new")).isEmpty() ? 0 : 1;
              }),
              0);
    struct stat saved {};
    EXPECT_EQ(::stat(qPrintable(path), &saved), 0);
    return QString("%1 %2").arg(saved.st_gid).arg(saved.st_mode & 07777, 0, 8).toStdString();
}

TEST_F(Files, AReplacedFileIsSharedWithTheSamePeople) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "Only root can be several users.";
    }
    constexpr gid_t users = 4242;
    constexpr gid_t team = 5000;
    constexpr gid_t strangers = 6000;
    write("out.txt", "old");
    ASSERT_EQ(::chmod(qPrintable(folder.path()), 0777), 0);
    const QString file = path("out.txt");
    const auto own = [&file](gid_t group, mode_t rights) {
        ASSERT_EQ(::chown(qPrintable(file), users, group), 0);
        ASSERT_EQ(::chmod(qPrintable(file), rights), 0);
    };
    own(team, 0640);
    EXPECT_EQ(groupAndRightsAfterSaving(file, users, team), "5000 640");
    // A group that the user cannot give has its rights no more, and the user's own does not get them.
    own(strangers, 0664);
    EXPECT_EQ(groupAndRightsAfterSaving(file, users, team), "4242 644");

    own(team, 0600);
    ASSERT_EQ(textFile::write(file, Text("by root")), "");
    EXPECT_EQ(QFileInfo(file).ownerId(), users);
    EXPECT_EQ(QFileInfo(file).groupId(), team);
}

TEST_F(Files, AReplacedFileKeepsItsAccessList) {
    // Version 2; the owner and the user 7777 may read and write, the group and all others nothing.
    const QByteArray list = QByteArray::fromHex("02000000"
                                                "01000600ffffffff"
                                                "02000600611e0000"
                                                "04000000ffffffff"
                                                "10000600ffffffff"
                                                "20000000ffffffff");
    constexpr char name[] = "system.posix_acl_access";
    write("out.txt", "old");
    const QByteArray file = path("out.txt").toUtf8();
    if (::setxattr(file.constData(), name, list.constData(), static_cast<std::size_t>(list.size()), 0) != 0) {
        GTEST_SKIP() << "This file system has no access lists.";
    }
    ASSERT_EQ(textFile::write(path("out.txt"), Text("new")), "");
    EXPECT_EQ(read("out.txt"), "new");
    QByteArray kept(100, '\0');
    kept.truncate(::getxattr(file.constData(), name, kept.data(), static_cast<std::size_t>(kept.size())));
    EXPECT_EQ(kept.toHex().toStdString(), list.toHex().toStdString());
}

TEST_F(Files, SaveAsIsDisabledWithoutText) {
    EXPECT_FALSE(command("SaveFile")->isEnabled());
    setText("x");
    EXPECT_TRUE(command("SaveFile")->isEnabled());
    EXPECT_TRUE(preferences.value(preference::hasText).toBool());
    setText("");
    EXPECT_FALSE(command("SaveFile")->isEnabled());
    EXPECT_EQ(preferences.value(preference::hasText), QVariant(false));
}

TEST_F(Files, CancellingTheDialogChangesNothing) {
    setText("kept");
    chosenFile.reset();
    choose("OpenFile");
    choose("SaveFile");
    EXPECT_EQ(text(), "kept");
}

} // namespace
} // namespace lexivore
