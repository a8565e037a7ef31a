// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/recipe_file.h"

#include "manager/recipe_json.h"
#include "tests/support/files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <limits>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace lexivore {
namespace {

class RecipeFileTest : public testing::Test {
protected:
    QString path(const char *name) const { return folder.filePath(QLatin1String(name)); }
    std::string problemOfReading(const QString &file) {
        QString why;
        EXPECT_FALSE(RecipeFile::read(file, why).has_value());
        return why.toStdString();
    }

    QTemporaryDir folder;
    QString problem;
};

TEST_F(RecipeFileTest, GivesBackWhatWasWritten) {
    const std::vector<Recipe> recipes = makeRecipeTemplates();
    ASSERT_TRUE(RecipeFile::write(path("recipes.json"), recipes, problem));
    EXPECT_EQ(test::bytesOf(path("recipes.json")), *RecipeJson::encode(recipes, QJsonDocument::Indented));
    const auto read = RecipeFile::read(path("recipes.json"), problem);
    ASSERT_TRUE(read.has_value());
    ASSERT_EQ(read->size(), recipes.size());
    for (std::size_t i = 0; i < recipes.size(); ++i) {
        EXPECT_TRUE(haveSameFields(read->at(i), recipes[i]));
    }
    EXPECT_EQ(problem, QString());
}

TEST_F(RecipeFileTest, TakesAByteOrderMark) {
    test::writeBytes(path("recipes.json"), "\xEF\xBB\xBF[]");
    EXPECT_TRUE(RecipeFile::read(path("recipes.json"), problem).has_value());
}

TEST_F(RecipeFileTest, SaysWhyAFileCannotBeRead) {
    const std::string start = "No recipes could be read from “";
    EXPECT_EQ(problemOfReading(path("none.json")),
              start + path("none.json").toStdString() + "”: No such file or directory");
    EXPECT_EQ(problemOfReading(folder.path()), start + folder.path().toStdString() + "”: It is not a file.");
    EXPECT_EQ(problemOfReading(QStringLiteral("/dev/zero")), start + "/dev/zero”: It is not a file.");
    test::writeBytes(path("text.json"), "{}");
    EXPECT_EQ(problemOfReading(path("text.json")),
              start + path("text.json").toStdString() + "”: It is not a list of recipes.");

    // It opens, and its first bytes cannot be read.
    EXPECT_EQ(problemOfReading(QStringLiteral("/proc/self/mem")), start + "/proc/self/mem”: Input/output error");

    QFile huge(path("huge.json"));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
    ASSERT_TRUE(huge.resize(qint64(65) * 1024 * 1024));
    EXPECT_EQ(problemOfReading(path("huge.json")),
              start + path("huge.json").toStdString() + "”: It is too large to be a list of recipes.");
}

TEST_F(RecipeFileTest, AFailedWriteLeavesTheOldFileAndSaysWhy) {
    test::writeBytes(path("recipes.json"), "the old file");
    EXPECT_EQ(test::inChild([&] {
                  test::limitFileSize(100);
                  QString why;
                  if (RecipeFile::write(path("recipes.json"), makeRecipeTemplates(), why)) {
                      return 1;
                  }
                  return why == QStringLiteral("The recipes could not be written to “%1”: File too large")
                                     .arg(path("recipes.json"))
                             ? 0
                             : 2;
              }),
              0);
    EXPECT_EQ(test::bytesOf(path("recipes.json")), "the old file");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("recipes.json")});

    EXPECT_FALSE(RecipeFile::write(path("no/such/folder.json"), {}, problem));
    EXPECT_NE(problem, QString());
    // No device of the machine: whoever runs this as root would lose it to a mistake.
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    EXPECT_FALSE(RecipeFile::write(path("pipe"), {}, problem));
    EXPECT_EQ(problem, QStringLiteral("The recipes could not be written to “%1”: It is not a file.").arg(path("pipe")));
}

TEST_F(RecipeFileTest, AReplacedFileKeepsItsGroup) {
    test::writeBytes(path("recipes.json"), "the old file");
    constexpr uint group = 5000;
    if (::chown(QFile::encodeName(path("recipes.json")).constData(), static_cast<uid_t>(-1), group) != 0) {
        GTEST_SKIP() << "Only root can give a file to any group.";
    }
    EXPECT_TRUE(RecipeFile::write(path("recipes.json"), makeRecipeTemplates(), problem));
    EXPECT_EQ(QFileInfo(path("recipes.json")).groupId(), group);
}

TEST_F(RecipeFileTest, ARecipeWithoutAValidTimeIsNotWritten) {
    test::writeBytes(path("recipes.json"), "the old file");
    std::vector<Recipe> recipes = makeRecipeTemplates();
    recipes.back().createdAt.secondsSinceReferenceDate = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(RecipeFile::write(path("recipes.json"), recipes, problem));
    EXPECT_EQ(problem.toStdString(), "The recipes could not be written to “" + path("recipes.json").toStdString() +
                                         "”: One of them has no valid time.");
    EXPECT_EQ(test::bytesOf(path("recipes.json")), "the old file");
}

} // namespace
} // namespace lexivore
