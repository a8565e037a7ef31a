// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/window_fixture.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace lexivore {
namespace {

class Recipes : public WindowTest {
protected:
    [[nodiscard]] Recipe recipe(const std::string &name) {
        return *std::find_if(manager().recipes().begin(), manager().recipes().end(),
                             [&](const Recipe &r) { return r.name == name; });
    }
    void select(const std::string &name) {
        center().post(notification::applyRecipe, recipe(name).id.toString(QUuid::WithoutBraces).toUpper());
    }
    void saveAs(const QString &name) {
        click("saveRecipe");
        find<QLineEdit>("recipeName")->setText(name);
        click("save");
    }
    [[nodiscard]] std::vector<std::string> ownRecipes() {
        std::vector<std::string> names;
        for (const Recipe &r : manager().userRecipes()) {
            names.push_back(r.name);
        }
        return names;
    }
    [[nodiscard]] bool alertHasGone() {
        return QTest::qWaitFor([this] { return !isShown("alert"); });
    }
};

TEST_F(Recipes, TheTemplatesAreThereWhenTheWindowAppears) { EXPECT_EQ(manager().recipes().size(), 13U); }

TEST_F(Recipes, WithAnEmptyStackARecipeIsAppliedWithoutAsking) {
    setText("a\nb");
    select("Create Bullet List");
    EXPECT_FALSE(isShown("alert"));
    EXPECT_EQ(text(), "\xE2\x80\xA2 a\n\xE2\x80\xA2 b");
}

TEST_F(Recipes, WithOperationsTheUserIsAskedAndCancelKeepsThem) {
    setText("a\nb");
    click("transformation.uppercase");
    select("Create Bullet List");
    ASSERT_TRUE(isShown("alert"));
    EXPECT_EQ(find<QLabel>("message")->text(), "This will replace all current operations with the recipe. Continue?");
    click("cancel");
    ASSERT_TRUE(alertHasGone());
    EXPECT_EQ(text(), "A\nB");
    EXPECT_FALSE(state().pendingRecipe);
}

TEST_F(Recipes, ReplaceClearsTheOperationsFirst) {
    setText("a\nb");
    click("transformation.uppercase");
    select("Create Bullet List");
    click("confirm");
    ASSERT_TRUE(alertHasGone());
    EXPECT_EQ(text(), "\xE2\x80\xA2 a\n\xE2\x80\xA2 b");
    EXPECT_EQ(manager().appliedOperations().size(), 3U);
}

TEST_F(Recipes, DontAskAgainIsKeptOnlyWhenConfirmed) {
    setText("a\nb");
    click("transformation.uppercase");
    select("Create Bullet List");
    find<QAbstractButton>("dontAskAgain")->setChecked(true);
    click("cancel");
    ASSERT_TRUE(alertHasGone());
    EXPECT_FALSE(preferences.value(preference::dontShowReplaceOperationsAlert).toBool());
    select("Create Bullet List");
    ASSERT_TRUE(isShown("alert"));
    find<QAbstractButton>("dontAskAgain")->setChecked(true);
    click("confirm");
    ASSERT_TRUE(alertHasGone());
    EXPECT_TRUE(preferences.value(preference::dontShowReplaceOperationsAlert).toBool());
    select("Normalize Text");
    EXPECT_FALSE(isShown("alert"));
    EXPECT_EQ(text(), "a\nb");
}

TEST_F(Recipes, PausedNoRecipeIsApplied) {
    setText("a\nb");
    click("pause");
    select("Create Bullet List");
    EXPECT_EQ(text(), "a\nb");
}

TEST_F(Recipes, WhatIsNoRecipesIdIsIgnored) {
    setText("a");
    center().post(notification::applyRecipe, QString("not a uuid"));
    center().post(notification::applyRecipe, QUuid::createUuid().toString());
    center().post(notification::applyRecipe);
    EXPECT_EQ(text(), "a");
}

TEST_F(Recipes, TheStackIsSavedUnderAName) {
    setText("a");
    click("transformation.uppercase");
    saveAs("Shout");
    EXPECT_EQ(ownRecipes(), std::vector<std::string>{"Shout"});
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isShown("recipeSaveSheet"); }));
    EXPECT_EQ(state().newRecipeName, "");
}

TEST_F(Recipes, ANameThatExistsIsAskedAboutAndAnotherCaseIsNot) {
    setText("a");
    click("transformation.uppercase");
    saveAs("Shout");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("recipeSaveSheet"); }));
    const QUuid first = manager().userRecipes().front().id;
    saveAs("Shout");
    ASSERT_TRUE(isShown("alert"));
    EXPECT_EQ(find<QLabel>("message")->text(),
              "A recipe with the name 'Shout' already exists. Do you want to replace it?");
    find("alert")->findChild<QAbstractButton *>("cancel")->click();
    ASSERT_TRUE(alertHasGone());
    EXPECT_EQ(manager().userRecipes().front().id, first);
    EXPECT_EQ(find<QLineEdit>("recipeName")->text(), "");

    find<QLineEdit>("recipeName")->setText("Shout");
    click("save");
    ASSERT_TRUE(isShown("alert"));
    click("confirm");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("recipeSaveSheet"); }));
    ASSERT_EQ(ownRecipes(), std::vector<std::string>{"Shout"});
    EXPECT_NE(manager().userRecipes().front().id, first);

    saveAs("shout");
    EXPECT_EQ(ownRecipes(), (std::vector<std::string>{"Shout", "shout"}));
}

TEST_F(Recipes, ReplacingWithoutOperationsLosesNothing) {
    setText("a");
    click("transformation.uppercase");
    saveAs("Shout");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("recipeSaveSheet"); }));
    manager().clearOperations();
    saveAs("Shout");
    click("confirm");
    EXPECT_EQ(ownRecipes(), std::vector<std::string>{"Shout"});
}

} // namespace
} // namespace lexivore
