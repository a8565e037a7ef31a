// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/recipe_json.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace lexivore {
namespace {

/// One recipe as another program may have written it: keys in no order, lower case, whole seconds, keys of its own.
constexpr char foreignRecipe[] = R"([{
  "operations": [{
    "isEnabled": false,
    "timestamp": 700000000,
    "parameters": {"replace": "", "find": "\u2022 \"x\""},
    "transformationName": "Replace Text",
    "transformation": "replace-text",
    "id": "0f8fad5b-d9cb-469f-a165-70867728950e",
    "comment": null
  }],
  "category": "Data Processing",
  "version": [1, 2],
  "createdAt": 683726401.25,
  "name": "caf\u00e9",
  "id": "7C9E6679-7425-40DE-944B-E07FC1F90AE7"
}])";

Recipe sampleRecipe() {
    Recipe recipe;
    recipe.id = QUuid::fromString(QStringLiteral("7c9e6679-7425-40de-944b-e07fc1f90ae7"));
    recipe.name = "café";
    recipe.createdAt = {683726401.25};
    recipe.category = RecipeCategory::dataProcessing;
    AppliedOperation &operation = recipe.operations.emplace_back();
    operation.id = QUuid::fromString(QStringLiteral("0f8fad5b-d9cb-469f-a165-70867728950e"));
    operation.transformation = "replace-text";
    operation.transformationName = "Replace Text";
    operation.parameters = {{"find", "• \"x\""}, {"replace", ""}};
    operation.timestamp = {700000000};
    operation.isEnabled = false;
    return recipe;
}

std::string problemOf(const QByteArray &json) {
    QString problem;
    return RecipeJson::decode(json, &problem) ? "accepted" : problem.toStdString();
}

TEST(RecipeJson, WritesTheStatedRecord) {
    EXPECT_EQ(RecipeJson::encode({sampleRecipe()})->toStdString(),
              "[{\"category\":\"Data Processing\",\"createdAt\":683726401.25,"
              "\"id\":\"7C9E6679-7425-40DE-944B-E07FC1F90AE7\",\"name\":\"café\",\"operations\":["
              "{\"id\":\"0F8FAD5B-D9CB-469F-A165-70867728950E\",\"isEnabled\":false,"
              "\"parameters\":{\"find\":\"• \\\"x\\\"\",\"replace\":\"\"},\"timestamp\":700000000,"
              "\"transformation\":\"replace-text\",\"transformationName\":\"Replace Text\"}]}]");
    EXPECT_EQ(*RecipeJson::encode({}), "[]");
}

TEST(RecipeJson, ReadsWhatOthersMayWrite) {
    const auto recipes = RecipeJson::decode(foreignRecipe);
    ASSERT_TRUE(recipes.has_value());
    ASSERT_EQ(recipes->size(), 1U);
    EXPECT_TRUE(haveSameFields(recipes->front(), sampleRecipe()));
    ASSERT_TRUE(RecipeJson::decode("[]").has_value());
    EXPECT_TRUE(RecipeJson::decode(" [ ] \n")->empty());
}

TEST(RecipeJson, ReadsItsOwnWritingBackToTheBit) {
    std::vector<Recipe> recipes = makeRecipeTemplates();
    recipes.push_back(sampleRecipe());
    recipes.push_back({.name = std::string("nul \0 inside", 12)});
    recipes.back().createdAt = {1.0 / 3.0};
    recipes.push_back({.name = "", .createdAt = {-63114076800.5}, .category = RecipeCategory::writing});
    recipes.push_back({.id = QUuid(), .name = "null id \U0001F469\u200D\U0001F467\r\n", .createdAt = {1e300}});
    for (const auto format : {QJsonDocument::Compact, QJsonDocument::Indented}) {
        const auto read = RecipeJson::decode(*RecipeJson::encode(recipes, format));
        ASSERT_TRUE(read.has_value());
        ASSERT_EQ(read->size(), recipes.size());
        for (std::size_t i = 0; i < recipes.size(); ++i) {
            EXPECT_TRUE(haveSameFields(read->at(i), recipes[i])) << recipes[i].name;
        }
    }
}

TEST(RecipeJson, KeepsAByteOrderMarkAtTheFrontOfATextHoweverItIsWritten) {
    Recipe recipe = sampleRecipe();
    recipe.name = "\uFEFFname";
    recipe.operations[0].parameters = {{"find", "\uFEFF"}, {"replace", "\uFEFF\uFEFF"}};
    const auto written = RecipeJson::encode({recipe});
    EXPECT_TRUE(written->contains("\"find\":\"\\ufeff\"")) << written->toStdString();
    const auto read = RecipeJson::decode(*written);
    ASSERT_TRUE(read.has_value());
    EXPECT_TRUE(haveSameFields(read->front(), recipe));

    QByteArray foreign = *written;
    foreign.replace("\\ufeff", "\uFEFF");
    for (const QByteArray &mark : {QByteArray(), QByteArray("\uFEFF")}) {
        const auto readForeign = RecipeJson::decode(mark + foreign);
        ASSERT_TRUE(readForeign.has_value());
        EXPECT_TRUE(haveSameFields(readForeign->front(), recipe));
    }
    EXPECT_EQ(problemOf("[\"\uFEFF\"] x"), problemOf("[\"abc\"] x")) << "the place is one in the bytes as they stand";
}

TEST(RecipeJson, DoesNotWriteATimeThatIsNoNumber) {
    Recipe recipe = sampleRecipe();
    recipe.createdAt = {std::numeric_limits<double>::infinity()};
    EXPECT_EQ(RecipeJson::encode({recipe}), std::nullopt);
    recipe = sampleRecipe();
    recipe.operations[0].timestamp = {std::numeric_limits<double>::quiet_NaN()};
    EXPECT_EQ(RecipeJson::encode({recipe}), std::nullopt);
}

TEST(RecipeJson, RefusesEveryMissingKey) {
    for (const char *key : {"id", "name", "operations", "createdAt", "category", "isEnabled", "timestamp", "parameters",
                            "transformationName", "transformation"}) {
        const QByteArray quoted = '"' + QByteArray(key) + '"';
        for (qsizetype at = QByteArray(foreignRecipe).indexOf(quoted); at >= 0;
             at = QByteArray(foreignRecipe).indexOf(quoted, at + 1)) {
            const QByteArray json = QByteArray(foreignRecipe).replace(at, quoted.size(), "\"other\"");
            EXPECT_TRUE(problemOf(json).find("has no \"" + std::string(key) + "\".") != std::string::npos)
                << key << ": " << problemOf(json);
        }
    }
}

struct WrongType {
    const char *was;
    const char *becomes;
    const char *problem;
};

const WrongType wrongTypes[] = {
    {"\"name\": \"caf\\u00e9\"", "\"name\": 5", "\"name\" of Recipe 1 is not a text."},
    {"\"name\": \"caf\\u00e9\"", "\"name\": null", "\"name\" of Recipe 1 is not a text."},
    {"683726401.25", "\"683726401.25\"", "\"createdAt\" of Recipe 1 is not a number of seconds."},
    {"700000000", "true", "\"timestamp\" of operation 1 of recipe 1 is not a number of seconds."},
    {"false", "0", "\"isEnabled\" of operation 1 of recipe 1 is not true or false."},
    {"false", "\"false\"", "\"isEnabled\" of operation 1 of recipe 1 is not true or false."},
    {"\"replace\": \"\"", "\"replace\": 1", "Parameter \"replace\" of operation 1 of recipe 1 is not a text."},
    {"\"replace\": \"\"", "\"replace\": null", "Parameter \"replace\" of operation 1 of recipe 1 is not a text."},
    {R"({"replace": "", "find": "\u2022 \"x\""})", "[]",
     "\"parameters\" of operation 1 of recipe 1 is not an object of texts."},
    {"Data Processing", "data processing", "\"category\" of Recipe 1 is not a recipe category."},
    {"Data Processing", "dataProcessing", "\"category\" of Recipe 1 is not a recipe category."},
    {"7C9E6679-7425-40DE-944B-E07FC1F90AE7", "{7C9E6679-7425-40DE-944B-E07FC1F90AE7}",
     "\"id\" of Recipe 1 is not a UUID."},
    {"7C9E6679-7425-40DE-944B-E07FC1F90AE7", "7C9E6679742540DE944BE07FC1F90AE7", "\"id\" of Recipe 1 is not a UUID."},
    {"7C9E6679-7425-40DE-944B-E07FC1F90AE7", "", "\"id\" of Recipe 1 is not a UUID."},
    {"0f8fad5b", "0g8fad5b", "\"id\" of operation 1 of recipe 1 is not a UUID."},
    {"\"operations\": [{", "\"operations\": [5, {", "operation 1 of recipe 1 is not an object."},
    {"\"operations\": [{", "\"operations\": 5, \"more\": [{", "\"operations\" of Recipe 1 is not a list."},
    {"[{\n  \"operations\"", "[[], {\n  \"operations\"", "Recipe 1 is not an object."},
};

TEST(RecipeJson, RefusesEveryWrongTypeAndSaysWhere) {
    for (const WrongType &wrong : wrongTypes) {
        QByteArray json = foreignRecipe;
        ASSERT_TRUE(json.contains(wrong.was)) << wrong.was;
        json.replace(json.indexOf(wrong.was), static_cast<qsizetype>(std::strlen(wrong.was)), wrong.becomes);
        EXPECT_EQ(problemOf(json), wrong.problem);
    }
}

TEST(RecipeJson, RefusesWhatIsNoListOrNoJson) {
    EXPECT_EQ(problemOf("{}"), "It is not a list of recipes.");
    EXPECT_EQ(problemOf("5").substr(0, 22), "It is not valid JSON: ");
    for (const QByteArray &json : {QByteArray(), QByteArray("["), QByteArray("[] x"), QByteArray("[\"\xFF\"]"),
                                   QByteArray(foreignRecipe).chopped(1)}) {
        EXPECT_EQ(problemOf(json).substr(0, 22), "It is not valid JSON: ");
    }
    EXPECT_EQ(RecipeJson::decode("nonsense"), std::nullopt); // nobody has to ask why
}

TEST(RecipeJson, RefusesTheWholeListForOneBadRecipe) {
    const QByteArray good = QByteArray(foreignRecipe).chopped(1);
    EXPECT_EQ(problemOf(good + ", {}]"), "Recipe 2 has no \"id\".");
}

} // namespace
} // namespace lexivore
