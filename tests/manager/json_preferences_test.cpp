// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/manager/json_preferences_fixture.h"

#include <QFile>

namespace lexivore {
namespace {

class JsonPreferencesTest : public JsonPreferencesFixture {};

TEST_F(JsonPreferencesTest, LivesInTheUsersConfigurationFolder) {
    qputenv("XDG_CONFIG_HOME", "/somewhere/config");
    EXPECT_EQ(JsonPreferences::defaultPath().toStdString(), "/somewhere/config/lexivore/preferences.json");
    qunsetenv("XDG_CONFIG_HOME");
}

TEST_F(JsonPreferencesTest, ReadingMakesNoFile) {
    const JsonPreferences preferences(path());
    EXPECT_FALSE(preferences.value(QStringLiteral("favorites")).isValid());
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(QStringLiteral("lexivore"))));
}

TEST_F(JsonPreferencesTest, EveryTypeOutlivesTheProgram) {
    const QByteArray recipes = R"([{"a":1.5,"b":[true,null,"x"]}])";
    const QByteArray binary("\0\xFF not text", 11);
    EXPECT_EQ(
        elsewhere([&](JsonPreferences &preferences) {
            preferences.setValue(QStringLiteral("favorites"), QStringList{QStringLiteral("b"), QStringLiteral("a")});
            preferences.setValue(QStringLiteral("none"), QStringList());
            preferences.setValue(QStringLiteral("mixed"), QVariantList{QStringLiteral("a"), 5});
            preferences.setValue(QStringLiteral("recipes"), recipes);
            preferences.setValue(QStringLiteral("binary"), binary);
            preferences.setValue(QStringLiteral("empty data"), QByteArray());
            preferences.setValue(QStringLiteral("editorFontSize"), 13.5);
            preferences.setValue(QStringLiteral("whole"), 14.0);
            preferences.setValue(QStringLiteral("hasText"), true);
            preferences.setValue(QStringLiteral("text"), QStringLiteral("true"));
            return preferences.isStored() ? 0 : 1;
        }),
        0);
    EXPECT_EQ(files(), QStringList{QStringLiteral("preferences.json")});

    const JsonPreferences preferences(path());
    const auto value = [&](const char *key) { return preferences.value(QLatin1String(key)); };
    EXPECT_EQ(value("favorites"), QVariant(QVariantList{QStringLiteral("b"), QStringLiteral("a")}));
    EXPECT_EQ(value("none"), QVariant(QVariantList()));
    EXPECT_FALSE(value("missing").isValid());
    ASSERT_EQ(value("mixed").toList().size(), 2);
    EXPECT_EQ(value("mixed").toList()[0].typeId(), QMetaType::QString);
    EXPECT_EQ(value("mixed").toList()[1].typeId(), QMetaType::LongLong);
    EXPECT_EQ(value("recipes"), QVariant(recipes));
    EXPECT_EQ(value("recipes").typeId(), QMetaType::QByteArray);
    EXPECT_EQ(value("binary"), QVariant(binary));
    EXPECT_EQ(value("empty data"), QVariant(QByteArray("")));
    EXPECT_EQ(value("editorFontSize"), QVariant(13.5));
    EXPECT_EQ(value("whole").toDouble(), 14.0);
    EXPECT_EQ(value("hasText"), QVariant(true));
    EXPECT_EQ(value("text"), QVariant(QStringLiteral("true")));
}

TEST_F(JsonPreferencesTest, AValueHasTheTypeThatItWillHaveAfterARestart) {
    JsonPreferences preferences(path());
    preferences.setValue(QStringLiteral("list"), QStringList{QStringLiteral("a")});
    preferences.setValue(QStringLiteral("whole"), 14.0);
    EXPECT_EQ(preferences.value(QStringLiteral("list")).typeId(), QMetaType::QVariantList);
    EXPECT_EQ(preferences.value(QStringLiteral("whole")).typeId(), QMetaType::LongLong);
}

TEST_F(JsonPreferencesTest, TheFileCanBeReadByPeople) {
    JsonPreferences preferences(path());
    preferences.setValue(QStringLiteral("favorites"), QStringList{QStringLiteral("trim-lines")});
    preferences.setValue(QStringLiteral("recipes"), QByteArray(R"([{"name":"é"}])"));
    preferences.setValue(QStringLiteral("x"), QByteArray("no json"));
    EXPECT_EQ(test::bytesOf(path()).toStdString(), R"({
    "favorites": [
        "trim-lines"
    ],
    "recipes": {
        "json": [
            {
                "name": "é"
            }
        ]
    },
    "x": {
        "base64": "bm8ganNvbg=="
    }
}
)");
}

TEST_F(JsonPreferencesTest, KeepsAByteOrderMarkAtTheFrontOfATextHoweverItIsWritten) {
    const QString marked(QStringLiteral("\uFEFFbase64"));
    const QVariantMap read{{QStringLiteral("map"), QVariantMap{{marked, marked}}}};
    EXPECT_EQ(test::decodePreferences("{\"map\": {\"\uFEFFbase64\": \"\uFEFFbase64\"}}"), read);
    EXPECT_EQ(test::decodePreferences("\uFEFF{\"map\": {\"\uFEFFbase64\": \"\\ufeffbase64\"}}"), read);
    EXPECT_EQ(test::decodePreferences(test::encodePreferences(read)), read);
    for (const char *data : {"[\"\uFEFF\"]", "[\"\\ufeff\"]"}) {
        const QVariantMap stored{{QStringLiteral("recipes"), QByteArray(data)}};
        EXPECT_EQ(test::decodePreferences(test::encodePreferences(stored)), stored) << data;
    }
}

TEST_F(JsonPreferencesTest, KeepsWhatItDoesNotKnow) {
    put(R"({"later/version": {"a": [1, {"b": null}], "c": 1e300}, "": 5, "/a//b": 1,
            "base": {"base64": "!"}, "json": {"json": 1}})");
    const QVariantMap before = onDisk();
    EXPECT_EQ(elsewhere([](JsonPreferences &preferences) {
                  preferences.setValue(QStringLiteral("hasText"), true);
                  return preferences.isStored() ? 0 : 1;
              }),
              0);
    QVariantMap after = onDisk();
    EXPECT_EQ(after.take(QStringLiteral("hasText")), QVariant(true));
    EXPECT_EQ(after, before);
    EXPECT_EQ(files(), QStringList{QStringLiteral("preferences.json")});
}

TEST_F(JsonPreferencesTest, LeavesTheOtherValuesAsTheyAreWritten) {
    put("{\"list\":[1,2,\r\n 3], \"map\" : {\"x\" : 1e0}, \"hasText\":  false}");
    JsonPreferences preferences(path());
    preferences.setValue(QStringLiteral("hasText"), true);
    EXPECT_EQ(test::bytesOf(path()).toStdString(), "{\n"
                                                   "    \"hasText\": true,\n"
                                                   "    \"list\": [1,2,\r\n 3],\n"
                                                   "    \"map\": {\"x\" : 1e0}\n"
                                                   "}\n");
}

TEST_F(JsonPreferencesTest, TakesNothingForDataThatHasMoreToSay) {
    const QVariantMap list{{QStringLiteral("json"), QVariantList()}, {QStringLiteral("more"), 1}};
    const QVariantMap text{{QStringLiteral("base64"), QStringLiteral("bm8=")}, {QStringLiteral("more"), 1}};
    EXPECT_EQ(test::decodePreferences(R"({"list": {"json": [], "more": 1}, "text": {"base64": "bm8=", "more": 1}})"),
              (QVariantMap{{QStringLiteral("list"), list}, {QStringLiteral("text"), text}}));
}

TEST_F(JsonPreferencesTest, SeesAndKeepsTheOtherCopysChanges) {
    JsonPreferences preferences(path());
    preferences.setValue(QStringLiteral("mine"), 1);
    EXPECT_EQ(elsewhere([](JsonPreferences &other) {
                  other.setValue(QStringLiteral("theirs"), 1);
                  return 0;
              }),
              0);
    preferences.setValue(QStringLiteral("mine"), 2);
    EXPECT_EQ(preferences.value(QStringLiteral("theirs")), QVariant(1));
    EXPECT_EQ(onDisk(), (QVariantMap{{QStringLiteral("mine"), 2LL}, {QStringLiteral("theirs"), 1LL}}));
}

TEST_F(JsonPreferencesTest, LeavesTheOtherCopysLaterChangeOfTheSameValue) {
    JsonPreferences preferences(path());
    preferences.setValue(QStringLiteral("shared"), 1);
    EXPECT_EQ(elsewhere([](JsonPreferences &other) {
                  other.setValue(QStringLiteral("shared"), 2);
                  return 0;
              }),
              0);
    preferences.setValue(QStringLiteral("mine"), 1);
    EXPECT_EQ(preferences.value(QStringLiteral("shared")), QVariant(2));
    EXPECT_EQ(onDisk(), (QVariantMap{{QStringLiteral("mine"), 1LL}, {QStringLiteral("shared"), 2LL}}));
}

TEST_F(JsonPreferencesTest, NoTwoVersionsOfTheFileHaveTheSameTime) {
    JsonPreferences preferences(path());
    QDateTime last;
    for (int i = 0; i < 50; ++i) {
        preferences.setValue(QStringLiteral("digit"), i % 10);
        const QDateTime time = QFileInfo(path()).lastModified();
        EXPECT_TRUE(!last.isValid() || time > last);
        last = time;
    }
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime future = QDateTime::currentDateTime().addDays(1); // the clock was wrong once
    ASSERT_TRUE(file.setFileTime(future, QFileDevice::FileModificationTime));
    file.close();
    preferences.setValue(QStringLiteral("digit"), 1);
    EXPECT_GT(QFileInfo(path()).lastModified(), future);
}

} // namespace
} // namespace lexivore
