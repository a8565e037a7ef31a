// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/label.h"

#include "tests/ui/sheets/sheet_fixture.h"

#include <QImage>
#include <QTimer>

namespace lexivore {
namespace {

class LabelTest : public SheetTest {
protected:
    Label *place(Label *label) {
        label->setParent(window.centralWidget());
        label->move(40, 60);
        label->adjustSize();
        label->show();
        settle();
        return label;
    }
};

TEST_F(LabelTest, ALabelOnOneLineCutsOffAndShowsTheRestInItsToolTip) {
    auto *label = place(new Label("<b>two\nlines</b>", FontRole::body));
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_TRUE(label->toolTip().isEmpty());
    label->resize(40, label->height());
    settle();
    EXPECT_EQ(label->toolTip(), plainToolTip("<b>two\nlines</b>"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name), "<b>two\nlines</b>");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Description), "<b>two\nlines</b>")
        << "not the markup of the tooltip";
    EXPECT_EQ(label->sizeHint().height(), lineHeightFor(FontRole::body));
}

TEST_F(LabelTest, ALabelShowsItsTextWholeOrElseInItsToolTipHoweverItsLettersAreMeasured) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSizeF(10.3);
    font.setHintingPreference(QFont::PreferNoHinting); // letters of part of a pixel
    QApplication::setFont(font);
    for (const auto lines : {Label::Lines::one, Label::Lines::shrunk}) {
        auto *label = place(new Label("1,283,764|", FontRole::cardValue, &Theme::text, lines));
        for (int width = label->sizeHint().width() + 4; width > 30; --width) {
            label->resize(width, label->height());
            const QImage picture = label->grab().toImage();
            const auto inkAt = [&](int x) {
                int ink = 0;
                for (int y = 0; y < picture.height(); ++y) {
                    ink += picture.pixel(x, y) != picture.pixel(0, 0) ? 1 : 0;
                }
                return ink;
            };
            int last = picture.width() - 1;
            while (last > 4 && inkAt(last) == 0) {
                --last;
            }
            bool endsWithTheBar = false; // and not with an ellipsis
            for (int x = last - 4; x <= last; ++x) {
                endsWithTheBar = endsWithTheBar || inkAt(x) > 10;
            }
            EXPECT_EQ(label->toolTip().isEmpty(), endsWithTheBar) << width;
        }
        label->hide();
    }
    QApplication::setFont(before);
}

TEST_F(LabelTest, ALabelFollowsTheFontOfTheRunningProgram) {
    auto *label = place(new Label("Multiple", FontRole::body));
    label->resize(label->sizeHint());
    const QFont before = QApplication::font();
    QTimer::singleShot(0, label, [&] {
        QFont font = before;
        font.setPointSizeF(20);
        QApplication::setFont(font);
        settle();
        EXPECT_EQ(label->font().pointSizeF(), 20);
        EXPECT_GT(label->sizeHint().width(), label->width());
        EXPECT_EQ(label->toolTip(), plainToolTip("Multiple")) << "it is cut off now";
        QApplication::setFont(before);
        settle();
        EXPECT_TRUE(label->toolTip().isEmpty());
        QApplication::exit();
    });
    QApplication::exec();
}

TEST_F(LabelTest, ALabelGivesItsHelpWhileNothingIsCutOff) {
    auto *label = place(new Label("Multiple", FontRole::body));
    label->setHelp("a stack");
    label->resize(200, label->height());
    settle();
    EXPECT_EQ(label->toolTip(), "a stack");
    label->resize(20, label->height());
    settle();
    EXPECT_EQ(label->toolTip(), plainToolTip("Multiple"));
    label->resize(200, label->height());
    settle();
    EXPECT_EQ(label->toolTip(), "a stack");
}

TEST_F(LabelTest, ALabelThatRunsFromRightToLeftIsCutOffAtItsLeft) {
    auto *label = place(new Label(QString::fromUtf8("שלום שלום שלום שלום שלום"), FontRole::body));
    label->resize(100, 24);
    const QImage picture = label->grab().toImage();
    const QRgb background = picture.pixel(0, 0);
    const auto inkRows = [&](int x) {
        int rows = 0;
        for (int y = 0; y < picture.height(); ++y) {
            rows += picture.pixel(x, y) != background ? 1 : 0;
        }
        return rows;
    };
    int first = 0;
    while (first < picture.width() && inkRows(first) == 0) {
        ++first;
    }
    for (int x = first; x < first + 5; ++x) {
        EXPECT_LE(inkRows(x), 4) << "the ellipsis, at " << x;
    }
}

TEST_F(LabelTest, AWrappedLabelBreaksWordsThatDoNotFit) {
    const Label label(QString(200, 'x'), FontRole::subheadline, &Theme::text2, Label::Lines::wrapped);
    EXPECT_TRUE(label.hasHeightForWidth());
    EXPECT_GT(label.heightForWidth(100), label.heightForWidth(1000));
    EXPECT_EQ(label.heightForWidth(100'000), lineHeightFor(FontRole::subheadline));
    const Label lines("a\nb\nc", FontRole::subheadline, &Theme::text2, Label::Lines::wrapped);
    EXPECT_EQ(lines.heightForWidth(1000), 3 * lineHeightFor(FontRole::subheadline));
}

} // namespace
} // namespace lexivore
