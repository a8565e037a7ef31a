// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/operations_fixture.h"

namespace lexivore {
namespace {

using Reordering = OperationsTest;

TEST_F(Reordering, TheMarkStandsWhereTheRowWouldLand) {
    dragOver(2, 0);
    EXPECT_EQ(row(0)->marks(), (DropMarks{true, false}));
    dragOver(0, 2);
    EXPECT_EQ(row(2)->marks(), (DropMarks{false, true}));
    dragOver(1, 1);
    EXPECT_EQ(row(1)->marks(), DropMarks());
    dragOver(2, 0);
    QDragLeaveEvent leave;
    QApplication::sendEvent(row(0), &leave);
    EXPECT_EQ(row(0)->marks(), DropMarks());
}

TEST_F(Reordering, OverItsOwnRowADraggedOneLeavesTheMarksAsTheyAre) {
    state().setDraggedOperation(row(1)->operation());
    DropMarks marks{true, false};
    OperationDropDelegate(
        1, manager(), state(), [](std::size_t, std::size_t) {}, marks)
        .dropEntered();
    EXPECT_EQ(marks, (DropMarks{true, false}));
}

TEST_F(Reordering, ADragIsAMoveWhateverKeyAsksForACopy) {
    state().setDraggedOperation(row(0)->operation());
    QDragEnterEvent enter({20, 10}, Qt::CopyAction | Qt::MoveAction, &payload(0), Qt::LeftButton, Qt::ControlModifier);
    ASSERT_EQ(enter.dropAction(), Qt::CopyAction);
    QApplication::sendEvent(row(1), &enter);
    EXPECT_TRUE(enter.isAccepted());
    EXPECT_EQ(enter.dropAction(), Qt::MoveAction);
}

TEST_F(Reordering, TheFirstDroppedOnTheLastBecomesTheLastAndBack) {
    dragOver(0, 2);
    EXPECT_TRUE(drop(0, 2));
    EXPECT_EQ(stack(), "reverse sort-words uppercase ");
    EXPECT_FALSE(state().draggedOperation());
    dragOver(2, 0);
    EXPECT_TRUE(drop(2, 0));
    EXPECT_EQ(stack(), "uppercase reverse sort-words ");
}

TEST_F(Reordering, ARowHeldAtAnEndScrollsToTheOthersAndLandsOnTheOneThatComesUnderIt) {
    const QScrollArea *scroll = scrollManyOperations();
    const QScrollBar *bar = scroll->verticalScrollBar();
    QWidget *rows = find("operations");
    const auto positionOf = [&](int y) { return rows->mapFrom(scroll->viewport(), QPoint(20, y)); };

    state().setDraggedOperation(row(0)->operation());
    const int bottom = scroll->viewport()->height() - 10;
    QDragEnterEvent enter(positionOf(bottom), Qt::MoveAction, &payload(0), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(rows, &enter);
    EXPECT_TRUE(QTest::qWaitFor([bar] { return bar->value() == bar->maximum(); }));
    EXPECT_TRUE(QTest::qWaitFor([this] { return row(32)->marks() == DropMarks{false, true}; }));
    for (int index = 0; index < 32; ++index) {
        EXPECT_EQ(row(index)->marks(), DropMarks()) << index;
    }

    QDragMoveEvent up(positionOf(10), Qt::MoveAction, &payload(0), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(rows, &up);
    EXPECT_TRUE(QTest::qWaitFor([bar] { return bar->value() == 0; }));

    QDragMoveEvent downAgain(positionOf(bottom), Qt::MoveAction, &payload(0), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(rows, &downAgain);
    EXPECT_TRUE(QTest::qWaitFor([bar] { return bar->value() == bar->maximum(); }));
    QDropEvent drop(positionOf(bottom), Qt::MoveAction, &payload(0), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(rows, &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(manager().appliedOperations().back().transformation, "uppercase");
    EXPECT_EQ(row(32)->marks(), DropMarks());
}

TEST_F(Reordering, NothingScrollsWhenTheDragIsInTheMiddleOrHasLeft) {
    const QScrollArea *scroll = scrollManyOperations();
    const QScrollBar *bar = scroll->verticalScrollBar();
    state().setDraggedOperation(row(0)->operation());
    QWidget *rows = find("operations");
    const int height = scroll->viewport()->height();
    QDragEnterEvent enter({20, height - 10}, Qt::MoveAction, &payload(0), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(rows, &enter);
    ASSERT_TRUE(QTest::qWaitFor([bar] { return bar->value() > 0; }));
    QDragMoveEvent middle({20, bar->value() + height / 2}, Qt::MoveAction, &payload(0), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(rows, &middle);
    const int value = bar->value();
    EXPECT_FALSE(QTest::qWaitFor([&] { return bar->value() != value; }, 60));
    QDragEnterEvent again({20, bar->value() + height - 10}, Qt::MoveAction, &payload(0), Qt::LeftButton,
                          Qt::NoModifier);
    QApplication::sendEvent(rows, &again);
    QDragLeaveEvent leave;
    QApplication::sendEvent(rows, &leave);
    EXPECT_FALSE(QTest::qWaitFor([&] { return bar->value() != value; }, 60));
}

TEST_F(Reordering, ADropOnItselfOrOfNothingKnownChangesNothing) {
    dragOver(1, 1);
    EXPECT_FALSE(drop(1, 1));
    state().setDraggedOperation(AppliedOperation());
    EXPECT_FALSE(drop(0, 2));
    state().setDraggedOperation(std::nullopt);
    EXPECT_FALSE(drop(0, 2));
    EXPECT_EQ(stack(), "uppercase reverse sort-words ");
    EXPECT_EQ(row(1)->marks(), DropMarks());
}

} // namespace
} // namespace lexivore
