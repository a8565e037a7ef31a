// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/still_style.h"
#include "tests/ui/window/window_fixture.h"
#include "ui/theme/theme.h"
#include "ui/window/category_button.h"
#include "ui/window/hover_reveal.h"
#include "ui/window/section_header.h"
#include "ui/window/star_button.h"
#include "ui/window/transformation_button.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTimer>

#include <chrono>
#include <cstdlib>
#include <utility>

namespace lexivore {
namespace {

using namespace std::chrono_literals;

/// The rows of the two left columns: how they look and what the mouse does on them.
class ListRows : public WindowTest {
protected:
    [[nodiscard]] TransformationButton *row(const QString &id) {
        return find<TransformationButton>("transformation." + id);
    }
    [[nodiscard]] StarButton *star(const QString &id) { return row(id)->findChild<StarButton *>("star"); }
    static QColor pixel(QWidget *widget, QPoint position) { return pictureOf(widget).pixelColor(position); }
    /// Near the left edge, where nothing else is drawn.
    static QColor background(QWidget *widget) { return pixel(widget, {5, widget->height() / 2}); }
    static void enter(QWidget *widget) {
        QEnterEvent event(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QApplication::sendEvent(widget, &event);
    }
    static void leave(QWidget *widget) {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(widget, &event);
    }
};

TEST_F(ListRows, TheCategoriesStandInTheirOrderFavoritesFirst) {
    QStringList names;
    std::vector<CategoryButton *> rows;
    for (auto *button : find("categories")->findChildren<CategoryButton *>()) {
        rows.push_back(button);
    }
    std::sort(rows.begin(), rows.end(), [](const auto *a, const auto *b) { return a->y() < b->y(); });
    for (const CategoryButton *button : rows) {
        names << button->text();
    }
    EXPECT_EQ(names, (QStringList{"Favorites", "Case Conversion", "Add & Remove", "Lines", "Sorting", "Find & Replace",
                                  "Encoding"}));
}

TEST_F(ListRows, ACategoryIsFilledWhenSelectedAndTintedWhileHovered) {
    auto *lines = find<CategoryButton>("category.Lines");
    EXPECT_EQ(background(lines).alpha(), 0);
    enter(lines);
    EXPECT_NEAR(background(lines).alphaF(), 0.1, 0.01);
    EXPECT_NEAR(background(lines).hueF(), theme().accent.hueF(), 0.05);
    leave(lines);
    EXPECT_EQ(background(lines).alpha(), 0);
    QTest::mousePress(lines, Qt::LeftButton);
    EXPECT_NEAR(background(lines).alphaF(), 0.2, 0.01);
    QTest::mouseRelease(lines, Qt::LeftButton);
    EXPECT_EQ(background(lines), theme().accent);
    EXPECT_EQ(background(find("category.Case Conversion")).alpha(), 0);
}

TEST_F(ListRows, ATransformationIsTintedWhileHoveredAndItsChevronRunsToAndFro) {
    TransformationButton *button = row("lowercase");
    EXPECT_EQ(background(button).alpha(), 0);
    enter(button);
    EXPECT_NEAR(background(button).alphaF(), 0.1, 0.01);
    double farthest = 0;
    bool hasReturned = false;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            const double offset = button->chevronOffset();
            farthest = std::max(farthest, offset);
            hasReturned = hasReturned || (farthest > 3.5 && offset < 0.5);
            return hasReturned && offset > 3.5;
        },
        30'000))
        << "there, back, and there again";
    EXPECT_LE(farthest, 4);
    leave(button);
    EXPECT_EQ(background(button).alpha(), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return button->chevronOffset() == 0; }, 30'000));
}

TEST_F(ListRows, TheChevronStaysStillWhenTheStyleAllowsNoAnimations) {
    StillStyle still;
    TransformationButton *button = row("lowercase");
    button->setStyle(&still);
    enter(button);
    bool isLater = false;
    QTimer::singleShot(100ms, button, [&] { isLater = true; });
    double farthest = 0;
    EXPECT_TRUE(QTest::qWaitFor([&] {
        farthest = std::max(farthest, button->chevronOffset());
        return isLater;
    }));
    EXPECT_EQ(farthest, 0);
    button->setStyle(nullptr);
}

TEST_F(ListRows, TheStarIsRevealed15SecondsAfterTheMouseCameAndGoesWithIt) {
    QStringList happened;
    auto *reveal = row("lowercase")->findChild<HoverReveal *>();
    QObject::connect(reveal, &HoverReveal::revealed, reveal, [&] { happened << "revealed"; });
    // Timers go off in the order in which they are due, however late that is on a busy machine.
    QTimer::singleShot(1500ms, Qt::PreciseTimer, reveal, [&] { happened << "nearly 1.5 s"; });
    enter(row("lowercase"));
    QTimer::singleShot(1505ms, Qt::PreciseTimer, reveal, [&] { happened << "over 1.5 s"; });
    EXPECT_FALSE(star("lowercase")->isRevealed());
    ASSERT_TRUE(QTest::qWaitFor([&] { return happened.contains("over 1.5 s"); }, 30'000));
    EXPECT_EQ(happened, (QStringList{"nearly 1.5 s", "revealed", "over 1.5 s"}));
    EXPECT_TRUE(star("lowercase")->isRevealed());
    leave(row("lowercase"));
    EXPECT_FALSE(star("lowercase")->isRevealed());
}

TEST_F(ListRows, LeavingEarlierRevealsNothing) {
    bool isLater = false;
    enter(row("lowercase"));
    QTimer::singleShot(1600ms, row("lowercase"), [&] { isLater = true; });
    leave(row("lowercase"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return isLater; }, 30'000));
    EXPECT_FALSE(star("lowercase")->isRevealed());
}

TEST_F(ListRows, AClickOnTheStarMarksAndDoesNotApply) {
    setText("Kept");
    row("lowercase")->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(QTest::qWaitFor([this] { return star("lowercase")->isVisible(); }));
    clickAt(star("lowercase"), star("lowercase")->rect().center());
    EXPECT_TRUE(manager().favorites().contains("lowercase"));
    EXPECT_EQ(text(), "Kept");
    clickAt(star("lowercase"), star("lowercase")->rect().center());
    EXPECT_FALSE(manager().favorites().contains("lowercase"));
}

TEST_F(ListRows, MarkingAFavoriteLeavesTheListWhereItIs) {
    window().resize(window().minimumSize());
    click("category.Lines");
    auto *bar = find<QScrollArea>("transformationScroll")->verticalScrollBar();
    ASSERT_TRUE(QTest::qWaitFor([bar] { return bar->maximum() > 100; }));
    bar->setValue(100);
    manager().toggleFavorite("wrap-lines");
    QCoreApplication::processEvents();
    EXPECT_EQ(bar->value(), 100);
    click("category.Sorting");
    click("category.Lines");
    EXPECT_EQ(bar->value(), 0) << "another category starts at its top";
}

TEST_F(ListRows, TheContextMenuMarksAFavoriteAndTakesTheMarkAway) {
    setText("Kept");
    for (const bool isMarked : {false, true}) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {10, 10}, row("lowercase")->mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(row("lowercase"), &event);
        auto *menu = row("lowercase")->findChild<QMenu *>("transformationMenu");
        ASSERT_NE(menu, nullptr);
        ASSERT_EQ(menu->actions().size(), 1);
        EXPECT_EQ(menu->actions()[0]->text(), isMarked ? "Remove from favorites" : "Add to favorites");
        menu->actions()[0]->trigger();
        delete menu;
        EXPECT_EQ(manager().favorites().contains("lowercase"), !isMarked);
    }
    EXPECT_EQ(text(), "Kept");
}

TEST_F(ListRows, TheContextMenuOpensWhereTheMouseIsAndByKeyInTheMiddleOfTheRow) {
    for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
        const QPoint place(50, 2);
        QContextMenuEvent event(reason, place, row("lowercase")->mapToGlobal(place));
        QApplication::sendEvent(row("lowercase"), &event);
        auto *menu = row("lowercase")->findChild<QMenu *>("transformationMenu");
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(row("lowercase")->mapFromGlobal(menu->pos()).y(),
                  reason == QContextMenuEvent::Mouse ? place.y() : row("lowercase")->height() / 2);
        delete menu;
    }
}

TEST_F(ListRows, KeysLeadFromTheStarToTheRowsAround) {
    const std::pair<Qt::Key, QString> ways[] = {{Qt::Key_Down, "lowercase"},
                                                {Qt::Key_Left, "lowercase"},
                                                {Qt::Key_Escape, "lowercase"},
                                                {Qt::Key_Up, "uppercase"}};
    row("uppercase")->setFocus(Qt::TabFocusReason);
    for (const auto &[key, id] : ways) {
        press(Qt::Key_Right);
        EXPECT_TRUE(qobject_cast<StarButton *>(QApplication::focusWidget())) << key;
        press(key);
        EXPECT_TRUE(row(id)->hasFocus()) << key;
    }
}

TEST_F(ListRows, SpaceAndReturnPressARowAndItsStar) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        setText("A");
        row("lowercase")->setFocus(Qt::TabFocusReason);
        press(key);
        EXPECT_EQ(text(), "a");
        press(Qt::Key_Right);
        press(key);
        EXPECT_EQ(manager().favorites().contains("lowercase"), key == Qt::Key_Space) << "and the second time not";
        EXPECT_TRUE(star("lowercase")->hasFocus()) << "the keyboard stays on it";
        state().setSelectedCategory(TransformationCategory::caseConversion);
        find("category.Lines")->setFocus(Qt::TabFocusReason);
        press(key);
        EXPECT_EQ(state().selectedCategory(), TransformationCategory::lines);
        state().setSelectedCategory(TransformationCategory::caseConversion);
    }
}

TEST_F(ListRows, AMarkTakenAwayAmongTheFavoritesLeavesTheKeyboardInTheList) {
    setText("Kept");
    for (const char *id : {"uppercase", "lowercase", "trim-lines"}) {
        manager().toggleFavorite(id);
    }
    click("category.Favorites");
    row("lowercase")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    ASSERT_TRUE(star("lowercase")->hasFocus());
    press(Qt::Key_Space);
    EXPECT_TRUE(row("trim-lines")->hasFocus()) << "the next one";
    manager().toggleFavorite("trim-lines");
    EXPECT_TRUE(row("uppercase")->hasFocus()) << "the one before, if there is no next";
    press(Qt::Key_Right);
    press(Qt::Key_Space);
    EXPECT_TRUE(find("search")->hasFocus());
    press(Qt::Key_Space);
    EXPECT_EQ(text(), "Kept");
}

TEST_F(ListRows, ARowWhoseContextMenuIsClosedElsewhereIsNoLongerHovered) {
    useStackMode();
    setText("a");
    center().post(notification::applyTransformation, QString("uppercase"));
    QCoreApplication::processEvents();
    for (RowButton *hovered : {static_cast<RowButton *>(row("lowercase")), find<RowButton>("operation.0")}) {
        for (const bool isElsewhere : {false, true}) {
            enter(hovered);
            QContextMenuEvent event(QContextMenuEvent::Mouse, {10, 10}, hovered->mapToGlobal(QPoint(10, 10)));
            QApplication::sendEvent(hovered, &event);
            auto *menu = hovered->findChild<QMenu *>();
            ASSERT_NE(menu, nullptr);
            QCursor::setPos(hovered->mapToGlobal(isElsewhere ? QPoint(10, 200) : QPoint(10, 10)));
            menu->close();
            delete menu;
            EXPECT_EQ(hovered->isHovered(), !isElsewhere);
        }
    }
}

TEST_F(ListRows, WhatScrollsBeneathARestingPointerIsHovered) {
    state().setSelectedCategory(TransformationCategory::lines);
    QCoreApplication::processEvents();
    RowButton *first = row("trim-lines");
    RowButton *second = row("number-lines");
    QCursor::setPos(first->mapToGlobal(QPoint(60, 20)));
    QCoreApplication::processEvents();
    ASSERT_TRUE(first->isHovered());
    QScrollBar *bar = find<QScrollArea>("transformationScroll")->verticalScrollBar();
    bar->setValue(first->height());
    EXPECT_FALSE(first->isHovered());
    EXPECT_TRUE(second->isHovered());
    QCursor::setPos(find("editor")->mapToGlobal(QPoint(50, 50)));
    QCoreApplication::processEvents();
    EXPECT_FALSE(second->isHovered());
    bar->setValue(0);
    EXPECT_FALSE(first->isHovered()) << "the pointer is elsewhere";
}

TEST_F(ListRows, WhilePausedTheRowsShowThatTheyDoNothing) {
    const auto isDisabled = [this] {
        return QAccessible::queryAccessibleInterface(row("lowercase"))->state().disabled != 0;
    };
    enter(row("lowercase"));
    const QColor hovered = background(row("lowercase"));
    EXPECT_FALSE(isDisabled());
    click("pause");
    EXPECT_TRUE(isDisabled());
    EXPECT_EQ(background(row("lowercase")).alpha(), 0);
    EXPECT_EQ(row("lowercase")->toolTip(), "The operations are paused");
    const QImage paused = pictureOf(row("uppercase"));
    manager().toggleFavorite("lowercase");
    EXPECT_TRUE(manager().favorites().contains("lowercase"));
    click("pause");
    EXPECT_FALSE(isDisabled());
    EXPECT_EQ(background(row("lowercase")), hovered);
    EXPECT_EQ(row("lowercase")->toolTip(), "");
    EXPECT_NE(pictureOf(row("uppercase")), paused);
}

TEST_F(ListRows, AFavoriteKeepsAYellowStarAtRest) {
    manager().toggleFavorite("lowercase");
    find("editor")->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return star("lowercase")->isVisible(); }));
    const auto middle = [this] { return pixel(star("lowercase"), star("lowercase")->rect().center()); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return middle() == theme().star; })) << "it fades in";
    EXPECT_FALSE(star("uppercase")->isVisible());
    const auto toTheEdge = [this] { return row("lowercase")->width() - star("lowercase")->x(); };
    const int before = toTheEdge();
    const int width = row("lowercase")->width();
    find<QSplitter>("columns")->setSizes({183, width + 100, 300, 280});
    ASSERT_TRUE(QTest::qWaitFor([&] { return row("lowercase")->width() != width; }));
    EXPECT_EQ(toTheEdge(), before) << "it goes with the edge of its row";
}

TEST_F(ListRows, ARowShowsItsIconItsNameAndBelowItsDescription) {
    const QImage picture = pictureOf(row("uppercase"));
    const auto placeOf = [&](const QColor &colour, int from) {
        QRect place;
        for (int x = from; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                const QColor seen = picture.pixelColor(x, y);
                const bool isIt = seen.alpha() > 120 && std::abs(seen.red() - colour.red()) < 8 &&
                                  std::abs(seen.green() - colour.green()) < 8 &&
                                  std::abs(seen.blue() - colour.blue()) < 8;
                place |= isIt ? QRect(x, y, 1, 1) : QRect();
            }
        }
        return place;
    };
    const QRect icon = placeOf(theme().accentText, 0);
    const QRect name = placeOf(theme().text, icon.right());
    const QRect description = placeOf(theme().text2, icon.right());
    EXPECT_LE(icon.width(), 20);
    EXPECT_NEAR(icon.center().y(), picture.height() / 2.0, 2);
    EXPECT_GE(name.left() - icon.right(), 12);
    EXPECT_LE(name.left() - icon.right(), 18);
    EXPECT_GT(name.width(), 40);
    EXPECT_LT(name.bottom(), picture.height() / 2 + 2);
    EXPECT_GT(description.top(), name.bottom());
    EXPECT_LT(description.bottom(), picture.height() - 4);
    EXPECT_NEAR(description.left(), name.left(), 2);
}

TEST_F(ListRows, TheKeyboardComesBackToTheRowThatItLeft) {
    for (const auto &[first, steps] : {std::pair("transformation.uppercase", 2), std::pair("category.Lines", 1)}) {
        find(first)->setFocus(Qt::TabFocusReason);
        for (int step = 0; step < steps; ++step) {
            press(Qt::Key_Down);
        }
        const QWidget *left = QApplication::focusWidget();
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        ASSERT_NE(QApplication::focusWidget(), left);
        press(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), left) << first;
    }
}

TEST_F(ListRows, TheRingOfTheSelectedCategoryIsSeenOnItsFillToo) {
    click("category.Sorting");
    const auto colourAt = [this](QWidget *row, int y) {
        return window().grab().toImage().pixelColor(row->mapTo(&window(), QPoint(row->width() / 2, y)));
    };
    QWidget *selected = find("category.Sorting");
    selected->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(colourAt(selected, 0), theme().focus);
    EXPECT_EQ(colourAt(selected, 1), theme().focus);
    EXPECT_EQ(colourAt(selected, 2), theme().onAccent);
    EXPECT_EQ(colourAt(selected, 3), theme().onAccent);
    EXPECT_EQ(colourAt(selected, 4), theme().accent);
    QWidget *other = find("category.Lines");
    other->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(colourAt(other, 1), theme().focus);
    EXPECT_EQ(colourAt(other, 2), colourAt(other, 4)) << "one ring is enough";
}

TEST_F(ListRows, TheHeaderTurnsItsChevronByAQuarterAndFoldsTheRows) {
    const auto *header = find<SectionHeader>("categoriesHeader");
    EXPECT_EQ(header->disclosure(), 1);
    click("categoriesHeader");
    double least = 1;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            least = std::min(least, header->disclosure());
            return !isShown("categories");
        },
        30'000));
    EXPECT_EQ(least, 0);
    EXPECT_EQ(header->y(), 8) << "the header stays at the top";
    click("categoriesHeader");
    EXPECT_TRUE(QTest::qWaitFor([&] { return header->disclosure() == 1 && isShown("category.Encoding"); }, 30'000));
}

TEST_F(ListRows, TheSearchFieldInvitesAndItsClearButtonIsThereWithTextOnly) {
    auto *search = find<QLineEdit>("search");
    EXPECT_EQ(search->placeholderText(), "Search transformations...");
    const auto *clear = window().findChild<QAction *>("clearSearch");
    EXPECT_FALSE(clear->isVisible());
    search->setFocus();
    type("x");
    EXPECT_TRUE(clear->isVisible());
    press(Qt::Key_Backspace);
    EXPECT_FALSE(clear->isVisible());
}

} // namespace
} // namespace lexivore
