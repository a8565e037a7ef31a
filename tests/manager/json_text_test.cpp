// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/json_text.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace lexivore {
namespace {

const QByteArray objects[] = {
    "{}",
    " { } ",
    R"({"a": 1})",
    "\r\n{\r\n\t\"a\"\r\n:\t[ 1 ,\r\n2 ]\t,\"b\":null\r\n}\r\n",
    R"({"brackets": "}]{[,:", "quotes": "\"\\", "\"key\\": "\\\\", "both": {"\"}": ["]\"", {}]}})",
    R"({"deep": {"b": [[{"c": [1, {"d": {}}]}], []]}, "flat": false})",
    R"({"": 0, " ": " ", "\u0061\n": "\u00e9é"})",
    R"({"twice": 1, "once": {"twice": 2}, "twice": [3], "tw\u0069ce": -4.5e-3})",
    "\xEF\xBB\xBF{\"\xEF\xBB\xBFmark\": \"\xEF\xBB\xBF\"}",
};

TEST(MemberTexts, AreWhatTheToolkitReads) {
    for (const QByteArray &object : objects) {
        const auto texts = memberTexts(object);
        ASSERT_TRUE(texts.has_value()) << object.constData();
        QJsonObject read;
        for (auto text = texts->begin(); text != texts->end(); ++text) {
            const QJsonDocument value = readJson('[' + *text + ']');
            ASSERT_EQ(value.array().size(), 1) << text->constData();
            read.insert(text.key(), value.array().first());
        }
        EXPECT_EQ(read, readJson(object).object()) << object.constData();
    }
}

TEST(MemberTexts, StandAsTheyAreWritten) {
    const auto texts = memberTexts(" {\"a\" : [ 1,\n2 ] ,\"b\":1e0\n, \"c\": \" \\u0061\"}\n");
    EXPECT_EQ(texts, (QMap<QString, QByteArray>{{QStringLiteral("a"), "[ 1,\n2 ]"},
                                                {QStringLiteral("b"), "1e0"},
                                                {QStringLiteral("c"), "\" \\u0061\""}}));
}

TEST(MemberTexts, AreNothingWhereAnObjectIsCutOff) {
    for (const QByteArray &object : objects) {
        const QByteArray whole = object.trimmed();
        for (qsizetype length = 0; length < whole.size(); ++length) {
            EXPECT_EQ(memberTexts(whole.first(length)), std::nullopt) << whole.first(length).constData();
        }
    }
}

TEST(MemberTexts, AreNothingOfWhatIsNoObject) {
    for (const char *json : {"[]", "1", "\"{}\"", "{} {}", "{\"a\": 1} x", "{\"a\" 1}", "{\"a\":}", "{\"a\":,\"b\":1}",
                             "{a: 1}", "{1: 1}", "{: 1}", "{\"a\": 1,}", "{,}", "{\"a\": 1]", "{\"a\": [1}", "{\"\\"}) {
        EXPECT_EQ(memberTexts(json), std::nullopt) << json;
    }
}

TEST(WithoutSpace, LeavesOnlyTheParts) {
    EXPECT_EQ(withoutSpace(" {\n\t\"a b\" : [ 1e0 , \" \\\" \\\\\", \" \" ],\r\n\"\": { } } \n"),
              "{\"a b\":[1e0,\" \\\" \\\\\",\" \"],\"\":{}}");
    for (const QByteArray &object : objects) {
        EXPECT_EQ(readJson(withoutSpace(object)), readJson(object)) << object.constData();
    }
}

} // namespace
} // namespace lexivore
