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

TEST_F(Recipes, TheUserIsToldOnceThatNothingIsKept) {
    setText("a");
    useStackMode();
    click("transformation.uppercase");
    preferences.setStored(false);
    saveAs("Mine");
    ASSERT_TRUE(QTest::qWaitFor([this] { return isShown("alert"); }));
    EXPECT_FALSE(isShown("recipeSaveSheet"));
    EXPECT_EQ(find<QLabel>("message")->text(),
              "Favorites and recipes cannot be saved now. What cannot be saved is lost when Lexivore quits.");
    click("confirm");
    ASSERT_TRUE(alertHasGone());
    EXPECT_EQ(ownRecipes(), std::vector<std::string>{"Mine"});

    const auto isToldOf = [this](const char *favorite) {
        manager().toggleFavorite(favorite);
        QCoreApplication::processEvents();
        return isShown("alert");
    };
    EXPECT_FALSE(isToldOf("lowercase"));
    preferences.setStored(true);
    EXPECT_FALSE(isToldOf("uppercase"));
    preferences.setStored(false);
    EXPECT_TRUE(isToldOf("titlecase"));
}

TEST_F(Recipes, NothingIsSaidOfTemplatesThatCannotBeKept) {
    preferences.clear();
    preferences.setStored(false);
    restart();
    EXPECT_EQ(manager().recipes().size(), 13U);
    EXPECT_FALSE(isShown("alert"));
}

TEST_F(Recipes, WithAnEmptyStackARecipeIsAppliedWithoutAsking) {
    setText("a\nb");
    select("Create Bullet List");
    EXPECT_FALSE(isShown("alert"));
    EXPECT_EQ(text(), "\xE2\x80\xA2 a\n\xE2\x80\xA2 b");
}

TEST_F(Recipes, AnErrorIsShownHoweverTheRecipeWasChosen) {
    const auto isTold = [this](const QString &why) {
        const bool told = isShown("alert") && find<QLabel>("message")->text() == why;
        click("confirm");
        return told && alertHasGone();
    };
    select("Create Bullet List");
    EXPECT_TRUE(isTold("Invalid input: Text is empty"));

    setText("%");
    center().post(notification::applyTransformation, QString("url-encode"));
    manager().saveRecipe("Encode");
    Recipe failing = recipe("Encode");
    failing.operations[0].transformation = "base64-decode";
    failing.id = QUuid::createUuid();
    failing.name = "Decode";
    manager().importRecipes({failing});
    select("Decode");
    ASSERT_TRUE(isShown("alert"));
    click("confirm"); // replaces the operations
    ASSERT_TRUE(QTest::qWaitFor([this] { return window().findChildren<QWidget *>("alert").size() == 1; }));
    EXPECT_TRUE(find<QLabel>("message")->text().startsWith("Invalid input: ")) << "the error";
    click("confirm");
    EXPECT_TRUE(alertHasGone());
    EXPECT_EQ(text(), "%");
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
    for (int step = 0; step < 4; ++step) {
        choose("UndoTransformation");
    }
    EXPECT_EQ(text(), "A\nB") << "clearing is a step too";
    EXPECT_EQ(manager().appliedOperations().size(), 1U);
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

TEST_F(Recipes, ReplacingWithoutOperationsLosesNothingAndSaysSo) {
    setText("a");
    click("transformation.uppercase");
    saveAs("Shout");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("recipeSaveSheet"); }));
    manager().clearOperations();
    saveAs("Shout");
    click("confirm");
    EXPECT_EQ(ownRecipes(), std::vector<std::string>{"Shout"});
    ASSERT_TRUE(QTest::qWaitFor([this] { return window().findChildren<QWidget *>("alert").size() == 1; }));
    EXPECT_EQ(find<QLabel>("message")->text(), "There are no operations to save as a recipe.");
    click("confirm");
    EXPECT_FALSE(isShown("recipeSaveSheet"));
    EXPECT_EQ(state().newRecipeName, "");
}

TEST_F(Recipes, SavingWithoutOperationsClosesTheSheetAndSaysWhyNothingWasSaved) {
    choose("ShowRecipeSheet");
    type("Nothing");
    press(Qt::Key_Return);
    EXPECT_FALSE(isShown("recipeSaveSheet"));
    EXPECT_EQ(find<QLabel>("message")->text(), "There are no operations to save as a recipe.");
    press(Qt::Key_Return);
    EXPECT_TRUE(ownRecipes().empty());
}

TEST_F(Recipes, ABuiltInRecipesNameIsFree) {
    setText("a");
    click("transformation.uppercase");
    saveAs("Normalize Text");
    EXPECT_FALSE(isShown("alert"));
    EXPECT_EQ(ownRecipes(), std::vector<std::string>{"Normalize Text"});
    EXPECT_EQ(manager().recipes().size(), 14U);
}

TEST_F(Recipes, TheTypedNameOutlivesACancelledSheet) {
    choose("ShowRecipeSheet");
    type("Half a na");
    EXPECT_EQ(state().newRecipeName, "Half a na");
    press(Qt::Key_Escape);
    ASSERT_FALSE(isShown("recipeSaveSheet"));
    choose("ShowRecipeSheet");
    EXPECT_EQ(find<QLineEdit>("recipeName")->text(), "Half a na");
    EXPECT_EQ(find<QLineEdit>("recipeName")->selectedText(), "Half a na");
}

TEST_F(Recipes, EachSheetOpensOnce) {
    setText("a");
    for (const auto &[notification, name] : {std::pair(notification::showRecipeSheet, "recipeSaveSheet"),
                                             std::pair(notification::showManageRecipes, "manageRecipesSheet")}) {
        center().post(notification);
        center().post(notification);
        EXPECT_EQ(window().findChildren<QWidget *>(name).size(), 1);
        press(Qt::Key_Escape);
        EXPECT_FALSE(isShown(name));
        center().post(notification);
        EXPECT_TRUE(isShown(name)) << "and again";
        press(Qt::Key_Escape);
    }
}

TEST_F(Recipes, NamesOfAnyKindAreSavedReplacedRenamedAndDeleted) {
    setText("a");
    click("transformation.uppercase");
    const QStringList names = {QString(10'000, 'x'), QString::fromUtf8("\U0001F469\u200D\U0001F467 <b>&amp; %1"),
                               QString::fromUtf8("\u202E\u05E9\u05DC\u05D5\u05DD"), QString("two\nlines"), " "};
    for (const QString &name : names) {
        saveAs(name);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("recipeSaveSheet"); }));
        EXPECT_EQ(ownRecipes(), std::vector<std::string>{name.toStdString()});
        saveAs(name);
        ASSERT_TRUE(isShown("alert"));
        EXPECT_TRUE(window().rect().contains(find("alert")->geometry()));
        click("confirm");
        ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("recipeSaveSheet"); }));
        EXPECT_EQ(ownRecipes(), std::vector<std::string>{name.toStdString()});

        choose("ShowManageRecipes");
        press(Qt::Key_F2);
        EXPECT_EQ(find<QLineEdit>("editedName")->text(), name);
        press(Qt::Key_Return);
        EXPECT_EQ(ownRecipes(), std::vector<std::string>{name.toStdString()});
        press(Qt::Key_Delete);
        EXPECT_TRUE(ownRecipes().empty());
        press(Qt::Key_Escape);
    }
}

} // namespace
} // namespace lexivore
