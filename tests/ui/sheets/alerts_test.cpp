// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/alerts.h"

#include "tests/ui/sheets/sheet_fixture.h"
#include "ui/controls/focus_ring_frame.h"

#include <QCheckBox>

#include <optional>

namespace lexivore {
namespace {

class AlertsTest : public SheetTest {
protected:
    void expectTexts(const QString &title, const QString &message, const QStringList &buttons) {
        const auto *alert = find<AlertSheet>("alert");
        ASSERT_NE(alert, nullptr);
        EXPECT_EQ(labelsIn(*alert), (QStringList{title, message}));
        QStringList words;
        for (const auto *button : alert->findChildren<PushButton *>()) {
            words << button->text();
        }
        EXPECT_EQ(words, buttons);
    }

    Alerts alerts{window};
    int confirmed = 0;
    int cancelled = 0;
    std::function<void()> confirm = [this] { ++confirmed; };
    std::function<void()> cancel = [this] { ++cancelled; };
};

TEST_F(AlertsTest, ClearTextAsksAndClearsOnlyWhenConfirmed) {
    alerts.askToClearText(confirm);
    settle();
    expectTexts("Clear Text", "Are you sure you want to clear all text?", {"Cancel", "Clear"});
    EXPECT_EQ(find("confirm")->kind(), PushButton::Kind::destructive);
    click(find("cancel"));
    EXPECT_EQ(confirmed, 0);
    EXPECT_FALSE(isOpen());
    alerts.askToClearText(confirm);
    settle();
    click(find("confirm"));
    EXPECT_EQ(confirmed, 1);
    EXPECT_FALSE(isOpen());
}

TEST_F(AlertsTest, ClearOperationsAsksAndClearsOnlyWhenConfirmed) {
    alerts.askToClearOperations(confirm);
    settle();
    expectTexts("Clear Operations", "Are you sure you want to clear all operations?", {"Cancel", "Clear"});
    press(Qt::Key_Escape);
    EXPECT_EQ(confirmed, 0);
    alerts.askToClearOperations(confirm);
    settle();
    click(find("confirm"));
    EXPECT_EQ(confirmed, 1);
}

TEST_F(AlertsTest, ReplaceOperationsTellsWhetherToAskAgain) {
    std::optional<bool> asksNoMore;
    const auto ask = [&] {
        alerts.askToReplaceOperations([&](bool answer) { asksNoMore = answer; }, cancel);
        settle();
    };
    ask();
    expectTexts("Replace Operations", "This will replace all current operations with the recipe. Continue?",
                {"Cancel", "Replace"});
    auto *toggle = find<QCheckBox>("dontAskAgain");
    ASSERT_NE(toggle, nullptr);
    EXPECT_EQ(toggle->text(), "Don't ask again");
    EXPECT_FALSE(toggle->isChecked());
    click(find("confirm"));
    EXPECT_EQ(asksNoMore, false);

    ask();
    QTest::mouseClick(find<QCheckBox>("dontAskAgain"), Qt::LeftButton, {}, QPoint(9, 9));
    click(find("confirm"));
    EXPECT_EQ(asksNoMore, true);

    asksNoMore.reset();
    ask();
    QTest::mouseClick(find<QCheckBox>("dontAskAgain"), Qt::LeftButton, {}, QPoint(9, 9));
    click(find("cancel"));
    EXPECT_EQ(asksNoMore, std::nullopt);
    EXPECT_EQ(cancelled, 1);
}

TEST_F(AlertsTest, DontAskAgainIsReachedAndSetByTheKeys) {
    std::optional<bool> asksNoMore;
    alerts.askToReplaceOperations([&](bool answer) { asksNoMore = answer; }, cancel);
    settle();
    QStringList stops = {focusName()};
    for (int presses = 0; presses < 3; ++presses) {
        press(Qt::Key_Tab);
        stops << focusName();
    }
    EXPECT_EQ(stops, (QStringList{"cancel", "confirm", "dontAskAgain", "cancel"}));
    press(Qt::Key_Backtab);
    press(Qt::Key_Space);
    EXPECT_TRUE(find<QCheckBox>("dontAskAgain")->isChecked());
    press(Qt::Key_Backtab);
    press(Qt::Key_Return);
    EXPECT_EQ(asksNoMore, true);
    EXPECT_EQ(cancelled, 0);
}

TEST_F(AlertsTest, ReplaceRecipeNamesTheRecipe) {
    alerts.askToReplaceRecipe("Shout %1 <b>", confirm, cancel);
    settle();
    expectTexts("Replace Recipe", "A recipe with the name 'Shout %1 <b>' already exists. Do you want to replace it?",
                {"Cancel", "Replace"});
    click(find("cancel"));
    EXPECT_EQ(cancelled, 1);
    alerts.askToReplaceRecipe("Shout", confirm, cancel);
    settle();
    click(find("confirm"));
    EXPECT_EQ(confirmed, 1);
    EXPECT_EQ(cancelled, 1);
}

TEST_F(AlertsTest, ErrorShowsItsMessageAndClosesByOkReturnOrEscape) {
    alerts.showError("Invalid input: Width must be a positive number");
    settle();
    expectTexts("Error", "Invalid input: Width must be a positive number", {"OK"});
    EXPECT_EQ(find("confirm")->kind(), PushButton::Kind::primary);
    click(find("confirm"));
    EXPECT_FALSE(isOpen());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        alerts.showError("again");
        settle();
        press(key);
        EXPECT_FALSE(isOpen());
    }
}

TEST_F(AlertsTest, AnErrorWithoutAMessageIsUnknown) {
    alerts.showError({});
    settle();
    expectTexts("Error", "An unknown error occurred", {"OK"});
}

TEST_F(AlertsTest, ALossStartsOnCancelWithTheRingAndReturnPressesIt) {
    alerts.askToClearText(confirm);
    settle();
    EXPECT_EQ(focusName(), "cancel");
    const auto *ring = find<FocusRingFrame>("focusRing");
    ASSERT_NE(ring, nullptr);
    EXPECT_TRUE(ring->isVisible());
    EXPECT_EQ(ring->followed(), find("cancel"));
    press(Qt::Key_Return);
    EXPECT_EQ(confirmed, 0);
    EXPECT_FALSE(isOpen());

    alerts.askToClearText(confirm);
    settle();
    press(Qt::Key_Tab);
    EXPECT_EQ(focusName(), "confirm");
    press(Qt::Key_Return);
    EXPECT_EQ(confirmed, 1);
}

TEST_F(AlertsTest, TheAnswerMayOpenTheNextAlert) {
    alerts.askToClearText([this] { alerts.showError("next"); });
    settle();
    click(find("confirm"));
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(labelsIn(window).contains("next"));
    press(Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(below->hasFocus());
}

TEST_F(AlertsTest, AnEndlessMessageScrollsAndLeavesTheButtonsInReach) {
    for (const QString &name :
         {QString(10'000, 'x'), QString("line\n").repeated(2'000), QString("\u05E9").repeated(10'000),
          QString("\U0001F469\u200D\U0001F467").repeated(300)}) {
        alerts.askToReplaceRecipe(name, confirm, cancel);
        settle();
        const auto *alert = find<AlertSheet>("alert");
        EXPECT_EQ(alert->width(), 360);
        EXPECT_TRUE(window.rect().contains(alert->geometry()));
        const QRect button(find("confirm")->mapTo(alert, QPoint()), find("confirm")->size());
        EXPECT_TRUE(alert->rect().contains(button));
        click(find("cancel"));
    }
    EXPECT_EQ(cancelled, 4);
}

TEST_F(AlertsTest, HasButtonsOfEqualWidth) {
    alerts.askToClearText(confirm);
    settle();
    EXPECT_EQ(find("cancel")->width(), find("confirm")->width());
    EXPECT_EQ(find("cancel")->height(), 32);
}

TEST_F(AlertsTest, IsReadOutWithItsMessage) {
    alerts.askToClearText(confirm);
    settle();
    QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(find<AlertSheet>("alert"));
    EXPECT_EQ(seen->role(), QAccessible::AlertMessage);
    EXPECT_EQ(seen->text(QAccessible::Name), "Clear Text");
    EXPECT_EQ(seen->text(QAccessible::Description), "Are you sure you want to clear all text?");
}

} // namespace
} // namespace lexivore
