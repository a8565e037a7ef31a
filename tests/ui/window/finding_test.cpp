// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/window_fixture.h"
#include "ui/window/status_item.h"

#include <QLabel>
#include <QLineEdit>

#include <string>

namespace lexivore {
namespace {

using Finding = WindowTest;

TEST_F(Finding, FindGoesBothWaysByKeyButtonAndCommand) {
    setText("one One ONE");
    const auto place = [this] { return find<QLabel>("matchCount")->text(); };
    choose("Find");
    type("one");
    press(Qt::Key_Return);
    EXPECT_EQ(place(), "1 of 3");
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(place(), "3 of 3") << "round the beginning";
    click("findPrevious");
    EXPECT_EQ(place(), "2 of 3");
    click("findNext");
    EXPECT_EQ(place(), "3 of 3");
    choose("FindPrevious");
    EXPECT_EQ(place(), "2 of 3");
    choose("FindNext");
    EXPECT_EQ(place(), "3 of 3");
    click("closeFind");
    EXPECT_FALSE(isShown("findBar"));
    EXPECT_TRUE(find("editor")->hasFocus());
}

TEST_F(Finding, TheCommandFromWithinTheFieldSelectsWhatItHolds) {
    choose("Find");
    type("one");
    press(Qt::Key_End);
    choose("Find");
    EXPECT_EQ(find<QLineEdit>("find")->selectedText(), "one");
}

TEST_F(Finding, EscapeClosesTheFindBarFromEachOfItsControls) {
    for (const char *control : {"find", "findPrevious", "findNext", "closeFind"}) {
        choose("Find");
        find(control)->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Escape);
        EXPECT_FALSE(isShown("findBar")) << control;
        EXPECT_TRUE(find("editor")->hasFocus()) << control;
    }
}

TEST_F(Finding, TheNextMatchOfNothingAsksWhatToFind) {
    for (const char *command : {"FindNext", "FindPrevious"}) {
        choose(command);
        EXPECT_TRUE(isShown("findBar")) << command;
        EXPECT_TRUE(find("find")->hasFocus()) << command;
        press(Qt::Key_Escape);
    }
}

TEST_F(Finding, FindCountsAndSelectsMatches) {
    setText("one two One");
    focusEditor();
    choose("Find");
    type("one");
    EXPECT_EQ(find<QLabel>("matchCount")->text(), "2 matches");
    press(Qt::Key_Return);
    EXPECT_EQ(find<QLabel>("matchCount")->text(), "1 of 2");
    press(Qt::Key_Return);
    EXPECT_EQ(find<QLabel>("matchCount")->text(), "2 of 2");
    EXPECT_EQ(find<StatusItem>("cursorPosition")->text(), "Ln 1, Col 12");
    press(Qt::Key_Escape);
    EXPECT_FALSE(isShown("findBar"));
    EXPECT_TRUE(find("editor")->hasFocus());
}

TEST_F(Finding, PartsOfCharactersAreCountedAndFoundOneAfterTheOther) {
    setText("e\u0301 xe\u0301 e");
    focusEditor();
    choose("Find");
    type("e");
    for (const char *place : {"1 of 3", "2 of 3", "3 of 3", "1 of 3"}) {
        press(Qt::Key_Return);
        EXPECT_EQ(find<QLabel>("matchCount")->text(), place);
    }
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(find<QLabel>("matchCount")->text(), "3 of 3");
}

TEST_F(Finding, TypingAndFindingWaitForNoCountInALargeText) {
    setText("one two One" + std::string(2'000'000, '.'));
    choose("Find");
    type("on");
    EXPECT_EQ(find<QLabel>("matchCount")->text(), "");
    EXPECT_TRUE(QTest::qWaitFor([this] { return find<QLabel>("matchCount")->text() == "2 matches"; }));
    press(Qt::Key_Return);
    EXPECT_EQ(find<QLabel>("matchCount")->text(), "");
    EXPECT_TRUE(QTest::qWaitFor([this] { return find<QLabel>("matchCount")->text() == "1 of 2"; }));
    choose("FindNext");
    choose("Find");
    EXPECT_EQ(find<QLabel>("matchCount")->text(), "") << "not the place of the match before";
    EXPECT_TRUE(QTest::qWaitFor([this] { return find<QLabel>("matchCount")->text() == "2 of 2"; }));
    type("onx");
    EXPECT_EQ(find<QLabel>("matchCount")->text(), "") << "not the place among other matches";
    EXPECT_TRUE(QTest::qWaitFor([this] { return find<QLabel>("matchCount")->text() == "No matches"; }));
}

TEST_F(Finding, TheCountOfMatchesFollowsTheText) {
    setText("one two One");
    choose("Find");
    type("one");
    setText("one");
    EXPECT_TRUE(QTest::qWaitFor([this] { return find<QLabel>("matchCount")->text() == "1 match"; }));
    focusEditor();
    type("one ");
    EXPECT_TRUE(QTest::qWaitFor([this] { return find<QLabel>("matchCount")->text() == "2 matches"; }));
    setText("");
    EXPECT_TRUE(QTest::qWaitFor([this] { return find<QLabel>("matchCount")->text() == "No matches"; }));
}

TEST_F(Finding, FindStartsWithWhatIsSelectedOnOneLine) {
    setText("one two\nthree");
    focusEditor();
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    choose("Find");
    EXPECT_EQ(find<QLineEdit>("find")->text().trimmed(), "one");
    EXPECT_EQ(find<QLineEdit>("find")->selectedText(), find<QLineEdit>("find")->text());
    const QString before = find<QLineEdit>("find")->text();
    focusEditor();
    choose("selectAll");
    choose("Find");
    EXPECT_EQ(find<QLineEdit>("find")->text(), before) << "not several lines";
    setText(std::string(300, 'x'));
    focusEditor();
    choose("selectAll");
    choose("Find");
    EXPECT_EQ(find<QLineEdit>("find")->text(), before) << "not more than anybody looks for";
}

} // namespace
} // namespace lexivore
