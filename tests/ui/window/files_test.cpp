// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/support/files.h"
#include "tests/ui/window/window_fixture.h"
#include "ui/flows/text_file.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>

#include <sys/stat.h>
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

TEST_F(Files, SavingReplacesTheOldFile) {
    write("out.txt", "a much longer old content");
    setText("new");
    save("out.txt");
    EXPECT_EQ(read("out.txt"), "new");
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
