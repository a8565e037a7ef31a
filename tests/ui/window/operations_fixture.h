// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/ui/window/window_fixture.h"
#include "ui/operations/draggable_operation_item.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QScrollArea>
#include <QScrollBar>

#include <string>

namespace lexivore {

/// The window with a stack of three operations.
class OperationsTest : public WindowTest {
protected:
    OperationsTest() {
        setText("b a");
        useStackMode();
        for (const char *id : {"uppercase", "reverse", "sort-words"}) {
            center().post(notification::applyTransformation, QString(id));
        }
    }
    [[nodiscard]] std::string stack() {
        std::string ids;
        for (const AppliedOperation &operation : manager().appliedOperations()) {
            ids += operation.transformation + (operation.isEnabled ? " " : "- ");
        }
        return ids;
    }
    [[nodiscard]] DraggableOperationItem *row(int index) {
        return find<DraggableOperationItem>(QString("operation.%1").arg(index));
    }
    /// What the toolkit sends when the row `from` is dragged over the row `to`.
    void dragOver(int from, int to) {
        state().setDraggedOperation(row(from)->operation());
        QDragEnterEvent enter({20, 10}, Qt::MoveAction, &payload(from), Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(row(to), &enter);
    }
    bool drop(int from, int to) {
        QDropEvent drop(QPointF(20, 10), Qt::MoveAction, &payload(from), Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(row(to), &drop);
        return drop.isAccepted();
    }
    /// The column, with more operations than fit.
    QScrollArea *scrollManyOperations() {
        for (int count = 0; count < 30; ++count) {
            center().post(notification::applyTransformation, QString("trim-lines"));
        }
        auto *scroll = find<QScrollArea>("operationsScroll");
        EXPECT_TRUE(QTest::qWaitFor([scroll] { return scroll->verticalScrollBar()->maximum() > 0; }));
        return scroll;
    }
    QMimeData &payload(int from) {
        m_payload.setData(DraggableOperationItem::mimeType,
                          row(from)->operation().id.toString(QUuid::WithoutBraces).toUtf8());
        return m_payload;
    }

private:
    QMimeData m_payload;
};

} // namespace lexivore
