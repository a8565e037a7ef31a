// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/sheets/sheet_fixture.h"
#include "ui/theme/theme.h"

#include <QAction>
#include <QImage>
#include <QMenu>

#include <cstdlib>

namespace lexivore {
namespace {

/// Pictures of menus that are open.
class MenuTest : public SheetTest {
protected:
    void TearDown() override { menu.close(); }

    [[nodiscard]] QImage picture() {
        menu.popup({});
        settle();
        return menu.grab().toImage();
    }
    [[nodiscard]] QRect place(QAction *item) const { return menu.actionGeometry(item); }
    /// The last pixels of the item, where a shortcut or the arrow of a submenu stands.
    [[nodiscard]] QRect end(QAction *item) const { return place(item).adjusted(place(item).width() - 24, 0, -3, 0); }

    /// Where the area differs from its ground.
    static QRect inkIn(const QImage &picture, const QRect &area, const QColor &ground) {
        QRect ink;
        for (int y = area.top() + 4; y <= area.bottom() - 4; ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                ink |= distance(picture.pixelColor(x, y), ground) > 60 ? QRect(x, y, 1, 1) : QRect();
            }
        }
        return ink;
    }
    /// The colour that stands out most from the ground.
    static QColor colourOfInk(const QImage &picture, const QRect &area, const QColor &ground) {
        QColor found = ground;
        for (int y = area.top() + 4; y <= area.bottom() - 4; ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                const QColor colour = picture.pixelColor(x, y);
                found = distance(colour, ground) > distance(found, ground) ? colour : found;
            }
        }
        return found;
    }
    static int distance(const QColor &one, const QColor &other) {
        return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
               std::abs(one.blue() - other.blue());
    }
    static void expectNear(const QColor &seen, const QColor &expected) {
        EXPECT_LT(distance(seen, expected), 60)
            << seen.name().toStdString() << " for " << expected.name().toStdString();
    }

    QMenu menu;
};

TEST_F(MenuTest, TheItemOfTheMomentHasTheAccentWithRoundCorners) {
    QAction *first = menu.addAction("MMM\tCtrl+M");
    QAction *second = menu.addAction("MMM\tCtrl+M");
    QAction *off = menu.addAction("MMM\tCtrl+M");
    off->setEnabled(false);
    menu.setActiveAction(first);
    const QImage seen = picture();
    EXPECT_EQ(place(first).height(), 28);
    EXPECT_EQ(seen.pixelColor(place(first).topLeft() + QPoint(3, 14)), theme().accent);
    EXPECT_EQ(seen.pixelColor(place(first).topLeft() + QPoint(8, 0)), theme().accent);
    EXPECT_EQ(seen.pixelColor(place(first).topLeft()), theme().raised);
    EXPECT_EQ(seen.pixelColor(place(second).topLeft() + QPoint(3, 14)), theme().raised);
    const auto left = [&](QAction *item) { return place(item).adjusted(8, 0, -place(item).width() + 40, 0); };
    expectNear(colourOfInk(seen, left(first), theme().accent), theme().onAccent);
    expectNear(colourOfInk(seen, end(first), theme().accent), theme().onAccent);
    expectNear(colourOfInk(seen, left(second), theme().raised), theme().text);
    expectNear(colourOfInk(seen, end(second), theme().raised), theme().text2);
    expectNear(colourOfInk(seen, left(off), theme().raised), theme().textOff);
    expectNear(colourOfInk(seen, end(off), theme().raised), theme().textOff);
}

TEST_F(MenuTest, TicksAndSymbolsHaveColumnsBeforeTheNames) {
    QAction *plain = menu.addAction("MMM");
    const int plainLeft = inkIn(picture(), place(plain), theme().raised).left();
    menu.close();
    plain->setCheckable(true);
    QAction *checked = menu.addAction("MMM");
    checked->setCheckable(true);
    checked->setChecked(true);
    QImage seen = picture();
    EXPECT_EQ(inkIn(seen, place(plain), theme().raised).left(), plainLeft + 22);
    const QRect tick = inkIn(seen, place(checked).adjusted(0, 0, -place(checked).width() + 30, 0), theme().raised);
    EXPECT_NEAR(tick.center().x(), place(checked).x() + 6 + 11, 1);
    EXPECT_NEAR(tick.center().y(), place(checked).center().y(), 1);
    EXPECT_LT(colourOfInk(seen, tick.adjusted(0, -4, 0, 4), theme().raised).lightness(), theme().textOff.lightness());
    menu.close();
    QPixmap symbol(18, 18);
    symbol.fill(theme().teal);
    checked->setIcon(symbol);
    seen = picture();
    EXPECT_EQ(inkIn(seen, place(plain), theme().raised).left(), plainLeft + 22 + 28);
    const QPoint middle(place(checked).x() + 10 + 22 + 9, place(checked).center().y());
    EXPECT_EQ(seen.pixelColor(middle - QPoint(6, 6)), theme().teal);
    EXPECT_EQ(seen.pixelColor(middle + QPoint(6, 6)), theme().teal);
    EXPECT_EQ(seen.pixelColor(middle - QPoint(12, 0)), theme().raised);
    menu.close();
    menu.setLayoutDirection(Qt::RightToLeft);
    seen = picture();
    EXPECT_EQ(seen.pixelColor(menu.width() - 1 - middle.x(), middle.y()), theme().teal);
}

TEST_F(MenuTest, ASubmenuHasAnArrowAtTheEnd) {
    QAction *plain = menu.addAction("Plain");
    QAction *deeper = menu.addMenu("Deeper")->menuAction();
    const QImage seen = picture();
    const QRect arrow = inkIn(seen, end(deeper), theme().raised);
    EXPECT_NEAR(arrow.center().x(), place(deeper).right() - 10, 1);
    EXPECT_NEAR(arrow.center().y(), place(deeper).center().y(), 1);
    EXPECT_TRUE(inkIn(seen, end(plain), theme().raised).isEmpty());
}

TEST_F(MenuTest, GroupsStandUnderCaptionsAndBetweenLines) {
    QAction *caption = menu.addSection("MMM");
    menu.addAction("One");
    QAction *line = menu.addSeparator();
    menu.addAction("Two");
    menu.setActiveAction(caption);
    const QImage seen = picture();
    expectNear(colourOfInk(seen, place(caption), theme().raised), theme().text2);
    EXPECT_NEAR(inkIn(seen, place(caption), theme().raised).left(), place(caption).left() + 10, 2);
    EXPECT_EQ(place(line).height(), 9);
    for (int y = place(line).top(); y <= place(line).bottom(); ++y) {
        const bool isMiddle = y == place(line).center().y();
        EXPECT_EQ(seen.pixelColor(menu.width() / 2, y), isMiddle ? theme().border : theme().raised);
    }
}

} // namespace
} // namespace lexivore
