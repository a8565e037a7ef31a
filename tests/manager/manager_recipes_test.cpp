// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/transformation_manager.h"

#include "manager/recipe_json.h"
#include "tests/manager/change_counter.h"
#include "tests/support/memory_preferences.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>
#include <vector>

namespace lexivore {
namespace {

class ManagerRecipes : public testing::Test {
protected:
    void apply(std::string_view id, const ParameterMap &parameters = {}) {
        manager.applyTransformation(*manager.findTransformation(id), parameters);
    }
    std::string_view text() const { return manager.currentText().view(); }
    static std::string names(const std::vector<Recipe> &recipes) {
        std::string all;
        for (const Recipe &recipe : recipes) {
            all += recipe.name + "|";
        }
        return all;
    }
    /// What a manager that starts now would load.
    std::vector<Recipe> stored() { return TransformationManager(preferences).recipes(); }
    std::size_t undoCount() const { return manager.history().undoStack().size(); }

    static Recipe recipe(const std::vector<std::pair<std::string, ParameterMap>> &steps) {
        Recipe made;
        for (const auto &[id, parameters] : steps) {
            AppliedOperation &operation = made.operations.emplace_back();
            operation.transformation = id;
            operation.parameters = parameters;
        }
        return made;
    }

    test::MemoryPreferences preferences;
    TransformationManager manager{preferences};
    test::ChangeCounter changes{manager};
};

TEST_F(ManagerRecipes, AnEmptyStackMakesNoRecipe) {
    manager.saveRecipe("nothing");
    EXPECT_TRUE(manager.recipes().empty());
    EXPECT_EQ(preferences.writeCount(), 0);
    EXPECT_EQ(changes.take(), "");
}

TEST_F(ManagerRecipes, SavingKeepsTheWholeStackWithItsFlags) {
    manager.setCurrentText(Text("abc"));
    apply("add-prefix", {{"prefix", "> "}});
    apply("uppercase");
    manager.toggleOperation(1);
    changes.take();

    const Timestamp before = Timestamp::now();
    manager.saveRecipe("quoted");
    EXPECT_EQ(changes.take(), "recipes");
    EXPECT_GE(manager.recipes().front().createdAt.secondsSinceReferenceDate, before.secondsSinceReferenceDate);
    EXPECT_LE(manager.recipes().front().createdAt.secondsSinceReferenceDate,
              Timestamp::now().secondsSinceReferenceDate);
    ASSERT_EQ(manager.recipes().size(), 1U);
    const Recipe &saved = manager.recipes().front();
    EXPECT_EQ(saved.name, "quoted");
    EXPECT_EQ(saved.category, RecipeCategory::user);
    EXPECT_TRUE(haveSameFields(saved.operations, manager.appliedOperations()));
    EXPECT_FALSE(saved.operations[1].isEnabled);
    ASSERT_EQ(stored().size(), 1U);
    EXPECT_TRUE(haveSameFields(stored().front(), saved));

    manager.saveRecipe("quoted"); // names are the caller's business
    EXPECT_EQ(names(manager.recipes()), "quoted|quoted|");
    EXPECT_NE(manager.recipes()[0].id, manager.recipes()[1].id);
}

TEST_F(ManagerRecipes, DeletesAndRenamesByIdWhatIsTheUsers) {
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    manager.saveRecipe("a");
    manager.saveRecipe("b");
    manager.ensureTemplates();
    changes.take();

    manager.renameRecipe(manager.recipes().back(), "c");
    EXPECT_EQ(manager.recipes().back().name, "c");
    EXPECT_EQ(stored().back().name, "c");
    EXPECT_EQ(changes.take(), "recipes");

    const Recipe deleted = manager.recipes().back(); // a copy: the one in the list is gone afterwards
    manager.deleteRecipe(manager.recipes().back());
    EXPECT_EQ(manager.recipes().back().name, "a");
    EXPECT_EQ(stored().size(), 14U);
    EXPECT_EQ(changes.take(), "recipes");

    manager.renameRecipe(deleted, "d");
    manager.deleteRecipe(deleted);
    EXPECT_EQ(names({manager.recipes().back()}), "a|");
    EXPECT_EQ(changes.take(), "");
}

TEST_F(ManagerRecipes, TemplatesAreNeitherDeletedNorRenamed) {
    manager.ensureTemplates();
    const int writes = preferences.writeCount();
    changes.take();
    const std::string before = names(manager.recipes());
    manager.deleteRecipe(manager.recipes().front());
    manager.renameRecipe(manager.recipes().front(), "mine");
    EXPECT_EQ(names(manager.recipes()), before);
    EXPECT_EQ(preferences.writeCount(), writes);
    EXPECT_EQ(changes.take(), "");
}

TEST_F(ManagerRecipes, DeletingRemovesEveryRecipeWithTheId) {
    Recipe twice = recipe({{"uppercase", {}}});
    Recipe other = recipe({{"uppercase", {}}});
    other.name = "other";
    preferences.setValue(QLatin1String(preference::recipes), *RecipeJson::encode({twice, other, twice}));
    manager.loadRecipes();
    EXPECT_EQ(changes.take(), "recipes");
    manager.deleteRecipe(twice);
    EXPECT_EQ(names(manager.recipes()), "other|");
}

TEST_F(ManagerRecipes, RenamingTakesTheFirstRecipeWithTheIdAndAnyName) {
    const Recipe twice = recipe({{"uppercase", {}}});
    preferences.setValue(QLatin1String(preference::recipes), *RecipeJson::encode({twice, twice}));
    manager.loadRecipes();
    manager.renameRecipe(twice, "first");
    EXPECT_EQ(names(manager.recipes()), "first||");
    manager.renameRecipe(twice, "line\nbreak \U0001F469\u200D\U0001F467");
    EXPECT_EQ(names(stored()), "line\nbreak \U0001F469\u200D\U0001F467||");
    manager.renameRecipe(twice, "");
    EXPECT_EQ(names(stored()), "||");
}

TEST_F(ManagerRecipes, ANewRecipeStandsAtTheEndAndItsReplacementToo) {
    manager.ensureTemplates();
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    manager.saveRecipe("a");
    manager.saveRecipe("b");
    EXPECT_EQ(names({manager.recipes()[13], manager.recipes()[14]}), "a|b|");
    const Recipe replaced = manager.recipes()[13];
    manager.deleteRecipe(replaced);
    manager.saveRecipe("a");
    EXPECT_EQ(names({manager.recipes()[13], manager.recipes()[14]}), "b|a|");
    EXPECT_NE(manager.recipes()[14].id, replaced.id);
    EXPECT_GT(manager.recipes()[14].createdAt.secondsSinceReferenceDate, replaced.createdAt.secondsSinceReferenceDate);
}

TEST_F(ManagerRecipes, WhatCannotBeEncodedIsNotWritten) {
    manager.ensureTemplates();
    const int writes = preferences.writeCount();
    Recipe timeless = recipe({});
    timeless.createdAt = {std::numeric_limits<double>::infinity()};
    manager.importRecipes({timeless});
    EXPECT_EQ(preferences.writeCount(), writes);
    EXPECT_EQ(stored().size(), 13U);
}

TEST_F(ManagerRecipes, TheFirstStartStoresTheTemplatesOnce) {
    manager.ensureTemplates();
    EXPECT_EQ(manager.recipes().size(), 13U);
    EXPECT_EQ(changes.take(), "recipes");
    const QUuid first = manager.recipes().front().id;
    manager.ensureTemplates();
    EXPECT_EQ(changes.take(), "");

    TransformationManager later(preferences);
    later.ensureTemplates();
    ASSERT_EQ(later.recipes().size(), 13U);
    EXPECT_EQ(later.recipes().front().id, first);
}

TEST_F(ManagerRecipes, MissingTemplatesComeBackInFrontOfTheUsersRecipes) {
    manager.setCurrentText(Text("abc"));
    apply("uppercase");
    manager.saveRecipe("a");
    manager.saveRecipe("b");
    TransformationManager later(preferences);
    later.ensureTemplates();
    ASSERT_EQ(later.recipes().size(), 15U);
    EXPECT_EQ(later.recipes()[0].name, "Clean Code Comments");
    EXPECT_EQ(later.recipes()[12].name, "Unix Line Endings");
    EXPECT_EQ(later.recipes()[13].name, "a");
    EXPECT_EQ(later.recipes()[14].name, "b");
    EXPECT_EQ(names(later.userRecipes()), "a|b|");
}

TEST_F(ManagerRecipes, OneTemplateIsEnoughToLeaveTheListAlone) {
    preferences.setValue(QLatin1String(preference::recipes), *RecipeJson::encode({makeRecipeTemplates()[4]}));
    manager.loadRecipes();
    manager.ensureTemplates();
    EXPECT_EQ(names(manager.recipes()), "Extract Unique Lines|");
}

TEST_F(ManagerRecipes, ApplyingTakesTheTextAsBaseAndAnnouncesOnce) {
    manager.setCurrentText(Text(" b \n\n a\n b "));
    changes.take();
    manager.applyRecipe(makeRecipeTemplates()[4]);
    EXPECT_EQ(text(), "a\nb");
    EXPECT_EQ(manager.originalText().view(), " b \n\n a\n b ");
    EXPECT_EQ(manager.appliedOperations().size(), 4U);
    EXPECT_EQ(undoCount(), 4U);
    EXPECT_EQ(changes.take(), "currentText originalText operations measures history");

    manager.undo();
    EXPECT_EQ(text(), "b\na");
    EXPECT_EQ(manager.appliedOperations().size(), 3U);
}

TEST_F(ManagerRecipes, ApplyingAppendsWithFreshIdsAndEnablesAll) {
    manager.setCurrentText(Text("abc"));
    apply("add-suffix", {{"suffix", "!"}});
    Recipe shout = recipe({{"uppercase", {}}, {"add-prefix", {{"prefix", "> "}}}});
    shout.operations[0].isEnabled = false;
    manager.applyRecipe(shout);
    EXPECT_EQ(text(), "> ABC!");
    EXPECT_EQ(manager.originalText().view(), "abc");
    ASSERT_EQ(manager.appliedOperations().size(), 3U);
    EXPECT_TRUE(manager.appliedOperations()[1].isEnabled);
    EXPECT_NE(manager.appliedOperations()[1].id, shout.operations[0].id);
    EXPECT_EQ(manager.appliedOperations()[1].transformationName, "UPPERCASE");
}

TEST_F(ManagerRecipes, ApplyingToAnEmptyTextChangesNothing) {
    try {
        manager.applyRecipe(makeRecipeTemplates()[0]);
        FAIL() << "no error";
    } catch (const TransformationError &error) {
        EXPECT_EQ(error.description(), "Invalid input: Text is empty");
    }
    EXPECT_EQ(undoCount(), 0U);
    EXPECT_EQ(changes.take(), "");
}

TEST_F(ManagerRecipes, AnErrorHalfWayKeepsWhatWasApplied) {
    manager.setCurrentText(Text("abc"));
    changes.take();
    try {
        manager.applyRecipe(recipe({{"uppercase", {}}, {"hex-decode", {}}, {"reverse", {}}}));
        FAIL() << "no error";
    } catch (const TransformationError &error) {
        EXPECT_EQ(error.description(), "Invalid input: Invalid hexadecimal string");
    }
    EXPECT_EQ(text(), "ABC");
    EXPECT_EQ(manager.originalText().view(), "abc");
    EXPECT_EQ(manager.appliedOperations().size(), 1U);
    EXPECT_EQ(undoCount(), 2U); // the failed one keeps its entry, as it does alone
    EXPECT_EQ(changes.take(), "currentText originalText operations measures history");
}

TEST_F(ManagerRecipes, ATextThatBecomesEmptyStopsTheRecipe) {
    manager.setCurrentText(Text("abc"));
    EXPECT_THROW(manager.applyRecipe(recipe({{"delete-lines-containing", {{"text", "b"}}}, {"uppercase", {}}})),
                 TransformationError);
    EXPECT_EQ(text(), "");
    EXPECT_EQ(manager.appliedOperations().size(), 1U);
    EXPECT_EQ(undoCount(), 1U);
}

TEST_F(ManagerRecipes, UnknownOperationsOfARecipeArePassedOver) {
    manager.setCurrentText(Text("abc"));
    changes.take();
    manager.applyRecipe(recipe({{"gone", {}}, {"uppercase", {}}, {"", {}}}));
    EXPECT_EQ(text(), "ABC");
    EXPECT_EQ(manager.appliedOperations().size(), 1U);
    EXPECT_EQ(undoCount(), 1U);

    manager.clearAll();
    manager.setCurrentText(Text("abc"));
    changes.take();
    manager.applyRecipe(recipe({{"gone", {}}}));
    EXPECT_EQ(manager.originalText().view(), "abc");
    EXPECT_EQ(changes.take(), "originalText");
}

TEST_F(ManagerRecipes, ImportingAppendsAsTheUsersOwnWithFreshIds) {
    manager.ensureTemplates();
    changes.take();
    const std::vector<Recipe> others = makeRecipeTemplates();
    manager.importRecipes(others);
    EXPECT_EQ(changes.take(), "recipes");
    ASSERT_EQ(manager.recipes().size(), 26U);
    EXPECT_EQ(manager.userRecipes().size(), 13U);
    std::set<QUuid> ids;
    for (const Recipe &one : manager.recipes()) {
        ids.insert(one.id);
    }
    EXPECT_EQ(ids.size(), 26U);
    const Recipe &imported = manager.recipes()[13];
    EXPECT_NE(imported.id, others[0].id);
    EXPECT_EQ(imported.name, others[0].name);
    EXPECT_EQ(imported.createdAt, others[0].createdAt);
    EXPECT_TRUE(haveSameFields(imported.operations, others[0].operations));
    EXPECT_EQ(stored().size(), 26U);

    const int writes = preferences.writeCount();
    manager.importRecipes({});
    EXPECT_EQ(preferences.writeCount(), writes);
    EXPECT_EQ(changes.take(), "");
}

TEST_F(ManagerRecipes, StoresTheSelectedRecipeAndNothingMore) {
    const Recipe one = makeRecipeTemplates()[0];
    manager.setSelectedRecipe(one);
    EXPECT_TRUE(haveSameFields(*manager.selectedRecipe(), one));
    EXPECT_EQ(changes.take(), "selectedRecipe");
    manager.setSelectedRecipe(one);
    EXPECT_EQ(changes.take(), "");
    Recipe renamed = one;
    renamed.name = "other";
    manager.setSelectedRecipe(renamed);
    EXPECT_EQ(changes.take(), "selectedRecipe");
    manager.setSelectedRecipe(std::nullopt);
    EXPECT_EQ(changes.take(), "selectedRecipe");
    manager.setSelectedRecipe(std::nullopt);
    EXPECT_EQ(changes.take(), "");
    EXPECT_EQ(preferences.writeCount(), 0);
}

TEST_F(ManagerRecipes, UndecodableRecipesGiveAnEmptyListThatTheNextSaveOverwrites) {
    const QByteArray good = *RecipeJson::encode(makeRecipeTemplates());
    const QVariant damaged[] = {good.chopped(1), QString::fromUtf8(good), 5, QVariantList{1, 2},
                                QByteArray(good).replace("Coding", "coding")};
    for (const QVariant &value : damaged) {
        preferences.setValue(QLatin1String(preference::recipes), value);
        TransformationManager later(preferences);
        EXPECT_TRUE(later.recipes().empty());
        later.ensureTemplates();
        EXPECT_EQ(later.recipes().size(), 13U);
        EXPECT_EQ(stored().size(), 13U);
    }
    manager.ensureTemplates();
    preferences.setValue(QLatin1String(preference::recipes), QByteArray("broken"));
    manager.loadRecipes();
    EXPECT_EQ(manager.recipes().size(), 13U); // stays as it is
    preferences.remove(QLatin1String(preference::recipes));
    manager.loadRecipes();
    EXPECT_EQ(manager.recipes().size(), 13U);
}

TEST_F(ManagerRecipes, FavoritesAreStoredAtOnceAndShownInCatalogOrder) {
    manager.toggleFavorite("sort-lines");
    manager.toggleFavorite("uppercase");
    manager.toggleFavorite("no such id");
    EXPECT_EQ(changes.take(), "favorites favorites favorites");
    EXPECT_EQ(preferences.writeCount(), 3);
    const TransformationManager later(preferences);
    EXPECT_EQ(later.favorites(), (std::set<std::string, std::less<>>{"no such id", "sort-lines", "uppercase"}));
    ASSERT_EQ(later.favoriteTransformations().size(), 2U);
    EXPECT_EQ(later.favoriteTransformations()[0]->id(), "uppercase");
    EXPECT_EQ(later.favoriteTransformations()[1]->id(), "sort-lines");
    EXPECT_EQ(later.transformations(TransformationCategory::favorites), later.favoriteTransformations());
}

TEST_F(ManagerRecipes, AnUnknownFavoriteIsStoredAgain) {
    preferences.setValue(QLatin1String(preference::favorites), QVariantList{QStringLiteral("no such id")});
    TransformationManager later(preferences);
    later.toggleFavorite("uppercase");
    EXPECT_EQ(preferences.value(QLatin1String(preference::favorites)),
              QVariant(QVariantList{QStringLiteral("no such id"), QStringLiteral("uppercase")}));
    EXPECT_EQ(later.favoriteTransformations().size(), 1U);
}

TEST_F(ManagerRecipes, FavoritesStayWhenWhatIsStoredIsNone) {
    manager.toggleFavorite("uppercase");
    preferences.setValue(QLatin1String(preference::favorites), QVariantList{QStringLiteral("lowercase"), 5});
    manager.loadFavorites();
    EXPECT_TRUE(manager.favorites().contains("uppercase"));
    preferences.remove(QLatin1String(preference::favorites));
    manager.loadFavorites();
    EXPECT_TRUE(manager.favorites().contains("uppercase"));
    preferences.setValue(QLatin1String(preference::favorites), QVariantList{QStringLiteral("lowercase")});
    manager.loadFavorites();
    EXPECT_EQ(manager.favorites(), (std::set<std::string, std::less<>>{"lowercase"}));
}

TEST_F(ManagerRecipes, MarkingTwiceLeavesOneEntryAndUnmarkingTheLastAnEmptyList) {
    manager.toggleFavorite("uppercase");
    manager.toggleFavorite("uppercase");
    EXPECT_EQ(preferences.value(QLatin1String(preference::favorites)), QVariant(QVariantList()));
    EXPECT_TRUE(preferences.contains(QLatin1String(preference::favorites)));
    manager.toggleFavorite("uppercase");
    EXPECT_EQ(preferences.value(QLatin1String(preference::favorites)),
              QVariant(QVariantList{QStringLiteral("uppercase")}));
}

TEST_F(ManagerRecipes, AListThatHoldsMoreThanTextsLoadsNoFavorites) {
    const QVariant foreign[] = {QVariantList{QStringLiteral("uppercase"), 5},
                                QVariantList{true},
                                QVariantList{QVariantList()},
                                QStringLiteral("uppercase"),
                                5,
                                QByteArray("[\"uppercase\"]")};
    for (const QVariant &value : foreign) {
        preferences.setValue(QLatin1String(preference::favorites), value);
        EXPECT_TRUE(TransformationManager(preferences).favorites().empty());
    }
    preferences.setValue(QLatin1String(preference::favorites),
                         QStringList{QStringLiteral("uppercase"), QStringLiteral("uppercase")});
    EXPECT_EQ(TransformationManager(preferences).favorites().size(), 1U);
}

} // namespace
} // namespace lexivore
