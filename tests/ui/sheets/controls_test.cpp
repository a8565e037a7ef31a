// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/recipe.h"
#include "tests/ui/sheets/sheet_fixture.h"
#include "ui/controls/badge.h"
#include "ui/controls/focus_ring.h"
#include "ui/controls/focus_ring_frame.h"
#include "ui/controls/label.h"
#include "ui/controls/switch.h"
#include "ui/controls/tool_button.h"
#include "ui/sheets/alert_sheet.h"
#include "ui/sheets/recipe_row.h"
#include "ui/theme/drawing.h"

#include <QCheckBox>
#include <QMenu>
#include <QPainter>
#include <QScrollArea>
#include <QTextDocument>
#include <QVBoxLayout>

namespace lexivore {
namespace {

class ControlsTest : public SheetTest {
protected:
    template<typename Widget> Widget *place(Widget *widget, const QPoint &position = {40, 60}) {
        widget->setParent(window.centralWidget());
        widget->move(position);
        widget->adjustSize();
        widget->show();
        settle();
        return widget;
    }

    FocusRingFrame *ring() const {
        auto *frame = find<FocusRingFrame>("focusRing");
        return frame != nullptr && frame->isVisible() ? frame : nullptr;
    }

    static QColor colourAt(QWidget *widget, const QPoint &position) {
        return widget->grab().toImage().pixelColor(position);
    }
};

TEST_F(ControlsTest, ButtonsAreAsHighAndWideAsControls) {
    EXPECT_EQ(PushButton("Cancel").sizeHint(), QSize(84, 32));
    EXPECT_GT(PushButton("Create Numbered List").sizeHint().width(), 84);
    EXPECT_EQ(ToolButton("trash", "Clear").sizeHint(), QSize(32, 32));
    EXPECT_EQ(Switch("Multiple").sizeHint(), QSize(36, 20));
}

TEST_F(ControlsTest, ButtonsShowTheirKindAndState) {
    auto *button = place(new PushButton("Clear", PushButton::Kind::destructive));
    const QPoint inside(10, 6);
    QTest::mouseMove(below);
    settle();
    EXPECT_EQ(colourAt(button, inside), theme().danger);
    QTest::mouseMove(button);
    settle();
    EXPECT_EQ(colourAt(button, inside), theme().dangerHover);
    QTest::mousePress(button, Qt::LeftButton);
    EXPECT_EQ(colourAt(button, inside), theme().dangerPress);
    QTest::mouseRelease(button, Qt::LeftButton);
    button->setEnabled(false);
    EXPECT_EQ(colourAt(button, inside), theme().pane);
}

TEST_F(ControlsTest, TheSymbolOfAButtonStandsBeforeItsText) {
    auto *button = place(new PushButton("lll", PushButton::Kind::primary));
    const int bare = button->sizeHint().width();
    button->setLeastWidth(0);
    const int text = button->sizeHint().width();
    ASSERT_LT(text, bare);
    button->setSymbol("minus");
    EXPECT_EQ(button->sizeHint().width(), text + 16 + 8);
    button->resize(button->sizeHint());
    const QImage picture = button->grab().toImage();
    QString columns; // which are inked, as runs
    for (int x = 4; x < picture.width() - 4; ++x) {
        bool isInked = false;
        for (int y = 4; y < picture.height() - 4; ++y) {
            isInked = isInked || picture.pixelColor(x, y).lightness() > 165;
        }
        columns += isInked ? '#' : ' ';
    }
    EXPECT_EQ(columns.simplified().split(' ').size(), 4) << "the stroke and three letters: " << columns.toStdString();
    EXPECT_LT(columns.indexOf('#'), 4 + 16);
}

TEST_F(ControlsTest, AToolButtonShowsWhetherItIsHoveredPressedCheckedOrDisabled) {
    auto *button = place(new ToolButton("star.fill", "Favorite"));
    const auto symbol = [&] { return colourAt(button, {16, 17}); };
    const QPoint ground(10, 4);
    QTest::mouseMove(below);
    settle();
    const QColor atRest = colourAt(button, ground);
    EXPECT_EQ(symbol(), theme().text2);
    QTest::mouseMove(button);
    settle();
    const QColor hovered = colourAt(button, ground);
    EXPECT_LT(hovered.lightness(), atRest.lightness());
    EXPECT_EQ(symbol(), theme().text);
    QTest::mousePress(button, Qt::LeftButton);
    EXPECT_LT(colourAt(button, ground).lightness(), hovered.lightness());
    EXPECT_EQ(symbol(), theme().text);
    QTest::mouseRelease(button, Qt::LeftButton);
    button->setCheckable(true);
    button->setChecked(true);
    EXPECT_EQ(symbol(), theme().accentText);
    EXPECT_GT(colourAt(button, ground).blue() - colourAt(button, ground).red(), 10) << "the accent";
    button->setEnabled(false);
    EXPECT_EQ(symbol(), theme().textOff);
    EXPECT_EQ(colourAt(button, ground), atRest);
}

TEST_F(ControlsTest, ADisabledSwitchIsHalfAsSolid) {
    auto *toggle = place(new Switch("Multiple"));
    toggle->setChecked(true);
    const QColor ground = colourAt(&window, {600, 600});
    toggle->setEnabled(false);
    EXPECT_NEAR(colourAt(toggle, {6, 10}).red(), (theme().accent.red() + ground.red()) / 2.0, 2);
}

/// While a menu is open the toolkit tells nothing of hovering, only that the pointer has left.
TEST_F(ControlsTest, WhatThePointerLeavesForAMenuIsNoLongerDrawnAsPointedAt) {
    struct Drawn : QObject {
        bool eventFilter(QObject *, QEvent *event) override {
            isDrawn |= event->type() == QEvent::Paint;
            return false;
        }
        bool isDrawn = false;
    } drawn;
    QMenu menu;
    menu.addAction("Undo");
    for (QWidget *widget :
         {static_cast<QWidget *>(new ToolButton("gearshape", "Editor settings")),
          static_cast<QWidget *>(new PushButton("Done")), static_cast<QWidget *>(new RecipeRow(Recipe()))}) {
        place(widget);
        QTest::mouseMove(widget);
        settle();
        ASSERT_TRUE(widget->underMouse());
        menu.popup({600, 600});
        settle();
        widget->installEventFilter(&drawn);
        drawn.isDrawn = false;
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(widget, &leave);
        settle();
        EXPECT_TRUE(drawn.isDrawn) << widget->metaObject()->className();
        menu.close();
        delete widget;
    }
}

TEST_F(ControlsTest, ASheetOverThemDoesNotMakeThemLookDisabled) {
    auto *button = place(new PushButton("Apply", PushButton::Kind::primary));
    window.centralWidget()->setEnabled(false);
    EXPECT_FALSE(button->isEnabled());
    EXPECT_EQ(colourAt(button, {10, 6}), theme().accent);
}

TEST_F(ControlsTest, TheCaretOfAFieldIs2PixelsOfItsColourAndBlinks) {
    below->resize(200, 32);
    below->setText("ab");
    const auto columnsOfTheCaret = [this] {
        const QImage picture = below->grab().toImage();
        QList<int> columns;
        for (int x = 4; x < picture.width() - 4; ++x) {
            if (picture.pixelColor(x, 16) == theme().accentText && picture.pixelColor(x, 10) == theme().accentText) {
                columns << x;
            }
        }
        return columns;
    };
    const QPalette before = QApplication::palette();
    for (const Theme *colours : {&lightTheme(), &darkTheme()}) {
        QApplication::setPalette(paletteOf(*colours));
        below->setFocus();
        below->setCursorPosition(0);
        const QList<int> atTheBeginning = columnsOfTheCaret();
        below->setCursorPosition(2);
        const QList<int> atTheEnd = columnsOfTheCaret();
        ASSERT_EQ(atTheBeginning.size(), 2);
        ASSERT_EQ(atTheEnd.size(), 2);
        EXPECT_NEAR(atTheEnd[0] - atTheBeginning[0], below->fontMetrics().horizontalAdvance("ab"), 1);
        EXPECT_TRUE(QTest::qWaitFor([&] { return columnsOfTheCaret().isEmpty(); }, 30'000));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !columnsOfTheCaret().isEmpty(); }, 30'000));
        below->clearFocus();
        EXPECT_TRUE(columnsOfTheCaret().isEmpty());
    }
    QApplication::setPalette(before);
}

TEST_F(ControlsTest, TheSwitchIsACheckBoxToKeysAndAssistiveTechnology) {
    auto *toggle = place(new Switch("Multiple"));
    QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(toggle);
    EXPECT_EQ(seen->role(), QAccessible::CheckBox);
    EXPECT_EQ(seen->text(QAccessible::Name), "Multiple");
    EXPECT_EQ(seen->rect(), QRect(toggle->mapToGlobal(QPoint()), toggle->size())) << "all of it is pointed at";
    EXPECT_EQ(colourAt(toggle, {30, 4}), theme().switchOff);
    click(toggle);
    EXPECT_TRUE(toggle->isChecked());
    EXPECT_TRUE(seen->state().checked);
    EXPECT_EQ(colourAt(toggle, {6, 4}), theme().accent);
    toggle->setFocus();
    press(Qt::Key_Space);
    EXPECT_FALSE(toggle->isChecked());
}

TEST_F(ControlsTest, AToolButtonCarriesItsHelp) {
    auto *button = place(new ToolButton("trash", "Clear all text"));
    EXPECT_EQ(button->toolTip(), "Clear all text");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name), "Clear all text");
}

TEST_F(ControlsTest, TheRingShowsForTheKeyboardAndNotForTheMouse) {
    auto *button = place(new PushButton("One"));
    auto *other = place(new PushButton("Two"), {40, 120});
    other->setFocusPolicy(Qt::StrongFocus);
    below->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring(), nullptr) << "fields show their focus themselves";
    press(Qt::Key_Tab);
    ASSERT_TRUE(button->hasFocus());
    ASSERT_NE(ring(), nullptr);
    EXPECT_EQ(ring()->followed(), button);
    click(other);
    ASSERT_TRUE(other->hasFocus());
    EXPECT_EQ(ring(), nullptr);
}

TEST_F(ControlsTest, TheRingShowsInTheWindowThatHasTheKeyboard) {
    auto *button = place(new PushButton("One"));
    button->setFocus(Qt::TabFocusReason);
    ASSERT_NE(ring(), nullptr);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(ring(), nullptr);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ASSERT_NE(ring(), nullptr);
    EXPECT_EQ(ring()->followed(), button);
}

TEST_F(ControlsTest, TheRingLies2PixelsAroundAButtonAndInsideATool) {
    auto *button = place(new PushButton("One"));
    button->setFocus(Qt::TabFocusReason);
    ASSERT_NE(ring(), nullptr);
    EXPECT_EQ(ring()->size(), button->size() + QSize(8, 8));
    EXPECT_EQ(ring()->mapToGlobal(QPoint(4, 4)), button->mapToGlobal(QPoint()));
    EXPECT_EQ(colourAt(&window, button->mapTo(&window, QPoint(20, -3))), theme().focus);
    EXPECT_EQ(colourAt(&window, button->mapTo(&window, QPoint(20, -1))), theme().pane);
    auto *tool = place(new ToolButton("trash", "Clear"), {200, 60});
    tool->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring()->size(), tool->size());
    tool->move(230, 60);
    EXPECT_EQ(ring()->mapToGlobal(QPoint()), tool->mapToGlobal(QPoint()));
    tool->hide();
    EXPECT_EQ(ring(), nullptr);
}

TEST_F(ControlsTest, TheRingLeavesOutTheGapToTheNeighbours) {
    auto *row = place(new ToolButton("trash", "Clear"));
    setFocusShape(*row, {.placement = FocusShape::Placement::inside, .inset = 2});
    row->setFocus(Qt::TabFocusReason);
    ASSERT_NE(ring(), nullptr);
    EXPECT_EQ(ring()->mapToGlobal(QPoint()), row->mapToGlobal(QPoint(0, 2)));
    EXPECT_EQ(ring()->size(), row->size() - QSize(0, 4));
}

TEST_F(ControlsTest, TheRingIsCutOffWithWhatScrolls) {
    auto *area = place(new QScrollArea);
    auto *content = new QWidget;
    auto *button = new PushButton("Deep", PushButton::Kind::plain, content);
    button->move(20, 20);
    content->resize(300, 900);
    area->setWidget(content);
    area->resize(320, 100);
    settle();
    button->setFocus(Qt::TabFocusReason);
    ASSERT_NE(ring(), nullptr);
    EXPECT_EQ(ring()->parentWidget(), area->viewport());
}

TEST_F(ControlsTest, TheRingIsNothingToAssistiveTechnology) {
    auto *button = place(new PushButton("One"));
    const int before = QAccessible::queryAccessibleInterface(&window)->childCount();
    button->setFocus(Qt::TabFocusReason);
    ASSERT_NE(ring(), nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window)->childCount(), before);
}

TEST_F(ControlsTest, LinesAreAsThickInOnePlaceAsInAnotherOnAFineScreen) {
    for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        for (int top = 0; top < 8; ++top) {
            QImage picture(QSize(20, 40), QImage::Format_RGB32);
            picture.setDevicePixelRatio(ratio);
            picture.fill(Qt::white);
            QPainter painter(&picture);
            fillHairline(painter, QRect(0, top, 10, 1), Qt::black);
            painter.end();
            int thickness = 0;
            for (int y = 0; y < picture.height(); ++y) {
                thickness += picture.pixelColor(4, y) == Qt::black ? 1 : 0;
            }
            EXPECT_EQ(thickness, static_cast<int>(ratio)) << ratio << " at " << top;
        }
    }
}

TEST_F(ControlsTest, AFieldShowsItsFocusAndTakesTextOfAnyLength) {
    const QPoint edge(below->width() / 2, 0);
    EXPECT_EQ(colourAt(below, edge), theme().focus);
    EXPECT_EQ(below->sizeHint().height(), 32);
    below->clearFocus();
    EXPECT_EQ(colourAt(below, edge), theme().borderStrong);
    below->setText(QString(100'000, 'x'));
    EXPECT_EQ(below->text().size(), 100'000);
}

TEST_F(ControlsTest, AFieldTellsTheWordAtEveryPlaceOfItsText) {
    QAccessibleTextInterface *seen = QAccessible::queryAccessibleInterface(below)->textInterface();
    int start = 0;
    int end = 0;
    const auto wordAt = [&](int offset) { return seen->textAtOffset(offset, QAccessible::WordBoundary, &start, &end); };
    below->setText("one two");
    EXPECT_EQ(wordAt(0), "one");
    EXPECT_EQ(wordAt(2), "one");
    EXPECT_EQ(wordAt(3), " ");
    EXPECT_EQ(wordAt(5), "two");
    EXPECT_EQ(QPoint(start, end), QPoint(4, 7));
    EXPECT_EQ(wordAt(7), "");
    EXPECT_EQ(QPoint(start, end), QPoint(7, 7));
    for (const char *text : {"", "a", "a ", "(", "a.", "👍", "שלום", "e\u0301"}) {
        below->setText(text);
        for (int offset = 0; offset <= below->text().size(); ++offset) {
            for (const auto type : {QAccessible::CharBoundary, QAccessible::WordBoundary, QAccessible::SentenceBoundary,
                                    QAccessible::LineBoundary, QAccessible::ParagraphBoundary}) {
                const QString piece = seen->textAtOffset(offset, type, &start, &end); // and comes back at all
                EXPECT_EQ(piece, start < 0 ? QString() : below->text().mid(start, end - start)) << text;
            }
        }
    }
}

TEST_F(ControlsTest, AssistiveTechnologyReadsAndEditsAField) {
    QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(below);
    QAccessibleTextInterface *text = seen->textInterface();
    QAccessibleEditableTextInterface *edit = seen->editableTextInterface();
    EXPECT_EQ(seen->role(), QAccessible::EditableText);
    EXPECT_TRUE(seen->state().editable);
    below->setPlaceholderText("Hint");
    EXPECT_EQ(seen->text(QAccessible::Description), "Hint");
    EXPECT_EQ(seen->text(QAccessible::Help), "");
    seen->setText(QAccessible::Value, "one three");
    edit->insertText(4, "two ");
    EXPECT_EQ(seen->text(QAccessible::Value), "one two three");
    EXPECT_EQ(text->cursorPosition(), 8);
    edit->replaceText(0, 3, "1");
    edit->deleteText(1, 5);
    EXPECT_EQ(text->text(0, text->characterCount()), "1 three");
    below->undo();
    EXPECT_EQ(below->text(), "1 two three");
    text->setSelection(0, 2, 5);
    EXPECT_EQ(below->selectedText(), "two");
    EXPECT_EQ(text->selectionCount(), 1);
    text->removeSelection(0);
    EXPECT_EQ(text->selectionCount(), 0);
}

TEST_F(ControlsTest, AssistiveTechnologyFollowsAndMovesTheCaretAndTheSelectionOfAField) {
    QAccessibleTextInterface *text = QAccessible::queryAccessibleInterface(below)->textInterface();
    int start = -1;
    int end = -1;
    below->setText("one two three");
    text->setCursorPosition(4);
    EXPECT_EQ(below->cursorPosition(), 4);
    text->selection(0, &start, &end);
    EXPECT_EQ(QPoint(start, end), QPoint(0, 0)) << "there is none";
    text->addSelection(4, 7);
    EXPECT_EQ(below->selectedText(), "two");
    text->selection(0, &start, &end);
    EXPECT_EQ(QPoint(start, end), QPoint(4, 7));
    text->selection(1, &start, &end);
    EXPECT_EQ(QPoint(start, end), QPoint(0, 0)) << "there is only one";
    below->resize(60, 32);
    below->setText(QString("word ").repeated(40));
    below->setCursorPosition(0);
    text->scrollToSubstring(150, 160);
    settle();
    const QRect place = text->characterRect(150);
    EXPECT_TRUE(QRect(below->mapToGlobal(QPoint()), below->size()).contains(place.center()));
}

TEST_F(ControlsTest, AFieldTellsWhereItsCharactersAre) {
    below->resize(120, 32);
    QAccessibleTextInterface *seen = QAccessible::queryAccessibleInterface(below)->textInterface();
    for (const QString &text : {QString("a few"), QString("far more than fits into the field")}) {
        below->setText(text);
        for (const int caret : {0, static_cast<int>(text.size())}) {
            below->setCursorPosition(caret);
            settle();
            const QPoint rightOfIt = seen->characterRect(caret).center();
            EXPECT_TRUE(QRect(below->mapToGlobal(QPoint()), below->size()).contains(rightOfIt));
            const int nearby = caret == 0 ? 2 : caret - 2;
            EXPECT_EQ(seen->offsetAtPoint(seen->characterRect(nearby).topLeft() + QPoint(1, 5)), nearby);
        }
    }
}

TEST_F(ControlsTest, AFieldBeneathASheetFollowsTheTheme) {
    below->setText("text");
    show(new AlertSheet({"Clear", "?", "Clear", true}, {}));
    ASSERT_FALSE(below->isEnabled());
    const QPalette before = QApplication::palette();
    for (const Theme *colours : {&darkTheme(), &lightTheme()}) {
        QApplication::setPalette(paletteOf(*colours));
        settle();
        EXPECT_EQ(below->palette().color(QPalette::Disabled, QPalette::Text), colours->text);
        EXPECT_EQ(below->palette().color(QPalette::Disabled, QPalette::PlaceholderText), colours->text3);
    }
    QApplication::setPalette(before);
    press(Qt::Key_Escape);
}

TEST_F(ControlsTest, ALongToolTipIsCutBetweenCharacters) {
    const QString tip = plainToolTip(QString::fromUtf8("\U0001F600").repeated(1000));
    EXPECT_LT(tip.size(), 600);
    EXPECT_TRUE(tip.isValidUtf16());
    EXPECT_TRUE(plainToolTip({}).isEmpty());
}

TEST_F(ControlsTest, AToolTipShowsEverySpaceAndIsAsWideAsOneWithoutThem) {
    const auto shown = [](const QString &toolTip) {
        QTextDocument document;
        document.setHtml(toolTip);
        return document.toPlainText();
    };
    for (const QString text : {"a   b", "  a  ", "a\n  b\n", "a\tb", "a <b>&amp;", "\n", " "}) {
        EXPECT_TRUE(Qt::mightBeRichText(plainToolTip(text)));
        EXPECT_EQ(shown(plainToolTip(text)).toStdString(), text.toStdString());
    }
    EXPECT_EQ(shown(plainToolTip("a\r\n\r\nb")), "a\n\nb");
    const auto size = [](const QString &toolTip) {
        QLabel label(toolTip);
        label.setWordWrap(true); // as the toolkit's own
        return label.sizeHint();
    };
    for (const int words : {1, 5, 20, 80}) {
        const QString text = QString("word ").repeated(words).trimmed();
        EXPECT_EQ(size(plainToolTip(text)), size("<qt>" + text + "</qt>")) << words;
    }
}

TEST_F(ControlsTest, ABadgeKeepsManyDigitsInside) {
    QImage picture(40, 40, QImage::Format_ARGB32_Premultiplied);
    for (const int number : {1, 12, 123, 12'345, 1'234'567}) {
        picture.fill(Qt::black);
        QPainter painter(&picture);
        drawBadge(painter, QRectF(10, 10, 20, 20), number, theme().accent);
        painter.end();
        for (int at = 0; at < 40; ++at) {
            EXPECT_EQ(picture.pixelColor(8, at), QColor(Qt::black)) << number;
            EXPECT_EQ(picture.pixelColor(31, at), QColor(Qt::black)) << number;
        }
        EXPECT_EQ(picture.pixelColor(20, 11), theme().accent) << number;
    }
}

} // namespace
} // namespace lexivore
