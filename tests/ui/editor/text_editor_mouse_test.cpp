// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/editor/text_editor_fixture.h"

#include "ui/text_conversion.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>

namespace lexivore {
namespace {

using TextEditorMouseTest = TextEditorTest;

TEST_F(TextEditorMouseTest, SelectsWithTheMouse) {
    show("one two three\nfour five\nsix");
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, pointOf(4));
    EXPECT_EQ(document().caret(), 4U);
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, Qt::ShiftModifier, pointOf(18));
    EXPECT_EQ(document().selectionStart(), 4U);
    EXPECT_EQ(document().selectionEnd(), 18U);

    QTest::mouseDClick(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
    EXPECT_EQ(std::string(Text(document().selectedText()).view()), "two");
    QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, pointOf(5));
    EXPECT_EQ(std::string(Text(document().selectedText()).view()), "one two three\n");
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

} // namespace
} // namespace lexivore
