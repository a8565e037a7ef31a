// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/text_conversion.h"

#include <gtest/gtest.h>

#include <string_view>

namespace lexivore {
namespace {

TEST(TextConversion, GivesBackWhateverIsAText) {
    using namespace std::string_view_literals;
    for (const std::string_view text :
         {""sv, "a\0b"sv, "\uFEFFa\uFEFF"sv, "a\r\n\u2028\r"sv, "e\u0301 \U0001F469\u200D\U0001F467"sv}) {
        EXPECT_EQ(toUtf8(toQString(text)), text);
    }
}

TEST(TextConversion, ReplacesWhatIsNoTextAlsoAtTheEnd) {
    EXPECT_EQ(toQString("a\xFFz"), QString::fromUtf16(u"a\uFFFDz"));
    EXPECT_EQ(toQString("a\xFF"), QString::fromUtf16(u"a\uFFFD"));
    EXPECT_EQ(toQString("a\xC3"), QString::fromUtf16(u"a\uFFFD"));
    const QChar halfOfAPair(0xD83D);
    const QChar otherHalf(0xDC69);
    EXPECT_EQ(toUtf8(QString("a") + halfOfAPair + "z"), "a\uFFFDz");
    EXPECT_EQ(toUtf8(QString("a") + otherHalf), "a\uFFFD");
    EXPECT_EQ(toUtf8(QString("a") + halfOfAPair), "a\uFFFD");
}

} // namespace
} // namespace lexivore
