// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/theme/theme.h"

#include "tests/ui/sheets/sheet_fixture.h"
#include "tests/ui/still_style.h"
#include "ui/theme/motion.h"
#include "ui/theme/style.h"
#include "ui/theme/typography.h"

#include <QAction>
#include <QCheckBox>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <QSlider>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace lexivore {
namespace {

double luminance(const QColor &colour) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// WCAG 2 contrast of two opaque colours.
double contrast(const QColor &one, const QColor &other) {
    const double a = luminance(one);
    const double b = luminance(other);
    return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
}

QColor over(const QColor &fill, const QColor &ground) {
    const double alpha = fill.alphaF();
    return QColor::fromRgbF(float(fill.redF() * alpha + ground.redF() * (1 - alpha)),
                            float(fill.greenF() * alpha + ground.greenF() * (1 - alpha)),
                            float(fill.blueF() * alpha + ground.blueF() * (1 - alpha)));
}

TEST(ThemeTest, TextCanBeReadOnEveryGroundItStandsOn) {
    for (const Theme &colours : {lightTheme(), darkTheme()}) {
        SCOPED_TRACE(colours.isDark ? "dark" : "light");
        const QList<QColor> grounds = {colours.chrome,
                                       colours.sidebar,
                                       colours.pane,
                                       colours.view,
                                       colours.raised,
                                       over(colours.rowHover, colours.pane),
                                       over(colours.operationRowHover, colours.pane),
                                       over(colours.toolHover, colours.chrome),
                                       over(colours.accentWash, colours.chrome)};
        for (const QColor &ground : grounds) {
            EXPECT_GE(contrast(colours.text, ground), 4.5);
            EXPECT_GE(contrast(colours.text2, ground), 4.5);
            EXPECT_GE(contrast(colours.accentText, ground), 4.5);
        }
        for (const QColor &ground : {colours.pane, colours.view, colours.raised, colours.field}) {
            EXPECT_GE(contrast(colours.text3, ground), 4.5);
        }
        for (const QColor &ground :
             {over(colours.rowHover, colours.pane), over(colours.operationRowHover, colours.pane)}) {
            EXPECT_GE(contrast(colours.text3, ground), 4.5);
        }
        for (const QColor &ground : {over(colours.rowHover, colours.sidebar), over(colours.toolPress, colours.chrome),
                                     colours.button, colours.buttonHover, colours.buttonPress, colours.field}) {
            EXPECT_GE(contrast(colours.text, ground), 4.5);
        }
        EXPECT_GE(contrast(colours.text, colours.selection), 4.5);
        EXPECT_GE(contrast(colours.orange, colours.pane), 3) << "the mark of a failed operation";
        for (const QColor &ground : {colours.chrome, colours.sidebar, colours.pane, colours.view, colours.raised}) {
            EXPECT_GE(contrast(colours.focus, ground), 4.5) << "the focus ring";
        }
        for (const QColor &fill : {colours.switchOff, colours.accent}) {
            EXPECT_GE(contrast(fill, colours.pane), 3) << "the switch and the drop mark";
        }
        for (const QColor &fill : {colours.accent, colours.accentHover, colours.accentPress, colours.badgeOff}) {
            EXPECT_GE(contrast(colours.onAccent, fill), 4.5);
        }
        for (const QColor &fill : {colours.danger, colours.dangerHover, colours.dangerPress}) {
            EXPECT_GE(contrast(colours.onDanger, fill), 4.5);
        }
        EXPECT_GE(contrast(colours.onToast, colours.toast), 4.5);
        for (const QColor &colour :
             {colours.blue, colours.green, colours.orange, colours.purple, colours.indigo, colours.teal}) {
            EXPECT_GE(contrast(colour, colours.raised), 4.5);
        }
    }
}

TEST(ThemeTest, IsDarkWhenTheWindowTextIsLighterThanTheWindow) {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(30, 30, 30));
    palette.setColor(QPalette::WindowText, QColor(200, 200, 200));
    EXPECT_TRUE(themeFor(palette).isDark);
    palette.setColor(QPalette::WindowText, Qt::black);
    EXPECT_FALSE(themeFor(palette).isDark);
}

TEST(ThemeTest, TheStyleTurnsTheSystemsPaletteIntoTheThemes) {
    for (const Theme *colours : {&lightTheme(), &darkTheme()}) {
        QPalette system;
        system.setColor(QPalette::Window, colours->isDark ? QColor(50, 48, 47) : QColor(239, 240, 241));
        system.setColor(QPalette::WindowText, colours->isDark ? Qt::white : Qt::black);
        Style().polish(system);
        EXPECT_EQ(system.color(QPalette::Window), colours->pane);
        EXPECT_EQ(system.color(QPalette::Text), colours->text);
        EXPECT_EQ(system.color(QPalette::Highlight), colours->selection);
        EXPECT_EQ(system.color(QPalette::Disabled, QPalette::Text), colours->textOff);
        EXPECT_EQ(&themeFor(system), colours);
    }
}

class RunningThemeTest : public SheetTest {
protected:
    static QWidget *tooltip() {
        const QWidgetList shown = QApplication::topLevelWidgets();
        const auto tip =
            std::ranges::find_if(shown, [](const QWidget *widget) { return widget->inherits("QTipLabel"); });
        return tip != shown.end() ? *tip : nullptr;
    }
};

TEST_F(RunningThemeTest, FollowsAChangeOfThePalette) {
    auto *button = new PushButton("Apply", PushButton::Kind::primary, window.centralWidget());
    button->move(700, 500);
    button->show();
    settle();
    const auto fill = [&] { return window.grab().toImage().pixelColor(button->mapTo(&window, QPoint(10, 6))); };
    EXPECT_EQ(fill(), lightTheme().accent);
    QApplication::setPalette(paletteOf(darkTheme()));
    settle();
    EXPECT_TRUE(theme().isDark);
    EXPECT_EQ(fill(), darkTheme().accent);
    QApplication::setPalette(QPalette());
    settle();
    EXPECT_EQ(fill(), lightTheme().accent);
}

TEST_F(RunningThemeTest, ATooltipThatIsShownFollowsTheTheme) {
    QToolTip::showText(QPoint(10, 10), "one", &window);
    settle();
    ASSERT_NE(tooltip(), nullptr);
    for (const Theme *colours : {&darkTheme(), &lightTheme()}) {
        QApplication::setPalette(paletteOf(*colours));
        settle();
        EXPECT_EQ(tooltip()->palette().color(QPalette::ToolTipText), colours->text);
    }
    QApplication::setPalette(QPalette());
    QToolTip::hideText();
}

TEST_F(RunningThemeTest, TooltipsAreCaptionsInTheFontOfTheMoment) {
    const QFont before = QApplication::font();
    for (const double points : {10.0, 20.0, 10.0}) {
        QFont font = before;
        font.setPointSizeF(points);
        QApplication::setFont(font);
        QToolTip::showText(QPoint(10, 10), QString::number(points), &window);
        settle();
        EXPECT_EQ(tooltip()->font().pointSizeF(), points - 1);
    }
    QApplication::setFont(before);
    QToolTip::hideText();
}

TEST_F(RunningThemeTest, RowsGrowWithTheLettersAndNeverClipThem) {
    const QFont before = QApplication::font();
    QFont font = before;
    for (const double points : {6.0, 9.0, 10.0, 11.0, 15.0, 20.0, 30.0}) {
        font.setPointSizeF(points);
        QApplication::setFont(font);
        for (const FontRole role : {FontRole::body, FontRole::caption, FontRole::headline}) {
            const int line = QFontMetrics(fontFor(role)).height();
            EXPECT_GE(heightFor(32, role), line);
            EXPECT_GE(heightFor(56, role, 2), 2 * line);
        }
    }
    font.setPointSizeF(10);
    QApplication::setFont(font);
    EXPECT_EQ(heightFor(32, FontRole::body), 32);
    EXPECT_EQ(widthFor(500), 500);
    font.setPointSizeF(20);
    QApplication::setFont(font);
    EXPECT_GT(widthFor(500), 700);
    QApplication::setFont(before);
}

TEST_F(RunningThemeTest, ScrollBarsHaveA6PixelThumbAndNoArrows) {
    QScrollBar bar(Qt::Vertical);
    bar.setRange(0, 100);
    bar.setPageStep(100);
    bar.resize(bar.sizeHint().width(), 206);
    EXPECT_EQ(bar.width(), 12);
    bar.setAttribute(Qt::WA_NoSystemBackground);
    QImage picture(bar.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    bar.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    EXPECT_EQ(picture.pixelColor(2, 50).alpha(), 0);
    EXPECT_GT(picture.pixelColor(3, 50).alpha(), 0);
    EXPECT_GT(picture.pixelColor(8, 50).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(9, 50).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(5, 150).alpha(), 0) << "no track";
}

TEST_F(RunningThemeTest, TheThumbOfAScrollBarTellsWhereAndHowMuchIsShown) {
    for (const Qt::Orientation orientation : {Qt::Vertical, Qt::Horizontal}) {
        QScrollBar bar(orientation);
        bar.setRange(0, 300);
        bar.setPageStep(100);
        const bool isUpright = orientation == Qt::Vertical;
        bar.resize(isUpright ? QSize(12, 206) : QSize(206, 12));
        bar.setAttribute(Qt::WA_NoSystemBackground);
        const auto extent = [&] {
            QImage picture(bar.size(), QImage::Format_ARGB32_Premultiplied);
            picture.fill(Qt::transparent);
            bar.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
            int first = -1;
            int last = -1;
            for (int at = 0; at < 206; ++at) {
                if (picture.pixelColor(isUpright ? QPoint(6, at) : QPoint(at, 6)).alpha() > 0) {
                    first = first < 0 ? at : first;
                    last = at;
                }
            }
            return QPoint(first, last);
        };
        EXPECT_EQ(extent(), QPoint(3, 52)) << "a quarter";
        bar.setValue(300);
        EXPECT_EQ(extent(), QPoint(153, 202));
        bar.setRange(0, 1'000'000);
        EXPECT_EQ(extent().y() - extent().x(), 23) << "never too small to be taken";
        bar.setRange(0, 0);
        EXPECT_EQ(extent(), QPoint(-1, -1)) << "everything is in sight";
    }
}

TEST_F(RunningThemeTest, AClickBesideTheThumbScrollsAPageThatWay) {
    QScrollBar bar(Qt::Vertical);
    bar.setRange(0, 300);
    bar.setPageStep(100);
    bar.resize(12, 206);
    bar.show();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, {6, 190});
    EXPECT_EQ(bar.value(), 100);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, {6, 10});
    EXPECT_EQ(bar.value(), 0);
    QTest::mousePress(&bar, Qt::LeftButton, {}, {6, 20});
    QTest::mouseMove(&bar, {6, 20 + 75});
    EXPECT_EQ(bar.value(), 150);
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, {6, 20 + 75});
}

TEST_F(RunningThemeTest, ASliderFillsItsTrackUpToItsKnobAndGoesWhereItIsClicked) {
    QSlider slider(Qt::Horizontal);
    slider.setRange(0, 10);
    slider.resize(218, 18);
    slider.show();
    const auto colourAt = [&](int x, int y) {
        QImage picture(slider.size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        slider.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
        return picture.pixelColor(x, y);
    };
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {109, 9});
    EXPECT_EQ(slider.value(), 5);
    EXPECT_EQ(colourAt(109, 9), theme().onAccent);
    EXPECT_EQ(colourAt(102, 9), theme().onAccent) << "the knob is 18 wide";
    EXPECT_EQ(colourAt(115, 9), theme().onAccent);
    for (int y = 0; y < 18; ++y) {
        const bool isTrack = y >= 7 && y < 11;
        EXPECT_EQ(colourAt(90, y), isTrack ? theme().accent : QColor(Qt::transparent)) << y;
        EXPECT_EQ(colourAt(128, y), isTrack ? theme().track : QColor(Qt::transparent)) << y;
    }
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {9 + 160, 9});
    EXPECT_EQ(slider.value(), 8);
    EXPECT_EQ(colourAt(9 + 160, 3), theme().onAccent);
    slider.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(colourAt(9 + 40, 3), theme().onAccent);
    EXPECT_EQ(colourAt(20, 9), theme().track);
    EXPECT_EQ(colourAt(200, 9), theme().accent);
    slider.setEnabled(false);
    EXPECT_NEAR(colourAt(20, 9).alphaF(), 0.5, 0.01);
}

TEST_F(RunningThemeTest, ACheckBoxIsFilledAndTickedWhenItIsOn) {
    QCheckBox box;
    box.resize(18, 18);
    const auto picture = [&] {
        QImage seen(box.size(), QImage::Format_ARGB32_Premultiplied);
        seen.fill(Qt::transparent);
        box.render(&seen, QPoint(), QRegion(), QWidget::DrawChildren);
        return seen;
    };
    const auto tickedPixels = [&] {
        int count = 0;
        for (int x = 3; x < 15; ++x) {
            for (int y = 3; y < 15; ++y) {
                count += picture().pixelColor(x, y).lightness() > 200 ? 1 : 0;
            }
        }
        return count;
    };
    EXPECT_EQ(picture().pixelColor(9, 0), theme().switchOff);
    EXPECT_EQ(picture().pixelColor(9, 9), theme().field);
    EXPECT_EQ(picture().pixelColor(17, 9), theme().switchOff);
    EXPECT_EQ(picture().pixelColor(0, 0).alpha(), 0) << "a round corner";
    box.setChecked(true);
    EXPECT_EQ(picture().pixelColor(9, 0), theme().accent);
    EXPECT_EQ(picture().pixelColor(9, 17), theme().accent);
    EXPECT_GT(tickedPixels(), 5);
    EXPECT_LT(tickedPixels(), 60);
    box.setEnabled(false);
    EXPECT_NEAR(picture().pixelColor(9, 1).alphaF(), 0.5, 0.01);
}

TEST_F(RunningThemeTest, TheMenuThatIsPointedAtStandsOutInTheMenuBar) {
    window.menuBar()->addMenu("One");
    QAction *two = window.menuBar()->addMenu("Two")->menuAction();
    settle();
    const QRect place = window.menuBar()->actionGeometry(two);
    const auto colourAt = [&](const QPoint &position) {
        return window.menuBar()->grab().toImage().pixelColor(position);
    };
    const QPoint inside(place.left() + 5, place.center().y());
    EXPECT_EQ(colourAt(inside), theme().chrome);
    QMouseEvent move(QEvent::MouseMove, QPointF(place.center()), window.menuBar()->mapToGlobal(QPointF(place.center())),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(window.menuBar(), &move);
    const QColor hovered = over(theme().toolHover, theme().chrome);
    EXPECT_NEAR(colourAt(inside).lightness(), hovered.lightness(), 2);
    EXPECT_NEAR(colourAt({place.left() + 8, place.top() + 2}).lightness(), hovered.lightness(), 2);
    EXPECT_EQ(colourAt({place.left() + 8, place.top() + 1}), theme().chrome);
    EXPECT_EQ(colourAt({place.left(), place.center().y()}), theme().chrome);
    two->menu()->addAction("Item");
    QTest::mousePress(window.menuBar(), Qt::LeftButton, {}, place.center());
    ASSERT_TRUE(two->menu()->isVisible());
    EXPECT_NEAR(colourAt(inside).lightness(), over(theme().toolPress, theme().chrome).lightness(), 2);
    two->menu()->close();
}

TEST_F(RunningThemeTest, AMenuThatIsHigherThanTheScreenScrolls) {
    QMenu menu;
    for (int item = 0; item < 200; ++item) {
        menu.addAction(QString::number(item));
    }
    menu.popup({});
    settle();
    QAction *first = menu.actions().first();
    EXPECT_LE(menu.width(), menu.actionGeometry(first).width() + 20) << "one column";
    EXPECT_LE(menu.height(), menu.screen()->geometry().height());
    const QImage picture = menu.grab().toImage();
    EXPECT_EQ(picture.pixelColor(3, menu.height() - 8), theme().raised);
    int darkest = 255;
    for (int y = menu.height() - 16; y < menu.height() - 2; ++y) {
        for (int x = 2; x < menu.width() - 2; ++x) {
            darkest = qMin(darkest, qGray(picture.pixel(x, y)));
        }
    }
    EXPECT_NEAR(darkest, qGray(theme().text2.rgb()), 80) << "the arrow";
    menu.close();
}

TEST_F(RunningThemeTest, NoItemOfAMenuIsUnderlined) {
    const auto pictureOf = [](const QString &item) {
        QMenu menu;
        menu.addAction(item);
        menu.popup({});
        settle();
        return menu.grab().toImage();
    };
    EXPECT_EQ(pictureOf("&Undo"), pictureOf("Undo"));
}

TEST_F(RunningThemeTest, TheMarkedItemOfAMenuIsARoundPieceOfTheAccent) {
    QMenu menu;
    QAction *item = menu.addAction("Undo");
    menu.addAction("Redo");
    menu.popup({});
    menu.setActiveAction(item);
    settle();
    const QRect place = menu.actionGeometry(item);
    EXPECT_EQ(place.height(), 28);
    const QImage picture = menu.grab().toImage();
    EXPECT_EQ(picture.pixelColor(place.left() + 4, place.center().y()), theme().accent);
    EXPECT_EQ(picture.pixelColor(place.topLeft()), theme().raised);
    EXPECT_EQ(picture.pixelColor(place.left() + 4, place.center().y() + 28), theme().raised) << "the other item";
    EXPECT_EQ(picture.pixelColor(0, 0), theme().border) << "the menu itself is not round";
}

TEST_F(RunningThemeTest, MovementsTakeNoTimeWhenTheStyleSaysSo) {
    StillStyle still;
    using namespace std::chrono_literals;
    QWidget widget;
    widget.setStyle(&still);
    EXPECT_EQ(motionDuration(widget, 200ms), std::chrono::milliseconds::zero());
}

} // namespace
} // namespace lexivore
