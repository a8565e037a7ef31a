// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/editor_settings_sheet.h"

#include "tests/ui/sheets/sheet_fixture.h"

#include <QSlider>

namespace lexivore {
namespace {

class EditorSettingsSheetTest : public SheetTest {
protected:
    EditorSettingsSheet *open(double points) {
        return show(new EditorSettingsSheet(points, [this](double size) { sizes << size; }));
    }
    QSlider *slider() const { return find<QSlider>("fontSize"); }
    QLabel *value() const { return find<QLabel>("fontSizeValue"); }
    QLabel *preview() const { return find<QLabel>("preview"); }

    QList<double> sizes;
};

TEST_F(EditorSettingsSheetTest, ShowsTheSizeAndAPreviewInIt) {
    const EditorSettingsSheet *sheet = open(13);
    EXPECT_EQ(sheet->width(), 420);
    const QStringList texts = labelsIn(*sheet);
    EXPECT_EQ(QSet<QString>(texts.begin(), texts.end()),
              (QSet<QString>{"Editor Settings", "Font Size:", "13", "Preview",
                             "The quick brown fox jumps over the lazy dog"}));
    EXPECT_EQ(preview()->font().pointSizeF(), 13);
    EXPECT_EQ(slider()->accessibleName(), "Font Size");
    EXPECT_TRUE(sizes.isEmpty());
}

TEST_F(EditorSettingsSheetTest, GoesFrom9To24InWholePointsAndFollowsTheKeys) {
    open(13);
    slider()->setFocus();
    press(Qt::Key_Home);
    EXPECT_EQ(value()->text(), "9");
    press(Qt::Key_Right);
    EXPECT_EQ(value()->text(), "10");
    EXPECT_EQ(preview()->font().pointSizeF(), 10);
    press(Qt::Key_End);
    EXPECT_EQ(value()->text(), "24");
    EXPECT_EQ(preview()->font().pointSizeF(), 24);
    EXPECT_EQ(sizes, (QList<double>{9, 10, 24}));
}

TEST_F(EditorSettingsSheetTest, HasRoomForTwoDigitsInLargeLetters) {
    QFont font = QApplication::font();
    font.setPointSizeF(20);
    QApplication::setFont(font);
    open(9);
    slider()->setFocus();
    press(Qt::Key_End);
    EXPECT_EQ(value()->text(), "24");
    EXPECT_GE(value()->width(), value()->sizeHint().width());
}

TEST_F(EditorSettingsSheetTest, FollowsThePointerWhileItMovesAndSnapsToWholePoints) {
    open(9);
    const int y = slider()->height() / 2;
    QTest::mousePress(slider(), Qt::LeftButton, {}, QPoint(9, y));
    for (int x = 9; x < slider()->width(); x += 3) {
        QTest::mouseMove(slider(), QPoint(x, y));
    }
    QTest::mouseMove(slider(), QPoint(slider()->width() - 1, y));
    EXPECT_EQ(value()->text(), "24");
    QTest::mouseRelease(slider(), Qt::LeftButton, {}, QPoint(slider()->width() - 1, y));
    EXPECT_EQ(sizes.size(), 15) << "each size from 10 to 24 once";
    for (const double size : sizes) {
        EXPECT_EQ(size, int(size));
    }
}

TEST_F(EditorSettingsSheetTest, ClampsAStoredSizeForTheSliderAlone) {
    open(72);
    EXPECT_EQ(slider()->value(), 24);
    EXPECT_EQ(value()->text(), "72");
    EXPECT_EQ(preview()->font().pointSizeF(), 72);
    EXPECT_TRUE(sizes.isEmpty()) << "the editor keeps its size until the slider moves";
    press(Qt::Key_Escape);
    open(3.5);
    EXPECT_EQ(slider()->value(), 9);
    EXPECT_EQ(value()->text(), "3");
    EXPECT_TRUE(sizes.isEmpty());
}

TEST_F(EditorSettingsSheetTest, ClosesByDoneReturnAndEscape) {
    open(13);
    EXPECT_EQ(find("done")->text(), "Done");
    click(find("done"));
    EXPECT_FALSE(isOpen());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        open(13);
        press(key);
        EXPECT_FALSE(isOpen());
    }
}

TEST_F(EditorSettingsSheetTest, KeepsTheWidthsOfLabelAndValue) {
    open(13);
    const int left = slider()->mapTo(window.findChild<Sheet *>(), QPoint()).x();
    EXPECT_EQ(left, 1 + 20 + 100);
    EXPECT_EQ(420 - 1 - 20 - 30 - left, slider()->width());
}

} // namespace
} // namespace lexivore
