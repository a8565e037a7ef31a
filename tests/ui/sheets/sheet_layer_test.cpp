// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/sheets/sheet_fixture.h"
#include "ui/sheets/alert_sheet.h"
#include "ui/sheets/recipe_save_sheet.h"
#include "ui/theme/theme.h"

#include <QAction>
#include <QMenuBar>
#include <QVBoxLayout>

namespace lexivore {
namespace {

class SheetLayerTest : public SheetTest {};

TEST_F(SheetLayerTest, CoversTheWholeWindowWithTheSheetInTheMiddle) {
    window.menuBar()->addMenu("File")->addAction("Open");
    RecipeSaveSheet *sheet = show(new RecipeSaveSheet({}, {}));
    EXPECT_EQ(sheet->parentWidget()->geometry(), window.rect());
    const QPoint centre = sheet->geometry().center();
    EXPECT_NEAR(centre.x(), window.rect().center().x(), 1);
    EXPECT_NEAR(centre.y(), window.rect().center().y(), 1);
    window.resize(900, 600);
    settle();
    EXPECT_EQ(sheet->parentWidget()->geometry(), window.rect());
    EXPECT_NEAR(sheet->geometry().center().x(), 450, 1);
}

TEST_F(SheetLayerTest, PaintsTheScrimOverWhatIsBeneath) {
    const QColor before = window.grab().toImage().pixelColor(500, 650);
    show(new RecipeSaveSheet({}, {}));
    const QColor after = window.grab().toImage().pixelColor(500, 650);
    const QColor scrim = theme().scrim;
    const auto blended = [&](int ground, int colour) { return ground + (colour - ground) * double(scrim.alphaF()); };
    EXPECT_NEAR(after.red(), blended(before.red(), scrim.red()), 2);
    EXPECT_NEAR(after.blue(), blended(before.blue(), scrim.blue()), 2);
}

TEST_F(SheetLayerTest, HasOpaqueRoundedCorners) {
    RecipeSaveSheet *sheet = show(new RecipeSaveSheet({}, {}));
    const QImage picture = window.grab().toImage();
    const QColor scrimmed = picture.pixelColor(500, 650);
    EXPECT_NEAR(picture.pixelColor(sheet->geometry().topLeft()).green(), scrimmed.green(), 6);
    EXPECT_EQ(picture.pixelColor(sheet->geometry().topLeft() + QPoint(14, 6)), theme().pane);
}

TEST_F(SheetLayerTest, DisablesEverythingBeneathUntilItIsDismissed) {
    QMenu *menu = window.menuBar()->addMenu("File");
    int opened = 0;
    QObject::connect(menu->addAction("Open"), &QAction::triggered, [&] { ++opened; });
    menu->actions().first()->setShortcut(QKeySequence("Ctrl+O"));
    settle();
    press(Qt::Key_O, Qt::ControlModifier);
    ASSERT_EQ(opened, 1);

    RecipeSaveSheet *sheet = show(new RecipeSaveSheet({}, {}));
    EXPECT_FALSE(below->isEnabled());
    EXPECT_FALSE(window.menuBar()->isEnabled());
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(opened, 1);
    const QPoint overField = below->mapTo(&window, below->rect().center());
    QTest::mouseClick(window.childAt(overField), Qt::LeftButton);
    EXPECT_FALSE(below->hasFocus());

    sheet->dismiss();
    settle();
    EXPECT_TRUE(below->isEnabled());
    EXPECT_TRUE(window.menuBar()->isEnabled());
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(opened, 2);
}

TEST_F(SheetLayerTest, LeavesDisabledWhatWasDisabledBefore) {
    window.menuBar()->setEnabled(false);
    show(new RecipeSaveSheet({}, {}))->dismiss();
    EXPECT_FALSE(window.menuBar()->isEnabled());
}

TEST_F(SheetLayerTest, GivesTheFocusBackToWhereItWas) {
    show(new RecipeSaveSheet({}, {}));
    EXPECT_FALSE(below->hasFocus());
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(below->hasFocus());
}

TEST_F(SheetLayerTest, TheFocusStartsAtTheFirstControlThatCanBeUsed) {
    class Choice : public Sheet {
    public:
        Choice() : Sheet("Choice", 300) {
            auto *first = new PushButton("First");
            first->setEnabled(false);
            auto *second = new PushButton("Second");
            second->setObjectName("second");
            body().addWidget(buttonRow({first, second}));
        }
    };
    show(new Choice);
    EXPECT_EQ(focusName(), "second");
}

TEST_F(SheetLayerTest, KeepsTheFocusInsideHoweverOftenTabIsPressed) {
    RecipeSaveSheet *sheet = show(new RecipeSaveSheet("name", {}));
    QSet<QString> visited;
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        for (int step = 0; step < 7; ++step) {
            press(key);
            EXPECT_TRUE(sheet->isAncestorOf(QApplication::focusWidget()));
            visited << focusName();
        }
    }
    EXPECT_EQ(visited, (QSet<QString>{"recipeName", "cancel", "save"}));
}

TEST_F(SheetLayerTest, AnAlertOverASheetHasAScrimOfItsOwnAndGivesTheFocusBackToTheSheet) {
    RecipeSaveSheet *sheet = show(new RecipeSaveSheet("name", {}));
    const QColor once = window.grab().toImage().pixelColor(10, 10);
    show(new AlertSheet({"Replace Recipe", "Really?", "Replace", true}, {}));
    EXPECT_FALSE(sheet->isEnabled());
    EXPECT_LT(window.grab().toImage().pixelColor(10, 10).lightness(), once.lightness());
    press(Qt::Key_Escape);
    EXPECT_TRUE(sheet->isEnabled());
    EXPECT_EQ(focusName(), "recipeName");
    EXPECT_FALSE(below->isEnabled());
}

TEST_F(SheetLayerTest, ASheetThatEndsBeneathAnotherLeavesTheWindowToThatOne) {
    RecipeSaveSheet *beneath = show(new RecipeSaveSheet("name", {}));
    const AlertSheet *alert = show(new AlertSheet({"Error", "Something else went wrong", "OK"}, {}));
    beneath->dismiss();
    settle();
    EXPECT_FALSE(below->isEnabled());
    EXPECT_TRUE(alert->isAncestorOf(QApplication::focusWidget()));
    press(Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(below->isEnabled());
    EXPECT_TRUE(below->hasFocus());
}

TEST_F(SheetLayerTest, ReturnPressesTheButtonThatHasTheFocus) {
    bool isSaved = false;
    show(new RecipeSaveSheet("name", [&](const QString &) { isSaved = true; }));
    press(Qt::Key_Tab);
    ASSERT_EQ(focusName(), "cancel");
    press(Qt::Key_Return);
    EXPECT_FALSE(isSaved);
    EXPECT_FALSE(isOpen());
}

TEST_F(SheetLayerTest, StaysWithinASmallWindow) {
    window.resize(340, 200);
    AlertSheet *alert = show(new AlertSheet({"Error", QString("word ").repeated(400), "OK"}, {}));
    EXPECT_TRUE(window.rect().contains(alert->geometry()));
    EXPECT_TRUE(alert->rect().contains(QRect(find("confirm")->mapTo(alert, QPoint()), find("confirm")->size())));
}

TEST_F(SheetLayerTest, IsADialogWithANameForAssistiveTechnology) {
    const RecipeSaveSheet *sheet = show(new RecipeSaveSheet({}, {}));
    QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(const_cast<RecipeSaveSheet *>(sheet));
    EXPECT_EQ(seen->role(), QAccessible::Dialog);
    EXPECT_EQ(seen->text(QAccessible::Name), "Save Recipe");
    EXPECT_TRUE(seen->state().modal);
}

} // namespace
} // namespace lexivore
