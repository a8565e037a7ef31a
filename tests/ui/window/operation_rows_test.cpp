// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/still_style.h"
#include "tests/ui/window/window_fixture.h"
#include "ui/operations/draggable_operation_item.h"
#include "ui/operations/operation_description.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QAccessible>
#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QSplitter>
#include <QVariantAnimation>

namespace lexivore {
namespace {

/// What the rows of the operations panel look like and say.
class OperationRows : public WindowTest {
protected:
    OperationRows() {
        setText("b\n a \n\nb");
        useStackMode();
        for (const char *id : {"uppercase", "remove-empty-lines", "trim-lines"}) {
            center().post(notification::applyTransformation, QString(id));
        }
        QCoreApplication::processEvents();
    }
    [[nodiscard]] DraggableOperationItem *row(int index) {
        return find<DraggableOperationItem>(QString("operation.%1").arg(index));
    }
    [[nodiscard]] QColor pixel(int index, QPoint position) { return pictureOf(row(index)).pixelColor(position); }
    /// On the disc, left of the number.
    [[nodiscard]] QColor badge(int index) { return pixel(index, {32, row(index)->height() / 2}); }
    [[nodiscard]] QColor background(int index) { return pixel(index, {60, 5}); }
    /// Whether a line runs through the name from end to end.
    [[nodiscard]] bool isStruckOut(int index) {
        const QImage picture = pictureOf(row(index));
        for (int y = 8; y < picture.height() - 8; ++y) {
            int run = 0;
            while (picture.pixelColor(57 + run, y).alpha() > 60 && run < 40) {
                ++run;
            }
            if (run == 40) {
                return true;
            }
        }
        return false;
    }
    void hover(int index) {
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QApplication::sendEvent(row(index), &enter);
    }
    [[nodiscard]] static QString descriptionOf(QWidget *widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Description);
    }
    [[nodiscard]] static QAccessible::State stateOf(QWidget *widget) {
        return QAccessible::queryAccessibleInterface(widget)->state();
    }
    void drop(int from, int to) {
        QMimeData payload;
        payload.setData(DraggableOperationItem::mimeType, "token");
        state().setDraggedOperation(row(from)->operation());
        QDragEnterEvent enter({20, 10}, Qt::MoveAction, &payload, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(row(to), &enter);
        QDropEvent event(QPointF(20, 10), Qt::MoveAction, &payload, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(row(to), &event);
    }
};

TEST_F(OperationRows, TheBadgeHasTheAccentUnlessPausedOrDisabled) {
    EXPECT_EQ(badge(0), theme().accent);
    click("pause");
    EXPECT_EQ(badge(0), theme().badgeOff);
    click("pause");
    row(0)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    EXPECT_NEAR(badge(0).alphaF(), 0.6 * 0.3, 0.02);
    EXPECT_NEAR(badge(0).lightnessF(), theme().badgeOff.lightnessF(), 0.05);
    EXPECT_EQ(badge(1), theme().accent);
}

TEST_F(OperationRows, TheNumberOfADisabledRowStandsOutFromItsBadge) {
    row(0)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    QImage picture(row(0)->size(), QImage::Format_RGB32);
    picture.fill(theme().pane);
    row(0)->render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    const int disc = qGray(picture.pixel(32, picture.height() / 2));
    int lightest = 0;
    for (int x = 34; x < 44; ++x) {
        for (int y = picture.height() / 2 - 5; y < picture.height() / 2 + 5; ++y) {
            lightest = std::max(lightest, qGray(picture.pixel(x, y)));
        }
    }
    EXPECT_GT(lightest - disc, 15);
}

TEST_F(OperationRows, ADisabledRowIsStruckOutAndPaleWithItsButton) {
    EXPECT_FALSE(isStruckOut(0));
    const auto solidity = [this] {
        const QWidget *remove = row(0)->findChild<QWidget *>("remove");
        const QImage picture = pictureOf(row(0)).copy(remove->geometry());
        int most = 0;
        for (int x = 0; x < picture.width(); ++x) {
            most = std::max(most, picture.pixelColor(x, picture.height() / 2).alpha());
        }
        return most / 255.0;
    };
    EXPECT_NEAR(solidity(), 1, 0.02);
    row(0)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    EXPECT_TRUE(isStruckOut(0));
    EXPECT_NEAR(solidity(), 0.6, 0.02);
    press(Qt::Key_Space);
    EXPECT_FALSE(isStruckOut(0));
    EXPECT_EQ(row(0)->text(), "UPPERCASE") << "it stays in its place";
}

TEST_F(OperationRows, AHoveredRowIsGrayAndADraggedOneHalfSolid) {
    EXPECT_EQ(background(1).alpha(), 0);
    hover(1);
    EXPECT_NEAR(background(1).alphaF(), 0.1, 0.01);
    EXPECT_NEAR(background(1).lightness(), 128, 8);
    state().setDraggedOperation(row(0)->operation());
    EXPECT_NEAR(background(0).alphaF(), 0.1, 0.01);
    EXPECT_NEAR(badge(0).alphaF(), 0.5 + 0.5 * 0.1, 0.01) << "half solid on the fill";
    EXPECT_NEAR(badge(2).alphaF(), 1, 0.01);
}

TEST_F(OperationRows, TheInsertionMarkIs2PixelsOfTheAccent) {
    QMimeData payload;
    payload.setData(DraggableOperationItem::mimeType, "token");
    state().setDraggedOperation(row(1)->operation());
    QDragEnterEvent enter({20, 10}, Qt::MoveAction, &payload, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(row(0), &enter);
    EXPECT_EQ(pixel(0, {60, 0}), theme().accent);
    EXPECT_EQ(pixel(0, {60, 1}), theme().accent);
    EXPECT_NE(pixel(0, {60, 2}), theme().accent);
    QApplication::sendEvent(row(2), &enter);
    const int bottom = row(2)->height() - 1;
    EXPECT_EQ(pixel(2, {60, bottom}), theme().accent);
    EXPECT_EQ(pixel(2, {60, bottom - 1}), theme().accent);
    EXPECT_NE(pixel(2, {60, bottom - 2}), theme().accent);
    EXPECT_EQ(pixel(2, {60, 0}).alpha(), 0);
}

TEST_F(OperationRows, TheFocusRingLeavesTheInsertionMarkInSight) {
    QWidget *panel = find("operationsPanel");
    const auto colourAt = [&](int index, QPoint position) {
        return panel->grab().toImage().pixelColor(row(index)->mapTo(panel, position));
    };
    row(0)->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(colourAt(0, {60, 1}), theme().pane) << "the gap";
    EXPECT_EQ(colourAt(0, {60, 2}), theme().focus) << "just inside the row";
    EXPECT_EQ(colourAt(0, {60, row(0)->height() - 3}), theme().focus);
    EXPECT_EQ(colourAt(0, {60, row(0)->height() - 2}), theme().pane);
    state().setDraggedOperation(row(1)->operation());
    row(0)->dropEntered();
    EXPECT_EQ(colourAt(0, {60, 0}), theme().accent);
    EXPECT_EQ(colourAt(0, {60, 1}), theme().accent);
}

TEST_F(OperationRows, EachParameterHasALineOfItsOwnWhateverItHolds) {
    manager().clearAll();
    setText("x");
    const int plain = [this] {
        manager().applyTransformation(*manager().findTransformation("uppercase"), {});
        QCoreApplication::processEvents();
        return row(0)->height();
    }();
    const std::string hostile = "a\nb\r\n\t\xE2\x80\xA8" + std::string(1, '\0') + "\xF0\x9F\x91\xA8\xD7\xA9" +
                                std::string(10'000, 'x') + "<b>bold</b>";
    const auto rowFor = [&](const std::string &id, const ParameterMap &parameters) {
        manager().applyTransformation(*manager().findTransformation(id), parameters);
        QCoreApplication::processEvents();
        return row(static_cast<int>(manager().appliedOperations().size()) - 1);
    };
    const int one = rowFor("add-prefix", {{"prefix", "> "}})->height();
    const int two = rowFor("replace-text", {{"find", "q"}, {"replace", ""}})->height();
    EXPECT_GT(one, plain);
    EXPECT_EQ(two - one, one - plain);
    const QImage picture = pictureOf(row(2));
    int ink = 0; // where the second of the two stands
    for (int y = two - 10 - (two - one); y < two - 10; ++y) {
        for (int x = 56; x < 96; ++x) {
            ink += picture.pixelColor(x, y).alpha() > 60 ? 1 : 0;
        }
    }
    EXPECT_GT(ink, 0);
    const DraggableOperationItem *strange = rowFor("add-suffix", {{"suffix", hostile}});
    EXPECT_EQ(strange->height(), one);
    EXPECT_FALSE(strange->accessibleDescription().contains('\n'));
    EXPECT_TRUE(strange->accessibleDescription().startsWith("Enabled, suffix: a␊b␍␊␉␤␀"));
    EXPECT_LT(strange->accessibleDescription().size(), 300);
    EXPECT_TRUE(strange->accessibleDescription().endsWith(QChar(0x2026))) << "tells that there is more";
}

TEST_F(OperationRows, TheTooltipShowsWhatItReadsAndNoMarkup) {
    manager().applyTransformation(*manager().findTransformation("add-prefix"), {{"prefix", "<b> &amp;"}});
    EXPECT_EQ(toolTipOf(row(3)), "Add Prefix\nprefix: <b> &amp;\nLines: 3 → 3\nCharacters: 5 → 32");
}

TEST_F(OperationRows, TwoQuickClicksOnTheNumberAreTwoClicks) {
    manager().applyTransformation(*manager().findTransformation("add-prefix"), {{"prefix", "> "}});
    QCoreApplication::processEvents();
    const QPoint number(38, row(3)->height() / 2 - 8);
    QTest::mouseClick(row(3), Qt::LeftButton, Qt::NoModifier, number);
    EXPECT_FALSE(manager().appliedOperations()[3].isEnabled);
    QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(number), row(3)->mapToGlobal(QPointF(number)),
                       Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(row(3), &second);
    QTest::mouseRelease(row(3), Qt::LeftButton, Qt::NoModifier, number);
    EXPECT_TRUE(manager().appliedOperations()[3].isEnabled);
    EXPECT_FALSE(isShown("parameterSheet"));
}

TEST_F(OperationRows, ARowTellsWhatItsStepDidToLinesAndCharacters) {
    EXPECT_EQ(toolTipOf(row(1)), "Remove Empty Lines\nLines: 4 → 3\nCharacters: 8 → 7");
    EXPECT_EQ(toolTipOf(row(2)), "Trim Lines\nLines: 3 → 3\nCharacters: 7 → 5");
    EXPECT_EQ(descriptionOf(row(1)), "Enabled, Lines: 4 → 3, Characters: 8 → 7");
    manager().toggleOperation(1);
    EXPECT_EQ(toolTipOf(row(1)), "Remove Empty Lines") << "a disabled step does nothing";
    EXPECT_EQ(descriptionOf(row(1)), "Disabled");
    EXPECT_EQ(toolTipOf(row(2)), "Trim Lines\nLines: 4 → 4\nCharacters: 8 → 6");
}

TEST_F(OperationRows, TheRowShowsTheShorterMeasureWhileItIsLookedAtAndDoesNotMove) {
    const int height = row(2)->height();
    const auto inkBesideTheName = [this] {
        const QImage picture = pictureOf(row(2));
        const int right = row(2)->findChild<QWidget *>("remove")->x() - 8;
        int ink = 0;
        for (int x = right - 40; x < right; ++x) {
            ink += picture.pixelColor(x, picture.height() / 2).alpha() > 60 ? 1 : 0;
        }
        return ink;
    };
    find<QSplitter>("columns")->setSizes({183, 240, 300, 500});
    QCoreApplication::processEvents();
    EXPECT_EQ(inkBesideTheName(), 0);
    row(2)->setFocus(Qt::TabFocusReason);
    EXPECT_GT(inkBesideTheName(), 0);
    EXPECT_EQ(row(2)->height(), height);
    row(1)->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(inkBesideTheName(), 0);
}

TEST_F(OperationRows, TheShorterMeasureTellsWhatChanged) {
    const auto measure = [this](int index) {
        return shortMeasure(manager().operationMeasures(row(index)->operation().id));
    };
    EXPECT_EQ(measure(0), "Same length");
    EXPECT_EQ(measure(1), "Lines: 4 → 3");
    EXPECT_EQ(measure(2), "Characters: 7 → 5");
}

TEST_F(OperationRows, AFailedStepHasAnOrangeTriangleAfterItsNameAndSaysWhy) {
    const auto triangle = [this](int index) {
        const QImage picture = pictureOf(row(index));
        QRect place;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QColor colour = picture.pixelColor(x, y);
                const bool isOrange = colour.alpha() > 60 && std::abs(colour.hue() - theme().orange.hue()) < 5 &&
                                      colour.saturation() > 200;
                place |= isOrange ? QRect(x, y, 1, 1) : QRect();
            }
        }
        return place;
    };
    manager().applyTransformation(*manager().findTransformation("base64-encode"), {});
    manager().applyTransformation(*manager().findTransformation("base64-decode"), {});
    EXPECT_TRUE(triangle(4).isEmpty());
    manager().toggleOperation(3);
    EXPECT_TRUE(toolTipOf(row(4)).startsWith("Invalid")) << toolTipOf(row(4)).toStdString();
    EXPECT_TRUE(descriptionOf(row(4)).startsWith("Enabled, Invalid"));
    EXPECT_TRUE(triangle(3).isEmpty());
    const int nameRight = 56 + QFontMetrics(fontFor(FontRole::captionMedium)).horizontalAdvance(row(4)->text());
    EXPECT_NEAR(triangle(4).center().x(), nameRight + 4 + 7, 1);
    EXPECT_NEAR(triangle(4).center().y(), row(4)->height() / 2.0, 1);
    find<QSplitter>("columns")->setSizes({183, 240, 500, 10});
    QCoreApplication::processEvents();
    EXPECT_LE(triangle(4).right(), row(4)->findChild<QWidget *>("remove")->x() - 8) << "beside a name that is cut off";
}

TEST_F(OperationRows, AnUnknownTransformationIsCalledSo) {
    AppliedOperation gone;
    gone.transformation = "no-such-transformation";
    const OperationProblems problems = {{gone.id, {OperationProblem::Kind::unknownTransformation, {}}}};
    EXPECT_EQ(problemOf(gone, problems), "Unknown transformation");
    EXPECT_EQ(problemOf(AppliedOperation(), problems), "");
}

TEST_F(OperationRows, TheStateIsToldToAssistiveTechnology) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(row(0))->role(), QAccessible::ListItem);
    EXPECT_TRUE(stateOf(row(0)).checkable);
    EXPECT_TRUE(stateOf(row(0)).checked);
    row(0)->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(stateOf(row(0)).selected);
    EXPECT_FALSE(stateOf(row(1)).selected);
    press(Qt::Key_Space);
    EXPECT_FALSE(stateOf(row(0)).checked);
    EXPECT_TRUE(descriptionOf(row(0)).startsWith("Disabled"));
    press(Qt::Key_Down);
    EXPECT_TRUE(stateOf(row(1)).selected);
    EXPECT_FALSE(stateOf(row(0)).selected);
    const QWidget *remove = row(0)->findChild<QWidget *>("remove");
    EXPECT_EQ(remove->accessibleName(), "Remove UPPERCASE");
}

TEST_F(OperationRows, DoubleClickAndTheContextMenuEditTheParameters) {
    manager().applyTransformation(*manager().findTransformation("add-prefix"), {{"prefix", "> "}});
    QCoreApplication::processEvents();
    QTest::mouseDClick(row(3), Qt::LeftButton, Qt::NoModifier, {80, 12});
    EXPECT_TRUE(isShown("parameterSheet"));
    press(Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("parameterSheet"); }));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {10, 10}, row(3)->mapToGlobal(QPoint(10, 10)));
    QApplication::sendEvent(row(3), &event);
    auto *menu = row(3)->findChild<QMenu *>("operationMenu");
    ASSERT_NE(menu, nullptr);
    QAction *edit = menu->actions()[3];
    EXPECT_EQ(edit->text(), "Edit Parameters...");
    edit->trigger();
    delete menu;
    EXPECT_TRUE(isShown("parameterSheet"));
    EXPECT_EQ(find<QLineEdit>("parameter.prefix")->text(), "> ");
}

TEST_F(OperationRows, WithoutParametersThereIsNothingToEdit) {
    QTest::mouseDClick(row(0), Qt::LeftButton, Qt::NoModifier, {80, 12});
    row(0)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_F2);
    EXPECT_FALSE(isShown("parameterSheet"));
}

TEST_F(OperationRows, TogglingPostsARefreshAndARefreshBumpsTheTrigger) {
    int posts = 0;
    QObject receiver;
    center().subscribe(notification::refreshOperations, &receiver, [&](const QVariant &) { ++posts; });
    const unsigned before = state().operationsRefreshTrigger();
    row(0)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    EXPECT_EQ(posts, 1);
    EXPECT_EQ(state().operationsRefreshTrigger(), before + 1);
    press(Qt::Key_Delete);
    EXPECT_EQ(posts, 1) << "removing posts nothing";
}

TEST_F(OperationRows, ADragCarriesTheIdAndACancelledOneLeavesTheRowMarkedAsDragged) {
    QTest::mousePress(row(0), Qt::LeftButton, Qt::NoModifier, {80, 12});
    QMouseEvent move(QEvent::MouseMove, QPointF(80, 60), row(0)->mapToGlobal(QPointF(80, 60)), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(row(0), &move);
    // It was cancelled at once, because nobody took it, and will be deleted later.
    const auto *drag = find("operations")->findChild<QDrag *>();
    ASSERT_NE(drag, nullptr);
    EXPECT_EQ(drag->mimeData()->data(DraggableOperationItem::mimeType),
              row(0)->operation().id.toString(QUuid::WithoutBraces).toUpper().toLatin1());
    EXPECT_EQ(state().draggedOperation(), row(0)->operation());
    EXPECT_EQ(manager().appliedOperations().size(), 3U);
}

TEST_F(OperationRows, DroppedRowsSlideToTheirPlaces) {
    const int places[] = {row(0)->y(), row(1)->y(), row(2)->y()};
    drop(0, 2);
    ASSERT_EQ(row(2)->text(), "UPPERCASE");
    EXPECT_EQ(row(2)->y(), places[0]) << "they begin where they were";
    EXPECT_EQ(row(0)->y(), places[1]);
    EXPECT_EQ(row(1)->y(), places[2]);
    for (int index = 0; index < 3; ++index) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return row(index)->y() == places[index]; }, 10'000));
    }
}

TEST_F(OperationRows, TheRowThatSlidUnderTheRestingPointerIsHoveredAndNoOther) {
    const int place = row(0)->y();
    QTest::mouseMove(row(0), {60, 20});
    drop(2, 0);
    // After a drag the toolkit hears of the pointer anew.
    const QPoint pointer = QCursor::pos();
    const QPoint inWindow = window().mapFromGlobal(pointer);
    QEnterEvent enter(inWindow, inWindow, pointer);
    QCoreApplication::sendEvent(window().windowHandle(), &enter);
    EXPECT_TRUE(row(1)->isHovered()) << "it still stands there";
    EXPECT_TRUE(QTest::qWaitFor([&] { return row(1)->y() > place && row(0)->y() == place; }, 10'000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return row(0)->isHovered() && !row(1)->isHovered(); }, 10'000));
    EXPECT_FALSE(row(2)->isHovered());
    QTest::mouseMove(find("search"));
    EXPECT_FALSE(row(0)->isHovered()) << "it was left without another move in it";
}

TEST_F(OperationRows, AChangeEndsTheSlide) {
    const int places[] = {row(0)->y(), row(1)->y()};
    drop(0, 2);
    manager().removeOperation(2);
    QCoreApplication::processEvents();
    EXPECT_EQ(row(0)->y(), places[0]);
    EXPECT_EQ(row(1)->y(), places[1]);
    for (const auto *animation : find("operations")->findChildren<QVariantAnimation *>()) {
        EXPECT_EQ(animation->state(), QAbstractAnimation::Stopped) << "or it moves them once more";
    }
}

TEST_F(OperationRows, NothingSlidesWhenTheStyleAllowsNoAnimations) {
    StillStyle still;
    find("operations")->setStyle(&still);
    const int places[] = {row(0)->y(), row(1)->y(), row(2)->y()};
    drop(2, 0);
    EXPECT_EQ(row(0)->text(), "Trim Lines");
    for (int index = 0; index < 3; ++index) {
        EXPECT_EQ(row(index)->y(), places[index]);
    }
    find("operations")->setStyle(nullptr);
}

TEST_F(OperationRows, MovingByKeyDoesNotSlide) {
    const int places[] = {row(0)->y(), row(1)->y()};
    row(0)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down, Qt::AltModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(row(0)->y(), places[0]);
    EXPECT_EQ(row(1)->y(), places[1]);
}

TEST_F(OperationRows, AnEmptyStackSaysSo) {
    manager().clearOperations();
    QCoreApplication::processEvents();
    EXPECT_EQ(find("operationsEmptyState")->accessibleName(), "No operations yet");
}

} // namespace
} // namespace lexivore
