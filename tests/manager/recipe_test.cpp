// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/recipe.h"

#include "engine/catalog.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace lexivore {
namespace {

struct ExpectedOperation {
    std::string transformation;
    std::string name;
    ParameterMap parameters;
};
struct ExpectedTemplate {
    std::string name;
    RecipeCategory category;
    std::vector<ExpectedOperation> operations;
};

// Written out in full, and apart from the table that makes them.
const std::vector<ExpectedTemplate> expectedTemplates = {
    {"Clean Code Comments",
     RecipeCategory::coding,
     {{"delete-lines-starting", "Delete Lines Starting With...", {{"text", "//"}}},
      {"delete-lines-starting", "Delete Lines Starting With...", {{"text", "#"}}},
      {"remove-empty-lines", "Remove Empty Lines", {}}}},
    {"JSON Keys to Array",
     RecipeCategory::coding,
     {{"delete-lines-containing", "Delete Lines Containing...", {{"text", "{"}}},
      {"delete-lines-containing", "Delete Lines Containing...", {{"text", "}"}}},
      {"replace-text", "Replace Text", {{"find", "\x22\x3A"}, {"replace", ""}}},
      {"replace-text", "Replace Text", {{"find", ","}, {"replace", ""}}},
      {"trim-lines", "Trim Lines", {}},
      {"remove-empty-lines", "Remove Empty Lines", {}}}},
    {"Create Enum Cases",
     RecipeCategory::coding,
     {{"trim-lines", "Trim Lines", {}},
      {"remove-empty-lines", "Remove Empty Lines", {}},
      {"camelcase", "camelCase", {}},
      {"add-prefix", "Add Prefix", {{"prefix", "case\x20"}}}}},
    {"Format SQL List",
     RecipeCategory::dataProcessing,
     {{"trim-lines", "Trim Lines", {}},
      {"add-prefix", "Add Prefix", {{"prefix", "\x27"}}},
      {"add-suffix", "Add Suffix", {{"suffix", "\x27\x2C"}}}}},
    {"Extract Unique Lines",
     RecipeCategory::dataProcessing,
     {{"trim-lines", "Trim Lines", {}},
      {"remove-empty-lines", "Remove Empty Lines", {}},
      {"remove-duplicates", "Remove Duplicate Lines", {}},
      {"sort-lines", "Sort Lines Alphabetically", {}}}},
    {"Quote & Comma Lines",
     RecipeCategory::dataProcessing,
     {{"trim-lines", "Trim Lines", {}},
      {"remove-empty-lines", "Remove Empty Lines", {}},
      {"add-prefix", "Add Prefix", {{"prefix", "\x22"}}},
      {"add-suffix", "Add Suffix", {{"suffix", "\x22\x2C"}}}}},
    {"CSV to JSON Array",
     RecipeCategory::dataProcessing,
     {{"trim-lines", "Trim Lines", {}},
      {"remove-empty-lines", "Remove Empty Lines", {}},
      {"add-prefix", "Add Prefix", {{"prefix", "\x20\x20\x22"}}},
      {"replace-text", "Replace Text", {{"find", ","}, {"replace", "\x22\x2C\x20\x22"}}},
      {"add-suffix", "Add Suffix", {{"suffix", "\x22"}}}}},
    {"Create Bullet List",
     RecipeCategory::writing,
     {{"trim-lines", "Trim Lines", {}},
      {"remove-empty-lines", "Remove Empty Lines", {}},
      {"add-prefix", "Add Prefix", {{"prefix", "\xE2\x80\xA2\x20"}}}}},
    {"Create Numbered List",
     RecipeCategory::writing,
     {{"trim-lines", "Trim Lines", {}},
      {"remove-empty-lines", "Remove Empty Lines", {}},
      {"number-lines", "Number Lines", {}}}},
    {"Title Case Headings",
     RecipeCategory::writing,
     {{"titlecase", "Title Case", {}}, {"trim-lines", "Trim Lines", {}}}},
    {"Normalize Text",
     RecipeCategory::formatting,
     {{"remove-whitespace", "Remove Extra Whitespace", {}},
      {"trim-lines", "Trim Lines", {}},
      {"remove-empty-lines", "Remove Empty Lines", {}}}},
    {"Clean Whitespace",
     RecipeCategory::formatting,
     {{"remove-tabs", "Remove Tabs", {}},
      {"remove-whitespace", "Remove Extra Whitespace", {}},
      {"trim-lines", "Trim Lines", {}}}},
    {"Unix Line Endings",
     RecipeCategory::formatting,
     {{"replace-text", "Replace Text", {{"find", "\x0D\x0A"}, {"replace", "\x0A"}}},
      {"replace-text", "Replace Text", {{"find", "\x0D"}, {"replace", "\x0A"}}}}},
};

TEST(RecipeCategory, HasADisplayTextForEachCaseInOrder) {
    std::string all;
    for (const RecipeCategory category : allRecipeCategories) {
        all += std::string(rawValue(category)) + "|";
        EXPECT_EQ(recipeCategory(rawValue(category)), category);
    }
    EXPECT_EQ(all, "My Recipes|Coding|Writing|Data Processing|Formatting|");
    EXPECT_EQ(recipeCategory("coding"), std::nullopt);
    EXPECT_EQ(recipeCategory(""), std::nullopt);
}

TEST(Recipe, IsATemplateUnlessItIsTheUsers) {
    Recipe recipe;
    for (const RecipeCategory category : allRecipeCategories) {
        recipe.category = category;
        EXPECT_EQ(recipe.isTemplate(), category != RecipeCategory::user);
    }
}

TEST(RecipeTemplates, AreTheThirteenFieldByField) {
    const Timestamp before = Timestamp::now();
    const std::vector<Recipe> templates = makeRecipeTemplates();
    const Timestamp after = Timestamp::now();
    const auto isNow = [&](Timestamp time) {
        return time.secondsSinceReferenceDate >= before.secondsSinceReferenceDate &&
               time.secondsSinceReferenceDate <= after.secondsSinceReferenceDate;
    };
    ASSERT_EQ(templates.size(), 13U);
    ASSERT_EQ(expectedTemplates.size(), 13U);
    std::set<QUuid> ids;
    std::size_t idCount = 0;
    for (std::size_t i = 0; i < templates.size(); ++i) {
        const Recipe &recipe = templates[i];
        const ExpectedTemplate &expected = expectedTemplates[i];
        SCOPED_TRACE(expected.name);
        EXPECT_EQ(recipe.name, expected.name);
        EXPECT_EQ(recipe.category, expected.category);
        EXPECT_TRUE(isNow(recipe.createdAt));
        ids.insert(recipe.id);
        ++idCount;
        ASSERT_EQ(recipe.operations.size(), expected.operations.size());
        for (std::size_t j = 0; j < recipe.operations.size(); ++j) {
            const AppliedOperation &operation = recipe.operations[j];
            EXPECT_EQ(operation.transformation, expected.operations[j].transformation);
            EXPECT_EQ(operation.transformationName, expected.operations[j].name);
            EXPECT_EQ(operation.parameters, expected.operations[j].parameters);
            EXPECT_TRUE(operation.isEnabled);
            EXPECT_TRUE(isNow(operation.timestamp));
            ids.insert(operation.id);
            ++idCount;
        }
    }
    EXPECT_EQ(ids.size(), idCount);
    EXPECT_FALSE(ids.contains(QUuid()));
}

TEST(RecipeTemplates, NameTransformationsAndParametersOfTheCatalog) {
    const Catalog catalog = makeCatalog();
    for (const Recipe &recipe : makeRecipeTemplates()) {
        for (const AppliedOperation &operation : recipe.operations) {
            SCOPED_TRACE(recipe.name + ", " + operation.transformation);
            const TransformationPointer found = findTransformation(catalog, operation.transformation);
            ASSERT_NE(found, nullptr);
            EXPECT_EQ(operation.transformationName, found->name());
            ASSERT_EQ(operation.parameters.size(), found->parameters().size());
            for (const TransformationParameter &parameter : found->parameters()) {
                EXPECT_TRUE(operation.parameters.contains(parameter.id)) << parameter.id;
            }
        }
    }
}

TEST(RecipeTemplates, AreMadeAnewByEachCall) {
    EXPECT_NE(makeRecipeTemplates()[0].id, makeRecipeTemplates()[0].id);
    EXPECT_NE(makeRecipeTemplates()[0].operations[0].id, makeRecipeTemplates()[0].operations[0].id);
}

} // namespace
} // namespace lexivore
