// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/visible_text.h"

#include <gtest/gtest.h>

namespace lexivore {
namespace {

TEST(VisibleText, ShowsPicturesForControlsAndMarksSpacesUnitForUnit) {
    struct Case {
        char16_t given;
        char16_t shown;
        std::optional<QuietMark> mark;
    };
    for (const Case &row :
         {Case{u'a', u'a', {}}, Case{u'\t', u'\t', {}}, Case{u' ', u' ', {}}, Case{0x0000, 0x2400, QuietMark::picture},
          Case{0x001B, 0x241B, QuietMark::picture}, Case{0x007F, 0x2421, QuietMark::picture},
          Case{0x0091, 0x2426, QuietMark::picture}, Case{0x00A0, 0x00A0, QuietMark::wideSpace},
          Case{0x2003, 0x2003, QuietMark::wideSpace}, Case{0x3000, 0x3000, QuietMark::wideSpace},
          Case{0x00AD, 0x00AD, QuietMark::noWidth}, Case{0x200B, 0x200B, QuietMark::noWidth},
          Case{0xFEFF, 0xFEFF, QuietMark::noWidth}, Case{0x202E, 0x202E, QuietMark::noWidth},
          Case{0xFFFC, 0xFFFC, QuietMark::noWidth}, Case{0x200D, 0x200D, {}}}) {
        std::vector<QuietUnit> marks;
        const QString shown = visibleText(QString(u'x') + QChar(row.given) + u'y', marks);
        EXPECT_EQ(shown, QString(u'x') + QChar(row.shown) + u'y') << int{row.given};
        ASSERT_EQ(marks.size(), row.mark ? 1U : 0U) << int{row.given};
        if (row.mark) {
            EXPECT_EQ(marks[0].unit, 1);
            EXPECT_EQ(marks[0].mark, *row.mark) << int{row.given};
        }
    }
}

TEST(VisibleText, ShowsLineBreaksOtherThanTheOrdinaryOnes) {
    EXPECT_TRUE(visibleTerminator("\n").isEmpty());
    EXPECT_TRUE(visibleTerminator("\r\n").isEmpty());
    EXPECT_TRUE(visibleTerminator("").isEmpty());
    for (const char *terminator : {"\r", "\v", "\f", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"}) {
        EXPECT_EQ(visibleTerminator(terminator).size(), 1) << terminator;
    }
}

} // namespace
} // namespace lexivore
