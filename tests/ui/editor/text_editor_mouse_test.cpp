// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/editor/text_editor_fixture.h"

#include "manager/text_conversion.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>

namespace lexivore {
namespace {

class TextEditorMouseTest : public TextEditorTest {
protected:
    void doubleClickAndHold(QPoint point) {
        // Not close to the click before it, which would make it another kind of click.
        QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, QPoint(450, 380));
        for (const QEvent::Type type :
             {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
            send(type, point, Qt::LeftButton, type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton);
        }
    }
    void moveWithButton(QPoint point) { send(QEvent::MouseMove, point, Qt::NoButton, Qt::LeftButton); }
    void drop(const char *dropped, QPoint point, Qt::DropAction action) {
        QMimeData data;
        data.setText(QString::fromUtf8(dropped));
        QDragEnterEvent enter(point, action, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(editor.viewport(), &enter);
        QDropEvent event(point, action, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(editor.viewport(), &event);
    }
    [[nodiscard]] std::string selected() { return std::string(Text(document().selectedText()).view()); }

private:
    void send(QEvent::Type type, QPoint point, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, point, editor.viewport()->mapToGlobal(point), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(editor.viewport(), &event);
    }
};

TEST_F(TextEditorMouseTest, SelectsWithTheMouse) {
    show("one two three\nfour five\nsix");
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, pointOf(4));
    EXPECT_EQ(document().caret(), 4U);
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, Qt::ShiftModifier, pointOf(18));
    EXPECT_EQ(document().selectionStart(), 4U);
    EXPECT_EQ(document().selectionEnd(), 18U);

    QTest::mouseDClick(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
    EXPECT_EQ(selected(), "two");
    QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
    EXPECT_EQ(selected(), "one two three\n");
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
}

TEST_F(TextEditorMouseTest, DragsASelectionAndScrollsOutsideTheView) {
    std::string lines;
    for (int i = 0; i < 300; ++i) {
        lines += "line " + std::to_string(i) + "\n";
    }
    show(lines);
    QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, pointOf(2));
    QTest::mouseMove(editor.viewport(), QPoint(40, 100));
    EXPECT_TRUE(document().hasSelection());
    QMouseEvent below(QEvent::MouseMove, QPointF(40, 600), editor.viewport()->mapToGlobal(QPointF(40, 600)),
                      Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCursor::setPos(editor.viewport()->mapToGlobal(QPoint(40, 600)));
    QApplication::sendEvent(editor.viewport(), &below);
    EXPECT_TRUE(QTest::qWaitFor([this] { return editor.verticalScrollBar()->value() > 200; }));
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, QPoint(40, 390));
    EXPECT_EQ(document().anchor(), 2U);
    EXPECT_GT(document().caret(), 400U);
}

TEST_F(TextEditorMouseTest, CopiesCutsAndPastesExactly) {
    const std::string exact = "a\r\nb\u2028c\td";
    show(exact);
    keys("Ctrl+A");
    keys("Ctrl+C");
    EXPECT_EQ(toUtf8(QGuiApplication::clipboard()->text()), exact);
    keys("Ctrl+End");
    keys("Ctrl+V");
    EXPECT_EQ(text(), exact + exact);
    keys("Ctrl+A");
    keys("Ctrl+X");
    EXPECT_EQ(text(), "");
    EXPECT_EQ(toUtf8(QGuiApplication::clipboard()->text()), exact + exact);
    EXPECT_EQ(followed, text());
}

TEST_F(TextEditorMouseTest, RepairsBrokenTextFromTheClipboard) {
    QString broken = QStringLiteral("a");
    broken += QChar(0xD800);
    broken += QLatin1Char('b');
    auto *const data = new QMimeData;
    data->setText(broken);
    QGuiApplication::clipboard()->setMimeData(data);
    show("");
    editor.paste();
    EXPECT_EQ(text(), "a\uFFFDb");
}

TEST_F(TextEditorMouseTest, OffersACompleteContextMenu) {
    show("abc");
    QContextMenuEvent open(QContextMenuEvent::Keyboard, QPoint(10, 10), editor.mapToGlobal(QPoint(10, 10)));
    QApplication::sendEvent(editor.viewport(), &open);
    auto *const menu = editor.findChild<QMenu *>(QStringLiteral("editorContextMenu"));
    ASSERT_NE(menu, nullptr);
    int entries = 0;
    for (const QAction *action : menu->actions()) {
        entries += action->isSeparator() ? 0 : 1;
    }
    EXPECT_EQ(entries, 7);
    menu->close();
}

TEST_F(TextEditorMouseTest, DraggingAfterADoubleClickSelectsByWordsAndAfterATripleClickByLines) {
    show("one two three\nfour five\nsix seven");
    QTest::mouseDClick(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
    QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
    EXPECT_EQ(selected(), "one two three\n");

    doubleClickAndHold(pointOf(5));
    moveWithButton(pointOf(9));
    EXPECT_EQ(selected(), "two three");
    moveWithButton(pointOf(1));
    EXPECT_EQ(selected(), "one two");
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, pointOf(1));

    doubleClickAndHold(pointOf(16));
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, pointOf(16));
    QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, pointOf(16));
    moveWithButton(pointOf(26));
    EXPECT_EQ(selected(), "four five\nsix seven");
    moveWithButton(pointOf(2));
    EXPECT_EQ(selected(), "one two three\nfour five\n");
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, pointOf(2));
}

TEST_F(TextEditorMouseTest, ADoubleClickMeansTheLetterUnderThePointer) {
    struct Case {
        const char *text;
        std::size_t behind; ///< Where the letter ends whose far half is clicked.
        const char *word;
    };
    for (const Case &row :
         {Case{"one two, a b", 3, "one"}, Case{"one two, a b", 7, "two"}, Case{"one two, a b", 10, "a"},
          Case{"one two, a b", 12, "b"}, Case{"one two, a b", 8, ","}, Case{"שלום עולם", 8, "שלום"}}) {
        show(row.text);
        const int towardsTheLetter = pointOf(0).x() < pointOf(row.behind).x() ? -2 : 2;
        const QPoint point = pointOf(row.behind) + QPoint(towardsTheLetter, 0);
        doubleClickAndHold(point);
        EXPECT_EQ(selected(), row.word) << row.text << ", " << row.behind;
        moveWithButton(point);
        EXPECT_EQ(selected(), row.word) << row.text << ", " << row.behind;
        QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, point);
    }
    // Beside the end of a wrapped row its last word is meant, not the first of the next row.
    show("first " + std::string(40, 'w') + " " + std::string(40, 'x'));
    doubleClickAndHold(QPoint(editor.viewport()->width() - 2, pointOf(6).y()));
    EXPECT_EQ(selected().find('x'), std::string::npos);
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, pointOf(6));
}

TEST_F(TextEditorMouseTest, OnlyWhatIsSelectedCanBeDragged) {
    show("one two three");
    document().select(4, 7);
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, QPoint(450, 380));
    const auto startsAnew = [this](QPoint point) {
        document().select(4, 7);
        QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, point);
        const bool isAnew = !document().hasSelection();
        QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, point);
        return isAnew;
    };
    EXPECT_TRUE(startsAnew(pointOf(4) - QPoint(2, 0))) << "the space in front";
    EXPECT_FALSE(startsAnew(pointOf(4) + QPoint(2, 0)));
    EXPECT_FALSE(startsAnew(pointOf(7) - QPoint(2, 0))) << "the second half of the last letter";
    EXPECT_TRUE(startsAnew(pointOf(7) + QPoint(2, 0)));
}

TEST_F(TextEditorMouseTest, AClickInTheSelectionPutsTheCaretThereAndSelectsNothing) {
    show("one two three");
    document().select(4, 7);
    QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
    EXPECT_EQ(selected(), "two") << "it could become a drag";
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
    EXPECT_FALSE(document().hasSelection());
    EXPECT_EQ(document().caret(), 5U);
}

TEST_F(TextEditorMouseTest, TakesTextThatIsDroppedAsOneEditAndSelectsIt) {
    show("one two");
    const QSignalSpy edits(&editor, &TextEditor::edited);
    drop("x\r\ny", pointOf(4), Qt::CopyAction);
    EXPECT_EQ(text(), "one x\r\nytwo");
    EXPECT_EQ(selected(), "x\r\ny");
    EXPECT_EQ(followed, text());
    EXPECT_EQ(edits.size(), 1);
}

TEST_F(TextEditorMouseTest, ScrollsWhileSomethingIsHeldOverAnEdge) {
    std::string lines;
    for (int i = 0; i < 300; ++i) {
        lines += "line " + std::to_string(i) + "\n";
    }
    show(lines);
    QMimeData data;
    data.setText(QStringLiteral("x"));
    const QPoint edge(40, editor.viewport()->height() - 3);
    QDragEnterEvent enter(edge, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDragMoveEvent hold(edge, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.viewport(), &hold);
    const QScrollBar *const bar = editor.verticalScrollBar();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar->value() > 60; }));
    QDragLeaveEvent leave;
    QApplication::sendEvent(editor.viewport(), &leave);
    const int left = bar->value();
    QTest::qWait(250);
    EXPECT_EQ(bar->value(), left);
}

TEST_F(TextEditorMouseTest, TheContextMenuOffersWhatCanBeDone) {
    const auto enabled = [this] {
        QContextMenuEvent open(QContextMenuEvent::Keyboard, QPoint(10, 10), editor.mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(editor.viewport(), &open);
        auto *const menu = editor.findChild<QMenu *>(QStringLiteral("editorContextMenu"));
        QStringList titles;
        for (const QAction *action : menu->actions()) {
            if (action->isEnabled() && !action->isSeparator()) {
                titles << action->text().remove(u'&');
            }
        }
        delete menu;
        return titles.join(u' ').toStdString();
    };
    QGuiApplication::clipboard()->clear();
    show("");
    EXPECT_EQ(enabled(), "Undo Redo");
    show("abc");
    EXPECT_EQ(enabled(), "Undo Redo Select All");
    keys("Shift+Right");
    keys("Ctrl+C");
    EXPECT_EQ(enabled(), "Undo Redo Cut Copy Paste Delete Select All");
    keys("Right");
    EXPECT_EQ(enabled(), "Undo Redo Paste Select All");
}

TEST_F(TextEditorMouseTest, TheMenuKeyOpensTheMenuBesideTheTextWhereverTheCaretIs) {
    std::string lines;
    for (int i = 0; i < 200; ++i) {
        lines += std::to_string(i) + "\n";
    }
    show(lines);
    QScrollBar *const bar = editor.verticalScrollBar();
    for (const char *place : {"Ctrl+Home", "Ctrl+End"}) {
        keys(place);
        bar->setValue(bar->maximum() / 2);
        const int shown = bar->value();
        QContextMenuEvent open(QContextMenuEvent::Keyboard, QPoint(10, 10), editor.mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(editor.viewport(), &open);
        auto *const menu = editor.findChild<QMenu *>(QStringLiteral("editorContextMenu"));
        EXPECT_TRUE(editor.viewport()->rect().contains(editor.viewport()->mapFromGlobal(menu->pos()))) << place;
        EXPECT_EQ(bar->value(), shown);
        delete menu;
    }
}

TEST_F(TextEditorMouseTest, AnotherTextEndsWhatTheButtonHeldDownBegan) {
    std::string lines;
    for (int i = 0; i < 200; ++i) {
        lines += std::to_string(i) + "\n";
    }
    show(lines);
    const QPoint start = pointOf(2);
    QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, start);
    moveWithButton(QPoint(20, 3 * editor.height()));
    goBackTo(Text("x" + lines));
    document().setCaret(0);
    QTest::qWait(100);
    EXPECT_EQ(selected(), "") << "no scrolling and selecting goes on";
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, start);
    document().select(0, 3);
    QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, pointOf(2));
    goBackTo(Text(lines));
    document().setCaret(0);
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, pointOf(4));
    EXPECT_EQ(document().caret(), 0U);
}

TEST_F(TextEditorMouseTest, ARightClickKeepsTheSelectionItIsIn) {
    show("one two three");
    document().select(4, 7);
    QContextMenuEvent inside(QContextMenuEvent::Mouse, pointOf(5), editor.viewport()->mapToGlobal(pointOf(5)));
    QApplication::sendEvent(editor.viewport(), &inside);
    EXPECT_EQ(selected(), "two");
    delete editor.findChild<QMenu *>(QStringLiteral("editorContextMenu"));
    QContextMenuEvent outside(QContextMenuEvent::Mouse, pointOf(10), editor.viewport()->mapToGlobal(pointOf(10)));
    QApplication::sendEvent(editor.viewport(), &outside);
    EXPECT_EQ(document().caret(), 10U);
    EXPECT_FALSE(document().hasSelection());
    delete editor.findChild<QMenu *>(QStringLiteral("editorContextMenu"));
    keys("Ctrl+A");
    const QPoint below(300, 350);
    QContextMenuEvent belowTheText(QContextMenuEvent::Mouse, below, editor.viewport()->mapToGlobal(below));
    QApplication::sendEvent(editor.viewport(), &belowTheText);
    EXPECT_EQ(selected(), "one two three");
    delete editor.findChild<QMenu *>(QStringLiteral("editorContextMenu"));
}

} // namespace
} // namespace lexivore
