// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/file_replacement.h"

#include "tests/support/files.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace lexivore {
namespace {

class FileReplacementTest : public testing::Test {
protected:
    [[nodiscard]] QString path(const QString &name) const { return folder.filePath(name); }
    [[nodiscard]] QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    /// Why the file could not be written; empty when it was.
    static std::string failureOf(const QString &path, std::string_view bytes) {
        FileReplacement file(path);
        return file.open() && file.write(bytes) && file.commit() ? "" : file.errorString().toStdString();
    }

    QTemporaryDir folder;
};

/// With what is added while the new file stands beside the old one, file systems would not take them.
const QString longNames[] = {QString(248, 'x'), QString(249, 'x'), QString(255, 'x'), QString(85, QChar(0x3042))};

TEST_F(FileReplacementTest, ReplacesAFileWhoseNameIsAsLongAsTheDiskTakes) {
    for (const QString &name : longNames) {
        for (const char *bytes : {"the first of all", "the second"}) {
            EXPECT_EQ(failureOf(path(name), bytes), "") << name.size();
            EXPECT_EQ(test::bytesOf(path(name)), bytes);
        }
        EXPECT_EQ(files(), QStringList(name));
        ASSERT_TRUE(QFile::remove(path(name)));
    }
}

TEST_F(FileReplacementTest, ReplacesTheFileOfALongNameThatALinkLeadsTo) {
    const QString name(255, 'x');
    test::writeBytes(path(name), "old");
    ASSERT_TRUE(QFile::link(name, path("link")));
    ASSERT_TRUE(QFile::link("link", path("link to the link")));
    EXPECT_EQ(failureOf(path("link to the link"), "new"), "");
    EXPECT_EQ(test::bytesOf(path(name)), "new");
    EXPECT_TRUE(QFileInfo(path("link")).isSymLink());
    EXPECT_FALSE(QFileInfo(path(name)).isSymLink());
}

TEST_F(FileReplacementTest, AFileOfALongNameKeepsItsRights) {
    const QString name(255, 'x');
    test::writeBytes(path(name), "old");
    ASSERT_EQ(::chmod(QFile::encodeName(path(name)).constData(), 0604), 0);
    EXPECT_EQ(failureOf(path(name), "new"), "");
    struct stat saved {};
    ASSERT_EQ(::stat(QFile::encodeName(path(name)).constData(), &saved), 0);
    EXPECT_EQ(saved.st_mode & 0777, 0604U);
}

TEST_F(FileReplacementTest, SaysPlainlyThatANameIsTooLong) {
    EXPECT_EQ(failureOf(path(QString(256, 'x')), "new"), "File name too long");
    EXPECT_EQ(files(), QStringList());
}

TEST_F(FileReplacementTest, AFileThatMayNotBeWrittenStaysWhateverTheLengthOfItsName) {
    for (const QString &name : {QString("short"), QString(255, 'x')}) {
        test::writeBytes(path(name), "old");
        ASSERT_EQ(::chmod(QFile::encodeName(path(name)).constData(), 0444), 0);
    }
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0777), 0);
    EXPECT_EQ(test::inChild([&] {
                  if (::geteuid() == 0 && ::setuid(65534) != 0) { // root may write everything
                      return 3;
                  }
                  return failureOf(path("short"), "new").empty()             ? 1
                         : failureOf(path(QString(255, 'x')), "new").empty() ? 2
                                                                             : 0;
              }),
              0);
    EXPECT_EQ(test::bytesOf(path("short")), "old");
    EXPECT_EQ(test::bytesOf(path(QString(255, 'x'))), "old");
}

TEST_F(FileReplacementTest, AFileOfALongNameThatMayNotBeReplacedStaysAlone) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "Only root can be two users.";
    }
    const QString name(255, 'x');
    test::writeBytes(path(name), "old");
    ASSERT_EQ(::chmod(QFile::encodeName(path(name)).constData(), 0666), 0);
    // As in /tmp, everybody may add files, and only the owner of a file may take it away.
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 01777), 0);
    EXPECT_EQ(test::inChild([&] {
                  return ::setuid(65534) == 0 && failureOf(path(name), "new") == "Operation not permitted" ? 0 : 1;
              }),
              0);
    EXPECT_EQ(test::bytesOf(path(name)), "old");
    EXPECT_EQ(files(), QStringList(name));
}

TEST_F(FileReplacementTest, AFullDiskLeavesTheOldFileOfALongName) {
    const QString name(255, 'x');
    test::writeBytes(path(name), "old");
    EXPECT_EQ(test::inChild([&] {
                  test::limitFileSize(1'000);
                  return failureOf(path(name), std::string(5'000, 'x')) == "File too large" ? 0 : 1;
              }),
              0);
    EXPECT_EQ(test::bytesOf(path(name)), "old");
    EXPECT_EQ(files(), QStringList(name));
}

} // namespace
} // namespace lexivore
